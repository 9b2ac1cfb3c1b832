#include "platform/qt/replaced_file.h"

#include "base/text.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/text_streams.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <optional>

namespace gatehouse {

namespace {

constexpr int kMostLinks = 40;
constexpr int kMostNames = 100;
constexpr mode_t kModeBits = 07777;
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr std::string_view kStrayEnd = ".new";
/// Room that the rest of a name beside needs: two dots, a process number, a counter and the end.
constexpr std::size_t kNameRoom = 32;

/// The file that a path leads to through links, there or not. Fails for links without an end.
std::string targetOf(const std::string& native, const std::string& path) {
    std::string target = native;
    for (int i = 0; i < kMostLinks; ++i) {
        std::array<char, PATH_MAX> link{};
        const ssize_t length = ::readlink(target.c_str(), link.data(), link.size() - 1);
        if (length < 0) return target;
        const std::string next(link.data(), static_cast<std::size_t>(length));
        target = next.starts_with('/') ? next : joinNative(nativeFolder(target), next);
    }
    failFile("Can't write", path, ELOOP);
}

/// Writes all of it at a place of the file, or on from where it stands (`at` -1). The error, 0 for none.
int writeWhole(int file, std::string_view bytes, off_t at = -1) {
    while (!bytes.empty()) {
        const ssize_t count =
            at < 0 ? ::write(file, bytes.data(), bytes.size()) : ::pwrite(file, bytes.data(), bytes.size(), at);
        if (count < 0 && errno != EINTR) return errno;
        if (count <= 0) continue;
        bytes.remove_prefix(static_cast<std::size_t>(count));
        if (at >= 0) at += count;
    }
    return 0;
}

/// Puts these bytes in place of what an open file holds, and on the disk. The error, 0 for none.
int setContent(int file, std::string_view bytes) {
    if (const int error = writeWhole(file, bytes, 0)) return error;
    if (::ftruncate(file, static_cast<off_t>(bytes.size())) != 0) return errno;
    return ::fsync(file) != 0 ? errno : 0;
}

bool folderRefuses(int error) { return error == EACCES || error == EPERM || error == EBUSY || error == EROFS; }

/// How the names of all files beside one of that name begin.
std::string strayBeginning(const std::string& name) { return "." + name.substr(0, NAME_MAX - kNameRoom) + "."; }

std::string strayName(const std::string& name, int number) {
    return strayBeginning(name) + std::to_string(::getpid()) + "-" + std::to_string(number) + std::string(kStrayEnd);
}

/// The number of the process that a file beside belongs to, when the name is one of the target's.
std::optional<pid_t> ownerOfStray(std::string_view name, std::string_view beginning) {
    if (!name.starts_with(beginning) || !name.ends_with(kStrayEnd)) return std::nullopt;
    name.remove_prefix(beginning.size());
    pid_t number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    if (read.ec != std::errc() || number <= 0 || *read.ptr != '-') return std::nullopt;  // the end is still to come
    return number;
}

}  // namespace

FileReplacer::FileReplacer(const std::string& native, std::string path)
    : target_(targetOf(native, path)), name_(nativeName(target_)), path_(std::move(path)) {
    struct stat old {};
    exists_ = ::stat(target_.c_str(), &old) == 0;
    if (exists_) {
        if (S_ISDIR(old.st_mode)) fail(EISDIR);
        // A file that its owner has protected stays as it is: taking its place would go round that.
        if (!(old.st_mode & kAnyWrite) || ::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) fail(EACCES);
        mode_ = old.st_mode & kModeBits;
        owner_ = old.st_uid;
        group_ = old.st_gid;
    }
    const std::string folder = nativeFolder(target_);
    folder_ = Descriptor(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int error = folder_ ? 0 : errno;
    // What is no file of bytes, such as a pipe, has no place that could be taken.
    const bool placeable = folder_ && (!exists_ || S_ISREG(old.st_mode));
    if (placeable && openBeside())
        keepOwnerAndMode();
    else if (!exists_)
        fail(error ? error : errno);
}

FileReplacer::~FileReplacer() { removeBeside(); }

void FileReplacer::fail(int error) const { failFile("Can't write", path_, error); }

bool FileReplacer::openBeside() {
    constexpr mode_t kNewMode = 0666;
    file_ = Descriptor(::openat(folder_.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, kNewMode));
    if (file_) return true;
    // Not every file system knows files without a name.
    for (int i = 0; i < kMostNames && !file_; ++i) {
        beside_ = strayName(name_, i);
        constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        file_ = Descriptor(::openat(folder_.get(), beside_.c_str(), kFlags, kNewMode));
        if (!file_ && errno != EEXIST) break;
    }
    if (!file_) beside_.clear();
    if (!file_ && exists_ && !folderRefuses(errno)) fail(errno);
    return static_cast<bool>(file_);
}

void FileReplacer::keepOwnerAndMode() const {
    if (!exists_) return;
    // To give a file away takes a privilege; who may write it matters more than whose it is.
    [[maybe_unused]] const int ignored = ::fchown(file_.get(), owner_, group_);
    if (::fchmod(file_.get(), mode_) != 0) fail(errno);
}

void FileReplacer::writeLine(const std::string& line) { writeAll(line + std::string(kCrLf)); }

void FileReplacer::writeAll(std::string_view bytes) {
    if (!file_) {
        text_ += bytes;
        return;
    }
    if (const int error = writeWhole(file_.get(), bytes)) fail(error);
}

bool FileReplacer::nameBeside() {
    const std::string link = "/proc/self/fd/" + std::to_string(file_.get());
    for (int i = 0; i < kMostNames; ++i) {
        const std::string name = strayName(name_, i);
        if (::linkat(AT_FDCWD, link.c_str(), folder_.get(), name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            beside_ = name;
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

void FileReplacer::removeBeside() {
    if (!beside_.empty()) ::unlinkat(folder_.get(), beside_.c_str(), 0);
    beside_.clear();
}

bool FileReplacer::takePlace() {
    if (beside_.empty() && !nameBeside()) fail(errno);
    if (::renameat(folder_.get(), beside_.c_str(), folder_.get(), name_.c_str()) == 0) {
        beside_.clear();
        return true;
    }
    const int error = errno;
    removeBeside();
    if (!exists_ || !folderRefuses(error)) fail(error);
    return false;
}

void FileReplacer::close() {
    if (!file_) return overwrite();
    if (::fsync(file_.get()) != 0) fail(errno);
    if (!takePlace()) {
        // The folder lets the old file be written, but not be replaced.
        std::string bytes = FileReader("/proc/self/fd/" + std::to_string(file_.get()), path_).readBytes(SIZE_MAX);
        text_ = std::move(bytes);
        return overwrite();
    }
    if (::close(file_.release()) != 0 && errno != EINTR) fail(errno);
    if (::fsync(folder_.get()) != 0) fail(errno);
    removeStrays();
}

void FileReplacer::overwrite() {
    const Descriptor file(::open(target_.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat old {};
    if (!file || ::fstat(file.get(), &old) != 0) fail(errno);
    if (!S_ISREG(old.st_mode)) {
        if (const int error = writeWhole(file.get(), text_)) fail(error);
        return;
    }
    const std::string before = FileReader(target_, path_).readBytes(SIZE_MAX);
    const int error = setContent(file.get(), text_);
    if (error == 0) return;
    setContent(file.get(), before);
    fail(error);
}

void FileReplacer::removeStrays() const {
    Descriptor copy(::openat(folder_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const FolderStream stream(copy ? ::fdopendir(copy.get()) : nullptr);
    if (!stream) return;
    copy.release();
    const std::string beginning = strayBeginning(name_);
    while (const dirent* entry = ::readdir(stream.get())) {
        const auto owner = ownerOfStray(entry->d_name, beginning);
        // One of a program that was killed: nobody else would take it away.
        if (owner && ::kill(*owner, 0) != 0 && errno == ESRCH) ::unlinkat(folder_.get(), entry->d_name, 0);
    }
}

}  // namespace gatehouse
