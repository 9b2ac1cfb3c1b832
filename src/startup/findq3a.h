#pragma once

#include "base/log.h"
#include "base/run_state.h"
#include "base/scan_view.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "startup/views.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace gatehouse {

/// The search for the game, and the first look at its folder.
class GameFinder {
public:
    GameFinder(const Ground& ground, SplashView& splash);

    /// The window of the search. The splash tells where it is as well, but nothing on it can be pressed.
    ScanView q3getgame{{"q3getgame", "gamelabel", "gameentry", "gameprog"}, "Looking for Quake 3"};

    /// Searches all fixed disks; asks about each copy found. The confirmed path; an empty text if there is none, or if
    /// the search was stopped.
    std::string scanHardDisks();
    /// Lets the user pick the game's executable, beginning in that folder. It is there; nothing on cancel.
    std::optional<std::string> chooseGameFile(const std::string& startFolder = "C:\\");
    /// Copies the user's own game config aside and says so.
    void backupGameConfig(const std::string& gameDir);

private:
    void scanFolder(const std::string& path);
    void scanSubFolder(const std::string& path);
    void searchDisks();
    void showFolder(const std::string& path);
    void confirmGameFile(const std::string& path);

    Files& files_;
    EventLoop& events_;
    Dialogs& dialogs_;
    Log& log_;
    SplashView& splash_;
    std::unique_ptr<Timer> ftimer_;
    std::int16_t ScanFileCount_ = 0;
    std::string FoundGamePath_;
};

}  // namespace gatehouse
