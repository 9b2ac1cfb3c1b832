#include "window/rules/rotation_rules.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

/// The standard maps, the tree in focus and nothing in the rotation. The first free-for-all map stands at `kFirst`.
class RotationRulesTest : public ::testing::Test {
protected:
    static constexpr int kFirst = 7;
    RotationRulesTest() {
        catalog.loadStandardMaps();
        rules.maptree_GotFocus();
        flags.SetRunEnabled(false);
    }
    void add(int position) {
        tree.setCurrent(position);
        rules.addToRotation();
        EXPECT_EQ(tree.current(), std::min(position + 1, tree.count()));
    }
    void remove(int row) {
        rules.maplist_GotFocus();
        maplist.setCurrent(row);
        run.ConfigChanged = false;
        rules.removeFromRotation();
        EXPECT_TRUE(run.ConfigChanged);
    }
    std::string rows() const {
        std::string text;
        for (int row = 1; row <= maplist.count(); ++row) text += maplist.at(row).position + maplist.at(row).name;
        return text;
    }
    bool canMove() const { return flags.mtool1[1].get() && flags.mtool1[2].get(); }

    fake::World world;
    RunState& run = world.run;
    CommandFlags& flags = world.flags;
    Rotation maplist;
    MapCatalog catalog{world.ground};
    MapTree& tree = catalog.maptree;
    RotationRules rules{world.ground, maplist, catalog};
};

TEST_F(RotationRulesTest, AddingMarksEveryNodeOfTheMapAndWalksOn) {
    add(kFirst);
    const std::string text = tree.at(kFirst).text;
    const std::string name = left(text, find(text, " "));
    EXPECT_EQ(rows(), "001" + name);
    for (int position = 1; position <= tree.count(); ++position)
        EXPECT_EQ(tree.at(position).used, tree.at(position).text == text);
    EXPECT_TRUE(flags.mfilerun.get() && flags.mtool2[1].get() && run.ConfigChanged && !canMove());
    for (const int walkedOver : {1, kFirst}) add(walkedOver);
    EXPECT_EQ(maplist.count(), 1);
    add(tree.count());
    EXPECT_TRUE(canMove());
    rules.removeFromRotation();
    EXPECT_EQ(maplist.count(), 2) << "the tree has the focus";
    rules.maplist_GotFocus();
    tree.setCurrent(kFirst + 1);
    rules.addToRotation();
    EXPECT_EQ(maplist.count(), 2) << "the list has the focus";
}

TEST_F(RotationRulesTest, RemovingRenumbersAndFreesTheMapUnlessItIsTheLast) {
    for (int i = 0; i < 3; ++i) add(kFirst + i);
    const std::string left = "001" + maplist.at(1).name + "002" + maplist.at(3).name;
    remove(2);
    EXPECT_EQ(rows(), left);
    EXPECT_FALSE(tree.at(kFirst + 1).used);
    EXPECT_EQ(tree.at(tree.current()).text, tree.at(kFirst + 1).text);
    remove(2);
    EXPECT_TRUE(maplist.current() == 1 && canMove() && rules.focusPane == "LIST") << "with one row too";
    remove(1);
    EXPECT_TRUE(tree.at(kFirst).used && rules.focusPane == "TREE");
    EXPECT_FALSE(canMove() || flags.mtool2[1].get() || flags.mfilerun.get());
}

TEST_F(RotationRulesTest, MovingSwapsWithTheNeighbour) {
    for (const std::string name : {"A ", "B ", "C "}) maplist.append({zeroPadded(maplist.count() + 1, 3), name, ""});
    for (int i = 0; i < 3; ++i) rules.moveDown();
    EXPECT_EQ(rows(), "001B 002C 003A ");
    maplist.setCurrent(2);
    run.ConfigChanged = false;
    for (int i = 0; i < 2; ++i) rules.moveUp();
    EXPECT_EQ(rows(), "001C 002B 003A ");
    EXPECT_TRUE(run.ConfigChanged);
}

}  // namespace
}  // namespace gatehouse
