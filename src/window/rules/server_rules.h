#pragma once

#include "base/run_state.h"
#include "base/signal.h"
#include "config/settings_document.h"
#include "platform/dialogs.h"
#include "platform/ground.h"

#include <array>
#include <string_view>

namespace gatehouse {

/// The rules that tie the fields of the Server tab together: limits remembered for each game type and what is shown
/// for which, the least hunk size, the passwords, downloads and the pure server.
class ServerRules {
public:
    /// The rules hold from here on, for as long as this object lives.
    ServerRules(const Ground& ground, SettingsDocument& doc);
    ServerRules(const ServerRules&) = delete;
    ServerRules& operator=(const ServerRules&) = delete;

private:
    /// The remembered limits of one game type.
    struct Limits {
        NumberField& frags;
        NumberField& time;
        NumberField* friendlyFire;  ///< none without teams
        std::string_view label;
    };

    void q3gametype_Click();
    void dowarmup_Click();
    void fraglimit_Change();
    void timelimit_Change();
    void fgame_Click();
    void q3hunksize_Change();
    void sv_allowdownload_Click();
    void password_Click(const CheckField& use, TextField& pass);

    /// The limits of the game type at a position, or nothing for a position that takes no part.
    const Limits* limitsAt(int position) const;
    const Limits* limitsOnShow() const { return limitsAt(doc_.q3gametype.index()); }
    void showIfOnShow(const Limits& limits, const NumberField& limit, TextField& field);
    void storeLimits(const Limits& limits);
    void showLimits();
    void showWarmup();

    SettingsDocument& doc_;
    RunState& run_;
    Dialogs& dialogs_;
    Log& log_;
    std::array<Limits, 4> limits_;
    Connections follow_;
};

}  // namespace gatehouse
