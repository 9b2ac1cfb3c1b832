#include "console.h"

#include <algorithm>
#include <charconv>

namespace gatehouse::practice {

namespace {

int leadingNumber(const std::string& text) {
    int number = 0;
    const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    std::from_chars(text.data() + start, text.data() + text.size(), number);
    return number;
}

}  // namespace

Console::Console(ReadConfig readConfig, Report report) : readConfig_(std::move(readConfig)), report_(std::move(report)) {
    addOwnCommands();
}

void Console::addOwnCommands() {
    for (const char* name : {"set", "seta", "setu", "sets"}) {
        addCommand(name, [this](const Words& words) {
            set(words, 2);
            if (words.size() < 3 || lowered(words[0]) != "sets") return;
            if (Variable* marked = variable(words[1])) marked->serverInfo = true;
        });
    }
    addCommand("bind", [this](const Words& words) { bind(words); });
    addCommand("unbind", [this](const Words& words) {
        if (words.size() > 1) bindings_.erase(lowered(words[1]));
        report_(joinWords(words, 0));
    });
    addCommand("unbindall", [this](const Words&) {
        bindings_.clear();
        report_("unbindall");
    });
    addCommand("exec", [this](const Words& words) { exec(words); });
    addCommand("vstr", [this](const Words& words) { vstr(words); });
    addCommand("echo", [this](const Words& words) { report_(joinWords(words, 0)); });
    addCommand("wait", [this](const Words& words) {
        waitFrames_ = words.size() > 1 ? std::clamp(leadingNumber(words[1]), 0, kMaxWaitFrames) : 1;
        report_(joinWords(words, 0));
    });
}

void Console::addCommand(const std::string& name, Handler handler) { commands_[name] = std::move(handler); }

void Console::preset(const std::string& name, const std::string& value) {
    if (Variable* found = variable(name)) found->value = value;
}

void Console::protect(const std::string& name) {
    if (Variable* found = variable(name)) found->isProtected = true;
}

const std::string& Console::value(const std::string& name) const {
    static const std::string kNone;
    const auto found = variables_.find(lowered(name));
    return found == variables_.end() ? kNone : found->second.value;
}

int Console::number(const std::string& name) const { return leadingNumber(value(name)); }

std::vector<std::pair<std::string, std::string>> Console::serverInfoMarks() const {
    std::vector<std::pair<std::string, std::string>> marks;
    for (const auto& [key, entry] : variables_) {
        if (entry.serverInfo) marks.emplace_back(entry.name, entry.value);
    }
    return marks;
}

void Console::append(const Words& command) { pending_.push_back({command, 0}); }

void Console::insertText(const std::string& text) {
    if (nesting_ >= kMaxNesting) {
        report_("too deeply nested, not carried out");
        return;
    }
    const auto commands = parseCommands(text);
    for (auto command = commands.rbegin(); command != commands.rend(); ++command) {
        pending_.push_front({*command, nesting_ + 1});
    }
}

void Console::frame() {
    if (waitFrames_ > 0) {
        --waitFrames_;
        return;
    }
    while (!pending_.empty() && waitFrames_ == 0) {
        if (++carriedOut_ > kMaxCommands) {
            report_("too many commands, the rest is dropped");
            clear();
            return;
        }
        const Pending next = std::move(pending_.front());
        pending_.pop_front();
        nesting_ = next.nesting;
        execute(next.words);
        nesting_ = 0;
    }
}

void Console::execute(const Words& words) {
    if (const auto command = commands_.find(lowered(words[0])); command != commands_.end()) {
        command->second(words);
    } else if (words.size() == 2 || (words.size() > 2 && variables_.contains(lowered(words[0])))) {
        // A name with a value sets that variable, known or not: the settings of every mod are welcome.
        set(words, 1);
    } else if (variables_.contains(lowered(words[0]))) {
        report_(words[0] + " is \"" + value(words[0]) + "\"");
    } else {
        report_("unknown command " + words[0]);
    }
}

Console::Variable* Console::variable(const std::string& name) {
    const std::string key = lowered(name);
    if (const auto found = variables_.find(key); found != variables_.end()) return &found->second;
    if (variables_.size() >= kMaxVariables) return nullptr;
    return &variables_.emplace(key, Variable{.name = name, .value = {}}).first->second;
}

void Console::set(const Words& words, std::size_t valueAt) {
    if (words.size() <= valueAt) {
        report_("usage: set <variable> <value>");
        return;
    }
    const std::string& name = words[valueAt - 1];
    Variable* target = variable(name);
    if (!target) {
        report_("too many variables, not set: " + name);
    } else if (target->isProtected) {
        report_(name + " is write protected");
    } else {
        target->value = joinWords(words, valueAt).substr(0, kMaxWordLength);
        report_("set " + name + " = " + target->value);
    }
}

void Console::bind(const Words& words) {
    if (words.size() < 3 || words[1].size() > 32) {
        report_("usage: bind <key> <command>");
        return;
    }
    const std::string& command = bindings_[lowered(words[1])] = joinWords(words, 2).substr(0, kMaxWordLength);
    report_("bind " + words[1] + " = " + command);
    if (bindings_.size() > kMaxVariables) bindings_.clear();
}

void Console::exec(const Words& words) {
    if (words.size() < 2) {
        report_("usage: exec <file>");
        return;
    }
    const bool hasExtension = words[1].find('.') != std::string::npos;
    const std::string name = hasExtension ? words[1] : words[1] + ".cfg";
    const auto text = readConfig_(name);
    report_("exec " + name + (text ? "" : ": not found"));
    if (text) insertText(*text);
}

void Console::vstr(const Words& words) {
    if (words.size() < 2) {
        report_("usage: vstr <variable>");
        return;
    }
    report_("vstr " + words[1]);
    insertText(value(words[1]));
}

}  // namespace gatehouse::practice
