// The load sequence: every room in its order.

#include "base/game_folder.h"
#include "base/numbers.h"
#include "base/text.h"
#include "config/bindings.h"
#include "config/default_document.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "startup/gatehouse.h"
#include "startup/version.h"

namespace gatehouse {

namespace {

constexpr int kYieldsBeforeReady = 100;
constexpr std::string_view kListEnd = ".ghs";

/// What the list "When Gatehouse Starts," offers.
enum StartWith { kLastFile, kDefaultFile, kChooseFile };

}  // namespace

void Gatehouse::StartupDriver() {
    startup.splash.splashbar.set(0);
    startup.splash.visible.set(true);
    services_.events.yield();
    run.LastTick = services_.clock.tickCount();
    run.zoomLevel = 1;
    checkRunningCopy();
    setProgramPaths();
    createLog();
    readOptions();
    if (setupCancelled_) return;
    placePanels();
    fillInitialValues();
    mods.aliases.loadAliases();
    if (!openedList_.empty()) run.CurrentServerList = openedList_;
    servers.lists.LoadServerList(run.CurrentServerList);
    findMods();
    findMapsAndModels();
    chooseDocument();
    if (!loadChosenDocument()) return;
    content.maps.markRotation(config.doc.maplist);
    try {
        rules.modes.sbar_GroupClick(openedList_.empty() ? run.CurrentMode.get() : std::int16_t{kConnect});
    } catch (const RuntimeFailure&) {
        // The one step whose errors are ignored: the window comes up in whatever mode stands.
    }
    if (run.CommandLine.starts_with('r')) {
        runAndLeave_ = true;
        launch.command.mfilerun_Click();
        closeAllWindows();
        return;
    }
    showMainWindow();
}

void Gatehouse::checkRunningCopy() {
    run.LogOpen = false;
    log.logEvent("gatehouse beta load sequence");
    log.logEvent(dateTimeText(services_.clock.now()));
    log.logEvent("");
    log.logEvent("Checking if Gatehouse already running...");
    std::string title = "gatehouse:";
    if (benchmark.windows.FindWindowLike(title) == 0) return;
    services_.dialogs.show(
        {.title = "Sorry...",
         .text = "You are already running Gatehouse. You can't run two copies at once.\r\nClick OK to exit.",
         .icon = Icon::Stop});
    closeAllWindows();
    // The sequence goes on all the same.
}

void Gatehouse::setProgramPaths() {
    run.VersionString = versionString();
    run.AppDir = programFolder_ + "\\";
    startup.options.ghcdir.setText(run.AppDir);
    run.CommandLine = trim(lower(services_.processes.commandLine()));
    takeFileArgument();
}

void Gatehouse::takeFileArgument() {
    const auto file = services_.processes.fileArgument();
    if (!file) return;
    const bool isList = endsWithNoCase(*file, kListEnd);
    (isList ? openedList_ : openedDocument_) = *file;
    // As if it had been named with two characters in front: its own would be taken for them.
    run.CommandLine = isList ? "" : "o " + lower(*file);
}

void Gatehouse::createLog() {
    std::string keeplogs = "5";
    try {
        keeplogs = startup.store.getOption("keeplogs", keeplogs);
    } catch (const RuntimeFailure&) {
        // Options that can't be read are reported where all of them are read.
    }
    if (startup.log.purgeAndCreate(keeplogs)) return;
    services_.dialogs.show({.title = "Critical Error",
                            .text = "Cannot create the Gatehouse error log.\r\nErrorlog.txt is being used by another "
                                    "program.\r\n\r\nPress OK to exit.",
                            .icon = Icon::Stop});
    closeAllWindows();
}

void Gatehouse::readOptions() {
    log.logEvent("Querying registry...");
    try {
        if (startup.store.getOption("exepath", kNoOption) != kNoOption) {
            log.logEvent("Hive found. Getting settings.");
            checkVersion();
            startup.keeper.read();
            log.logEvent("Registry retrieved OK");
            startup.keeper.keepChanges();
            return;
        }
    } catch (const RuntimeFailure& failure) {
        log.logEvent(std::string("Problem with the options: ") + failure.what(), true);
        services_.dialogs.show({.title = "Critical Error",
                                .text = "There is a problem with the registry settings\r\nfor Gatehouse. When you click "
                                        "OK, all\r\nregistry settings will be removed, and Gatehouse will\r\nterminate. "
                                        "When you restart, it will run through the\r\nfirst-time setup.",
                                .icon = Icon::Stop});
        startup.store.deleteSection();
        closeAllWindows();
        startup.keeper.keepChanges();
        return;
    }
    firstTimeSetup();
    startup.keeper.keepChanges();
}

void Gatehouse::checkVersion() {
    log.logEvent("->checking gatehouse version (should be " + run.VersionString + ")");
    const std::string stored = startup.store.getOption("ghversion", "00.00.00");
    log.logEvent("->last version used is " + stored);
    if (stored == run.VersionString) {
        log.logEvent("->version ok. continuing");
        return;
    }
    log.logEvent("->different version. registry says " + quoted(stored));
    log.logEvent("->doing version update if required");
    update_.versionUpdate(stored);
    startup.store.setOption("ghversion", run.VersionString);
}

bool Gatehouse::locateGame() {
    startup.options.q3FilePath.setText("");
    const Answer shown = services_.dialogs.show(
        {.title = "Inital Setup",
         .text = "Gatehouse can scan your system for the Quake 3 files,\r\nBut this could take some time.\r\n\r\n"
                 "Can you show me where Quake 3 is?",
         .buttons = Buttons::YesNo,
         .icon = Icon::Question,
         .safeAnswer = Answer::Yes});  // nobody wants a disk scanned that nobody watches
    if (shown == Answer::No) {
        startup.options.q3FilePath.setText(startup.finder.scanHardDisks());
        if (startup.options.q3FilePath.text().empty() && !startup.finder.q3getgame.stopped())
            services_.dialogs.show({.title = "Initial Setup",
                                    .text = "I could not find Quake 3. You will have\r\nto find it for me."});
    }
    if (startup.options.q3FilePath.text().empty()) {
        const auto chosen = startup.finder.chooseGameFile();
        if (!chosen) return false;
        startup.options.q3FilePath.setText(*chosen);
        log.logEvent("User found game:" + *chosen);
    }
    return true;
}

void Gatehouse::firstTimeSetup() {
    log.logEvent("No registry info available. Assuming first run.");
    run.FirstRun = true;
    if (!locateGame()) {
        closeAllWindows();
        if (!services_.dialogs.canAsk()) return;  // the first step that needs the game fails
        setupCancelled_ = true;
        services_.dialogs.show({.title = "Initial Setup",
                                .text = "Without the game there is nothing to set up, so Gatehouse ends here.\r\n"
                                        "Nothing was stored.\r\n\r\nStart it again when you know where the game is: "
                                        "it will ask you once more.",
                                .icon = Icon::Information});
        return;
    }
    startup.options.q3startwith.setIndex(0);
    startup.options.q3runoptions.setIndex(0);
    startup.options.q3overwrite.setIndex(0);
    startup.keeper.storeFirstRun(startup.options.q3FilePath.text());
    log.logEvent("Registry setup OK");
    config.documents.writeDefaultConfig();
    startup.finder.backupGameConfig(run.GameDir);
}

void Gatehouse::placePanels() { startup.q3.loaded = true; }

void Gatehouse::fillInitialValues() {
    log.logEvent("Loading initial Values");
    log.logEvent("Tabs & Frames OK");
    fillBindings(config.doc.bindlist);
    config.doc.q3rate.setText("4000");
    content.models.loadStandardModels();
    log.logEvent("Game Lists OK");
    content.maps.loadStandardMaps();
}

void Gatehouse::findGameAgain() {
    const std::string stored = startup.options.q3FilePath.text();
    while (!run.GameDir.empty() && run.GameDir != kNoOption && !services_.files.folderExists(run.GameDir)) {
        const std::string gone = "The game's folder " + run.GameDir +
                                 " is not there. It comes from the options basedir and exepath (" + stored + ").";
        if (!services_.dialogs.canAsk()) throw RuntimeFailure(gone);
        log.logEvent(gone, true);
        services_.dialogs.show({.title = "Initial Setup", .text = gone, .icon = Icon::Stop});
        if (!locateGame()) {
            startup.options.q3FilePath.setText(stored);
            throw RuntimeFailure(gone);
        }
        run.GameDir = gameFolderOf(startup.options.q3FilePath.text());
        startup.store.setOptions({{"exepath", startup.options.q3FilePath.text()}, {"basedir", run.GameDir}});
    }
}

void Gatehouse::findMods() {
    findGameAgain();
    mods.discovery.scanForMods();
    mods.choice.fillModcombo(services_.files);
}

void Gatehouse::scanUnlessListed(const std::string& list, ArchiveScan& scan, const FirstScanTexts& texts) {
    if (services_.files.fileExists(list)) return;
    services_.dialogs.show({.title = texts.title,
                            .text = "Gatehouse will now extract the " + texts.what +
                                    "\r\nfrom any non-standard PAK files in your BASEQ3 folder or the\r\n" +
                                    texts.folder + " folder. This may take a minute or two.",
                            .icon = Icon::Information});
    scan.run();
}

void Gatehouse::findMapsAndModels() {
    scanUnlessListed(content.maps.userMapsPath(), content.mapScan,
                     {"User Map Search", "map names & descriptions", "MAPS"});
    content.maps.loadUserMaps();
    scanUnlessListed(content.models.userModelsPath(), content.modelScan,
                     {"User Model Search", "models & skins", "Models"});
    content.models.loadUserModels();
}

void Gatehouse::chooseDocument() {
    run.ConfigChanged = false;  // what the start has put into the fields is nobody's work
    if (!run.CommandLine.empty()) {
        if (run.CommandLine.size() < 2)
            throw RuntimeFailure("The command line " + quoted(run.CommandLine) + " is too short to name a document");
        run.CurrentConfigPath = openedDocument_.empty() ? cut(run.CommandLine, 2, 0) : openedDocument_;
        if (!services_.files.fileExists(run.CurrentConfigPath)) run.CurrentConfigPath = config.documents.defaultPath();
        return;
    }
    run.CurrentConfigPath = startup.store.getOption("lastcfg", config.documents.defaultPath());
    const int startWith = startup.options.q3startwith.index();
    if (startWith == kDefaultFile || startWith == kChooseFile) run.CurrentConfigPath = config.documents.defaultPath();
    if (startWith == kChooseFile) config.documents.mfileopen_Click();
    if (run.CurrentConfigPath.empty()) run.CurrentConfigPath = config.documents.defaultPath();
}

bool Gatehouse::loadChosenDocument() {
    if (config.documents.loadConfig(run.CurrentConfigPath)) return true;
    if (!run.CommandLine.empty()) {
        if (config.documents.loadConfig(run.CurrentConfigPath)) return true;
        services_.dialogs.show({.title = "Critical Error",
                                .text = "Cannot open " + run.CurrentConfigPath + ". Press OK to Exit.",
                                .icon = Icon::Stop});
        noDocument_ = true;
        closeAllWindows();
        return false;
    }
    log.logEvent("Trying default.ghc", true);
    startup.store.setOption("lastcfg", std::string(kDefaultDocument));
    run.CurrentConfigPath = config.documents.defaultPath();
    if (config.documents.loadConfig(run.CurrentConfigPath)) return true;
    log.logEvent("No default.ghc available. Writing new default.ghc", true);
    config.documents.writeDefaultConfig();
    config.documents.loadConfig(run.CurrentConfigPath);
    return true;
}

void Gatehouse::showMainWindow() {
    startup.q3.width.set(MainView::kWidth);
    log.logEvent("");
    log.logEvent(run.RunErrors ? "There were errors." : "No errors during startup.");
    log.logEvent("Gatehouse is ready.");
    startup.splash.splashbar.set(kSplashExtent);
    startup.q3.height.set(run.ShowConsole.get() ? MainView::kHeightWithConsole : MainView::kHeight);
    for (int i = 0; i < kYieldsBeforeReady; ++i) services_.events.yield();
    ready_ = true;
    startup.q3.visible.set(true);
    startup.splash.visible.set(false);
}

}  // namespace gatehouse
