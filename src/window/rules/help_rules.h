#pragma once

#include "base/observable.h"
#include "base/signal.h"
#include "help/help_book.h"
#include "window/rules/modes.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// What is on show in the help window. It is no form: it stands beside the main window and its dialogs, and closing it
/// changes nothing.
struct HelpWindowState {
    Observable<bool> shown{false};
    HelpViewer viewer;
    Signal<> wanted;  ///< it is to come to the front

    void open(const HelpPlace& place);
    void restoreDesign();
};

/// The help viewer, as commands ask for it.
class CHelp {
public:
    explicit CHelp(HelpWindowState& window) : window_(window) {}
    /// Shows the help; with a context number, the page of that place in the table. There is one help and one window for
    /// it, so neither name chooses. Fails for a page that isn't there.
    void Show(const std::string& helpFile, const std::string& windowName, std::optional<int> context);

private:
    HelpWindowState& window_;
};

/// The commands of the help, and the way from it to the controls.
class HelpRules {
public:
    struct Parts {
        const RunState& run;
        ModeRules& modes;
        HelpViewer& hwin;
        const HelpPages& pages;
        const SettingsDocument& doc;
        const OptionKeeper& options;
        std::function<std::vector<const FieldGroup*>()> groups;
    };
    explicit HelpRules(const Parts& parts);

    HelpBook book;
    HelpWindowState window;
    /// The control of that name, or the command, is to be shown.
    Signal<std::string> controlWanted;
    /// The command of that name is to run, as if a person had chosen it.
    Signal<std::string> commandWanted;

    void mhelpcontents_Click();
    /// The first page over whatever is on show, until a tab is clicked.
    void mhelpover_Click();
    /// The reference of the tab that was clicked last.
    void HelpOnTab();
    /// "back", "forward", "expand" or "home"; any other key does nothing.
    void hwinbar_ButtonClick(std::string_view key);

    /// What the help says of a control, in its window; the contents if it says nothing.
    void helpOn(std::string_view topic);
    /// Whether the control of that name can be led to.
    bool canShow(std::string_view name) const;
    /// Leads to the control: its tab comes to the front, or the window that it stands in.
    void showControl(std::string_view name);
    void restoreDesign() { window.restoreDesign(); }

private:
    /// Where a control is to be found.
    struct Home {
        enum { kTab, kWindow, kAlways } kind;
        Frame frame = kHelpFrame;
        std::string_view opener = {};
    };
    std::optional<Home> homeOf(std::string_view name) const;
    std::optional<Home> homeIn(std::string_view place) const;

    Parts parts_;
};

}  // namespace gatehouse
