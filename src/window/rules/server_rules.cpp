#include "window/rules/server_rules.h"

#include "base/log.h"
#include "base/numbers.h"

#include <cmath>
#include <string>
#include <utility>

namespace gatehouse {

namespace {

constexpr double kLeastHunkSize = 26.0;

}  // namespace

ServerRules::ServerRules(const Ground& ground, SettingsDocument& doc)
    : doc_(doc),
      run_(ground.run),
      dialogs_(ground.dialogs),
      log_(ground.log),
      limits_{{{doc.ui_ffa_fraglimit, doc.ui_ffa_timelimit, nullptr, "Frags:"},
               {doc.ui_tourney_fraglimit, doc.ui_tourney_timelimit, nullptr, "Frags:"},
               {doc.ui_team_fraglimit, doc.ui_team_timelimit, &doc.ui_team_friendly, "Frags:"},
               {doc.ui_ctf_capturelimit, doc.ui_ctf_timelimit, &doc.ui_ctf_friendly, "Caps:"}}} {
    follow_.on(doc.q3gametype.changed, [this] { q3gametype_Click(); });
    follow_.on(doc.dowarmup.changed, [this] { dowarmup_Click(); });
    follow_.on(doc.fraglimit.changed, [this] { fraglimit_Change(); });
    follow_.on(doc.timelimit.changed, [this] { timelimit_Change(); });
    follow_.on(doc.fgame.changed, [this] { fgame_Click(); });
    follow_.on(doc.q3hunksize.changed, [this] { q3hunksize_Change(); });
    follow_.on(doc.q3usepass.changed, [this] { password_Click(doc_.q3usepass, doc_.q3serverpass); });
    follow_.on(doc.q3userconpass.changed, [this] { password_Click(doc_.q3userconpass, doc_.q3rconpass); });
    follow_.on(doc.sv_allowdownload.changed, [this] { sv_allowdownload_Click(); });
    // A limit that a document sets after its game type is shown at once.
    for (const Limits& limits : limits_) {
        follow_.on(limits.frags.changed, [this, &limits] { showIfOnShow(limits, limits.frags, doc_.fraglimit); });
        follow_.on(limits.time.changed, [this, &limits] { showIfOnShow(limits, limits.time, doc_.timelimit); });
        if (!limits.friendlyFire) continue;
        follow_.on(limits.friendlyFire->changed, [this, &limits] {
            if (&limits == limitsOnShow()) doc_.fgame.setValue(limits.friendlyFire->value());
        });
    }
}

const ServerRules::Limits* ServerRules::limitsAt(int position) const {
    return position >= 0 && position < static_cast<int>(limits_.size()) ? &limits_[static_cast<std::size_t>(position)]
                                                                        : nullptr;
}

void ServerRules::q3gametype_Click() {
    const int position = doc_.q3gametype.index();
    if (position != doc_.LastGameType) run_.ConfigChanged = true;
    if (const Limits* last = limitsAt(doc_.LastGameType)) storeLimits(*last);
    // Moved before the fields are written: what they then report belongs to the new type.
    doc_.LastGameType = position;
    if (!limitsOnShow()) return;
    showLimits();
    showWarmup();
    const bool teams = limitsOnShow()->friendlyFire != nullptr;
    doc_.fgame.visible.set(teams);
    doc_.forcebalance.visible.set(teams);
    doc_.autojoin.visible.set(teams);
}

void ServerRules::showIfOnShow(const Limits& limits, const NumberField& limit, TextField& field) {
    if (&limits != limitsOnShow()) return;
    // What the user types stays as typed: "020" is 20 already.
    if (isNumeric(field.text()) && std::nearbyint(val(field.text())) == limit.value()) return;
    field.setText(std::to_string(limit.value()));
}

void ServerRules::storeLimits(const Limits& limits) {
    limits.frags.setValue(strictInt16(doc_.fraglimit));
    limits.time.setValue(strictInt16(doc_.timelimit));
    if (limits.friendlyFire) limits.friendlyFire->setValue(doc_.fgame.value());
}

void ServerRules::showLimits() {
    const Limits& limits = *limitsOnShow();
    doc_.fraglabel.setText(std::string(limits.label));
    doc_.fraglimit.setText(std::to_string(limits.frags.value()));
    doc_.timelimit.setText(std::to_string(limits.time.value()));
    if (limits.friendlyFire) doc_.fgame.setValue(limits.friendlyFire->value());
}

void ServerRules::showWarmup() {
    const Limits* limits = limitsOnShow();
    if (limits) doc_.warmup.visible.set(limits->friendlyFire != nullptr || doc_.dowarmup.value() != 0);
}

void ServerRules::dowarmup_Click() { showWarmup(); }

void ServerRules::fraglimit_Change() {
    if (const Limits* limits = limitsOnShow()) limits->frags.setValue(strictInt16(doc_.fraglimit));
}

void ServerRules::timelimit_Change() {
    if (const Limits* limits = limitsOnShow()) limits->time.setValue(strictInt16(doc_.timelimit));
}

void ServerRules::fgame_Click() {
    const Limits* limits = limitsOnShow();
    if (limits && limits->friendlyFire) limits->friendlyFire->setValue(doc_.fgame.value());
}

void ServerRules::q3hunksize_Change() {
    if (val(doc_.q3hunksize.text()) >= kLeastHunkSize) return;
    const std::string text = "Server Cannot Run With Less Than 26 Mb";
    // Nobody watches a benchmark, and it must not wait for anybody.
    if (run_.benchmarking.get())
        log_.logEvent(text, true);
    else
        dialogs_.show({.title = "Invalid Parameter", .text = text, .icon = Icon::Stop, .safeAnswer = Answer::Ok});
    doc_.q3hunksize.setText("26");
}

void ServerRules::password_Click(const CheckField& use, TextField& pass) {
    pass.enabled.set(use.value() != 0);
    if (use.value() == 0) pass.setText("");
}

void ServerRules::sv_allowdownload_Click() {
    const bool download = doc_.sv_allowdownload.value() != 0;
    if (download) doc_.q3pure.setValue(1);
    doc_.q3pure.enabled.set(!download);
}

}  // namespace gatehouse
