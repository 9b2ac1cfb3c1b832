#include "servers/server_entry.h"

#include <array>

namespace gatehouse {

namespace {

constexpr std::array<std::string ServerEntry::*, 8> kColumns = {
    &ServerEntry::Name, &ServerEntry::Ping, &ServerEntry::Players, &ServerEntry::Game,
    &ServerEntry::Mod,  &ServerEntry::Map,  &ServerEntry::Address, &ServerEntry::Password,
};

}  // namespace

const std::string& serverColumn(const ServerEntry& entry, int column) {
    if (column < 0 || column >= static_cast<int>(kColumns.size()))
        throw RuntimeFailure("Index out of bounds: server column " + std::to_string(column));
    return entry.*kColumns[static_cast<std::size_t>(column)];
}

}  // namespace gatehouse
