#include "window/rules/options_rules.h"

#include "base/runtime_failure.h"
#include "base/text.h"
#include "config/default_document.h"

#include <utility>

namespace gatehouse {

void OptionsRules::mtoolsoptions_Click() {
    if (!std::exchange(loaded_, true)) parts_.log.logEvent("Options Dialog loaded");
    q3options.set(true);
}

void OptionsRules::optionsOK_Click() {
    parts_.log.logEvent("options dialog closed");
    q3options.set(false);
}

void OptionsRules::optionsCancel_Click() {
    parts_.form.ghcdir.setText(parts_.options.getOption("ghcdir", parts_.run.AppDir));
    optionsOK_Click();
}

bool OptionsRules::ghcdirBrowse_Click() {
    const auto chosen = parts_.dialogs.chooseFolder(parts_.form.ghcdir.title(), trim(parts_.form.ghcdir.text()));
    if (!chosen) return false;
    parts_.form.ghcdir.setText(*chosen);
    return ghcdir_LostFocus();
}

bool OptionsRules::ghcdir_LostFocus() {
    std::string folder = trim(parts_.form.ghcdir.text());
    if (!folder.ends_with('\\')) folder += '\\';
    parts_.form.ghcdir.setText(folder);
    if (!parts_.files.folderExists(folder)) {
        parts_.dialogs.show({.title = "Path Error",
                             .text = "That is not a valid folder path. Please re-enter the path.",
                             .icon = Icon::Stop});
        return false;
    }
    parts_.options.setOption("ghcdir", folder);
    parts_.log.logEvent("option change: ghcdir =" + folder);
    return true;
}

void OptionsRules::q3GetFile_Click() {
    const auto chosen = parts_.finder.chooseGameFile(parts_.run.GameDir);
    if (!chosen) return;
    const std::string folder = cut(*chosen, 0, static_cast<long>(bareName(*chosen).size()));
    parts_.form.q3FilePath.setText(*chosen);
    parts_.run.GameDir = folder;
    parts_.options.setOptions({{"exepath", *chosen}, {"basedir", folder}});
    parts_.log.logEvent("option change: exepath=" + *chosen);
    parts_.log.logEvent("option change: basedir=" + folder);
}

void OptionsRules::view(const std::string& path, std::string_view report) {
    try {
        parts_.viewers.viewText(path);
        parts_.log.logEvent(report);
    } catch (const RuntimeFailure& failure) {
        parts_.log.logEvent(failure.what(), true);
        parts_.dialogs.show({.title = "Options", .text = failure.what(), .icon = Icon::Stop});
    }
    optionsOK_Click();
}

void OptionsRules::editscripts_Click() {
    // One backslash more than a path needs; it does no harm.
    view(parts_.run.AppDir + "\\aliases.txt", "Function: viewing aliases.txt");
}

void OptionsRules::viewerr_Click() { view(parts_.LogPath(), "Function: Viewing current error log"); }

void OptionsRules::q3resetdefaults_Click() {
    parts_.log.logEvent("Function: Re-Write default.ghc");
    try {
        parts_.documents.writeDefaultConfig();
        parts_.dialogs.show({.title = "Reset default.ghc",
                             .text = trim(parts_.form.ghcdir.text()) + "\\" + std::string(kDefaultDocument) +
                                     " has been reset to inital values.",
                             .icon = Icon::Information});
    } catch (const FileFailure& failure) {
        parts_.log.logEvent(failure.what(), true);
    }
    optionsOK_Click();
}

void OptionsRules::unregister_Click() {
    const Answer answer = parts_.dialogs.show({.title = "UnRegister Gatehouse",
                                               .text = "This will remove all traces of Gatehouse in the system registry\r\n"
                                                       "The program will then terminate. When you restart,\r\n"
                                                       "all options and setting will be at their defaults,\r\n"
                                                       "and you will have to re-locate the Quake 3: Arena folder.\r\n\r\n"
                                                       "Do you want to continue?",
                                               .buttons = Buttons::YesNo,
                                               .icon = Icon::Question});
    if (answer != Answer::Yes) return;
    parts_.options.deleteSection();
    parts_.log.logEvent("Function: Removing Gatehouse registry entries");
    closeWanted.emit();
    // The main window has stored on its way out whether its console is on show.
    parts_.options.deleteSection();
    optionsOK_Click();
}

void OptionsRules::restoreDesign() {
    loaded_ = false;
    q3options.set(false);
}

}  // namespace gatehouse
