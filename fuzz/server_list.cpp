// A list of servers: what is read, written and read again is the same.

#include "servers/filesmisc.h"

#include "base/text.h"
#include "fuzz.h"
#include "support/core/fakes.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

using namespace gatehouse;

constexpr int kColumns = 8;
constexpr SortState kByPing = {.sorted = true, .key = kPingColumn, .descending = false};
const std::string kList = "mine.ghs";
const std::string kPath = "C:\\gh\\" + kList;
constexpr std::array kWrittenColumns = {&ServerEntry::Name,    &ServerEntry::Ping, &ServerEntry::Players,
                                        &ServerEntry::Game,    &ServerEntry::Map,  &ServerEntry::Address,
                                        &ServerEntry::Password};

struct Desk {
    explicit Desk(const std::string& text) {
        ghcdir.setText("C:\\gh\\");
        world.files.put(kPath, text);
        std::string name = kList;
        lists.LoadServerList(name);
    }
    std::string save() {
        lists.SaveServerList(kList);
        return world.files.content(kPath);
    }

    fake::World world;
    RunState run;
    CommandFlags flags;
    FieldGroup group{"options"};
    TextField ghcdir{group, {.name = "ghcdir"}};
    ServerTable iplist;
    ServerLists lists{world.files, world.log, run, flags, ghcdir, iplist};
};

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
        for (int column = 0; column < kColumns; ++column) all.push_back(serverColumn(rows.at(position), column));
    return all;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Desk first(fuzz::textOf(data, size));
    Desk second(first.save());
    if (canAllBeWritten(first.iplist)) {
        ServerTable carried;
        carry(first.iplist, carried);
        fuzz::require(texts(second.iplist) == texts(carried), "all servers come back");
    }
    fuzz::require(!second.run.ServerListChanged, "a list that was just read is unchanged");
    return 0;
}
