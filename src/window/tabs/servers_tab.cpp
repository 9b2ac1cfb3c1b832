#include "window/tabs/table_tabs.h"
#include "window/widgets/table_view.h"

#include <array>
#include <string_view>

namespace gatehouse {

namespace {

struct Column {
    std::string_view title;
    int letters;
};

/// In the order of `serverColumn`.
constexpr std::array<Column, 8> kColumns = {
    {{"Name", 30}, {"Ping", 8}, {"Players", 10}, {"Game", 16}, {"Mod", 14}, {"Map", 14}, {"Address", 24}, {"Password", 12}}};

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

}  // namespace

QWidget* makeServersTab(ServerTable& iplist) {
    TableLook<ServerEntry> look{.columns = {}, .picture = statePicture};
    std::vector<int> letters;
    for (const Column& column : kColumns) {
        const int number = static_cast<int>(look.columns.size());
        look.columns.push_back({std::string(column.title),
                                [number](const ServerEntry& server) { return serverColumn(server, number); }});
        letters.push_back(column.letters);
    }
    auto* view = new TableView(new TableModel(iplist, std::move(look)), QAbstractItemView::ExtendedSelection);
    view->setObjectName("iplist");
    view->setAccessibleName(QObject::tr("Servers"));
    view->setRootIsDecorated(false);
    view->setColumnLetters(letters);
    return view;
}

}  // namespace gatehouse
