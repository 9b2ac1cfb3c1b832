#include "content/map_catalog.h"

#include "base/run_state.h"
#include "support/core/fakes.h"
#include "support/core/garbage.h"

#include <gtest/gtest.h>


namespace gatehouse {
namespace {

constexpr int kFixedNodes = 43;

struct MapCatalogTest : testing::Test {
    MapCatalogTest() {
        run.AppDir = "C:\\gh\\";
        world.files.addFolder("C:\\gh");
        catalog.loadStandardMaps();
    }

    void loadUserMaps(const std::string& content) {
        world.files.put("C:\\gh\\usermaps.txt", content);
        catalog.loadUserMaps();
    }
    int positionOf(const std::string& key) const {
        for (int i = 1; i <= catalog.maptree.count(); ++i)
            if (catalog.maptree.at(i).key == key) return i;
        return 0;
    }
    const MapEntry& node(const std::string& key) const { return catalog.maptree.at(positionOf(key)); }
    std::string usedKeys() const {
        std::string keys;
        for (int i = 1; i <= catalog.maptree.count(); ++i)
            if (catalog.maptree.at(i).used) keys += catalog.maptree.at(i).key + " ";
        return keys;
    }
    std::string content() const { return world.files.content("C:\\gh\\usermaps.txt"); }

    fake::World world;
    RunState& run = world.run;
    MapCatalog catalog{world.ground};
};

TEST_F(MapCatalogTest, StandardMapsStandUnderTheirClasses) {
    ASSERT_EQ(catalog.maptree.count(), kFixedNodes);
    for (const auto& [position, shown] : {std::pair(7, "FFA/AA00/Q3DM1 Arena Gate"),
                                          {31, "1ON1/AB19/Q3TOURNEY5 Fatal Instinct"},
                                          {43, "CTF/AD28/Q3CTF4 Space CTF"}}) {
        const MapEntry& entry = catalog.maptree.at(position);
        EXPECT_EQ(entry.parent + "/" + entry.key + "/" + entry.text, shown);
    }
}

TEST_F(MapCatalogTest, FilesThatCantBeOpenedCostALogLine) {
    catalog.loadUserMaps();
    EXPECT_EQ(world.log.lines.back(), "Couldn't open usermaps.txt");
    EXPECT_EQ(catalog.maptree.count(), kFixedNodes);
    for (const bool loses : {false, true}) {
        world.files.failAtChange = 1;
        if (loses) {
            catalog.addUserMap("NEW", "Map");
            world.dialogs.answer("User Maps", Answer::Ok);
        }
        catalog.saveUserMaps();
        EXPECT_TRUE(world.log.has("Couldn't write to usermaps.txt"));
        EXPECT_EQ(run.SaveFailed, loses);
    }
    world.files.failAtChange = 0;
    catalog.saveUserMaps();
    EXPECT_TRUE(content().starts_with(std::string(61, '/') + "\r\n// usermaps.txt\r\n"));
    EXPECT_TRUE(content().ends_with("//\r\nNEW Map\r\n") && world.log.has("1 maps written OK"));
}

TEST_F(MapCatalogTest, MarksEveryNodeOfAMapInTheRotation) {
    loadUserMaps("foo  A Map \r\n bare\r\n");
    struct Case {
        RotationRow row;
        std::string keys;
    };
    const Case cases[] = {
        {{"001", "Q3DM6", "the camping grounds"}, "AA06 AC06 "},
        {{"001", "q3dm6 ", "The Camping Grounds"}, "AA06 AC06 "},  // with the blank that ended the name
        {{"001", "FOO", " A Map"}, "AE29 "},
        {{"001", "FREE", "For All"}, "FFA "},  // a group is a node like any other
    };
    for (const Case& one : cases) {
        catalog.unmarkAll();
        Rotation rotation;
        rotation.append(one.row);
        rotation.append({"002", "UNKNOWN", "Map"});
        catalog.markRotation(rotation);
        EXPECT_EQ(usedKeys(), one.keys) << one.row.name;
    }
    EXPECT_EQ(node("FFA").image, MapImage::UsedMap);
    catalog.unmarkAll();
    EXPECT_EQ(usedKeys(), "");
    EXPECT_EQ(node("AA06").image, MapImage::FreeMap);
    EXPECT_EQ(node("FFA").image, MapImage::ClosedGroup);
}

}  // namespace
}  // namespace gatehouse
