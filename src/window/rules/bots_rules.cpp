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

BotsRules::BotsRules(const Ground& ground, SettingsDocument& doc)
    : doc_(doc), flags_(ground.flags), run_(ground.run), events_(ground.events) {
    follow_.on(doc.q3randbots.changed, [this] { q3randbots_Click(); });
    const auto enable = [this] { enableDelete(); };
    follow_.on(doc.q3botlist.rowInserted, enable);
    follow_.on(doc.q3botlist.rowRemoved, enable);
    follow_.on(doc.q3botlist.reset, enable);
    // A document enables the button with its list, rows or not.
    follow_.on(flags_.q3botdel.changed, enable);
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
