#include "window/rules/tab_reset.h"

#include <utility>

namespace gatehouse {

namespace {

constexpr std::string_view kAll = "all";
constexpr std::string_view kCurrent = "current";
constexpr std::string_view kStartModel = "Sarge";

std::string maximum(const SliderField& slider) { return std::to_string(slider.range()->max); }

}  // namespace

std::vector<TabReset::FieldValue> TabReset::serverValues(SettingsDocument& doc) {
    return {{doc.q3rconpass, ""},   {doc.q3userconpass, "0"},   {doc.q3minplayers, "0"},     {doc.q3usepass, "0"},
            {doc.q3pure, "1"},      {doc.q3clientsync, "0"},    {doc.q3serverpass, ""},      {doc.q3quadfactor, "3"},
            {doc.q3weaptime, "5"},  {doc.q3motd, ""},           {doc.q3serverport, "27960"}, {doc.q3serverip, ""},
            {doc.q3hunksize, "56"}, {doc.q3allowvote, "0"},     {doc.q3langame, "0"},        {doc.q3caprate, ""},
            {doc.q3gametype, "0"},  {doc.q3hostname, "noname"}, {doc.q3playerlimit, "8"},    {doc.q3cheats, "0"},
            {doc.fgame, "0"},       {doc.warmup, ""},           {doc.timelimit, "0"},        {doc.fraglimit, "20"}};
}

std::vector<TabReset::FieldValue> TabReset::playerValues(SettingsDocument& doc) {
    return {{doc.cg_autoswitch, "0"},
            {doc.q3fxcolor, "5"},
            {doc.chindex, "1"},
            {doc.q3sexfemale, "0"},
            {doc.q3sexmale, "1"},
            {doc.q3handicap, "100"},
            {doc.q3playername, "Unnamed Player"}};
}

std::vector<TabReset::FieldValue> TabReset::videoValues(SettingsDocument& doc) {
    return {{doc.r_depthbits, "0"},
            {doc.q3simpleitems, "0"},
            {doc.q3wallmarks, "1"},
            {doc.q3brass, "1"},
            {doc.q3forcemodels, "0"},
            {doc.q3fastsky, "0"},
            {doc.q3dynamiclight, "1"},
            {doc.q3syncframe, "1"},
            {doc.q3trilinear, "0"},
            {doc.q3texquality, "0"},
            {doc.q3texdetail, maximum(doc.q3texdetail)},
            {doc.q3geometry, "0"},
            {doc.q3lighting, "0"},
            {doc.q3fullscreen, "1"},
            {doc.q3colordepth, "0"},
            {doc.q3GLext, "1"},
            {doc.q3vidres, "3"},
            {doc.q3screensize, maximum(doc.q3screensize)},
            {doc.q3brightness, maximum(doc.q3brightness)}};
}

std::vector<TabReset::FieldValue> TabReset::tweak1Values(SettingsDocument& doc) {
    return {{doc.cg_draw2d, "1"},      {doc.r_flares, "0"},          {doc.cg_zoomfov, "0"},
            {doc.cg_fov, "90"},        {doc.r_preloadtextures, "0"}, {doc.r_detailtextures, "0"},
            {doc.cl_run, "1"},         {doc.sensitivity, "5"},       {doc.r_smp, "0"},
            {doc.cl_motd, "1"},        {doc.cl_mouseaccel, "0"},     {doc.m_filter, "0"},
            {doc.cg_shadows, "0"},     {doc.com_maxfps, "85"},       {doc.q3identifytarget, "1"},
            {doc.q3soundquality, "0"}, {doc.q3rate, "3000"},         {doc.q3snaps, "20"},
            {doc.q3a3d, "0"},          {doc.q3musicvol, "75"},       {doc.q3effectsvol, maximum(doc.q3effectsvol)},
            {doc.q3teamoverlay, "1"}};
}

std::vector<TabReset::FieldValue> TabReset::tweak2Values(SettingsDocument& doc) {
    return {{doc.r_drawsun, "0"},          {doc.cg_crosshairx, "0"},
            {doc.cg_crosshairsize, "24"},  {doc.cg_crosshairy, "0"},
            {doc.cg_railtrailtime, "400"}, {doc.r_railwidth, "16"},
            {doc.r_railcorewidth, "6"},    {doc.r_railsegmentlength, "32"},
            {doc.cg_drawgun, "1"},         {doc.cg_gibs, "1"},
            {doc.cg_draw3dicons, "1"},     {doc.cg_drawstatus, "1"},
            {doc.cg_drawtimer, "0"},       {doc.cg_drawfps, "0"},
            {doc.cg_drawsnapshot, "0"},    {doc.cg_drawammowarning, "1"},
            {doc.cg_drawattacker, "0"},    {doc.cg_drawrewards, "1"},
            {doc.cg_lagometer, "0"},       {doc.com_blood, "1"}};
}

TabReset::TabReset(TabResetParts parts)
    : parts_(std::move(parts)),
      tabs_{{"server", "Server", {}, serverValues(parts_.doc)},
            {"servers", "Servers", [this] { clearServers(); }, {}},
            {"maps", "Maps", [this] { clearMaps(); }, {}},
            {"player", "Player", [this] { selectFirstModel(); }, playerValues(parts_.doc)},
            {"keys", {}, [this] { clearKeys(); }, {}},
            {"video", "Video", {}, videoValues(parts_.doc)},
            {"tweak1", "Tweak 1", {}, tweak1Values(parts_.doc)},
            {"tweak2", "Tweak 2", {}, tweak2Values(parts_.doc)}} {}

void TabReset::chooseReset(std::string_view word) {
    const std::string key(word == kCurrent ? std::string_view(parts_.TabKey.get()) : word);
    if (key.empty())
        parts_.log.logEvent("user canceled tab reset");
    else if (word == kAll)
        parts_.log.logEvent("user chose to reset all tabs");
    else
        parts_.log.logEvent("user chose to reset only the " + key + " tab");
    q3resetprompt.set(false);
    if (!key.empty()) ResetTabs(key);
}

void TabReset::ResetTabs(std::string_view what) {
    const bool all = what == kAll;
    if (all && parts_.dialogs.show({.title = "Reset Tabs",
                                    .text = "This will reset all settings to their defaults.\r\n"
                                            "The server list will be cleared. Key bindings\r\n"
                                            "will be set to defaults. Maps will be cleared.\r\n\r\n"
                                            "Are you sure you want to do this?",
                                    .buttons = Buttons::YesNo,
                                    .icon = Icon::Question}) != Answer::Yes)
        return;
    parts_.doc.edits.make("Reset", [&] {
        for (const Tab& tab : tabs_)
            if (all || tab.key == what) resetTab(tab);
    });
}

void TabReset::resetTab(const Tab& tab) {
    if (!tab.name.empty()) parts_.log.logEvent("Resetting tab: " + std::string(tab.name));
    if (tab.before) tab.before();
    for (const auto& [field, value] : tab.values) {
        // A mod without game types leaves that list empty.
        const auto* list = dynamic_cast<const ListField*>(&field);
        if (!list || !list->choices().empty()) field.setValueText(value);
    }
}

void TabReset::clearServers() {
    parts_.undo.removing(
        "Reset", [](int) { return true; }, [this] { parts_.iplist.clear(); });
    for (const std::size_t button : {2, 3, 4}) parts_.flags.tbservers[button].set(false);
    parts_.run.ServerListChanged = true;
}

void TabReset::clearKeys() {
    parts_.keys.ResetKeyBindings();
    parts_.run.ConfigChanged = true;
}

void TabReset::clearMaps() {
    parts_.doc.maplist.clear();
    parts_.run.ConfigChanged = true;
    parts_.flags.mtool1.setAll(false);
    const std::int16_t mode = parts_.run.CurrentMode.get();
    if (mode == kListen || mode == kDedicated) parts_.flags.SetRunEnabled(false);
}

void TabReset::selectFirstModel() {
    const ModelTree& tree = parts_.models.mdltree;
    int model = 0;
    for (int position = 1; position <= tree.count(); ++position) {
        const ModelEntry& node = tree.at(position);
        if (model == 0 && node.parent == 0 && node.text == kStartModel) model = position;
        if (model != 0 && node.parent == model) return parts_.selectModel(parts_.models.fullPath(position));
    }
}

}  // namespace gatehouse
