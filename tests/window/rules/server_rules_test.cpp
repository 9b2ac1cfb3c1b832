#include "support/core/document_desk.h"

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

/// The Server tab with a mod of six game types chosen, and a set of limits for each of the first four.
class ServerRulesTest : public ::testing::Test {
protected:
    ServerRulesTest() {
        desk.gameTypes.push_back({"Harvest", 7});
        desk.gameTypes.push_back({"Arena", 8});
        desk.doc.modcombo.setIndex(0);
        choose(1, "31", "32");
        choose(2, "41", "42");
        doc.fgame.setValue(1);
        choose(3, "51", "52");
        doc.fgame.setValue(0);
        choose(0, "21", "22");
        desk.run.ConfigChanged = false;
    }
    void choose(int position, const std::string& frags, const std::string& time) {
        doc.q3gametype.setIndex(position);
        doc.fraglimit.setText(frags);
        doc.timelimit.setText(time);
    }
    fake::DocumentDesk desk;
    SettingsDocument& doc = desk.doc;
};

TEST_F(ServerRulesTest, EachTypeHasItsOwnLimitsAndShowsItsOwnFields) {
    for (const bool always : {false, true}) {
        doc.dowarmup.setValue(always ? 1 : 0);
        for (const auto& [position, shown] : {std::pair(3, "Caps: 51 52 0"), {0, "Frags: 21 22 0"},
                                              {2, "Frags: 41 42 1"}, {1, "Frags: 31 32 1"}}) {
            doc.q3gametype.setIndex(position);
            EXPECT_EQ(doc.fraglabel.text() + " " + doc.fraglimit.text() + " " + doc.timelimit.text() + " " +
                          doc.fgame.valueText(), shown);
            EXPECT_EQ(doc.LastGameType, position);
            const bool teams = position >= 2;
            EXPECT_EQ(doc.warmup.visible.get(), teams || always) << position;
            for (const CheckField* field : {&doc.fgame, &doc.forcebalance, &doc.autojoin})
                EXPECT_EQ(field->visible.get(), teams) << field->name() << position;
        }
    }
    doc.q3gametype.setIndex(3);
    doc.fgame.setValue(1);
    EXPECT_TRUE(doc.ui_ctf_friendly.value() == 1 && desk.run.ConfigChanged);
    EXPECT_THROW(doc.fraglimit.setText("many"), RuntimeFailure);
    EXPECT_TRUE(doc.ui_ctf_capturelimit.value() == 51 && doc.ui_team_fraglimit.value() == 41);
}

TEST_F(ServerRulesTest, HunkSize) {
    for (const std::string text : {"25", "", "x56", "25.9"}) {
        desk.world.dialogs.answer("Invalid Parameter", Answer::Ok);
        doc.q3hunksize.setText("64");
        doc.q3hunksize.setText(text);
        EXPECT_EQ(doc.q3hunksize.text(), "26") << text;
    }
    EXPECT_EQ(desk.world.dialogs.shown.size(), 4u);
    doc.q3hunksize.setText("26.0 Mb");
    EXPECT_EQ(doc.q3hunksize.text(), "26.0 Mb");
}

TEST_F(ServerRulesTest, UntickingAPasswordLosesItAndDownloadsForceAPureServer) {
    for (auto [use, pass] : {std::pair(&doc.q3usepass, &doc.q3serverpass), {&doc.q3userconpass, &doc.q3rconpass}}) {
        use->setValue(1);
        pass->setText("secret");
        EXPECT_TRUE(pass->enabled.get());
        use->setValue(0);
        EXPECT_TRUE(!pass->enabled.get() && pass->text().empty());
    }
    doc.q3pure.setValue(0);
    doc.sv_allowdownload.setValue(1);
    EXPECT_TRUE(doc.q3pure.value() == 1 && !doc.q3pure.enabled.get());
    doc.sv_allowdownload.setValue(0);
    EXPECT_TRUE(doc.q3pure.value() == 1 && doc.q3pure.enabled.get());
    desk.run.ConfigChanged = false;
    doc.sv_allowdownload.setValue(1);
    doc.dowarmup.setValue(1);
    EXPECT_FALSE(desk.run.ConfigChanged);
}

}  // namespace
}  // namespace gatehouse
