#include "window/widgets/server_list.h"

#include "platform/qt/shown_text.h"
#include "servers/server_order.h"
#include "window/widgets/follow.h"
#include "window/widgets/table_view.h"

#include <QHeaderView>
#include <QMenu>

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace gatehouse {

namespace {

struct Column {
    std::string_view title;
    int letters;
    bool number = false;
};

/// In the order of `serverColumn`, then those of the view alone.
constexpr std::array<Column, kTextColumns + 2> kColumns = {{{"Name", 24},
                                                            {"Ping", 7, true},
                                                            {"Players", 9, true},
                                                            {"Game", 13},
                                                            {"Mod", 10},
                                                            {"Map", 11},
                                                            {"Address", 22},
                                                            {"Password", 10},
                                                            {"Favourite", 10},
                                                            {"Silent Since", 20}}};
constexpr int kPasswordColumn = 7;
constexpr std::string_view kHiddenPassword = "********";
constexpr std::string_view kFavouriteMark = "yes";

struct State {
    std::string_view key;
    std::string_view meaning;
};

constexpr std::array<State, 4> kStates = {{{"mystery", "Not asked yet, or being asked"},
                                           {"ok", "Answers"},
                                           {"locked", "Answers; has places for those with a password"},
                                           {"bad", "No answer, or a bad one"}}};

RowPicture statePicture(const ServerEntry& server) {
    for (const State& state : kStates) {
        if (state.key != server.SmallIcon) continue;
        std::string meaning(state.meaning);
        if (!server.SilentSince.empty()) meaning += "; silent since " + server.SilentSince;
        return {"server-" + server.SmallIcon, std::move(meaning)};
    }
    return {};
}

std::string cellText(const ServerListParts& parts, const ServerEntry& server, int column) {
    if (column == kFavouriteColumn) return parts.favourites.contains(server.Address) ? std::string(kFavouriteMark) : "";
    if (column == kSilentColumn) return server.SilentSince;
    const std::string& text = serverColumn(server, column);
    const bool hidden = column == kPasswordColumn && parts.passwordsShown && !parts.passwordsShown->get();
    return hidden && !text.empty() ? std::string(kHiddenPassword) : text;
}

TableLook<ServerEntry> lookOf(const ServerListParts& parts) {
    TableLook<ServerEntry> look{.columns = {},
                                .ink = [](const ServerEntry& s) { return s.SilentSince.empty() ? Ink::Normal : Ink::Grey; },
                                .picture = statePicture,
                                .hidden = [](const ServerEntry& s) { return s.hidden; }};
    for (const Column& column : kColumns) {
        const int number = static_cast<int>(look.columns.size());
        look.columns.push_back({std::string(column.title),
                                [parts, number](const ServerEntry& server) { return cellText(parts, server, number); },
                                column.number});
    }
    return look;
}

/// Which columns are to be seen; the name always is.
QMenu* makeColumnsMenu(TableView& view) {
    auto* menu = new QMenu(QObject::tr("&Columns"), &view);
    QHeaderView* header = view.header();
    for (int column = 1; column < static_cast<int>(kColumns.size()); ++column) {
        QAction* action = menu->addAction(shown(kColumns[static_cast<std::size_t>(column)].title));
        action->setCheckable(true);
        QObject::connect(action, &QAction::toggled, header, [header, column](bool on) { header->setSectionHidden(column, !on); });
    }
    QObject::connect(menu, &QMenu::aboutToShow, header, [menu, header] {
        int column = 0;
        for (QAction* action : menu->actions()) action->setChecked(!header->isSectionHidden(++column));
    });
    return menu;
}

QMenu* makeOrderMenu(TableView& view, const ServerListParts& parts) {
    auto* menu = new QMenu(QObject::tr("&Sort By"), &view);
    for (int column = 0; column < kTextColumns; ++column)
        menu->addAction(shown(kColumns[static_cast<std::size_t>(column)].title), &view,
                        [clicked = parts.columnClicked, column] { clicked(column); });
    menu->addSeparator();
    for (const ServerOrder& order : serverOrders())
        menu->addAction(shown(order.name), &view, [&servers = parts.servers, &favourites = parts.favourites, key = order.key] {
            orderServers(servers, key, favourites);
        });
    return menu;
}

void setUpHeader(TableView& view, const ServerListParts& parts) {
    QHeaderView* header = view.header();
    header->setSectionsClickable(true);
    header->setSectionsMovable(true);
    header->setFirstSectionMovable(true);
    header->setSortIndicatorShown(true);
    header->setToolTip(QObject::tr("Click to sort by the text of a column; the right button offers more."));
    QObject::connect(header, &QHeaderView::sectionClicked, &view, [clicked = parts.columnClicked](int column) {
        if (column < kTextColumns) clicked(column);
    });
    const auto showOrder = [header, &servers = parts.servers] {
        const SortState& sort = servers.sortState();
        header->setSortIndicator(sort.sorted ? orderColumn(sort) : -1,
                                 sort.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    };
    showOrder();
    listen(&view, parts.servers.reset, showOrder);
    auto* menu = new QMenu(&view);
    QMenu* orders = makeOrderMenu(view, parts);
    QMenu* columns = makeColumnsMenu(view);
    menu->addMenu(orders);
    menu->addMenu(columns);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(header, &QWidget::customContextMenuRequested, menu,
                     [header, menu](const QPoint& where) { menu->popup(header->mapToGlobal(where)); });
}

}  // namespace

TableView* makeServerList(const ServerListParts& parts) {
    auto* view = new TableView(new TableModel(parts.servers, lookOf(parts)), QAbstractItemView::ExtendedSelection);
    view->setRootIsDecorated(false);
    std::vector<int> letters;
    for (const Column& column : kColumns) letters.push_back(column.letters);
    view->setColumnLetters(letters);
    if (!parts.passwordsShown) view->header()->hideSection(kPasswordColumn);
    setUpHeader(*view, parts);
    if (parts.passwordsShown)
        listen(view, parts.passwordsShown->changed, [view] { view->viewport()->update(); });
    return view;
}

void addHeaderMenus(TableView& view) {
    for (QMenu* menu : view.findChildren<QMenu*>(Qt::FindDirectChildrenOnly))
        if (!menu->title().isEmpty()) view.addAction(menu->menuAction());
}

}  // namespace gatehouse
