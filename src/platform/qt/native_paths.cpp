#include "platform/qt/native_paths.h"

#include "base/text.h"
#include "platform/qt/descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <climits>

namespace gatehouse {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool entryExists(const std::string& path) {
    struct stat found {};
    return ::lstat(path.c_str(), &found) == 0;
}

unsigned char folded(char c) { return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); }

/// Length of the longest part in front of the last separator that exists: 0 stands for the working folder.
std::size_t existingLength(const std::string& path) {
    std::size_t length = path.size();
    do {
        const std::size_t slash = path.rfind('/', length - 1);
        if (slash == std::string::npos) return 0;
        if (slash == 0) return 1;
        length = slash;
    } while (!entryExists(path.substr(0, length)));
    return length;
}

}  // namespace

std::string toProgramPath(std::string_view native) {
    std::string result = native.starts_with('/') ? "C:" : "";
    result += native;
    std::replace(result.begin(), result.end(), '/', '\\');
    return result;
}

std::string toNativePath(std::string_view program) {
    if (program.find('\0') != std::string_view::npos) return "";
    std::string result;
    if (program.size() >= 2 && program[1] == ':' && isLetter(program[0])) {
        if (folded(program[0]) != 'c') return "";
        program.remove_prefix(2);
        result = "/";
    }
    for (const char c : program) {
        const char native = c == '\\' ? '/' : c;
        if (native != '/' || !result.ends_with('/')) result += native;
    }
    if (result.size() > 1 && result.ends_with('/')) result.pop_back();
    return result;
}

std::string nativeFolder(std::string_view native) {
    const std::size_t slash = native.rfind('/');
    if (slash == std::string_view::npos) return "";
    return std::string(native.substr(0, std::max<std::size_t>(slash, 1)));
}

std::string nativeName(std::string_view native) {
    const std::size_t slash = native.rfind('/');
    return std::string(slash == std::string_view::npos ? native : native.substr(slash + 1));
}

std::string joinNative(std::string_view folder, std::string_view name) {
    std::string result(folder);
    if (!result.empty() && !result.ends_with('/')) result += '/';
    result += name;
    return result;
}

bool nameBefore(std::string_view a, std::string_view b) {
    const auto length = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    const auto [inA, inB] =
        std::mismatch(a.begin(), a.begin() + length, b.begin(), [](char x, char y) { return folded(x) == folded(y); });
    if (inA != a.begin() + length) return folded(*inA) < folded(*inB);
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

std::optional<std::string> existingName(int at, const std::string& folder, const std::string& name) {
    Descriptor opened(::openat(at, folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!opened || name.empty()) return std::nullopt;
    struct stat found {};
    if (::fstatat(opened.get(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0) return name;

    Descriptor readable(::openat(opened.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const FolderStream stream(readable ? ::fdopendir(readable.get()) : nullptr);
    if (!stream) return std::nullopt;
    readable.release();
    std::optional<std::string> best;
    while (const dirent* entry = ::readdir(stream.get())) {
        const std::string_view candidate = entry->d_name;
        if (candidate.size() == name.size() && equalNoCase(candidate, name) && (!best || candidate < *best))
            best = candidate;
    }
    return best;
}

NativeLocation locate(std::string_view native) {
    const std::string path(native);
    if (path.empty() || path.size() >= PATH_MAX) return {path, false};
    if (entryExists(path)) return {path, true};

    const std::size_t known = existingLength(path);
    std::string found = path.substr(0, known);
    std::size_t at = path.find_first_not_of('/', known);
    while (at < path.size()) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const auto name = existingName(AT_FDCWD, found.empty() ? "." : found, path.substr(at, end - at));
        if (!name) return {joinNative(found, path.substr(at)), false};
        found = joinNative(found, *name);
        at = end + 1;
    }
    return {found, true};
}

std::optional<std::string> resolveExisting(std::string_view program) {
    NativeLocation location = locate(toNativePath(program));
    if (!location.exists) return std::nullopt;
    return std::move(location.path);
}

}  // namespace gatehouse
