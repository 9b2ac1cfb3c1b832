#include "window/tabs/help_tab.h"

#include "window/rules/commands.h"
#include "window/rules/help_rules.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"
#include "window/widgets/help_view.h"

#include <QAction>
#include <QToolBar>
#include <QVBoxLayout>

namespace gatehouse {

QToolBar* makeHelpBar(HelpViewer& viewer, HelpRules& rules, QWidget& view, bool expand) {
    auto* bar = new QToolBar(QObject::tr("Help Pages"));
    bar->setObjectName("hwinbar");
    bar->setAccessibleName(bar->windowTitle());
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](std::string_view name, std::function<void()> run) {
        auto* action = new QAction(&view);
        describe(*action, commandInfo(name));
        action->setShortcutContext(Qt::WidgetShortcut);
        bindCommand(*action, std::move(run));
        view.addAction(action);
        bar->addAction(action);
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    // In the main window home is a command of its own, with the caption above the frame.
    QAction* back = add("back", [&viewer] { viewer.back(); });
    QAction* forward = add("forward", [&viewer] { viewer.forward(); });
    follow(back, viewer.canGoBack, [back](bool can) { back->setEnabled(can); });
    follow(forward, viewer.canGoForward, [forward](bool can) { forward->setEnabled(can); });
    if (expand) {
        add("expand", [&rules] { rules.hwinbar_ButtonClick("expand"); });
        add("home", [&rules] { rules.hwinbar_ButtonClick("home"); });
    } else {
        add("home", [&viewer] { viewer.navigate({kFirstHelpPage}); });
    }
    return bar;
}

QWidget* makeHelpTab(HelpViewer& hwin, HelpRules& rules) {
    auto* view = new HelpView(hwin, rules);
    view->setObjectName("hwin");
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins({});
    column->addWidget(makeHelpBar(hwin, rules, *view, true));
    column->addWidget(view, 1);
    return tab;
}

}  // namespace gatehouse
