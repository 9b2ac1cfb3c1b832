#include "servers/server_commands.h"

#include "base/text.h"
#include "config/default_document.h"
#include "servers/server_order.h"

#include <algorithm>
#include <optional>

namespace gatehouse {

namespace {

constexpr std::string_view kListFilter = "Gatehouse Serverlist (*.ghs)|*.ghs";
constexpr std::string_view kOpenFilter = "Gatehouse Serverlist (*.ghs)|*.ghs|Gamespy Export (gamespy.txt)|gamespy.txt";
constexpr std::string_view kOpenTitle = "Open Server List";
constexpr std::string_view kSaveTitle = "Save Server List";
constexpr std::string_view kCanceled = "user canceled";
constexpr std::string_view kImportEnding = "txt";
/// More rows than this are deleted with one line in the log.
constexpr int kMostNamed = 10;

}  // namespace

void ServerCommands::tbservers_ButtonClick(std::string_view tag) {
    static constexpr std::pair<std::string_view, void (ServerCommands::*)()> kCommands[] = {
        {"Add", &ServerCommands::Add},         {"Delete", &ServerCommands::Delete}, {"Query", &ServerCommands::Query},
        {"Players", &ServerCommands::Players}, {"Open", &ServerCommands::Open},     {"Save", &ServerCommands::Save},
        {"Mod", &ServerCommands::Mod},
    };
    for (const auto& [name, command] : kCommands)
        if (name == tag) return (this->*command)();
}

void ServerCommands::queryAgain() {
    iplistFocusWanted.emit();
    parts_.query.QuerySelectedServers();
}

void ServerCommands::Add() {
    AddressForm& form = parts_.addressForm;
    parts_.log.logEvent("adding new server");
    form.ip1.setText("127.0.0.1");
    form.port.setText("27960");
    form.iptag = AddressForm::kOk;
    form.editing.set(false);
    if (form.ask()) appendServer();
    // After a cancel as well: it asks whatever is selected, and the list counts as changed.
    queryAgain();
    parts_.run.ServerListChanged = true;
    iplistFocusWanted.emit();
}

void ServerCommands::appendServer() {
    try {
        parts_.iplist.append(newServer(parts_.addressForm.address(), trim(parts_.addressForm.q3pwd.text())));
    } catch (const RuntimeFailure& full) {
        parts_.log.logEvent(full.what(), true);
        return;
    }
    const int added = parts_.iplist.count();
    parts_.iplist.setCurrent(added);
    parts_.iplist.selectWhere([added](int position) { return position == added; });
    for (const std::size_t button : {2, 3, 4}) parts_.flags.tbservers[button].set(true);
}

void ServerCommands::Delete() {
    busy.set(true);
    parts_.undo.removing(
        "Delete", [this](int row) { return parts_.iplist.selected(row); }, [this] { deleteSelected(); });
    busy.set(false);
    parts_.events.yield();
    if (parts_.iplist.empty()) {
        // Emptying the list leaves it as changed or unchanged as it was.
        parts_.flags.SetRunEnabled(false);
        for (const std::size_t button : {2, 3, 4, 5}) parts_.flags.tbservers[button].set(false);
        return;
    }
    parts_.flags.SetRunEnabled(true);
    parts_.run.ServerListChanged = true;
    const int current = std::max(parts_.iplist.current(), 1);
    parts_.iplist.setCurrent(current);
    parts_.iplist.selectWhere([current](int position) { return position == current; });
    iplistFocusWanted.emit();
}

void ServerCommands::deleteSelected() {
    ServerTable& iplist = parts_.iplist;
    const int count = iplist.selectedCount();
    if (count <= kMostNamed) return deleteOneByOne(count);
    parts_.log.logEvent("deleting " + std::to_string(count) + " servers from the server list");
    // As when one row goes after the other, the row behind a deleted current one takes its place.
    int before = 0;
    for (int position = 1; position < iplist.current(); ++position) before += !iplist.selected(position);
    iplist.retain([&iplist](int position, const ServerEntry&) { return !iplist.selected(position); });
    iplist.setCurrent(std::min(before + 1, iplist.count()));
}

void ServerCommands::deleteOneByOne(int count) {
    ServerTable& iplist = parts_.iplist;
    int position = 1;
    for (; count > 0; --count) {
        while (position <= iplist.count() && !iplist.selected(position)) ++position;
        if (position > iplist.count()) return;
        parts_.log.logEvent("removing " + quoted(iplist.at(position).Name) + " from server list");
        iplist.remove(position);
    }
}

void ServerCommands::Query() {
    parts_.query.QuerySelectedServers();
    iplistFocusWanted.emit();
}

void ServerCommands::Players() {
    parts_.query.waitForTurn(parts_.iplist.current());
    parts_.query.PlayersAfterReply = true;
    parts_.playersForm.playerlist.clear();
    parts_.query.QueryRow = static_cast<std::int16_t>(parts_.iplist.current());
    parts_.query.ping_Server();
    iplistFocusWanted.emit();
}

void ServerCommands::Mod() {
    iplistFocusWanted.emit();
    if (parts_.iplist.current() == 0) return;
    ModTable& mods = parts_.mods;
    const std::string wanted = trim(parts_.iplist.at(parts_.iplist.current()).Mod);
    mods.setCurrentMod(0);
    for (int index = 1; index <= mods.modCount(); ++index)
        if (equalNoCase(trim(mods.at(index).dir), wanted)) mods.setCurrentMod(index);
    if (mods.currentMod() != 0) return modOptionsWanted.emit();
    parts_.dialogs.show({.title = "Mod Options", .text = "You do not have this mod installed"});
}

FileDialog ServerCommands::listDialog(std::string_view title, std::string_view filter, std::string_view blankName) {
    std::string& name = parts_.run.CurrentServerList;
    name = parts_.options.getOption("lastsvr", "default");
    if (trim(name).empty()) name = blankName;
    return {.title = std::string(title),
            .filter = std::string(filter),
            .startFolder = parts_.ghcdir.text(),
            .fileName = parts_.ghcdir.text() + name};
}

void ServerCommands::Open() {
    do {
        parts_.log.logEvent("opening new server list");
        FileDialog dialog = listDialog(kOpenTitle, kOpenFilter, "default.ghs");
        dialog.mustExist = kImportEnding;
        const auto chosen = parts_.dialogs.openFile(dialog);
        if (!chosen) return;
        std::string name = bareName(*chosen);
        if (endsWithNoCase(name, kImportEnding)) return offerImport(*chosen);
        if (parts_.files.fileExists(*chosen)) {
            // From here on the name is enough: the list is looked for in the lists' own folder.
            parts_.options.setOption("lastsvr", name);
            return parts_.lists.LoadServerList(name);
        }
    } while (anotherFileWanted());
}

void ServerCommands::offerImport(const std::string& path) {
    parts_.log.logEvent("user chose " + quoted("gamespy.txt"));
    const Answer answer = parts_.dialogs.show({.title = "File Open/Import",
                                               .text = "Import " + bareName(path) + " as a Gamespy Export File?",
                                               .buttons = Buttons::YesNo,
                                               .icon = Icon::Question});
    if (answer == Answer::Yes) return parts_.query.ImportGameSpyList(path);
    parts_.log.logEvent(kCanceled);
}

bool ServerCommands::anotherFileWanted() {
    parts_.log.logEvent("file does not exist. wtf?");
    const bool wanted = parts_.dialogs.show({.title = std::string(kOpenTitle),
                                             .text = "File Does Not Exist. Choose Another?",
                                             .buttons = Buttons::YesNo,
                                             .icon = Icon::Stop}) == Answer::Yes;
    parts_.log.logEvent(wanted ? "user will choose another file" : kCanceled);
    return wanted;
}

void ServerCommands::Save() {
    for (;;) {
        parts_.log.logEvent("saving server list");
        // A blank option offers the document's name, which is meant.
        const auto chosen = parts_.dialogs.saveFile(listDialog(kSaveTitle, kListFilter, kDefaultDocument));
        if (!chosen) return parts_.log.logEvent(kCanceled);
        const std::string name = bareName(*chosen);
        parts_.log.logEvent("user chose " + quoted(name));
        const Answer answer = parts_.files.fileExists(*chosen) ? overwriteAnswer() : Answer::Yes;
        if (answer == Answer::Yes) return saveAs(name);
        if (answer == Answer::Cancel) return parts_.log.logEvent(kCanceled);
    }
}

Answer ServerCommands::overwriteAnswer() {
    return parts_.dialogs.show({.title = std::string(kSaveTitle),
                                .text = "File Already Exists. Overwrite?",
                                .buttons = Buttons::YesNoCancel,
                                .icon = Icon::Question,
                                .safeAnswer = Answer::Cancel});
}

void ServerCommands::saveAs(const std::string& name) {
    parts_.options.setOption("lastsvr", name);
    parts_.lists.SaveServerList(name);
}

void ServerCommands::iplist_Click() { parts_.flags.tbservers[5].set(parts_.iplist.selectedCount() == 1); }

void ServerCommands::iplist_Escape() { parts_.iplist.selectNone(); }

void ServerCommands::iplist_ColumnClick(int column) {
    SortState sort = parts_.iplist.sortState();
    sort.sorted = true;
    if (column == SortColumn && sort.key < kTextColumns) {
        // The order of whatever column sorts now: a list just loaded is sorted by ping and remembers no click.
        sort.descending = !sort.descending;
    } else {
        SortColumn = static_cast<std::int16_t>(column);
        sort.key = column;
        sort.descending = false;
    }
    parts_.iplist.setSortState(sort);
    parts_.iplist.sort(serverColumn);
}

void ServerCommands::iplist_DblClick() {
    ServerTable& iplist = parts_.iplist;
    if (iplist.current() == 0) return;
    AddressForm& form = parts_.addressForm;
    const ServerEntry& server = iplist.at(iplist.current());
    parts_.clipboard.setText(server.Address);
    form.q3pwd.setText(server.Password);
    // A name is no address that the dialog finds in the clipboard: what it held from before must not stay.
    const auto colon = server.Address.rfind(':');
    form.ip1.setText(server.Address.substr(0, colon));
    form.port.setText(colon == std::string::npos ? std::string() : server.Address.substr(colon + 1));
    form.editing.set(true);
    if (form.ask() && iplist.current() != 0) {
        iplist.update(iplist.current(), [&form](ServerEntry& edited) {
            edited.Address = form.address();
            edited.Password = trim(form.q3pwd.text());
        });
    }
    queryAgain();
}

}  // namespace gatehouse
