#include "support/core/started_program.h"
#include "window/main_window.h"
#include "window/scan_window.h"
#include "window/widgets/table_view.h"
#include "window/widgets/tree_search.h"

#include <QAction>
#include <QApplication>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(ScanWindowTest, EveryWayOutStopsTheScanAndTheWindowStaysUntilItHasEnded) {
    ScanView view({"q3getmaps", "maplabel", "mapentry", "mapprog"}, "Scan");
    ScanWindow window(view, 0);
    auto& bar = *window.findChild<QProgressBar*>("mapprog");
    auto& stop = *window.findChild<QPushButton*>("scanstop");
    const QList<std::function<void()>> ways = {[&] { QTest::keyClick(&window, Qt::Key_Escape); },
                                               [&] { QTest::keyClick(&window, Qt::Key_Return); },
                                               [&] { window.close(); }, [&] { stop.click(); }};
    for (const auto& leave : ways) {
        const Showing showing(view);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_FALSE(view.stopped());
        EXPECT_EQ(bar.value(), 0);
        view.startBar(4);
        view.progress.set(3);
        EXPECT_EQ(bar.value() * 4, bar.maximum() * 3);
        view.startBar(0);  // an empty archive
        EXPECT_EQ(bar.value(), 0);
        leave();
        EXPECT_TRUE(view.stopped() && window.isVisible() && !stop.isEnabled());
    }
    EXPECT_FALSE(window.isVisible());

    ScanWindow later(view, 50);
    { const Showing showing(view); }
    QTest::qWait(100);
    EXPECT_FALSE(later.isVisible()) << "the scan was over sooner";
    const Showing showing(view);
    EXPECT_TRUE(QTest::qWaitFor([&] { return later.isVisible(); }, 5000));
}

class ContentWindowsTest : public testing::Test {
protected:
    ContentWindowsTest() {
        world.files.put("C:\\gh\\ghnoshot.jpg", "64");
        world.files.put("C:\\gh\\levelshots\\q3dm2.jpg", "32");
        world.files.put("C:\\gh\\usermaps.txt", "ARENA Yard of q3dm17\r\n");
        program.StartupDriver();
        program.rules.modes.sbar_GroupClick(kListen);
        while (program.rules.modes.TabKey.get() != "maps") program.rules.modes.sbar_ListItemClick(++tab_);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        tree().setFocus();
    }
    TableView& tree() { return *window.findChild<TableView*>("maptree"); }
    TreeSearch& search() { return *window.findChild<TreeSearch*>("maptree_search"); }
    QWidget* preview() { return window.findChild<QWidget*>("q3levelshot"); }
    MapTree& maps() { return program.content.maps.maptree; }
    int positionOf(const std::string& name) {
        for (int i = 1; i <= maps().count(); ++i)
            if (maps().at(i).text.starts_with(name)) return i;
        return 0;
    }
    QModelIndex indexOf(const std::string& name) {
        return static_cast<TableModel*>(tree().model())->indexOf(positionOf(name));
    }
    /// The maps that a person can see, by their first words.
    std::string seen() {
        std::string names;
        for (int i = 1; i <= maps().count(); ++i) {
            const QModelIndex index = static_cast<TableModel*>(tree().model())->indexOf(i);
            if (isMap(maps().at(i)) && !tree().visualRect(index).isEmpty())
                names += maps().at(i).text.substr(0, maps().at(i).text.find(' ')) + " ";
        }
        return names;
    }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    MainWindow window{program};

private:
    std::int16_t tab_ = 0;
};

TEST_F(ContentWindowsTest, ThePreviewFollowsTheChoiceZoomsAndHidesByTheKeyboardAlone) {
    tree().expandAll();
    maps().setCurrent(positionOf("Q3DM1 "));
    QTest::keyClick(&tree(), Qt::Key_Down);
    ASSERT_TRUE(preview() && preview()->isVisible());
    EXPECT_EQ(preview()->windowTitle(), "Map: Q3DM2");
    EXPECT_TRUE(tree().hasFocus()) << "it never takes the focus";
    EXPECT_FALSE(preview()->findChild<QWidget*>("noPicture")->isVisible());
    for (const int zoom : {2, 3, 1}) {
        const QWidget& picture = *preview()->findChild<QWidget*>("levelshot");
        const int before = picture.width();
        QTest::keyClick(&tree(), zoom == 2 ? Qt::Key_Equal : Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_EQ(program.run.zoomLevel, zoom);
        EXPECT_EQ(picture.width() > before, zoom > 1);
        EXPECT_TRUE(zoom == 3 || preview()->screen()->availableGeometry().contains(preview()->frameGeometry()));
    }
    QTest::keyClick(&tree(), Qt::Key_Down);
    EXPECT_EQ(preview()->windowTitle(), "Map: Q3DM3");
    EXPECT_TRUE(preview()->findChild<QWidget*>("noPicture")->isVisible());
    QTest::keyClick(&tree(), Qt::Key_Escape);
    EXPECT_FALSE(preview()->isVisible());
    tree().scrollTo(indexOf("Q3DM3 "));
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(indexOf("Q3DM3 ")).center());
    EXPECT_TRUE(preview()->isVisible()) << "a click on the row that is current already";
    preview()->close();
    EXPECT_FALSE(preview()->isVisible() || program.content.preview.q3levelshot.get());
}

TEST_F(ContentWindowsTest, NoCommandRunsBehindADialog) {
    maps().setCurrent(1);
    program.rules.q3about.set(true);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }, 5000));
    window.findChild<QAction*>("mtool3_4")->trigger();
    EXPECT_TRUE(world.dialogs.shown.empty());
    program.rules.q3about.set(false);
    world.dialogs.answer("No!", Answer::Ok);
    window.findChild<QAction*>("mtool3_4")->trigger();
    EXPECT_EQ(world.dialogs.shown.size(), 1U);
}

TEST_F(ContentWindowsTest, WhatIsTypedNarrowsTheTreeAndEscapePutsItBack) {
    tree().resize(400, 3000);
    maps().setCurrent(positionOf("Q3CTF1 "));
    tree().expandAll();
    tree().collapse(indexOf("ARENA ").parent());
    tree().resize(400, 3000);
    const std::string before = seen();
    search().setFocus();
    QTest::keyClicks(&search(), "dM17");
    EXPECT_EQ(seen(), "Q3DM17 Q3CTF1 ARENA ") << "a title counts, and the current row is never hidden";
    QTest::keyClick(&search(), Qt::Key_Escape);
    EXPECT_TRUE(search().text().isEmpty() && search().hasFocus());
    EXPECT_EQ(seen(), before) << "what was closed is closed again";
    QTest::keyClicks(&search(), "nowhere");
    EXPECT_EQ(seen(), "Q3CTF1 ");
    program.content.maps.loadStandardMaps();
    QCoreApplication::processEvents();
    EXPECT_EQ(seen(), "") << "a tree that is loaded anew stays narrowed";
    search().clear();
    QTest::keyClick(&search(), Qt::Key_Down);
    EXPECT_TRUE(tree().hasFocus());
}

}  // namespace
}  // namespace gatehouse
