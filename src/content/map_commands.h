#pragma once

#include "base/log.h"
#include "base/signal.h"
#include "content/left_out.h"
#include "content/map_catalog.h"
#include "content/map_scan.h"
#include "content/pak_maps_form.h"
#include "platform/archives.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/ground.h"

#include <string>

namespace gatehouse {

/// The commands of the tool bar `mtool3` on the catalog of maps: scan, add and delete.
class MapCommands {
public:
    MapCommands(const Ground& ground, Archives& archives, MapCatalog& maps, MapScan& scan)
        : pakMaps(ground),
          files_(ground.files),
          dialogs_(ground.dialogs),
          log_(ground.log),
          run_(ground.run),
          archives_(archives),
          maps_(maps),
          scan_(scan),
          leftOut_(ground.log, ground.dialogs) {}

    PakMapsForm pakMaps;
    /// The tree asks for the input focus.
    Signal<> focusWanted;

    /// Asks, saves the user maps, scans, and loads the catalog anew. That takes the marks of the rotation off.
    void scanForMaps();
    /// Adds a map that the user chooses, from a `.bsp` file or out of an archive.
    void addMap();
    /// Deletes the selected user map, unless it is in the rotation.
    void deleteMap();

private:
    void addFile(const std::string& path, const std::string& startFolder);
    void addFromArchive(const std::string& path);
    void addEntry(Archive& archive, const std::string& path, const PakMap& map);
    /// The node's text.
    std::string addNode(const std::string& name, const std::string& description);
    void refuse(const std::string& reason);

    Files& files_;
    Dialogs& dialogs_;
    Log& log_;
    RunState& run_;
    Archives& archives_;
    MapCatalog& maps_;
    MapScan& scan_;
    LeftOut leftOut_;
};

}  // namespace gatehouse
