#include "servers/servers_room.h"

namespace gatehouse {

ServersRoom::ServersRoom(const Ground& ground, const Services& services, ModTable& mods, const TextField& ghcdir,
                         const TextField& q3pingwait)
    : lists(ground, ghcdir, iplist),
      addressForm(ground, services.clipboard),
      playersForm(ground, iplist),
      query({ground, services.socket, services.clock, iplist, numbers, mods, q3pingwait}),
      refresh({ground, services.datagrams, services.hostNames, services.clock, iplist, numbers, mods, q3pingwait}),
      commands({ground, services.clipboard, mods, ghcdir, iplist, lists, query, addressForm, playersForm}) {
    query.showPlayers = [this] { playersForm.showPlayers(); };
    has(addressForm.q3newip);
    has(playersForm.q3players);
    restores(query, refresh, addressForm, playersForm, commands, iplist);
}

}  // namespace gatehouse
