#include "command_text.h"

#include <algorithm>
#include <cstdio>

namespace gatehouse::practice {

namespace {

bool isBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }
bool isLineEnd(char c) { return c == '\n' || c == '\r'; }

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    std::vector<Words> run() {
        while (at_ < text_.size() && commands_.size() < kMaxCommandsOfText) step();
        endCommand();
        return std::move(commands_);
    }

private:
    void step() {
        const char c = text_[at_];
        if (isLineEnd(c) || c == ';') {
            endCommand();
            ++at_;
        } else if (isBlank(c)) {
            ++at_;
        } else if (atComment()) {
            while (at_ < text_.size() && !isLineEnd(text_[at_])) ++at_;
        } else if (c == '"') {
            takeQuoted();
        } else {
            takeWord();
        }
    }

    bool atComment() const { return text_.substr(at_, 2) == "//"; }

    void takeQuoted() {
        const std::size_t start = ++at_;
        while (at_ < text_.size() && text_[at_] != '"' && !isLineEnd(text_[at_])) ++at_;
        keep(start);
        if (at_ < text_.size() && text_[at_] == '"') ++at_;
    }

    void takeWord() {
        const std::size_t start = at_;
        while (at_ < text_.size() && !isBlank(text_[at_]) && text_[at_] != '"' && text_[at_] != ';' && !atComment()) {
            ++at_;
        }
        keep(start);
    }

    void keep(std::size_t start) {
        if (words_.size() < kMaxWords) words_.emplace_back(text_.substr(start, std::min(at_ - start, kMaxWordLength)));
    }

    void endCommand() {
        if (!words_.empty()) commands_.push_back(std::move(words_));
        words_.clear();
    }

    std::string_view text_;
    std::size_t at_ = 0;
    Words words_;
    std::vector<Words> commands_;
};

}  // namespace

std::vector<Words> parseCommands(std::string_view text) { return Parser(text).run(); }

std::vector<Words> parseArguments(const Words& arguments) {
    std::vector<Words> commands;
    for (const std::string& argument : arguments) {
        if (argument.starts_with('+')) {
            commands.emplace_back();
            const auto parsed = parseCommands(std::string_view(argument).substr(1));
            if (!parsed.empty()) commands.back() = parsed.front();
        } else if (!commands.empty() && commands.back().size() < kMaxWords) {
            commands.back().push_back(argument.substr(0, kMaxWordLength));
        }
    }
    std::erase_if(commands, [](const Words& words) { return words.empty(); });
    return commands;
}

std::string joinWords(const Words& words, std::size_t first) {
    std::string joined;
    for (std::size_t i = first; i < words.size(); ++i) {
        if (i > first) joined += ' ';
        joined += words[i];
    }
    return joined;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::string printable(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= ' ' && code != 0x7f) {
            result += c;
            continue;
        }
        char shown[8];
        std::snprintf(shown, sizeof shown, "\\x%02x", code);
        result += shown;
    }
    return result;
}

}  // namespace gatehouse::practice
