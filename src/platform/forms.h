#pragma once

#include "base/observable.h"
#include "platform/event_loop.h"

namespace gatehouse {

/// Shows one of the program's own forms and returns once it is hidden. A view shows the form while the value holds.
inline void showModal(Observable<bool>& form, EventLoop& events) {
    form.set(true);
    events.waitUntil([&form] { return !form.get(); }, 0);
}

}  // namespace gatehouse
