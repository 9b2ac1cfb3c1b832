#include "config/filescfg.h"

#include "base/text.h"
#include "config/default_document.h"

namespace gatehouse {

namespace {

constexpr std::string_view kDocumentFilter = "Gatehouse Configuration File (*.ghc)|*.ghc";

/// The path up to its last backslash, empty if there is none behind the first character.
std::string folderOf(const std::string& path) {
    const auto at = path.rfind('\\');
    return at == std::string::npos || at == 0 ? std::string() : path.substr(0, at + 1);
}

}  // namespace

std::string ConfigDocuments::defaultPath() const { return trim(parts_.ghcdir.text()).append(kDefaultDocument); }

void ConfigDocuments::chooseDocument(const std::string& path) {
    parts_.run.CurrentConfigPath = path;
    parts_.run.configFromBenchmark = false;
    parts_.options.setOption("lastcfg", path);
}

void ConfigDocuments::mfileopen_Click() {
    RunState& run = parts_.run;
    std::string folder = folderOf(run.CurrentConfigPath);
    if (folder.empty()) folder = trim(parts_.ghcdir.text());
    const FileDialog dialog{.title = "Load Config",
                            .filter = std::string(kDocumentFilter),
                            .startFolder = folder,
                            .fileName = run.CurrentConfigPath};
    for (;;) {
        const auto chosen = parts_.dialogs.openFile(dialog);
        if (!chosen) return;
        if (parts_.files.fileExists(*chosen)) {
            if (changesSettled()) openDocument(*chosen);
            return;
        }
        const Answer answer = parts_.dialogs.show({.title = "Load Config",
                                                   .text = "File Does Not Exist. Choose Another?",
                                                   .buttons = Buttons::YesNo,
                                                   .icon = Icon::Question});
        if (answer != Answer::Yes) return;
    }
}

bool ConfigDocuments::changesSettled() {
    const RunState& run = parts_.run;
    if (!run.ConfigChanged) return true;
    const Answer answer = parts_.dialogs.show({.title = "Load Config",
                                               .text = "Save changes to " + run.CurrentConfigPath + "?",
                                               .buttons = Buttons::YesNoCancel,
                                               .icon = Icon::Question,
                                               .safeAnswer = Answer::Cancel});
    if (answer == Answer::Yes) writeConfig(run.CurrentConfigPath);
    return answer != Answer::Cancel;
}

void ConfigDocuments::openDocument(const std::string& path) {
    chooseDocument(path);
    loadConfig(path);
    try {
        parts_.host.sbar_GroupClick(parts_.run.CurrentMode.get());
    } catch (const RuntimeFailure&) {
        // The document is loaded whether or not its mode can be shown.
    }
}

void ConfigDocuments::mfilesave_Click() {
    RunState& run = parts_.run;
    for (;;) {
        // The dialog starts from the last stored file, not from the one in use; but what a benchmark has loaded must
        // not go over that one.
        if (!run.configFromBenchmark) run.CurrentConfigPath = parts_.options.getOption("lastcfg", defaultPath());
        if (trim(run.CurrentConfigPath).empty()) run.CurrentConfigPath = defaultPath();
        const auto chosen = parts_.dialogs.saveFile({.title = "Save Config",
                                                     .filter = std::string(kDocumentFilter),
                                                     .startFolder = folderOf(run.CurrentConfigPath),
                                                     .fileName = run.CurrentConfigPath});
        if (!chosen) return;
        if (parts_.files.fileExists(*chosen) && parts_.q3overwrite.index() == 0) {
            const Answer answer = parts_.dialogs.show({.title = "Save Config",
                                                       .text = "File Already Exists. Overwrite?",
                                                       .buttons = Buttons::YesNoCancel,
                                                       .icon = Icon::Question,
                                                       .safeAnswer = Answer::Cancel});
            if (answer == Answer::Cancel) return;
            if (answer != Answer::Yes) continue;
        }
        chooseDocument(*chosen);
        writeConfig(run.CurrentConfigPath);
        return;
    }
}

}  // namespace gatehouse
