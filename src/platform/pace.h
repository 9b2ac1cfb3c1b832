#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"

namespace gatehouse {

/// Lets handlers run inside long work, often enough for a window to stay alive and seldom enough to cost nothing.
class Pace {
public:
    Pace(EventLoop& events, const Clock& clock) : events_(events), clock_(clock) {}

    /// To be called at each small step of the work. `Shutdown` comes out of it.
    void breathe() {
        if (clock_.tickCount() - last_ < kMilliseconds) return;
        events_.yield();
        last_ = clock_.tickCount();
    }

private:
    static constexpr double kMilliseconds = 20;

    EventLoop& events_;
    const Clock& clock_;
    double last_ = 0;
};

}  // namespace gatehouse
