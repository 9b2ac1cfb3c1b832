#pragma once

#include "base/table.h"

#include <span>
#include <string>
#include <string_view>

namespace gatehouse {

/// Where a row of the key list comes from. The kind decides which writer takes the row.
enum class BindingKind {
    Action,  ///< one of the game's actions
    Mod,     ///< an action of the chosen mod; shown in blue
    Alias,   ///< a key of a script alias; shown in red, never bound by the game config itself
};

/// One row of the key list. A row is found by its text.
struct KeyBinding {
    std::string text;   ///< the action's name
    std::string key;    ///< the game command; for an alias its row key
    std::string label;  ///< the bound key's name for the user
    std::string tag;    ///< name of the key button chosen; empty when never bound, "NOTHING" when set to no key
    BindingKind kind = BindingKind::Action;
    friend bool operator==(const KeyBinding&, const KeyBinding&) = default;
};

using BindingTable = Table<KeyBinding>;

inline constexpr std::string_view kUnbound = "Unbound";
inline constexpr std::string_view kNoKey = "NOTHING";

/// One action of the game, with the key button that the default document gives it (empty for none).
struct GameAction {
    std::string_view text;
    std::string_view command;
    std::string_view defaultButton;
};

/// One button of the on-screen keyboard.
struct KeyButton {
    std::string_view name;     ///< such as "kw"
    std::string_view caption;  ///< on the button
    std::string_view gameKey;  ///< the game's name of the key
    std::string_view label;    ///< what a bound row shows
};

/// The game's actions, in the order of the key list.
std::span<const GameAction> gameActions();
/// All key buttons.
std::span<const KeyButton> keyButtons();
/// The button of that name, in any case. Fails if there is none.
const KeyButton& keyButton(std::string_view name);

/// Empties the list and adds every game action, unbound.
void fillBindings(BindingTable& bindlist);
/// Position of the first row with exactly this text, 0 if there is none.
int findBinding(const BindingTable& bindlist, std::string_view text);

}  // namespace gatehouse
