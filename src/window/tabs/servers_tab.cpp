#include "platform/qt/shown_text.h"
#include "servers/servers_room.h"
#include "window/rules/commands.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/filter_bar.h"
#include "window/widgets/follow.h"
#include "window/widgets/server_list.h"
#include "window/widgets/table_tools.h"
#include "window/widgets/table_view.h"

#include <QAction>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>
#include <string_view>

namespace gatehouse {

namespace {

/// The buttons of `tbservers` that depend on a flag, in the order of their numbers.
constexpr std::array<std::string_view, 5> kServerTools = {"tbservers.Add", "tbservers.Delete", "tbservers.Query",
                                                          "tbservers.Players", "tbservers.Mod"};

TableView* makeList(ServersRoom& servers) {
    ServerCommands& commands = servers.commands;
    ServerDesk& desk = servers.desk;
    TableView* view = makeServerList({servers.iplist, servers.favourites, &desk.passwordsShown,
                                      [&commands](int column) { commands.iplist_ColumnClick(column); }});
    view->setObjectName("iplist");
    view->setAccessibleName(QObject::tr("Servers"));
    follow(view, servers.filter.active, [view](bool active) {
        view->setEmptyText(active ? QObject::tr("No server passes the filter.")
                                  : QObject::tr("No servers yet. Add one, open a list, or find some."));
    });
    listen(view, servers.favourites.changed, [view] { view->viewport()->update(); });
    listen(view, servers.iplist.selectionChanged, [&commands] { commands.iplist_Click(); });
    QObject::connect(view, &TableView::mouseClicked, view, [&commands] { commands.iplist_Click(); });
    QObject::connect(view, &TableView::rowOpened, view, [&commands] { commands.iplist_DblClick(); });
    QObject::connect(view, &TableView::escaped, view, [&commands] { commands.iplist_Escape(); });
    listen(view, commands.iplistFocusWanted, [view] { view->setFocus(Qt::OtherFocusReason); });
    follow(view, commands.busy, [view](bool busy) { busy ? view->setCursor(Qt::BusyCursor) : view->unsetCursor(); });
    return view;
}

/// The commands of a row, in the list's own menu before those of the tool bar.
void addRowCommands(TableView& view, ServerDesk& desk) {
    addTableCommand(view, {"tbservers.Join", &desk.hasCurrent, [&desk] { desk.join(); }});
    // Its key is the menu's.
    addTableCommand(view, {"mserversselected", &desk.hasSelected, [&desk] { desk.refreshSelected(); }})
        ->setShortcuts(QList<QKeySequence>());
    addTableCommand(view, {"tbservers.Edit", &desk.hasCurrent, [&desk] { desk.edit(); }});
    addTableCommand(view, {"tbservers.Copy", &desk.hasSelected, [&desk] { desk.copyAddresses(); }});
    addTableCommand(view, {"tbservers.Paste", nullptr, [&desk] { desk.pasteAddresses(); }});
    addTableCommand(view, {"tbservers.Favourite", &desk.hasSelected, [&desk] { desk.toggleFavourite(); }});
    auto* passwords = new QAction(&view);
    describe(*passwords, commandInfo("tbservers.Passwords"));
    bindSwitch(*passwords, desk.passwordsShown, [&desk] { desk.showPasswords(); });
    view.addAction(passwords);
}

QToolBar* makeTools(TableView& view, ServerCommands& commands, CommandFlags& flags) {
    QToolBar* bar = makeTableTools("tbservers", QObject::tr("Server List"));
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);  // there are many
    const auto run = [&commands](const CommandInfo& tool) {
        return [&commands, tag = std::string(tool.objectName())] { commands.tbservers_ButtonClick(tag); };
    };
    std::size_t number = 0;
    for (const std::string_view name : kServerTools)
        addTableTool(*bar, view, {name, &flags.tbservers[++number], run(commandInfo(name))});
    bar->addSeparator();
    const auto addButton = [bar](const CommandInfo& tool) {
        auto* action = new QAction(bar);
        describe(*action, tool);
        bar->addAction(action);
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    for (const std::string_view name : {"tbservers.Open", "tbservers.Save"}) {
        const CommandInfo& tool = commandInfo(name);
        QObject::connect(addButton(tool), &QAction::triggered, bar, run(tool));
    }
    // There is nothing behind it yet.
    addButton(commandInfo("tbservers.scan"))->setEnabled(false);
    return bar;
}

/// The commands of the menu that belong beside the filter; their keys are the menu's.
QWidget* makeRefreshTools(ServersRoom& servers) {
    QToolBar* bar = makeTableTools("refreshtools", QObject::tr("Refresh"));
    const auto add = [bar](std::string_view name, const QString& text, Observable<bool>* flag, std::function<void()> run) {
        auto* action = new QAction(bar);
        describe(*action, commandInfo(name));
        action->setShortcuts(QList<QKeySequence>());
        action->setText(text);
        flag ? bindCommand(*action, *flag, std::move(run)) : bindCommand(*action, std::move(run));
        bar->addAction(action);
        QWidget* button = bar->widgetForAction(action);
        button->setObjectName(action->objectName() + "_button");
        button->setFocusPolicy(Qt::TabFocus);
    };
    ServerDesk& desk = servers.desk;
    add("mserversrefresh", QObject::tr("Refresh"), &desk.hasRows, [&desk] { desk.refreshAll(); });
    add("mserversstop", QObject::tr("Stop"), &servers.refresh.running, [&desk] { desk.stop(); });
    add("mserversfind", QObject::tr("Find..."), nullptr, [&search = servers.search] { search.findServers(); });
    return bar;
}

QLabel* makeNote(const QString& name, Observable<std::string>& text) {
    auto* note = new ElidedLabel(Qt::ElideRight);
    note->setObjectName(name);
    follow(note, text, [note](const std::string& now) { note->setText(shown(now)); });
    return note;
}

/// "Servers:" and the number that stands there; the number is what is read out.
QWidget* makeTotal(const QString& caption, LabelField& total) {
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins({});
    row->addWidget(new QLabel(caption));
    auto* number = new QLabel;
    bind(*number, total);
    row->addWidget(number);
    return pair;
}

}  // namespace

QWidget* makeServersTab(ServersRoom& servers, CommandFlags& flags) {
    TableView* view = makeList(servers);
    addRowCommands(*view, servers.desk);
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins({});
    column->addWidget(makeTools(*view, servers.commands, flags));
    column->addWidget(makeFilterBar(servers.filter, makeRefreshTools(servers)));
    column->addWidget(view, 1);
    addHeaderMenus(*view);
    auto* totals = new QHBoxLayout;
    totals->addWidget(makeTotal(QObject::tr("Servers:"), servers.query.iptotservers));
    totals->addSpacing(2 * totals->spacing());
    totals->addWidget(makeTotal(QObject::tr("Players:"), servers.query.iptotplayers));
    totals->addSpacing(4 * totals->spacing());
    totals->addWidget(makeNote("filtersummary", servers.filter.summary), 1);
    totals->addWidget(makeNote("refreshprogress", servers.refresh.progress), 1);
    column->addLayout(totals);
    return tab;
}

}  // namespace gatehouse
