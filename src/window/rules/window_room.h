#pragma once

#include "base/room.h"
#include "base/signal.h"
#include "config/config_room.h"
#include "content/content_room.h"
#include "help/help_pages.h"
#include "help/help_viewer.h"
#include "mods/mods_room.h"
#include "platform/services.h"
#include "servers/servers_room.h"
#include "startup/startup_room.h"
#include "window/rules/bots_rules.h"
#include "window/rules/help_rules.h"
#include "window/rules/key_rules.h"
#include "window/rules/mod_options.h"
#include "window/rules/modes.h"
#include "window/rules/options_rules.h"
#include "window/rules/player_rules.h"
#include "window/rules/rotation_rules.h"
#include "window/rules/server_rules.h"
#include "window/rules/tab_reset.h"

#include <functional>
#include <vector>

namespace gatehouse {

/// What the main window decides: modes and tabs, the rules that tie fields together, and the forms that belong to no
/// other room.
class WindowRoom : public Room {
public:
    WindowRoom(StartupRoom& startup, const Services& services, ConfigRoom& config, ModsRoom& mods, ContentRoom& content,
               ServersRoom& servers, std::function<std::vector<const FieldGroup*>()> groups);

    ModOptions modOptions;
    ServerRules serverRules;
    HelpPages helpPages;
    HelpViewer hwin;  ///< the help view in the last frame
    ModeRules modes;
    PlayerRules playerRules;
    BotsRules botsRules;
    KeyRules keyRules;
    RotationRules rotationRules;
    TabReset tabReset;
    OptionsRules optionsRules;
    HelpRules help;
    Form q3about{"q3about"};

    void mhelpabout_Click();
    void q3aboutOK_Click();

private:
    Log& log_;
    Connections follow_;
};

}  // namespace gatehouse
