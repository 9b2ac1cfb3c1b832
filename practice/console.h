#pragma once

#include "command_text.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace gatehouse::practice {

/// The game's console: variables, bindings and a buffer of commands that is carried out frame by frame.
/// All input is taken as hostile: nesting, work and memory are bounded.
class Console {
public:
    using Handler = std::function<void(const Words&)>;
    using Report = std::function<void(const std::string&)>;
    /// The text of a config by its name, or nothing.
    using ReadConfig = std::function<std::optional<std::string>(const std::string&)>;

    static constexpr int kMaxNesting = 32;
    static constexpr int kMaxCommands = 100'000;
    static constexpr std::size_t kMaxVariables = 4096;
    static constexpr int kMaxWaitFrames = 600;

    Console(ReadConfig readConfig, Report report);

    /// Makes a command known under a lower-case name; it gets its words, the name included.
    void addCommand(const std::string& name, Handler handler);
    /// Sets a variable without a report, as the program's own default.
    void preset(const std::string& name, const std::string& value);
    /// From here on no command changes that variable.
    void protect(const std::string& name);
    /// The value of a variable, empty when there is none; names are looked up without regard to case.
    const std::string& value(const std::string& name) const;
    /// The leading number of a variable's value, 0 when there is none.
    int number(const std::string& name) const;
    /// Variables that `sets` marked for the status reply, as name and value.
    std::vector<std::pair<std::string, std::string>> serverInfoMarks() const;

    /// Puts a command behind all that waits.
    void append(const Words& command);
    /// Puts a text's commands in front of all that waits.
    void insertText(const std::string& text);
    /// Drops all that waits.
    void clear() { pending_.clear(); }
    /// Carries out what waits, up to a `wait`.
    void frame();
    bool idle() const { return pending_.empty(); }

private:
    struct Variable {
        std::string name;
        std::string value;
        bool serverInfo = false;
        bool isProtected = false;
    };
    struct Pending {
        Words words;
        int nesting;
    };

    void addOwnCommands();
    void execute(const Words& words);
    void set(const Words& words, std::size_t valueAt);
    void bind(const Words& words);
    void exec(const Words& words);
    void vstr(const Words& words);
    Variable* variable(const std::string& name);

    ReadConfig readConfig_;
    Report report_;
    std::map<std::string, Handler> commands_;
    std::map<std::string, Variable> variables_;
    std::map<std::string, std::string> bindings_;
    std::deque<Pending> pending_;
    int nesting_ = 0;
    int carriedOut_ = 0;
    int waitFrames_ = 0;
};

}  // namespace gatehouse::practice
