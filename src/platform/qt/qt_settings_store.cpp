#include "platform/qt/qt_settings_store.h"

#include "base/runtime_failure.h"

#include <QSettings>
#include <QStringList>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace gatehouse {

namespace {

/// Characters that stand for single bytes: this plus the byte, 0x80 to 0xFF.
constexpr char32_t kByteRange = 0xF700;
constexpr char32_t kByteOrderMark = 0xFEFF;

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

std::string message(const char* doing, const std::string& file, const char* reason) {
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

QtSettingsStore::QtSettingsStore(std::string file) : file_(QString::fromLocal8Bit(file)), name_(std::move(file)) {}

void QtSettingsStore::requireReadable() const {
    struct stat found {};
    if (::stat(name_.c_str(), &found) != 0) return;
    if (!S_ISREG(found.st_mode)) throw RuntimeFailure(message("read", name_, "it is not a file"));
    if (::faccessat(AT_FDCWD, name_.c_str(), R_OK, AT_EACCESS) != 0)
        throw RuntimeFailure(message("read", name_, "permission denied"));
}

std::optional<std::string> QtSettingsStore::read(const std::string& key) const {
    requireReadable();
    QSettings settings(file_, QSettings::IniFormat);
    settings.beginGroup("config");
    const QVariant value = settings.value(QString::fromStdString(key));
    if (settings.status() == QSettings::AccessError)
        throw RuntimeFailure(message("read", name_, "the file can't be opened"));
    if (settings.status() == QSettings::FormatError)
        throw RuntimeFailure(message("read", name_, "the file is damaged"));
    if (!value.isValid()) return std::nullopt;
    // A comma in a line that was written by hand makes it a list.
    return bytesOf(value.typeId() == QMetaType::QStringList ? value.toStringList().join(", ") : value.toString());
}

void QtSettingsStore::write(const std::string& key, const std::string& text) {
    requireReadable();
    QSettings settings(file_, QSettings::IniFormat);
    requireWritable(settings);
    settings.setValue("config/" + QString::fromStdString(key), storedText(text));
    save(settings, Damage::Fails);
}

void QtSettingsStore::deleteSection() {
    requireReadable();
    QSettings settings(file_, QSettings::IniFormat);
    requireWritable(settings);
    settings.remove("config");
    save(settings, Damage::Passes);
}

void QtSettingsStore::requireWritable(const QSettings& settings) const {
    // A change that can't be saved would stay in the toolkit's memory and come up again at the next call.
    if (!settings.isWritable()) throw RuntimeFailure(message("write", name_, "permission denied"));
}

void QtSettingsStore::save(QSettings& settings, Damage damage) const {
    settings.sync();
    if (settings.status() == QSettings::AccessError)
        throw RuntimeFailure(message("write", name_, "the file can't be written"));
    if (settings.status() == QSettings::FormatError && damage == Damage::Fails)
        throw RuntimeFailure(message("write", name_, "the file is damaged"));
}

}  // namespace gatehouse
