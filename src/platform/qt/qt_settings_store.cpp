#include "platform/qt/qt_settings_store.h"

#include "base/runtime_failure.h"
#include "platform/qt/ini_text.h"
#include "platform/qt/replaced_file.h"
#include "platform/qt/text_streams.h"

#include <QFile>
#include <QSettings>
#include <QStringList>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace gatehouse {

namespace {

/// Characters that stand for single bytes: this plus the byte, 0x80 to 0xFF.
constexpr char32_t kByteRange = 0xF700;
constexpr char32_t kByteOrderMark = 0xFEFF;
constexpr const char* kSection = "config";
constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr std::int64_t kNanoseconds = 1'000'000'000;
constexpr int kMostAside = 1000;

bool standsForByte(char32_t code) { return code >= kByteRange + 0x80 && code <= kByteRange + 0xFF; }

int sequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

/// A character at the beginning of some bytes and how many of them it takes; none for bytes that are no UTF-8.
struct Character {
    char32_t code = 0;
    int length = 0;
};

Character firstCharacter(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes.front());
    const int length = sequenceLength(first);
    if (length == 0 || static_cast<std::size_t>(length) > bytes.size()) return {};
    if (length == 1) return {first, 1};
    char32_t code = first & (0xFFU >> (length + 1));
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0) != 0x80) return {};
        code = code << 6 | (next & 0x3F);
    }
    const bool shorterForm = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool noCharacter = (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF;
    if (shorterForm || noCharacter) return {};
    return {code, length};
}

std::string message(const char* doing, const std::string& file, const std::string& reason) {
    return std::string("Can't ") + doing + " the options in " + file + ": " + reason;
}

}  // namespace

QString storedText(std::string_view bytes) {
    QString result;
    result.reserve(static_cast<qsizetype>(bytes.size()));
    while (!bytes.empty()) {
        Character next = firstCharacter(bytes);
        // Its own private characters, and a mark that readers of UTF-8 take away, go byte by byte as well.
        if (next.length == 0 || standsForByte(next.code) || next.code == kByteOrderMark)
            next = {kByteRange + static_cast<unsigned char>(bytes.front()), 1};
        result += QString::fromUcs4(&next.code, 1);
        bytes.remove_prefix(static_cast<std::size_t>(next.length));
    }
    return result;
}

std::string bytesOf(const QString& stored) {
    std::string result;
    for (const char32_t code : stored.toUcs4()) {
        if (standsForByte(code))
            result += static_cast<char>(code - kByteRange);
        else
            result += QString::fromUcs4(&code, 1).toStdString();
    }
    return result;
}

QtSettingsStore::QtSettingsStore(std::string file) : name_(std::move(file)) {}

QtSettingsStore::Identity QtSettingsStore::identity() const {
    struct stat found {};
    if (::stat(name_.c_str(), &found) != 0) return {};
    return {found.st_dev, found.st_ino, found.st_size, found.st_mtim.tv_sec * kNanoseconds + found.st_mtim.tv_nsec};
}

void QtSettingsStore::requireReadable() const {
    struct stat found {};
    if (::stat(name_.c_str(), &found) != 0) return;
    if (!S_ISREG(found.st_mode)) throw RuntimeFailure(message("read", name_, "it is not a file"));
    if (::faccessat(AT_FDCWD, name_.c_str(), R_OK, AT_EACCESS) != 0)
        throw RuntimeFailure(message("read", name_, "permission denied"));
}

void QtSettingsStore::refresh() const {
    requireReadable();
    const Identity now = identity();
    if (known_ != now) {
        load();
        known_ = now;
    }
    if (damaged_) throw RuntimeFailure(message("read", name_, "the file is damaged"));
}

void QtSettingsStore::load() const {
    values_.clear();
    damaged_ = content().find('\0') != std::string::npos || static_cast<std::size_t>(identity().size) > kLargestFile;
    if (damaged_) return;
    QSettings settings(QFile::decodeName(QByteArray::fromStdString(name_)), QSettings::IniFormat);
    settings.beginGroup(kSection);
    for (const QString& key : settings.childKeys()) {
        const QVariant value = settings.value(key);
        // A comma in a line that was written by hand makes it a list.
        const bool list = value.typeId() == QMetaType::QStringList;
        values_[key.toStdString()] = bytesOf(list ? value.toStringList().join(", ") : value.toString());
    }
    // The toolkit tells of damage at its first reading of a file, and then no more.
    if (settings.status() == QSettings::AccessError)
        throw RuntimeFailure(message("read", name_, "the file can't be opened"));
    damaged_ = settings.status() == QSettings::FormatError;
}

std::optional<std::string> QtSettingsStore::read(const std::string& key) const {
    refresh();
    const auto value = values_.find(key);
    return value == values_.end() ? std::nullopt : std::optional(value->second);
}

void QtSettingsStore::write(const Values& values) {
    refresh();
    std::string text = content();
    std::map<std::string, std::string> changed = values_;
    for (const auto& [key, value] : values) {
        const auto before = changed.find(key);
        if (before != changed.end() && before->second == value) continue;
        changed[key] = value;
        text = withIniKey(text, kSection, key, iniValue(storedText(value).toStdString()));
    }
    if (changed == values_) return;
    replace(text);
    values_ = std::move(changed);
}

void QtSettingsStore::deleteSection() {
    try {
        refresh();
    } catch (const RuntimeFailure&) {
        if (!damaged_) throw;
        return setAside();
    }
    const std::string text = content();
    const std::string rest = withoutIniSection(text, kSection);
    if (rest != text) replace(rest);
    values_.clear();
}

std::string QtSettingsStore::content() const {
    if (!identity().node) return "";
    try {
        return FileReader(name_, name_).readBytes(kLargestFile + 1);
    } catch (const FileFailure& failure) {
        throw RuntimeFailure(message("read", name_, failure.what()));
    }
}

void QtSettingsStore::replace(const std::string& text) {
    // The file is judged before the folder: to take its place would go round its protection.
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(name_).parent_path(), error);
    try {
        FileReplacer file(name_, name_);
        file.writeAll(text);
        file.close();
    } catch (const FileFailure& failure) {
        throw RuntimeFailure(message("write", name_, failure.what()));
    }
    known_ = identity();
}

void QtSettingsStore::setAside() {
    for (int number = 1;; ++number) {
        const std::string name = name_ + ".damaged" + (number > 1 ? "-" + std::to_string(number) : "");
        if (::link(name_.c_str(), name.c_str()) != 0) {
            if (errno == EEXIST && number < kMostAside) continue;
            throw RuntimeFailure(message("set aside", name_, std::strerror(errno)));
        }
        if (::unlink(name_.c_str()) != 0) throw RuntimeFailure(message("set aside", name_, std::strerror(errno)));
        break;
    }
    values_.clear();
    damaged_ = false;
    known_ = identity();
}

}  // namespace gatehouse
