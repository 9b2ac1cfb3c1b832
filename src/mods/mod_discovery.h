#pragma once

#include "base/log.h"
#include "base/options.h"
#include "base/run_state.h"
#include "base/scan_view.h"
#include "mods/mod_table.h"
#include "platform/archives.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/pace.h"

#include <string>

namespace gatehouse {

/// Finds the mods: those with a definition file in `mods\` of the program folder, and the folders of the game that hold
/// game code, in an archive or loose.
class ModDiscovery {
public:
    ModDiscovery(const Ground& ground, Archives& archives, ModTable& mods)
        : files_(ground.files),
          archives_(archives),
          log_(ground.log),
          events_(ground.events),
          store_(ground.options),
          run_(ground.run),
          pace_(ground.pace),
          mods_(mods) {}

    /// Adds all mods to the table, with the scan's window on show. Fails when the game's folder can't be listed.
    void scanForMods();

    ScanView q3getmods{{"q3getmods", "modlabel", "modentry", "modprog"}, "Looking for Mods"};

private:
    void readDefinitions();
    void scanGameFolder(const FolderEntry& folder);
    void scanArchive(const FolderEntry& archive, const std::string& dir);
    void scanSubFolder(const FolderEntry& subFolder, const std::string& dir);
    bool holdsGameCode(const FolderEntry& archive);
    bool known(const std::string& dir) const;

    Files& files_;
    Archives& archives_;
    Log& log_;
    EventLoop& events_;
    Options& store_;
    RunState& run_;
    Pace& pace_;
    ModTable& mods_;
};

}  // namespace gatehouse
