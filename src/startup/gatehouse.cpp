#include "startup/gatehouse.h"

#include "base/numbers.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/file_tools.h"
#include "platform/resources.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace gatehouse {

namespace {

/// The order in which forms are unloaded, by their names; one that isn't named goes last.
constexpr std::array<std::string_view, 12> kUnloadOrder = {"q3newbot",   "q3newip",       "q3about",   "q3keyboard",
                                                           "q3pakmaps",  "q3resetprompt", "q3options", "q3players",
                                                           "waitwindow", "q3getmaps",     "q3getmdl",  "q3getmods"};

auto unloadPlace(const Form* form) { return std::find(kUnloadOrder.begin(), kUnloadOrder.end(), form->name); }

}  // namespace

Gatehouse::Gatehouse(const Services& services, std::string programFolder)
    : services_(services),
      programFolder_(std::move(programFolder)),
      startup(services),
      config(startup.ground, *this, startup.options.ghcdir, startup.options.q3overwrite),
      mods(startup.ground, services, config.doc),
      content(startup.ground, services, config.doc, startup.q3.q3status),
      servers(startup.ground, services, mods.table, startup.options.ghcdir, startup.options.q3pingwait),
      launch(startup.ground, services,
             {config.doc, mods.table, *this, mods.aliases, servers.iplist, startup.options.q3runoptions,
              startup.options.extracmdline, startup.options.q3FilePath}),
      benchmark(startup.ground, services, {startup.options, config.documents, launch.gameConfig, startup.q3.q3status}),
      rules(startup, services, config, mods, content, servers, [this] { return fieldGroups(); }),
      rescue(startup.ground, services.clock, rescueKinds()),
      update_(startup.ground, content) {
    tieRooms();
}

void Gatehouse::tieRooms() {
    using Texts = std::vector<std::string>;
    config.history.addOutside({.get =
                                   [this] {
                                       const bool none = content.models.mdltree.current() == 0;
                                       return Texts{none ? std::string() : content.models.selectedModel()};
                                   },
                               .set = [this](const Texts& path) { content.selectModel(path.front()); },
                               .edits = &content.models.mdltree.edits});
    config.history.addOutside({.get = [this] { return mods.table.values(); },
                               .set =
                                   [this](const Texts& values) {
                                       mods.table.setValues(values);
                                       run.ConfigChanged = true;
                                   }});
    config.history.addJournal(servers.undo.journal);
    follow_.on(servers.desk.joinWanted, [this] { mfilerun_Click(); });
    follow_.on(launch.command.benchmarkWanted, [this] { benchmark.run.run(); });
    follow_.on(rules.modes.benchmarkEntered, [this] { benchmark.setup.LoadBenchmarkLists(); });
    follow_.on(benchmark.run.tabWanted, [this] { rules.modes.showBenchmarkTab(); });
    follow_.on(rules.optionsRules.closeWanted, [this] { closeAllWindows(); });
    for (Form* form : forms())
        follow_.on(form->changed, [this, form] {
            if (!form->get() && !closing_ && startup.q3.visible.get()) q3_Activate();
        });
}

std::array<Room*, 8> Gatehouse::rooms() const {
    auto& self = const_cast<Gatehouse&>(*this);
    return {&self.startup, &self.config, &self.servers,   &self.content,
            &self.mods,    &self.launch, &self.benchmark, &self.rules};
}

std::vector<const FieldGroup*> Gatehouse::fieldGroups() const {
    std::vector<const FieldGroup*> all;
    for (const FieldGroup* group : const_cast<SettingsDocument&>(config.doc).groups())
        if (group != &config.doc.limits) all.push_back(group);
    for (const FieldGroup* group : {&startup.options.options, &startup.options.benchmark, &rules.botsRules.newbot,
                                    &servers.addressForm.group, &servers.playersForm.group, &servers.filter.fields,
                                    &servers.search.fields, &benchmark.results.fields})
        all.push_back(group);
    return all;
}

std::string Gatehouse::licence() const { return services_.resources.text("LICENSE"); }

std::vector<Form*> Gatehouse::forms() const {
    std::vector<Form*> all;
    for (const Room* room : rooms()) all.insert(all.end(), room->forms().begin(), room->forms().end());
    std::stable_sort(all.begin(), all.end(),
                     [](const Form* a, const Form* b) { return unloadPlace(a) < unloadPlace(b); });
    return all;
}

void Gatehouse::mtoolsconsole_Click() {
    run.ShowConsole.set(!run.ShowConsole.get());
    startup.store.setOption("showconsole", booleanText(run.ShowConsole.get()));
    startup.q3.height.set(run.ShowConsole.get() ? MainView::kHeightWithConsole : MainView::kHeight);
}

void Gatehouse::q3_Activate() {
    servers.commands.SortColumn = kPingColumn;
    if (config.doc.q3botlist.empty()) flags.q3botdel.set(false);
    if (!config.doc.maplist.empty()) config.doc.maplist.setCurrent(1);
    if (run.FirstRun) mhelpover_Click();
}

void Gatehouse::closeAllWindows() {
    if (closing_) return;
    closing_ = true;
    if (startup.q3.loaded && !unloading_) q3_Unload();
    for (Form* form : forms()) form->set(false);
    for (Room* room : rooms()) room->restoreDesign();
    config.history.startAnew();
    run.restoreDesign();  // last: putting the fields back has marked the document as changed
    if (ready_) services_.events.endWaits();
    closing_ = false;
}

void Gatehouse::q3_Unload() {
    if (unloading_) return;
    unloading_ = true;
    run.SaveFailed = false;  // of what was tried before, there may have been another try
    log.logEvent("Unloading gatehouse", true);
    content.maps.saveUserMaps();
    startup.store.setOption("showconsole", booleanText(run.ShowConsole.get()));
    const auto ask = [this](const std::string& question) {
        return services_.dialogs.show({.title = "Exit Gatehouse",
                                       .text = question,
                                       .buttons = Buttons::YesNo,
                                       .icon = Icon::Question,
                                       .noLoses = true}) == Answer::Yes;
    };
    if (run.ServerListChanged) {
        log.logEvent("Server list has changed", true);
        if (ask("Save changes to server list?")) {
            log.logEvent("User requests server list save.", true);
            servers.lists.SaveServerList(run.CurrentServerList);
        } else {
            log.logEvent("User abandons changes", true);
            run.ServerListChanged = false;
        }
    }
    if (run.ConfigChanged) {
        log.logEvent("Configuration has changed", true);
        if (ask("Save changes to " + run.CurrentConfigPath + "?")) {
            log.logEvent("User requests changes are saved", true);
            config.documents.writeConfig(run.CurrentConfigPath);
        } else {
            log.logEvent("User abandons config changes", true);
            run.ConfigChanged = false;
        }
    }
    // What was to be saved and is not, is kept in another place. Otherwise all is dealt with.
    if (run.SaveFailed || run.ServerListChanged || run.ConfigChanged) {
        const Kept kept = keepUnsaved("not all could be saved");
        log.logEvent("Not all could be saved" + kept.where + kept.lost, true);
    } else {
        rescue.takeBack();
    }
    closeAllWindows();
    unloading_ = false;
}

std::string Gatehouse::handleFatal(const std::exception& failure, bool canShow) {
    std::string line = std::string("Gatehouse can't go on: ") + failure.what();
    const auto attempt = [&line](auto&& action) {
        try {
            action();
        } catch (const Shutdown&) {
            // The program ends already, and this is about how.
        } catch (const std::exception& second) {
            line += std::string("; ") + second.what();
        }
    };
    if (const auto* document = dynamic_cast<const DocumentFailure*>(&failure)) attempt([&] { mendOptions(*document); });
    const Kept kept = keepUnsaved(failure.what());
    line += kept.where + kept.lost;
    attempt([&] { log.logEvent(line, true); });
    const auto show = [&] { services_.dialogs.show({.title = "Gatehouse", .text = line, .icon = Icon::Stop}); };
    if (canShow && !closing_) attempt(show);
    return line;
}

Kept Gatehouse::keepUnsaved(const std::string& reason) {
    // Before the window is ready there is no work of anybody's; once it has unloaded, all is saved or given up.
    return ready_ && startup.q3.loaded ? rescue.keep(reason) : Kept();
}

std::string Gatehouse::endQuietly(const std::string& reason) {
    const Kept kept = keepUnsaved(reason);
    const std::string line = "Gatehouse has ended: " + reason + kept.where + kept.lost;
    try {
        log.logEvent(line, true);
        if (ready_ && startup.q3.loaded) startup.store.setOption("showconsole", booleanText(run.ShowConsole.get()));
    } catch (const RuntimeFailure&) {
        // Neither is worth holding up the end.
    }
    services_.events.endWaits();
    return kept.lost.empty() ? std::string() : line;
}

std::vector<RescueKind> Gatehouse::rescueKinds() {
    return {{.stem = "rescue-maps",
             .ending = ".txt",
             .unsaved = [this] { return content.maps.saveOrTell(); },
             .open =
                 [this](const std::string& path) {
                     content.maps.takeUserMaps(path);
                     content.maps.markRotation(config.doc.maplist);
                 }},
            {.stem = "rescue",
             .ending = ".ghc",
             .unsaved = [this] { return config.documents.unsavedText(); },
             .open = [this](const std::string& path) { openRescuedDocument(path); }},
            {.stem = "rescue",
             .ending = ".ghs",
             .unsaved = [this]() -> std::optional<std::string> {
                 if (!run.ServerListChanged) return std::nullopt;
                 return servers.lists.fileText();
             },
             .open = [this](const std::string& path) { openRescuedList(path); }}};
}

void Gatehouse::openRescuedDocument(const std::string& path) {
    config.documents.openDocument(path);
    run.ConfigChanged = true;  // its own document doesn't have it yet
}

void Gatehouse::openRescuedList(const std::string& path) {
    // A list is known by its name in the lists' own folder.
    const std::string& folder = startup.options.ghcdir.text();
    std::string name = bareName(path);
    if (!equalNoCase(folder, run.AppDir)) {
        const std::string copy = freePath(services_.files, folder, "rescue", ".ghs");
        services_.files.copyFile(path, copy);
        name = bareName(copy);
    }
    startup.store.setOption("lastsvr", name);
    servers.lists.LoadServerList(name);
    run.ServerListChanged = true;
}

void Gatehouse::mendOptions(const DocumentFailure& failure) {
    const std::string standard = config.documents.defaultPath();
    const bool isDefault = equalNoCase(failure.path(), standard);
    if (equalNoCase(failure.path(), startup.store.getOption("lastcfg", standard)))
        startup.store.setOption("lastcfg", standard);
    if (!isDefault) return;
    services_.files.renameFile(standard, trim(startup.options.ghcdir.text()) + "default.bad");
}

}  // namespace gatehouse
