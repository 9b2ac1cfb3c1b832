#pragma once

#include "base/room.h"
#include "base/signal.h"
#include "benchmark/benchmark_room.h"
#include "config/config_room.h"
#include "config/document_host.h"
#include "content/content_room.h"
#include "launch/launch_room.h"
#include "mods/mods_room.h"
#include "platform/services.h"
#include "servers/servers_room.h"
#include "startup/ghtools.h"
#include "startup/rescue.h"
#include "startup/startup_room.h"
#include "window/rules/window_room.h"

#include <array>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace gatehouse {

/// The whole program but for its windows: its rooms, what ties them together, the load sequence and the end. Windows
/// bind to the rooms' public values and call their commands.
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
    void mfileopen_Click() { config.documents.mfileopen_Click(); }
    void mfilesave_Click() { config.documents.mfilesave_Click(); }
    void mfilerun_Click() { launch.command.mfilerun_Click(); }
    void mfileexit_Click() { q3_Unload(); }
    void meditundo_Click() { config.history.undo(); }
    void meditredo_Click() { config.history.redo(); }
    void mtoolsconsole_Click();
    void mtoolsreset_Click() { rules.tabReset.mtoolsreset_Click(); }
    void mtoolsoptions_Click() { rules.optionsRules.mtoolsoptions_Click(); }
    void mtoolsresults_Click() { benchmark.results.mtoolsresults_Click(); }
    void mhelpcontents_Click() { rules.help.mhelpcontents_Click(); }
    void mhelpover_Click() { rules.help.mhelpover_Click(); }
    void mhelpabout_Click() { rules.mhelpabout_Click(); }

    /// The licence of this program.
    std::string licence() const;
    /// All forms that come up over the main window.
    std::vector<Form*> forms() const;

    /// Exit status of the process: 1 for a named document that can't be opened, for a run-and-leave whose run failed,
    /// and for a list that could not be saved at the end.
    int exitStatus() const { return noDocument_ || (runAndLeave_ && run.RunErrors) || run.SaveFailed ? 1 : 0; }

    /// What is done about a failure that nothing caught: one line on standard error is the caller's; what is unsaved is
    /// kept, the options are mended so that the next start works, the log has it, and there is a box where someone can
    /// see one. Returns the line.
    std::string handleFatal(const std::exception& failure, bool canShow);
    /// An end that nobody is asked about: what is unsaved is kept, and no wait goes on. Returns a line if
    /// something could not be kept.
    std::string endQuietly(const std::string& reason);
    /// Keeps what is unsaved, as the end may be near. Touches nothing that is on show.
    Kept keepUnsaved(const std::string& reason);

private:
    const Services& services_;
    std::string programFolder_;

public:
    StartupRoom startup;
    RunState& run = startup.run;
    CommandFlags& flags = startup.flags;
    Log& log = startup.log;
    ConfigRoom config;
    ModsRoom mods;
    ContentRoom content;
    ServersRoom servers;
    LaunchRoom launch;
    BenchmarkRoom benchmark;
    WindowRoom rules;
    Rescue rescue;

private:
    VersionUpdate update_;

    // Steps of the load sequence.
    void checkRunningCopy();
    void setProgramPaths();
    /// A document or a list that the program is started with, as a file manager does it.
    void takeFileArgument();
    void createLog();
    void readOptions();
    void checkVersion();
    /// Lets the user show the game, or searches for it. False if that was cancelled.
    bool locateGame();
    void firstTimeSetup();
    /// A game folder that has gone is asked for anew. Fails where nobody can answer, and on a cancel.
    void findGameAgain();
    void placePanels();
    void fillInitialValues();
    void findMods();
    struct FirstScanTexts {
        std::string title, what, folder;
    };
    void scanUnlessListed(const std::string& list, ArchiveScan& scan, const FirstScanTexts& texts);
    void findMapsAndModels();
    void chooseDocument();
    bool loadChosenDocument();
    void showMainWindow();

    /// All groups of fields that a person sees.
    std::vector<const FieldGroup*> fieldGroups() const;
    /// In the order in which they are put back.
    std::array<Room*, 8> rooms() const;
    void tieRooms();
    void mendOptions(const DocumentFailure& failure);
    std::vector<RescueKind> rescueKinds();
    void openRescuedDocument(const std::string& path);
    void openRescuedList(const std::string& path);

    // DocumentHost
    std::string selectedModel() const override { return content.models.selectedModel(); }
    void selectModel(const std::string& path) override { content.selectModel(path); }
    std::vector<ModVariable> modVariables() const override { return mods.table.variables(); }
    void setModVariable(const std::string& name, const std::string& value) override {
        mods.table.setVariable(name, value);
    }
    void unmarkRotation() override { content.maps.unmarkAll(); }
    void markRotation() override { content.maps.markRotation(config.doc.maplist); }
    bool hasServers() const override { return !servers.iplist.empty(); }
    void sbar_GroupClick(std::int16_t group) override { rules.modes.sbar_GroupClick(group); }

    Connections follow_;
    bool ready_ = false;        ///< the main window was shown
    bool closing_ = false;      ///< inside `closeAllWindows`
    bool unloading_ = false;    ///< inside `q3_Unload`
    bool runAndLeave_ = false;
    bool setupCancelled_ = false;
    std::string openedDocument_, openedList_;  ///< what the program was started with
    bool noDocument_ = false;  ///< the document that the command line names can't be opened, nor the default one
};

}  // namespace gatehouse
