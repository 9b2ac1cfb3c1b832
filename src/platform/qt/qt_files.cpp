#include "platform/qt/qt_files.h"

#include "base/text.h"
#include "platform/qt/folder_walk.h"
#include "platform/qt/mounts.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/replaced_file.h"
#include "platform/qt/text_streams.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <ctime>
#include <cstdio>
#include <filesystem>

namespace gatehouse {

namespace {

constexpr const char* kRoot = "/";

std::optional<struct stat> statusOf(const std::string& native) {
    struct stat found {};
    if (::stat(native.c_str(), &found) != 0) return std::nullopt;
    return found;
}

bool isFolder(const std::string& native) {
    const auto status = statusOf(native);
    return status && S_ISDIR(status->st_mode);
}

bool mayWrite(const std::string& native) { return ::faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) == 0; }

bool isReadOnly(const std::string& native) {
    constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    const auto status = statusOf(native);
    return status && (!(status->st_mode & kAnyWrite) || !mayWrite(native));
}

bool sameFile(const std::string& a, const std::string& b) {
    const auto first = statusOf(a);
    const auto second = statusOf(b);
    return first && second && first->st_dev == second->st_dev && first->st_ino == second->st_ino;
}

std::string spellingKey(const std::string& native) {
    return joinNative(nativeFolder(native), lower(nativeName(native)));
}

void copyContent(FileReader& from, const std::string& native, const std::string& path) {
    FileReplacer target(native, path);
    for (auto piece = from.nextPiece(); !piece.empty(); piece = from.nextPiece()) target.writeAll(piece);
    target.close();
}

}  // namespace

QtFiles::QtFiles(std::string cacheFolder) : cacheFolder_(std::move(cacheFolder)) {}

std::optional<std::string> QtFiles::cachePlace(const std::string& native) const {
    if (nativeFolder(native) != kRoot || native == kRoot || mayWrite(kRoot)) return std::nullopt;
    return joinNative(cacheFolder_, nativeName(native));
}

NativeLocation QtFiles::find(const std::string& path) const {
    const std::string native = toNativePath(path);
    const auto instead = cachePlace(native);
    if (instead) {
        NativeLocation cached = locate(*instead);
        if (cached.exists) return cached;
    }
    return locate(native);
}

std::string QtFiles::existing(const std::string& path, const char* doing) const {
    NativeLocation location = find(path);
    if (!location.exists) failFile(doing, path, ENOENT);
    return std::move(location.path);
}

std::string QtFiles::forMaking(const std::string& path) const {
    const std::string native = toNativePath(path);
    if (native.empty()) failFile("Can't write", path, ENOENT);
    const auto instead = cachePlace(native);
    if (instead) {
        std::error_code ignored;  // the opening that follows tells
        std::filesystem::create_directories(cacheFolder_, ignored);
    }
    NativeLocation location = locate(instead.value_or(native));
    if (location.exists) return std::move(location.path);
    const auto remembered = spellings_.find(spellingKey(location.path));
    if (remembered == spellings_.end()) return std::move(location.path);
    return joinNative(nativeFolder(location.path), remembered->second);
}

void QtFiles::rememberSpelling(const std::string& native) { spellings_[spellingKey(native)] = nativeName(native); }

bool QtFiles::fileExists(const std::string& path) const {
    const NativeLocation location = find(path);
    const auto status = location.exists ? statusOf(location.path) : std::nullopt;
    return status && !S_ISDIR(status->st_mode);
}

bool QtFiles::folderExists(const std::string& path) const {
    const NativeLocation location = locate(toNativePath(path));
    return location.exists && isFolder(location.path);
}

std::uint64_t QtFiles::fileSize(const std::string& path) const {
    const auto status = statusOf(existing(path, "Can't open"));
    if (!status) failFile("Can't open", path, errno);
    if (S_ISDIR(status->st_mode)) failFile("Can't open", path, EISDIR);
    return static_cast<std::uint64_t>(status->st_size);
}

double QtFiles::fileAge(const std::string& path) const {
    const auto status = statusOf(existing(path, "Can't open"));
    if (!status) failFile("Can't open", path, errno);
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return 1000.0 * static_cast<double>(now.tv_sec - status->st_mtim.tv_sec) +
           static_cast<double>(now.tv_nsec - status->st_mtim.tv_nsec) / 1e6;
}

std::unique_ptr<TextReader> QtFiles::openText(const std::string& path) {
    return std::make_unique<FileReader>(find(path).path, path);
}

std::unique_ptr<TextWriter> QtFiles::createText(const std::string& path) {
    return std::make_unique<FileWriter>(forMaking(path), path, WriteStart::Anew);
}

std::unique_ptr<TextWriter> QtFiles::replaceText(const std::string& path) {
    return std::make_unique<FileReplacer>(forMaking(path), path);
}

std::unique_ptr<TextWriter> QtFiles::appendText(const std::string& path) {
    return std::make_unique<FileWriter>(forMaking(path), path, WriteStart::AtEnd);
}

void QtFiles::deleteFile(const std::string& path, bool force) {
    const std::string native = existing(path, "Can't delete");
    if (isFolder(native)) failFile("Can't delete", path, EISDIR);
    if (!force && isReadOnly(native)) failFile("Can't delete", path, EACCES);
    if (::unlink(native.c_str()) != 0) failFile("Can't delete", path, errno);
    rememberSpelling(native);
}

void QtFiles::copyFile(const std::string& from, const std::string& to) {
    const std::string source = existing(from, "Can't copy");
    const std::string target = forMaking(to);
    FileReader reader(source, from);
    if (sameFile(source, target)) throw FileFailure("Can't copy " + from + ": It is the same file as " + to);
    copyContent(reader, target, to);
}

void QtFiles::renameFile(const std::string& from, const std::string& to) {
    const std::string source = existing(from, "Can't rename");
    if (isFolder(source)) failFile("Can't rename", from, EISDIR);
    std::string target = forMaking(to);
    // A file renamed to its own name takes the new spelling.
    if (target == source) target = joinNative(nativeFolder(source), nativeName(toNativePath(to)));
    if (::rename(source.c_str(), target.c_str()) != 0) {
        if (errno != EXDEV) failFile("Can't rename", from, errno);
        FileReader reader(source, from);
        copyContent(reader, target, to);
        if (::unlink(source.c_str()) != 0) failFile("Can't rename", from, errno);
    }
    if (spellingKey(target) != spellingKey(source)) rememberSpelling(source);
}

void QtFiles::createFolder(const std::string& path) {
    const std::string native = locate(toNativePath(path)).path;
    if (isFolder(native)) return;
    std::error_code error;
    std::filesystem::create_directories(native, error);
    if (error) failFile("Can't make folder", path, error.value());
    if (!isFolder(native)) failFile("Can't make folder", path, EEXIST);
}

void QtFiles::deleteFolder(const std::string& path) { deleteTree(toNativePath(path), path); }

std::string QtFiles::existingFolder(const std::string& path) const {
    NativeLocation location = locate(toNativePath(path));
    if (!location.exists) failFile("Can't read folder", path, ENOENT);
    if (location.path.starts_with('/')) return std::move(location.path);
    std::error_code error;
    const auto absolute = std::filesystem::absolute(location.path, error);
    if (error) failFile("Can't read folder", path, error.value());
    return absolute.string();
}

FolderListing QtFiles::listFolder(const std::string& path) const {
    const auto all = [](auto&&...) { return true; };
    return readFolder(existingFolder(path), path, {all, all});
}

FolderListing QtFiles::searchListing(const std::string& path) const {
    const std::string native = existingFolder(path);
    if (!foreignMounts_ || native == kRoot) foreignMounts_ = foreignMounts();
    const auto isProgram = [](const std::string& name) { return endsWithNoCase(name, ".exe"); };
    const auto isOwnFolder = [&](const std::string& name, bool linked) {
        return !linked && !foreignMounts_->contains(joinNative(native, name));
    };
    return readFolder(native, path, {isProgram, isOwnFolder});
}

std::vector<Drive> QtFiles::drives() const { return {{"C:", DriveType::Fixed}}; }

}  // namespace gatehouse
