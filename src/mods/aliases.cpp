#include "mods/aliases.h"

#include "base/line_failure.h"
#include "base/numbers.h"
#include "base/text.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::string_view kAliasFile = "aliases.txt";
constexpr std::string_view kDefinition = "#def";
constexpr std::string_view kKey = "#key";
constexpr std::string_view kEnd = "#end";
constexpr std::string_view kBind = "bind";
/// A placeholder has two digits.
constexpr std::size_t kMostKeys = 99;

/// The lines of a file, one at a time, with the current one kept.
class LineCursor {
public:
    LineCursor(TextReader& source, std::string path) : source_(source), path_(std::move(path)) {}

    /// Goes to the next line; an empty one at the end of the file.
    void next() {
        more_ = source_.readLine(line_);
        if (more_)
            ++read_;
        else
            line_.clear();
    }
    /// False once the file has ended.
    bool more() const { return more_; }
    const std::string& line() const { return line_; }
    /// Number of lines read so far.
    long read() const { return read_; }
    /// What `work` gives; where it fails, the current line is named.
    template <class Work>
    auto blame(Work&& work) const {
        try {
            return work();
        } catch (const FileFailure&) {
            throw;  // the fault of a file is not the line's
        } catch (const RuntimeFailure& failure) {
            throw LineFailure(path_, read_, line_, failure.what());
        }
    }

private:
    TextReader& source_;
    std::string path_;
    std::string line_;
    bool more_ = true;
    long read_ = 0;
};

/// What stands between the first and the second quote. Fails without both.
std::string betweenQuotes(std::string_view line) {
    const long first = find(line, "\"");
    const long second = find(line, "\"", first + 1);
    if (second == 0) throw RuntimeFailure("a name needs two quotes");
    return mid(line, first + 1, second - first - 1);
}

std::string betweenQuotes(const LineCursor& cursor) {
    return cursor.blame([&cursor] { return betweenQuotes(cursor.line()); });
}

std::string rowText(const std::string& name, const std::string& label) { return name + " " + label; }

bool hasKeyword(const LineCursor& cursor, std::string_view keyword) { return startsWithNoCase(cursor.line(), keyword); }

void skipTo(LineCursor& cursor, std::string_view keyword) {
    while (cursor.more() && !hasKeyword(cursor, keyword)) cursor.next();
}

/// The keys chosen for one script, in the order of its `#key` lines.
struct ChosenKeys {
    std::vector<std::string> names;
    bool complete = true;

    void add(const KeyBinding& row) {
        if (names.size() == kMostKeys) throw RuntimeFailure("Subscript out of range: too many keys for " + row.text);
        const bool bound = trim(row.tag) != kNoKey;
        names.push_back(bound ? lower(keyButton(row.tag).gameKey) : std::string());
        complete = complete && bound;
    }

    /// Empty for a key that the script does not have. Fails for a negative number.
    std::string name(std::string_view number) const {
        const int wanted = valInt16(number);
        if (wanted < 0) throw RuntimeFailure("Subscript out of range: key " + std::string(number));
        const auto index = static_cast<std::size_t>(wanted);
        return index >= 1 && index <= names.size() ? names[index - 1] : std::string();
    }
};

/// A script line with the chosen key in the place of "#", two digits and a blank.
std::string withKey(const std::string& line, const ChosenKeys& keys) {
    const long place = find(line, "#");
    if (place == 0) throw RuntimeFailure("there is no # with a key's number");
    return left(line, place - 1) + keys.name(mid(line, place + 1, 2)) + " " + mid(line, place + 4);
}

ChosenKeys readKeys(LineCursor& cursor, const std::string& name, const BindingTable& bindlist) {
    ChosenKeys keys;
    for (; hasKeyword(cursor, kKey); cursor.next()) {
        cursor.blame([&] {
            const std::string text = rowText(name, betweenQuotes(cursor.line()));
            const int position = findBinding(bindlist, text);
            if (position == 0) throw RuntimeFailure("Element not found: alias key " + quoted(text));
            keys.add(bindlist.at(position));
        });
    }
    return keys;
}

void writeScript(LineCursor& cursor, const std::string& name, const ChosenKeys& keys, TextWriter& target) {
    target.writeLine("");
    target.writeLine("// Alias: " + name);
    target.writeLine("");
    for (; cursor.more() && !hasKeyword(cursor, kEnd); cursor.next())
        target.writeLine(hasKeyword(cursor, kBind) ? cursor.blame([&] { return withKey(cursor.line(), keys); })
                                                   : cursor.line());
}

}  // namespace

std::string AliasBook::path() const { return run_.AppDir + std::string(kAliasFile); }

void AliasBook::loadAliases() {
    log_.logEvent("Opening " + std::string(kAliasFile));
    std::unique_ptr<TextReader> source;
    try {
        source = files_.openText(path());
    } catch (const FileFailure&) {
        log_.logEvent("Couldn't open " + std::string(kAliasFile));
        return;
    }
    log_.logEvent("File opened OK");

    LineCursor cursor(*source, path());
    std::string name;
    int keyNumber = 1;
    bool done = true;
    // Blocks are counted by passes, found or not: what a row is found by is its text.
    for (long block = 1; cursor.more(); ++block) {
        if (!startsWith(cursor.line(), kDefinition)) cursor.next();
        if (startsWith(cursor.line(), kDefinition)) {
            name = betweenQuotes(cursor);
            cursor.next();
            keyNumber = 1;
            done = false;
        }
        while (cursor.more() && !done) {
            if (startsWith(trim(cursor.line()), kKey)) {
                const std::string text = rowText(name, betweenQuotes(cursor));
                cursor.blame([&] {
                    bindlist_.append({.text = text,
                                      .key = "alias" + std::to_string(block) + std::to_string(keyNumber),
                                      .label = std::string(kUnbound),
                                      .tag = std::string(kNoKey),
                                      .kind = BindingKind::Alias});
                });
                ++keyNumber;
            } else {
                done = true;
            }
            cursor.next();
        }
    }
    log_.logEvent(std::to_string(cursor.read()) + " lines parsed OK");
}

void AliasBook::WriteAliases(TextWriter& CfgStream) {
    const auto source = files_.openText(path());
    const auto target = files_.replaceText(run_.GameDir + "baseq3\\ghaliases.cfg");
    writeScripts(*source, *target);
    target->close();

    for (const char* line : {"", "// Aliases", "", "exec ghaliases.cfg", ""}) CfgStream.writeLine(line);
}

void AliasBook::writeScripts(TextReader& source, TextWriter& target) const {
    LineCursor cursor(source, path());
    cursor.next();
    for (;;) {
        skipTo(cursor, kDefinition);
        if (!cursor.more()) return;
        const std::string name = betweenQuotes(cursor);
        skipTo(cursor, kKey);
        if (!cursor.more()) return;
        const ChosenKeys keys = readKeys(cursor, name, bindlist_);
        if (keys.complete)
            writeScript(cursor, name, keys, target);
        else
            skipTo(cursor, kEnd);
    }
}

}  // namespace gatehouse
