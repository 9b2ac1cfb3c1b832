#pragma once

#include "benchmark/run_record.h"
#include "platform/clock.h"
#include "platform/ground.h"

#include <string>

namespace gatehouse {

/// Keeps the record of the run that is on, written through to its file at each change. A record that can't be written
/// is told in the log and costs no run.
class RunKeeper {
public:
    RunKeeper(const Ground& ground, const Clock& clock) : with_(ground), clock_(clock) {}

    /// Folder of the records, in the program folder; ends in a backslash.
    static std::string folder(const RunState& run);

    /// Begins a record, in a file of its own.
    void begin(RunRecord head);
    void addConfiguration(const std::string& name, const std::string& text);
    void add(const Iteration& iteration);
    void end(RunEnd end, const std::string& failure = {});

    const RunRecord& record() const { return record_; }
    /// Where it is kept; empty before a first run.
    const std::string& path() const { return path_; }
    /// The iteration's time as records have it.
    std::string now() const { return dateTimeText(clock_.now()); }

private:
    void write();

    Ground with_;
    const Clock& clock_;
    RunRecord record_;
    std::string path_;
    bool told_ = false;
};

}  // namespace gatehouse
