#include "window/widgets/table_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace gatehouse {

namespace {

constexpr int kEmptyMargin = 16;

}  // namespace

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
    connect(this, &QAbstractItemView::doubleClicked, this, &TableView::rowOpened);
    if (mode == SingleSelection) {
        // A screen reader selects a row without making it the current one.
        connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& selected) {
            if (!selected.isEmpty()) takeCurrent(selected.indexes().front());
        });
    }
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
    const auto how = selectionMode() == SingleSelection
                         ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                         : QItemSelectionModel::NoUpdate;
    selectionModel()->setCurrentIndex(wanted, how);
    if (wanted.isValid()) scrollTo(wanted);
}

void TableView::takeCurrent(const QModelIndex& index) {
    const int position = rows_.position(index);
    if (position == 0 || position == rows_.source().current()) return;
    rows_.source().choose(position, [this, position] { Q_EMIT rowChosen(position); });
}

std::vector<bool> TableView::selectedRows() const {
    std::vector<bool> selected(static_cast<std::size_t>(rows_.source().count()) + 1);
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            selected.at(static_cast<std::size_t>(rows_.position(rows_.index(row, 0, range.parent())))) = true;
    }
    return selected;
}

void TableView::showSelection() {
    const std::vector<bool> shown = selectedRows();
    QItemSelection wanted;
    bool differs = false;
    QModelIndex start;  // of a run of selected rows: a selection of few ranges is quick to ask
    QModelIndex end;
    for (int position = 1; position <= rows_.source().count(); ++position) {
        const QModelIndex row = rows_.indexOf(position);
        if (!row.isValid()) continue;
        const bool selected = rows_.source().selected(position);
        differs |= selected != shown[static_cast<std::size_t>(position)];
        if (!selected) continue;
        const bool goesOn = end.isValid() && row.parent() == end.parent() && row.row() == end.row() + 1;
        if (!goesOn) {
            if (end.isValid()) wanted.append({start, end});
            start = row;
        }
        end = row;
    }
    if (end.isValid()) wanted.append({start, end});
    if (differs) selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void TableView::takeSelection() {
    const std::vector<bool> selected = selectedRows();
    const int added = addedRow(selected);
    rows_.source().selectWhere([&selected](int position) { return selected[static_cast<std::size_t>(position)]; });
    if (added != 0) takeCurrent(rows_.indexOf(added));
}

int TableView::addedRow(const std::vector<bool>& selected) const {
    const TableSource& table = rows_.source();
    if (selected[static_cast<std::size_t>(table.current())]) return 0;
    for (int position = 1; position <= table.count(); ++position)
        if (selected[static_cast<std::size_t>(position)] && !table.selected(position)) return position;
    return 0;
}

void TableView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && selectionMode() == ExtendedSelection) {
        Q_EMIT escaped();
        return;
    }
    const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!opens || !currentIndex().isValid()) return QTreeView::keyPressEvent(event);
    Q_EMIT rowOpened();
}

void TableView::mousePressEvent(QMouseEvent* event) {
    const int before = rows_.position(currentIndex());
    QTreeView::mousePressEvent(event);
    const int clicked = rows_.position(indexAt(event->pos()));
    if (clicked != 0 && clicked == before && event->button() == Qt::LeftButton) Q_EMIT currentClicked();
}

void TableView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    Q_EMIT mouseClicked();
}

void TableView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (emptyText_.isEmpty() || model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect area = viewport()->rect().adjusted(kEmptyMargin, kEmptyMargin, -kEmptyMargin, -kEmptyMargin);
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
}

}  // namespace gatehouse
