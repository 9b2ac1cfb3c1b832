#include "window/main_window.h"

#include "support/core/started_program.h"
#include "window/widgets/side_bar.h"
#include "window/widgets/twips.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStackedWidget>
#include <QTest>
#include <QTime>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>

namespace gatehouse {
namespace {

/// The window over a program that was started before, with the document that it writes itself.
class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        program.servers.commands.SortColumn = 4;
        program.StartupDriver();
        EXPECT_EQ(program.servers.commands.SortColumn, kPingColumn);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    template <class T = QWidget>
    T& find(const char* name) {
        auto* found = window.findChild<T*>(name);
        if (!found) throw std::runtime_error(std::string("no ") + name);
        return *found;
    }

    void click(TabList& list, int row) {
        const QRect area = list.visualRect(list.model()->index(row, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, area.center());
    }

    QString frameOnShow() { return find<QStackedWidget>("q3tabframes").currentWidget()->objectName(); }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    MainWindow window{program};
};

TEST_F(MainWindowTest, TheKeyboardChoosesModesAndTabs) {
    auto& connectTabs = find<TabList>("sbarlist1");
    connectTabs.setFocus();
    QTest::keyClick(&connectTabs, Qt::Key_Down);
    EXPECT_EQ(frameOnShow(), "servers");  // walking chooses nothing
    QTest::keyClick(&connectTabs, Qt::Key_Return);
    EXPECT_EQ(frameOnShow(), "player");
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(program.run.CurrentMode.get(), kListen);
    EXPECT_TRUE(find("sbarlist2").hasFocus());
    QTest::keyClick(&find("sbarlist2"), Qt::Key_End);
    QTest::keyClick(&find("sbarlist2"), Qt::Key_Space);
    EXPECT_EQ(program.rules.modes.TabKey.get(), "tweak2");
    QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
    // A screen reader chooses a tab by selecting it.
    auto* interface = QAccessible::queryAccessibleInterface(&find("sbarlist1"));
    interface->child(3)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(program.rules.modes.TabKey.get(), "keys");
    EXPECT_EQ(find<TabList>("sbarlist1").selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(MainWindowTest, EveryFormComesUpAndIsLeftByEscapeAndByItsButtons) {
    program.servers.addressForm.ip1.setText("127.0.0.1");
    program.servers.addressForm.port.setText("27960");
    int left = 0;
    for (Form* form : program.forms()) {
        const std::string_view name = form->name;
        if (name.starts_with("q3getm") || name == "q3getgame") continue;  // those end with their scans
        for (const char* way : {"", "q3aboutOK", "newipOK", "newipCancel", "newbotcancel", "kw", "q3resetcancel",
                                "optionsOK", "pakOK", "pakcancel", "plistclose", "modclose"}) {
            SCOPED_TRACE(std::string(form->name) + way);
            form->set(true);
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, 1000));
            auto* button = QApplication::activeModalWidget()->findChild<QAbstractButton*>(way);
            if (*way && button)
                button->click();
            else
                QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
            EXPECT_FALSE(form->get() || QApplication::activeModalWidget());
            left += *way && button;
        }
    }
    EXPECT_EQ(left, 11);
}

TEST_F(MainWindowTest, EveryEntryRunsItsCommand) {
    QStringList entries;
    for (const QMenu* menu : window.menuBar()->findChildren<QMenu*>())
        for (const QAction* entry : menu->actions()) entries += entry->objectName();
    EXPECT_EQ(entries.join(' ').simplified(),
              "mfileopen mfilesave mfilerun mfileexit meditundo meditredo mserversrefresh mserversselected "
              "mserversstop mserversfind mtoolsconsole mtoolsresults mtoolsreset mtoolsoptions mhelpcontents mhelpwhat mhelpover mhelpabout");
    world.dialogs.choose(std::nullopt);
    find<QAction>("mfilesave").trigger();
    EXPECT_EQ(world.dialogs.fileDialogs.size(), 1u);
    for (const auto& [entry, form] : {std::pair("mtoolsreset", &program.rules.tabReset.q3resetprompt),
                                      {"mtoolsresults", &program.benchmark.results.q3results},
                                      {"mtoolsoptions", &program.rules.optionsRules.q3options},
                                      {"mhelpabout", &program.rules.q3about}}) {
        find<QAction>(entry).trigger();
        EXPECT_TRUE(form->get()) << entry;
        form->set(false);
    }
    program.rules.modes.sbar_GroupClick(kListen);
    auto& line = find<QLineEdit>("q3hostname");
    line.setFocus();
    QTest::keyClicks(&line, "ab");
    QTest::keyClick(&line, Qt::Key_Z, Qt::ControlModifier);  // the program's undo, not the line's
    EXPECT_EQ(line.text() + find<QAction>("meditredo").text(), "noname&Redo Hostname");
    find<QAction>("meditredo").trigger();
    EXPECT_EQ(program.config.doc.q3hostname.text(), "nonameab");
    auto& hunk = find("q3hunksize");
    hunk.setFocus();
    QTest::keyClick(&hunk, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&hunk, "128");
    QTest::keyClick(&window, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(program.config.doc.q3hunksize.text(), "128") << "a command works on what was typed";
    program.run.ConfigChanged = false;
    find<QAction>("mfileexit").trigger();
    EXPECT_TRUE(world.events.ended);
}

TEST_F(MainWindowTest, ClosingAsksAndHides) {
    program.rules.modes.sbar_GroupClick(kListen);
    auto& hunk = find("q3hunksize");
    hunk.setFocus();
    QTest::keyClicks(&hunk, "9");  // taken with the window's end, so there is something to ask about
    program.run.ConfigChanged = false;
    world.dialogs.answer("Exit Gatehouse", Answer::No);
    EXPECT_FALSE(window.close());  // the program hides it, not its own event
    ASSERT_EQ(world.dialogs.shown.size(), 1u);
    EXPECT_TRUE(!window.isVisible() && world.events.ended && world.dialogs.shown.back().noLoses);
    window.close();
    EXPECT_EQ(world.dialogs.shown.size(), 1u);
}

}  // namespace
}  // namespace gatehouse
