#pragma once

#include "base/room.h"
#include "platform/ground.h"
#include "platform/services.h"
#include "servers/address_form.h"
#include "servers/filesmisc.h"
#include "servers/players_form.h"
#include "servers/refresh.h"
#include "servers/server_commands.h"
#include "servers/favourites.h"
#include "servers/server_desk.h"
#include "servers/server_entry.h"
#include "servers/server_filter.h"
#include "servers/server_search.h"
#include "servers/server_undo.h"
#include "servers/status_query.h"

namespace gatehouse {

/// The server browser: the table, its files, the query and the commands with their dialogs.
class ServersRoom : public Room {
public:
    /// `ghcdir` holds the folder of the lists, `q3pingwait` the seconds that an answer may take.
    ServersRoom(const Ground& ground, const Services& services, ModTable& mods, const TextField& ghcdir,
                const TextField& q3pingwait);

    ServerTable iplist;
    ServerNumbers numbers{iplist};
    ServerLists lists;
    Favourites favourites;
    ServerUndo undo;
    ServerFilter filter;
    AddressForm addressForm;
    PlayersForm playersForm;
    StatusQuery query;

private:
    std::unique_ptr<Datagrams> socket_, playersSocket_;

public:
    Refresh refresh;
    ServerCommands commands;
    ServerDesk desk;
    ServerSearch search;

private:
    Refresh playersRefresh_;
    Connections follow_;
};

}  // namespace gatehouse
