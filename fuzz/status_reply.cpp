// What a server answers to the status query: the row is right or bad, and the players are what can be read.

#include "fuzz.h"
#include "query_desk.h"
#include "servers/players_form.h"

#include <algorithm>

namespace {

using namespace gatehouse;

bool isOneLine(const std::string& text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::QueryDesk desk;
    desk.answer = fuzz::textOf(data, size);
    desk.iplist.append(newServer("127.0.0.1:27960", ""));
    desk.iplist.select(1);
    desk.query.QuerySelectedServers();
    const ServerEntry& row = desk.iplist.at(1);
    fuzz::require(desk.idle() && desk.flags.tbservers[3].get(), "the query has ended");
    fuzz::require(row.SmallIcon == "ok" || row.SmallIcon == "locked" || row.SmallIcon == "bad", "the row tells how");
    fuzz::require(row.SmallIcon == "bad" || row.StatusReply == desk.answer, "a good answer is kept");
    for (int column = 0; column < 8; ++column)
        fuzz::require(isOneLine(serverColumn(row, column)), "a column is one line");

    const auto listed = playersOf(desk.answer);
    if (!listed) return 0;
    fuzz::require(listed->players.size() <= desk.answer.size(), "there are no more players than lines");
    for (const PlayerRow& player : listed->players)
        for (int column = 0; column < 3; ++column)
            fuzz::require(isOneLine(playerColumn(player, column)), "a player is one line");
    return 0;
}
