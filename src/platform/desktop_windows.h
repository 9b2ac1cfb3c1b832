#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gatehouse {

struct DesktopWindow {
    std::uint64_t id = 0;
    std::string title;         ///< at most 256 characters
    bool startedGame = false;  ///< of a game that we started
};

/// The top-level windows of other programs, the one in front first.
class DesktopWindows {
public:
    virtual ~DesktopWindows() = default;
    virtual std::vector<DesktopWindow> list() const = 0;
    /// Asks the window to close and returns at once.
    virtual void close(std::uint64_t id) = 0;
    /// Ends the program behind the window by force; only a game that we started. False if that isn't possible.
    virtual bool terminate(std::uint64_t id) = 0;
};

}  // namespace gatehouse
