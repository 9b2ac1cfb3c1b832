#include "platform/qt/folder_walk.h"

#include "platform/qt/descriptor.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/text_streams.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace gatehouse {

namespace {

FolderStream openStream(Descriptor& folder) {
    FolderStream stream(::fdopendir(folder.get()));
    if (stream) folder.release();
    return stream;
}

/// The next entry but `.` and `..`; null at the end. Fails on a read fault.
const dirent* nextEntry(DIR* stream, const std::string& path) {
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(stream);
        if (!entry && errno != 0) failFile("Can't read folder", path, errno);
        if (!entry) return nullptr;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") return entry;
    }
}

enum class Kind { None, File, Folder };

struct Found {
    Kind kind = Kind::None;
    bool linked = false;
};

Kind kindOf(mode_t mode) {
    if (S_ISDIR(mode)) return Kind::Folder;
    return S_ISREG(mode) ? Kind::File : Kind::None;
}

Found examine(int folder, const dirent& entry) {
    if (entry.d_type == DT_DIR) return {Kind::Folder, false};
    if (entry.d_type == DT_REG) return {Kind::File, false};
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return {};
    struct stat own {};
    struct stat target {};
    if (::fstatat(folder, entry.d_name, &own, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return {};
    if (!S_ISLNK(own.st_mode)) return {kindOf(own.st_mode), false};
    if (::fstatat(folder, entry.d_name, &target, AT_NO_AUTOMOUNT) != 0) return {};
    return {kindOf(target.st_mode), true};
}

/// True when a link of that name can be passed over unseen: looking where it leads can take long.
bool unwantedLink(const dirent& entry, const std::string& name, const ListingFilter& filter) {
    return entry.d_type == DT_LNK && !filter.file(name) && !filter.folder(name, true);
}

bool mayRead(int folder, const char* name, int access) { return ::faccessat(folder, name, access, AT_EACCESS) == 0; }

void sortByName(std::vector<FolderEntry>& entries) {
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return nameBefore(a.name, b.name); });
}

class TreeDeleter {
public:
    TreeDeleter(std::string path, dev_t device) : path_(std::move(path)), device_(device) {}

    void empty(Descriptor folder) {
        const FolderStream stream = openStream(folder);
        if (!stream) failFile("Can't delete folder", path_, errno);
        std::vector<std::string> names;
        while (const dirent* entry = nextEntry(stream.get(), path_)) names.emplace_back(entry->d_name);
        for (const std::string& name : names) remove(::dirfd(stream.get()), name.c_str());
    }

private:
    void remove(int folder, const char* name) {
        struct stat found {};
        if (::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) != 0) failFile("Can't delete", path_, errno);
        if (S_ISDIR(found.st_mode)) {
            if (found.st_dev != device_) failFile("Can't delete", path_, EBUSY);
            empty(openForDeleting(folder, name, found));
        }
        if (::unlinkat(folder, name, S_ISDIR(found.st_mode) ? AT_REMOVEDIR : 0) != 0)
            failFile("Can't delete", path_, errno);
    }

    /// A write-protected folder gives up its content too.
    Descriptor openForDeleting(int folder, const char* name, const struct stat& found) {
        Descriptor opened(::openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!opened) failFile("Can't delete folder", path_, errno);
        if ((found.st_mode & S_IRWXU) != S_IRWXU && ::fchmod(opened.get(), found.st_mode | S_IRWXU) != 0)
            failFile("Can't delete folder", path_, errno);
        return opened;
    }

    std::string path_;
    dev_t device_;
};

}  // namespace

FolderListing readFolder(const std::string& native, const std::string& path, const ListingFilter& filter) {
    Descriptor opened(::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int openError = errno;
    const FolderStream stream = opened ? openStream(opened) : nullptr;
    if (!stream) failFile("Can't read folder", path, openError);

    const int folder = ::dirfd(stream.get());
    const std::string beginning = toProgramPath(joinNative(native, ""));
    FolderListing listing;
    while (const dirent* entry = nextEntry(stream.get(), path)) {
        const std::string name = entry->d_name;
        if (name.find('\\') != std::string::npos || unwantedLink(*entry, name, filter)) continue;
        const auto [kind, linked] = examine(folder, *entry);
        if (kind == Kind::File && filter.file(name) && mayRead(folder, entry->d_name, R_OK))
            listing.files.push_back({name, beginning + name, name});
        if (kind == Kind::Folder && filter.folder(name, linked) && mayRead(folder, entry->d_name, R_OK | X_OK))
            listing.folders.push_back({name, beginning + name, name});
    }
    sortByName(listing.files);
    sortByName(listing.folders);
    return listing;
}

void deleteTree(const std::string& native, const std::string& path) {
    const std::string name = nativeName(native);
    if (name.empty() || name == "." || name == "..") failFile("Can't delete folder", path, EINVAL);
    Descriptor folder(::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat found {};
    if (!folder || ::fstat(folder.get(), &found) != 0) failFile("Can't delete folder", path, errno);
    TreeDeleter(path, found.st_dev).empty(std::move(folder));
    if (::rmdir(native.c_str()) != 0) failFile("Can't delete folder", path, errno);
}

}  // namespace gatehouse
