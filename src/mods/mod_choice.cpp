#include "mods/mod_choice.h"

#include "base/text.h"

#include <functional>
#include <unordered_map>
#include <vector>

namespace gatehouse {

namespace {

std::string comparable(const std::string& text) { return lower(trim(text)); }

}  // namespace

ModChoice::ModChoice(ModTable& mods, SettingsDocument& doc, RunState& run)
    : mods_(mods),
      doc_(doc),
      run_(run),
      modcomboChanged_(doc.modcombo.changed, std::function<void()>([this] { modcombo_Click(); })) {}

void ModChoice::fillModcombo(const Files& files) {
    mods_.setCurrentMod(0);
    std::unordered_map<std::string, int> folders;
    for (const FolderEntry& folder : files.listFolder(run_.GameDir).folders) ++folders[comparable(folder.name)];
    std::vector<Choice> choices;
    for (int index = 1; index <= mods_.modCount(); ++index) {
        const ModEntry& mod = mods_.at(index);
        const auto found = folders.find(comparable(mod.dir));
        if (found == folders.end()) continue;
        choices.insert(choices.end(), static_cast<std::size_t>(found->second), Choice{mod.name});
    }
    const bool any = !choices.empty();
    doc_.modcombo.setChoices(std::move(choices));
    if (any) doc_.modcombo.setIndex(0);
}

void ModChoice::modcombo_Click() {
    run_.ConfigChanged = true;
    removeKeyRows();
    doc_.q3gametype.setChoices({});
    chooseMod();
}

void ModChoice::removeKeyRows() {
    BindingTable& bindlist = doc_.bindlist;
    for (int left = mods_.current().keys; left > 0 && !bindlist.empty(); --left)
        if (bindlist.at(bindlist.count()).kind == BindingKind::Mod) bindlist.remove(bindlist.count());
}

void ModChoice::chooseMod() {
    if (doc_.modcombo.index() < 0) return;
    const std::string chosen = comparable(doc_.modcombo.text());
    for (int index = 1; index <= mods_.modCount(); ++index) {
        const ModEntry& mod = mods_.at(index);
        if (comparable(mod.name) != chosen) continue;
        mods_.setCurrentMod(index);
        offerGameTypes(mod);
        if (mod.keys >= 1) addKeyRows(mod);
        return;
    }
}

void ModChoice::offerGameTypes(const ModEntry& mod) {
    std::vector<Choice> choices;
    for (std::size_t number = 0; number < mod.gtype.size(); ++number)
        if (!trim(mod.gtype[number]).empty()) choices.push_back({mod.gtype[number], static_cast<int>(number)});
    const bool any = !choices.empty();
    doc_.q3gametype.setChoices(std::move(choices));
    if (any) doc_.q3gametype.setIndex(0);
}

void ModChoice::addKeyRows(const ModEntry& mod) {
    for (const ModKey& key : mod.modKeys)
        doc_.bindlist.append({.text = mod.name + " (" + key.key + ")",
                              .key = key.cmd,
                              .label = std::string(kUnbound),
                              .tag = {},
                              .kind = BindingKind::Mod});
}

}  // namespace gatehouse
