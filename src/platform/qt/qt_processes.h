#pragma once

#include "platform/processes.h"
#include "platform/qt/child_programs.h"

#include <sys/types.h>

namespace gatehouse {

/// Starts games on this machine. Batch files are carried out here and no shell sees them; Windows executables go
/// through Wine, everything else runs natively.
class QtProcesses : public Processes {
public:
    QtProcesses(int argc, const char* const* argv);

    std::optional<std::string> fileArgument() const override { return fileArgument_; }
    std::string commandLine() const override { return commandLine_; }
    std::string environment(int position) const override;
    int osPlatformId() const override;
    void startBatch(const std::string& interpreter, const std::string& batchFile) override;
    void start(const std::string& programLine, const std::string& folder) override;
    bool gameRuns() const override { return !games_.alive().empty(); }

    /// Games that were started here and still run. Each leads a process group and a session of that number.
    std::vector<pid_t> startedGames() const { return games_.alive(); }

private:
    void startIn(const std::string& folder, const std::vector<std::string>& arguments);

    std::string commandLine_;
    std::optional<std::string> fileArgument_;
    ChildPrograms games_;
};

}  // namespace gatehouse
