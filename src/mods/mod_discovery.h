#pragma once

#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "mods/mod_table.h"
#include "platform/archives.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "startup/option_store.h"

#include <string>

namespace gatehouse {

/// What the dialog `q3getmods` shows while mods are searched for.
struct ModScanView {
    Observable<bool> busy{false};      ///< the hourglass
    Observable<std::string> modlabel;  ///< the archive or folder being searched
    Observable<double> modprog{0};
    Observable<int> modprogMax{100};
};

/// Finds the mods: those with a definition file in `mods\` of the program folder, and the folders of the game that hold
/// game code, in an archive or loose.
class ModDiscovery {
public:
    ModDiscovery(Files& files, Archives& archives, Log& log, EventLoop& events, OptionStore& store, RunState& run,
                 ModTable& mods)
        : files_(files), archives_(archives), log_(log), events_(events), store_(store), run_(run), mods_(mods) {}

    /// Adds all mods to the table. Fails when the game's folder can't be listed.
    void scanForMods();

    ModScanView q3getmods;

private:
    void readDefinitions();
    void recoverGameDir();
    void scanGameFolder(const FolderEntry& folder);
    void scanArchive(const FolderEntry& archive, const std::string& dir);
    void scanSubFolder(const FolderEntry& subFolder, const std::string& dir);
    bool holdsGameCode(const FolderEntry& archive);
    bool known(const std::string& dir) const;

    Files& files_;
    Archives& archives_;
    Log& log_;
    EventLoop& events_;
    OptionStore& store_;
    RunState& run_;
    ModTable& mods_;
};

}  // namespace gatehouse
