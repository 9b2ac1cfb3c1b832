#include "support/core/document_desk.h"
#include "support/core/garbage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace gatehouse {
namespace {

using fake::DocumentDesk;

std::string golden(const std::string& name) {
    std::ifstream file(std::string(GATEHOUSE_GOLDEN_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string allBytes() { return "  \"100%\" %s \"\" " + fake::highBytes() + "  \""; }

TEST(Writer, DefaultDocumentToTheByte) {
    DocumentDesk desk;
    desk.options.ghcdir.setText("  C:\\gh\\ ");
    desk.world.files.put("C:\\gh\\default.ghc", "old");
    desk.documents.writeDefaultConfig();
    EXPECT_EQ(desk.world.files.content("C:\\gh\\default.ghc"), golden("default/default.ghc"));
    EXPECT_EQ(desk.world.log.lines,
              (std::vector<std::string>{"Writing default.ghc", "File opened OK", "File written OK"}));
}

/// The lines of a text, without comments, sorted.
std::vector<std::string> body(const std::string& text) {
    std::vector<std::string> lines = splitLines(text);
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("//"); });
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST(Writer, DefaultDocumentLoadedAndSavedDiffersInTheseLinesOnly) {
    DocumentDesk desk;
    desk.documents.writeDefaultConfig();
    const auto before = body(desk.world.files.content("C:\\gh\\default.ghc"));
    ASSERT_TRUE(desk.documents.loadConfig("C:\\gh\\default.ghc"));
    const auto after = body(desk.save());

    std::vector<std::string> gone, added;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(gone));
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(added));
    EXPECT_EQ(gone, (std::vector<std::string>{
                        "maps q3dm1 \"Arena Gate\"",
                        "maps q3dm17 \"The Longest Yard\"",
                        "maps q3dm7 \"Temple of Retribution\"",
                        "maps q3tourney2 \"The Proving Grounds\"",
                        "seta r_depthbits \"0\"",
                        "seta r_primitives \"0\"",
                        "seta s_musicvolume \"0.25\"",
                        "seta sv_maxping       \"9999\"",
                        "seta sv_minping       \"0\"",
                        "srvr gamedir \"demoq3\"",
                    }));
    EXPECT_EQ(added, (std::vector<std::string>{
                         "bots random \"0\"",
                         "bots randomnum \"1\"",
                         "bots randomskill \"1\"",
                         "maps Q3DM1 \"Arena Gate\"",
                         "maps Q3DM17 \"The Longest Yard\"",
                         "maps Q3DM7 \"Temple of Retribution\"",
                         "maps Q3TOURNEY2 \"The Proving Grounds\"",
                         "mods currmod \"Quake 3: Arena\"",
                         "seta g_weaponsrespawn \"5\"",
                         "seta invertmouse \"0\"",
                         "seta r_depthbits \"1\"",
                         "seta s_musicvolume \"0.3\"",
                         "seta sv_maxping \"      \"9999\"",
                         "seta sv_minping \"      \"0\"",
                         "srvr gamedir \"baseq3\"",
                     }));
}

/// One value of every kind of line, in the order told for the file.
TEST(Writer, OrderOfTheLines) {
    DocumentDesk desk;
    desk.documents.writeDefaultConfig();
    desk.documents.loadConfig("C:\\gh\\default.ghc");
    desk.doc.modcombo.setIndex(1);
    desk.host.variables = {{"g_gravity", "800"}, {"empty", ""}};
    desk.doc.bindlist.append({"Mod (Hook)", "+hook", "H", "kh", BindingKind::Mod});
    desk.doc.bindlist.append({"Script", "x.1", "Z", "kz", BindingKind::Alias});
    desk.doc.bindlist.append({"Off", "off", "Unbound", "NOTHING", BindingKind::Action});
    desk.doc.maplist.clear();
    desk.doc.maplist.append({"001", " mine ", " My Map "});
    desk.doc.q3botlist.append({"Sarge", "3", "Red"});
    desk.run.CurrentMode.set(kDedicated);

    const auto lines = splitLines(desk.save());
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 10, lines.begin() + 13),
              (std::vector<std::string>{"mods currmod \"Other Mod\"", "mods var=g_gravity \"800\"",
                                        "mods var=empty \"\""}));
    std::string beforeComments;
    for (std::size_t i = 11; i < lines.size(); ++i) {
        if (lines[i] == "//") beforeComments += lines[i - 1].substr(0, lines[i - 1].find('"')) + "; ";
    }
    EXPECT_EQ(beforeComments,
              "seta sex ; seta r_railsegmentlength ; seta s_usingA3D ; seta cg_DrawTeamOverlay ; "
              "seta g_teamforcebalance ; seta ui_ctf_friendly ; seta bot_minplayers ; base cfgtype ; maps mine ; "
              "srvr cheats ; bots randomskill ; ");
    const auto from = std::find(lines.begin(), lines.end(), "base cfgtype \"2\"");
    ASSERT_NE(from, lines.end());
    EXPECT_EQ(std::vector<std::string>(from, from + 18),
              (std::vector<std::string>{"base cfgtype \"2\"", "//", "maps mine \"My Map\"", "//", "srvr langame \"1\"",
                                        "srvr gamedir \"baseq3\"", "srvr hunksize \"56\"", "srvr nic \"\"",
                                        "srvr port \"27960\"", "srvr cheats \"0\"", "//", "bots Sarge \"3Red\"",
                                        "bots random \"0\"", "bots randomnum \"1\"", "bots randomskill \"1\"", "//",
                                        "bind W|W \"Move Forward|kw\"", "bind S|S \"Move Back|ks\""}));
    EXPECT_EQ(std::vector<std::string>(lines.end() - 3, lines.end()),
              (std::vector<std::string>{"bind H|H \"Mod (Hook)|kh\"", "bind Z|Z \"Script|kz\"",
                                        "bind NOTHING|Unbound \"Off|NOTHING\""}));
}

TEST(Writer, SavedDocumentLoadsAndSavesToTheSameBytes) {
    DocumentDesk desk;
    desk.documents.writeDefaultConfig();
    desk.documents.loadConfig("C:\\gh\\default.ghc");
    SettingsDocument& doc = desk.doc;
    doc.modcombo.setIndex(1);
    for (FieldGroup* group : doc.groups()) {
        for (Field* field : group->fields) {
            const bool isNumber = field == &doc.fraglimit || field == &doc.timelimit || field == &doc.q3hunksize;
            if (field->kind() == Field::Kind::Text && !isNumber) static_cast<TextField*>(field)->setText(allBytes());
        }
    }
    doc.q3usepass.setValue(1);
    doc.q3serverpass.setText(allBytes());
    doc.q3gametype.setIndex(3);
    doc.fraglimit.setText("11");
    doc.fgame.setValue(1);
    doc.q3vidres.setIndex(-1);
    doc.q3lighting.setIndex(1);
    doc.q3soundquality.setValue(1);
    doc.q3sexfemale.setValue(1);
    doc.q3pure.setValue(0);
    desk.host.model = "Visor\\Blue";
    desk.host.variables = {{"text", allBytes()}};
    doc.q3botlist.append({"Sarge", "5", allBytes()});

    const std::string first = desk.save();

    DocumentDesk other;
    other.host.variables = {{"TEXT", ""}};
    other.world.files.put("C:\\gh\\my.ghc", first);
    ASSERT_TRUE(other.documents.loadConfig("C:\\gh\\my.ghc"));
    EXPECT_EQ(other.doc.q3hostname.text(), allBytes());
    EXPECT_EQ(other.doc.q3serverpass.text(), allBytes());
    EXPECT_EQ(other.doc.fraglimit.text(), "11");
    EXPECT_EQ(other.doc.q3pure.value(), other.doc.sv_allowdownload.value());
    other.host.variables[0].name = "text";
    // The mod's name is looked up one row too late, so the second row's document is the one that finds its mod.
    EXPECT_EQ(other.doc.modcombo.index(), 1);
    // The check of the depth bits comes back set, whatever was saved.
    EXPECT_EQ(other.save(), first);
}

TEST(Writer, WhatCantBePutIntoLinesLeavesTheOldFile) {
    struct Fault {
        const char* what;
        void (*cause)(DocumentDesk&);
    };
    const Fault faults[] = {
        {"unknown key button",
         [](DocumentDesk& desk) { desk.doc.bindlist.update(1, [](KeyBinding& row) { row.tag = "kzz"; }); }},
        {"no model", [](DocumentDesk& desk) { desk.host.model.clear(); }},
        {"disk refuses the first change", [](DocumentDesk& desk) { desk.world.files.failAtChange = 1; }},
    };
    for (const Fault& fault : faults) {
        DocumentDesk desk;
        desk.world.files.put(DocumentDesk::kPath, "old");
        desk.doc.q3hostname.setText("mine");
        fault.cause(desk);
        EXPECT_THROW(desk.save(), RuntimeFailure) << fault.what;
        EXPECT_EQ(desk.world.files.content(DocumentDesk::kPath), "old") << fault.what;
        EXPECT_TRUE(desk.run.ConfigChanged) << fault.what;
    }
}

TEST(Writer, AFaultInTheMidstIsNeverTakenForASave) {
    DocumentDesk good;
    const std::string whole = good.save();
    bool failed = true;
    for (int change = 2; failed; ++change) {
        DocumentDesk desk;
        desk.world.files.put(DocumentDesk::kPath, "old");
        desk.doc.q3hostname.setText("mine");
        desk.run.title.set("before");
        desk.world.files.failAtChange = change;
        try {
            desk.save();
            failed = false;
            EXPECT_FALSE(desk.run.ConfigChanged);
        } catch (const FileFailure&) {
            EXPECT_TRUE(desk.run.ConfigChanged) << change;
            EXPECT_EQ(desk.run.title.get(), "before") << change;
            EXPECT_FALSE(desk.world.log.has("File written OK")) << change;
        }
    }
}

TEST(Writer, RescueLeavesOutWhatCantBeWrittenAndTouchesNothingElse) {
    DocumentDesk desk;
    desk.doc.q3hostname.setText("mine");
    desk.doc.bindlist.update(1, [](KeyBinding& row) { row.tag = "kzz"; });
    desk.doc.bindlist.update(2, [](KeyBinding& row) { row.tag = "ks"; });
    desk.host.model.clear();
    const std::string text = desk.documents.rescueText();
    EXPECT_NE(text.find("seta sv_hostname \"mine\"\r\n"), std::string::npos);
    EXPECT_EQ(text.find("kzz"), std::string::npos);
    EXPECT_EQ(text.find("seta model"), std::string::npos);
    EXPECT_NE(text.find("bind S|Unbound \"Move Back|ks\"\r\n"), std::string::npos);
    EXPECT_TRUE(desk.run.ConfigChanged);
    EXPECT_TRUE(desk.world.log.lines.empty());
}

}  // namespace
}  // namespace gatehouse
