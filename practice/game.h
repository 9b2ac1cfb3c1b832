#pragma once

#include "command_text.h"
#include "console.h"
#include "game_files.h"
#include "journal.h"
#include "status_text.h"
#include "udp_port.h"
#include "window.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace gatehouse::practice {

/// What the environment sets for a run.
struct Limits {
    std::chrono::milliseconds lifetime{120'000};
    std::chrono::milliseconds demo{200};
};

/// One run of the practice game, from its command line to its end.
class Game {
public:
    Game(const Words& arguments, const Limits& limits);

    /// Runs until something ends it, and returns the process's exit status.
    int run();

private:
    using Clock = std::chrono::steady_clock;

    void addCommands();
    void start(const Words& arguments);
    void report(const std::string& line);
    void end(const std::string& reason);

    void map(const Words& words);
    void addBot(const Words& words);
    void connect(const Words& words);
    void playDemo(const Words& words);
    void finishDemo();
    void dumpConsole(const Words& words);

    void openServer();
    void answerQueries();
    void takeReply();
    InfoPairs info() const;

    void waitForEvents();
    void checkClock();
    bool hasWork() const;
    void refreshWindow();

    Limits limits_;
    std::vector<Words> startCommands_;
    GameFiles files_;
    Journal journal_;
    Console console_;
    std::string consoleText_;

    bool mapLoaded_ = false;
    std::vector<Bot> bots_;
    UdpPort server_;
    UdpPort client_;
    std::string connectedTo_;
    std::unique_ptr<Window> window_;

    Clock::time_point started_ = Clock::now();
    Clock::time_point demoStarted_{};
    std::optional<Clock::time_point> demoEnd_;
    std::optional<Clock::time_point> replyEnd_;
    bool ended_ = false;
};

}  // namespace gatehouse::practice
