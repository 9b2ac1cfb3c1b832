#include "launch/filesout.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "config/bots.h"
#include "launch/filesout_lines.h"

#include <array>
#include <cstdint>

namespace gatehouse {

namespace {

using Doc = SettingsDocument;

struct ServerLine {
    std::string_view name;
    VariableForm form;
};

/// The number kept with the game type; no line where the mod offers none.
VariableText gameType(const Doc& doc, const DocumentHost&) {
    if (doc.q3gametype.index() < 0) return std::nullopt;
    return std::to_string(doc.q3gametype.data());
}

template <auto Switch, auto Password>
VariableText password(const Doc& doc, const DocumentHost&) {
    if ((doc.*Switch).value() != 1) return std::nullopt;
    return (doc.*Password).text();
}

constexpr ServerLine kServerLines[] = {
    {"seta g_gametype", gameType},
    {"sv_hostname", asItStands<&Doc::q3hostname>},
    {"sv_maxrate", asItStands<&Doc::q3caprate>},
    {"sv_maxclients", asItStands<&Doc::q3playerlimit>},
    {"sv_privatepassword", password<&Doc::q3usepass, &Doc::q3serverpass>},
    {"rconpassword", password<&Doc::q3userconpass, &Doc::q3rconpass>},
    {"sv_pure", asItStands<&Doc::q3pure>},
    {"sv_maxping", asItStands<&Doc::sv_maxping>},
    {"sv_minping", asItStands<&Doc::sv_minping>},
    {"sv_allowdownload", asItStands<&Doc::sv_allowdownload>},
    {"bot_nochat", asItStands<&Doc::q3bot_nochat>},
    {"bot_rocketjump", asItStands<&Doc::q3botrjump>},
    {"bot_fastchat", asItStands<&Doc::q3botfastchat>},
    {"bot_minplayers", asItStands<&Doc::q3minplayers>},
    {"seta g_motd", asItStands<&Doc::q3motd>},
    {"g_warmup", asItStands<&Doc::warmup>},
    {"seta g_quadfactor", asItStands<&Doc::q3quadfactor>},
    {"seta g_syncronousclients", asItStands<&Doc::q3clientsync>},
    {"seta g_dowarmup", asItStands<&Doc::dowarmup>},
    {"seta g_teamautojoin", asItStands<&Doc::autojoin>},
    {"seta g_teamforcebalance", asItStands<&Doc::forcebalance>},
    {"seta g_allowvote", asItStands<&Doc::q3allowvote>},
    {"ui_ffa_fraglimit", asItStands<&Doc::ui_ffa_fraglimit>},
    {"ui_ffa_timelimit", asItStands<&Doc::ui_ffa_timelimit>},
    {"ui_tourney_fraglimit", asItStands<&Doc::ui_tourney_fraglimit>},
    {"ui_tourney_timelimit", asItStands<&Doc::ui_tourney_timelimit>},
    {"ui_team_fraglimit", asItStands<&Doc::ui_team_fraglimit>},
    {"ui_team_timelimit", asItStands<&Doc::ui_team_timelimit>},
    {"ui_team_friendly", asItStands<&Doc::ui_team_friendly>},
    {"ui_ctf_capturelimit", asItStands<&Doc::ui_ctf_capturelimit>},
    {"ui_ctf_timelimit", asItStands<&Doc::ui_ctf_timelimit>},
    {"ui_ctf_friendly", asItStands<&Doc::ui_ctf_friendly>},
};

/// The limits of a game type; one that the type does not know is "0".
struct LimitFields {
    NumberField Doc::*fraglimit;
    NumberField Doc::*timelimit;
    NumberField Doc::*capturelimit;
};

/// By position in the list of game types; a mod's further types have no limits.
constexpr std::array<LimitFields, 4> kLimitFields{{
    {&Doc::ui_ffa_fraglimit, &Doc::ui_ffa_timelimit, nullptr},
    {&Doc::ui_tourney_fraglimit, &Doc::ui_tourney_timelimit, nullptr},
    {&Doc::ui_team_fraglimit, &Doc::ui_team_timelimit, nullptr},
    {nullptr, &Doc::ui_ctf_timelimit, &Doc::ui_ctf_capturelimit},
}};

constexpr int kFirstTeamGame = 2;

bool isTeamGame(const Doc& doc) { return doc.q3gametype.index() >= kFirstTeamGame; }

}  // namespace

void GameConfig::WriteServerVars() {
    writeTitle("Server Variables:");
    for (const ServerLine& line : kServerLines)
        if (const VariableText value = line.form(from_.doc, from_.host)) writeVariable(*CfgStream_, line.name, *value);
    writeLimits();
    writeModBlock(&ModOption::server);

    writeTitle("Map Rotation");
    from_.log.logEvent("->Wrote Server CFG Vars OK");
    writeRotation();
    from_.log.logEvent("->Wrote map rotation OK");

    writeTitle("Bot creation");
    writeBots();
    from_.log.logEvent("->Wrote bot config OK");
}

void GameConfig::writeLimits() {
    const auto position = static_cast<std::size_t>(from_.doc.q3gametype.index());
    if (position >= kLimitFields.size()) return;
    const LimitFields& fields = kLimitFields[position];
    const auto text = [this](NumberField Doc::*field) { return field ? (from_.doc.*field).valueText() : "0"; };
    writeVariable(*CfgStream_, "fraglimit", text(fields.fraglimit));
    writeVariable(*CfgStream_, "timelimit", text(fields.timelimit));
    writeVariable(*CfgStream_, "capturelimit", text(fields.capturelimit));
}

void GameConfig::writeRotation() {
    const Rotation& maplist = from_.doc.maplist;
    const int count = maplist.count();
    if (count == 0) throw RuntimeFailure("Index out of bounds: the map rotation is empty");
    const auto mapName = [&maplist](int position) { return trim(maplist.at(position).name); };
    if (count == 1) {
        // One map alone is never started with cheats. That is meant.
        writeLine("map " + mapName(1));
        return;
    }
    const std::string command = from_.doc.q3cheats.value() == 1 ? "devmap " : "map ";
    for (int position = 1; position <= count; ++position) {
        const int next = position < count ? position + 1 : 1;
        writeLine("seta map" + std::to_string(position) + " " +
                  quoted(command + mapName(position) + "; set nextmap vstr map" + std::to_string(next)));
    }
    writeLine("vstr map1");
}

void GameConfig::writeBots() {
    if (from_.doc.q3randbots.value() == 1) {
        writeRandomBots();
        return;
    }
    const BotTable& bots = from_.doc.q3botlist;
    for (int position = 1; position <= bots.count(); ++position) {
        const BotEntry& bot = bots.at(position);
        writeLine("addbot " + bot.name + " " + bot.skill + " " + bot.team);
    }
}

void GameConfig::writeRandomBots() {
    const int count = strictInt16(from_.doc.q3randnum);
    for (int i = 1; i <= count; ++i) {
        const auto drawn = static_cast<std::size_t>(from_.random.next() * static_cast<double>(kBotNames.size()));
        std::string line = "addbot " + std::string(kBotNames[drawn]) + " " + from_.doc.q3randskill.text();
        if (isTeamGame(from_.doc)) line += 2 * i <= count ? " red" : " blue";
        writeLine(line);
    }
}

}  // namespace gatehouse
