#include "startup/findq3a.h"

#include "base/run_state.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class FindQ3aTest : public testing::Test {
protected:
    fake::World world;
    SplashView splash;
    GameFinder finder{world.files, world.events, world.dialogs, world.log, splash};
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
    ASSERT_EQ(world.dialogs.shown.size(), 2u);
    EXPECT_EQ(world.dialogs.shown[0].text,
              "Gatehouse has found a copy of Quake 3 in\r\nC:\\a\\Quake3.EXE.\r\n\r\nIs this the right file?");
}

TEST_F(FindQ3aTest, WithoutAGameTheSplashIsPutBack) {
    world.files.addFolder("C:\\games\\with\\a\\rather\\long\\path\\of\\folders");
    world.files.driveList = {{"A:", DriveType::Removable}, {"C:", DriveType::Fixed}};
    splash.visible.set(true);
    splash.splashbar.set(100);
    EXPECT_EQ(finder.scanHardDisks(), "");
    EXPECT_EQ(splash.splashmsg.get(), "Scanning C:\\ga...r\\long\\path\\of\\folders");
    EXPECT_EQ(splash.splashbar.get(), 100);
    EXPECT_TRUE(splash.splashmsgCentred.get());
    EXPECT_EQ(splash.files.get(), "");
}

TEST_F(FindQ3aTest, TheFolderIsThePathLessTenCharacters) {
    EXPECT_EQ(gameFolderOf(" C:\\Games\\Q3\\quake3.exe "), "C:\\Games\\Q3\\");
    EXPECT_EQ(gameFolderOf("C:\\Games\\Q3\\q3.exe"), "C:\\Games");
    EXPECT_THROW(gameFolderOf("none"), RuntimeFailure);
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
    finder.backupGameConfig("C:\\None\\");
    EXPECT_EQ(world.log.lines.back(), "->backup didn't work. Unknown error");
}

}  // namespace
}  // namespace gatehouse
