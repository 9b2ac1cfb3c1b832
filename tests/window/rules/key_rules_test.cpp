#include "window/rules/key_rules.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(KeyRules, AKeyInUseByAnyRowCannotBePickedAgain) {
    fake::World world;
    BindingTable bindlist;
    RunState& run = world.run;
    std::vector<std::string>& lines = world.log.lines;
    KeyRules rules{world.ground, bindlist};
    fillBindings(bindlist);
    bindlist.append({"Alias: wave", "a1", "T", "KT", BindingKind::Alias});
    bindlist.append({"Alias: shout", "a2", "T", "kt", BindingKind::Alias});
    bindlist.append({"Of a strange document", "a3", "?", "nosuchkey", BindingKind::Alias});
    const auto pick = [&](const char* name) {
        run.ConfigChanged = false;
        world.events.pending.push_back([&, name] {
            EXPECT_TRUE(rules.keyname.empty() && rules.ChosenKeyLabel.empty() && rules.q3keyboard.get());
            if (name)
                rules.keyButton_Click(keyButton(name));
            else
                rules.q3keyboard.set(false);
        });
        rules.bindlist_DblClick();
        EXPECT_TRUE(run.ConfigChanged && !rules.q3keyboard.get());
    };
    pick("pagedown");
    EXPECT_EQ(rules.caption, "Pick a key for \"Move Forward\"");
    EXPECT_EQ(rules.inUse, (KeyRules::KeysInUse{{"kt", "Alias: wave, Alias: shout"}}));
    EXPECT_EQ(bindlist.at(1).label + bindlist.at(1).tag, "PageDownpagedown");
    pick(nullptr);
    EXPECT_EQ(rules.inUse.at("pagedown"), "Move Forward") << "the row's own key too";
    EXPECT_EQ(bindlist.at(1).tag, "pagedown");
    pick("nothing");
    EXPECT_EQ(bindlist.at(1).label + bindlist.at(1).tag, "UnboundNOTHING");
    rules.ResetKeyBindings();
    EXPECT_EQ(lines.back(), "unbound 43 commands OK") << "one more than there are";
    EXPECT_EQ(bindlist.at(41).label + bindlist.at(41).tag, "UnboundNOTHING");
    pick(nullptr);
    EXPECT_TRUE(rules.inUse.empty()) << "no key can always be picked";

    world.events.pending.push_back([&] {
        bindlist.clear();
        rules.keyButton_Click(keyButton("kw"));
    });
    bindlist.setCurrent(2);
    rules.bindlist_DblClick();
    EXPECT_TRUE(bindlist.empty());
}

}  // namespace
}  // namespace gatehouse
