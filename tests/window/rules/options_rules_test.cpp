#include "window/rules/options_rules.h"

#include "support/core/started_program.h"

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

/// The options dialog of a program that was started before and logs everything.
class OptionsRulesTest : public testing::Test {
protected:
    OptionsRulesTest() {
        world.settings.values.insert({{"loglevel", "2"}, {"buffsize", "1000000"}});
        program.StartupDriver();
        program.mtoolsoptions_Click();
    }
    bool logged(const std::string& line) {
        return ("\r\n" + program.startup.q3.q3console.get() + "\r\n").find("\r\n" + line + "\r\n") != std::string::npos;
    }
    std::string stored(const char* key) { return world.settings.values[key]; }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    OptionsRules& rules = program.rules.optionsRules;
};

TEST_F(OptionsRulesTest, AChosenGameIsStoredWithItsFolderAndUsedAtOnce) {
    world.dialogs.choose(std::nullopt);
    rules.q3GetFile_Click();
    EXPECT_EQ(stored("exepath"), "C:\\Q3\\quake3.exe");

    world.dialogs.choose("C:\\Games\\Arena\\arena.exe");  // a name of another length than the usual one's
    rules.q3GetFile_Click();
    EXPECT_EQ(stored("exepath") + program.startup.options.q3FilePath.text(),
              "C:\\Games\\Arena\\arena.exeC:\\Games\\Arena\\arena.exe");
    EXPECT_EQ(stored("basedir") + program.run.GameDir, "C:\\Games\\Arena\\C:\\Games\\Arena\\");
}

TEST_F(OptionsRulesTest, ViewersCloseTheDialogEvenWhenTheyFail) {
    rules.editscripts_Click();
    EXPECT_EQ(world.viewers.viewed.back(), "C:\\gh\\\\aliases.txt");
    EXPECT_FALSE(rules.q3options.get());

    program.mtoolsoptions_Click();
    world.viewers.failToStart = true;
    world.dialogs.answer("Options", Answer::Ok);
    rules.viewerr_Click();
    EXPECT_TRUE(logged("Can't show C:\\gh\\20010203140506-errorlog.txt"));
    EXPECT_FALSE(rules.q3options.get());
}

TEST_F(OptionsRulesTest, TheDefaultDocumentIsWrittenAnewOrTheFailureLogged) {
    const std::string original = world.files.content("C:\\gh\\default.ghc");
    world.files.put("C:\\gh\\default.ghc", "spoilt");
    world.dialogs.answer("Reset default.ghc", Answer::Ok);
    rules.q3resetdefaults_Click();
    EXPECT_EQ(world.files.content("C:\\gh\\default.ghc"), original);
    EXPECT_EQ(world.dialogs.shown.back().text, "C:\\gh\\\\default.ghc has been reset to inital values.");
    EXPECT_FALSE(rules.q3options.get());

    world.files.denied.insert("c:\\gh\\default.ghc");
    program.mtoolsoptions_Click();
    rules.q3resetdefaults_Click();  // no box says that it was reset
    EXPECT_FALSE(rules.q3options.get());
}

TEST_F(OptionsRulesTest, TheOptionsGoOnlyAfterAYesAndGoWhole) {
    const auto before = world.settings.values;
    world.dialogs.answer("UnRegister Gatehouse", Answer::No);
    rules.unregister_Click();
    EXPECT_TRUE(world.settings.values == before && rules.q3options.get() && !world.events.ended);
    program.run.ConfigChanged = false;
    world.dialogs.answer("UnRegister Gatehouse", Answer::Yes);
    rules.unregister_Click();
    EXPECT_TRUE(world.settings.values.empty() && world.events.ended && !rules.q3options.get());
}

}  // namespace
}  // namespace gatehouse
