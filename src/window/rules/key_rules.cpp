#include "window/rules/key_rules.h"

#include "base/text.h"
#include "platform/forms.h"

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

KeyRules::KeysInUse KeyRules::keysInUse() const {
    KeysInUse taken;
    for (int row = 1; row <= bindlist_.count(); ++row) {
        const KeyBinding& binding = bindlist_.at(row);
        const KeyButton* button = findButton(binding.tag);
        if (!button || isNoKey(button->name)) continue;
        const auto [it, fresh] = taken.emplace(button->name, binding.text);
        if (!fresh) it->second += ", " + binding.text;  // only a document can have given one key twice
    }
    return taken;
}

void KeyRules::bindlist_DblClick() {
    const int row = bindlist_.current();
    if (row == 0) return;
    const std::string action = bindlist_.at(row).text;
    inUse = keysInUse();
    log_.logEvent("choosing key for " + action);
    caption = "Pick a key for " + quoted(action);
    q3keyboard_Activate();
    showModal(q3keyboard, events_);
    log_.logEvent("user chose key " + keyname);
    if (!keyname.empty()) bind(action);
    run_.ConfigChanged = true;
}

void KeyRules::q3keyboard_Activate() {
    ChosenKeyLabel.clear();
    keyname.clear();
    log_.logEvent("keyboard dialog opened");
}

void KeyRules::keyButton_Click(const KeyButton& button) {
    ChosenKeyLabel = button.label;
    keyname = isNoKey(button.name) ? kNoKey : button.name;
    q3keyboard.set(false);
}

void KeyRules::bind(const std::string& action) {
    const int row = bindlist_.current();
    if (row == 0 || bindlist_.at(row).text != action) return;  // gone while the keyboard was on show
    bindlist_.edits.make("Key for " + action, [&] {
        bindlist_.update(row, [&](KeyBinding& binding) {
            binding.label = ChosenKeyLabel;
            binding.tag = keyname;
        });
    });
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
