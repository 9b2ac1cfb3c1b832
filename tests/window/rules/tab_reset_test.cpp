#include "window/rules/tab_reset.h"

#include "support/core/document_desk.h"
#include "support/core/golden.h"

#include <gtest/gtest.h>


namespace gatehouse {
namespace {

class TabResetTest : public ::testing::Test {
protected:
    TabResetTest() {
        desk.doc.modcombo.setIndex(0);
        iplist.append({});
        desk.doc.maplist.append({"001", "Q3DM1", ""});
        models.loadStandardModels();
        desk.flags.tbservers.setAll(true);
        desk.run.ConfigChanged = false;
        log.lines.clear();
    }
    fake::DocumentDesk desk;
    SettingsDocument& doc = desk.doc;
    fake::RecordingLog& log = desk.world.log;
    const Ground& ground = desk.world.ground;
    ServerTable iplist;
    ServerNumbers numbers{iplist};
    Favourites favourites{ground};
    ServerUndo undo{ground, iplist, numbers, favourites};
    ModelCatalog models{ground};
    KeyRules keys{ground, doc.bindlist};
    Observable<std::string> tabKey{std::string("servers")};
    std::string model;
    TabReset reset{{ground, doc, iplist, undo, models, keys, tabKey,
                    [this](const std::string& path) { model = path; }}};
};

TEST_F(TabResetTest, ACurrentTabIsResetAloneAndWithoutAQuestion) {
    for (const std::string key : {"servers", "help"}) {
        tabKey.set(key);
        reset.chooseReset("current");
    }
    reset.chooseReset("");
    EXPECT_FALSE(desk.run.ConfigChanged) << "a list of servers is no part of the document";
    EXPECT_EQ(log.lines,
              (std::vector<std::string>{"user chose to reset only the servers tab", "Resetting tab: Servers",
                                        "user chose to reset only the help tab", "user canceled tab reset"}));
    EXPECT_TRUE(iplist.empty() && desk.run.ServerListChanged && doc.maplist.count() == 1);
    for (const std::size_t button : {1, 2, 3, 4, 5})
        EXPECT_EQ(desk.flags.tbservers[button].get(), button == 1 || button == 5) << button;
}

TEST_F(TabResetTest, AllTabsAreResetOnceTheUserAgrees) {
    for (FieldGroup* group : doc.groups())
        for (Field* field : group->fields)
            if (field->kind() == Field::Kind::Text) field->setValueText("99");
    desk.world.dialogs.answer("Reset Tabs", Answer::No);
    reset.chooseReset("all");
    EXPECT_EQ(iplist.count(), 1);
    desk.world.dialogs.answer("Reset Tabs", Answer::Yes);
    reset.chooseReset("all");
    EXPECT_TRUE(iplist.empty() && doc.maplist.empty() && model == "Sarge\\Default");
    std::string values;
    for (FieldGroup* group : doc.groups())
        for (const Field* field : group->fields) values += field->name() + " " + field->valueText() + "\n";
    EXPECT_EQ(values, golden("default/reset.txt"));
}

TEST_F(TabResetTest, ClearingTheMapsStopsWhatHostsThem) {
    for (const std::int16_t mode : {kConnect, kListen, kDedicated, kBenchmark}) {
        desk.run.CurrentMode.set(mode);
        desk.flags.SetRunEnabled(true);
        desk.run.ConfigChanged = false;
        reset.ResetTabs("maps");
        EXPECT_TRUE(desk.run.ConfigChanged);
        EXPECT_EQ(desk.flags.mfilerun.get(), mode == kConnect || mode == kBenchmark) << mode;
    }
}

}  // namespace
}  // namespace gatehouse
