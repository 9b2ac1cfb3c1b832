#include "startup/gatehouse.h"

#include "base/numbers.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/files.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

Gatehouse::Gatehouse(const Services& services, std::string programFolder)
    : services_(services),
      programFolder_(std::move(programFolder)),
      log(services.files, services.events, services.clock, run, options, splash, q3),
      store(services.settings, log),
      optionKeeper(options, store, log, run),
      finder(services.files, services.events, services.dialogs, log, splash),
      maps(services.files, log, run),
      models(services.files, log, run),
      aliases(services.files, log, run, doc.bindlist),
      serverLists(services.files, log, run, flags, options.ghcdir, iplist),
      addressForm(services.clipboard, services.dialogs, services.events, log, run),
      playersForm(iplist, services.events, log),
      statusQuery({services.socket, services.events, services.clock, services.files, services.dialogs, log, flags,
                   iplist, mods, options.q3pingwait, run.ServerListChanged}),
      serverCommands({services.files, services.dialogs, services.clipboard, services.events, log, store, run, flags,
                      mods, options.ghcdir, iplist, serverLists, statusQuery, addressForm, playersForm,
                      [this] { modOptions.showFor("C"); }}),
      modDiscovery(services.files, services.archives, log, services.events, store, run, mods),
      modChoice(mods, doc, run),
      modOptions(mods, run, doc.edits, services.dialogs, services.events),
      serverRules(doc, run, services.dialogs),
      // A benchmark has nothing to run until configs and demos are chosen.
      modes(run, flags, doc, iplist, log, [this] { flags.SetRunEnabled(false); }),
      playerRules(doc),
      botsRules(doc, flags, run, services.events),
      keyRules(doc.bindlist, run, log, services.events),
      rotationRules(doc.maplist, maps.maptree, flags, run, log),
      tabReset({services.dialogs, log, run, flags, doc, iplist, models, keyRules, modes.TabKey,
                [this](const std::string& path) { selectModel(path); }}),
      documents(
          {services.files, services.dialogs, log, store, run, doc, flags, *this, options.ghcdir, options.q3overwrite}),
      gameConfig({doc, mods, *this, aliases, services.random, log}),
      launcher({services.files, services.processes, services.dialogs, log, run, doc, mods, iplist, options.q3runoptions,
                options.extracmdline, gameConfig, [this] { benchmark(); }}),
      optionsRules({services.files, finder, services.dialogs, services.viewers, log, store, run, options, documents,
                    [this] { return log.LogPath(); }, [this] { closeAllWindows(); }}),
      history(doc, run, log, outsideValues(), [this] { rotationRestored(); }) {
    doc.markChanges(run);
    statusQuery.showPlayers = [this] { playersForm.showPlayers(); };
    connections_.emplace_back(documents.loaded, std::function<void()>([this] { history.startAnew(); }));
    for (Observable<bool>* form : forms()) {
        connections_.emplace_back(form->changed, std::function<void()>([this, form] {
                                      if (!form->get() && !closing_) q3_Activate();
                                  }));
    }
}

std::vector<OutsideValue> Gatehouse::outsideValues() {
    using Texts = std::vector<std::string>;
    return {{.get = [this] { return Texts{models.mdltree.current() == 0 ? std::string() : models.selectedModel()}; },
             .set = [this](const Texts& path) { selectModel(path.front()); },
             .edits = &models.mdltree.edits},
            {.get = [this] { return mods.values(); },
             .set = [this](const Texts& values) {
                 mods.setValues(values);
                 run.ConfigChanged = true;
             }}};
}

void Gatehouse::rotationRestored() {
    maps.unmarkAll();
    maps.markRotation(doc.maplist);
    rotationRules.rotationRestored();
}

std::vector<Observable<bool>*> Gatehouse::forms() {
    return {&botsRules.q3newbot,     &addressForm.q3newip,   &keyRules.q3keyboard, &tabReset.q3resetprompt,
            &optionsRules.q3options, &playersForm.q3players, &modOptions.q3mod,    &q3about};
}

void Gatehouse::selectModel(const std::string& path) {
    if (!models.selectModel(path)) return;
    std::string choice = models.selectedModel();
    std::replace(choice.begin(), choice.end(), '\\', '/');
    doc.currmodel.setText(choice);
}

void Gatehouse::mtoolsconsole_Click() {
    run.ShowConsole.set(!run.ShowConsole.get());
    store.setOption("showconsole", booleanText(run.ShowConsole.get()));
    q3.height.set(run.ShowConsole.get() ? MainView::kHeightWithConsole : MainView::kHeight);
}

void Gatehouse::mhelpabout_Click() {
    log.logEvent("about dialog loaded");
    q3about.set(true);
}

void Gatehouse::q3aboutOK_Click() {
    q3about.set(false);
    log.logEvent("about dialog closed");
}

void Gatehouse::q3_Activate() {
    if (doc.q3botlist.empty()) flags.q3botdel.set(false);
    if (!doc.maplist.empty()) doc.maplist.setCurrent(1);
}

void Gatehouse::benchmark() { throw RuntimeFailure("Benchmarks can't be run by this version"); }

void Gatehouse::closeAllWindows() {
    if (closing_) return;
    closing_ = true;
    if (q3.loaded && !unloading_) q3_Unload();
    for (Observable<bool>* form : forms()) form->set(false);
    q3.restoreDesign();
    splash.restoreDesign();
    optionsRules.restoreDesign();
    optionKeeper.restoreDesign();
    doc.restoreDesign();
    modes.restoreDesign();
    statusQuery.restoreDesign();
    addressForm.restoreDesign();
    playersForm.restoreDesign();
    serverCommands.restoreDesign();
    iplist.clear();
    maps.maptree.clear();
    models.mdltree.clear();
    mods.clear();
    flags.restoreDesign();
    botsRules.restoreDesign();
    rotationRules.restoreDesign();
    history.startAnew();
    run.CurrentMode.set(kConnect);
    run.title.set("Gatehouse: ");
    run.ConfigChanged = false;  // putting the fields back has set it
    if (ready_) services_.events.endWaits();
    closing_ = false;
}

void Gatehouse::q3_Unload() {
    if (unloading_) return;
    unloading_ = true;
    log.logEvent("Unloading gatehouse", true);
    maps.saveUserMaps();
    store.setOption("showconsole", booleanText(run.ShowConsole.get()));
    const auto ask = [this](const std::string& question) {
        return services_.dialogs.show(
                   {.title = "Exit Gatehouse", .text = question, .buttons = Buttons::YesNo, .icon = Icon::Question}) ==
               Answer::Yes;
    };
    if (run.ServerListChanged) {
        log.logEvent("Server list has changed", true);
        if (ask("Save changes to server list?")) {
            log.logEvent("User requests server list save.", true);
            serverLists.SaveServerList(run.CurrentServerList);
        } else {
            log.logEvent("User abandons changes", true);
        }
    }
    if (run.ConfigChanged) {
        log.logEvent("Configuration has changed", true);
        if (ask("Save changes to " + run.CurrentConfigPath + "?")) {
            log.logEvent("User requests changes are saved", true);
            documents.writeConfig(run.CurrentConfigPath);
        } else {
            log.logEvent("User abandons config changes", true);
        }
    }
    closeAllWindows();
    unloading_ = false;
}

std::string Gatehouse::handleFatal(const std::exception& failure, bool canShow) {
    std::string line = std::string("Gatehouse can't go on: ") + failure.what();
    const auto attempt = [&line](auto&& action) {
        try {
            action();
        } catch (const std::exception& second) {
            line += std::string("; ") + second.what();
        }
    };
    const auto* document = dynamic_cast<const DocumentFailure*>(&failure);
    if (document) attempt([&] { mendOptions(*document); });
    if (!document && ready_ && run.ConfigChanged) {
        attempt([&] {
            const std::string rescue = run.AppDir + "rescue.ghc";
            documents.writeRescue(rescue);
            line += "; what was not saved is in " + rescue;
        });
    }
    const auto show = [&] { services_.dialogs.show({.title = "Gatehouse", .text = line, .icon = Icon::Stop}); };
    if (canShow && !closing_) attempt(show);
    return line;
}

void Gatehouse::mendOptions(const DocumentFailure& failure) {
    const std::string standard = documents.defaultPath();
    const bool isDefault = equalNoCase(failure.path(), standard);
    if (equalNoCase(failure.path(), store.getOption("lastcfg", standard))) store.setOption("lastcfg", standard);
    if (!isDefault) return;
    services_.files.renameFile(standard, trim(options.ghcdir.text()) + "default.bad");
}

}  // namespace gatehouse
