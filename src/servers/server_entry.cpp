#include "servers/server_entry.h"

#include <array>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::array<std::string ServerEntry::*, 8> kColumns = {
    &ServerEntry::Name, &ServerEntry::Ping, &ServerEntry::Players, &ServerEntry::Game,
    &ServerEntry::Mod,  &ServerEntry::Map,  &ServerEntry::Address, &ServerEntry::Password,
};

}  // namespace

ServerEntry newServer(std::string address, std::string password) {
    ServerEntry entry;
    entry.Name = "Unknown";
    entry.Ping = "9999";
    for (const auto column : {&ServerEntry::Players, &ServerEntry::Game, &ServerEntry::Mod, &ServerEntry::Map})
        entry.*column = "?";
    entry.Address = std::move(address);
    entry.Password = std::move(password);
    return entry;
}

const std::string& serverColumn(const ServerEntry& entry, int column) {
    if (column < 0 || column >= static_cast<int>(kColumns.size()))
        throw RuntimeFailure("Index out of bounds: server column " + std::to_string(column));
    return entry.*kColumns[static_cast<std::size_t>(column)];
}

}  // namespace gatehouse
