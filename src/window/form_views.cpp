#include "window/form_views.h"

#include "startup/gatehouse.h"
#include "window/dialogs/about_dialog.h"
#include "window/dialogs/address_dialog.h"
#include "window/dialogs/find_servers_dialog.h"
#include "window/dialogs/keyboard_dialog.h"
#include "window/dialogs/mod_dialog.h"
#include "window/dialogs/new_bot_dialog.h"
#include "window/dialogs/options_dialog.h"
#include "window/dialogs/pak_maps_dialog.h"
#include "window/dialogs/players_dialog.h"
#include "window/dialogs/reset_prompt.h"
#include "window/dialogs/results_dialog.h"
#include "window/dialogs/stale_dialog.h"

namespace gatehouse {

namespace {

struct FormView {
    std::string_view form;
    QDialog* (*make)(Gatehouse& program, QWidget* parent);
};

constexpr FormView kFormViews[] = {
    {"q3newbot",
     [](Gatehouse& program, QWidget* parent) -> QDialog* { return new NewBotDialog(program.rules.botsRules, parent); }},
    {"q3newip",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new AddressDialog(program.servers.addressForm, parent);
     }},
    {"q3find",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new FindServersDialog(program.servers.search, program.servers.favourites, parent);
     }},
    {"q3about", [](Gatehouse& program, QWidget* parent) -> QDialog* { return new AboutDialog(program, parent); }},
    {"q3keyboard",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new KeyboardDialog(program.rules.keyRules, parent);
     }},
    {"q3pakmaps",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new PakMapsDialog(program.content.mapCommands.pakMaps, parent);
     }},
    {"q3resetprompt",
     [](Gatehouse& program, QWidget* parent) -> QDialog* { return new ResetPrompt(program.rules.tabReset, parent); }},
    {"q3options",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new OptionsDialog(program.startup.options, program.rules.optionsRules, parent);
     }},
    {"q3players",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new PlayersDialog(program.servers.playersForm, parent);
     }},
    {"waitwindow",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new StaleDialog(program.benchmark.run.stale, parent);
     }},
    {"q3results",
     [](Gatehouse& program, QWidget* parent) -> QDialog* {
         return new ResultsDialog(program.benchmark.results, parent);
     }},
    {"q3mod",
     [](Gatehouse& program, QWidget* parent) -> QDialog* { return new ModDialog(program.rules.modOptions, parent); }},
};

}  // namespace

QDialog* makeFormView(std::string_view form, Gatehouse& program, QWidget* parent) {
    for (const FormView& view : kFormViews)
        if (view.form == form) return view.make(program, parent);
    return nullptr;
}

}  // namespace gatehouse
