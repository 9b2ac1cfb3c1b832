#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

// Texts are bytes, one byte one character. Positions are counted from 1; 0 means "not found". Upper and lower case are
// those of the ASCII letters; every other byte stays as it is.

std::string lower(std::string_view text);
std::string upper(std::string_view text);
bool equalNoCase(std::string_view a, std::string_view b);

/// Blanks taken off (blanks only, no other white space).
std::string trim(std::string_view text);
std::string trimLeft(std::string_view text);
std::string trimRight(std::string_view text);

/// The first `count` characters, or all if there are fewer. Fails for a negative count.
std::string left(std::string_view text, long count);
/// The last `count` characters, or all if there are fewer. Fails for a negative count.
std::string right(std::string_view text, long count);
/// `count` characters from position `start`; what lies beyond the end is left out. Fails for a start below 1 or a
/// negative count.
std::string mid(std::string_view text, long start, long count);
/// All characters from position `start` on. Fails for a start below 1.
std::string mid(std::string_view text, long start);
/// The text without its first `front` and last `back` characters. Fails if it has fewer.
std::string cut(std::string_view text, long front, long back);

/// Position of `needle` at or after `start`, 0 if there is none.
long find(std::string_view text, std::string_view needle, long start = 1);
long findNoCase(std::string_view text, std::string_view needle, long start = 1);

bool startsWith(std::string_view text, std::string_view beginning);
bool startsWithNoCase(std::string_view text, std::string_view beginning);
bool endsWithNoCase(std::string_view text, std::string_view ending);

/// Blanks in front up to `width` characters. Fails if the text is longer.
std::string padLeft(std::string_view text, std::size_t width);
/// Blanks behind up to `width` characters; a longer text stands as it is.
std::string padRight(std::string_view text, std::size_t width);
/// Decimal text with at least `digits` digits.
std::string zeroPadded(long number, int digits);

std::string quoted(std::string_view text);
/// The text with a blank for each control character: a row of a table, or of a file, is one line.
std::string oneLine(std::string text);
/// The part behind the last `\` or `/`.
std::string bareName(std::string_view path);
/// Lines of a text that may end in CR LF or LF; no empty line for the end of the last one.
std::vector<std::string> splitLines(std::string_view text);

/// Ends of the lines of every file that the program writes.
inline constexpr std::string_view kCrLf = "\r\n";

}  // namespace gatehouse
