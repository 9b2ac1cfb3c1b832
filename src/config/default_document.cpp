#include "config/default_document.h"

#include "base/text.h"
#include "config/bindings.h"
#include "config/document_text.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace gatehouse {

namespace {

struct Entry {
    std::string_view key;
    std::string_view value;
};

constexpr Entry kGame[] = {
    {"com_maxfps", "100"}, {"com_blood", "1"},     {"cl_run", "1"},
    {"cl_motd", "1"},      {"cl_mouseaccel", "0"}, {"m_filter", "0"},
};

constexpr Entry kPlayer[] = {
    {"sensitivity", "5"},        {"rate", "3000"}, {"snaps", "20"},     {"name", "Unnamed Player"},
    {"model", "Sarge\\Default"}, {"color", "4"},   {"handicap", "100"}, {"sex", "male"},
};

constexpr Entry kVideo[] = {
    {"r_allowextensions", "1"},
    {"r_gamma", "1.5"},
    {"r_picmip", "1"},
    {"r_preloadtextures", "0"},
    {"r_detailtextures", "0"},
    {"r_texturebits", "0"},
    {"r_colorbits", "0"},
    {"r_depthbits", "0"},
    {"r_mode", "3"},
    {"r_fullscreen", "1"},
    {"r_vertexlight", "0"},
    {"r_subdivisions", "4"},
    {"r_smp", "0"},
    {"r_flares", "0"},
    {"r_fastsky", "0"},
    {"r_finish", "1"},
    {"r_drawsun", "0"},
    {"r_dynamiclight", "1"},
    {"r_texturemode", "GL_LINEAR_MIPMAP_NEAREST"},
    {"r_railwidth", "16"},
    {"r_railcorewidth", "6"},
    {"r_railsegmentlength", "32"},
    {"r_primitives", "0"},
};

constexpr Entry kSound[] = {{"s_volume", "0.7"}, {"s_musicvolume", "0.25"}, {"s_khz", "11"}, {"s_usingA3D", "0"}};

constexpr Entry kClient[] = {
    {"cg_viewsize", "100"},
    {"cg_shadows", "1"},
    {"cg_brasstime", "1250"},
    {"cg_drawcrosshair", "1"},
    {"cg_drawcrosshairnames", "1"},
    {"cg_autoswitch", "1"},
    {"cg_drawgun", "1"},
    {"cg_zoomfov", "22.5"},
    {"cg_fov", "90"},
    {"cg_gibs", "1"},
    {"cg_draw2d", "1"},
    {"cg_drawstatus", "1"},
    {"cg_drawtimer", "0"},
    {"cg_drawfps", "1"},
    {"cg_drawsnapshot", "0"},
    {"cg_draw3dicons", "1"},
    {"cg_drawicons", "1"},
    {"cg_drawammowarning", "1"},
    {"cg_drawattacker", "1"},
    {"cg_drawrewards", "1"},
    {"cg_crosshairsize", "24"},
    {"cg_crosshairx", "0"},
    {"cg_crosshairy", "0"},
    {"cg_simpleitems", "0"},
    {"cg_lagometer", "0"},
    {"cg_railtrailtime", "400"},
    {"cg_forcemodel", "0"},
    {"cg_marks", "1"},
    {"cg_DrawTeamOverlay", "1"},
};

constexpr Entry kRules[] = {
    {"g_warmup", "20"},    {"g_motd", "No Message Today"}, {"g_gametype", "0"},
    {"g_quadfactor", "3"}, {"g_syncronousclients", "0"},   {"g_allowvote", "1"},
    {"g_dowarmup", "0"},   {"g_teamautojoin", "0"},        {"g_teamforcebalance", "0"},
};

constexpr Entry kLimits[] = {
    {"ui_ffa_fraglimit", "20"},     {"ui_ffa_timelimit", "20"},   {"ui_tourney_fraglimit", "20"},
    {"ui_tourney_timelimit", "20"}, {"ui_team_fraglimit", "20"},  {"ui_team_timelimit", "20"},
    {"ui_team_friendly", "1"},      {"ui_ctf_capturelimit", "5"}, {"ui_ctf_timelimit", "45"},
    {"ui_ctf_friendly", "0"},
};

// The blanks behind the two ping keys belong to the file: their values are read with them.
constexpr Entry kServer[] = {
    {"sv_hostname", "noname"}, {"sv_maxrate", "0"}, {"sv_maxclients", "16"},   {"sv_privatepassword", ""},
    {"rconpassword", ""},      {"sv_pure", "1"},    {"sv_allowdownload", "1"}, {"sv_maxping      ", "9999"},
    {"sv_minping      ", "0"}, {"bot_nochat", "0"}, {"bot_rocketjump", "1"},   {"bot_fastchat", "0"},
    {"bot_minplayers", "0"},
};

constexpr Entry kMaps[] = {
    {"q3dm1", "Arena Gate"},
    {"q3dm7", "Temple of Retribution"},
    {"q3dm17", "The Longest Yard"},
    {"q3tourney2", "The Proving Grounds"},
};

constexpr Entry kStart[] = {
    {"langame", "1"}, {"gamedir", "demoq3"}, {"hunksize", "56"}, {"nic", ""}, {"port", "27960"}, {"cheats", "0"},
};

/// The actions that have a default key. Where the list of keys goes by weapon, the file goes by digit.
std::vector<GameAction> boundActions() {
    std::vector<GameAction> bound;
    for (const GameAction& action : gameActions()) {
        if (!action.defaultButton.empty()) bound.push_back(action);
    }
    const auto isWeapon = [](const GameAction& action) { return action.command.starts_with("weapon "); };
    const auto first = std::find_if(bound.begin(), bound.end(), isWeapon);
    const auto last = std::find_if_not(first, bound.end(), isWeapon);
    std::stable_sort(first, last, [](const GameAction& a, const GameAction& b) {
        return keyButton(a.defaultButton).gameKey < keyButton(b.defaultButton).gameKey;
    });
    return bound;
}

}  // namespace

std::vector<std::string> defaultDocumentLines() {
    std::vector<std::string> lines{"// default settings", std::string(kCommentLine)};
    lines.insert(lines.end(), kHeaderLines.begin(), kHeaderLines.end());
    const auto group = [&lines](std::string_view kind, std::span<const Entry> entries) {
        for (const Entry& entry : entries) lines.push_back(documentLine(kind, entry.key, entry.value));
        lines.emplace_back(kCommentLine);
    };
    group("seta", kGame);
    lines.emplace_back(kCommentLine);
    for (const std::span<const Entry> entries :
         {std::span<const Entry>(kPlayer), std::span<const Entry>(kVideo), std::span<const Entry>(kSound),
          std::span<const Entry>(kClient), std::span<const Entry>(kRules), std::span<const Entry>(kLimits),
          std::span<const Entry>(kServer)})
        group("seta", entries);
    constexpr Entry kMode[] = {{"cfgtype", "0"}};
    group("base", kMode);
    group("maps", kMaps);
    group("srvr", kStart);
    for (const GameAction& action : boundActions()) {
        const KeyButton& button = keyButton(action.defaultButton);
        lines.push_back(bindingLine(button.gameKey, button.label, action.text, button.name));
    }
    return lines;
}

}  // namespace gatehouse
