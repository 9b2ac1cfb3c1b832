#include "servers/server_commands.h"
#include "servers/status_query.h"
#include "window/rules/commands.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/table_tools.h"
#include "window/widgets/table_view.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

#include <array>
#include <string_view>

namespace gatehouse {

namespace {

struct Column {
    std::string_view title;
    int letters;
};

/// In the order of `serverColumn`.
constexpr std::array<Column, 8> kColumns = {{{"Name", 24},
                                             {"Ping", 7},
                                             {"Players", 9},
                                             {"Game", 13},
                                             {"Mod", 10},
                                             {"Map", 11},
                                             {"Address", 22},
                                             {"Password", 10}}};

struct State {
    std::string_view key;
    std::string_view meaning;
};

constexpr std::array<State, 4> kStates = {{{"mystery", "Not asked yet, or being asked"},
                                           {"ok", "Answers"},
                                           {"locked", "Answers; has places for those with a password"},
                                           {"bad", "No answer, or a bad one"}}};

RowPicture statePicture(const ServerEntry& server) {
    for (const State& state : kStates)
        if (state.key == server.SmallIcon) return {"server-" + server.SmallIcon, std::string(state.meaning)};
    return {};
}

/// The buttons of `tbservers` that depend on a flag, in the order of their numbers.
constexpr std::array<std::string_view, 5> kServerTools = {"tbservers.Add", "tbservers.Delete", "tbservers.Query",
                                                          "tbservers.Players", "tbservers.Mod"};

TableView* makeServerList(ServerTable& iplist, ServerCommands& commands) {
    TableLook<ServerEntry> look{.columns = {}, .picture = statePicture};
    std::vector<int> letters;
    for (const Column& column : kColumns) {
        const int number = static_cast<int>(look.columns.size());
        look.columns.push_back(
            {std::string(column.title), [number](const ServerEntry& server) { return serverColumn(server, number); }});
        letters.push_back(column.letters);
    }
    auto* view = new TableView(new TableModel(iplist, std::move(look)), QAbstractItemView::ExtendedSelection);
    view->setObjectName("iplist");
    view->setAccessibleName(QObject::tr("Servers"));
    view->setRootIsDecorated(false);
    view->setColumnLetters(letters);
    view->setEmptyText(QObject::tr("No servers yet. Add one, or open a list."));

    QHeaderView* header = view->header();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    QObject::connect(header, &QHeaderView::sectionClicked, view,
                     [&commands](int column) { commands.iplist_ColumnClick(column); });
    const auto showOrder = [header, &iplist] {
        const SortState& sort = iplist.sortState();
        header->setSortIndicator(sort.sorted ? sort.key : -1,
                                 sort.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    };
    showOrder();
    listen(view, iplist.reset, showOrder);
    listen(view, iplist.selectionChanged, [&commands] { commands.iplist_Click(); });
    QObject::connect(view, &TableView::mouseClicked, view, [&commands] { commands.iplist_Click(); });
    QObject::connect(view, &TableView::rowOpened, view, [&commands] { commands.iplist_DblClick(); });
    QObject::connect(view, &TableView::escaped, view, [&commands] { commands.iplist_Escape(); });
    listen(view, commands.iplistFocusWanted, [view] { view->setFocus(Qt::OtherFocusReason); });
    follow(view, commands.busy, [view](bool busy) { busy ? view->setCursor(Qt::BusyCursor) : view->unsetCursor(); });
    return view;
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

QWidget* makeServersTab(ServerTable& iplist, ServerCommands& commands, StatusQuery& query, CommandFlags& flags) {
    TableView* view = makeServerList(iplist, commands);
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins({});
    column->addWidget(makeTools(*view, commands, flags));
    column->addWidget(view, 1);
    auto* totals = new QHBoxLayout;
    totals->addWidget(makeTotal(QObject::tr("Servers:"), query.iptotservers));
    totals->addSpacing(2 * totals->spacing());
    totals->addWidget(makeTotal(QObject::tr("Players:"), query.iptotplayers));
    totals->addStretch(1);
    column->addLayout(totals);
    return tab;
}

}  // namespace gatehouse
