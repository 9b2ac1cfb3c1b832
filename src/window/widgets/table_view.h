#pragma once

#include "window/widgets/table_model.h"

#include <QTreeView>

namespace gatehouse {

/// A list or a tree over a table. The table's current row is the one shown as current, and the other way round; with
/// `ExtendedSelection` its selected rows are, too. The table is right whenever the two differ.
class TableView : public QTreeView {
    Q_OBJECT

public:
    /// Takes the model over.
    explicit TableView(TableModel* model, SelectionMode mode = SingleSelection, QWidget* parent = nullptr);

    /// Sets the widths of columns in letters; the last column takes what remains.
    void setColumnLetters(const std::vector<int>& letters);

    /// What stands in the view while the table has no rows.
    void setEmptyText(const QString& text) { emptyText_ = text; }

Q_SIGNALS:
    /// A person made another row the current one.
    void rowChosen(int position);
    /// A person double-clicked a row or pressed Return on it. One click is never enough, whatever the desktop's way is
    /// for files: these commands open dialogs and games.
    void rowOpened();
    /// Escape was pressed, in a view of which many rows can be selected.
    void escaped();
    /// A person clicked on the row that was the current one before.
    void currentClicked();
    /// The mouse was clicked anywhere in the view, whether or not that has changed anything.
    void mouseClicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showCurrent();
    void showSelection();
    void takeCurrent(const QModelIndex& index);
    void takeSelection();

    /// Whether the row at a position is shown as selected, by position.
    std::vector<bool> selectedRows() const;
    /// The first row that is selected here and not yet in the table, if the current row is not selected; otherwise 0.
    /// A screen reader selects a row without making it the current one.
    int addedRow(const std::vector<bool>& selected) const;

    TableModel& rows_;
    QString emptyText_;
};

}  // namespace gatehouse
