#pragma once

#include "base/room.h"
#include "launch/filesout.h"
#include "launch/run_command.h"
#include "platform/ground.h"
#include "platform/services.h"

namespace gatehouse {

/// The road from the document to a running game.
class LaunchRoom : public Room {
public:
    /// What the game is started from.
    struct Sources {
        const SettingsDocument& doc;
        const ModTable& mods;
        const DocumentHost& host;
        AliasBook& aliases;
        const ServerTable& iplist;
        const ListField& q3runoptions;
        const TextField& extracmdline;
        const TextField& q3FilePath;
    };

    LaunchRoom(const Ground& ground, const Services& services, const Sources& from)
        : gameConfig({from.doc, from.mods, from.host, from.aliases, services.random, ground.log}),
          command({ground, services.processes, from.doc, from.mods, from.iplist, from.q3runoptions, from.extracmdline,
                   from.q3FilePath, gameConfig}) {}

    GameConfig gameConfig;
    RunCommand command;
};

}  // namespace gatehouse
