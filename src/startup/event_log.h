#pragma once

#include "base/field.h"
#include "base/log.h"
#include "base/run_state.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "startup/options.h"
#include "startup/views.h"

#include <memory>
#include <string>
#include <vector>

namespace gatehouse {

/// The one channel for progress and errors: status bar, console panel, the run's log file, and the splash while it is
/// on show.
class EventLog : public Log {
public:
    EventLog(Files& files, EventLoop& events, Clock& clock, RunState& run, OptionsForm& options, SplashView& splash,
             MainView& q3);

    void logEvent(std::string_view message, bool serious = false) override;
    void toFile(std::string_view line) override;
    /// With the console on, the message comes back as it was shown: with elapsed seconds, in lower case.
    void logMessage(std::string& message, bool serious);

    /// Deletes the oldest logs beyond the number to keep and opens this run's file. False if that can't be made.
    bool purgeAndCreate(const std::string& keeplogs);

    const std::string& LogPath() const { return logPath_; }

private:
    void purge(const std::string& keeplogs);
    std::vector<std::string> oldLogs() const;
    /// Writes a line to the file; one that the disk refuses is dropped.
    void keep(const std::string& line);

    Files& files_;
    EventLoop& events_;
    Clock& clock_;
    RunState& run_;
    OptionsForm& options_;
    SplashView& splash_;
    MainView& q3_;
    std::unique_ptr<Timer> stimer_;
    std::unique_ptr<TextWriter> logStream_;
    std::string logPath_;
    bool dropped_ = false;  ///< a line has been lost
};

}  // namespace gatehouse
