#pragma once

#include "base/form.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "config/bindings.h"
#include "platform/event_loop.h"
#include "platform/ground.h"

#include <map>
#include <string>
#include <string_view>

namespace gatehouse {

/// The rules of the Keys tab: the choice of a key for an action, on the on-screen keyboard `q3keyboard`.
class KeyRules {
public:
    /// Key buttons by name, each with the actions that have its key.
    using KeysInUse = std::map<std::string_view, std::string>;

    KeyRules(const Ground& ground, BindingTable& bindlist)
        : bindlist_(bindlist), run_(ground.run), log_(ground.log), events_(ground.events) {}

    /// Whether the keyboard is on show. Its caption and the buttons that can't be pressed are settled before.
    Form q3keyboard{"q3keyboard"};
    std::string caption;
    KeysInUse inUse;
    /// The button pressed last: what a row shows for it, and its name. Both are empty until one is pressed.
    std::string ChosenKeyLabel;
    std::string keyname;

    /// Lets the user pick a key for the current row. Returns once the keyboard is hidden; hidden without a press it
    /// leaves the row as it is. The document counts as changed either way.
    void bindlist_DblClick();
    /// A button of the keyboard is pressed.
    void keyButton_Click(const KeyButton& button);
    /// Leaves no row with a key.
    void ResetKeyBindings();

private:
    void q3keyboard_Activate();
    KeysInUse keysInUse() const;
    void bind(const std::string& action);

    BindingTable& bindlist_;
    RunState& run_;
    Log& log_;
    EventLoop& events_;
};

}  // namespace gatehouse
