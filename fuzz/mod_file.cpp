// The mod definition file: accepted or refused, never more; and a mod that is accepted can be chosen and left again.

#include "mods/mod_file.h"

#include "base/runtime_failure.h"
#include "fuzz.h"
#include "mods/mod_choice.h"
#include "support/core/fakes.h"

namespace {

using namespace gatehouse;

const std::string kPath = "C:\\gh\\mods\\one.ghm";

void chooseAndLeave(const ModEntry& entry) {
    RunState run;
    SettingsDocument doc;
    ModTable mods;
    ModChoice choice{mods, doc, run};
    fillBindings(doc.bindlist);
    const int actions = doc.bindlist.count();
    mods.add(entry);
    doc.modcombo.setChoices({{entry.name}, {entry.name + " and more"}});
    doc.modcombo.setIndex(0);
    for (const ModVariable& variable : mods.variables()) mods.setVariable(variable.name, "1");
    fuzz::require(mods.variables().size() <= entry.options.size(), "no option is counted that isn't there");
    doc.modcombo.setIndex(1);
    fuzz::require(doc.bindlist.count() >= actions && doc.bindlist.at(actions).kind == BindingKind::Action,
                  "the game's own actions stay");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fake::MemoryFiles files;
    files.put(kPath, fuzz::textOf(data, size));
    ModEntry entry;
    if (!parseModFile(files, kPath, entry)) return 0;
    try {
        chooseAndLeave(entry);
    } catch (const RuntimeFailure&) {
        // More keys than the list of keys holds.
    }
    return 0;
}
