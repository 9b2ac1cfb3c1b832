#include "window/rules/help_rules.h"

#include "base/text.h"
#include "window/rules/commands.h"

#include <algorithm>

namespace gatehouse {

void HelpWindowState::open(const HelpPlace& place) {
    viewer.navigate(place);
    shown.set(true);
    wanted.emit();
}

void HelpWindowState::restoreDesign() {
    shown.set(false);
    viewer.restoreDesign();
}

void CHelp::Show(const std::string& /*helpFile*/, const std::string& /*windowName*/, std::optional<int> context) {
    if (context && (*context < 0 || *context >= static_cast<int>(kHelpPages.size())))
        throw RuntimeFailure("Index out of bounds: there is no help page " + std::to_string(*context));
    const HelpPlace onShow = window_.viewer.place.get();
    window_.open(context ? HelpPlace{*context} : onShow.page < 0 ? HelpPlace{kFirstHelpPage} : onShow);
}

HelpRules::HelpRules(const Parts& parts)
    : book({parts.pages, parts.doc, parts.options, parts.groups,
            [this](std::string_view name) { return canShow(name); }}),
      parts_(parts) {}

void HelpRules::mhelpcontents_Click() { CHelp(window).Show(parts_.run.AppDir + "gatehouse.chm", "", std::nullopt); }

void HelpRules::mhelpover_Click() {
    if (parts_.modes.overviewShown.get()) return;
    hwinbar_ButtonClick("home");
    parts_.modes.overviewShown.set(true);
}

void HelpRules::HelpOnTab() {
    const Frame clicked = parts_.modes.FrameWanted;
    parts_.modes.sbar_ListItemClick(1);
    parts_.modes.frameCaption.set("Help on ");
    parts_.hwin.navigate({kReferencePages + clicked});
}

void HelpRules::hwinbar_ButtonClick(std::string_view key) {
    if (key == "back") parts_.hwin.back();
    if (key == "forward") parts_.hwin.forward();
    if (key == "expand") mhelpcontents_Click();
    if (key == "home") parts_.modes.showHelpPage(kFirstHelpPage);
}

void HelpRules::helpOn(std::string_view topic) {
    const auto place = book.placeOf(topic);
    place ? window.open(*place) : mhelpcontents_Click();
}

std::optional<HelpRules::Home> HelpRules::homeIn(std::string_view place) const {
    for (int frame = 0; frame < kHelpFrame; ++frame)
        if (tabInfo(static_cast<Frame>(frame)).key == place) return Home{Home::kTab, static_cast<Frame>(frame)};
    for (const DialogInfo& dialog : dialogs()) {
        // The group of the options bears another name than its form.
        const bool same = dialog.form == place || (place == "options" && dialog.form == "q3options");
        if (same && !dialog.opener.empty()) return Home{Home::kWindow, kHelpFrame, dialog.opener};
    }
    return std::nullopt;
}

std::optional<HelpRules::Home> HelpRules::homeOf(std::string_view name) const {
    for (const CommandInfo& command : commands()) {
        if (command.name != name) continue;
        const bool inMenu = std::find(std::begin(kMenus), std::end(kMenus), command.place) != std::end(kMenus);
        if (inMenu || (command.place == "sbar" && name.starts_with("sbar") && name.size() == 5))
            return Home{Home::kAlways};
        return homeIn(command.place);
    }
    for (const ListInfo& list : lists())
        if (list.name == name) return homeIn(list.place);
    for (const FieldGroup* group : parts_.groups())
        for (const Field* field : group->fields)
            if (field->spec().name == name) return homeIn(group->name);
    return homeIn(name);
}

bool HelpRules::canShow(std::string_view name) const { return homeOf(name).has_value(); }

void HelpRules::showControl(std::string_view name) {
    const auto home = homeOf(name);
    if (!home) return;
    if (home->kind == Home::kTab && !parts_.modes.showFrame(home->frame)) return;
    if (home->kind == Home::kWindow) commandWanted.emit(std::string(home->opener));
    controlWanted.emit(std::string(name));
}

}  // namespace gatehouse
