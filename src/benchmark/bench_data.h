#pragma once

#include "platform/clock.h"
#include "platform/files.h"

#include <cstdint>
#include <optional>
#include <string>

namespace gatehouse {

/// What the game says about a timed demo.
struct Timing {
    double value = 0;  ///< frames a second
    std::optional<int> frames;
    std::optional<double> seconds;
};

/// The timing in a console text of the game: the first line of the form "1260 frames, 45.2 seconds: 27.9 fps" with a
/// number behind its colon; without one the last line of newer engines, "199 frames 3.4 seconds 59.2 fps ...".
std::optional<Timing> findTiming(const std::string& consoleText);

/// The timing in such a file; nothing where it can't be read or holds none.
std::optional<Timing> readTiming(Files& files, const std::string& path);

/// Waits for the file that a game writes its console to: made empty and filled in pieces, it counts as there when its
/// timing can be read, or when its size has not changed for a quarter of a second.
class DataWatch {
public:
    DataWatch(Files& files, const Clock& clock, std::string path)
        : files_(files), clock_(clock), path_(std::move(path)) {}

    bool there();

private:
    Files& files_;
    const Clock& clock_;
    std::string path_;
    std::optional<std::uint64_t> size_;
    double since_ = 0;  ///< tick count at which the size was seen first
};

}  // namespace gatehouse
