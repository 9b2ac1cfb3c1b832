#include "launch/filesout.h"

#include "base/text.h"
#include "config/bindings.h"

namespace gatehouse {

void GameConfig::close() {
    CfgStream_->close();
    CfgStream_.reset();
}

void GameConfig::WriteHeader() {
    // A client's file says "Server" too.
    for (const char* line :
         {"", "// GATEHOUSE.CFG", "", "// Temporary file created by Gatehouse to start a Quake 3: Arena Server", "",
          "// Any modifications you make to this file will be lost the next time",
          "// Gatehouse is run. You can rename this file to something else (.cfg)",
          "// if you want to use it again without running Gatehouse."})
        writeLine(line);
}

void GameConfig::WriteFooter() { writeTitle("Finished"); }

void GameConfig::writeTitle(const std::string& title) {
    writeLine("");
    writeLine("// " + title);
    writeLine("");
}

void GameConfig::writeModBlock(bool ModOption::*side) {
    const ModEntry& mod = from_.mods.current();
    if (mod.cvars <= 0) return;
    writeTitle("Game Settings - " + mod.name);
    for (std::size_t i = 0; i < mod.optionCount(); ++i) {
        const ModOption& option = mod.options[i];
        if (!(option.*side)) continue;
        const bool isCheck = option.type == "checkbox";
        const std::string value = isCheck ? (equalNoCase(option.value, "true") ? "1" : "0") : option.value;
        writeLine("seta " + option.name + " " + quoted(value));
    }
    writeTitle("End " + mod.name + " Settings.");
}

void GameConfig::WriteKeyBindings() {
    constexpr std::size_t kKeyWidth = 19;
    writeTitle("Key Bindings:");
    const BindingTable& bindlist = from_.doc.bindlist;
    for (int position = 1; position <= bindlist.count(); ++position) {
        const KeyBinding& row = bindlist.at(position);
        if (row.kind == BindingKind::Alias || row.tag.empty()) continue;
        const std::string key = lower(keyButton(row.tag).gameKey);
        writeLine("bind " + padRight(key, kKeyWidth) + " " + quoted(row.key));
    }
    from_.log.logEvent("->Wrote player bindings OK");
    from_.aliases.WriteAliases(*CfgStream_);
}

}  // namespace gatehouse
