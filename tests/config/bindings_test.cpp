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
}

TEST(GameActions, DefaultsNameButtonsThatNoOtherActionHas) {
    std::set<std::string_view> taken;
    for (const GameAction& action : gameActions()) {
        if (action.defaultButton.empty()) continue;
        EXPECT_NO_THROW(keyButton(action.defaultButton)) << action.text;
        EXPECT_TRUE(taken.insert(action.defaultButton).second) << action.text;
    }
}

}  // namespace
}  // namespace gatehouse
