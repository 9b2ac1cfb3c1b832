#pragma once

#include <optional>
#include <string>
#include <vector>

namespace gatehouse {

/// Starts of other programs, and what the process itself was given.
class Processes {
public:
    virtual ~Processes() = default;

    /// The arguments of this process joined by one blank, without the program's name.
    virtual std::string commandLine() const = 0;
    /// The file that the one and only argument names, in the program's form; nothing if there are more, or no such
    /// file.
    virtual std::optional<std::string> fileArgument() const = 0;
    /// The environment by position from 1, as "NAME=value"; empty behind the last one.
    virtual std::string environment(int position) const = 0;
    /// Platform id of the operating system, 2 for the NT line; 0 when it can't be told.
    virtual int osPlatformId() const = 0;

    /// Starts `<interpreter> /c "<batchFile>"` with its window minimised and does not wait. Where there is no such
    /// interpreter, the service carries the batch file out itself: drive, `cd`, the program line, `exit`; no shell
    /// sees any of it. Fails with a message that says what could not be started and why.
    virtual void startBatch(const std::string& interpreter, const std::string& batchFile) = 0;
    /// Starts a program line in a folder, in a normal window, and does not wait. The line is split at blanks; double
    /// quotes group and are dropped. Fails like `startBatch`.
    virtual void start(const std::string& programLine, const std::string& folder) = 0;
    /// Whether a game that was started here still runs.
    virtual bool gameRuns() const = 0;
};

}  // namespace gatehouse
