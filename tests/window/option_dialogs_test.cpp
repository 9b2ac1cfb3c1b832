#include "startup/gatehouse.h"
#include "support/core/fakes.h"
#include "window/dialogs/options_dialog.h"
#include "window/dialogs/reset_prompt.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <utility>

namespace gatehouse {
namespace {

class OptionDialogsTest : public testing::Test {
protected:
    template <class T = QWidget>
    static T& find(QWidget& window, const char* name) {
        auto* found = window.findChild<T*>(name);
        if (!found) throw std::runtime_error(std::string("no ") + name);
        return *found;
    }
    void openOptions() {
        world.files.addFolder("C:\\gh");
        world.settings.values["ghcdir"] = "C:\\gh\\";
        program.startup.options.ghcdir.setText("C:\\gh\\");
        program.mtoolsoptions_Click();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&options));
    }

    fake::World world;
    Gatehouse program{world.services, "C:\\gh"};
    OptionsDialog options{program.startup.options, program.rules.optionsRules};
};

TEST_F(OptionDialogsTest, AWrongFolderKeepsTheDialogOpenAndEscapeGivesItUp) {
    openOptions();
    auto& folder = find<QLineEdit>(options, "ghcdir");
    folder.setFocus();
    folder.selectAll();
    QTest::keyClicks(&folder, "C:\\none");
    // For one who leaves the line for another, and for one who goes straight for the button.
    world.dialogs.answer("Path Error", Answer::Ok);
    QTest::keyClick(&folder, Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&] { return world.dialogs.shown.size() == 1; }));
    EXPECT_TRUE(folder.hasFocus());
    world.dialogs.answer("Path Error", Answer::Ok);
    QTest::mouseClick(&find(options, "optionsOK"), Qt::LeftButton);
    EXPECT_TRUE(options.isVisible());
    world.dialogs.choose(std::nullopt);
    world.dialogs.answer("Path Error", Answer::Ok);
    QTest::mouseClick(&find(options, "ghcdirBrowse"), Qt::LeftButton);
    QTest::keyClick(&folder, Qt::Key_Escape);
    EXPECT_FALSE(options.isVisible() || program.rules.optionsRules.q3options.get());
    EXPECT_EQ(program.startup.options.ghcdir.text(), "C:\\gh\\");

    openOptions();
    folder.setFocus();
    folder.selectAll();
    QTest::keyClicks(&folder, "C:\\g");
    const std::string chosen = "C:\\gh\\Jos\xC3\xA9";
    world.files.addFolder(chosen);
    world.dialogs.choose(chosen + "\\");
    QTest::mouseClick(&find(options, "ghcdirBrowse"), Qt::LeftButton);
    EXPECT_EQ(std::exchange(world.settings.values["ghcdir"], ""), chosen + "\\");
    folder.setFocus();
    QTest::keyClick(&folder, Qt::Key_End);
    QTest::keyClick(&folder, Qt::Key_Backspace);
    QTest::mouseClick(&find(options, "optionsOK"), Qt::LeftButton);
    EXPECT_FALSE(options.isVisible());
    EXPECT_EQ(world.settings.values["ghcdir"], chosen + "\\") << "a letter beyond ASCII stays what it is on the disk";
    EXPECT_EQ(world.dialogs.shown.size(), 3);
}

TEST_F(OptionDialogsTest, TheResetPromptAnswersOnceAndCancelIsItsFirstChoice) {
    ResetPrompt prompt(program.rules.tabReset);
    const auto press = [&](Qt::Key key, const char* button) {
        program.mtoolsreset_Click();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&prompt));
        EXPECT_EQ(prompt.focusWidget()->objectName(), "q3resetcancel");
        if (button) find(prompt, button).setFocus();
        QTest::keyClick(prompt.focusWidget(), key);
        EXPECT_FALSE(prompt.isVisible());
    };
    program.config.doc.q3playername.setText("Someone");
    program.rules.modes.TabKey.set("player");
    press(Qt::Key_Return, nullptr);
    press(Qt::Key_Escape, nullptr);
    EXPECT_EQ(program.config.doc.q3playername.text(), "Someone");
    press(Qt::Key_Space, "q3resetcurrent");
    EXPECT_EQ(program.config.doc.q3playername.text(), "Unnamed Player");
    world.dialogs.answer("Reset Tabs", Answer::No);
    press(Qt::Key_Space, "q3resetall");
    EXPECT_EQ(world.dialogs.shown.size(), 1);
}

}  // namespace
}  // namespace gatehouse
