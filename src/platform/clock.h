#pragma once

#include <string>

namespace gatehouse {

/// Local time of day.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    /// Milliseconds, monotonic within a run.
    virtual double tickCount() const = 0;
    virtual DateTime now() const = 0;
};

/// Date and time as shown in logs, such as "2001-02-03 14:05:06".
std::string dateTimeText(const DateTime& time);
/// Four digits of the year, then two each for month, day, hour, minute and second.
std::string dateTimeStamp(const DateTime& time);

}  // namespace gatehouse
