#include "window/rules/mod_options.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/forms.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::string_view kServer = "S";
constexpr std::string_view kClient = "C";
constexpr std::string_view kAll = "A";

constexpr int kNarrowWidth = 3500;
constexpr int kLeastWidth = 5000;
constexpr int kWideEdge = 200;
constexpr int kHeaderTop = 450;
constexpr int kHeaderLine = 350;
constexpr int kTallestList = 4550;
constexpr int kBottom = 800;
constexpr int kTitleInterval = 250;
constexpr double kTitleShare = 0.95;
constexpr std::string_view kTitleGap = "  ";

ModEditor editorFor(const std::string& type) {
    if (type == "checkbox") return ModEditor::Check;
    if (type == "textbox") return ModEditor::Text;
    if (type == "listbox") return ModEditor::List;
    if (type == "number") return ModEditor::Number;
    return ModEditor::None;
}

/// A mod is wide by what it declares, however little of it is shown.
int dialogWidth(int cvars) {
    using Plan = ModDialogPlan;
    const bool wide = cvars > Plan::kRowsPerColumn;
    const int width = wide ? (cvars / Plan::kRowsPerColumn + 1) * Plan::kColumnPitch + kWideEdge : kNarrowWidth;
    return std::max(width, kLeastWidth);
}

int dialogHeight(int shown, int top) {
    if (shown == 0) return top + kBottom;
    if (shown <= ModDialogPlan::kRowsPerColumn) return (shown + 1) * ModDialogPlan::kRowPitch + top + kBottom;
    return kTallestList + top + kBottom;
}

std::string countOrNo(int count) { return count < 1 ? "No" : std::to_string(count); }

ModLink makeLink(const std::string& target, bool cut, std::string_view scheme) {
    return {target, cut ? target.substr(scheme.size()) : target, !trim(target).empty()};
}

/// One less than the value, though a choice is stored without the one: each opening after a change selects the row
/// above. It is meant. Nothing for a value that names no entry.
std::optional<int> startIndex(const ModOption& option) {
    if (!isNumeric(option.value)) return std::nullopt;
    const double place = std::nearbyint(val(option.value) - 1);
    if (place < -1 || place >= static_cast<double>(option.listitems.size())) return std::nullopt;
    return static_cast<int>(place);
}

ModField makeField(const ModOption& option, int index, int place) {
    ModField field{.index = index,
                   .row = place % ModDialogPlan::kRowsPerColumn,
                   .column = place / ModDialogPlan::kRowsPerColumn,
                   .editor = editorFor(trim(option.type)),
                   .caption = option.text + ":",
                   .name = option.name,
                   .text = option.value};
    if (field.editor == ModEditor::Check) field.checked = lower(trim(option.value)) == "true";
    if (field.editor == ModEditor::List) {
        field.listitems = option.listitems;
        field.listIndex = startIndex(option).value_or(-1);
    }
    if (field.editor == ModEditor::Number && option.increment >= 1) {
        const auto [least, most] = std::minmax(option.min, option.max);
        field.spin = Range{least, most, option.increment};
    }
    return field;
}

}  // namespace

ModOptions::ModOptions(const Ground& ground, ModTable& mods, Edits& edits)
    : mods_(mods),
      run_(ground.run),
      edits_(edits),
      dialogs_(ground.dialogs),
      log_(ground.log),
      events_(ground.events),
      mtimer_(events_.createTimer([this] { mtimer_Timer(); })),
      hidden_(q3mod.changed, std::function<void()>([this] {
                  if (!q3mod.get()) mtimer_->setEnabled(false);
              })) {
    mtimer_->setInterval(kTitleInterval);
}

void ModOptions::modoptions_Click() {
    modcomboFocusWanted.emit();
    showFor(run_.CurrentMode.get() == kListen ? kAll : kServer);
}

void ModOptions::showFor(std::string_view letter) {
    Tag_ = letter;
    edits_.make("Mod Options", [this] {
        modDialogBuilding_ = true;
        q3mod_Activate();
        q3mod.set(true);  // the view builds itself in here
        modDialogBuilding_ = false;
        showModal(q3mod, events_);
    });
}

void ModOptions::q3mod_Activate() {
    const ModEntry& mod = mods_.current();
    mtimer_->setEnabled(false);
    plan_ = {};
    modShownCount_ = 0;
    const int shown = countShown(mod);
    plan_.width = dialogWidth(mod.cvars);
    plan_.modkeys = summary(mod, shown);
    modname.set(mod.name);
    layOutHeader(mod);
    plan_.height = dialogHeight(shown, plan_.optionsTop);
    addFields(mod);
}

bool ModOptions::shows(const ModOption& option) const {
    return Tag_ == kAll || (Tag_ == kServer && option.server) || (Tag_ == kClient && option.client);
}

std::int16_t ModOptions::countShown(const ModEntry& mod) const {
    const auto first = mod.options.begin();
    return static_cast<std::int16_t>(std::count_if(first, first + static_cast<std::ptrdiff_t>(mod.optionCount()),
                                                   [this](const ModOption& option) { return shows(option); }));
}

std::string ModOptions::summary(const ModEntry& mod, int shown) const {
    std::string text;
    if (Tag_ != kServer) text += countOrNo(mod.keys) + " Key Bindings and ";
    text += countOrNo(shown);
    if (Tag_ != kAll) text += Tag_ == kServer ? " Server" : " Client";
    return text + " Variables";
}

void ModOptions::layOutHeader(const ModEntry& mod) {
    constexpr std::string_view kWeb = "http://";
    constexpr std::string_view kMail = "mailto:";
    // A target that is nothing but the scheme keeps it.
    const bool web = mod.url.size() > kWeb.size() && lower(mod.url).starts_with(kWeb);
    const bool mail = mod.email.size() > kMail.size() && mod.email.starts_with(kMail);
    plan_.modurl = makeLink(mod.url, web, kWeb);
    plan_.modemail = makeLink(mod.email, mail, kMail);
    const int links = (plan_.modurl.visible ? 1 : 0) + (plan_.modemail.visible ? 1 : 0);
    plan_.optionsTop = kHeaderTop + (links + 1) * kHeaderLine;
}

void ModOptions::addFields(const ModEntry& mod) {
    for (std::size_t i = 0; i < mod.optionCount(); ++i) {
        const ModOption& option = mod.options[i];
        if (!shows(option)) continue;
        plan_.fields.push_back(makeField(option, static_cast<int>(i) + 1, modShownCount_));
        if (plan_.fields.back().editor == ModEditor::List && !startIndex(option))
            log_.logEvent(mod.name + ": no entry of " + option.name + " for the value " + quoted(option.value), true);
        ++modShownCount_;
    }
}

void ModOptions::modnameMeasured(int width, int dialogWidth) {
    if (width <= kTitleShare * dialogWidth) return;
    mtimer_->setEnabled(true);
    modname.set(std::string(kTitleGap) + trim(modname.get()) + std::string(kTitleGap));
}

void ModOptions::mtimer_Timer() {
    std::string title = modname.get();
    if (!title.empty()) std::rotate(title.begin(), title.begin() + 1, title.end());
    modname.set(std::move(title));
}

ModOption& ModOptions::option(int index) {
    ModEntry& mod = mods_.current();
    if (index < 1 || index > static_cast<int>(mod.optionCount()))
        throw RuntimeFailure("Index out of bounds: option " + std::to_string(index));
    return mod.options[static_cast<std::size_t>(index) - 1];
}

void ModOptions::store(int index, std::string value) {
    if (modDialogBuilding_) return;
    option(index).value = std::move(value);
    run_.ConfigChanged = true;  // what the document holds would be lost without a word
}

void ModOptions::mcheckbox_Click(int index, bool checked) { store(index, checked ? "true" : "false"); }

void ModOptions::mlistbox_Click(int index, int listIndex) { store(index, std::to_string(listIndex)); }

bool ModOptions::mtextbox_Change(int index, const std::string& text) {
    if (modDialogBuilding_) return true;
    if (editorFor(trim(option(index).type)) == ModEditor::Number && !isNumeric(text)) {
        dialogs_.show({.title = "Number Required", .text = "This field requires a number.", .icon = Icon::Stop});
        return false;
    }
    store(index, text);
    return true;
}

}  // namespace gatehouse
