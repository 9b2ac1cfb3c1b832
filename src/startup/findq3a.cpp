#include "startup/findq3a.h"

#include "base/game_folder.h"
#include "base/numbers.h"
#include "base/text.h"

namespace gatehouse {

namespace {

constexpr int kCounterMilliseconds = 1000;
constexpr std::size_t kLongPath = 31;  // from this length on, a path is shown shortened

}  // namespace

GameFinder::GameFinder(const Ground& ground, SplashView& splash)
    : files_(ground.files), events_(ground.events), dialogs_(ground.dialogs), log_(ground.log), splash_(splash) {
    ftimer_ = events_.createTimer([this] {
        splash_.files.set(std::to_string(ScanFileCount_));
        events_.yield();
    });
}

std::string GameFinder::scanHardDisks() {
    ScanFileCount_ = 0;
    splash_.files.set("");
    ftimer_->setInterval(kCounterMilliseconds);
    ftimer_->setEnabled(true);
    const int extent = splash_.splashbar.get();
    splash_.splashmsgCentred.set(false);
    FoundGamePath_.clear();
    searchDisks();
    if (!FoundGamePath_.empty()) return FoundGamePath_;
    splash_.splashbar.set(extent);
    splash_.splashmsgCentred.set(true);
    ftimer_->setEnabled(false);
    splash_.files.set("");
    return {};
}

void GameFinder::searchDisks() {
    const Showing showing(q3getgame);
    for (const Drive& drive : files_.drives()) {
        if (drive.type != DriveType::Fixed) continue;
        scanFolder(drive.path + "\\");
        if (!FoundGamePath_.empty() || q3getgame.stopped()) return;
    }
}

void GameFinder::showFolder(const std::string& path) {
    if (!splash_.visible.get()) return;
    const int extent = splash_.splashbar.get() + 1;
    splash_.splashbar.set(extent > kSplashExtent ? 0 : extent);
    splash_.splashmsg.set("Scanning " + (path.size() < kLongPath ? path : left(path, 5) + "..." + right(path, 22)));
    q3getgame.place.set(path);
    q3getgame.pulse();
    events_.yield();
}

void GameFinder::scanFolder(const std::string& path) {
    showFolder(path);
    const FolderListing listing = files_.searchListing(path);
    for (const FolderEntry& file : listing.files) {
        ScanFileCount_ = addInt16(ScanFileCount_, 1);
        if (!equalNoCase(file.shortName, kGameExecutable)) continue;
        confirmGameFile(file.path);
        // Whatever the answer, this folder is done: its sub-folders are searched only for a folder without the file.
        return;
    }
    for (const FolderEntry& folder : listing.folders) {
        if (q3getgame.stopped()) return;
        scanSubFolder(folder.path);
        if (!FoundGamePath_.empty()) return;
    }
}

void GameFinder::scanSubFolder(const std::string& path) {
    try {
        scanFolder(path);
    } catch (const FileFailure& failure) {
        // It has gone meanwhile, or can't be reached: the game isn't there either.
        log_.logEvent(failure.what(), true);
    }
}

void GameFinder::confirmGameFile(const std::string& path) {
    const Answer answer =
        dialogs_.show({.title = "Initial Setup",
                       .text = "Gatehouse has found a copy of Quake 3 in\r\n" + path + ".\r\n\r\nIs this the right file?",
                       .buttons = Buttons::YesNo,
                       .icon = Icon::Question});
    if (answer == Answer::Yes) FoundGamePath_ = path;
}

std::optional<std::string> GameFinder::chooseGameFile(const std::string& startFolder) {
    return dialogs_.openFile({.title = "Where is " + std::string(kGameExecutable) + "?",
                              .filter = "Executable Files (*.exe)|*.exe",
                              .startFolder = startFolder,
                              .fileName = std::string(kGameExecutable),
                              .mustBeThere = true});
}

void GameFinder::backupGameConfig(const std::string& gameDir) {
    const std::string backup = gameDir + "baseq3\\q3backup.cfg";
    const std::string own = gameDir + "baseq3\\q3config.cfg";
    log_.logEvent("Backing up existing user Q3 config");
    std::string failure;
    try {
        files_.copyFile(own, backup);
    } catch (const RuntimeFailure& failed) {
        // An older backup counts as well: the look at the file below decides. A game without settings has none to keep.
        if (files_.fileExists(own)) failure = failed.what();
    }
    if (!failure.empty()) log_.logEvent(failure, true);
    if (!files_.fileExists(backup)) {
        log_.logEvent("->backup didn't work. Unknown error");
        if (failure.empty()) return;
        dialogs_.show({.title = "Error",
                       .text = "Your existing Quake 3 settings could not be backed up.\r\n\r\n" + failure,
                       .icon = Icon::Stop});
        return;
    }
    const std::string earlier =
        failure.empty() ? "" : "\r\n\r\nThat backup is one from before: today's did not work.\r\n" + failure;
    dialogs_.show({.title = "First Time Setup",
                   .text = "Gatehouse has made a backup of your existing\r\nQuake 3 settings in " + lower(gameDir) +
                           "baseq3\\q3backup.cfg\r\n\r\nIf you ever need to revert to your current config,\r\n"
                           "Just copy q3backup.cfg to q3config.cfg" +
                           earlier,
                   .icon = Icon::Information});
    log_.logEvent("->backup successful");
}

}  // namespace gatehouse
