#pragma once

#include "base/run_state.h"
#include "base/signal.h"
#include "config/settings_document.h"
#include "mods/mod_table.h"
#include "platform/files.h"

namespace gatehouse {

/// The choice of a mod in `modcombo`, and what hangs on it: the chosen mod, its game types and its key rows.
class ModChoice {
public:
    /// From now on follows the choice.
    ModChoice(ModTable& mods, SettingsDocument& doc, RunState& run);

    /// Offers the mods whose folder is in the game's folder and chooses the first. A mod is offered once for each such
    /// folder. Fails when the game's folder can't be listed.
    void fillModcombo(const Files& files);

private:
    void modcombo_Click();
    void removeKeyRows();
    void chooseMod();
    void offerGameTypes(const ModEntry& mod);
    void addKeyRows(const ModEntry& mod);

    ModTable& mods_;
    SettingsDocument& doc_;
    RunState& run_;
    Connection modcomboChanged_;
};

}  // namespace gatehouse
