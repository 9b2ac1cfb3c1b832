#include "benchmark/apistuff.h"

#include "base/text.h"

namespace gatehouse {

namespace {

constexpr std::size_t kLongestCaption = 256;
constexpr double kPatience = 10'000;  // milliseconds
constexpr int kTick = 50;             // the same

}  // namespace

std::string GetWindowCaption(const DesktopWindow& window) { return window.title.substr(0, kLongestCaption); }

std::uint64_t WindowSearch::FindWindowLike(std::string& fragment) const {
    fragment = upper(fragment);
    for (const DesktopWindow& window : windows_.list())
        if (find(upper(GetWindowCaption(window)), fragment) != 0) return window.id;
    return 0;
}

std::uint64_t WindowSearch::findStarted() const {
    for (const DesktopWindow& window : windows_.list())
        if (window.startedGame) return window.id;
    return 0;
}

std::uint64_t WindowSearch::findGame(std::string fragment) const {
    const std::uint64_t started = findStarted();
    return started != 0 ? started : FindWindowLike(fragment);
}

bool WindowSearch::KillWindow(const std::string& fragment, const std::function<bool()>& givenUp) {
    std::uint64_t window = findGame(fragment);
    if (window == 0) return false;
    // While it is our game that hangs, a title that looks like it is not waited for.
    const bool started = findStarted() != 0;
    windows_.close(window);
    const double deadline = clock_.tickCount() + kPatience;
    events_.waitUntil(
        [&] {
            window = started ? findStarted() : findGame(fragment);
            return window == 0 || clock_.tickCount() >= deadline || givenUp();
        },
        kTick);
    if (window == 0) return true;
    if (givenUp()) return false;
    log_.toFile("KILL: Process not responding to WM_CLOSE. Will force termination...");
    if (!windows_.terminate(window)) {
        log_.toFile("KILL: Process not terminated. Continuing anyway.");
        return false;
    }
    log_.toFile("KILL: Process terminated successfully.");
    return true;
}

}  // namespace gatehouse
