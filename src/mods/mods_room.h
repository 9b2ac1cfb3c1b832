#pragma once

#include "base/room.h"
#include "mods/aliases.h"
#include "mods/mod_choice.h"
#include "mods/mod_discovery.h"
#include "mods/mod_table.h"
#include "platform/ground.h"
#include "platform/services.h"

namespace gatehouse {

/// The mods that are known, the choice of one, and the user's own scripts.
class ModsRoom : public Room {
public:
    ModsRoom(const Ground& ground, const Services& services, SettingsDocument& doc)
        : discovery(ground, services.archives, table), choice(table, doc, ground.run), aliases(ground, doc.bindlist) {
        has(discovery.q3getmods.q3scan);
        restores(table);
    }

    ModTable table;
    ModDiscovery discovery;
    ModChoice choice;
    AliasBook aliases;
};

}  // namespace gatehouse
