#include "servers/server_commands.h"
#include "servers/status_query.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/binders.h"
#include "window/widgets/icons.h"
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

/// One button of `tbservers` that depends on a flag.
struct ServerTool {
    std::size_t number;
    const char* tag;
    const char* icon;
    QString text;
    QString hint;
    QKeySequence key;
};

std::vector<ServerTool> serverTools() {
    return {
        {1, "Add", "add", QObject::tr("Add"), QObject::tr("Add a server"), QKeySequence(Qt::Key_Insert)},
        {2, "Delete", "remove", QObject::tr("Delete"), QObject::tr("Delete this server"), QKeySequence(Qt::Key_Delete)},
        {3, "Query", "query", QObject::tr("Query"), QObject::tr("Ping server/s"), QKeySequence(Qt::CTRL | Qt::Key_E)},
        {4, "Players", "players", QObject::tr("Players"), QObject::tr("List players"),
         QKeySequence(Qt::CTRL | Qt::Key_L)},
        {5, "Mod", "options", QObject::tr("Mod"), QObject::tr("Mod options for this server"), {}}};
}

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
    const auto run = [&commands](const char* tag) { return [&commands, tag] { commands.tbservers_ButtonClick(tag); }; };
    for (const ServerTool& tool : serverTools())
        addTableTool(
            *bar, view,
            {tool.tag, tool.icon, tool.text, tool.hint, tool.key, &flags.tbservers[tool.number], run(tool.tag)});
    bar->addSeparator();
    const auto addButton = [bar](const char* name, const QIcon& picture, const QString& text, const QString& hint) {
        QAction* action = bar->addAction(picture, text);
        action->setObjectName(name);
        action->setToolTip(hint);
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    QAction* open = addButton("Open", icon("open"), QObject::tr("Open"), QObject::tr("Open server list"));
    QAction* save = addButton("Save", icon("save"), QObject::tr("Save"), QObject::tr("Save server list"));
    QObject::connect(open, &QAction::triggered, bar, run("Open"));
    QObject::connect(save, &QAction::triggered, bar, run("Save"));
    // There is nothing behind it yet.
    addButton("scan", icon("servers"), QObject::tr("Scan"), QObject::tr("Query master server"))->setEnabled(false);
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
