#include "support/core/started_program.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class LoadSequenceTest : public testing::Test {
protected:
    LoadSequenceTest() {
        world.settings.values.insert({{"loglevel", "2"}, {"extracmdline", "+set vm_game 0"}});
    }

    bool logged(const std::string& line) const {
        for (const auto& path : world.files.paths())
            if (endsWithNoCase(path, "errorlog.txt"))
                return (world.files.content(path)).find("\n" + line + "\r\n") != std::string::npos;
        return false;
    }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
};

TEST_F(LoadSequenceTest, ARunningCopyIsReportedAndTheSequenceGoesOn) {
    world.windows.windows = {{1, "Terminal"}, {2, "Gatehouse: something"}};
    world.dialogs.answer("Sorry...", Answer::Ok);
    program.StartupDriver();
    EXPECT_TRUE(program.startup.q3.visible.get() && world.dialogs.shown.size() == 1);
}

TEST_F(LoadSequenceTest, AnOrdinaryStartEndsWithTheWindowAndTheLastDocument) {
    program.StartupDriver();
    EXPECT_TRUE(program.startup.q3.visible.get());
    EXPECT_FALSE(program.startup.splash.visible.get());
    EXPECT_EQ(program.run.title.get(), "c:\\gh\\default.ghc");
    EXPECT_FALSE(program.run.ConfigChanged);
    EXPECT_TRUE(logged("No errors during startup."));
    EXPECT_TRUE(world.dialogs.shown.empty());
    // The rotation of the document is marked in the catalog.
    int used = 0;
    for (int i = 1; i <= program.content.maps.maptree.count(); ++i) used += program.content.maps.maptree.at(i).used;
    EXPECT_EQ(used, 5);  // q3dm7 stands in two classes
}

TEST_F(LoadSequenceTest, OptionsThatCannotBeReadAreErasedAfterABox) {
    for (const auto& [key, text] : {std::pair("startwith", "abc"), {"runoptions", "7"}, {"showconsole", "maybe"}}) {
        fake::UsedWorld fresh;
        fresh.settings.values[key] = text;
        fresh.dialogs.answer("Critical Error", Answer::Ok);
        Gatehouse other(fresh.services, "C:\\gh");
        EXPECT_THROW(other.StartupDriver(), RuntimeFailure) << key;  // the game's place went with the options
        EXPECT_FALSE(fresh.settings.values.contains("exepath"));
    }
}

TEST_F(LoadSequenceTest, TheEndAsksAboutBothChangesAndSavesWhatIsWanted) {
    program.StartupDriver();
    program.config.doc.q3hostname.setText("My Server");
    program.run.ServerListChanged = true;
    world.dialogs.answer("Exit Gatehouse", Answer::Yes);
    world.dialogs.answer("Exit Gatehouse", Answer::Yes);
    program.q3_Unload();
    EXPECT_FALSE(program.startup.q3.visible.get());
    EXPECT_TRUE(world.events.ended);
    EXPECT_NE(world.files.content("C:\\gh\\default.ghc").find("seta sv_hostname \"My Server\""), std::string::npos);
    EXPECT_NE(world.files.content("C:\\gh\\default.ghs").find("// server list"), std::string::npos);
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\usermaps.txt"));
    EXPECT_EQ(world.dialogs.shown[1].text, "Save changes to C:\\gh\\default.ghc?");
    EXPECT_EQ(world.settings.values["showconsole"], "False");
    EXPECT_EQ(world.settings.values["extracmdline"], "+set vm_game 0");  // putting the form back stores nothing
}

TEST_F(LoadSequenceTest, OptionsThatCantBeStoredHoldForTheRunAndAreToldOnce) {
    world.settings.full = true;
    world.dialogs.answer("Options", Answer::Ok);
    program.StartupDriver();
    for (const char* text : {"7", "8"}) program.startup.options.q3pingwait.setText(text);
    EXPECT_EQ(program.startup.store.getOption("pingwait", ""), "8");
    world.settings.full = false;
    program.mtoolsconsole_Click();
    EXPECT_EQ(world.settings.values["pingwait"] + world.settings.values["showconsole"], "8True");
}

TEST_F(LoadSequenceTest, AGameFolderThatHasGoneIsNamedAndAskedForWhereSomebodyCanAnswer) {
    world.settings.values["basedir"] = "C:\\Gone\\";
    world.dialogs.watched = false;
    EXPECT_THROW(program.StartupDriver(), RuntimeFailure);
    world.dialogs.watched = true;
    Gatehouse again{world.services, "C:\\gh"};
    world.dialogs.answer("Initial Setup", Answer::Ok);
    world.dialogs.answer("Inital Setup", Answer::Yes);
    world.dialogs.choose("C:\\Q3\\quake3.exe");
    again.StartupDriver();
    EXPECT_TRUE(again.startup.q3.visible.get());
    EXPECT_TRUE(world.dialogs.shown.front().text.find("C:\\Gone\\ is not there") != std::string::npos);
    EXPECT_EQ(world.settings.values["basedir"], "C:\\Q3\\");
}

TEST_F(LoadSequenceTest, ClosingAllWindowsPutsEverythingBack) {
    Gatehouse fresh(world.services, "C:\\gh");
    program.StartupDriver();
    program.config.doc.q3gametype.setIndex(3);
    program.config.doc.fraglimit.setText("77");
    program.config.doc.q3usepass.setValue(1);
    program.run.ConfigChanged = false;
    program.closeAllWindows();
    EXPECT_FALSE(program.run.ConfigChanged);
    EXPECT_TRUE(program.mods.table.modCount() == 0 && program.config.doc.bindlist.empty() &&
                program.config.doc.maplist.empty());
    EXPECT_TRUE(program.config.doc.LastGameType == 0 && program.config.doc.MapCount == 0);
    const auto groups = program.config.doc.groups();
    const auto freshGroups = fresh.config.doc.groups();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (std::size_t i = 0; i < groups[group]->fields.size(); ++i) {
            const Field& field = *groups[group]->fields[i];
            const Field& untouched = *freshGroups[group]->fields[i];
            EXPECT_EQ(field.valueText(), untouched.valueText()) << field.name();
            EXPECT_EQ(field.enabled.get(), untouched.enabled.get()) << field.name();
            EXPECT_EQ(field.visible.get(), untouched.visible.get()) << field.name();
        }
    }
}

}  // namespace
}  // namespace gatehouse
