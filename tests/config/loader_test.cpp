#include "support/core/document_desk.h"
#include "support/core/golden.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace gatehouse {
namespace {

using fake::DocumentDesk;

/// A field's value in text form.
std::string valueOf(DocumentDesk& desk, const std::string& name) {
    for (FieldGroup* group : desk.doc.groups())
        for (Field* field : group->fields)
            if (field->name() == name) return field->valueText();
    return name == "model" ? desk.host.model : "no such field";
}

/// Each row: a line of a document, the field that it reaches, and its value then; or "log" and the line that it costs.
TEST(Loader, TakesEachLineInItsForm) {
    std::istringstream table(golden("default/lines.txt"));
    int rows = 0;
    for (std::string row; std::getline(table, row); ++rows) {
        const std::size_t first = row.find('\t');
        const std::size_t second = row.find('\t', first + 1);
        const std::string field = row.substr(first + 1, second - first - 1);
        const std::string expected = row.substr(second + 1);
        DocumentDesk desk;
        desk.run.ConfigChanged = true;
        ASSERT_TRUE(desk.load({row.substr(0, first)})) << row;
        EXPECT_FALSE(desk.run.ConfigChanged) << row;
        if (field != "log") {
            EXPECT_EQ(valueOf(desk, field), expected) << row;
            continue;
        }
        std::vector<std::string> logged{"Trying to load " + DocumentDesk::kPath, "Opened OK", "Finished Loading."};
        if (!expected.empty()) logged.insert(logged.end() - 1, expected);
        EXPECT_EQ(desk.world.log.lines, logged) << row;
    }
    EXPECT_GT(rows, 40);
}

/// "seta cl_run: cl_run" and so on: the fields that the values of a line can change.
std::string reach(const std::string& kind, std::string_view key) {
    std::set<std::string> reached;
    for (const char* value : {"7", "1", "0", "4", "22", "16", "32", "20", "female", "GL_LINEAR_MIPMAP_NEAREST"}) {
        DocumentDesk desk, before;
        desk.doc.modcombo.setIndex(0);
        before.doc.modcombo.setIndex(0);
        desk.world.dialogs.onShow = [&](const MessageBox& box) { desk.world.dialogs.answer(box.title, Answer::Ok); };
        try {
            desk.load({kind + " " + std::string(key) + " \"" + value + "\""});
        } catch (const DocumentFailure&) {
            continue;
        }
        for (std::size_t group = 0; group < desk.doc.groups().size(); ++group)
            for (std::size_t i = 0; i < desk.doc.groups()[group]->fields.size(); ++i) {
                const Field& field = *desk.doc.groups()[group]->fields[i];
                if (field.valueText() != before.doc.groups()[group]->fields[i]->valueText()) reached.insert(field.name());
            }
    }
    std::string line = kind + " " + std::string(key) + ":";
    for (const std::string& name : reached) line += " " + name;
    return line + "\n";
}

TEST(Loader, EveryLineReachesItsOwnFields) {
    DocumentDesk desk;
    const RowTargets targets{desk.doc, desk.flags, desk.host, desk.world.log};
    std::string lines;
    for (const DocumentRow& row : setaRows(targets)) lines += reach("seta", row.key);
    for (const DocumentRow& row : srvrRows(targets)) lines += reach("srvr", row.key);
    for (const DocumentRow& row : botsRows(targets)) lines += reach("bots", row.key);
    EXPECT_EQ(lines, golden("default/fields.txt"));
}

TEST(Loader, LinesThatCantBeTakenNameFileNumberAndLine) {
    const std::string longLine = "seta cl_run \"" + std::string(1000000, 'x') + "\"";
    const std::string lines[] = {"seta", "seta sv_hostname", " ?", "seta cl_run \"yes\"", "seta cl_run \"\"",
                                 "seta ui_ffa_fraglimit \"40000\"", "srvr cheats \"no\"", "base cfgtype \"32767\"",
                                 "mods key=+forward \"kzz\"", longLine};
    for (const std::string& line : lines) {
        DocumentDesk desk;
        try {
            desk.load({"// a comment", "", "seta sensitivity \"3\"", line, "seta sensitivity \"4\""});
            FAIL() << line.substr(0, 50);
        } catch (const DocumentFailure& failure) {
            EXPECT_EQ(failure.path(), DocumentDesk::kPath);
            EXPECT_EQ(failure.lineNumber(), 4);
            EXPECT_EQ(failure.line(), line.substr(0, 200));
            EXPECT_TRUE(std::string(failure.what()).starts_with(DocumentDesk::kPath + ", line 4: " + failure.line()))
                << failure.what();
            EXPECT_LT(std::string(failure.what()).size(), 500u);
        }
        EXPECT_EQ(desk.doc.sensitivity.text(), "3");
    }
}

TEST(Loader, AfterTheDefaultDocument) {
    DocumentDesk desk;
    desk.documents.writeDefaultConfig();
    // Whatever stood there before.
    desk.load({"mods currmod \"Other Mod\"", "seta g_gametype \"4\"", "seta g_dowarmup \"1\"",
               "seta ui_ctf_capturelimit \"9\"", "seta sv_privatepassword \"secret\"", "bots Sarge \"3Red\"",
               "seta sv_allowdownload \"0\"", "seta sv_pure \"0\"", "base cfgtype \"2\""});
    ASSERT_TRUE(desk.documents.loadConfig("C:\\gh\\default.ghc"));

    // What no line of the file tells, and what its lines have to undo.
    for (const auto& [name, wanted] : {std::pair("modcombo", "0"), {"q3gametype", "0"}, {"fraglimit", "20"},
                                       {"timelimit", "20"}, {"fraglabel", "Frags:"}, {"dowarmup", "0"},
                                       {"q3usepass", "0"}, {"q3serverpass", ""}, {"q3pure", "1"}})
        EXPECT_EQ(valueOf(desk, name), wanted) << name;
    EXPECT_TRUE(desk.doc.q3botlist.empty());
    ASSERT_EQ(desk.doc.maplist.count(), 4);
    EXPECT_EQ(desk.doc.MapCount, 4);
    EXPECT_EQ(desk.doc.maplist.at(4).position, "004");
    int bound = 0;
    for (int i = 1; i <= desk.doc.bindlist.count(); ++i) bound += desk.doc.bindlist.at(i).tag.empty() ? 0 : 1;
    EXPECT_EQ(bound, 38);
    EXPECT_EQ(desk.run.CurrentMode.get(), kConnect);
    EXPECT_FALSE(desk.run.ConfigChanged);
    EXPECT_EQ(desk.run.title.get(), "c:\\gh\\my.ghc");
    EXPECT_FALSE(desk.doc.q3pure.enabled.get() || desk.doc.q3serverpass.enabled.get());
    EXPECT_FALSE(desk.doc.warmup.visible.get() || desk.doc.fgame.visible.get());
    EXPECT_TRUE(desk.flags.mtool1[1].get() && desk.flags.mtool1[2].get() && desk.flags.mtool2[1].get());
}

TEST(Loader, BindingsOfOthersStay) {
    DocumentDesk desk;
    desk.load({"bind X|W \"Move Forward|kw\"", "bind S|S \"Move Back|ks\""});
    desk.load({"bind A|A|b \"Move Back|ka|b\""});
    EXPECT_EQ(desk.doc.bindlist.at(1).label, "W");
    EXPECT_EQ(desk.doc.bindlist.at(2).label, "A|b");
    EXPECT_EQ(desk.doc.bindlist.at(2).tag, "ka|b");
}

TEST(Loader, AModsKeyAndVariables) {
    DocumentDesk desk;
    desk.doc.bindlist.append({"Mod (Hook)", "+Hook", "Unbound", "", BindingKind::Mod});
    desk.host.variables = {{"G_Gravity", "800"}};
    desk.load({"mods currmod \"OTHER mod\"", "mods var=g_gravity \"100\"", "mods var=other \"1\"",
               "mods KEY=+hook \"space\""});
    EXPECT_EQ(desk.doc.modcombo.index(), 1);
    EXPECT_EQ(desk.host.variables[0].value, "100");
    // The label becomes the game's name of the key; the row isn't bound by it.
    EXPECT_EQ(desk.doc.bindlist.at(40).label, "SPACE");
    EXPECT_EQ(desk.doc.bindlist.at(40).tag, "");
    const std::string saved = desk.save();
    EXPECT_NE(saved.find("mods key=+Hook \"\"\r\n"), std::string::npos);
    EXPECT_EQ(saved.find("Mod (Hook)"), std::string::npos);
    // What was saved without a key comes back without one, whatever key the row and the game's action had.
    desk.load({"bind K|K \"Mod (Hook)|kk\"", "bind W|W \"Move Forward|kw\"", "mods key=+hook \"\"",
               "mods key=+forward \"\""});
    EXPECT_EQ(desk.doc.bindlist.at(40).label + desk.doc.bindlist.at(40).tag, "Unbound");
    EXPECT_EQ(desk.doc.bindlist.at(1).tag, "kw");
    EXPECT_TRUE(desk.world.log.has("!MODS: No key for \"Mod (Hook)\""));
}

}  // namespace
}  // namespace gatehouse
