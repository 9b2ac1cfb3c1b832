#include "config/bindings.h"

#include "base/runtime_failure.h"

#include <gtest/gtest.h>

#include <set>

namespace gatehouse {
namespace {

TEST(KeyButtons, EveryNameLeadsToItsOwnButton) {
    std::set<std::string_view> names;
    for (const KeyButton& button : keyButtons()) {
        EXPECT_TRUE(names.insert(button.name).second) << button.name;
        EXPECT_EQ(&keyButton(button.name), &button);
        // The game config pads key names to this width and fails beyond it.
        EXPECT_LE(button.gameKey.size(), 19u) << button.name;
    }
    EXPECT_EQ(names.size(), 103u);
}

TEST(KeyButtons, AreFoundInAnyCaseAndNotByHalfAName) {
    EXPECT_EQ(keyButton("MWheelUp").gameKey, "MWHEELUP");
    EXPECT_EQ(keyButton(kNoKey).label, kUnbound);
    for (const char* name : {"", "k", "escape", "kw ", "f13"}) EXPECT_THROW(keyButton(name), RuntimeFailure) << name;
}

TEST(GameActions, DefaultsNameButtonsThatNoOtherActionHas) {
    std::set<std::string_view> taken;
    for (const GameAction& action : gameActions()) {
        if (action.defaultButton.empty()) continue;
        EXPECT_NO_THROW(keyButton(action.defaultButton)) << action.text;
        EXPECT_TRUE(taken.insert(action.defaultButton).second) << action.text;
    }
    EXPECT_EQ(taken.size(), 38u);
}

TEST(GameActions, FillTheListAnewUnbound) {
    BindingTable bindlist;
    bindlist.append({"left over", "", "", "kw", BindingKind::Mod});
    fillBindings(bindlist);
    EXPECT_EQ(bindlist.count(), 39);
    EXPECT_EQ(findBinding(bindlist, "left over"), 0);
    const KeyBinding& row = bindlist.at(findBinding(bindlist, "Gesture"));
    EXPECT_EQ(row.key, "+button3");
    EXPECT_EQ(row.label, "Unbound");
    EXPECT_EQ(row.tag, "");
    EXPECT_EQ(findBinding(bindlist, "gesture"), 0);
}

}  // namespace
}  // namespace gatehouse
