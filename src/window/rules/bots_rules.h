#pragma once

#include "base/command_flags.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "config/settings_document.h"

#include <functional>
#include <vector>

namespace gatehouse {

/// The rules of the Bots tab: the list of named bots, and the switch between it and random bots.
class BotsRules {
public:
    /// Shows the dialog `q3newbot` with this bot in its fields. True if the user wants the bot that is then there.
    using AskBot = std::function<bool(BotEntry&)>;

    /// The rules hold from here on, for as long as this object lives. Until there is a dialog nobody adds a bot.
    BotsRules(SettingsDocument& doc, CommandFlags& flags, RunState& run);
    BotsRules(const BotsRules&) = delete;
    BotsRules& operator=(const BotsRules&) = delete;

    AskBot askBot;
    /// The list asks for the input focus.
    Signal<> q3botlistFocusWanted;

    void q3botadd_Click();
    void q3botdel_Click();

    /// Shows again what stands there before any document.
    void restoreDesign() { q3randbots_Click(); }

private:
    void q3randbots_Click();
    bool random() const { return doc_.q3randbots.value() == 1; }
    /// There is something to delete while the list is in use and has rows, whatever set the flag last.
    void enableDelete() { flags_.q3botdel.set(!random() && !doc_.q3botlist.empty()); }
    void listChanged();

    SettingsDocument& doc_;
    CommandFlags& flags_;
    RunState& run_;
    std::vector<Connection> connections_;
};

}  // namespace gatehouse
