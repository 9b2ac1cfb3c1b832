#pragma once

#include "base/observable.h"
#include "servers/server_entry.h"

#include <functional>

namespace gatehouse {

class Favourites;
class TableView;

/// What a list of servers shows and does. All of it must outlive the view.
struct ServerListParts {
    ServerTable& servers;
    const Favourites& favourites;
    /// Whether the passwords can be read; null for a list that has none.
    Observable<bool>* passwordsShown = nullptr;
    /// A click on the header of a column, from 0.
    std::function<void(int)> columnClicked;
};

/// A list of servers: the columns of a row and two of its own. They can be moved, and hidden by the menu of the header,
/// which also has the orders by number.
TableView* makeServerList(const ServerListParts& parts);
/// Puts the menus of the header at the end of the list's own menu, where the keyboard reaches them.
void addHeaderMenus(TableView& view);

}  // namespace gatehouse
