#pragma once

#include "base/observable.h"

#include <QString>

#include <functional>
#include <string_view>

class QAction;
class QToolBar;

namespace gatehouse {

class TableView;

/// A command on a table: an entry of the table's context menu, and a key while the table has the focus.
struct TableTool {
    std::string_view name;   ///< of its declaration; the object name of its button has "_button" behind
    Observable<bool>* flag;  ///< whether it can be used; null for always
    std::function<void()> command;
};

/// A tool bar beside a table.
QToolBar* makeTableTools(const QString& name, const QString& title);
/// A command with a tool button.
QAction* addTableTool(QToolBar& bar, TableView& view, const TableTool& tool);
/// A command without one.
QAction* addTableCommand(TableView& view, const TableTool& tool);
/// Escape in the table hides the picture beside it, while there is one.
void addHidePicture(TableView& view, Observable<bool>& shown, std::function<void()> hide);

}  // namespace gatehouse
