#include "window/rules/modes.h"

#include "base/runtime_failure.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class ModesTest : public testing::Test {
protected:
    fake::World world;
    RunState run;
    CommandFlags flags;
    SettingsDocument document;
    ServerTable iplist;
    int listLoads = 0;
    ModeRules rules{run, flags, document, iplist, world.log, [this] {
                        ++listLoads;
                        flags.SetRunEnabled(false);
                    }};
};

TEST_F(ModesTest, RunIsOfferedWhereAModeHasWhatItNeeds) {
    const auto runs = [&](std::int16_t mode) {
        rules.sbar_GroupClick(mode);
        return flags.mfilerun.get();
    };
    EXPECT_FALSE(runs(kConnect));
    EXPECT_FALSE(runs(kListen));
    EXPECT_FALSE(runs(kDedicated));
    iplist.append({});
    document.maplist.append({});
    EXPECT_TRUE(runs(kConnect));
    EXPECT_TRUE(runs(kListen));
    EXPECT_TRUE(runs(kDedicated));
    EXPECT_FALSE(runs(kBenchmark));
    EXPECT_EQ(listLoads, 1);
    for (const std::int16_t mode : std::initializer_list<std::int16_t>{0, 5, -1}) EXPECT_THROW(rules.sbar_GroupClick(mode), RuntimeFailure);
}

TEST_F(ModesTest, TheFirstAndTheLastServerSwitchTheRunInConnectModeAlone) {
    rules.sbar_GroupClick(kConnect);
    iplist.append({});
    EXPECT_TRUE(flags.mfilerun.get());
    iplist.remove(1);
    EXPECT_FALSE(flags.mfilerun.get());
    iplist.append({});
    iplist.clear();
    EXPECT_FALSE(flags.mfilerun.get());
    rules.sbar_GroupClick(kListen);
    iplist.append({});
    EXPECT_FALSE(flags.mfilerun.get());
}

TEST_F(ModesTest, EnteringAModeShowsItsSecondTabOrInAFirstRunItsHelp) {
    const Frame second[] = {kServersFrame, kServerFrame, kServerFrame, kBenchmarkFrame};
    for (const std::int16_t mode : std::initializer_list<std::int16_t>{kConnect, kListen, kDedicated, kBenchmark}) {
        run.FirstRun = false;
        rules.sbar_GroupClick(mode);
        EXPECT_EQ(rules.FrameShown.get(), second[mode - 1]);
        run.FirstRun = true;
        rules.sbar_GroupClick(mode);
        EXPECT_EQ(rules.FrameShown.get(), kHelpFrame);
    }
}

TEST_F(ModesTest, ATabOnShowIsNotEnteredAgain) {
    iplist.append({});
    rules.sbar_GroupClick(kConnect);
    EXPECT_TRUE(iplist.selected(1));
    EXPECT_EQ(world.log.lines.back(), "Switching to tab: \"servers\"");
    const auto lines = world.log.lines.size();
    rules.sbar_ListItemClick(2);
    EXPECT_EQ(world.log.lines.size(), lines);
    rules.sbar_ListItemClick(6);
    EXPECT_EQ(rules.TabKey.get(), "tweak1");
    EXPECT_THROW(rules.sbar_ListItemClick(8), RuntimeFailure);
}

TEST_F(ModesTest, TheBotsTabFollowsTheRandomSwitch) {
    rules.sbar_GroupClick(kListen);
    for (const std::int16_t random : std::initializer_list<std::int16_t>{1, 0}) {
        document.q3randbots.setValue(random);
        rules.sbar_ListItemClick(2);
        rules.sbar_ListItemClick(4);
        EXPECT_EQ(flags.q3botlist.get(), random == 0);
        EXPECT_EQ(document.q3randnum.enabled.get(), random == 1);
        EXPECT_EQ(document.q3randskill.enabled.get(), random == 1);
    }
}

}  // namespace
}  // namespace gatehouse
