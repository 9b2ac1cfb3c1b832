#pragma once

#include "base/observable.h"

#include <QKeySequence>
#include <QString>

#include <functional>

class QAction;
class QToolBar;

namespace gatehouse {

class TableView;

/// A command on a table: a tool button, an entry of the table's context menu, and a key while the table has the focus.
struct TableTool {
    QString name;  ///< object name of the action; its button has "_button" behind
    const char* icon;
    QString text;
    QString hint;
    QKeySequence key;
    Observable<bool>& flag;
    std::function<void()> command;
};

/// A tool bar beside a table.
QToolBar* makeTableTools(const QString& name, const QString& title);
QAction* addTableTool(QToolBar& bar, TableView& view, const TableTool& tool);

}  // namespace gatehouse
