#include "window/rules/window_room.h"

#include <utility>

namespace gatehouse {

WindowRoom::WindowRoom(StartupRoom& startup, const Services& services, ConfigRoom& config, ModsRoom& mods,
                       ContentRoom& content, ServersRoom& servers,
                       std::function<std::vector<const FieldGroup*>()> groups)
    : modOptions(startup.ground, mods.table, config.doc.edits),
      serverRules(startup.ground, config.doc),
      helpPages(services.resources),
      modes(startup.ground, config.doc, servers.iplist, helpPages, hwin),
      playerRules(config.doc),
      botsRules(startup.ground, config.doc),
      keyRules(startup.ground, config.doc.bindlist),
      rotationRules(startup.ground, config.doc.maplist, content.maps),
      tabReset({startup.ground, config.doc, servers.iplist, servers.undo, content.models, keyRules, modes.TabKey,
                [&content](const std::string& path) { content.selectModel(path); }}),
      optionsRules({startup.ground, startup.finder, services.viewers, startup.options, config.documents,
                    [&log = startup.log] { return log.LogPath(); }}),
      help({startup.run, modes, hwin, helpPages, config.doc, startup.keeper, std::move(groups)}),
      log_(startup.log) {
    follow_.on(servers.commands.modOptionsWanted, [this] { modOptions.showFor("C"); });
    follow_.on(config.history.rotationRestored, [&content, &doc = config.doc, this] {
        content.maps.unmarkAll();
        content.maps.markRotation(doc.maplist);
        rotationRules.rotationRestored();
    });
    follow_.on(servers.desk.tabWanted, [this] { modes.showFrame(kServersFrame); });
    follow_.on(modes.tabLeft, [&content] { content.preview.hide(); });
    follow_.on(content.mapCommands.focusWanted, [this] { rotationRules.giveFocus(RotationRules::kTree); });
    for (Form* form : {&botsRules.q3newbot, &q3about, &keyRules.q3keyboard, &tabReset.q3resetprompt,
                       &optionsRules.q3options, &modOptions.q3mod})
        has(*form);
    // The commands' flags come first: what the rules put back writes some of them anew.
    restores(startup.flags, optionsRules, modes, botsRules, rotationRules, help);
}

void WindowRoom::mhelpabout_Click() {
    log_.logEvent("about dialog loaded");
    q3about.set(true);
}

void WindowRoom::q3aboutOK_Click() {
    q3about.set(false);
    log_.logEvent("about dialog closed");
}

}  // namespace gatehouse
