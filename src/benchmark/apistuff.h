#pragma once

#include "base/log.h"
#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/event_loop.h"

#include <cstdint>
#include <functional>
#include <string>

namespace gatehouse {

/// The title of a window, 256 characters at most.
std::string GetWindowCaption(const DesktopWindow& window);

/// Finds other programs' windows by a part of their titles, and closes the game's.
class WindowSearch {
public:
    WindowSearch(DesktopWindows& windows, EventLoop& events, const Clock& clock, Log& log)
        : windows_(windows), events_(events), clock_(clock), log_(log) {}

    /// The first window from the front whose title holds the fragment in any case, 0 if there is none. The fragment
    /// comes back in upper case.
    std::uint64_t FindWindowLike(std::string& fragment) const;
    /// The first window of a game that we started, whatever its title; else the one that `FindWindowLike` finds.
    std::uint64_t findGame(std::string fragment) const;
    /// Asks the window of `findGame` to close, and ends its program by force if it is still there after ten seconds.
    /// The wait ends early when `givenUp` holds. True if the window has gone or its program was ended.
    bool KillWindow(const std::string& fragment, const std::function<bool()>& givenUp);

private:
    std::uint64_t findStarted() const;

    DesktopWindows& windows_;
    EventLoop& events_;
    const Clock& clock_;
    Log& log_;
};

}  // namespace gatehouse
