#pragma once

#include "base/command_flags.h"
#include "base/form.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "config/bots.h"
#include "config/settings_document.h"
#include "platform/event_loop.h"
#include "platform/ground.h"

namespace gatehouse {

/// The rules of the Bots tab: the list of named bots, the dialog `q3newbot` that adds to it, and the switch between it
/// and random bots.
class BotsRules {
public:
    /// The rules hold from here on, for as long as this object lives.
    BotsRules(const Ground& ground, SettingsDocument& doc);
    BotsRules(const BotsRules&) = delete;
    BotsRules& operator=(const BotsRules&) = delete;

    /// Whether the dialog is on show.
    Form q3newbot{"q3newbot"};
    FieldGroup newbot{"newbot"};
    ListField newbotname{newbot,
                         {"newbotname", "Name:", "Who joins your game. Nobody minds if the same one joins twice."},
                         {kBotNames.begin(), kBotNames.end()}};
    /// Holds "X" once the dialog is cancelled.
    TextField newbotskill{newbot,
                          {"newbotskill", "Skill:", "From 1, who can hardly aim, to 5, who never misses."},
                          "",
                          Range{1, 5, 1}};
    ListField newbotteam{newbot,
                         {"newbotteam", "Team:", "Whose side the bot is on. Only team games care."},
                         {kBotTeams.begin(), kBotTeams.end()}};

    /// The list asks for the input focus.
    Signal<> q3botlistFocusWanted;

    /// Returns once the dialog is hidden.
    void q3botadd_Click();
    void q3botdel_Click();
    void newbotOK_Click() { q3newbot.set(false); }
    void newbotcancel_Click();

    /// Shows again what stands there before any document. A dialog that is on show goes without a bot.
    void restoreDesign();

private:
    void q3randbots_Click();
    bool random() const { return doc_.q3randbots.value() == 1; }
    /// There is something to delete while the list is in use and has rows, whatever set the flag last.
    void enableDelete() { flags_.q3botdel.set(!random() && !doc_.q3botlist.empty()); }
    void listChanged();

    SettingsDocument& doc_;
    CommandFlags& flags_;
    RunState& run_;
    EventLoop& events_;
    Connections follow_;
};

}  // namespace gatehouse
