#include "servers/server_order.h"

#include "base/numbers.h"
#include "base/text.h"
#include "servers/server_filter.h"

#include <algorithm>
#include <cmath>

namespace gatehouse {

namespace {

enum Key : int { kPingNumber = 100, kPlayersNumber, kFavouritesFirst, kSilentOrder };
constexpr int kDigits = 8;
constexpr double kMost = 9'999'999;
constexpr std::string_view kNoNumber = "~";  // behind all digits

constexpr ServerOrder kOrders[] = {{"Ping, as a Number", kPingNumber, kPingColumn},
                                   {"Players, as a Number", kPlayersNumber, 2},
                                   {"Favourites First", kFavouritesFirst, kFavouriteColumn},
                                   {"Silent Since", kSilentOrder, kSilentColumn}};

std::string numberKey(double number) {
    return zeroPadded(std::lround(std::clamp(number, 0.0, kMost)), kDigits);
}

}  // namespace

std::span<const ServerOrder> serverOrders() { return kOrders; }

int orderColumn(const SortState& state) {
    for (const ServerOrder& order : kOrders)
        if (order.key == state.key) return order.column;
    return state.key;
}

std::string serverOrderKey(const ServerEntry& server, int key, const Favourites& favourites) {
    switch (key) {
        case kPingNumber: return isNumeric(server.Ping) ? numberKey(val(server.Ping)) : std::string(kNoNumber);
        case kPlayersNumber: {
            const auto crowd = crowdOf(server);
            return crowd ? numberKey(crowd->players) + numberKey(crowd->places) : std::string(kNoNumber);
        }
        case kFavouritesFirst: return favourites.contains(server.Address) ? "0" : "1";
        case kSilentOrder: return server.SilentSince.empty() ? std::string(kNoNumber) : server.SilentSince;
        default: return key < kTextColumns ? serverColumn(server, key) : std::string();
    }
}

void orderServers(ServerTable& servers, int key, const Favourites& favourites) {
    const SortState& state = servers.sortState();
    const bool again = state.sorted && state.key == key && !state.descending;
    servers.setSortState({.sorted = true, .key = key, .descending = again});
    servers.sort([&](const ServerEntry& server, int by) { return serverOrderKey(server, by, favourites); });
}

}  // namespace gatehouse
