#include "platform/qt/program_folder.h"

#include "base/runtime_failure.h"

#include <cstdlib>
#include <filesystem>

namespace gatehouse {

namespace fs = std::filesystem;

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// A folder of the XDG base directories; a relative one doesn't count.
fs::path userFolder(const char* name, const char* below) {
    const fs::path named = variable(name);
    return named.is_absolute() ? named : fs::path(variable("HOME")) / below;
}

void fill(const fs::path& from, const fs::path& to) {
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const fs::path target = to / fs::relative(entry.path(), from);
        if (entry.is_directory()) {
            fs::create_directories(target);
        } else {
            fs::copy_file(entry.path(), target, fs::copy_options::skip_existing);
            fs::permissions(target, fs::perms::owner_write, fs::perm_options::add);
        }
    }
}

}  // namespace

std::string prepareProgramFolder(const std::string& dataFolder) {
    const std::string home = variable("GATEHOUSE_HOME");
    const fs::path folder =
        home.empty() ? userFolder("XDG_DATA_HOME", ".local/share") / "gatehouse" : fs::absolute(home);
    try {
        if (!fs::exists(folder) || fs::is_empty(folder)) {
            fs::create_directories(folder);
            fill(dataFolder, folder);
        }
    } catch (const fs::filesystem_error& error) {
        throw RuntimeFailure("The program folder " + folder.string() + " can't be set up: " + error.code().message());
    }
    for (const char* below : {"mods", "levelshots"}) {
        // A read-only program folder is no reason to stop here: what needs to write says so itself.
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
