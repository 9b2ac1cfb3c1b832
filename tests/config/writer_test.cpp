#include "support/core/document_desk.h"
#include "support/core/garbage.h"
#include "support/core/golden.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gatehouse {
namespace {

using fake::DocumentDesk;

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

TEST(Writer, TheDefaultDocumentLoadedAndSaved) {
    DocumentDesk desk;
    desk.documents.writeDefaultConfig();
    ASSERT_TRUE(desk.documents.loadConfig("C:\\gh\\default.ghc"));
    EXPECT_EQ(desk.save(), golden("default/resaved.ghc"));
}

/// A document with a value of every kind, that no two fields of a kind share, and texts of all bytes.
TEST(Writer, ADocumentWithEverythingIsSavedInItsOrderAndComesBackToTheByte) {
    DocumentDesk desk;
    SettingsDocument& doc = desk.doc;
    doc.modcombo.setIndex(1);
    doc.q3gametype.setIndex(3);
    for (FieldGroup* group : doc.groups()) {
        for (Field* field : group->fields) {
            const bool isNumber = field == &doc.fraglimit || field == &doc.timelimit || field == &doc.q3hunksize;
            if (field->kind() == Field::Kind::Text && !isNumber)
                static_cast<TextField*>(field)->setText(field->name() + allBytes());
        }
    }
    for (CheckField* check : {&doc.q3usepass, &doc.q3userconpass, &doc.fgame, &doc.q3soundquality, &doc.q3sexfemale,
                              &doc.r_depthbits})
        check->setValue(1);
    doc.q3serverpass.setText(allBytes());
    doc.fraglimit.setText("11");
    doc.q3vidres.setIndex(-1);
    doc.q3lighting.setIndex(1);
    desk.host.model = "Visor\\Blue";
    desk.host.variables = {{"g_gravity", "800"}, {"text", allBytes()}};
    doc.bindlist.append({"Mod (Hook)", "+hook", "H", "kh", BindingKind::Mod});
    doc.bindlist.append({"Script", "x.1", "Z", "kz", BindingKind::Alias});
    doc.bindlist.append({"Off", "off", "Unbound", "NOTHING", BindingKind::Action});
    doc.maplist.append({"001", " MINE ", " My Map "});
    doc.q3botlist.append({"Sarge", "3", allBytes()});
    desk.run.CurrentMode.set(kDedicated);
    const std::string first = desk.save();
    EXPECT_EQ(first, golden("default/everything.ghc"));

    DocumentDesk other;
    other.host.variables = {{"G_GRAVITY", ""}, {"TEXT", ""}};
    for (const KeyBinding& row : {KeyBinding{"Mod (Hook)", "+hook", "", "kh", BindingKind::Mod},
                                  KeyBinding{"Script", "x.1", "", "", BindingKind::Alias},
                                  KeyBinding{"Off", "off", "", "", BindingKind::Action}})
        other.doc.bindlist.append(row);
    other.world.files.put("C:\\gh\\my.ghc", first);
    ASSERT_TRUE(other.documents.loadConfig("C:\\gh\\my.ghc"));
    other.host.variables[0].name = "g_gravity";
    other.host.variables[1].name = "text";
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
