#pragma once

#include "base/form.h"
#include "base/observable.h"
#include "platform/event_loop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace gatehouse {

/// The dialog `waitwindow`: what to do about a game that has come to no result. It answers itself after a while.
class StaleForm {
public:
    static constexpr int kSeconds = 15;

    explicit StaleForm(EventLoop& events);

    Form waitwindow{"waitwindow"};
    Observable<std::string> msg;
    Observable<int> waitbar{0};  ///< seconds that the dialog has been up
    /// Which button is the default: what happens if nobody answers.
    Observable<bool> retryIsDefault{true};

    /// Asks, and returns whether the same iteration is to be tried again.
    bool ask(const std::string& text, bool retryByDefault);

    void wretry_Click() { answer(true); }
    void wnext_Click() { answer(false); }
    /// Closed without an answer: the next one, as the iteration has gone stale.
    void unload() { answer(false); }

private:
    void tick();
    void answer(bool retry);

    EventLoop& events_;
    std::unique_ptr<Timer> waittimer_;
    std::int16_t StaleCountdown_ = 0;
    bool retry_ = false;
};

}  // namespace gatehouse
