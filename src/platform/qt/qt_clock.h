#pragma once

#include "platform/clock.h"

#include <chrono>

namespace gatehouse {

/// Ticks counted from the making of this clock; the local time of the system.
class QtClock : public Clock {
public:
    double tickCount() const override;
    DateTime now() const override;

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace gatehouse
