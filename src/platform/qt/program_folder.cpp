#include "platform/qt/program_folder.h"

#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/qt/replaced_file.h"
#include "platform/qt/text_streams.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <vector>

namespace gatehouse {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLargestFile = std::size_t{16} << 20;
/// A file that the program's data always holds.
constexpr const char* kAlwaysThere = "aliases.txt";
/// The list of what was brought into the folder, in the folder itself.
constexpr const char* kBrought = ".brought";

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The user's home; the one in the password database where the environment names none.
std::string homeFolder() {
    if (const std::string home = variable("HOME"); !home.empty()) return home;
    passwd entry{};
    passwd* found = nullptr;
    std::vector<char> buffer(16384);
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return "";
    return found->pw_dir;
}

/// A folder of the XDG base directories; a relative one doesn't count.
fs::path userFolder(const char* name, const char* below) {
    const fs::path named = variable(name);
    return named.is_absolute() ? named : fs::path(homeFolder()) / below;
}

std::string textOf(const fs::path& file) { return FileReader(file.string(), file.string()).readBytes(kLargestFile); }

void replace(const fs::path& file, const std::string& text) {
    FileReplacer target(file.string(), file.string());
    target.writeAll(text);
    target.close();
}

/// Names of the files that were brought here before, as paths below the folder.
std::set<std::string> broughtBefore(const fs::path& folder) {
    if (!fs::exists(folder / kBrought)) return {};
    const std::vector<std::string> names = splitLines(textOf(folder / kBrought));
    return {names.begin(), names.end()};
}

/// Brings the files that were never there. One that a person has deleted since stays away, and none is overwritten.
void fill(const fs::path& from, const fs::path& to) {
    const std::set<std::string> before = broughtBefore(to);
    std::set<std::string> brought = before;
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        if (!entry.is_regular_file()) continue;
        const std::string name = fs::relative(entry.path(), from).generic_string();
        if (!brought.insert(name).second || fs::exists(to / name)) continue;
        fs::create_directories((to / name).parent_path());
        replace(to / name, textOf(entry.path()));
    }
    if (brought == before) return;
    // Last: a filling that was broken off goes on at the next start.
    std::string names;
    for (const std::string& name : brought) names += name + "\n";
    replace(to / kBrought, names);
}

/// A folder that was there and can't be written is no reason to stop: what needs to write says so itself.
bool isReadOnly(const fs::path& folder) {
    return fs::exists(folder) && ::faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) != 0;
}

}  // namespace

std::string dataFolder() {
    std::error_code unknown;
    const fs::path program = fs::read_symlink("/proc/self/exe", unknown).parent_path();
    const fs::path places[] = {program.parent_path() / "share/gatehouse", GATEHOUSE_INSTALLED_DATA, program / "data"};
    std::string looked;
    for (const fs::path& place : places) {
        if (fs::exists(place / kAlwaysThere, unknown)) return place.string();
        looked += " " + place.string();
    }
    throw RuntimeFailure("The program's data is in none of these folders:" + looked);
}

std::string prepareProgramFolder(const std::string& dataFolder) {
    const std::string home = variable("GATEHOUSE_HOME");
    const fs::path folder =
        home.empty() ? userFolder("XDG_DATA_HOME", ".local/share") / "gatehouse" : fs::absolute(home);
    const auto fail = [&folder](const std::string& why) {
        throw RuntimeFailure("The program folder " + folder.string() + " can't be set up: " + why);
    };
    try {
        if (!isReadOnly(folder)) {
            fs::create_directories(folder);
            fill(dataFolder, folder);
        }
    } catch (const fs::filesystem_error& error) {
        fail(error.code().message());
    } catch (const FileFailure& failure) {
        fail(failure.what());
    }
    for (const char* below : {"mods", "levelshots"}) {
        std::error_code ignored;
        fs::create_directories(folder / below, ignored);
    }
    std::string text = folder.lexically_normal().string();
    while (text.size() > 1 && text.ends_with('/')) text.pop_back();
    return text;
}

std::string optionsFile() { return (userFolder("XDG_CONFIG_HOME", ".config") / "gatehouse" / "gatehouse.ini").string(); }
std::string cacheFolder() { return (userFolder("XDG_CACHE_HOME", ".cache") / "gatehouse").string(); }

}  // namespace gatehouse
