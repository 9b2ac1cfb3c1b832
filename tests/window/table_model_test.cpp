#include "window/widgets/table_model.h"

#include "base/table.h"
#include "window/widgets/table_view.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QPalette>
#include <QProxyStyle>
#include <QTest>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

namespace gatehouse {
namespace {

struct Row {
    std::string text;
    std::string group;  ///< text of the row above it, empty for a root
};
using Rows = Table<Row>;

int groupOf(const Rows& rows, int position) {
    for (int above = 1; above < position; ++above)
        if (!rows.at(position).group.empty() && rows.at(above).text == rows.at(position).group) return above;
    return 0;
}

TableLook<Row> listLook() {
    return {.columns = {{"Text", &Row::text}, {"Group", &Row::group}}};
}

TableLook<Row> treeLook() {
    return {.columns = listLook().columns, .parent = groupOf};
}

/// Every row of the table stands once in the model, with its text, under its parent and in the table's order.
void expectMirror(const Rows& rows, const TableModel& model, const TableLook<Row>& look) {
    std::map<int, int> lastUnder;
    for (int position = 1; position <= rows.count(); ++position) {
        const QModelIndex index = model.indexOf(position);
        ASSERT_TRUE(index.isValid());
        EXPECT_EQ(model.position(index), position);
        EXPECT_EQ(index.data().toString().toStdString(), rows.at(position).text);
        EXPECT_EQ(index.siblingAtColumn(1).data().toString().toStdString(), rows.at(position).group);
        const int parent = look.parent ? look.parent(rows, position) : 0;
        EXPECT_EQ(model.position(index.parent()), parent);
        EXPECT_EQ(index.row(), lastUnder[parent]++);
    }
    for (const auto& [parent, children] : lastUnder) EXPECT_EQ(model.rowCount(model.indexOf(parent)), children);
}

/// What the view shows as current and selected is what the table says.
void expectSameChoice(const Rows& rows, const TableModel& model, const TableView& view, bool many) {
    EXPECT_EQ(model.position(view.currentIndex()), rows.current());
    for (int position = 1; position <= rows.count(); ++position) {
        const bool wanted = many ? rows.selected(position) : position == rows.current();
        EXPECT_EQ(view.selectionModel()->isSelected(model.indexOf(position)), wanted) << position;
    }
}

class Walk : public testing::TestWithParam<bool> {};

TEST_P(Walk, TheViewMirrorsEveryChangeOfTheTable) {
    const bool tree = GetParam();
    const TableLook<Row> look = tree ? treeLook() : listLook();
    Rows rows;
    for (const char* group : {"A", "B"}) rows.append({group, {}});
    auto* model = new TableModel(rows, look);
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    TableView view(model, tree ? QAbstractItemView::SingleSelection : QAbstractItemView::ExtendedSelection);
    view.show();

    std::mt19937 random(7);
    const auto pick = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    for (int step = 0; step < 3000; ++step) {
        const int count = rows.count();
        switch (count == 0 ? 2 : pick(tree ? 8 : 10)) {
            default: rows.append({"r" + std::to_string(step), pick(3) == 0 ? "" : pick(2) ? "A" : "B"}); break;
            case 3: rows.remove(pick(count) + 1); break;
            case 4: rows.remove(1); break;
            case 5: rows.update(pick(count) + 1, [step](Row& row) { row.text += std::to_string(step % 10); }); break;
            case 6: rows.setCurrent(pick(count + 1)); break;
            case 7: view.setCurrentIndex(model->indexOf(pick(count) + 1)); break;
            case 8: rows.select(pick(count) + 1, pick(2) == 0); break;
            case 9:
                if (pick(40) == 0) rows.clear();
                else if (pick(10) == 0) rows.retain([&](int, const Row&) { return pick(2) == 0; });
                else {
                    rows.setSortState({true, pick(2), pick(2) == 0});
                    rows.sort([](const Row& row, int key) { return key == 0 ? row.text : row.group; });
                }
                break;
        }
        expectMirror(rows, *model, look);
        expectSameChoice(rows, *model, view, !tree);
        ASSERT_FALSE(testing::Test::HasFailure()) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(ListAndTree, Walk, testing::Bool());

TEST(TableView, OnlyADoubleClickOrReturnOpensARowWhateverTheDesktopsWay) {
    struct OneClickStyle : QProxyStyle {
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const override {
            return hint == SH_ItemView_ActivateItemOnSingleClick ? 1
                                                                 : QProxyStyle::styleHint(hint, option, widget, data);
        }
    } style;
    Rows rows;
    for (const char* text : {"one", "two"}) rows.append({text, {}});
    TableView view(new TableModel(rows, listLook()));
    view.setStyle(&style);
    view.show();
    int opened = 0;
    QObject::connect(&view, &TableView::rowOpened, &view, [&opened] { ++opened; });
    const QPoint second = view.visualRect(view.model()->index(1, 0)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, second);
    EXPECT_TRUE(opened == 0 && rows.current() == 2);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(opened, 1);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(opened, 2);
}

double luminance(const QColor& colour) {
    const auto part = [](double x) { return x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

TEST(RowColours, EveryInkCanBeReadOnALightAndOnADarkGround) {
    constexpr double kReadable = 4.5;
    const QPalette before = QApplication::palette();
    for (const auto& [ground, text] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground == Qt::black ? QColor("#1e1e1e") : QColor(ground));
        palette.setColor(QPalette::Text, text);
        QApplication::setPalette(palette);
        for (const Ink ink : {Ink::Normal, Ink::Grey, Ink::Red, Ink::Blue}) {
            const double a = luminance(inkColour(ink)) + 0.05;
            const double b = luminance(palette.color(QPalette::Base)) + 0.05;
            EXPECT_GE(std::max(a, b) / std::min(a, b), kReadable) << static_cast<int>(ink);
        }
    }
    QApplication::setPalette(before);
}

}  // namespace
}  // namespace gatehouse
