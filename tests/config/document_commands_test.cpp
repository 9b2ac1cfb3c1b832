#include "support/core/document_desk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gatehouse {
namespace {

using fake::DocumentDesk;

TEST(OpenCommand, LoadsStoresAndSwitchesTheMode) {
    DocumentDesk desk;
    desk.world.files.put("C:\\docs\\Two.ghc", fake::crlf({"base cfgtype \"1\"", "seta sensitivity \"7\""}));
    desk.world.dialogs.choose("C:\\docs\\Two.ghc");
    desk.documents.mfileopen_Click();
    const FileDialog& dialog = desk.world.dialogs.fileDialogs.at(0);
    EXPECT_EQ(dialog.startFolder, "C:\\gh\\");
    EXPECT_EQ(dialog.fileName, "C:\\gh\\My.ghc");
    EXPECT_EQ(desk.world.settings.values["lastcfg"], "C:\\docs\\Two.ghc");
    EXPECT_EQ(desk.run.title.get(), "c:\\docs\\two.ghc");
    EXPECT_EQ(desk.doc.sensitivity.text(), "7");
    EXPECT_EQ(desk.host.calls, (std::vector<std::string>{"unmark", "group 2", "mark", "group 2"}));
}

TEST(OpenCommand, AsksAgainForAFileThatIsntThere) {
    DocumentDesk desk;
    desk.run.CurrentConfigPath = "bare.ghc";
    desk.world.dialogs.choose("C:\\gh\\gone.ghc");
    desk.world.dialogs.answer("Load Config", Answer::Yes);
    desk.world.dialogs.choose("C:\\gh\\gone.ghc");
    desk.world.dialogs.answer("Load Config", Answer::No);
    desk.documents.mfileopen_Click();
    EXPECT_EQ(desk.world.dialogs.shown.at(1).text, "File Does Not Exist. Choose Another?");
    EXPECT_EQ(desk.world.dialogs.fileDialogs.at(0).startFolder, "C:\\gh\\");
    EXPECT_EQ(desk.run.CurrentConfigPath, "bare.ghc");
    EXPECT_TRUE(desk.world.settings.values.empty());

    desk.world.dialogs.choose(std::nullopt);
    desk.documents.mfileopen_Click();
    EXPECT_EQ(desk.run.CurrentConfigPath, "bare.ghc");
    EXPECT_TRUE(desk.host.calls.empty());
}

TEST(OpenCommand, AsksWhatBecomesOfChanges) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        DocumentDesk desk;
        desk.world.files.put("C:\\gh\\My.ghc", "");
        desk.world.files.put("C:\\gh\\two.ghc", "seta sensitivity \"7\"\r\n");
        desk.doc.sensitivity.setText("9");
        desk.run.ConfigChanged = true;
        desk.world.dialogs.choose("C:\\gh\\two.ghc");
        desk.world.dialogs.answer("Load Config", answer);
        desk.documents.mfileopen_Click();
        EXPECT_EQ(desk.world.dialogs.shown.at(0).text, "Save changes to C:\\gh\\My.ghc?");
        EXPECT_EQ(desk.world.files.content("C:\\gh\\My.ghc").find("\"9\"") != std::string::npos,
                  answer == Answer::Yes);
        const bool stays = answer == Answer::Cancel;
        EXPECT_EQ(desk.doc.sensitivity.text(), stays ? "9" : "7");
        EXPECT_EQ(desk.run.CurrentConfigPath, stays ? "C:\\gh\\My.ghc" : "C:\\gh\\two.ghc");
        EXPECT_EQ(desk.run.ConfigChanged, stays);
    }
}

TEST(SaveCommand, AsksBeforeItOverwritesWhenThatIsChosen) {
    struct Case {
        int overwrite;
        std::vector<Answer> answers;
        bool saved;
    };
    for (const Case& one : {Case{0, {Answer::Yes}, true},
                            {0, {Answer::Cancel}, false},
                            {0, {Answer::No, Answer::Yes}, true},
                            {1, {}, true},
                            {-1, {}, true}}) {
        DocumentDesk desk;
        desk.world.settings.values["lastcfg"] = "C:\\gh\\stored.ghc";  // where the dialog starts from
        desk.options.q3overwrite.setIndex(one.overwrite);
        desk.world.files.put("C:\\gh\\Old.ghc", "old");
        for (const Answer answer : one.answers) {
            desk.world.dialogs.choose("C:\\gh\\Old.ghc");
            desk.world.dialogs.answer("Save Config", answer);
        }
        if (one.answers.empty()) desk.world.dialogs.choose("C:\\gh\\Old.ghc");
        desk.documents.mfilesave_Click();
        EXPECT_EQ(desk.world.files.content("C:\\gh\\Old.ghc") != "old", one.saved);
        EXPECT_EQ(desk.world.dialogs.fileDialogs.front().fileName, "C:\\gh\\stored.ghc");
        EXPECT_EQ(desk.world.settings.values["lastcfg"], one.saved ? "C:\\gh\\Old.ghc" : "C:\\gh\\stored.ghc");
        EXPECT_EQ(desk.run.title.get(), one.saved ? "c:\\gh\\old.ghc" : "Gatehouse: ");
        EXPECT_EQ(desk.world.dialogs.shown.size(), one.answers.size());
    }
}

}  // namespace
}  // namespace gatehouse
