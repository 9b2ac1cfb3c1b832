#pragma once

#include "base/room.h"
#include "config/settings_document.h"
#include "content/map_catalog.h"
#include "content/model_catalog.h"
#include "platform/ground.h"

#include <string>

namespace gatehouse {

/// What the game has: maps and models.
class ContentRoom : public Room {
public:
    ContentRoom(const Ground& ground, SettingsDocument& doc) : maps(ground), models(ground), doc_(doc) {
        restores(maps.maptree, models.mdltree);
    }

    MapCatalog maps;
    ModelCatalog models;

    /// Selects the model of that path, in any case, and shows the choice; nothing happens if there is none.
    void selectModel(const std::string& path);

private:
    SettingsDocument& doc_;
};

}  // namespace gatehouse
