#pragma once

#include <string_view>

namespace gatehouse {

/// Where every room reports. Serious means only that the line is kept at the level "Serious Errors.".
class Log {
public:
    virtual ~Log() = default;
    virtual void logEvent(std::string_view message, bool serious = false) = 0;
    /// A line that goes straight to the run's file, at every level, and is shown nowhere.
    virtual void toFile(std::string_view line) = 0;
};

}  // namespace gatehouse
