#include "platform/qt/zip_archives.h"

#include "platform/qt/descriptor.h"
#include "platform/qt/native_paths.h"

#include <QByteArray>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::size_t kLongestName = 4096;
constexpr std::size_t kMostParts = 32;
constexpr std::size_t kPiece = 65536;

constexpr const char* kLeadsOut = "its name leads out of the folder, or is no file's";
constexpr const char* kDamaged = "it is damaged";
constexpr const char* kNotWritten = "it could not be written";

struct ZipCloser {
    void operator()(zip_t* archive) const { ::zip_discard(archive); }
    void operator()(zip_file_t* entry) const { ::zip_fclose(entry); }
};
using ZipHandle = std::unique_ptr<zip_t, ZipCloser>;
using EntryStream = std::unique_ptr<zip_file_t, ZipCloser>;

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

/// The parts of an entry's name as a path below a folder; nothing for a name that leads anywhere else, or absurdly deep.
std::vector<std::string> partsBelow(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    if (name.empty() || name.size() > kLongestName || name.starts_with('/') || name.ends_with('/') ||
        name.find(':') != std::string::npos)
        return {};
    std::vector<std::string> parts;
    for (std::size_t start = 0; start <= name.size();) {
        const std::size_t end = std::min(name.find('/', start), name.size());
        const std::string part = name.substr(start, end - start);
        if (part == "..") return {};
        if (!part.empty() && part != ".") parts.push_back(part);
        start = end + 1;
    }
    if (parts.size() > kMostParts) return {};
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

/// A new file below a folder, at the place that its parts name; there once `finish` has said so.
class PlacedFile {
public:
    PlacedFile(const std::string& folder, std::vector<std::string> parts) : parts_(std::move(parts)) {
        if (const auto target = resolveExisting(folder))
            top_ = Descriptor(::open(target->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (top_) scratch_.emplace(top_);
    }

    bool write(std::string_view bytes) { return scratch_ && *scratch_ && scratch_->write(bytes.data(), bytes.size()); }
    bool finish() {
        if (!scratch_ || !*scratch_ || !scratch_->close()) return false;
        // A new folder must not take the name of a file that the program will want there one day.
        const bool inFolder = parts_.size() > 1;
        if (inFolder && parts_.front().find('.') != std::string::npos && !existingName(top_.get(), ".", parts_.front()))
            return false;
        Descriptor place = openFolder(top_.get(), ".");
        for (std::size_t i = 0; i + 1 < parts_.size(); ++i) {
            place = enterFolder(place, parts_[i]);
            if (!place) return false;
        }
        const std::string& file = parts_.back();
        return scratch_->moveTo(place, existingName(place.get(), ".", file).value_or(file));
    }

private:
    std::vector<std::string> parts_;
    Descriptor top_;
    std::optional<ScratchFile> scratch_;
};

class ZipArchive : public Archive {
public:
    explicit ZipArchive(ZipHandle zip) : zip_(std::move(zip)) {}
    ~ZipArchive() override {
        zip_.reset();
        ::malloc_trim(0);  // a long directory is many small pieces, which would stay the process's own
    }

    void list(const std::function<void(const std::string&)>& onEntry) override;
    EntryFault read(const std::string& entry, std::uint64_t most, std::size_t pieceSize,
                    const TakePiece& take) override;
    EntryFault extract(const std::string& entry, std::uint64_t most, const std::string& folder,
                       const std::function<void()>& onPiece) override;

private:
    const char* nameAt(zip_uint64_t index) const { return ::zip_get_name(zip_.get(), index, ZIP_FL_ENC_RAW); }
    std::optional<zip_uint64_t> locate(const std::string& entry) const;

    ZipHandle zip_;
};

void ZipArchive::list(const std::function<void(const std::string&)>& onEntry) {
    const auto count = static_cast<zip_uint64_t>(::zip_get_num_entries(zip_.get(), 0));
    std::string name;
    for (zip_uint64_t i = 0; i < count; ++i) {
        const char* stored = nameAt(i);
        if (!stored) continue;
        name = stored;
        onEntry(name);
    }
}

std::optional<zip_uint64_t> ZipArchive::locate(const std::string& entry) const {
    for (const zip_flags_t how : {zip_flags_t{0}, zip_flags_t{ZIP_FL_NOCASE}}) {
        const zip_int64_t index = ::zip_name_locate(zip_.get(), entry.c_str(), ZIP_FL_ENC_RAW | how);
        if (index >= 0) return static_cast<zip_uint64_t>(index);
    }
    return std::nullopt;
}

EntryFault ZipArchive::read(const std::string& entry, std::uint64_t most, std::size_t pieceSize,
                            const TakePiece& take) {
    const auto index = locate(entry);
    if (!index) return "there is no such entry";
    if (partsBelow(nameAt(*index)).empty()) return kLeadsOut;
    zip_stat_t info;
    if (::zip_stat_index(zip_.get(), *index, 0, &info) != 0 || !(info.valid & ZIP_STAT_SIZE)) return kDamaged;
    if (info.size > most) return "it is larger than " + std::to_string(most >> 20) + " MiB";
    const EntryStream stream(::zip_fopen_index(zip_.get(), *index, 0));
    if (!stream) return "it can't be unpacked";

    std::vector<char> buffer(pieceSize);
    std::uint64_t total = 0;
    for (;;) {
        std::size_t filled = 0;
        while (filled < buffer.size()) {
            const zip_int64_t count = ::zip_fread(stream.get(), buffer.data() + filled, buffer.size() - filled);
            if (count < 0) return kDamaged;  // its checksum among other things
            if (count == 0) break;
            filled += static_cast<std::size_t>(count);
        }
        total += filled;
        if (total > info.size) return "it is larger than it claims";
        if (filled > 0) take(info.size, {buffer.data(), filled});
        if (filled < buffer.size()) return total == info.size ? EntryFault() : kDamaged;
    }
}

EntryFault ZipArchive::extract(const std::string& entry, std::uint64_t most, const std::string& folder,
                               const std::function<void()>& onPiece) {
    const auto index = locate(entry);
    if (!index) return "there is no such entry";
    std::vector<std::string> parts = partsBelow(nameAt(*index));
    if (parts.empty()) return kLeadsOut;
    PlacedFile file(folder, std::move(parts));
    bool written = true;
    const EntryFault fault = read(entry, most, kPiece, [&](std::uint64_t, std::string_view piece) {
        written = written && file.write(piece);
        if (onPiece) onPiece();
    });
    if (fault) return fault;
    return written && file.finish() ? EntryFault() : kNotWritten;
}

}  // namespace

std::unique_ptr<Archive> ZipArchives::open(const std::string& path) {
    const auto native = resolveExisting(path);
    struct stat found {};
    if (!native || ::stat(native->c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return nullptr;
    const NamedTimeZone zone;
    int error = 0;
    ZipHandle zip(::zip_open(native->c_str(), ZIP_RDONLY, &error));
    return zip ? std::make_unique<ZipArchive>(std::move(zip)) : nullptr;
}

EntryFault ZipArchives::store(const std::string& bytes, const std::string& entry, const std::string& folder) {
    std::vector<std::string> parts = partsBelow(entry);
    if (parts.empty()) return kLeadsOut;
    PlacedFile file(folder, std::move(parts));
    return file.write(bytes) && file.finish() ? EntryFault() : kNotWritten;
}

}  // namespace gatehouse
