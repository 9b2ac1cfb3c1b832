#include "platform/batch_script.h"

#include "base/line_failure.h"
#include "base/text.h"

namespace gatehouse {

namespace {

/// The longest command line that the system of the batch files takes.
constexpr std::size_t kLongestLine = 32767;

[[noreturn]] void fail(std::size_t number, const std::string& line, const std::string& why) {
    throw LineFailure("The batch file", static_cast<long>(number), line, why);
}

bool isDrive(const std::string& line) {
    return line.size() == 2 && line[1] == ':' && lower(line) >= "a:" && lower(line) <= "z:";
}

bool isComment(const std::string& line) {
    return line.empty() || equalNoCase(line, "rem") || startsWithNoCase(line, "rem ") || equalNoCase(line, "@echo off");
}

/// The folder in `cd "..."`. A quote inside of it belongs to the name.
std::string folderOfLine(const std::string& line, std::size_t number) {
    const std::string folder = trim(mid(line, 4));
    if (folder.size() < 2 || !folder.starts_with('"') || !folder.ends_with('"')) fail(number, line, "it names no folder");
    return cut(folder, 1, 1);
}

std::string entered(const std::string& from, const std::string& folder) {
    if (folder.empty()) return from;
    if (folder.starts_with('\\') || folder.starts_with('/')) return left(from, 2) + folder;
    return from + (from.ends_with('\\') ? "" : "\\") + folder;
}

}  // namespace

std::vector<std::string> splitProgramLine(std::string_view line) {
    std::vector<std::string> words;
    bool inWord = false;
    bool inQuotes = false;
    for (const char c : line) {
        if (c == ' ' && !inQuotes) {
            inWord = false;
            continue;
        }
        // A pair of quotes with nothing in it is a word too.
        if (!inWord) words.emplace_back();
        inWord = true;
        if (c == '"')
            inQuotes = !inQuotes;
        else
            words.back() += c;
    }
    return words;
}

BatchScript parseBatchScript(std::string_view text) {
    BatchScript script{.folder = "C:\\", .arguments = {}};
    std::size_t number = 0;
    for (const std::string& raw : splitLines(text)) {
        ++number;
        if (raw.size() > kLongestLine) fail(number, raw, "it is too long");
        if (raw.find('\0') != std::string::npos) fail(number, raw, "it holds a character that no program can be given");
        const std::string line = trim(raw);
        if (isComment(line)) continue;
        if (equalNoCase(line, "exit")) break;
        if (!script.arguments.empty()) fail(number, line, "it comes after the program line");
        if (line.starts_with('@') || line.starts_with(':')) fail(number, line, "it is not known");

        if (isDrive(line))
            script.folder = line + "\\";
        else if (startsWithNoCase(line, "cd "))
            script.folder = entered(script.folder, folderOfLine(line, number));
        else
            script.arguments = splitProgramLine(raw);
    }
    if (script.arguments.empty() || script.arguments.front().empty())
        throw RuntimeFailure("The batch file names no program");
    return script;
}

}  // namespace gatehouse
