#include "startup/gatehouse.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace gatehouse {
namespace {

/// A program folder, a game folder and stored options, as after an earlier run.
class LoadSequenceTest : public testing::Test {
protected:
    LoadSequenceTest() {
        world.files.put("C:\\gh\\aliases.txt", "");
        world.files.put("C:\\gh\\default.ghs", "");
        world.files.put("C:\\gh\\mods\\00-baseq3.ghm",
                        "name Quake 3: Arena\r\ndir baseq3\r\ngtype 0 Free For All\r\ngtype 1 Tournament\r\n"
                        "gtype 3 Teamplay\r\ngtype 4 CTF!\r\n");
        world.files.put("C:\\Q3\\quake3.exe", "");
        world.files.put("C:\\Q3\\baseq3\\q3config.cfg", "mine");
        world.settings.values = {{"exepath", "C:\\Q3\\quake3.exe"}, {"basedir", "C:\\Q3\\"}, {"ghcdir", "C:\\gh\\"},
                                 {"loglevel", "2"},                 {"ghversion", "00.03.03"}, {"extracmdline", "+set vm_game 0"}};
    }

    void writeDefault() {
        fake::World other;
        other.files.addFolder("C:\\gh");
        Gatehouse writer(other.services, "C:\\gh");
        writer.options.ghcdir.setText("C:\\gh\\");
        writer.documents.writeDefaultConfig();
        world.files.put("C:\\gh\\default.ghc", other.files.content("C:\\gh\\default.ghc"));
    }

    bool logged(const std::string& line) const {
        for (const auto& path : world.files.paths())
            if (endsWithNoCase(path, "errorlog.txt"))
                return (world.files.content(path)).find("\n" + line + "\r\n") != std::string::npos;
        return false;
    }

    std::string shownTitles() const {
        std::string titles;
        for (const auto& box : world.dialogs.shown) titles += box.title + ";";
        return titles;
    }

    fake::World world;
    Gatehouse program{world.services, "C:\\gh"};
};

TEST_F(LoadSequenceTest, AnOrdinaryStartEndsWithTheWindowAndTheLastDocument) {
    writeDefault();
    program.StartupDriver();
    EXPECT_TRUE(program.q3.visible.get());
    EXPECT_FALSE(program.splash.visible.get());
    EXPECT_EQ(program.run.title.get(), "c:\\gh\\default.ghc");
    EXPECT_EQ(program.run.CurrentMode.get(), kConnect);
    EXPECT_FALSE(program.run.ConfigChanged);
    EXPECT_EQ(program.modes.TabKey.get(), "servers");
    EXPECT_FALSE(program.flags.mfilerun.get());  // no server in the list
    EXPECT_TRUE(logged("No errors during startup."));
    EXPECT_EQ(shownTitles(), "");
    // The rotation of the document is marked in the catalog.
    int used = 0;
    for (int i = 1; i <= program.maps.maptree.count(); ++i) used += program.maps.maptree.at(i).used;
    EXPECT_EQ(used, 5);  // q3dm7 stands in two classes
}

TEST_F(LoadSequenceTest, AMissingDocumentFallsBackToAWrittenDefault) {
    world.settings.values["lastcfg"] = "C:\\gh\\lost.ghc";
    program.StartupDriver();
    EXPECT_TRUE(logged("Trying default.ghc"));
    EXPECT_TRUE(logged("No default.ghc available. Writing new default.ghc"));
    EXPECT_EQ(world.settings.values["lastcfg"], "default.ghc");
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\default.ghc"));
    EXPECT_EQ(program.doc.q3hostname.text(), "noname");
}

TEST_F(LoadSequenceTest, AFirstRunStoresEveryOptionAndBacksUpTheGamesConfig) {
    world.settings.values.clear();
    world.dialogs.answer("Inital Setup", Answer::No);
    world.dialogs.answer("Initial Setup", Answer::Yes);
    world.dialogs.answer("First Time Setup", Answer::Ok);
    program.StartupDriver();
    const std::map<std::string, std::string> expected = {
        {"exepath", "C:\\Q3\\quake3.exe"}, {"basedir", "C:\\Q3\\"}, {"ghcdir", "C:\\gh\\"},
        {"lastcfg", "C:\\gh\\default.ghc"}, {"lastsvr", "default.ghs"}, {"startwith", "0"},
        {"runoptions", "0"}, {"overwrite", "0"}, {"pingwait", "3"}, {"benchwait", "5"}, {"staleaction", "0"},
        {"showconsole", "0"}, {"loglevel", "0"}, {"buffsize", "4096"}, {"keeplogs", "5"}, {"democount", "3"},
        {"extracmdline", ""}, {"ghversion", "00.03.03"}};
    EXPECT_EQ(world.settings.values, expected);
    EXPECT_EQ(world.files.content("C:\\Q3\\baseq3\\q3backup.cfg"), "mine");
    EXPECT_EQ(program.modes.TabKey.get(), "help");
    EXPECT_EQ(program.options.q3loglevel.index(), -1);
}

TEST_F(LoadSequenceTest, ACancelledSetupStoresNothingAndSaysWhatIsMissing) {
    world.settings.values.clear();
    world.dialogs.answer("Inital Setup", Answer::Yes);
    world.dialogs.choose(std::nullopt);
    EXPECT_THROW(program.StartupDriver(), RuntimeFailure);
    EXPECT_TRUE(world.settings.values.empty());
}

TEST_F(LoadSequenceTest, OptionsThatCannotBeReadAreErasedAfterABox) {
    const struct {
        std::string key, text;
    } cases[] = {{"startwith", "abc"}, {"runoptions", "7"}, {"showconsole", "maybe"}};
    for (const auto& one : cases) {
        fake::World fresh;
        fresh.files.put("C:\\gh\\aliases.txt", "");
        fresh.settings.values = world.settings.values;
        fresh.settings.values[one.key] = one.text;
        fresh.dialogs.answer("Critical Error", Answer::Ok);
        Gatehouse other(fresh.services, "C:\\gh");
        EXPECT_THROW(other.StartupDriver(), RuntimeFailure) << one.key;  // the game's place went with the options
        EXPECT_EQ(fresh.dialogs.shown.size(), 1u);
        EXPECT_FALSE(fresh.settings.values.contains("exepath"));
    }
}

TEST_F(LoadSequenceTest, ARunningCopyIsReportedAndTheSequenceGoesOn) {
    writeDefault();
    world.windows.windows = {{1, "Terminal"}, {2, "Gatehouse: something"}};
    world.dialogs.answer("Sorry...", Answer::Ok);
    program.StartupDriver();
    EXPECT_TRUE(program.q3.visible.get());
}

TEST_F(LoadSequenceTest, ALogThatCannotBeMadeIsReportedAndTheSequenceGoesOn) {
    writeDefault();
    world.files.denied.insert("c:\\gh\\20010203140506-errorlog.txt");
    world.dialogs.answer("Critical Error", Answer::Ok);
    program.StartupDriver();
    EXPECT_FALSE(program.run.LogOpen);
    EXPECT_TRUE(program.q3.visible.get());
}

TEST_F(LoadSequenceTest, RunAndLeaveMakesTheFilesStartsTheGameAndEnds) {
    writeDefault();
    std::string text = world.files.content("C:\\gh\\default.ghc");
    text.replace(text.find("base cfgtype \"0\""), 16, "base cfgtype \"2\"");
    world.files.put("C:\\My Docs\\War.ghc", text);
    world.processes.line = "R C:\\My Docs\\War.ghc";
    program.StartupDriver();
    EXPECT_FALSE(program.q3.visible.get());
    EXPECT_EQ(program.exitStatus(), 0);
    ASSERT_EQ(world.processes.started.size(), 1u);
    EXPECT_EQ(world.processes.started[0], "c:\\winnt\\system32\\cmd.exe /c \"C:\\Q3\\baseq3\\gatehouse.bat\"");
    EXPECT_NE(world.files.content("C:\\Q3\\baseq3\\gatehouse.cfg").find("vstr map1"), std::string::npos);
    EXPECT_EQ(world.settings.values.count("lastcfg"), 0u);
}

TEST_F(LoadSequenceTest, AFailedRunAndLeaveEndsWithStatusOne) {
    writeDefault();
    world.processes.line = "r C:\\gh\\default.ghc";  // Connect, and no server to connect to
    world.dialogs.answer("Error", Answer::Ok);
    program.StartupDriver();
    EXPECT_EQ(program.exitStatus(), 1);
    EXPECT_TRUE(world.processes.started.empty());
}

TEST_F(LoadSequenceTest, CommandLines) {
    writeDefault();
    world.processes.line = "x";  // no room for the two-character prefix
    EXPECT_THROW(program.StartupDriver(), RuntimeFailure);
    fake::World fresh;
    fresh.files.addFolder("C:\\gh");
    fresh.files.addFolder("C:\\Q3");
    fresh.settings.values = world.settings.values;
    fresh.processes.line = "o C:\\gh\\missing.ghc";
    fresh.dialogs.answer("Critical Error", Answer::Ok);
    fresh.dialogs.answer("Exit Gatehouse", Answer::No);  // the start's own settings are in no file yet
    Gatehouse other(fresh.services, "C:\\gh");
    fresh.files.addFolder("C:\\gh\\mods");
    other.StartupDriver();
    EXPECT_FALSE(other.q3.visible.get());
    EXPECT_EQ(other.exitStatus(), 1);
    EXPECT_EQ(fresh.dialogs.shown.front().text, "Cannot open C:\\gh\\default.ghc. Press OK to Exit.");
}

TEST_F(LoadSequenceTest, TheEndAsksAboutBothChangesAndSavesWhatIsWanted) {
    writeDefault();
    program.StartupDriver();
    program.doc.q3hostname.setText("My Server");
    program.run.ServerListChanged = true;
    world.dialogs.answer("Exit Gatehouse", Answer::Yes);
    world.dialogs.answer("Exit Gatehouse", Answer::Yes);
    program.q3_Unload();
    EXPECT_FALSE(program.q3.visible.get());
    EXPECT_TRUE(world.events.ended);
    EXPECT_NE(world.files.content("C:\\gh\\default.ghc").find("seta sv_hostname \"My Server\""), std::string::npos);
    EXPECT_NE(world.files.content("C:\\gh\\default.ghs").find("// server list"), std::string::npos);
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\usermaps.txt"));
    EXPECT_EQ(world.dialogs.shown[1].text, "Save changes to C:\\gh\\default.ghc?");
    EXPECT_EQ(world.settings.values["showconsole"], "False");
    EXPECT_EQ(world.settings.values["extracmdline"], "+set vm_game 0");  // putting the form back stores nothing
}

TEST_F(LoadSequenceTest, AFatalFailureLeavesARescueCopy) {
    writeDefault();
    program.StartupDriver();
    program.doc.q3hostname.setText("Unsaved");
    world.dialogs.answer("Gatehouse", Answer::Ok);
    const std::string line = program.handleFatal(RuntimeFailure("Overflow"), true);
    EXPECT_EQ(line, "Gatehouse can't go on: Overflow; what was not saved is in C:\\gh\\rescue.ghc");
    EXPECT_NE(world.files.content("C:\\gh\\rescue.ghc").find("\"Unsaved\""), std::string::npos);
}

TEST_F(LoadSequenceTest, ADiskThatFillsUpInASaveLeavesARescueCopyEvenOfAnUnchangedDocument) {
    writeDefault();
    program.StartupDriver();
    program.options.q3loglevel.setIndex(0);
    ASSERT_FALSE(program.run.ConfigChanged);
    world.files.failAtChange = 3;  // the old file is deleted, the new one made, and then
    try {
        program.documents.writeConfig("C:\\gh\\default.ghc");
        FAIL() << "the fault was not reached";
    } catch (const RuntimeFailure& failure) {
        program.handleFatal(failure, false);
    }
    EXPECT_NE(world.files.content("C:\\gh\\rescue.ghc").find("seta sv_hostname \"noname\""), std::string::npos);
}

TEST_F(LoadSequenceTest, ALogThatCannotBeWrittenIsNoFaultOfTheDocument) {
    writeDefault();
    program.StartupDriver();
    for (int failAt = 1; failAt <= 4; ++failAt) {
        world.files.failAtChange = failAt;
        try {
            program.documents.loadConfig("C:\\gh\\default.ghc");
            FAIL() << "the fault was not reached";
        } catch (const RuntimeFailure& failure) {
            program.handleFatal(failure, false);
        }
        EXPECT_TRUE(world.files.fileExists("C:\\gh\\default.ghc")) << failAt;
    }
}

TEST_F(LoadSequenceTest, ClosingAllWindowsPutsEverythingBack) {
    writeDefault();
    Gatehouse fresh(world.services, "C:\\gh");
    program.StartupDriver();
    program.closeAllWindows();
    EXPECT_FALSE(program.run.ConfigChanged);
    EXPECT_EQ(program.run.CurrentMode.get(), fresh.run.CurrentMode.get());
    EXPECT_EQ(program.flags.mfilerun.get(), fresh.flags.mfilerun.get());
    EXPECT_EQ(program.flags.mtool1[1].get(), fresh.flags.mtool1[1].get());
    EXPECT_EQ(program.mods.modCount(), 0);
    EXPECT_EQ(program.doc.bindlist.count(), 0);
    const auto groups = program.doc.groups();
    const auto freshGroups = fresh.doc.groups();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (std::size_t i = 0; i < groups[group]->fields.size(); ++i) {
            const Field& field = *groups[group]->fields[i];
            EXPECT_EQ(field.valueText(), freshGroups[group]->fields[i]->valueText()) << field.name();
        }
    }
}

TEST_F(LoadSequenceTest, ADocumentThatCannotBeReadDoesNotStopTheNextStart) {
    writeDefault();
    world.files.put("C:\\gh\\broken.ghc", "seta cl_run \"yes\"\r\n");
    world.settings.values["lastcfg"] = "C:\\gh\\broken.ghc";
    try {
        program.StartupDriver();
        FAIL() << "a strict field took a text";
    } catch (const RuntimeFailure& failure) {
        const std::string line = program.handleFatal(failure, false);
        EXPECT_NE(line.find("broken.ghc"), std::string::npos) << line;
    }
    EXPECT_EQ(world.settings.values["lastcfg"], "C:\\gh\\default.ghc");
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\broken.ghc"));

    world.files.put("C:\\gh\\default.ghc", "seta\r\n");
    Gatehouse second(world.services, "C:\\gh");
    try {
        second.StartupDriver();
        FAIL() << "a line without blanks was taken";
    } catch (const RuntimeFailure& failure) {
        second.handleFatal(failure, false);
    }
    EXPECT_EQ(world.files.content("C:\\gh\\default.bad"), "seta\r\n");
    Gatehouse third(world.services, "C:\\gh");
    third.StartupDriver();
    EXPECT_TRUE(third.q3.visible.get());
}

}  // namespace
}  // namespace gatehouse
