#pragma once

#include "base/room.h"
#include "base/signal.h"
#include "config/settings_document.h"
#include "content/map_catalog.h"
#include "content/map_commands.h"
#include "content/map_scan.h"
#include "content/model_catalog.h"
#include "content/model_scan.h"
#include "content/preview.h"
#include "platform/ground.h"
#include "platform/services.h"

#include <string>

namespace gatehouse {

/// What the game has: maps and models, the scans that find them, and pictures of them.
class ContentRoom : public Room {
public:
    /// `q3status` shows how far a search in a map is.
    ContentRoom(const Ground& ground, const Services& services, SettingsDocument& doc,
                Observable<std::string>& q3status);

    MapCatalog maps;
    ModelCatalog models;
    MapScan mapScan;
    ModelScan modelScan;
    MapCommands mapCommands;
    Preview preview;

    /// Selects the model of that path, in any case, and shows the choice; nothing happens if there is none.
    void selectModel(const std::string& path);

    // What a person does in the trees.
    void maptree_NodeClick() { preview.showMap(); }
    /// The selected node is the document's model.
    void mdltree_NodeClick();
    /// Asks, scans for models, and loads the catalog anew; the choice stays if it is still there.
    void ptool1_ButtonClick();

private:
    void showChoice();

    Dialogs& dialogs_;
    RunState& run_;
    SettingsDocument& doc_;
    Connections follow_;
};

}  // namespace gatehouse
