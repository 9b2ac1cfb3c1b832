#pragma once

#include "window/rules/modes.h"

#include <QListView>
#include <QWidget>

#include <vector>

class QMenu;
class QStandardItemModel;
class QToolButton;

namespace gatehouse {

/// The tabs of one mode. The keyboard walks over them without choosing; Enter, Space or a click chooses.
class TabList : public QListView {
    Q_OBJECT

public:
    TabList(const ModeInfo& mode, QWidget* parent);

    /// Marks the tab of a frame as the one on show.
    void showFrame(Frame frame);
    void setLargeIcons(bool large);

Q_SIGNALS:
    /// A tab was chosen; items are counted from 1.
    void chosen(int item);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void choose(const QModelIndex& index);
    void chooseSelected();

    std::span<const Frame> tabs_;
    int rowOnShow_ = -1;
    QStandardItemModel* model_;
};

/// The side bar `sbar`: a header for each mode, and under the header of the current one its tabs.
class SideBar : public QWidget {
    Q_OBJECT

public:
    SideBar(ModeRules& rules, RunState& run, QWidget* parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void addMode(std::int16_t mode);
    void makeMenu();
    void showMode(std::int16_t mode);
    void setLargeIcons(bool large);

    ModeRules& rules_;
    RunState& run_;
    std::vector<QToolButton*> headers_;
    std::vector<TabList*> lists_;
    QMenu* sbarmenu_;
};

}  // namespace gatehouse
