#include "servers/status_row.h"

#include "base/numbers.h"
#include "base/text.h"
#include "servers/status_reply.h"

#include <cmath>

namespace gatehouse {

namespace {

constexpr std::size_t kPingWidth = 4;
constexpr std::size_t kPlayersWidth = 5;
constexpr std::string_view kUnknownGame = "???";

std::string gameText(double gameType, const std::array<std::string, 10>& gameTypes) {
    if (!(gameType >= 0 && gameType < static_cast<double>(gameTypes.size()))) return std::string(kUnknownGame);
    const std::string& label = gameTypes.at(static_cast<std::size_t>(std::nearbyint(gameType)));
    return trim(label).empty() ? std::string(kUnknownGame) : label;
}

}  // namespace

StatusRow readStatus(const std::string& reply, const std::array<std::string, 10>& gameTypes, double& gameType) {
    StatusRow row;
    row.mod = oneLine(FindCvar("fs_game", reply));
    row.name = oneLine(FindCvar("sv_hostname", reply));
    row.playerCount = std::to_string(gatehouse::playerCount(reply));
    row.players = padLeft(row.playerCount + "/" + oneLine(FindCvar("sv_maxclients", reply)), kPlayersWidth);
    gameType = val(FindCvar("g_gametype", reply));
    row.game = gameText(gameType, gameTypes);
    row.map = upper(oneLine(FindCvar("mapname", reply)));
    row.reply = reply;
    return row;
}

void writeStatus(ServerEntry& server, const StatusRow& row, const std::string& ping) {
    server.Name = row.name;
    server.Ping = padLeft(ping, kPingWidth);
    server.Players = row.players;
    server.Game = row.game;
    server.Mod = row.mod;
    server.Map = row.map;
    server.StatusReply = row.reply;
    server.PlayerCount = row.playerCount;
    server.SilentSince.clear();
    server.SmallIcon = FindCvar("sv_privateclients", row.reply) == "1" ? "locked" : "ok";
}

}  // namespace gatehouse
