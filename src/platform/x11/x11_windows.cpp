#include "platform/x11/x11_windows.h"

#include "platform/x11/x11_connection.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace gatehouse {

namespace {

constexpr const char* kGameTitle = "Quake 3: Arena";
constexpr std::size_t kLongestTitle = 256;

}  // namespace

X11Windows::X11Windows(std::function<std::vector<pid_t>()> startedGames)
    : startedGames_(std::move(startedGames)), connection_(std::make_unique<X11Connection>()) {}

X11Windows::~X11Windows() = default;

bool X11Windows::hasList() const { return connection_->works(); }

pid_t X11Windows::gameOf(pid_t process) const {
    const std::vector<pid_t> games = startedGames_();
    // A game that is started by a script is a child in the script's session.
    const auto found = std::find_if(games.begin(), games.end(),
                                    [&](pid_t game) { return game == process || game == ::getsid(process); });
    return process > 0 && found != games.end() ? *found : 0;
}

std::vector<DesktopWindow> X11Windows::list() const {
    std::vector<DesktopWindow> windows;
    if (!hasList()) {
        for (const pid_t game : startedGames_())
            windows.push_back({static_cast<std::uint64_t>(game), kGameTitle, true});
        return windows;
    }
    for (const std::uint32_t window : connection_->topWindows()) {
        const pid_t process = connection_->processOf(window);
        if (process == ::getpid()) continue;
        windows.push_back({window, connection_->titleOf(window).substr(0, kLongestTitle), gameOf(process) != 0});
    }
    return windows;
}

void X11Windows::close(std::uint64_t id) {
    if (hasList())
        connection_->askToClose(static_cast<std::uint32_t>(id));
    else if (const pid_t game = gameOf(static_cast<pid_t>(id)))
        ::kill(-game, SIGTERM);
}

bool X11Windows::terminate(std::uint64_t id) {
    const pid_t process = hasList() ? connection_->processOf(static_cast<std::uint32_t>(id)) : static_cast<pid_t>(id);
    const pid_t game = gameOf(process);
    if (game == 0) return false;
    const bool ended = ::kill(-game, SIGKILL) == 0;
    // One that has left the group of its game gets a signal of its own.
    return (process != game && ::kill(process, SIGKILL) == 0) || ended;
}

}  // namespace gatehouse
