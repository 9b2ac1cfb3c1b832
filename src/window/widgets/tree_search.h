#pragma once

#include <QLineEdit>

#include <vector>

namespace gatehouse {

class TableModel;
class TableView;

/// A line that narrows a tree to the rows that hold what is typed, in any case, with those above and below them. The
/// current row stays, whatever it says: commands act on it. Escape clears the line, and then leads back to the tree.
class TreeSearch : public QLineEdit {
    Q_OBJECT

public:
    /// `tree` must outlive the line, but for its destruction together with it.
    TreeSearch(TableView& tree, const QString& name);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Soon, and once for many changes of the tree.
    void applySoon();
    void apply();
    /// By position, from 1: whether the row is to be seen.
    std::vector<bool> wantedRows() const;
    void showAll();

    TableView& tree_;
    TableModel& rows_;
    bool pending_ = false;
    bool narrowed_ = false;
    std::vector<int> closed_;  ///< positions of the rows that were closed when the search began
};

}  // namespace gatehouse
