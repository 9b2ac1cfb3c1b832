#pragma once

#include "servers/favourites.h"
#include "servers/server_entry.h"

#include <span>
#include <string>
#include <string_view>

namespace gatehouse {

/// An order of the server table beside that of a column's texts: by its numbers, or by what is no text. The sort state of
/// the table holds its key.
struct ServerOrder {
    std::string_view name;
    int key;     ///< beyond all columns
    int column;  ///< the column of the view that it orders by
};

// What a view shows beside the columns of `serverColumn`.
inline constexpr int kTextColumns = 8;
inline constexpr int kFavouriteColumn = kTextColumns;
inline constexpr int kSilentColumn = kTextColumns + 1;

std::span<const ServerOrder> serverOrders();
/// The column of the view by which a sort state orders, be it a column's text or one of `serverOrders`.
int orderColumn(const SortState& state);
/// What the rows are compared by under a key of `serverOrders`. What has no number comes last, as do those that are no
/// favourites, or answer.
std::string serverOrderKey(const ServerEntry& server, int key, const Favourites& favourites);
/// Orders the rows by a column's text or by one of `serverOrders`; a second time the other way round.
void orderServers(ServerTable& servers, int key, const Favourites& favourites);

}  // namespace gatehouse
