// The answer of a server: any bytes fill the row or mark it bad, and the query is over. The players of the same answer
// are listed up to the first line that is none.

#include "base/numbers.h"
#include "server_desk.h"
#include "servers/players_form.h"
#include "servers/status_reply.h"

#include <algorithm>

namespace {

using namespace gatehouse;

const std::string kAddress = "1.2.3.4:27960";
const std::string kNewServer = "Unknown 9999 ? ? ? ?";
const std::string kUnknownGame = "???";

struct Desk : fuzz::ServerDesk {
    explicit Desk(int rows) {
        ModEntry mod;
        mod.gtype = {"Free For All", "", "Tourney", " ", "CTF"};
        mods.add(mod);
        mods.setCurrentMod(1);
        for (int row = 0; row < rows; ++row) iplist.append(newServer(kAddress, ""));
    }
    void answer(const std::string& reply) {
        world.clock.ticks += 35;
        world.socket.deliver(reply);
    }
    bool knowsGame(const std::string& text) const {
        const auto& labels = mods.current().gtype;
        return text == kUnknownGame ||
               (!trim(text).empty() && std::find(labels.begin(), labels.end(), text) != labels.end());
    }
};

bool isFilled(const Desk& desk, const ServerEntry& row, const std::string& reply) {
    return row.StatusReply == reply && row.Ping == "  35" && row.Players.size() == 5 &&
           row.Players.find(row.PlayerCount + "/") != std::string::npos && desk.knowsGame(row.Game) &&
           row.Map == upper(row.Map) && row.Address == kAddress && row.Password.empty();
}

bool isAsBefore(const ServerEntry& row) {
    return row.StatusReply.empty() && row.PlayerCount.empty() && row.Address == kAddress &&
           row.Name + " " + row.Ping + " " + row.Players + " " + row.Game + " " + row.Mod + " " + row.Map == kNewServer;
}

/// Ends the process unless the row is one that this answer may leave behind.
void requireOutcome(const Desk& desk, int position, const std::string& reply) {
    const ServerEntry& row = desk.iplist.at(position);
    const bool filled = isFilled(desk, row, reply);
    if (row.SmallIcon != "bad") {
        fuzz::require(row.SmallIcon == "ok" || row.SmallIcon == "locked", "a row has the picture of an answer");
        return fuzz::require(filled, "a good answer fills the row");
    }
    fuzz::require(filled || isAsBefore(row), "a bad answer fills the row or leaves it alone");
    fuzz::require(desk.world.log.has("!Bad Status returned from " + kAddress + "," + oneLine(reply.substr(0, 1024))),
                  "a bad answer is reported");
}

/// Ends the process unless the players are those of the lines behind the info string.
void requirePlayers(const std::string& reply) {
    const std::size_t header = reply.find('\n');
    const std::size_t info = header == std::string::npos ? header : reply.find('\n', header + 1);
    const auto found = playersOf(reply);
    fuzz::require(found.has_value() == (info != std::string::npos), "players stand behind the info string");
    if (!found) return;
    const std::size_t lines = splitLines(reply.substr(info + 1)).size();
    fuzz::require(found->broken ? found->players.size() < lines : found->players.size() == lines,
                  "each line is a player up to a broken one");
    for (const PlayerRow& player : found->players) {
        for (const std::string& text : {player.Name, player.Frags, player.Ping})
            fuzz::require(fuzz::isOneLine(text), "a player is one line");
        fuzz::require(player.Name.find('^') == std::string::npos, "a name has no colours");
        fuzz::require(player.Frags.size() == 5, "frags stand under each other");
    }
}

void askForPlayers(const std::string& reply) {
    Desk desk(1);
    PlayersForm form(desk.world.ground, desk.iplist, desk.numbers);
    int shown = 0;
    desk.query.showPlayers = [&] {
        desk.world.events.pending.push_back([&] {
            ++shown;
            form.plistclose_Click();
        });
        form.showPlayers();
    };
    desk.query.PlayersAfterReply = true;
    desk.query.QueryRow = 1;
    desk.query.ping_Server();
    desk.answer(reply);
    requireOutcome(desk, 1, reply);
    fuzz::require(desk.staysIdle(), "an answer ends the query");
    fuzz::require(desk.world.files.content("C:\\out.txt") == reply + "\r\n", "an answer is dumped as it came");
    fuzz::requireOneLineEach(desk);

    const auto found = playersOf(reply);
    const bool listed = found && desk.iplist.at(1).SmallIcon != "bad";
    fuzz::require(shown == listed, "a good answer shows its players");
    if (!listed) return;
    const auto rows = form.playerlist.rows();
    fuzz::require(rows.size() == found->players.size(), "all players are listed");
    fuzz::require(std::is_sorted(rows.begin(), rows.end(),
                                 [](const PlayerRow& a, const PlayerRow& b) { return a.Frags > b.Frags; }),
                  "players stand in the order of their frags");
    fuzz::require(fuzz::isOneLine(form.caption.get()), "a caption is one line");
}

/// The game type of an answer moves the walk: the third answer ends it.
void walk(const std::string& reply) {
    constexpr int kServers = 3;
    Desk desk(kServers);
    desk.iplist.selectWhere([](int) { return true; });
    int answers = 0;
    desk.world.socket.onSend = [&] {
        desk.world.events.pending.push_back([&] {
            if (++answers == kServers) desk.iplist.selectNone();
            desk.answer(reply);
        });
    };
    desk.query.QuerySelectedServers();
    fuzz::require(answers >= 1 && answers <= kServers && desk.staysIdle(), "a walk comes to its end");
    double players = 0;
    for (int position = 1; position <= kServers; ++position) {
        players += val(desk.iplist.at(position).PlayerCount);
        if (!desk.iplist.at(position).SmallIcon.empty()) requireOutcome(desk, position, reply);
    }
    fuzz::require(desk.query.iptotservers.text() == std::to_string(kServers), "all servers are counted");
    fuzz::require(val(desk.query.iptotplayers.text()) == players, "all players are counted");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string reply = fuzz::textOf(data, size);
    requirePlayers(reply);
    askForPlayers(reply);
    walk(reply);
    return 0;
}
