#include "game.h"

#include <arpa/inet.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace gatehouse::practice {

namespace {

using std::chrono::milliseconds;

constexpr const char* kTitle = "Quake 3: Arena (practice)";
constexpr std::size_t kMaxConsoleText = 64 * 1024;
constexpr milliseconds kFrame{50};
constexpr milliseconds kLongestSleep{250};
constexpr milliseconds kReplyWait{2000};
constexpr int kDemoFrames = 1260;
constexpr int kMaxPlayers = 64;

volatile std::sig_atomic_t endSignal = 0;

void rememberSignal(int signal) { endSignal = signal; }

void catchSignals() {
    struct sigaction action {};
    action.sa_handler = rememberSignal;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

bool setsVariable(const Words& words) { return words.size() > 2 && lowered(words[0]).starts_with("set"); }

/// The value that the command line gives a variable, needed before there is a console.
std::string startValue(const std::vector<Words>& commands, const std::string& name) {
    std::string value;
    for (const Words& words : commands) {
        if (setsVariable(words) && lowered(words[1]) == name) value = joinWords(words, 2);
    }
    return value;
}

std::filesystem::path gameFolder(const std::vector<Words>& commands) {
    const std::string base = startValue(commands, "fs_basepath");
    std::error_code error;
    return base.empty() ? std::filesystem::current_path(error) : std::filesystem::path(base);
}

bool isMapName(const std::string& name) {
    return !name.empty() && name.size() <= 64 && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '-';
    });
}

}  // namespace

Game::Game(const Words& arguments, const Limits& limits)
    : limits_(limits),
      startCommands_(parseArguments(arguments)),
      files_(gameFolder(startCommands_), startValue(startCommands_, "fs_game")),
      journal_(files_.folder() / "practice.log"),
      console_([this](const std::string& name) { return files_.readConfig(name); },
               [this](const std::string& line) { report(line); }) {
    catchSignals();
    addCommands();
    start(arguments);
}

void Game::addCommands() {
    for (const char* name : {"map", "devmap"}) {
        console_.addCommand(name, [this](const Words& words) { map(words); });
    }
    console_.addCommand("addbot", [this](const Words& words) { addBot(words); });
    console_.addCommand("connect", [this](const Words& words) { connect(words); });
    console_.addCommand("demo", [this](const Words& words) { playDemo(words); });
    console_.addCommand("condump", [this](const Words& words) { dumpConsole(words); });
    console_.addCommand("quit", [this](const Words&) { end("quit"); });
}

void Game::start(const Words& arguments) {
    std::error_code error;
    std::string first = "run pid " + std::to_string(getpid()) + " in [" +
                        std::filesystem::current_path(error).string() + "] with";
    for (const std::string& argument : arguments) first += " [" + argument + "]";
    journal_.write(first);

    static constexpr std::array<std::array<const char*, 2>, 11> kDefaults{{
        {"sv_hostname", "noname"}, {"g_gametype", "0"}, {"mapname", ""}, {"sv_maxclients", "8"},
        {"sv_privateclients", "0"}, {"fraglimit", "20"}, {"timelimit", "0"}, {"capturelimit", "8"},
        {"dmflags", "0"}, {"net_port", "27960"}, {"dedicated", "0"},
    }};
    for (const auto& [name, value] : kDefaults) console_.preset(name, value);
    if (!files_.mod().empty()) report("set fs_game = " + files_.mod());
    console_.preset("fs_game", files_.mod());
    console_.preset("fs_basepath", files_.folder().string());
    console_.protect("fs_game");
    console_.protect("fs_basepath");

    // The command line's variables come first, and once more behind the configs that the player left.
    const auto appendSets = [this] {
        for (const Words& words : startCommands_) {
            const bool isFolder = setsVariable(words) && lowered(words[1]).starts_with("fs_");
            if (setsVariable(words) && !isFolder) console_.append(words);
        }
    };
    appendSets();
    bool hasConfigs = false;
    for (const char* config : {"q3config.cfg", "autoexec.cfg"}) {
        if (!files_.readConfig(config)) continue;
        console_.append({"exec", config});
        hasConfigs = true;
    }
    if (hasConfigs) appendSets();
    for (const Words& words : startCommands_) {
        if (!setsVariable(words)) console_.append(words);
    }
}

void Game::report(const std::string& line) {
    journal_.write(line);
    consoleText_ += printable(line) + "\n";
    if (consoleText_.size() > kMaxConsoleText) consoleText_.erase(0, consoleText_.size() - kMaxConsoleText / 2);
}

void Game::end(const std::string& reason) {
    if (ended_) return;
    ended_ = true;
    console_.clear();
    journal_.write("end pid " + std::to_string(getpid()) + ": " + reason);
}

int Game::run() {
    window_ = Window::open(kTitle);
    report(window_ ? std::string("window ") + kTitle : "no window");
    while (!ended_) {
        console_.frame();
        checkClock();
        refreshWindow();
        if (!ended_) waitForEvents();
    }
    return 0;
}

void Game::map(const Words& words) {
    if (words.size() < 2 || !isMapName(words[1])) {
        report(joinWords(words, 0) + ": no such map");
        return;
    }
    report(joinWords(words, 0));
    // As in the game: "map" keeps the bots that play already, "devmap" begins without any.
    if (lowered(words[0]) == "devmap") bots_.clear();
    console_.preset("mapname", words[1]);
    mapLoaded_ = true;
    connectedTo_.clear();
    openServer();
}

void Game::addBot(const Words& words) {
    const std::string line = joinWords(words, 0);
    const int limit = std::clamp(console_.number("sv_maxclients"), 1, kMaxPlayers);
    if (words.size() < 2) {
        report("usage: addbot <name> <skill> <team>");
    } else if (!mapLoaded_) {
        report(line + ": server is not running");
    } else if (static_cast<int>(bots_.size()) >= limit) {
        report(line + ": server is full");
    } else {
        bots_.push_back({.name = words[1].substr(0, 32),
                         .skill = words.size() > 2 ? words[2] : std::string(),
                         .team = words.size() > 3 ? words[3] : std::string()});
        report(line);
    }
}

void Game::connect(const Words& words) {
    const std::string line = joinWords(words, 0);
    const auto address = words.size() > 1 ? parseAddress(words[1]) : std::nullopt;
    if (!address || !isLoopback(*address)) {
        report(line + ": not on this machine, not contacted");
        return;
    }
    mapLoaded_ = false;
    server_.close();
    sockaddr_in any = *address;
    any.sin_port = 0;
    if (!client_.open(any) || !client_.send(std::string(kStatusQuery), *address)) {
        report(line + ": " + std::strerror(errno));
        return;
    }
    report(line);
    connectedTo_ = words[1];
    replyEnd_ = Clock::now() + kReplyWait;
}

void Game::playDemo(const Words& words) {
    const std::string line = joinWords(words, 0);
    if (words.size() < 2 || !files_.hasDemo(words[1])) {
        report(line + ": couldn't open the demo");
        return;
    }
    report(line);
    demoStarted_ = Clock::now();
    demoEnd_ = demoStarted_ + limits_.demo;
}

void Game::finishDemo() {
    demoEnd_.reset();
    if (console_.number("timedemo") != 0) {
        const double seconds = std::chrono::duration<double>(Clock::now() - demoStarted_).count();
        char line[96];
        std::snprintf(line, sizeof line, "%d frames, %.1f seconds: %.1f fps", kDemoFrames, seconds,
                      kDemoFrames / std::max(seconds, 0.001));
        report(line);
    }
    const std::string next = console_.value("nextdemo");
    console_.preset("nextdemo", "");
    console_.insertText(next);
}

void Game::dumpConsole(const Words& words) {
    const std::string line = joinWords(words, 0);
    const bool written = words.size() > 1 && files_.writeDump(words[1], consoleText_);
    report(line + (written ? "" : ": couldn't write the file"));
}

void Game::openServer() {
    if (server_.descriptor() >= 0) return;
    const std::string ip = console_.value("net_ip");
    auto address = parseAddress(ip.empty() ? "127.0.0.1" : ip);
    if (!address) {
        report("net_ip " + ip + " is no address, 127.0.0.1 is used");
        address = parseAddress("127.0.0.1");
    }
    const int port = console_.number("net_port");
    address->sin_port = htons(static_cast<std::uint16_t>(port));
    if (port < 1 || port > 65535) {
        report("net_port " + console_.value("net_port") + " is no port");
    } else if (server_.open(*address)) {
        report((console_.number("dedicated") != 0 ? "dedicated server on " : "listen server on ") + shown(*address));
    } else {
        report("no server on " + shown(*address) + ": " + std::strerror(errno));
    }
}

InfoPairs Game::info() const {
    InfoPairs pairs;
    for (const char* name : {"sv_hostname", "g_gametype", "mapname", "sv_maxclients", "sv_privateclients", "fs_game",
                             "fraglimit", "timelimit", "capturelimit", "dmflags"}) {
        if (const std::string& value = console_.value(name); !value.empty()) pairs.emplace_back(name, value);
    }
    for (auto& mark : console_.serverInfoMarks()) pairs.push_back(std::move(mark));
    // A reader that looks for the next key can't read the last value, so that one is of no use to a browser.
    pairs.emplace_back("protocol", "68");
    pairs.emplace_back("version", "practice");
    return pairs;
}

void Game::answerQueries() {
    sockaddr_in from{};
    while (server_.descriptor() >= 0) {
        const auto datagram = server_.receive(from);
        if (!datagram) return;
        const auto challenge = challengeOfQuery(*datagram);
        if (!challenge || !mapLoaded_) {
            report("packet of " + std::to_string(datagram->size()) + " bytes ignored from " + shown(from));
            continue;
        }
        InfoPairs pairs = info();
        if (!challenge->empty()) pairs.insert(pairs.begin(), {"challenge", *challenge});
        server_.send(statusReply(pairs, bots_), from);
        report("status query from " + shown(from));
    }
}

void Game::takeReply() {
    sockaddr_in from{};
    const auto datagram = client_.receive(from);
    if (!datagram) return;
    const auto text = textOfReply(*datagram);
    report("reply from " + shown(from) + ": " + (text ? *text : "no status"));
    client_.close();
    replyEnd_.reset();
}

bool Game::hasWork() const {
    return window_ || mapLoaded_ || demoEnd_ || replyEnd_ || !console_.idle() || console_.number("dedicated") != 0;
}

void Game::checkClock() {
    const auto now = Clock::now();
    if (endSignal != 0) {
        end("signal " + std::to_string(endSignal));
    } else if (window_ && !window_->handleEvents()) {
        end("window closed");
    } else if (now - started_ >= limits_.lifetime) {
        end("lifetime over");
    } else if (demoEnd_ && now >= *demoEnd_) {
        finishDemo();
    } else if (replyEnd_ && now >= *replyEnd_) {
        report("no reply from " + connectedTo_);
        client_.close();
        replyEnd_.reset();
    } else if (!hasWork()) {
        end("nothing more to do");
    }
}

void Game::waitForEvents() {
    auto until = Clock::now() + (console_.idle() ? kLongestSleep : kFrame);
    for (const auto& deadline : {demoEnd_, replyEnd_}) {
        if (deadline) until = std::min(until, *deadline);
    }
    const auto sleep = std::chrono::ceil<milliseconds>(until - Clock::now());
    std::array<pollfd, 3> ports{};
    ports[0].fd = server_.descriptor();
    ports[1].fd = client_.descriptor();
    ports[2].fd = window_ ? window_->descriptor() : -1;
    for (pollfd& port : ports) port.events = POLLIN;
    if (poll(ports.data(), ports.size(), static_cast<int>(std::max<long>(0, sleep.count()))) <= 0) return;
    if (ports[0].revents != 0) answerQueries();
    if (ports[1].revents != 0) takeReply();
}

void Game::refreshWindow() {
    if (!window_) return;
    std::vector<std::string> lines{kTitle};
    if (mapLoaded_) {
        lines.push_back("Server: " + console_.value("sv_hostname"));
        lines.push_back("Map: " + console_.value("mapname") + ", " + std::to_string(bots_.size()) + " bots, port " +
                        console_.value("net_port"));
    }
    if (!connectedTo_.empty()) lines.push_back("Connected to " + connectedTo_);
    if (demoEnd_) lines.push_back("Playing a demo");
    window_->show(lines);
}

}  // namespace gatehouse::practice
