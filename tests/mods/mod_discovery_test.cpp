#include "mods/mod_discovery.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>


namespace gatehouse {
namespace {

struct ModDiscoveryTest : testing::Test {
    ModDiscoveryTest() {
        run.AppDir = "C:\\gh\\";
        run.GameDir = "C:\\q3\\";
        world.files.addFolder("C:\\gh\\mods");
        world.files.addFolder("C:\\q3\\baseq3");
    }

    void putArchive(const std::string& path, const std::vector<std::string>& names) {
        std::vector<fake::FakeArchives::Entry> entries;
        for (const std::string& name : names) entries.push_back({name});
        world.archives.put(path, std::move(entries));
    }
    /// Names and folders of all mods, in order.
    std::string found() {
        discovery.scanForMods();
        std::string text;
        for (int i = 1; i <= mods.modCount(); ++i) text += mods.at(i).name + "=" + mods.at(i).dir + " ";
        return text;
    }

    fake::World world;
    RunState& run = world.run;
    ModTable mods;
    ModDiscovery discovery{world.ground, world.archives, mods};
};

TEST_F(ModDiscoveryTest, DefinitionFilesComeFirstAndWinOverTheirFolders) {
    world.files.put("C:\\gh\\mods\\a.ghm", "name First\r\ndir OSP\r\n");
    world.files.put("C:\\gh\\mods\\b.ghm", "name Second\r\ndir osp\r\n");
    world.files.put("C:\\gh\\mods\\bad.ghm", "name Bad\r\ndir ctf\r\ncheckbox\r\n");
    world.files.put("C:\\gh\\mods\\c.GHM", "name Wrong case\r\n");
    world.files.put("C:\\gh\\mods\\d.txt", "name Wrong end\r\n");
    putArchive("C:\\q3\\Osp\\osp.PK3", {"vm/qagame.qvm"});
    putArchive("C:\\q3\\ctf\\ctf.pk3", {"textures/x.tga", "VM/QAGame.QVM"});
    putArchive("C:\\q3\\ctf\\more.pk3", {"vm/qagame.qvm"});
    world.files.put("C:\\q3\\ctf\\vm\\qagame.qvm", "");
    putArchive("C:\\q3\\baseq3\\PAK0.pk3", {"vm/qagame.qvm"});  // the game's own
    world.files.put("C:\\q3\\bad\\broken.pk3", "no archive");
    EXPECT_EQ(found(), "First=OSP Second=osp ctf=ctf ");
    EXPECT_EQ(mods.at(3).gtype, (std::array<std::string, 10>{}));
    EXPECT_EQ(world.log.lines,
              (std::vector<std::string>{"scanning for mods", "Found mod: First", "Found mod: Second",
                                        "scanning broken.pk3", "!couldn't read archive C:\\q3\\bad\\broken.pk3",
                                        "scanning ctf.pk3", "scanning more.pk3", "scanning folder ctf\\vm",
                                        "scanning osp.PK3", "found 3 mods."}));
    EXPECT_FALSE(discovery.q3getmods.q3scan.get() || run.hourglass.get());
}

TEST_F(ModDiscoveryTest, LooseGameCodeOffersTheUsualGameTypes) {
    world.files.put("C:\\q3\\loose\\vm\\a.txt", "");
    world.files.put("C:\\q3\\loose\\vm\\QAGAME.qvm", "");
    world.files.put("C:\\q3\\top\\qagame.qvm", "");          // not in a sub-folder
    world.files.put("C:\\q3\\deep\\vm\\x\\qagame.qvm", "");  // too deep
    EXPECT_EQ(found(), "loose=loose ");
    EXPECT_EQ(mods.at(1).gtype, (std::array<std::string, 10>{"Free For All", "Tournament", "", "Team DM", "CTF"}));
}

TEST_F(ModDiscoveryTest, RecoversABlankGameFolderFromTheOptionButNotALostOne) {
    run.GameDir = "C:\\gone\\";
    EXPECT_THROW(discovery.scanForMods(), FileFailure);
    run.GameDir = " ";
    world.store.setOption("exepath", " C:\\q3\\quake3.exe ");
    putArchive("C:\\q3\\osp\\osp.pk3", {"vm/qagame.qvm"});
    EXPECT_EQ(found(), "osp=osp ");
    EXPECT_EQ(run.GameDir, "C:\\q3\\");
}

}  // namespace
}  // namespace gatehouse
