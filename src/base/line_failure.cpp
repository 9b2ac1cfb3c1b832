#include "base/line_failure.h"

#include "base/text.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

namespace {

/// Most characters that a message shows of a line and of what is wrong with it.
constexpr long kShown = 200;

/// What a box, a terminal and a log can show.
std::string shown(std::string_view text) {
    std::string result = left(text, kShown);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, ' ');
    return result;
}

}  // namespace

LineFailure::LineFailure(std::string path, long lineNumber, const std::string& line, std::string_view reason)
    : RuntimeFailure(path + ", line " + std::to_string(lineNumber) + ": " + shown(line) + ": " + shown(reason)),
      path_(std::move(path)),
      lineNumber_(lineNumber),
      line_(left(line, kShown)) {}

}  // namespace gatehouse
