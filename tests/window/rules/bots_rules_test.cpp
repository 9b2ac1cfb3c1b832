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
    BotsRules rules{desk.world.ground, desk.doc};

    /// Adds a bot, with what a person does in the dialog.
    void add(std::function<void()> answer) {
        desk.world.events.pending.push_back(std::move(answer));
        rules.q3botadd_Click();
        EXPECT_FALSE(rules.q3newbot.get());
    }
};

TEST_F(BotsRulesTest, AddingAndDeletingKeepARowSelected) {
    add([this] { rules.newbotcancel_Click(); });
    add([this] { rules.restoreDesign(); });
    EXPECT_TRUE(bots.empty() && !desk.run.ConfigChanged && !flags.q3botdel.get());
    // What was chosen the last time, or the mark of a cancel, is not what the dialog comes up with.
    for (const BotEntry& bot : {BotEntry{"Xaero", "4.5", "None"}, {"Anarki", "1", "Red"}, {"Angel", "x", "Blue"}}) {
        add([&] {
            EXPECT_EQ(rules.newbotname.text() + rules.newbotskill.text() + rules.newbotteam.text(), "Anarki1Red");
            rules.newbotname.setIndex(bot.name == "Xaero" ? 31 : bot.name == "Angel" ? 1 : 0);
            rules.newbotskill.setText(bot.skill);
            rules.newbotteam.setIndex(bot.team == "None" ? 2 : bot.team == "Blue" ? 1 : 0);
            rules.newbotOK_Click();
        });
        EXPECT_EQ(bots.at(bots.current()), bot);
    }
    EXPECT_EQ(bots.current(), 3);
    desk.run.ConfigChanged = false;
    rules.q3botdel_Click();
    EXPECT_EQ(bots.current(), 2);
    EXPECT_TRUE(desk.run.ConfigChanged && flags.q3botdel.get());
    for (int i = 0; i < 3; ++i) rules.q3botdel_Click();
    EXPECT_FALSE(flags.q3botdel.get());
    add([this] { rules.newbotOK_Click(); });
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
