#include "game_files.h"

#include "command_text.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

namespace gatehouse::practice {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBaseFolder = "baseq3";
constexpr std::size_t kMaxNameLength = 128;

bool isPlainName(const std::string& name) {
    return !name.empty() && name.size() <= kMaxNameLength && name[0] != '.' &&
           std::none_of(name.begin(), name.end(), [](char c) {
               return static_cast<unsigned char>(c) < ' ' || c == '/' || c == '\\' || c == ':';
           });
}

/// The parts of a relative name, or nothing if one of them is no plain name.
std::optional<std::vector<std::string>> partsOf(const std::string& name) {
    std::vector<std::string> parts(1);
    for (const char c : name) {
        if (c == '/' || c == '\\') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    if (parts.size() > 8 || !std::all_of(parts.begin(), parts.end(), isPlainName)) return std::nullopt;
    return parts;
}

/// The entry of that name in a folder: the exact name first, then one that differs in case alone.
std::optional<fs::path> entryOf(const fs::path& folder, const std::string& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return folder / name;
    const std::string wanted = lowered(name);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (lowered(entry->path().filename().string()) == wanted) return entry->path();
    }
    return std::nullopt;
}

bool isInside(const fs::path& root, const fs::path& path) {
    std::error_code error;
    const fs::path realRoot = fs::canonical(root, error);
    if (error) return false;
    const fs::path realPath = fs::canonical(path, error);
    if (error) return false;
    return std::mismatch(realRoot.begin(), realRoot.end(), realPath.begin(), realPath.end()).first == realRoot.end();
}

}  // namespace

GameFiles::GameFiles(fs::path folder, const std::string& mod)
    : folder_(std::move(folder)), mod_(isPlainName(mod) ? mod : std::string()) {}

std::optional<fs::path> GameFiles::findBelow(const std::string& top, const std::string& name) const {
    const auto parts = partsOf(name);
    if (!parts) return std::nullopt;
    auto path = entryOf(folder_, top);
    for (const std::string& part : *parts) {
        if (path) path = entryOf(*path, part);
    }
    std::error_code error;
    if (!path || !fs::is_regular_file(*path, error) || !isInside(folder_, *path)) return std::nullopt;
    return path;
}

std::optional<fs::path> GameFiles::find(const std::string& name) const {
    if (!mod_.empty()) {
        if (auto path = findBelow(mod_, name)) return path;
    }
    return findBelow(kBaseFolder, name);
}

std::optional<std::string> GameFiles::readConfig(const std::string& name) const {
    const auto path = find(name);
    if (!path) return std::nullopt;
    std::error_code error;
    if (fs::file_size(*path, error) > kMaxConfigBytes || error) return std::nullopt;
    std::ifstream in(*path, std::ios::binary);
    if (!in) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool GameFiles::hasDemo(const std::string& name) const {
    const std::string plain = lowered(name);
    if (plain == "demo001" || plain == "demo002") return true;
    return find("demos/" + name) || find("demos/" + name + ".dm3");
}

bool GameFiles::writeDump(const std::string& name, const std::string& text) const {
    const auto top = entryOf(folder_, mod_.empty() ? kBaseFolder : mod_);
    if (!isPlainName(name) || !top || !isInside(folder_, *top)) return false;
    const std::string full = name.find('.') == std::string::npos ? name + ".txt" : name;
    // Written beside and renamed: whoever waits for the file never reads half of it.
    const fs::path partial = *top / ("." + full + "." + std::to_string(getpid()));
    const int file = open(partial.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0644);
    if (file < 0) return false;
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(file, text.data() + done, text.size() - done);
        if (written <= 0) break;
        done += static_cast<std::size_t>(written);
    }
    std::error_code error;
    const bool complete = close(file) == 0 && done == text.size();
    if (complete) fs::rename(partial, *top / full, error);
    if (complete && !error) return true;
    fs::remove(partial, error);
    return false;
}

}  // namespace gatehouse::practice
