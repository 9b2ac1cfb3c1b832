#include "startup/findq3a.h"

#include "base/game_folder.h"
#include "base/run_state.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class FindQ3aTest : public testing::Test {
protected:
    fake::World world;
    SplashView splash;
    GameFinder finder{world.ground, splash};
};

TEST_F(FindQ3aTest, ARefusedCopyHidesItsSubFoldersAndTheSearchGoesOn) {
    world.files.put("C:\\a\\Quake3.EXE", "");
    world.files.put("C:\\a\\deep\\quake3.exe", "");
    world.files.put("C:\\b\\other.exe", "");
    world.files.put("C:\\b\\game\\quake3.exe", "");
    world.files.put("C:\\z\\quake3.exe", "");
    splash.visible.set(true);
    world.dialogs.answer("Initial Setup", Answer::No);
    world.dialogs.answer("Initial Setup", Answer::Yes);
    EXPECT_EQ(finder.scanHardDisks(), "C:\\b\\game\\quake3.exe");
    EXPECT_EQ(world.dialogs.shown.size(), 2u);
    world.files.driveList = {{"C:", DriveType::Removable}};
    EXPECT_EQ(finder.scanHardDisks(), "");
}

TEST_F(FindQ3aTest, AStoppedSearchAsksNothingMore) {
    for (const char* game : {"C:\\a\\quake3.exe", "C:\\b\\quake3.exe"}) world.files.put(game, "");
    splash.visible.set(true);
    splash.splashmsg.changed.connect([this] {
        EXPECT_TRUE(finder.q3getgame.q3scan.get());
        if (splash.splashmsg.get().ends_with("\\a")) finder.q3getgame.stop_Click();
    });
    world.dialogs.answer("Initial Setup", Answer::No);
    EXPECT_EQ(finder.scanHardDisks(), "");
    EXPECT_EQ(world.dialogs.shown.size(), 1u);
    EXPECT_FALSE(finder.q3getgame.q3scan.get());
}

TEST_F(FindQ3aTest, TheGameMayHaveAnotherName) {
    struct Case {
        const char *path, *folder, *program;
    };
    for (const Case& one :
         {Case{" C:\\Games\\Q3\\Quake3.exe ", "C:\\Games\\Q3\\", "quake3.exe"},
          Case{"C:\\Games\\Q3\\q3.exe", "C:\\Games\\Q3\\", "q3.exe"}, Case{"C:\\ioquake3", "C:\\", "ioquake3"},
          Case{"C:\\Q3\\quake3.x86_64", "C:\\Q3\\", "quake3.x86_64"},
          Case{"C:\\Q3\\my game", "C:\\Q3\\", "\"my game\""}}) {
        EXPECT_EQ(gameFolderOf(one.path), one.folder);
        EXPECT_EQ(gameProgramOf(one.path), one.program);
    }
    EXPECT_THROW(gameFolderOf("none"), RuntimeFailure);
    EXPECT_EQ(gameProgramOf("none"), "quake3.exe");
    for (const char* bad : {"C:\\Q3\\a\" b", "C:\\Q3\\a\nformat c:"}) EXPECT_THROW(gameProgramOf(bad), RuntimeFailure);
}

TEST_F(FindQ3aTest, AnOlderBackupCountsWhenTheCopyFails) {
    world.files.put("C:\\Q3\\baseq3\\q3config.cfg", "mine");
    world.dialogs.answer("First Time Setup", Answer::Ok);
    finder.backupGameConfig("C:\\Q3\\");
    EXPECT_EQ(world.files.content("C:\\Q3\\baseq3\\q3backup.cfg"), "mine");
    world.files.deleteFile("C:\\Q3\\baseq3\\q3config.cfg", false);
    world.dialogs.answer("First Time Setup", Answer::Ok);
    finder.backupGameConfig("C:\\Q3\\");
    EXPECT_EQ(world.files.content("C:\\Q3\\baseq3\\q3backup.cfg"), "mine");
}

}  // namespace
}  // namespace gatehouse
