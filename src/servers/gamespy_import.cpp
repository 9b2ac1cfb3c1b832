#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "servers/status_query.h"
#include "servers/status_reply.h"

namespace gatehouse {

namespace {

/// "host:port" out of the third and the fourth field of an exported line, each closed by a "|". Fails where they are
/// not there.
std::string exportedAddress(const std::string& line) {
    long start = 0;
    long end = 0;
    std::string address;
    for (int field = 1; field <= 4; ++field) {
        start = end + 1;
        end = find(line, "|", start);
        const std::string text = mid(line, start, end - start);
        if (field == 3) address = text + ":";
        if (field == 4) address += text;
    }
    return address;
}

}  // namespace

void StatusQuery::ImportGameSpyList(const std::string& path) {
    parts_.log.logEvent("Importing gamespy.txt server list");
    parts_.log.logEvent("Opening " + path);
    const auto file = parts_.files.openText(path);
    parts_.log.logEvent("Opened OK");
    std::int16_t total = 0;
    std::int16_t dead = 0;
    for (std::string line; file->readLine(line);) {
        try {
            const int row = parts_.iplist.append(newServer(oneLine(exportedAddress(line)), ""));
            setPicture(row, "bad");  // and bad it stays without an answer
            waitForTurn(row);
            const int asked = askAndWait(static_cast<std::int16_t>(row));
            total = addInt16(total, 1);
            if (asked == 0 || parts_.iplist.at(asked).SmallIcon == "bad") dead = addInt16(dead, 1);
        } catch (const RuntimeFailure&) {
            QueryRow = 0;  // the line is passed over
        }
    }
    parts_.log.logEvent("Imported " + std::to_string(total) + " server OK");
    parts_.dialogs.show({.title = "Server List Import",
                         .text = "Import Results:\r\n\r\nTotal Servers: " + std::to_string(total) +
                                 "\r\nDead Servers: " + std::to_string(dead),
                         .icon = Icon::Information,
                         .safeAnswer = Answer::Ok});
    parts_.run.ServerListChanged = true;
    if (parts_.iplist.empty()) return;
    for (const std::size_t button : {2, 3, 4}) parts_.flags.tbservers[button].set(true);
}

}  // namespace gatehouse
