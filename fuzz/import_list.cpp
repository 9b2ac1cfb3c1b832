// An exported list of servers: whatever it holds, the rows are servers that were asked, and the user is told how many.

#include "fuzz.h"
#include "query_desk.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gatehouse;
    fuzz::QueryDesk desk;
    // The first byte tells how many of the first sends fail; the silence of the others costs no time.
    desk.world.socket.failingSends = size > 0 ? data[0] % 4 : 0;
    desk.world.files.put("C:\\gh\\gamespy.txt", size > 0 ? fuzz::textOf(data + 1, size - 1) : "");
    desk.world.dialogs.answer("Server List Import", Answer::Ok);
    desk.query.ImportGameSpyList("C:\\gh\\gamespy.txt");
    fuzz::require(desk.idle() && desk.listChanged, "the import has ended");
    fuzz::require(desk.flags.tbservers[3].get() != desk.iplist.empty(), "rows can be asked");
    for (int row = 1; row <= desk.iplist.count(); ++row) {
        const ServerEntry& server = desk.iplist.at(row);
        fuzz::require(server.SmallIcon == "bad", "a server that never answered is a dead one");
        fuzz::require(server.Address.find(':') != std::string::npos, "an address has a port, be it empty");
    }
    return 0;
}
