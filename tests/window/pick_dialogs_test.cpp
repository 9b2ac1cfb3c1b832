#include "support/core/document_desk.h"
#include "window/dialogs/keyboard_dialog.h"
#include "window/dialogs/new_bot_dialog.h"
#include "window/rules/bots_rules.h"
#include "window/rules/key_rules.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

#include <set>

namespace gatehouse {
namespace {

class PickDialogsTest : public testing::Test {
protected:
    /// Brings the keyboard up for the current row; `act` is what a person then does.
    void pick(std::function<void()> act) {
        desk.world.events.pending.push_back([this, act = std::move(act)] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&keyboard));
            act();
        });
        keys.bindlist_DblClick();
        EXPECT_FALSE(keyboard.isVisible());
    }
    QPushButton& key(const char* name) { return *keyboard.findChild<QPushButton*>(name); }
    void press(Qt::Key pressed) { QTest::keyClick(keyboard.focusWidget(), pressed); }

    fake::DocumentDesk desk;
    BindingTable& bindlist = desk.doc.bindlist;
    KeyRules keys{desk.world.ground, bindlist};
    KeyboardDialog keyboard{keys};
    BotsRules bots{desk.world.ground, desk.doc};
    NewBotDialog newBot{bots};
};

TEST_F(PickDialogsTest, EveryKeyIsOnTheBoardOnceUncutAndApartFromTheOthers) {
    for (const int points : {7, 10, 24}) {
        QFont font = keyboard.font();
        font.setPointSize(points);
        keyboard.setFont(font);
        EXPECT_EQ(static_cast<std::size_t>(keyboard.findChildren<QPushButton*>().size()), keyButtons().size());
        for (const KeyButton& button : keyButtons()) {
            SCOPED_TRACE(button.name);
            ASSERT_EQ(keyboard.findChildren<QPushButton*>(QString::fromStdString(std::string(button.name))).size(), 1);
            const QPushButton& cap = key(button.name.data());
            EXPECT_TRUE(cap.rect().contains(QRect({}, cap.fontMetrics().size(0, cap.text()))));
            EXPECT_TRUE(cap.parentWidget()->rect().contains(cap.geometry()));
            for (const auto* other : keyboard.findChildren<QPushButton*>())
                EXPECT_TRUE(other == &cap || !other->geometry().intersects(cap.geometry()));
        }
    }
}

TEST_F(PickDialogsTest, AKeyInUseCannotBePressedAndTellsByWhom) {
    bindlist.update(2, [](KeyBinding& row) { row.tag = "kw"; });
    pick([this] {
        EXPECT_EQ(keyboard.windowTitle(), "Pick a key for \"Move Forward\"");
        QPushButton& taken = key("kw");
        EXPECT_TRUE(!taken.isEnabled() && taken.accessibleDescription() == "In use: Move Back");
        QHelpEvent hover(QEvent::ToolTip, {2, 2}, taken.mapToGlobal(QPoint(2, 2)));
        QCoreApplication::sendEvent(&taken, &hover);
        EXPECT_TRUE(QToolTip::text().contains("Move Back"));
        EXPECT_EQ(key("n5").accessibleName(), "Num5");
        QTest::mouseClick(&key("n5"), Qt::LeftButton);
    });
    EXPECT_EQ(bindlist.at(1).label + bindlist.at(1).tag, "Num5n5");
    pick([this] { press(Qt::Key_Escape); });
    EXPECT_EQ(bindlist.at(1).tag, "n5");
}

TEST_F(PickDialogsTest, ABotIsAddedByReturnAndNotByEscape) {
    for (const Qt::Key last : {Qt::Key_Escape, Qt::Key_Return}) {
        desk.world.events.pending.push_back([this, last] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&newBot));
            for (const Qt::Key key : {Qt::Key_End, Qt::Key_Tab, Qt::Key_Up, Qt::Key_Tab, Qt::Key_Down, last})
                QTest::keyClick(newBot.focusWidget(), key);
        });
        bots.q3botadd_Click();
        EXPECT_FALSE(newBot.isVisible());
    }
    EXPECT_EQ(desk.doc.q3botlist.rows(), (std::vector<BotEntry>{{"Xaero", "2", "Blue"}}));
}

}  // namespace
}  // namespace gatehouse
