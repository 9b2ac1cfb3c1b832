#pragma once

#include <functional>
#include <memory>

namespace gatehouse {

/// Thrown out of `yield` and `waitUntil` once the program has ended; `main` takes it for a normal end. No
/// `std::exception`, so that no trap on the way takes it for a failure.
struct Shutdown {};

/// A periodic timer; its handler runs inside the event loop.
class Timer {
public:
    virtual ~Timer() = default;
    /// Milliseconds. An interval of 0 never fires.
    virtual void setInterval(int milliseconds) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool enabled() const = 0;
};

/// The user interface's own event loop, entered again from inside running operations.
class EventLoop {
public:
    virtual ~EventLoop() = default;
    /// Dispatches what is pending and returns. Throws `Shutdown` after `endWaits`.
    virtual void yield() = 0;
    /// Yields until the condition holds. Sleeps between events, at most `tickMilliseconds` where the condition is no
    /// event. Throws `Shutdown` after `endWaits`.
    virtual void waitUntil(const std::function<bool()>& condition, int tickMilliseconds) = 0;
    /// From now on no wait goes on, and the loop that carries the program ends.
    virtual void endWaits() = 0;
    /// A timer, off, that calls `onTick` at each interval while it is enabled.
    virtual std::unique_ptr<Timer> createTimer(std::function<void()> onTick) = 0;
};

}  // namespace gatehouse
