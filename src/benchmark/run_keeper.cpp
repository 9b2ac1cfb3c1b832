#include "benchmark/run_keeper.h"

#include "base/log.h"
#include "base/run_state.h"
#include "platform/file_tools.h"

#include <utility>

namespace gatehouse {

std::string RunKeeper::folder(const RunState& run) { return run.AppDir + "benchmarks\\"; }

void RunKeeper::begin(RunRecord head) {
    record_ = std::move(head);
    record_.started = now();
    told_ = false;
    path_ = folder(with_.run) + dateTimeStamp(clock_.now()) + ".json";
    try {
        with_.files.createFolder(folder(with_.run));
        path_ = freePath(with_.files, folder(with_.run), dateTimeStamp(clock_.now()), ".json");
    } catch (const RuntimeFailure&) {
        // The writing tells.
    }
    write();
}

void RunKeeper::addConfiguration(const std::string& name, const std::string& text) {
    record_.configurations.push_back({name, text});
}

void RunKeeper::add(const Iteration& iteration) {
    record_.iterations.push_back(iteration);
    write();
}

void RunKeeper::end(RunEnd end, const std::string& failure) {
    record_.end = end;
    record_.failure = failure;
    record_.ended = now();
    write();
}

void RunKeeper::write() {
    try {
        replaceFile(with_.files, path_, recordText(record_));
    } catch (const RuntimeFailure& failure) {
        if (std::exchange(told_, true)) return;
        with_.log.logEvent(std::string("The record of this run can't be kept: ") + failure.what(), true);
    }
}

}  // namespace gatehouse
