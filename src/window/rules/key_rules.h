#pragma once

#include "base/log.h"
#include "base/run_state.h"
#include "config/bindings.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace gatehouse {

/// What the on-screen keyboard `q3keyboard` is opened with.
struct KeyQuestion {
    std::string caption;
    /// The buttons that can't be pressed, by name, each with the action that has its key.
    std::map<std::string_view, std::string> inUse;
};

/// The rules of the Keys tab: the choice of a key for an action.
class KeyRules {
public:
    /// Shows the keyboard modally. The button pressed, or nothing if it was closed without one.
    using AskKey = std::function<const KeyButton*(const KeyQuestion&)>;

    KeyRules(BindingTable& bindlist, RunState& run, Log& log) : bindlist_(bindlist), run_(run), log_(log) {}

    /// Until there is a keyboard nobody presses a key.
    AskKey askKey;

    /// Lets the user pick a key for the current row.
    void bindlist_DblClick();
    /// Gives the row a button's key; without a button it keeps its own. The document counts as changed either way.
    void choose(int row, const KeyButton* button);
    /// The keys of all rows, those of aliases and of the row in question too. "No Key" is never in use.
    std::map<std::string_view, std::string> keysInUse() const;
    /// Leaves no row with a key.
    void ResetKeyBindings();

private:
    BindingTable& bindlist_;
    RunState& run_;
    Log& log_;
};

}  // namespace gatehouse
