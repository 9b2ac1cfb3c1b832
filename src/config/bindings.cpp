#include "config/bindings.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <array>
#include <unordered_map>

namespace gatehouse {

namespace {

// Railgun and Plasma Gun, Look Down and Look Up are meant to be crossed.
constexpr std::array<GameAction, 39> kActions{{
    {"Move Forward", "+forward", "kw"},
    {"Move Back", "+back", "ks"},
    {"Step Left", "+moveleft", "ka"},
    {"Step Right", "+moveright", "kd"},
    {"Crouch", "+movedown", "kc"},
    {"Jump", "+moveup", "space"},
    {"Fire Weapon", "+attack", "mouse1"},
    {"Previous Weapon", "weapprev", "kq"},
    {"Next Weapon", "weapnext", "ke"},
    {"Use Item", "+button2", "enter"},
    {"Gauntlet", "weapon 1", "k1"},
    {"Machine Gun", "weapon 2", "k2"},
    {"Shotgun", "weapon 3", "k3"},
    {"Grenade Launcher", "weapon 4", "k4"},
    {"Rocket Launcher", "weapon 5", "k5"},
    {"Lightning Gun", "weapon 6", "k6"},
    {"Railgun", "weapon 7", "k8"},
    {"Plasma Gun", "weapon 8", "k7"},
    {"BFG", "weapon 9", "k9"},
    {"Smaller Screen", "sizedown", "minus"},
    {"Larger Screen", "sizeup", "equals"},
    {"Strafe", "+strafe", "backslash"},
    {"Run", "+speed", "forwardslash"},
    {"Look Down", "+lookdown", "pageup"},
    {"Look Up", "+lookup", "pagedown"},
    {"Center View", "centerview", "home"},
    {"Turn Left", "+left", "arrowleft"},
    {"Turn Right", "+right", "arrowright"},
    {"Free Look", "+mlook", "quote"},
    {"Show Scoreboard", "+scores", "tab"},
    {"Vote Yes", "vote yes", "f1"},
    {"Vote No", "vote no", "f2"},
    {"Take Screenshot", "screenshot", "f12"},
    {"Talk to Everyone", "messagemode", "kt"},
    {"Talk to Team", "messagemode2", "ky"},
    {"Talk to Target", "messagemode3", "ku"},
    {"Talk to Attacker", "messagemode4", "ki"},
    {"Zoom In", "+zoom", "mouse2"},
    {"Gesture", "+button3", ""},
}};

/// A key whose caption, game name and label are one text.
constexpr KeyButton plainKey(std::string_view name, std::string_view text) { return {name, text, text, text}; }

constexpr std::array<KeyButton, 103> kButtons{{
    {"arrowdown", "Down", "DOWNARROW", "Arrow-Down"},
    {"arrowleft", "Left", "LEFTARROW", "Arrow-Left"},
    {"arrowright", "Right", "RIGHTARROW", "Arrow-Right"},
    {"arrowup", "Up", "UPARROW", "Arrow-Up"},
    {"backslash", "\\", "\\", "Backslash"},
    {"backspace", "Backspace", "BACKSPACE", "Backspace"},
    {"capslock", "Caps", "CAPSLOCK", "CapsLock"},
    {"comma", ",", ",", "Comma"},
    {"delete", "Del", "DEL", "Delete"},
    {"end", "End", "END", "End"},
    {"enter", "Enter", "ENTER", "Enter"},
    {"equals", "=", "=", "Equals"},
    plainKey("f1", "F1"),
    plainKey("f2", "F2"),
    plainKey("f3", "F3"),
    plainKey("f4", "F4"),
    plainKey("f5", "F5"),
    plainKey("f6", "F6"),
    plainKey("f7", "F7"),
    plainKey("f8", "F8"),
    plainKey("f9", "F9"),
    plainKey("f10", "F10"),
    plainKey("f11", "F11"),
    plainKey("f12", "F12"),
    {"forwardslash", "/", "/", "ForwardSlash"},
    {"home", "Home", "HOME", "Home"},
    {"insert", "Ins", "INS", "Insert"},
    plainKey("k0", "0"),
    plainKey("k1", "1"),
    plainKey("k2", "2"),
    plainKey("k3", "3"),
    plainKey("k4", "4"),
    plainKey("k5", "5"),
    plainKey("k6", "6"),
    plainKey("k7", "7"),
    plainKey("k8", "8"),
    plainKey("k9", "9"),
    plainKey("ka", "A"),
    plainKey("kb", "B"),
    plainKey("kc", "C"),
    plainKey("kd", "D"),
    plainKey("ke", "E"),
    plainKey("kf", "F"),
    plainKey("kg", "G"),
    plainKey("kh", "H"),
    plainKey("ki", "I"),
    plainKey("kj", "J"),
    plainKey("kk", "K"),
    plainKey("kl", "L"),
    plainKey("km", "M"),
    plainKey("kn", "N"),
    plainKey("ko", "O"),
    plainKey("kp", "P"),
    plainKey("kq", "Q"),
    plainKey("kr", "R"),
    plainKey("ks", "S"),
    plainKey("kt", "T"),
    plainKey("ku", "U"),
    plainKey("kv", "V"),
    plainKey("kw", "W"),
    plainKey("kx", "X"),
    plainKey("ky", "Y"),
    plainKey("kz", "Z"),
    {"leftalt", "Alt", "ALT", "LeftALT"},
    {"rightalt", "Alt", "ALT", "RightALT"},
    {"leftctrl", "Ctrl", "CTRL", "LeftCTRL"},
    {"rightctrl", "Ctrl", "CTRL", "RightCTRL"},
    {"leftshift", "Shift", "SHIFT", "LeftSHIFT"},
    {"rightshift", "Shift", "SHIFT", "RightSHIFT"},
    plainKey("leftsquare", "["),
    plainKey("rightsquare", "]"),
    {"minus", "-", "-", "Minus"},
    {"mouse1", "Left", "MOUSE1", "LeftMouse"},
    {"mouse2", "Right", "MOUSE2", "RightMouse"},
    {"mouse3", "Mid", "MOUSE3", "MiddleMouse"},
    {"mwheeldown", "Wheel Down", "MWHEELDOWN", "WheelDown"},
    {"mwheelup", "Wheel Up", "MWHEELUP", "WheelUp"},
    {"n0", "0", "KP_0", "Num0"},
    {"n1", "1", "KP_END", "Num1"},
    {"n2", "2", "KP_DOWNARROW", "Num2"},
    {"n3", "3", "KP_PGDN", "Num3"},
    {"n4", "4", "KP_LEFTARROW", "Num4"},
    {"n5", "5", "KP_5", "Num5"},
    {"n6", "6", "KP_RIGHTARROW", "Num6"},
    {"n7", "7", "KP_HOME", "Num7"},
    {"n8", "8", "KP_UPARROW", "Num8"},
    {"n9", "9", "KP_PGUP", "Num9"},
    {"nasterisk", "*", "*", "Asterisk"},
    {"ndel", "Del", "KP_DEL", "NumDelete"},
    {"nenter", "E", "KP_ENTER", "NumEnter"},
    {"nforwardslash", "/", "KP_SLASH", "NumForwardSlash"},
    {"nminus", "-", "KP_MINUS", "NumMinus"},
    {"nplus", "+", "KP_PLUS", "NumPlus"},
    {"numlock", "Num", "KP_NUMLOCK", "NumLock"},
    {"pagedown", "PgDn", "PGDN", "PageDown"},
    {"pageup", "PgUp", "PGUP", "PageUp"},
    {"period", ".", ".", "Period"},
    {"quote", "'", "'", "Quote"},
    {"semicolon", ";", ";", "Semicolon"},
    {"space", "Space", "SPACE", "Spacebar"},
    {"tab", "Tab", "TAB", "Tab"},
    {"tilde", "`", "~", "Tilde"},
    {"nothing", "No Key", kNoKey, kUnbound},
}};

using ButtonIndex = std::unordered_map<std::string_view, const KeyButton*>;

ButtonIndex indexButtons() {
    ButtonIndex index;
    for (const KeyButton& button : kButtons) index.emplace(button.name, &button);
    return index;
}

}  // namespace

std::span<const GameAction> gameActions() { return kActions; }

std::span<const KeyButton> keyButtons() { return kButtons; }

const KeyButton& keyButton(std::string_view name) {
    static const ButtonIndex index = indexButtons();
    const auto it = index.find(lower(name));
    if (it == index.end()) throw RuntimeFailure("There is no key button " + quoted(name));
    return *it->second;
}

void fillBindings(BindingTable& bindlist) {
    bindlist.clear();
    for (const GameAction& action : kActions) {
        bindlist.append({.text = std::string(action.text),
                         .key = std::string(action.command),
                         .label = std::string(kUnbound),
                         .tag = {},
                         .kind = BindingKind::Action});
    }
}

int findBinding(const BindingTable& bindlist, std::string_view text) {
    for (int position = 1; position <= bindlist.count(); ++position)
        if (bindlist.at(position).text == text) return position;
    return 0;
}

}  // namespace gatehouse
