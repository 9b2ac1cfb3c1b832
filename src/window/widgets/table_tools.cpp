#include "window/widgets/table_tools.h"

#include "window/widgets/binders.h"
#include "window/widgets/icons.h"
#include "window/widgets/table_view.h"

#include <QAction>
#include <QToolBar>

namespace gatehouse {

QToolBar* makeTableTools(const QString& name, const QString& title) {
    auto* bar = new QToolBar(title);
    bar->setObjectName(name);
    bar->setAccessibleName(title);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return bar;
}

QAction* addTableTool(QToolBar& bar, TableView& view, const TableTool& tool) {
    auto* action = new QAction(icon(tool.icon), tool.text, &view);
    action->setObjectName(tool.name);
    action->setToolTip(tool.hint);
    action->setShortcut(tool.key);
    action->setShortcutContext(Qt::WidgetShortcut);
    bindCommand(*action, tool.flag, tool.command);
    view.addAction(action);
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    bar.addAction(action);
    QWidget* button = bar.widgetForAction(action);
    button->setObjectName(tool.name + "_button");
    button->setFocusPolicy(Qt::TabFocus);
    return action;
}

}  // namespace gatehouse
