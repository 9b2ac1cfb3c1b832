#include "platform/qt/ini_text.h"

#include <array>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::string_view kBlanks = " \t\r\n";

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

std::string hexEscape(unsigned char c) {
    std::string digits;
    if (c >= 16) digits += kHexDigits[c / 16];
    return "\\x" + digits + kHexDigits[c % 16];
}

/// Letter of the short escape of a control character, 0 if there is none.
char escapeLetter(char c) {
    constexpr std::string_view kControls = "\a\b\f\n\r\t\v";
    constexpr std::string_view kLetters = "abfnrtv";
    const auto at = kControls.find(c);
    return at == std::string_view::npos ? '\0' : kLetters[at];
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Length of the logical line at the start of a text, with its end: quotes and backslashes carry it over line ends.
std::size_t lineLength(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    const bool comment = first != std::string_view::npos && text[first] == ';';
    bool inQuotes = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (comment || !inQuotes)) return i + 1;
        if (comment) continue;
        if (text[i] == '"') inQuotes = !inQuotes;
        if (text[i] == '\\') i += text.substr(i + 1).starts_with("\r\n") ? 2 : 1;
    }
    return text.size();
}

/// A logical line and the section that it stands in.
struct Line {
    std::string_view text;
    std::string_view section;
    std::string_view key;  ///< empty for what sets no key
};

std::vector<Line> linesOf(std::string_view file) {
    std::vector<Line> lines;
    std::string_view section;
    while (!file.empty()) {
        const std::string_view text = file.substr(0, lineLength(file));
        file.remove_prefix(text.size());
        const std::string_view bare = trimmed(text);
        const bool heading = bare.starts_with('[') && bare.ends_with(']');
        if (heading) section = trimmed(bare.substr(1, bare.size() - 2));
        const auto equals = bare.find('=');
        const bool sets = !heading && !bare.starts_with(';') && equals != std::string_view::npos;
        lines.push_back({text, section, sets ? trimmed(bare.substr(0, equals)) : std::string_view()});
    }
    return lines;
}

void append(std::string& file, std::string_view text) {
    if (!file.empty() && !file.ends_with('\n')) file += '\n';
    file += text;
}

}  // namespace

std::string iniValue(std::string_view plain) {
    // An "@" in front begins the toolkit's notation of types; a text with a NUL needs it.
    std::string text(plain);
    if (plain.find('\0') != std::string_view::npos)
        text = "@String(" + text + ")";
    else if (plain.starts_with('@'))
        text = "@" + text;
    std::string escaped;
    bool quotes = text.starts_with(' ') || text.ends_with(' ');
    bool afterHex = false;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        quotes = quotes || c == ';' || c == ',' || c == '=';
        const bool control = byte < 0x20 && !escapeLetter(c);
        if (control || (afterHex && isHexDigit(c))) {
            escaped += c == '\0' ? std::string("\\0") : hexEscape(byte);
            afterHex = true;
            continue;
        }
        afterHex = false;
        if (const char letter = escapeLetter(c))
            escaped.append("\\").append(1, letter);
        else if (c == '"' || c == '\\')
            escaped.append("\\").append(1, c);
        else
            escaped += c;
    }
    return quotes ? "\"" + escaped + "\"" : escaped;
}

std::string withIniKey(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
    const std::vector<Line> lines = linesOf(file);
    const std::string setting = std::string(key).append("=").append(value).append("\n");
    std::size_t last = lines.size();  // the section's last line that isn't empty
    bool there = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].section != section) continue;
        if (!trimmed(lines[i].text).empty()) last = i;
        there = there || lines[i].key == key;
    }
    std::string result;
    bool written = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool old = lines[i].section == section && lines[i].key == key;
        if (!old) append(result, lines[i].text);
        if ((old && !written) || (!there && i == last)) {
            append(result, setting);
            written = true;
        }
    }
    if (written) return result;
    if (!result.empty()) append(result, "\n");
    append(result, std::string("[").append(section).append("]\n") + setting);
    return result;
}

std::string withoutIniSection(std::string_view file, std::string_view section) {
    std::string result;
    for (const Line& line : linesOf(file))
        if (line.section != section) append(result, line.text);
    return result;
}

}  // namespace gatehouse
