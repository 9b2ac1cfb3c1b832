#include "content/content_room.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace gatehouse {
namespace {

using Entries = std::vector<fake::FakeArchives::Entry>;

constexpr std::size_t kChunk = DescriptionSearch::kChunk;

/// The bytes of a map: zeros, with a text at each of some places.
std::string mapBytes(std::size_t size, const std::vector<std::pair<std::size_t, std::string>>& texts) {
    std::string bytes(size, '\0');
    for (const auto& [at, text] : texts) bytes.replace(at, text.size(), text);
    return bytes;
}

std::string titled(const std::string& title) {
    return mapBytes(kChunk + 100, {{50, "\"classname\" \"worldspawn\"\n\"message\" \"" + title + "\""}});
}

/// A picture of one point, by the format's own header.
const std::string kTga = std::string("\0\0\2\0\0\0\0\0\0\0\0\0\1\0\1\0\x18\0", 18) + "abc";

struct ScansTest : testing::Test {
    ScansTest() {
        run.AppDir = "C:\\gh\\";
        run.GameDir = "C:\\q3\\";
        for (const char* folder : {"C:\\gh\\levelshots", "C:\\q3\\baseq3"}) world.files.addFolder(folder);
        room.maps.loadStandardMaps();
        room.models.loadStandardModels();
        world.log.lines.clear();
    }
    std::string userMaps() const { return world.files.content("C:\\gh\\usermaps.txt"); }
    std::string userModels() const { return world.files.content("C:\\gh\\usermdls.txt"); }
    std::string leftOut() const {
        std::string all;
        for (const ListBox& list : world.dialogs.lists)
            for (const std::string& line : list.lines) all += line + "\n";
        return all;
    }
    long logged(const std::string& line) const { return std::count(world.log.lines.begin(), world.log.lines.end(), line); }

    fake::World world;
    RunState& run = world.run;
    SettingsDocument doc;
    Observable<std::string> status;
    ContentRoom room{world.ground, world.services, doc, status};
};

TEST_F(ScansTest, ATitleIsFoundInItsChunkOnly) {
    const std::string key = "\"message\" \"";
    struct Case {
        std::string bytes;
        std::string title;  ///< empty: none
        std::uint64_t position;
    };
    const Case cases[] = {
        {mapBytes(kChunk, {{9, key + "Small\""}}), "", kChunk},  // a file of one chunk is not read at all
        {mapBytes(kChunk + 1, {{9, "\"MESSAGE\" \"Old Yard\""}}), "Old Yard", kChunk},
        {mapBytes(2 * kChunk, {{kChunk + 9, key + "Late\""}}), "Late", 2 * kChunk},
        {mapBytes(2 * kChunk + 5, {{kChunk + 9, key + "Late\""}}), "Late", 2 * kChunk},
        {mapBytes(2 * kChunk + 50, {{2 * kChunk + 9, key + "Last\""}}), "Last", 2 * kChunk + 50},
        {mapBytes(2 * kChunk, {{0, key + "First Place\""}}), "", 2 * kChunk},
        {mapBytes(2 * kChunk, {{kChunk - 5, key + "Straddles\""}}), "", 2 * kChunk},
        {mapBytes(2 * kChunk, {{kChunk - 13, key + "Open End\""}}), "", 2 * kChunk},
        {mapBytes(2 * kChunk, {{9, key + "\""}, {99, key + "Second\""}}), "", 2 * kChunk},
        {mapBytes(2 * kChunk, {{9, key + "\""}, {kChunk + 1, key + "Next\""}}), "Next", 2 * kChunk},
        {mapBytes(kChunk + 1, {{9, key + "Two\nLines\""}}), "Two Lines", kChunk},
        {"", "", kChunk},
    };
    for (const Case& one : cases) {
        DescriptionSearch search(one.bytes.size());
        for (std::size_t at = 0; !search.done(); at += kChunk) search.take(std::string_view(one.bytes).substr(at, kChunk));
        EXPECT_EQ(search.found(), !one.title.empty()) << one.title << one.bytes.size();
        EXPECT_EQ(search.title(), one.title);
        EXPECT_EQ(search.position(), one.position) << one.title << one.bytes.size();
    }
}

TEST_F(ScansTest, MapsComeFromArchivesAndFromTheirFolder) {
    world.files.put("C:\\gh\\usermaps.txt", "OLD Here Before");  // without a line end
    room.maps.loadUserMaps();
    world.archives.put("C:\\q3\\baseq3\\a.PK3",
                       {{"maps/new.bsp", titled("New One")}, {"maps/OLD.bsp", titled("Known")},
                        {"MAPS/q3dm1.BSP", titled("Standard")}, {"sub/maps/x.bsp", titled("Below")},
                        {"maps/no.bsp", "x"}, {"maps/bad.bsp", titled("Bad"), "it is damaged"}, {"maps/a.txt", "x"},
                        {"mapsbsp", "x"}, {"levelshots/new.jpg", "1"}, {"levelshots/have.jpg", "2"}});
    world.archives.put("C:\\q3\\baseq3\\PAK0.pk3", {{"maps/own.bsp", titled("Own")}, {"levelshots/own.jpg", "3"}});
    world.files.put("C:\\q3\\baseq3\\cut.pk3", "");
    world.files.put("C:\\q3\\baseq3\\maps\\Loose.bsp", titled("Loose One"));
    world.files.put("C:\\q3\\baseq3\\maps\\declined.bsp", "x");
    world.files.put("C:\\q3\\baseq3\\maps\\old.BSP", titled("Known"));
    world.files.put("C:\\q3\\baseq3\\levelshots\\declined.jpg", "4");
    world.files.put("C:\\gh\\levelshots\\have.jpg", "kept");
    world.files.put("C:\\gh\\Maps\\left.bsp", "of an earlier version");
    world.dialogs.answer("Map Error", Answer::No);  // an archive's map is written all the same
    world.dialogs.answer("Map Error", Answer::No);
    std::vector<double> extents;
    room.mapScan.view.extent.changed.connect([&] { extents.push_back(room.mapScan.view.extent.get()); });
    double furthest = 0;
    room.mapScan.view.progress.changed.connect([&] { furthest = std::max(furthest, room.mapScan.view.progress.get()); });
    EXPECT_TRUE(room.mapScan.run());
    EXPECT_TRUE(std::count(extents.begin(), extents.end(), 6) && std::count(extents.begin(), extents.end(), kChunk + 100));
    EXPECT_EQ(furthest, kChunk + 100) << "the bar goes on to the end of a map";
    EXPECT_TRUE(world.log.has("could not find map description"));
    EXPECT_EQ(userMaps(),
              "OLD Here Before\r\nNEW New One\r\nQ3DM1 Standard\r\nAPS/X Below\r\nNO cancel\r\nLOOSE Loose One\r\n");
    EXPECT_EQ(world.files.content("C:\\gh\\levelshots\\new.jpg") + world.files.content("C:\\gh\\levelshots\\own.jpg") +
                  world.files.content("C:\\gh\\levelshots\\have.jpg") +
                  world.files.content("C:\\gh\\levelshots\\declined.jpg"),
              "13kept4");
    EXPECT_FALSE(world.files.folderExists("C:\\gh\\maps"));
    EXPECT_TRUE(world.log.has("scanning map for description (C:\\gh\\maps/new.bsp)"));
    EXPECT_TRUE(world.log.has("found \"New One\" at 32768 of 32868 bytes"));
    EXPECT_EQ(logged("No map preview available for loose.bsp"), 1);
    EXPECT_EQ(world.log.lines.back(), "finished extracting 5 new maps, 3 new map previews");
    EXPECT_EQ(leftOut(), "C:\\q3\\baseq3\\a.PK3: maps/bad.bsp: it is damaged\n"
                         "C:\\q3\\baseq3\\a.PK3: mapsbsp: Invalid procedure call: negative length of a text\n"
                         "C:\\q3\\baseq3\\cut.pk3: it can't be read as an archive\n");
    EXPECT_FALSE(room.mapScan.view.q3scan.get() || run.hourglass.get());
    EXPECT_EQ(world.archives.opened, 2) << "each archive is opened once";

    // The next scan finds nothing new, but asks about what was declined.
    room.maps.loadStandardMaps();
    room.maps.loadUserMaps();
    world.dialogs.answer("Map Error", Answer::Yes);
    room.mapScan.run();
    EXPECT_EQ(world.log.lines.back(), "finished extracting 1 new maps, 1 new map previews");
    EXPECT_TRUE(userMaps().ends_with("LOOSE Loose One\r\nDECLINED \r\n"));
}

TEST_F(ScansTest, AMapWithABlankInItsNameIsFoundAndListedOnce) {
    world.files.put("C:\\gh\\usermaps.txt", "FOO Bar baz\r\n");
    world.archives.put("C:\\q3\\baseq3\\a.pk3", {{"maps/foo.bsp", titled("Known")}, {"maps/foo bar.bsp", titled("New")}});
    for (int scans = 0; scans < 2; ++scans) {
        room.maps.loadStandardMaps();
        room.maps.loadUserMaps();
        EXPECT_TRUE(room.mapScan.run());
        EXPECT_EQ(userMaps(), "FOO Bar baz\r\nFOO BAR New\r\n");
    }
}

TEST_F(ScansTest, AScanEndsWhereItIsStoppedAndLivesWithFailures) {
    Entries many;
    for (int i = 0; i < 103; ++i) many.push_back({"maps/m" + std::to_string(i) + ".bsp", titled("T")});
    world.archives.put("C:\\q3\\baseq3\\a.pk3", many);
    world.archives.put("C:\\q3\\baseq3\\b.pk3", {{"maps/b.bsp", titled("B")}});
    room.mapScan.view.entry.changed.connect([this] {
        if (room.mapScan.view.entry.get() == "maps/m1.bsp") room.mapScan.view.stop_Click();
    });
    room.mapScan.run();
    EXPECT_EQ(userMaps(), "M0 T\r\nM1 T\r\n");
    EXPECT_EQ(world.log.lines[world.log.lines.size() - 2], "scan stopped by user");
    EXPECT_EQ(leftOut(), "C:\\q3\\baseq3\\a.pk3: 3 more of *bsp: a scan takes 100 of each kind from an archive\n");

    // A full disk costs the entry, and the line that comes after a torn one stands alone.
    world.files.failAtChange = 1;
    world.files.put("C:\\gh\\usermaps.txt", "");
    room.maps.loadUserMaps();
    EXPECT_FALSE(room.mapScan.run()) << "not all is in the list";
    EXPECT_EQ(userMaps(), "\r\nM1 T\r\n");
    EXPECT_TRUE(std::any_of(world.log.lines.begin(), world.log.lines.end(), [](const std::string& line) {
        return line.starts_with("problem with map maps/m0.bsp in file C:\\q3\\baseq3\\a.pk3: ");
    }));

    world.files.failAtChange = 0;
    run.GameDir = "C:\\gone\\";
    EXPECT_FALSE(room.mapScan.run() || room.modelScan.run());
    EXPECT_TRUE(world.log.lines.back().starts_with("!"));
    EXPECT_FALSE(room.mapScan.view.q3scan.get() || room.modelScan.view.q3scan.get() || run.hourglass.get());
}

TEST_F(ScansTest, ModelsSkinsAndIcons) {
    world.files.put("C:\\gh\\usermdls.txt", "Old/Skin");
    world.archives.put("C:\\q3\\baseq3\\m.pk3",
                       {{"models/players/robot/upper.md3"}, {"models/players/Robot/UPPER.MD3"},
                        {"models/players/sarge/upper.md3"}, {"models/weapons/upper.md3"},
                        {"models/players/robot/upper_default.skin"}, {"models/players/robot/upper_iron_RED.skin"},
                        {"models/players/sarge/upper_krusade.skin"}, {"models/players/old/upper_skin.skin"},
                        {"models/players/sarge/upper_new.skin"}, {"upper_lost.skin"},
                        {"models/players/robot/icon_default.tga", kTga}, {"models/players/robot/icon_have.tga", kTga},
                        {"models/players/robot/icon_lies.tga", kTga.substr(0, 20)}});
    world.archives.put("C:\\q3\\baseq3\\pak0.pk3", {{"models/players/own/upper_own.skin"}});
    world.files.put("C:\\gh\\models\\players\\robot\\icon_have.BMP", "kept");
    EXPECT_TRUE(room.modelScan.run());
    EXPECT_EQ(userModels(), "Old/Skin\r\nRobot/Default\r\nRobot/RED\r\nSarge/New\r\n");
    EXPECT_EQ(world.files.content("C:\\gh\\models\\players\\robot\\icon_default.bmp"), "1");
    EXPECT_EQ(world.files.content("C:\\gh\\models\\players\\robot\\icon_have.bmp"), "kept");
    EXPECT_EQ(world.log.lines.back(), "finished extracting 1 new models, 3 new skins,1 new previews");
    EXPECT_TRUE(leftOut().starts_with("C:\\q3\\baseq3\\m.pk3: upper_lost.skin: it lies in no model's folder\n"
                                      "C:\\q3\\baseq3\\m.pk3: models/players/robot/icon_lies.tga: "))
        << leftOut();
    EXPECT_FALSE(world.files.fileExists("C:\\gh\\models\\players\\robot\\icon_default.tga"));

    // A scan by hand keeps the choice, and makes no change of the document.
    room.models.loadUserModels();
    room.selectModel("Robot\\RED");
    run.ConfigChanged = false;
    world.dialogs.answer("Model Search", Answer::Yes);
    room.ptool1_ButtonClick();
    EXPECT_EQ(room.models.selectedModel() + " " + doc.currmodel.text(), "Robot\\RED Robot/RED");
    world.files.put("C:\\gh\\usermdls.txt", "");
    world.archives.put("C:\\q3\\baseq3\\m.pk3", {});
    world.dialogs.answer("Model Search", Answer::Yes);
    room.ptool1_ButtonClick();
    EXPECT_EQ(doc.currmodel.text(), "Sarge/Default");
    EXPECT_FALSE(run.ConfigChanged);
}

TEST_F(ScansTest, MapsAreAddedFromFilesAndArchivesAndDeleted) {
    MapTree& tree = room.maps.maptree;
    const int fixed = tree.count();
    int focused = 0;
    room.mapCommands.focusWanted.connect([&focused] { ++focused; });
    const auto add = [this](const std::string& path) {
        world.dialogs.choose(path);
        room.mapCommands.addMap();
    };
    world.files.put("C:\\q3\\baseq3\\maps\\mine.bsp", titled("Mine"));
    world.files.put("C:\\q3\\baseq3\\levelshots\\mine.jpg", "7");
    add("C:\\q3\\baseq3\\maps\\mine.bsp");
    EXPECT_EQ(tree.at(tree.current()).text + tree.at(tree.current()).key, "MINE MineAE00");
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\levelshots\\mine.jpg"));
    EXPECT_EQ(world.log.lines,
              (std::vector<std::string>{"adding new map. displaying open dialog",
                                        "user chose \"C:\\q3\\baseq3\\maps\\mine.bsp\"",
                                        "scanning map for description (C:\\q3\\baseq3\\maps\\mine.bsp)",
                                        "found \"Mine\" at 32768 of 32868 bytes",
                                        "->looking for corresponding levelshot (C:\\q3\\baseq3\\levelshots\\MINE.jpg)",
                                        "->levelshot copied OK", "new map \"MINE Mine\" added OK"}));
    EXPECT_EQ(status.get(), "Searching (32768 bytes)...");

    world.archives.put("C:\\d\\p.pk3", {{"maps/one.bsp", "x"}, {"maps/Two.BSP", titled("Second")},
                                       {"levelshots/two.jpg", "8"}, {"maps/bad.bsp", titled("Bad"), "it is damaged"}});
    const auto pick = [this](int row, bool ok) {
        world.events.pending.push_back([this, row, ok] {
            room.mapCommands.pakMaps.paklist.setCurrent(row);
            ok ? room.mapCommands.pakMaps.pakOK_Click() : room.mapCommands.pakMaps.pakcancel_Click();
        });
    };
    pick(2, true);
    add("C:\\d\\p.pk3");
    EXPECT_EQ(tree.at(tree.current()).text, "TWO Second");
    for (const char* line : {"user chose a pakfile. opening \"C:\\d\\p.pk3\"", "Looking inside pak for levelshot",
                             "-> found and extracted levelshot OK",
                             "new map \"TWO Second\" added from pak file OK"})
        EXPECT_TRUE(world.log.has(line)) << line;
    pick(1, true);
    world.dialogs.answer("Map Error", Answer::Yes);
    add("C:\\d\\p.pk3");
    EXPECT_EQ(tree.at(tree.current()).text, "ONE ");
    EXPECT_TRUE(world.log.has("-> error extracting file. Zip error:levelshots/one.jpg"));
    pick(3, true);
    add("C:\\d\\p.pk3");
    EXPECT_EQ(leftOut(), "C:\\d\\p.pk3: maps/bad.bsp: it is damaged\n");
    pick(2, false);
    add("C:\\d\\p.pk3");
    EXPECT_EQ(world.dialogs.lists.size(), 1U) << "what was left out is told once";
    EXPECT_EQ(focused, 3);
    for (const char* refused : {"C:\\a.bsp", "C:\\q3\\baseq3\\maps\\gone.bsp"}) {
        world.dialogs.answer("No!", Answer::Ok);
        add(refused);
    }
    world.dialogs.choose(std::nullopt);
    room.mapCommands.addMap();
    EXPECT_EQ(world.log.lines.back(), "user canceled. no map added");
    EXPECT_EQ(tree.count(), fixed + 3);
    EXPECT_FALSE(run.hourglass.get());

    // A scan by hand keeps them, and one that is deleted stays deleted.
    tree.setCurrent(fixed + 2);
    room.mapCommands.deleteMap();
    EXPECT_EQ(tree.at(tree.current()).text, "ONE ");
    EXPECT_EQ(world.log.lines.back(), "deleting user map \"TWO Second\" from available maps list");
    world.dialogs.answer("Scan for new maps", Answer::Yes);
    room.mapCommands.scanForMaps();
    EXPECT_EQ(tree.count(), fixed + 2);
    EXPECT_EQ(tree.at(fixed + 1).text + tree.at(fixed + 2).text, "MINE MineONE ");

    // A map without a description is marked and freed like any other; what is in use stays.
    room.maps.mark("one", true);
    tree.setCurrent(fixed + 2);
    for (const int position : {fixed + 2, fixed, 1}) {
        tree.setCurrent(position);
        world.dialogs.answer("No!", Answer::Ok);
        room.mapCommands.deleteMap();
    }
    EXPECT_EQ(room.maps.mark("ONE ", false), fixed + 2);
    tree.setCurrent(fixed + 2);
    room.mapCommands.deleteMap();
    EXPECT_EQ(tree.current(), fixed + 1) << "the last one there is";

    // Without room for the list there is no scan: it would cost what was added.
    room.maps.addUserMap("NEW", "One");
    world.files.failAtChange = 1;
    for (const char* title : {"Scan for new maps", "User Maps", "No!"}) world.dialogs.answer(title, Answer::Yes);
    room.mapCommands.scanForMaps();
    EXPECT_EQ(tree.at(tree.count()).text, "NEW One");
}

TEST_F(ScansTest, ThePreviewFollowsTheSelection) {
    Preview& preview = room.preview;
    world.files.put("C:\\gh\\ghnoshot.jpg", "9");
    world.files.put("C:\\gh\\levelshots\\q3dm1.jpg", "1");
    world.files.put("C:\\gh\\levelshots\\q3dm2.jpg", "broken");
    world.files.put("C:\\gh\\models\\players\\visor\\icon_default.bmp", "5");
    const auto state = [&] {
        return (preview.q3levelshot.get() ? preview.caption.get() : "hidden") +
               (preview.noPicture.get() ? " no " : " ") + std::to_string(preview.levelshot.get()->width);
    };
    constexpr int kFirst = 7;
    room.maps.walkTo(kFirst);
    EXPECT_FALSE(preview.q3levelshot.get()) << "a command opens none";
    room.maptree_NodeClick();
    EXPECT_EQ(state(), "Map: Q3DM1 1");
    room.maps.walkTo(kFirst + 1);
    EXPECT_EQ(state(), "Map: Q3DM1 1") << "one that can't be read changes nothing";
    EXPECT_TRUE(world.log.has("Error showing preview for Q3DM2 House Of Pain"));
    room.maps.walkTo(kFirst + 2);
    EXPECT_EQ(state(), "Map: Q3DM3 no 9");
    for (const int zoom : {2, 3, 1}) {
        preview.zoom_Click();
        EXPECT_EQ(preview.sizes.get(),
                  (PreviewSizes{zoom * 1685 + 705, zoom * 2295 + 105, zoom * 1685, zoom * 2295, true}));
    }
    room.maps.walkTo(1);
    EXPECT_FALSE(preview.q3levelshot.get()) << "a group has no picture";

    room.models.selectModel("Visor");
    room.mdltree_NodeClick();
    EXPECT_EQ(state() + doc.currmodel.text(), "Model: Visor 5Visor/Default");
    EXPECT_EQ(preview.sizes.get(), (PreviewSizes{2390, 2400, 1685, 2295, false}));
    EXPECT_TRUE(run.ConfigChanged);
}

}  // namespace
}  // namespace gatehouse
