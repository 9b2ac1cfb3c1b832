#pragma once

#include <span>
#include <string>
#include <string_view>

namespace gatehouse {

/// A menu entry, a tool or a button: what a person is shown of it, wherever it stands. Views and the help read this.
struct CommandInfo {
    /// Unlike those of all others. What stands behind the last full stop is the object name of its action or button.
    std::string_view name;
    /// The menu, the tab's key or the form that it stands in.
    std::string_view place;
    std::string_view caption;    ///< with "&" before the letter that reaches it
    std::string_view keys = {};  ///< in the toolkit's portable form, parted by "; "
    std::string_view hint = {};
    std::string_view icon = {};
    /// Key and caption of its button in the main tool bar, if it has one there.
    std::string_view button = {};

    std::string_view objectName() const;
    /// The caption as it is read out: without the mark of the letter and without the dots.
    std::string plainCaption() const;
};

/// A window of the program's own that comes up over the main window.
struct DialogInfo {
    std::string_view form;
    std::string_view title;
    std::string_view about;        ///< what it is for
    std::string_view opener = {};  ///< name of the command that opens it at any time
};

/// A list or a tree of a tab, which is called as its table is.
struct ListInfo {
    std::string_view name;
    std::string_view place;  ///< key of the tab
};

/// The menus, in their order.
inline constexpr std::string_view kMenus[] = {"File", "Edit", "Servers", "Tools", "Help"};

std::span<const CommandInfo> commands();
/// Fails for a name that isn't there.
const CommandInfo& commandInfo(std::string_view name);

std::span<const ListInfo> lists();

std::span<const DialogInfo> dialogs();
/// Fails for a form that isn't there.
const DialogInfo& dialogInfo(std::string_view form);

}  // namespace gatehouse
