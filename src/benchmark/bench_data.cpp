#include "benchmark/bench_data.h"

#include "base/numbers.h"
#include "base/text.h"

#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

namespace gatehouse {

namespace {

/// The game's console holds far less.
constexpr std::size_t kLargestText = std::size_t{1} << 20;
constexpr double kSettled = 250;  // milliseconds

std::optional<double> figure(std::string_view text) {
    const auto value = parseDecimal(text);
    return value && *value >= 0 ? value : std::nullopt;
}

std::optional<int> wholeFigure(std::string_view text) {
    const auto value = figure(text);
    if (!value || *value != std::floor(*value) || *value > std::numeric_limits<int>::max()) return std::nullopt;
    return static_cast<int>(*value);
}

std::vector<std::string_view> wordsOf(std::string_view line) {
    std::vector<std::string_view> words;
    for (std::size_t at = 0; (at = line.find_first_not_of(" \t", at)) != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(" \t", at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

/// The word in front of the first one that is `unit`, or begins with it and ends in a comma or a colon.
std::string_view before(const std::vector<std::string_view>& words, std::string_view unit) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        std::string_view word = words[i];
        if (word.ends_with(',') || word.ends_with(':')) word.remove_suffix(1);
        if (word == unit) return words[i - 1];
    }
    return {};
}

Timing timingOf(double value, std::string_view line) {
    const auto words = wordsOf(line);
    return {value, wholeFigure(before(words, "frames")), figure(before(words, "seconds"))};
}

/// The number between the blank behind "seconds:" and the next blank.
std::optional<Timing> colonForm(const std::string& line) {
    constexpr std::string_view kWord = "seconds:";
    const long word = find(line, kWord);
    if (word == 0) return std::nullopt;
    const long from = word + static_cast<long>(kWord.size()) + 1;
    const long blank = find(line, " ", from);
    if (blank == 0) return std::nullopt;
    const auto value = figure(mid(line, from, blank - from));
    return value ? std::optional(timingOf(*value, line)) : std::nullopt;
}

/// Frames, seconds and frames a second, each number in front of its unit.
std::optional<Timing> plainForm(const std::string& line) {
    const auto words = wordsOf(line);
    const auto value = figure(before(words, "fps"));
    if (!value || !wholeFigure(before(words, "frames")) || !figure(before(words, "seconds"))) return std::nullopt;
    return timingOf(*value, line);
}

}  // namespace

std::optional<Timing> findTiming(const std::string& consoleText) {
    const std::vector<std::string> lines = splitLines(consoleText);
    for (const std::string& line : lines)
        if (const auto timing = colonForm(line)) return timing;
    // The last one: what players have said in the demo stands in front of it.
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        if (const auto timing = plainForm(*line)) return timing;
    return std::nullopt;
}

std::optional<Timing> readTiming(Files& files, const std::string& path) {
    try {
        return findTiming(files.openText(path)->readBytes(kLargestText));
    } catch (const RuntimeFailure&) {
        return std::nullopt;
    }
}

bool DataWatch::there() {
    std::uint64_t size = 0;
    try {
        if (!files_.fileExists(path_)) {
            size_.reset();
            return false;
        }
        size = files_.fileSize(path_);
    } catch (const RuntimeFailure&) {
        return false;  // it has gone in between
    }
    if (size_ == size) return clock_.tickCount() - since_ >= kSettled;
    size_ = size;
    since_ = clock_.tickCount();
    return readTiming(files_, path_).has_value();
}

}  // namespace gatehouse
