#include "window/rules/bots_rules.h"

#include "platform/forms.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::string_view kCancelled = "X";

}  // namespace

BotsRules::BotsRules(SettingsDocument& doc, CommandFlags& flags, RunState& run, EventLoop& events)
    : doc_(doc), flags_(flags), run_(run), events_(events) {
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
    newbotname.setIndex(0);
    newbotskill.setText("1");
    newbotteam.setIndex(0);
    showModal(q3newbot, events_);
    if (newbotskill.text() == kCancelled) return;
    BotTable& bots = doc_.q3botlist;
    bots.edits.make("Add Bot",
                    [&] { bots.setCurrent(bots.append({newbotname.text(), newbotskill.text(), newbotteam.text()})); });
    listChanged();
}

void BotsRules::newbotcancel_Click() {
    newbotskill.setText(std::string(kCancelled));
    q3newbot.set(false);
}

void BotsRules::q3botdel_Click() {
    BotTable& bots = doc_.q3botlist;
    const int position = bots.current();
    if (position == 0) return;
    bots.edits.make("Delete Bot", [&] {
        bots.remove(position);
        bots.setCurrent(std::min(position, bots.count()));
    });
    listChanged();
}

void BotsRules::restoreDesign() {
    newbotcancel_Click();
    q3randbots_Click();
}

void BotsRules::listChanged() {
    run_.ConfigChanged = true;
    q3botlistFocusWanted.emit();
}

}  // namespace gatehouse
