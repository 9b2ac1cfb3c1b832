#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse::practice {

/// One console command: its name and its arguments.
using Words = std::vector<std::string>;

inline constexpr std::size_t kMaxWordLength = 4096;
inline constexpr std::size_t kMaxWords = 256;
inline constexpr std::size_t kMaxCommandsOfText = 16384;

/// Takes console text apart: commands end at a line's end or a ";" outside quotes, quotes group and are dropped,
/// "//" outside quotes begins a comment. What lies beyond the limits above is left out.
std::vector<Words> parseCommands(std::string_view text);

/// The commands of a program's arguments: each begins at an argument with a leading "+".
/// What stands before the first of them is left out.
std::vector<Words> parseArguments(const Words& arguments);

/// The words from `first` on, joined by one blank.
std::string joinWords(const Words& words, std::size_t first);

/// Lower-cases ASCII letters only.
std::string lowered(std::string_view text);

/// The text with control characters shown as "\xNN", fit for one line of a log.
std::string printable(std::string_view text);

}  // namespace gatehouse::practice
