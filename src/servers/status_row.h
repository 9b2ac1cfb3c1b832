#pragma once

#include "servers/server_entry.h"

#include <array>
#include <string>

namespace gatehouse {

/// What a status reply says of a server, in the form of the table's columns.
struct StatusRow {
    std::string name, players, game, mod, map;
    std::string playerCount;
    std::string reply;  ///< the whole of it
};

/// The row of a reply; `gameTypes` are the labels of the mod that is selected here. `gameType` gets the number that the
/// reply gives for it as soon as that is read. Fails for a reply that lacks a value, or that doesn't fit the columns.
StatusRow readStatus(const std::string& reply, const std::array<std::string, 10>& gameTypes, double& gameType);

/// Writes a row, with a ping in milliseconds. Fails for a ping of more than four digits, with the name written, and for a
/// reply that ends with the number of private places, with all but the picture written.
void writeStatus(ServerEntry& server, const StatusRow& row, const std::string& ping);

}  // namespace gatehouse
