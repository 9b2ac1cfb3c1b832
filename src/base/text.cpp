#include "base/text.h"

#include "base/runtime_failure.h"

#include <algorithm>

namespace gatehouse {

namespace {

char lowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
char upperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::size_t checkedCount(long count) {
    if (count < 0) throw RuntimeFailure("Invalid procedure call: negative length of a text");
    return static_cast<std::size_t>(count);
}

std::size_t checkedStart(long start) {
    if (start < 1) throw RuntimeFailure("Invalid procedure call: position before the start of a text");
    return static_cast<std::size_t>(start - 1);
}

}  // namespace

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowerChar);
    return result;
}

std::string upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upperChar);
    return result;
}

bool equalNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowerChar(x) == lowerChar(y); });
}

std::string trimLeft(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string trimRight(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string trim(std::string_view text) { return trimLeft(trimRight(text)); }

std::string left(std::string_view text, long count) { return std::string(text.substr(0, checkedCount(count))); }

std::string right(std::string_view text, long count) {
    const std::size_t wanted = std::min(checkedCount(count), text.size());
    return std::string(text.substr(text.size() - wanted));
}

std::string mid(std::string_view text, long start, long count) {
    const std::size_t from = checkedStart(start);
    const std::size_t wanted = checkedCount(count);
    return from >= text.size() ? std::string() : std::string(text.substr(from, wanted));
}

std::string mid(std::string_view text, long start) {
    const std::size_t from = checkedStart(start);
    return from >= text.size() ? std::string() : std::string(text.substr(from));
}

std::string cut(std::string_view text, long front, long back) {
    return mid(text, front + 1, static_cast<long>(text.size()) - front - back);
}

long find(std::string_view text, std::string_view needle, long start) {
    const auto at = text.find(needle, checkedStart(start));
    return at == std::string_view::npos ? 0 : static_cast<long>(at) + 1;
}

long findNoCase(std::string_view text, std::string_view needle, long start) {
    const std::size_t from = checkedStart(start);
    if (from > text.size()) return 0;
    const auto at = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), needle.begin(),
                                needle.end(), [](char x, char y) { return lowerChar(x) == lowerChar(y); });
    if (at == text.end() && !needle.empty()) return 0;
    return static_cast<long>(at - text.begin()) + 1;
}

bool startsWith(std::string_view text, std::string_view beginning) { return text.starts_with(beginning); }

bool startsWithNoCase(std::string_view text, std::string_view beginning) {
    return equalNoCase(text.substr(0, beginning.size()), beginning);
}

bool endsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && equalNoCase(text.substr(text.size() - ending.size()), ending);
}

std::string padLeft(std::string_view text, std::size_t width) {
    if (text.size() > width) throw RuntimeFailure("Invalid procedure call: a text is too long for its column");
    return std::string(width - text.size(), ' ').append(text);
}

std::string padRight(std::string_view text, std::size_t width) {
    std::string result(text);
    if (result.size() < width) result.resize(width, ' ');
    return result;
}

std::string zeroPadded(long number, int digits) {
    std::string text = std::to_string(number < 0 ? -number : number);
    if (text.size() < static_cast<std::size_t>(digits)) text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
    return number < 0 ? "-" + text : text;
}

std::string quoted(std::string_view text) { return std::string("\"").append(text).append("\""); }

std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return text;
}

std::string bareName(std::string_view path) {
    const auto at = path.find_last_of("\\/");
    return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace gatehouse
