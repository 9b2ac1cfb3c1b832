#include "window/rules/key_rules.h"

#include "base/text.h"

#include <algorithm>

namespace gatehouse {

namespace {

/// The button of that name, or nothing: a document may hold the name of a button that there is not.
const KeyButton* findButton(std::string_view name) {
    const auto buttons = keyButtons();
    const auto it = std::find_if(buttons.begin(), buttons.end(),
                                 [name](const KeyButton& button) { return equalNoCase(button.name, name); });
    return it == buttons.end() ? nullptr : &*it;
}

bool isNoKey(std::string_view name) { return equalNoCase(name, kNoKey); }

}  // namespace

std::map<std::string_view, std::string> KeyRules::keysInUse() const {
    std::map<std::string_view, std::string> inUse;
    for (int row = 1; row <= bindlist_.count(); ++row) {
        const KeyBinding& binding = bindlist_.at(row);
        const KeyButton* button = findButton(binding.tag);
        if (button && !isNoKey(button->name)) inUse.emplace(button->name, binding.text);
    }
    return inUse;
}

void KeyRules::bindlist_DblClick() {
    const int row = bindlist_.current();
    if (row == 0 || !askKey) return;
    const std::string action = bindlist_.at(row).text;
    log_.logEvent("choosing key for " + action);
    log_.logEvent("keyboard dialog opened");
    choose(row, askKey({.caption = "Pick a key for " + quoted(action), .inUse = keysInUse()}));
}

void KeyRules::choose(int row, const KeyButton* button) {
    std::string keyname;
    if (button) keyname = isNoKey(button->name) ? kNoKey : button->name;
    log_.logEvent("user chose key " + keyname);
    if (button) {
        bindlist_.update(row, [&](KeyBinding& binding) {
            binding.label = button->label;
            binding.tag = keyname;
        });
    }
    run_.ConfigChanged = true;
}

void KeyRules::ResetKeyBindings() {
    if (bindlist_.empty()) return;
    int row = 1;
    for (; row <= bindlist_.count(); ++row) {
        bindlist_.update(row, [](KeyBinding& binding) {
            binding.label = kUnbound;
            binding.tag = kNoKey;
        });
    }
    // One more than there are rows: readers of the log know the line so.
    log_.logEvent("unbound " + std::to_string(row) + " commands OK");
}

}  // namespace gatehouse
