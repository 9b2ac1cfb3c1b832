#pragma once

#include "base/table.h"

#include <cstdint>
#include <string>

namespace gatehouse {

/// One row of the server table. All columns are texts; those that sort as numbers are padded on the left.
struct ServerEntry {
    std::string Name;
    std::string Ping;     ///< milliseconds, right-aligned in four characters
    std::string Players;  ///< players and slots, right-aligned in five characters after a reply
    std::string Game;
    std::string Mod;
    std::string Map;
    std::string Address;  ///< host, ":" and port
    std::string Password;
    // Never written to a file:
    std::string SmallIcon;     ///< key of the state picture; empty for none
    std::string StatusReply;   ///< whole text of the last good reply
    std::string PlayerCount;   ///< players alone
    std::string SilentSince;   ///< when it was first not heard of; empty for one that answers
    bool hidden = false;       ///< a filter keeps it from being seen
    std::uint32_t number = 0;  ///< by which a status query finds the server again; 0 until it is asked
};

using ServerTable = Table<ServerEntry>;

/// A server that was never asked.
ServerEntry newServer(std::string address, std::string password);

inline constexpr int kPingColumn = 1;

/// The text of a column, from 0. Fails for a column that isn't there.
const std::string& serverColumn(const ServerEntry& entry, int column);

}  // namespace gatehouse
