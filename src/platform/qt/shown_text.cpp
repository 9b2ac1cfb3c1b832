#include "platform/qt/shown_text.h"

#include <QList>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>

namespace gatehouse {

namespace {

/// Characters of the bytes 0x80 to 0x9F; all others have the number of their byte. Five bytes are no characters and
/// stand for the control characters of their number, so that they survive.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char16_t characterOf(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? kUpperControls[byte - 0x80] : char16_t{byte};
}

char byteOf(char32_t character) {
    const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
    if (found != kUpperControls.end()) return static_cast<char>(0x80 + (found - kUpperControls.begin()));
    const bool sameNumber = character < 0x80 || (character > 0x9F && character <= 0xFF);
    return sameNumber ? static_cast<char>(character) : '?';
}

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

/// The text when the bytes are UTF-8 and not plain ASCII.
std::optional<QString> asUtf8(std::string_view bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (isAscii(bytes) || !QUtf8StringView(view.data(), view.size()).isValidUtf8()) return std::nullopt;
    // Unlike other ways, this one keeps a mark at the beginning.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(view);
}

}  // namespace

QString shown(std::string_view bytes) {
    if (const auto text = asUtf8(bytes)) return *text;
    QString text(static_cast<qsizetype>(bytes.size()), QChar(u'\0'));
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char c) { return QChar(characterOf(static_cast<unsigned char>(c))); });
    return text;
}

QString shownTitle(std::string_view bytes) { return shown(bytes).replace("[*]", "[*][*]"); }

std::string textBytes(const QString& text) {
    std::string bytes;
    for (const char32_t character : text.toUcs4()) bytes += byteOf(character);
    return bytes;
}

std::string typedBytes(const QString& text) {
    std::string bytes = textBytes(text);
    std::erase_if(bytes, isControl);
    return bytes;
}

std::string typedPathBytes(const QString& text, std::string_view before) {
    if (!isAscii(before) && !asUtf8(before)) {
        std::string kept = typedBytes(text);
        if (shown(kept) == text) return kept;
    }
    std::string bytes = text.toStdString();
    std::erase_if(bytes, isControl);
    return bytes;
}

}  // namespace gatehouse
