// A list of servers: what is read, written and read again is the same.

#include "server_desk.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

using namespace gatehouse;

constexpr SortState kByPing = {.sorted = true, .key = kPingColumn, .descending = false};
constexpr std::array kWrittenColumns = {&ServerEntry::Name,    &ServerEntry::Ping, &ServerEntry::Players,
                                        &ServerEntry::Game,    &ServerEntry::Map,  &ServerEntry::Address,
                                        &ServerEntry::Password};

/// False for a name that, without its outer blanks, starts a comment or ends early.
bool canBeWritten(const ServerEntry& row) {
    const std::string name = trim(row.Name);
    return !startsWith(name, "//") && findNoCase(name + "|P|", "|P|") == static_cast<long>(name.size()) + 1;
}

/// Fills `carried` with the rows as a file carries them: without the outer blanks of their columns, by ping.
void carry(const ServerTable& rows, ServerTable& carried) {
    for (ServerEntry row : rows.rows()) {
        for (const auto column : kWrittenColumns) row.*column = trim(row.*column);
        row.Ping = padLeft(row.Ping, 4);
        carried.append(std::move(row));
    }
    carried.setSortState(kByPing);
    carried.sort(serverColumn);
}

bool canAllBeWritten(const ServerTable& rows) {
    const auto all = rows.rows();
    return std::all_of(all.begin(), all.end(), canBeWritten);
}

std::vector<std::string> texts(const ServerTable& rows) {
    std::vector<std::string> all;
    for (int position = 1; position <= rows.count(); ++position)
        for (int column = 0; column < fuzz::kServerColumns; ++column)
            all.push_back(serverColumn(rows.at(position), column));
    return all;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ServerDesk first;
    first.load(fuzz::textOf(data, size));
    fuzz::ServerDesk second;
    second.load(first.save());
    if (canAllBeWritten(first.iplist)) {
        ServerTable carried;
        carry(first.iplist, carried);
        fuzz::require(texts(second.iplist) == texts(carried), "all servers come back");
    }
    fuzz::require(!second.run.ServerListChanged, "a list that was just read is unchanged");
    return 0;
}
