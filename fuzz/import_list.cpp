// An exported list of servers: each line with four bars makes a row, each row is asked once, and the saved list holds
// them all.

#include "server_desk.h"

#include <algorithm>
#include <climits>

namespace {

using namespace gatehouse;

const std::string kExport = "C:\\gamespy.txt";
const std::string kOldServer = "old:11111";
constexpr std::size_t kShortestAsked = 6;

/// The addresses that the lines of an export tell.
std::vector<std::string> addressesIn(const std::string& text) {
    std::vector<std::string> all;
    fake::MemoryFiles files;
    files.put(kExport, text);
    const auto reader = files.openText(kExport);
    for (std::string line; reader->readLine(line);) {
        std::vector<std::string> parts(1);
        for (const char c : line) {
            if (c == '|')
                parts.emplace_back();
            else
                parts.back() += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
        if (parts.size() > 4) all.push_back(parts[2] + ":" + parts[3]);
    }
    return all;
}

std::vector<std::string> addressesOf(const ServerTable& iplist) {
    std::vector<std::string> all;
    for (const ServerEntry& row : iplist.rows()) all.push_back(row.Address);
    return all;
}

/// Imports the file where no server answers: each of them is dead.
void import(const std::string& text, int failingSends) {
    fuzz::ServerDesk desk;
    desk.world.files.put(kExport, text);
    desk.world.socket.failingSends = failingSends;
    desk.iplist.append(newServer(kOldServer, "secret"));
    desk.query.ImportGameSpyList(kExport);

    std::vector<std::string> expected = addressesIn(text);
    const auto asked = std::to_string(std::count_if(
        expected.begin(), expected.end(), [](const std::string& address) { return address.size() >= kShortestAsked; }));
    expected.insert(expected.begin(), kOldServer);
    fuzz::require(addressesOf(desk.iplist) == expected, "each line with four bars makes a row");
    for (int position = 2; position <= desk.iplist.count(); ++position)
        fuzz::require(desk.iplist.at(position).SmallIcon == "bad", "a server that is silent is bad");
    fuzz::require(desk.world.dialogs.shown.size() == 1 &&
                      desk.world.dialogs.shown[0].text ==
                          "Import Results:\r\n\r\nTotal Servers: " + asked + "\r\nDead Servers: " + asked,
                  "the servers that were asked are counted, and dead");
    fuzz::require(failingSends > 0 || std::to_string(desk.world.socket.sent.size()) == asked, "each is asked once");
    fuzz::require(desk.run.ServerListChanged && desk.flags.tbservers[2].get(), "the list is one to be saved");
    fuzz::require(desk.staysIdle(), "an import ends idle");

    fuzz::requireOneLineEach(desk);
    fuzz::ServerDesk another;
    another.load(desk.save());
    for (std::string& address : expected) address = trim(address);
    fuzz::require(addressesOf(another.iplist) == expected, "a saved list comes back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    import(text, 0);
    import(text, INT_MAX);
    return 0;
}
