#include "window/rules/modes.h"

#include "base/runtime_failure.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class ModesTest : public testing::Test {
protected:
    ModesTest() {
        rules.benchmarkEntered.connect([this] {
            ++listLoads;
            flags.SetRunEnabled(false);
        });
    }

    fake::World world;
    RunState& run = world.run;
    CommandFlags& flags = world.flags;
    SettingsDocument document;
    ServerTable iplist;
    int listLoads = 0;
    HelpPages pages{world.resources};
    HelpViewer hwin;
    ModeRules rules{world.ground, document, iplist, pages, hwin};
};

TEST_F(ModesTest, RunIsOfferedWhereAModeHasWhatItNeeds) {
    const auto runs = [&](std::int16_t mode) {
        rules.sbar_GroupClick(mode);
        return flags.mfilerun.get();
    };
    EXPECT_FALSE(runs(kConnect) || runs(kListen) || runs(kDedicated));
    iplist.append({});
    document.maplist.append({});
    EXPECT_TRUE(runs(kConnect) && runs(kListen) && runs(kDedicated) && !runs(kBenchmark));
    EXPECT_TRUE(listLoads == 1 && rules.FrameShown.get() == kBenchmarkFrame);
    run.FirstRun = true;
    rules.sbar_GroupClick(kListen);
    EXPECT_EQ(rules.FrameShown.get(), kHelpFrame);
    EXPECT_THROW(rules.sbar_GroupClick(5), RuntimeFailure);
}

TEST_F(ModesTest, EnteringATabPutsItsTableInPlace) {
    iplist.append({});
    int asked = 0;
    rules.focusWanted.connect([&](Frame frame) { asked += frame == kServersFrame; });
    rules.sbar_GroupClick(kConnect);
    EXPECT_TRUE(asked == 1 && iplist.selected(1));
    document.maplist.append({});
    rules.sbar_GroupClick(kListen);
    EXPECT_FALSE(flags.mtool1[1].get() || flags.mtool1[2].get());
    rules.sbar_ListItemClick(3);
    EXPECT_TRUE(flags.mtool1[1].get() && flags.mtool1[2].get());
}

}  // namespace
}  // namespace gatehouse
