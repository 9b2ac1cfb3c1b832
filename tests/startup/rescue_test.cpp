#include "support/core/started_program.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace gatehouse {
namespace {

const std::string kDocument = "C:\\gh\\rescue.ghc";
const std::string kList = "C:\\gh\\rescue.ghs";
const std::string kRecord = "C:\\gh\\rescue.txt";

/// One run after the other in the same world.
class RescueTest : public testing::Test {
protected:
    RescueTest() { world.settings.values["loglevel"] = "1"; }

    Gatehouse& start() {
        world.clock.time.second++;  // each run has a log of its own
        program = std::make_unique<Gatehouse>(world.services, "C:\\gh");
        program->StartupDriver();
        return *program;
    }
    /// A run with unsaved work of each kind.
    Gatehouse& startAndWork(const std::string& host = "Unsaved") {
        start().config.doc.q3hostname.setText(host);
        ServerEntry server;
        server.Name = "Mine";
        program->servers.iplist.append(server);
        program->run.ServerListChanged = true;
        program->content.maps.addUserMap("MYMAP", "of mine");
        return *program;
    }
    void offer(Answer answer) {
        world.dialogs.answer("Gatehouse", answer);
        start().rescue.offer();
    }
    bool holds(const std::string& path, const std::string& text) const {
        return world.files.content(path).find(text) != std::string::npos;
    }

    fake::UsedWorld world;
    std::unique_ptr<Gatehouse> program;
};

TEST_F(RescueTest, WhatAFatalEndKeepsIsOfferedOnceAndComesBackAsUnsaved) {
    world.dialogs.answer("Gatehouse", Answer::Ok);
    const std::string line = startAndWork().handleFatal(RuntimeFailure("Overflow"), true);
    EXPECT_EQ(line, "Gatehouse can't go on: Overflow; what was not saved is in " + kDocument + " and " + kList);
    EXPECT_TRUE(holds(program->startup.log.LogPath(), line));
    EXPECT_TRUE(holds("C:\\gh\\usermaps.txt", "MYMAP of mine\r\n"));

    EXPECT_EQ(start().rescue.notice(), "What was not saved is in " + kDocument + " and " + kList +
                                           " (2001-02-03 14:05:07, Overflow)");
    world.settings.values["ghcdir"] = "C:\\lists\\";
    world.files.put("C:\\lists\\rescue.ghs", "another's");
    offer(Answer::Yes);
    EXPECT_EQ(program->config.doc.q3hostname.text(), "Unsaved");
    EXPECT_TRUE(program->run.ConfigChanged && program->run.CurrentConfigPath == kDocument);
    EXPECT_TRUE(program->run.ServerListChanged && program->run.CurrentServerList == "rescue-2.ghs");
    EXPECT_EQ(program->servers.iplist.at(1).Name, "Mine");
    EXPECT_TRUE(holds("C:\\lists\\rescue.ghs", "another's") && holds(kDocument, "Unsaved"));
    EXPECT_EQ(start().rescue.notice(), "");
}

TEST_F(RescueTest, NothingIsWrittenOverAnEarlierRescueAndTheLatestIsOpened) {
    startAndWork("First").handleFatal(RuntimeFailure("one"), false);
    startAndWork("Second").endQuietly("two");
    EXPECT_TRUE(std::exchange(world.events.ended, false) && holds(kDocument, "First") && holds("C:\\gh\\rescue-2.ghc", "Second"));
    offer(Answer::Yes);
    const std::string& text = world.dialogs.shown.back().text;
    EXPECT_LT(text.find("14:05:07, one\r\n" + kDocument), text.find("14:05:08, two\r\nC:\\gh\\rescue-2.ghc"));
    EXPECT_EQ(program->config.doc.q3hostname.text(), "Second");
    EXPECT_FALSE(world.files.fileExists(kRecord));

    program->handleFatal(RuntimeFailure("three"), false);
    offer(Answer::No);
    EXPECT_FALSE(program->run.ConfigChanged);
    EXPECT_TRUE(holds("C:\\gh\\rescue-3.ghc", "Second"));
}

TEST_F(RescueTest, WhatCannotBeKeptIsToldAndCostsNothingElse) {
    startAndWork();
    world.files.denied = {"c:\\gh\\rescue.ghc", "c:\\gh\\usermaps.txt"};
    const std::string line = program->handleFatal(RuntimeFailure("Overflow"), false);
    EXPECT_NE(line.find("is in C:\\gh\\rescue-maps.txt and " + kList + "; "), std::string::npos) << line;
    EXPECT_NE(line.find(kDocument), std::string::npos) << line;

    world.files.denied.clear();
    offer(Answer::Yes);
    EXPECT_EQ(program->content.maps.maptree.rows().back().text, "MYMAP of mine");
    EXPECT_FALSE(holds("C:\\gh\\usermaps.txt", "MYMAP"));
    world.dialogs.answer("Exit Gatehouse", Answer::No);
    program->q3_Unload();
    EXPECT_TRUE(holds("C:\\gh\\usermaps.txt", "MYMAP"));
}

TEST_F(RescueTest, ADocumentThatCannotBeReadDoesNotCostTheOneBefore) {
    startAndWork();
    world.files.put("C:\\docs\\bad.ghc", "bots Sarge \"3Red\"\r\nseta sv_hostname \"Bad\"\r\nseta com_blood \"x\"\r\n");
    world.dialogs.choose("C:\\docs\\bad.ghc");
    world.dialogs.answer("Load Config", Answer::No);
    try {
        program->mfileopen_Click();
        FAIL() << "the line was taken";
    } catch (const DocumentFailure& failure) {
        program->handleFatal(failure, false);
    }
    EXPECT_TRUE(holds(kDocument, "\"Unsaved\"") && holds(kList, "Mine"));
    EXPECT_EQ(world.settings.values["lastcfg"], "C:\\gh\\default.ghc");
}

TEST_F(RescueTest, AnEndThatDoesNotComeLeavesNothingBehind) {
    startAndWork().keepUnsaved("the session ended");
    program->config.doc.q3hostname.setText("Later");
    program->keepUnsaved("the session ended");
    EXPECT_TRUE(holds(kDocument, "Later") && !world.files.fileExists("C:\\gh\\rescue-2.ghc"));
    world.dialogs.answer("Exit Gatehouse", Answer::No);
    world.dialogs.answer("Exit Gatehouse", Answer::No);
    program->q3_Unload();
    for (const auto& path : {kDocument, kList, kRecord}) EXPECT_FALSE(world.files.fileExists(path)) << path;
    EXPECT_EQ(program->keepUnsaved("late").where, "");
}

TEST_F(RescueTest, ARecordOfAnyContentOpensNothingButRescues) {
    world.files.put("C:\\secret.ghc", "");
    world.files.put("C:\\gh\\rescued.txt", "");
    world.files.put(kRecord, "file rescue.ghc\r\ntime \x1b[31m\r\nreason " + std::string(100000, 'x') +
                                 "\r\nfile ..\\secret.ghc\r\nfile rescue\\..\\..\\secret.ghc\r\nfile rescued.txt\r\n" +
                                 "file rescue-9.ghc\r\nfile default.ghc\r\n");
    EXPECT_EQ(start().rescue.notice(), "");
    program->rescue.offer();
    EXPECT_TRUE(world.dialogs.shown.empty());
}

}  // namespace
}  // namespace gatehouse
