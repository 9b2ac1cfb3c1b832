#pragma once

#include "base/observable.h"

#include <cstdint>
#include <string>

namespace gatehouse {

/// The modes of the tool: the one-based index of the side bar's group.
enum Mode : std::int16_t { kConnect = 1, kListen = 2, kDedicated = 3, kBenchmark = 4 };

/// The values of one run.
struct RunState {
    double LastTick = 0;  ///< milliseconds; tick count of the last logged line
    bool FirstRun = false;
    bool RunErrors = false;  ///< set by a run command that failed
    std::string RunFailure;  ///< why the last one failed
    bool SaveFailed = false;  ///< a list that was to be kept is not on the disk
    Observable<bool> ShowConsole{false};
    bool LogOpen = false;
    std::string AppDir;         ///< program folder, ends in a backslash
    std::string GameDir;        ///< game folder, ends in a backslash
    std::string VersionString;  ///< such as 00.03.03
    std::string CommandLine;    ///< lower-cased and trimmed
    std::string CurrentConfigPath;
    std::string CurrentServerList;
    bool ConfigChanged = false;
    bool ServerListChanged = false;
    /// The current group of the side bar as well: both are one value.
    Observable<std::int16_t> CurrentMode{kConnect};
    std::int16_t zoomLevel = 1;  ///< of the map preview, 1 to 3
    Observable<bool> hourglass{false};  ///< the pointer over the main window says that there is work going on
    /// A run of the benchmark is on: what it loads leaves mode, tab and commands alone.
    Observable<bool> benchmarking{false};
    /// The document in use came in by a benchmark; the option `lastcfg` still names the one before.
    bool configFromBenchmark = false;
    std::string LaunchCommand;
    /// Title of the main window: the document's path, in lower case, once one is loaded.
    Observable<std::string> title{std::string("Gatehouse: ")};

    /// Puts mode, title and the document's changed flag back to what they were before any document.
    void restoreDesign() {
        CurrentMode.set(kConnect);
        title.set("Gatehouse: ");
        ConfigChanged = false;
        configFromBenchmark = false;
    }
};

/// Shows the hourglass while it lives.
class Hourglass {
public:
    explicit Hourglass(RunState& run) : flag_(run.hourglass), before_(flag_.get()) { flag_.set(true); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { flag_.set(before_); }

private:
    Observable<bool>& flag_;
    bool before_;
};

}  // namespace gatehouse
