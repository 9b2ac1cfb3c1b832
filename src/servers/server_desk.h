#pragma once

#include "base/observable.h"
#include "base/signal.h"
#include "platform/clipboard.h"
#include "platform/event_loop.h"
#include "platform/ground.h"
#include "servers/favourites.h"
#include "servers/refresh.h"
#include "servers/server_commands.h"
#include "servers/server_entry.h"
#include "servers/server_filter.h"
#include "servers/server_undo.h"
#include "servers/status_query.h"

#include <memory>
#include <string>
#include <vector>

namespace gatehouse {

/// The everyday commands on the server list, beside those of its tool bar: refresh, join, addresses and the clipboard,
/// favourites, further orders; and the totals, which agree with the rows at all times.
class ServerDesk {
public:
    struct Parts : Ground {
        Clipboard& clipboard;
        ServerTable& iplist;
        Refresh& refresh;
        ServerFilter& filter;
        Favourites& favourites;
        ServerUndo& undo;
        ServerCommands& commands;
        StatusQuery& query;
    };
    explicit ServerDesk(const Parts& parts);

    /// Whether there are rows, selected rows, and a current row.
    Observable<bool> hasRows{false}, hasSelected{false}, hasCurrent{false};
    /// The passwords in the list can be read.
    Observable<bool> passwordsShown{false};
    /// The game is to be started with the current server.
    Signal<> joinWanted;
    /// The tab of the servers is to come to the front.
    Signal<> tabWanted;

    void refreshAll();
    void refreshSelected();
    void stop() { parts_.refresh.stop(); }
    void join();
    void edit() { parts_.commands.iplist_DblClick(); }
    /// The addresses of the selected servers, a line each.
    void copyAddresses();
    /// Adds the addresses that stand in the clipboard's text and not yet in the list, and selects all of them.
    void pasteAddresses();
    /// Adds servers; those of an address that is there already are left out. Returns how many were added.
    int add(const std::string& name, const std::vector<ServerEntry>& servers);
    /// Marks the selected servers as favourites; if all of them are, they are no more.
    void toggleFavourite();
    void showPasswords() { passwordsShown.set(!passwordsShown.get()); }

    void restoreDesign();

private:
    void listChanged();
    void tellTotals();
    void selectAddresses(const std::vector<std::string>& addresses);

    Parts parts_;
    std::unique_ptr<Timer> soon_;  ///< a list of thousands tells of each of its rows
    Connections follow_;
};

}  // namespace gatehouse
