#include "platform/qt/zip_archives.h"

#include "platform/qt/descriptor.h"
#include "platform/qt/native_paths.h"

#include <QByteArray>

#include <fcntl.h>
#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::size_t kLongestName = 4096;
constexpr std::uint64_t kLargestEntry = std::uint64_t{1} << 30;

struct ArchiveCloser {
    void operator()(zip_t* archive) const { ::zip_discard(archive); }
    void operator()(zip_file_t* entry) const { ::zip_fclose(entry); }
};
using Archive = std::unique_ptr<zip_t, ArchiveCloser>;
using EntryStream = std::unique_ptr<zip_file_t, ArchiveCloser>;

/// Names the system's own time zone while it lives. The library works out a local time for each entry, and without a
/// name the C library looks at the zone's file each time, which takes longer than all the rest.
class NamedTimeZone {
public:
    NamedTimeZone() : unset_(!qEnvironmentVariableIsSet("TZ")) {
        if (unset_) qputenv("TZ", ":/etc/localtime");
    }
    NamedTimeZone(const NamedTimeZone&) = delete;
    NamedTimeZone& operator=(const NamedTimeZone&) = delete;
    ~NamedTimeZone() {
        if (unset_) qunsetenv("TZ");
    }

private:
    bool unset_;
};

Archive openArchive(const std::string& path) {
    const auto native = resolveExisting(path);
    struct stat found {};
    if (!native || ::stat(native->c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return nullptr;
    const NamedTimeZone zone;
    int error = 0;
    return Archive(::zip_open(native->c_str(), ZIP_RDONLY, &error));
}

/// The parts of an entry's name as a path below a folder; nothing for a name that leads anywhere else.
std::vector<std::string> partsBelow(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    if (name.empty() || name.starts_with('/') || name.ends_with('/') || name.find(':') != std::string::npos) return {};
    std::vector<std::string> parts;
    for (std::size_t start = 0; start <= name.size();) {
        const std::size_t end = std::min(name.find('/', start), name.size());
        const std::string part = name.substr(start, end - start);
        if (part == "..") return {};
        if (!part.empty() && part != ".") parts.push_back(part);
        start = end + 1;
    }
    return parts;
}

Descriptor openFolder(int at, const std::string& name) {
    return Descriptor(::openat(at, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// The sub-folder of that name, made if there is none. Not open if that fails or it is a link.
Descriptor enterFolder(const Descriptor& folder, const std::string& name) {
    const std::string spelled = existingName(folder.get(), ".", name).value_or(name);
    if (::mkdirat(folder.get(), spelled.c_str(), 0777) != 0 && errno != EEXIST) return Descriptor();
    return openFolder(folder.get(), spelled);
}

/// A new file in a folder, gone again at the end unless it was moved to its place.
class ScratchFile {
public:
    explicit ScratchFile(const Descriptor& folder) : folder_(folder) {
        for (int i = 0; i < 100 && !file_; ++i) {
            std::snprintf(name_.data(), name_.size(), ".extract-%d-%d.tmp", static_cast<int>(::getpid()), i);
            constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
            file_ = Descriptor(::openat(folder_.get(), name_.data(), kFlags, 0666));
        }
        present_ = static_cast<bool>(file_);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() {
        if (present_) ::unlinkat(folder_.get(), name_.data(), 0);
    }

    bool write(const char* bytes, std::size_t count) {
        while (count > 0) {
            const ssize_t written = ::write(file_.get(), bytes, count);
            if (written < 0 && errno != EINTR) return false;
            if (written <= 0) continue;
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
        return true;
    }
    bool close() { return ::close(file_.release()) == 0; }
    bool moveTo(const Descriptor& folder, const std::string& name) {
        if (::renameat(folder_.get(), name_.data(), folder.get(), name.c_str()) != 0) return false;
        present_ = false;
        return true;
    }
    explicit operator bool() const { return present_; }

private:
    const Descriptor& folder_;
    Descriptor file_;
    std::array<char, 64> name_{};
    bool present_ = false;
};

/// Unpacks an entry whole. False for a fault, or when it doesn't keep to the size that it claims.
bool unpack(zip_t* archive, zip_uint64_t index, ScratchFile& target) {
    zip_stat_t info;
    if (::zip_stat_index(archive, index, 0, &info) != 0 || !(info.valid & ZIP_STAT_SIZE)) return false;
    if (info.size > kLargestEntry) return false;
    const EntryStream stream(::zip_fopen_index(archive, index, 0));
    if (!stream) return false;

    std::vector<char> buffer(65536);
    std::uint64_t total = 0;
    for (;;) {
        const zip_int64_t count = ::zip_fread(stream.get(), buffer.data(), buffer.size());
        if (count < 0) return false;
        if (count == 0) return total == info.size;
        total += static_cast<std::uint64_t>(count);
        if (total > info.size || !target.write(buffer.data(), static_cast<std::size_t>(count))) return false;
    }
}

}  // namespace

bool ZipArchives::list(const std::string& archive, const std::function<void(const std::string&)>& onEntry) {
    const Archive opened = openArchive(archive);
    if (!opened) return false;
    const auto count = static_cast<zip_uint64_t>(::zip_get_num_entries(opened.get(), 0));
    std::vector<const char*> names(count);
    for (zip_uint64_t i = 0; i < count; ++i) {
        names[i] = ::zip_get_name(opened.get(), i, ZIP_FL_ENC_RAW);
        if (!names[i]) return false;
    }
    std::string name;
    for (const char* stored : names) {
        name = stored;
        if (name.size() <= kLongestName) onEntry(name);
    }
    return true;
}

bool ZipArchives::extract(const std::string& archive, const std::string& entry, const std::string& folder) {
    const Archive opened = openArchive(archive);
    const auto target = resolveExisting(folder);
    if (!opened || !target) return false;
    zip_int64_t index = ::zip_name_locate(opened.get(), entry.c_str(), ZIP_FL_ENC_RAW);
    if (index < 0) index = ::zip_name_locate(opened.get(), entry.c_str(), ZIP_FL_ENC_RAW | ZIP_FL_NOCASE);
    if (index < 0) return false;
    const auto number = static_cast<zip_uint64_t>(index);
    std::vector<std::string> parts = partsBelow(::zip_get_name(opened.get(), number, ZIP_FL_ENC_RAW));
    if (parts.empty()) return false;
    const std::string file = parts.back();
    parts.pop_back();

    const Descriptor top(::open(target->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!top) return false;
    ScratchFile scratch(top);
    if (!scratch || !unpack(opened.get(), number, scratch) || !scratch.close()) return false;

    Descriptor place = openFolder(top.get(), ".");
    for (const std::string& part : parts) {
        place = enterFolder(place, part);
        if (!place) return false;
    }
    return scratch.moveTo(place, existingName(place.get(), ".", file).value_or(file));
}

}  // namespace gatehouse
