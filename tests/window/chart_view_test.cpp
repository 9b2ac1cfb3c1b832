#include "window/widgets/chart_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QtTest>

namespace gatehouse {
namespace {

std::vector<ResultRow> sample(int iterations) {
    RunRecord record;
    record.configurations = {{"fast.ghc", ""}, {"slow.ghc", ""}};
    record.demos = {"demo001"};
    for (int i = 0; i < 2 * iterations; ++i) {
        Iteration& one = record.iterations.emplace_back();
        one.configuration = i / iterations;
        one.number = i % iterations + 1;
        one.value = 50 + i;
    }
    return resultRows({record});
}

TEST(ChartView, KeysWalkTheDotsAndAScreenReaderHearsEach) {
    ChartView view;
    view.setRows(sample(3));
    view.resize(600, 300);
    view.show();
    const QSignalSpy texts(&view, &ChartView::currentText);
    const std::vector<std::pair<Qt::Key, int>> walk = {{Qt::Key_Right, 0}, {Qt::Key_Right, 1}, {Qt::Key_Left, 0},
                                                       {Qt::Key_Left, 0},  {Qt::Key_Down, 3},  {Qt::Key_Up, 2},
                                                       {Qt::Key_End, 5},   {Qt::Key_Right, 5}, {Qt::Key_Home, 0}};
    for (const auto& [key, dot] : walk) {
        QTest::keyClick(&view, key);
        EXPECT_EQ(view.currentDot(), dot) << key;
    }
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.rectOf(4).center());
    EXPECT_EQ(texts.last().first().toString(), "slow.ghc, demo001, iteration 2: 54.00 frames per second");
    QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&view);
    ASSERT_EQ(chart->childCount(), 6);
    QAccessibleInterface* dot = chart->child(4);
    EXPECT_EQ(dot->text(QAccessible::Name), texts.last().first().toString());
    EXPECT_TRUE(dot->state().selected && chart->indexOfChild(dot) == 4 && chart->focusChild() == dot);
    EXPECT_EQ(dot->parent(), chart);
    // A dot that a reader still holds when other rows come.
    view.setRows(sample(1));
    EXPECT_TRUE(!dot->isValid() && dot->text(QAccessible::Name).isEmpty() && chart->childCount() == 2);
    view.setRows({});
    QTest::keyClick(&view, Qt::Key_Right);
    view.grab();
    EXPECT_EQ(view.currentDot(), -1);
}

}  // namespace
}  // namespace gatehouse
