#include "window/widgets/table_tools.h"

#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/table_view.h"

#include <QAction>
#include <QToolBar>

#include <utility>

namespace gatehouse {

QToolBar* makeTableTools(const QString& name, const QString& title) {
    auto* bar = new QToolBar(title);
    bar->setObjectName(name);
    bar->setAccessibleName(title);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return bar;
}

QAction* addTableCommand(TableView& view, const TableTool& tool) {
    auto* action = new QAction(&view);
    describe(*action, commandInfo(tool.name));
    action->setShortcutContext(Qt::WidgetShortcut);
    if (tool.flag)
        bindCommand(*action, *tool.flag, tool.command);
    else
        bindCommand(*action, tool.command);
    view.addAction(action);
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}

void addHidePicture(TableView& view, Observable<bool>& shown, std::function<void()> hide) {
    addTableCommand(view, {"hidePicture", &shown, std::move(hide)});
}

QAction* addTableTool(QToolBar& bar, TableView& view, const TableTool& tool) {
    QAction* action = addTableCommand(view, tool);
    bar.addAction(action);
    QWidget* button = bar.widgetForAction(action);
    button->setObjectName(action->objectName() + "_button");
    button->setFocusPolicy(Qt::TabFocus);
    return action;
}

}  // namespace gatehouse
