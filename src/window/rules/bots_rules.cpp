#include "window/rules/bots_rules.h"

#include <algorithm>
#include <string>
#include <utility>

namespace gatehouse {

BotsRules::BotsRules(SettingsDocument& doc, CommandFlags& flags, RunState& run) : doc_(doc), flags_(flags), run_(run) {
    const auto on = [this](auto& signal, auto rule) { connections_.emplace_back(signal, std::move(rule)); };
    const std::function<void(int)> rowsChanged = [this](int) { enableDelete(); };
    const std::function<void()> changed = [this] { enableDelete(); };
    on(doc.q3randbots.changed, std::function<void()>([this] { q3randbots_Click(); }));
    on(doc.q3botlist.rowInserted, rowsChanged);
    on(doc.q3botlist.rowRemoved, rowsChanged);
    on(doc.q3botlist.reset, changed);
    // A document enables the button with its list, rows or not.
    on(flags.q3botdel.changed, changed);
    q3randbots_Click();
}

void BotsRules::q3randbots_Click() {
    const bool named = !random();
    for (Field* field : {static_cast<Field*>(&doc_.q3randnum), static_cast<Field*>(&doc_.q3randskill)}) {
        field->visible.set(!named);
        field->enabled.set(!named);
    }
    flags_.namedBotsShown.set(named);
    flags_.q3botlist.set(named);
    flags_.q3botadd.set(named);
    enableDelete();
}

void BotsRules::q3botadd_Click() {
    BotEntry bot{std::string(kBotNames.front()), "1", std::string(kBotTeams.front())};
    if (!askBot || !askBot(bot)) return;
    doc_.q3botlist.append(std::move(bot));
    doc_.q3botlist.setCurrent(doc_.q3botlist.count());
    listChanged();
}

void BotsRules::q3botdel_Click() {
    const int position = doc_.q3botlist.current();
    if (position == 0) return;
    doc_.q3botlist.remove(position);
    doc_.q3botlist.setCurrent(std::min(position, doc_.q3botlist.count()));
    listChanged();
}

void BotsRules::listChanged() {
    run_.ConfigChanged = true;
    q3botlistFocusWanted.emit();
}

}  // namespace gatehouse
