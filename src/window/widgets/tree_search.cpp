#include "window/widgets/tree_search.h"

#include "window/widgets/table_view.h"

#include <QKeyEvent>
#include <QTimer>

#include <utility>

namespace gatehouse {

TreeSearch::TreeSearch(TableView& tree, const QString& name)
    : tree_(tree), rows_(*static_cast<TableModel*>(tree.model())) {
    setObjectName(tree.objectName() + "_search");
    setAccessibleName(name);
    setPlaceholderText(name);
    setClearButtonEnabled(true);
    setMaxLength(100);
    connect(this, &QLineEdit::textChanged, this, &TreeSearch::apply);
    for (auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&rows_, change, this, &TreeSearch::applySoon);
    connect(&rows_, &QAbstractItemModel::modelReset, this, [this] {
        closed_.clear();
        applySoon();
    });
    connect(&rows_, &TableModel::currentMoved, this, &TreeSearch::applySoon);
}

void TreeSearch::keyPressEvent(QKeyEvent* event) {
    const bool leaves = event->key() == Qt::Key_Down || (event->key() == Qt::Key_Escape && text().isEmpty());
    if (leaves) return tree_.setFocus(Qt::OtherFocusReason);
    if (event->key() == Qt::Key_Escape) return clear();
    QLineEdit::keyPressEvent(event);
}

void TreeSearch::applySoon() {
    if (text().isEmpty() || std::exchange(pending_, true)) return;
    QTimer::singleShot(0, this, [this] {
        pending_ = false;
        apply();
    });
}

std::vector<bool> TreeSearch::wantedRows() const {
    const TableSource& source = rows_.source();
    const auto count = static_cast<std::size_t>(source.count());
    std::vector<bool> hit(count + 1);
    std::vector<bool> wanted(count + 1);
    std::vector<std::size_t> above(count + 1);
    // A row stands behind the one above it.
    for (std::size_t row = 1; row <= count; ++row) {
        const int position = static_cast<int>(row);
        above[row] = static_cast<std::size_t>(source.parent(position));
        hit[row] = hit[above[row]] || source.text(position, 0).contains(text(), Qt::CaseInsensitive);
        wanted[row] = hit[row] || position == source.current();
    }
    for (std::size_t row = count; row > 0; --row)
        if (wanted[row]) wanted[above[row]] = true;
    return wanted;
}

void TreeSearch::apply() {
    if (text().isEmpty()) return showAll();
    const bool starts = !std::exchange(narrowed_, true);
    const std::vector<bool> wanted = wantedRows();
    for (std::size_t row = 1; row < wanted.size(); ++row) {
        const QModelIndex index = rows_.indexOf(static_cast<int>(row));
        if (!index.isValid()) return;  // the views are told of the others soon
        tree_.setRowHidden(index.row(), index.parent(), !wanted[row]);
        if (rows_.rowCount(index) == 0 || tree_.isExpanded(index)) continue;
        if (starts) closed_.push_back(static_cast<int>(row));
        if (wanted[row]) tree_.expand(index);
    }
}

void TreeSearch::showAll() {
    if (!std::exchange(narrowed_, false)) return;
    for (int position = 1; position <= rows_.source().count(); ++position) {
        const QModelIndex index = rows_.indexOf(position);
        if (index.isValid()) tree_.setRowHidden(index.row(), index.parent(), false);
    }
    for (const int position : std::exchange(closed_, {})) tree_.collapse(rows_.indexOf(position));
    tree_.scrollTo(tree_.currentIndex());
}

}  // namespace gatehouse
