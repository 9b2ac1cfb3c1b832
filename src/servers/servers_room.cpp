#include "servers/servers_room.h"

namespace gatehouse {

ServersRoom::ServersRoom(const Ground& ground, const Services& services, ModTable& mods, const TextField& ghcdir,
                         const TextField& q3pingwait)
    : lists(ground, ghcdir, iplist),
      favourites(ground),
      undo(ground, iplist, numbers, favourites),
      filter("serverfilter", iplist, favourites),
      addressForm(ground, services.clipboard),
      playersForm(ground, iplist, numbers),
      query({ground, services.socket, services.clock, iplist, numbers, mods, q3pingwait}),
      socket_(services.network.makeSocket()),
      playersSocket_(services.network.makeSocket()),
      refresh({ground, *socket_, services.hostNames, services.clock, iplist, numbers, mods, q3pingwait}),
      commands({ground, services.clipboard, mods, ghcdir, iplist, lists, query, addressForm, playersForm, undo}),
      desk({ground, services.clipboard, iplist, refresh, filter, favourites, undo, commands, query}),
      search({ground, services.network, services.hostNames, services.clock, services.random, mods, q3pingwait,
              favourites, desk}),
      playersRefresh_({ground, *playersSocket_, services.hostNames, services.clock, iplist, numbers, mods, q3pingwait}) {
    query.showPlayers = [this] { playersForm.showPlayers(); };
    playersForm.askAgain = [this](int row) {
        if (!playersRefresh_.running.get()) playersRefresh_.refreshToo(row);
    };
    follow_.on(lists.loaded, [this] {
        undo.journal.forget();
        filter.apply();
    });
    has(addressForm.q3newip);
    has(playersForm.q3players);
    has(search.q3find);
    restores(query, refresh, playersRefresh_, addressForm, playersForm, search, commands, filter, desk, iplist);
}

}  // namespace gatehouse
