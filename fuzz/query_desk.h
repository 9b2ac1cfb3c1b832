#pragma once

#include "servers/status_query.h"

#include "support/core/fakes.h"

#include <string>
#include <utility>

namespace gatehouse::fuzz {

/// A list of servers with all that asks them; each request is answered by `answer`, as long as there is one.
struct QueryDesk {
    QueryDesk() {
        world.files.addFolder("C:\\gh");
        ModEntry mod;
        mod.gtype[0] = "Free For All";
        mods.add(mod);
        mods.setCurrentMod(1);
        world.socket.onSend = [this] {
            world.events.pending.push_back([this] {
                // A server that answers is asked again for as long as it is selected.
                iplist.selectNone();
                if (!answer.empty()) world.socket.deliver(answer);
            });
        };
    }
    bool idle() const { return query.QueryRow == 0 && !world.socket.open; }

    fake::World world;
    CommandFlags flags;
    FieldGroup group{"options"};
    TextField q3pingwait{group, {.name = "q3pingwait"}, "3"};
    ModTable mods;
    ServerTable iplist;
    bool listChanged = false;
    std::string answer;
    StatusQuery query{{world.socket, world.events, world.clock, world.files, world.dialogs, world.log, flags, iplist,
                       mods, q3pingwait, listChanged}};
};

}  // namespace gatehouse::fuzz
