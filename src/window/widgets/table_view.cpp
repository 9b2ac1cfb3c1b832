#include "window/widgets/table_view.h"

#include <QHeaderView>

namespace gatehouse {

TableView::TableView(TableModel* model, SelectionMode mode, QWidget* parent) : QTreeView(parent), rows_(*model) {
    model->setParent(this);
    setModel(model);
    setSelectionMode(mode);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);

    connect(model, &TableModel::currentMoved, this, &TableView::showCurrent);
    connect(model, &QAbstractItemModel::rowsInserted, this, &TableView::showCurrent);
    connect(model, &QAbstractItemModel::modelReset, this, &TableView::showCurrent);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &TableView::takeCurrent);
    if (mode == ExtendedSelection) {
        connect(model, &TableModel::selectionMoved, this, &TableView::showSelection);
        connect(model, &QAbstractItemModel::modelReset, this, &TableView::showSelection);
        connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &TableView::takeSelection);
        showSelection();
    }
    showCurrent();
}

void TableView::setColumnLetters(const std::vector<int>& letters) {
    const int letter = fontMetrics().averageCharWidth();
    for (std::size_t i = 0; i < letters.size(); ++i) header()->resizeSection(static_cast<int>(i), letters[i] * letter);
}

void TableView::showCurrent() {
    const QModelIndex wanted = rows_.indexOf(rows_.source().current());
    if (rows_.position(wanted) == rows_.position(currentIndex())) return;
    const auto how = selectionMode() == SingleSelection ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                                                        : QItemSelectionModel::NoUpdate;
    selectionModel()->setCurrentIndex(wanted, how);
    if (wanted.isValid()) scrollTo(wanted);
}

void TableView::takeCurrent(const QModelIndex& index) {
    const int position = rows_.position(index);
    if (position == 0 || position == rows_.source().current()) return;
    rows_.source().setCurrent(position);
    Q_EMIT rowChosen(position);
}

void TableView::showSelection() {
    QItemSelection wanted;
    bool differs = false;
    for (int position = 1; position <= rows_.source().count(); ++position) {
        const QModelIndex first = rows_.indexOf(position);
        if (!first.isValid()) continue;
        const bool selected = rows_.source().selected(position);
        differs |= selected != selectionModel()->isSelected(first);
        if (selected) wanted.select(first, first);
    }
    if (differs) selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void TableView::takeSelection() {
    rows_.source().selectWhere(
        [this](int position) { return selectionModel()->isSelected(rows_.indexOf(position)); });
}

}  // namespace gatehouse
