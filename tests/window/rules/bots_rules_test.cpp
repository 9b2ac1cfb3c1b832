#include "window/rules/bots_rules.h"

#include "support/core/document_desk.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class BotsRulesTest : public ::testing::Test {
protected:
    fake::DocumentDesk desk;
    BotTable& bots = desk.doc.q3botlist;
    CommandFlags& flags = desk.flags;
    BotsRules rules{desk.doc, desk.flags, desk.run};
};

TEST_F(BotsRulesTest, AddingAndDeletingKeepARowSelected) {
    rules.askBot = [](BotEntry&) { return false; };
    rules.q3botadd_Click();
    EXPECT_TRUE(bots.empty() && !desk.run.ConfigChanged && !flags.q3botdel.get());
    rules.askBot = [](BotEntry& bot) { return bot.name + bot.skill + bot.team == "Anarki1Red"; };
    for (int i = 0; i < 3; ++i) rules.q3botadd_Click();
    EXPECT_EQ(bots.current(), 3);
    desk.run.ConfigChanged = false;
    rules.q3botdel_Click();
    EXPECT_EQ(bots.current(), 2);
    EXPECT_TRUE(desk.run.ConfigChanged && flags.q3botdel.get());
    for (int i = 0; i < 3; ++i) rules.q3botdel_Click();
    EXPECT_FALSE(flags.q3botdel.get());
    rules.q3botadd_Click();
    EXPECT_TRUE(flags.q3botdel.get());
}

TEST_F(BotsRulesTest, NoOrderOfLoadAndClickLeavesADeadButton) {
    const auto expectState = [this](bool random, bool canDelete, const char* when) {
        EXPECT_EQ(flags.namedBotsShown.get(), !random) << when;
        EXPECT_TRUE(flags.q3botlist.get() == !random && flags.q3botadd.get() == !random) << when;
        for (const TextField* field : {&desk.doc.q3randnum, &desk.doc.q3randskill})
            EXPECT_TRUE(field->visible.get() == random && field->enabled.get() == random) << when << field->name();
        EXPECT_EQ(flags.q3botdel.get(), canDelete) << when;
    };
    expectState(false, false, "at first");
    desk.load({"bots random \"0\""});
    expectState(false, false, "loaded without bots");
    desk.load({"bots Keel \"1Red\"", "bots random \"1\""});
    expectState(true, false, "loaded as random");
    desk.doc.q3randbots.setValue(0);
    expectState(false, true, "unticked with a row");
    desk.load({"// nothing"});
    expectState(false, false, "emptied");
    desk.doc.restoreDesign();
    flags.restoreDesign();
    rules.restoreDesign();
    expectState(false, false, "restored");
}

}  // namespace
}  // namespace gatehouse
