#include "support/core/started_program.h"

#include <gtest/gtest.h>

#include <random>

namespace gatehouse {
namespace {

class EditHistoryTest : public testing::Test {
protected:
    EditHistoryTest() { program.StartupDriver(); }

    std::string document() { return program.config.documents.rescueText(); }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    /// One change such as a person makes it.
    void editSomething() {
        SettingsDocument& doc = program.config.doc;
        switch (below(12)) {
            case 0:
                world.events.pending.push_back([this] { program.rules.botsRules.newbotOK_Click(); });
                return program.rules.botsRules.q3botadd_Click();
            case 1:
                return program.rules.botsRules.q3botdel_Click();
            case 2: {
                doc.bindlist.setCurrent(below(doc.bindlist.count()) + 1);
                const KeyButton& button = keyButtons()[static_cast<std::size_t>(below(103))];
                world.events.pending.push_back([this, &button] { program.rules.keyRules.keyButton_Click(button); });
                return program.rules.keyRules.bindlist_DblClick();
            }
            case 3:
            case 4: {
                program.content.maps.maptree.setCurrent(below(program.content.maps.maptree.count()) + 1);
                program.rules.rotationRules.maptree_GotFocus();
                return program.rules.rotationRules.addToRotation();
            }
            case 5: {
                if (doc.maplist.empty()) return;
                doc.maplist.setCurrent(below(doc.maplist.count()) + 1);
                program.rules.rotationRules.maplist_GotFocus();
                return below(2) ? program.rules.rotationRules.removeFromRotation()
                                : program.rules.rotationRules.moveUp();
            }
            default: break;
        }
        FieldGroup& group = *doc.groups()[static_cast<std::size_t>(below(6))];
        editField(*group.fields[static_cast<std::size_t>(below(static_cast<int>(group.fields.size())))]);
    }

    void editField(Field& field) {
        if (field.kind() == Field::Kind::Label) return;
        int most = 200;
        if (const auto* list = dynamic_cast<ListField*>(&field)) most = static_cast<int>(list->choices().size());
        if (field.kind() == Field::Kind::Check) most = 2;
        if (most > 0) field.edit([&] { field.setValueText(std::to_string(below(most) + (most == 200 ? 26 : 0))); });
        if (below(4) == 0) field.left.emit();
    }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    std::mt19937 random{20011203};
};

TEST_F(EditHistoryTest, ALongWalkCanBeUndoneToItsStartAndRedoneToItsEnd) {
    constexpr int kEdits = 10'000;
    const std::string first = document();
    for (int i = 0; i < kEdits; ++i) {
        editSomething();
        // Now and then a person goes back, and on from there.
        if (below(50) == 0) program.meditundo_Click();
        if (below(100) == 0) program.meditredo_Click();
    }
    const std::string last = document();
    EXPECT_NE(first, last);
    int steps = 0;
    while (program.config.history.canUndo.get()) {
        const std::string before = document();
        program.meditundo_Click();
        ++steps;
        if (steps % 500 != 0) continue;
        program.meditredo_Click();
        ASSERT_EQ(document(), before) << steps;
        program.meditundo_Click();
    }
    EXPECT_GT(steps, kEdits / 2);
    EXPECT_EQ(document(), first);
    while (program.config.history.canRedo.get()) program.meditredo_Click();
    EXPECT_EQ(document(), last);
}

TEST_F(EditHistoryTest, StepsAreWhatAPersonDidAndNothingElse) {
    SettingsDocument& doc = program.config.doc;
    EditHistory& history = program.config.history;
    EXPECT_FALSE(history.canUndo.get());
    const std::string frames = doc.com_maxfps.text();
    doc.com_maxfps.setText("77");  // the program's own
    EXPECT_FALSE(history.canUndo.get());
    for (const char* typed : {"7", "71", "712"}) doc.com_maxfps.edit([&] { doc.com_maxfps.setText(typed); });
    EXPECT_EQ(history.undoName.get(), "Max FPS");
    doc.com_maxfps.left.emit();
    doc.com_maxfps.edit([&] { doc.com_maxfps.setText("9"); });
    doc.sv_allowdownload.edit([&] { doc.sv_allowdownload.setValue(1 - doc.sv_allowdownload.value()); });
    doc.sv_allowdownload.edit([&] { doc.sv_allowdownload.setValue(doc.sv_allowdownload.value()); });  // changes nothing
    program.meditundo_Click();
    program.run.ConfigChanged = false;
    program.meditundo_Click();
    EXPECT_TRUE(program.run.ConfigChanged);
    EXPECT_EQ(doc.com_maxfps.text(), "712");
    program.meditundo_Click();
    EXPECT_EQ(doc.com_maxfps.text(), "77");
    EXPECT_FALSE(history.canUndo.get());
    EXPECT_EQ(history.redoName.get(), "Max FPS");

    // A map that leaves the rotation by undo is free again in the catalog; without maps nothing can be run.
    program.rules.modes.sbar_GroupClick(kListen);
    while (!doc.maplist.empty()) {
        program.rules.rotationRules.maplist_GotFocus();
        program.rules.rotationRules.removeFromRotation();
    }
    EXPECT_FALSE(program.flags.mfilerun.get());
    program.meditundo_Click();
    EXPECT_TRUE(program.flags.mfilerun.get() && program.flags.mtool2[1].get() && doc.maplist.count() == 1);
    program.meditredo_Click();
    EXPECT_FALSE(program.flags.mfilerun.get());

    program.config.documents.loadConfig(program.run.CurrentConfigPath);
    EXPECT_FALSE(history.canUndo.get() || history.canRedo.get());
    EXPECT_EQ(doc.com_maxfps.text(), frames);
}

TEST_F(EditHistoryTest, AResetIsOneStepThatCanBeUndone) {
    editSomething();
    for (const char* tab : {"server", "maps", "player", "keys", "video", "tweak1", "tweak2"}) {
        const std::string before = document();
        program.run.ConfigChanged = false;
        program.rules.tabReset.ResetTabs(tab);
        ASSERT_NE(document(), before) << tab;
        program.meditundo_Click();
        EXPECT_EQ(document(), before) << tab;
        EXPECT_TRUE(program.run.ConfigChanged) << tab;
    }
}

}  // namespace
}  // namespace gatehouse
