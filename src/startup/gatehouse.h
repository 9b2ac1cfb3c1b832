#pragma once

#include "base/command_flags.h"
#include "base/run_state.h"
#include "base/table.h"
#include "config/document_host.h"
#include "config/edit_history.h"
#include "config/filescfg.h"
#include "config/settings_document.h"
#include "content/map_catalog.h"
#include "content/model_catalog.h"
#include "launch/run_command.h"
#include "mods/aliases.h"
#include "mods/mod_choice.h"
#include "mods/mod_discovery.h"
#include "mods/mod_table.h"
#include "platform/services.h"
#include "servers/address_form.h"
#include "servers/filesmisc.h"
#include "servers/players_form.h"
#include "servers/server_commands.h"
#include "servers/server_entry.h"
#include "servers/status_query.h"
#include "startup/event_log.h"
#include "startup/findq3a.h"
#include "startup/option_store.h"
#include "startup/options.h"
#include "startup/views.h"
#include "window/rules/bots_rules.h"
#include "window/rules/key_rules.h"
#include "window/rules/mod_options.h"
#include "window/rules/modes.h"
#include "window/rules/options_rules.h"
#include "window/rules/player_rules.h"
#include "window/rules/rotation_rules.h"
#include "window/rules/server_rules.h"
#include "window/rules/tab_reset.h"

#include <exception>
#include <string>
#include <vector>

namespace gatehouse {

/// The whole program but for its windows: the state of one run and all rooms, tied together. Windows bind to the
/// public values and call the commands.
class Gatehouse : private DocumentHost {
public:
    /// `programFolder` is in the program's form, without a backslash at its end.
    Gatehouse(const Services& services, std::string programFolder);

    /// The load sequence. Returns when the main window is on show, or when there is nothing more to do.
    void StartupDriver();
    /// Unloads every window. What called it goes on.
    void closeAllWindows();
    /// The end of the main window: offers to save what has changed, then closes all windows.
    void q3_Unload();
    /// The main window's first showing, and the closing of another of our own forms.
    void q3_Activate();

    // Commands of the menus and the tool bar.
    void mfileopen_Click() { documents.mfileopen_Click(); }
    void mfilesave_Click() { documents.mfilesave_Click(); }
    void mfilerun_Click() { launcher.mfilerun_Click(); }
    void mfileexit_Click() { q3_Unload(); }
    void meditundo_Click() { history.undo(); }
    void meditredo_Click() { history.redo(); }
    void mtoolsconsole_Click();
    void mtoolsreset_Click() { tabReset.mtoolsreset_Click(); }
    void mhelpabout_Click();
    void q3aboutOK_Click();
    void mtoolsoptions_Click() { optionsRules.mtoolsoptions_Click(); }

    /// Exit status of the process: 1 for a named document that can't be opened, and for a run-and-leave whose run failed.
    int exitStatus() const { return noDocument_ || (runAndLeave_ && run.RunErrors) ? 1 : 0; }

    /// What is done about a failure that nothing caught: one line on standard error is the caller's; a rescue copy of
    /// what is unsaved, the options mended so that the next start works, and a box where someone can see one. Returns
    /// the line.
    std::string handleFatal(const std::exception& failure, bool canShow);

private:
    /// The forms that come up over the main window.
    std::vector<Observable<bool>*> forms();

    const Services& services_;
    std::string programFolder_;

public:
    RunState run;
    CommandFlags flags;
    OptionsForm options;
    SplashView splash;
    MainView q3;
    Observable<bool> q3about{false};  ///< the about box is on show
    EventLog log;
    OptionStore store;
    OptionKeeper optionKeeper;
    GameFinder finder;
    SettingsDocument doc;
    ServerTable iplist;
    ModTable mods;
    MapCatalog maps;
    ModelCatalog models;
    AliasBook aliases;
    ServerLists serverLists;
    AddressForm addressForm;
    PlayersForm playersForm;
    StatusQuery statusQuery;
    ServerCommands serverCommands;
    ModDiscovery modDiscovery;
    ModChoice modChoice;
    ModOptions modOptions;
    ServerRules serverRules;
    ModeRules modes;
    PlayerRules playerRules;
    BotsRules botsRules;
    KeyRules keyRules;
    RotationRules rotationRules;
    TabReset tabReset;
    ConfigDocuments documents;
    GameConfig gameConfig;
    RunCommand launcher;
    OptionsRules optionsRules;
    EditHistory history;

private:
    // Steps of the load sequence.
    void checkRunningCopy();
    void setProgramPaths();
    void createLog();
    void readOptions();
    void checkVersion();
    void firstTimeSetup();
    void placePanels();
    void fillInitialValues();
    void findMods();
    void chooseDocument();
    bool loadChosenDocument();
    void showMainWindow();

    void benchmark();
    std::vector<OutsideValue> outsideValues();
    void rotationRestored();
    void mendOptions(const DocumentFailure& failure);

    // DocumentHost
    std::string selectedModel() const override { return models.selectedModel(); }
    void selectModel(const std::string& path) override;
    std::vector<ModVariable> modVariables() const override { return mods.variables(); }
    void setModVariable(const std::string& name, const std::string& value) override { mods.setVariable(name, value); }
    void unmarkRotation() override { maps.unmarkAll(); }
    void markRotation() override { maps.markRotation(doc.maplist); }
    bool hasServers() const override { return !iplist.empty(); }
    void sbar_GroupClick(std::int16_t group) override { modes.sbar_GroupClick(group); }

    std::vector<Connection> connections_;
    bool ready_ = false;        ///< the main window was shown
    bool closing_ = false;      ///< inside `closeAllWindows`
    bool unloading_ = false;    ///< inside `q3_Unload`
    bool runAndLeave_ = false;
    bool noDocument_ = false;  ///< the document that the command line names can't be opened, nor the default one
};

}  // namespace gatehouse
