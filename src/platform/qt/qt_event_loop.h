#pragma once

#include "platform/event_loop.h"

#include <exception>

class QWindow;

namespace gatehouse {

/// The event loop of the toolkit. An exception must not leave a handler that the toolkit calls; it is kept here and
/// comes out of the innermost `yield`, `waitUntil` or `run` that the handler ran in.
class QtEventLoop : public EventLoop {
public:
    /// Property of a window that is closed for a failure: it may not refuse.
    static constexpr const char* kMustClose = "mustClose";

    QtEventLoop() = default;
    QtEventLoop(const QtEventLoop&) = delete;
    QtEventLoop& operator=(const QtEventLoop&) = delete;

    /// Objects that were to be deleted later by a handler that ran inside the yield are gone when it returns.
    void yield() override;
    /// A tick of 0 is none: only events wake the wait.
    void waitUntil(const std::function<bool()>& condition, int tickMilliseconds) override;
    void endWaits() override;
    std::unique_ptr<Timer> createTimer(std::function<void()> onTick) override;

    /// Carries the program until `endWaits`; returns at once if that has been already. Throws what a handler threw
    /// outside of any wait. Returns the toolkit's exit code.
    int run();
    bool ended() const { return ended_; }

    /// Runs a handler that the toolkit called, and keeps what it throws. `Shutdown` ends the waits further out as well.
    template <class Handler>
    void guarded(Handler&& handler) noexcept {
        try {
            handler();
        } catch (const Shutdown&) {
            endWaits();
        } catch (...) {
            keepFailure(std::current_exception());
        }
    }
    /// Keeps an exception that came out of a handler, and ends what the toolkit runs inside of the innermost wait.
    void keepFailure(std::exception_ptr failure) noexcept;

private:
    class Wait;

    void throwKept();

    std::exception_ptr kept_;
    Wait* innermost_ = nullptr;
    bool running_ = false;
    bool leftForFailure_ = false;
    bool ended_ = false;
};

}  // namespace gatehouse
