#include "mods/mod_file.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace gatehouse {

namespace {

constexpr std::string_view kWhitespace = " \t";
constexpr std::size_t kLastPosition = std::numeric_limits<std::int16_t>::max();
/// The digit of a game type and the character that parts it from the name.
constexpr long kGameTypeHead = 2;

/// The entry being filled. What belongs to an option or a key goes to the newest one.
struct Target {
    ModEntry& entry;

    ModOption& option() const {
        if (entry.options.empty()) throw RuntimeFailure("A line for an option stands before the first option");
        return entry.options.back();
    }
    ModKey& key() const {
        if (entry.modKeys.empty()) throw RuntimeFailure("A command stands before the first key");
        return entry.modKeys.back();
    }
};

/// The items between the bars, one more than there are bars.
std::vector<std::string> splitAtBars(std::string_view value) {
    std::vector<std::string> items(1);
    for (const char c : value) {
        if (c == '|')
            items.emplace_back();
        else
            items.back() += c;
    }
    return items;
}

void setGameType(ModEntry& entry, const std::string& value) {
    const std::int16_t number = valInt16(left(value, 1));
    entry.gtype.at(static_cast<std::size_t>(number)) = cut(value, kGameTypeHead, 0);
}

void addOption(ModEntry& entry, std::string_view type, const std::string& name) {
    ModOption option;
    option.type = type;
    option.name = name;
    entry.options.push_back(std::move(option));
}

struct Keyword {
    std::string_view word;
    void (*take)(const Target& target, const std::string& value);
};

constexpr std::array<Keyword, 24> kKeywords = {{
    {"name", [](const Target& to, const std::string& value) { to.entry.name = value; }},
    {"dir", [](const Target& to, const std::string& value) { to.entry.dir = value; }},
    {"author", [](const Target& to, const std::string& value) { to.entry.author = value; }},
    {"url", [](const Target& to, const std::string& value) { to.entry.url = value; }},
    {"email", [](const Target& to, const std::string& value) { to.entry.email = value; }},
    {"gtype", [](const Target& to, const std::string& value) { setGameType(to.entry, value); }},
    {"cvars", [](const Target& to, const std::string& value) { to.entry.cvars = valInt16(value); }},
    {"keys", [](const Target& to, const std::string& value) { to.entry.keys = valInt16(value); }},
    {"checkbox", [](const Target& to, const std::string& value) { addOption(to.entry, "checkbox", value); }},
    {"textbox", [](const Target& to, const std::string& value) { addOption(to.entry, "textbox", value); }},
    {"listbox", [](const Target& to, const std::string& value) { addOption(to.entry, "listbox", value); }},
    {"number", [](const Target& to, const std::string& value) { addOption(to.entry, "number", value); }},
    {"text", [](const Target& to, const std::string& value) { to.option().text = value; }},
    {"value", [](const Target& to, const std::string& value) { to.option().value = value; }},
    {"server", [](const Target& to, const std::string& value) { to.option().server = strictBoolean(value); }},
    {"client", [](const Target& to, const std::string& value) { to.option().client = strictBoolean(value); }},
    {"destination", [](const Target& to, const std::string& value) { to.option().destination = value; }},
    {"max", [](const Target& to, const std::string& value) { to.option().max = strictInt32(value); }},
    {"min", [](const Target& to, const std::string& value) { to.option().min = strictInt32(value); }},
    {"increment", [](const Target& to, const std::string& value) { to.option().increment = strictInt32(value); }},
    {"listitems", [](const Target& to, const std::string& value) { to.option().listitems = splitAtBars(value); }},
    {"listdata", [](const Target& to, const std::string& value) { to.option().listdata = splitAtBars(value); }},
    {"key", [](const Target& to, const std::string& value) { to.entry.modKeys.push_back({value, {}}); }},
    {"cmd", [](const Target& to, const std::string& value) { to.key().cmd = value; }},
}};

bool isSkipped(std::string_view line) {
    return line.find_first_not_of(' ') == std::string_view::npos || startsWith(line, "//");
}

/// Start of the value behind a keyword of that length, counted from 0. A keyword with nothing behind it, and a value
/// that begins beyond the reach of a 16-bit position, fail.
std::size_t valueStart(std::string_view line, std::size_t keywordLength) {
    const std::size_t start = std::min(line.find_first_not_of(kWhitespace, keywordLength), line.size());
    if (start == keywordLength || start >= kLastPosition) throw RuntimeFailure("Overflow: a keyword without a value");
    return start;
}

void parseLine(const Target& target, const std::string& line) {
    if (isSkipped(line)) return;
    const std::size_t keywordLength = std::min(line.find_first_of(kWhitespace), line.size());
    const std::string value = line.substr(valueStart(line, keywordLength));
    const std::string word = lower(std::string_view(line).substr(0, keywordLength));
    const auto keyword =
        std::find_if(kKeywords.begin(), kKeywords.end(), [&](const Keyword& k) { return k.word == word; });
    if (keyword != kKeywords.end()) keyword->take(target, value);
}

void parseLines(TextReader& file, ModEntry& entry) {
    const Target target{entry};
    std::string line;
    while (file.readLine(line)) parseLine(target, line);
}

void blankIfEmpty(std::string& text) {
    if (trim(text).empty()) text.clear();
}

}  // namespace

bool parseModFile(Files& files, const std::string& path, ModEntry& entry) {
    try {
        if (files.fileExists(path)) parseLines(*files.openText(path), entry);
    } catch (const RuntimeFailure&) {
        return false;
    }
    blankIfEmpty(entry.email);
    blankIfEmpty(entry.url);
    return true;
}

}  // namespace gatehouse
