#pragma once

#include "base/form.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/options.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "config/filescfg.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/viewers.h"
#include "startup/findq3a.h"
#include "startup/options.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace gatehouse {

/// What the commands of the options dialog act on. All of it outlives them.
struct OptionsParts : Ground {
    GameFinder& finder;
    Viewers& viewers;
    OptionsForm& form;
    ConfigDocuments& documents;
    std::function<std::string()> LogPath;
};

/// The commands of the options dialog `q3options`. Most fields store themselves on every change; the two that don't
/// are the folder of the documents and the path of the game.
class OptionsRules {
public:
    explicit OptionsRules(OptionsParts parts) : parts_(std::move(parts)) {}

    /// Whether the dialog is on show.
    Form q3options{"q3options"};
    /// The program is to end.
    Signal<> closeWanted;

    void mtoolsoptions_Click();
    /// Hides the dialog.
    void optionsOK_Click();
    /// The same, with the folder that is stored: what was typed since is given up.
    void optionsCancel_Click();
    /// Completes and stores the folder of the documents. False if there is no such folder: the focus goes back to it.
    bool ghcdir_LostFocus();
    /// Lets the user choose the folder of the documents. False if none was chosen.
    bool ghcdirBrowse_Click();
    void q3GetFile_Click();
    void editscripts_Click();
    void viewerr_Click();
    void q3resetdefaults_Click();
    void unregister_Click();

    /// Puts the dialog back to where it is before it is opened for the first time.
    void restoreDesign();

private:
    void view(const std::string& path, std::string_view report);

    OptionsParts parts_;
    bool loaded_ = false;
};

}  // namespace gatehouse
