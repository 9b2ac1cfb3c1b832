#include "servers/server_desk.h"

#include "base/text.h"
#include "servers/server_address.h"

#include <algorithm>
#include <unordered_set>

namespace gatehouse {

namespace {

constexpr int kSoonMilliseconds = 20;
constexpr std::size_t kMostClipboard = 64 * 1024;  // characters
constexpr std::size_t kMostPasted = 1000;          // addresses

std::string keyOf(const std::string& address) { return lower(trim(address)); }

}  // namespace

ServerDesk::ServerDesk(const Parts& parts)
    : parts_(parts), soon_(parts.events.createTimer([this] { tellTotals(); })) {
    soon_->setInterval(kSoonMilliseconds);
    ServerTable& iplist = parts_.iplist;
    follow_.on(iplist.rowInserted, [this] { listChanged(); });
    follow_.on(iplist.rowRemoved, [this] { listChanged(); });
    follow_.on(iplist.rowChanged, [this] { soon_->setEnabled(true); });
    follow_.on(iplist.reset, [this] { listChanged(); });
    follow_.on(iplist.currentChanged, [this] { hasCurrent.set(parts_.iplist.current() != 0); });
    follow_.on(iplist.selectionChanged, [this] { hasSelected.set(parts_.iplist.selectedCount() > 0); });
    follow_.on(parts_.refresh.running.changed, [this] {
        if (!parts_.refresh.running.get()) parts_.filter.apply();
    });
    follow_.on(parts_.favourites.changed, [this] {
        if (parts_.filter.filterfavourites.value() != 0) parts_.filter.apply();
    });
}

void ServerDesk::listChanged() {
    hasRows.set(!parts_.iplist.empty());
    hasCurrent.set(parts_.iplist.current() != 0);
    soon_->setEnabled(true);
}

void ServerDesk::tellTotals() {
    soon_->setEnabled(false);
    parts_.query.addTotals();
    hasSelected.set(parts_.iplist.selectedCount() > 0);
    parts_.filter.offerChoices();
}

void ServerDesk::refreshAll() {
    tabWanted.emit();
    parts_.log.logEvent("Refreshing all servers");
    parts_.refresh.refreshAll();
}

void ServerDesk::refreshSelected() {
    tabWanted.emit();
    parts_.log.logEvent("Refreshing the selected servers");
    parts_.refresh.refreshSelected();
}

void ServerDesk::join() {
    if (parts_.iplist.current() == 0 || !parts_.flags.mfilerun.get()) return;
    parts_.log.logEvent("Joining " + parts_.iplist.at(parts_.iplist.current()).Address);
    joinWanted.emit();
}

void ServerDesk::copyAddresses() {
    std::string text;
    for (int row = 1; row <= parts_.iplist.count(); ++row) {
        if (!parts_.iplist.selected(row)) continue;
        if (!text.empty()) text += '\n';
        text += trim(parts_.iplist.at(row).Address);
    }
    if (!text.empty()) parts_.clipboard.setText(text);
}

void ServerDesk::pasteAddresses() {
    if (!parts_.clipboard.hasText()) return;
    const std::string text = parts_.clipboard.text().substr(0, kMostClipboard);
    const std::vector<std::string> addresses = addressesIn(text, kMostPasted);
    std::vector<ServerEntry> servers;
    for (const std::string& address : addresses) servers.push_back(newServer(address, ""));
    const int added = addresses.empty() ? 0 : add("Paste Address", servers);
    parts_.log.logEvent(std::to_string(added) + " of " + std::to_string(addresses.size()) + " addresses pasted");
    selectAddresses(addresses);
}

int ServerDesk::add(const std::string& name, const std::vector<ServerEntry>& servers) {
    ServerTable& iplist = parts_.iplist;
    std::unordered_set<std::string> known;
    for (int row = 1; row <= iplist.count(); ++row) known.insert(keyOf(iplist.at(row).Address));
    const int before = iplist.count();
    parts_.undo.adding(name, [&] {
        try {
            for (ServerEntry server : servers) {
                if (!known.insert(keyOf(server.Address)).second) continue;
                server.number = 0;
                server.hidden = false;
                iplist.append(std::move(server));
            }
        } catch (const RuntimeFailure& full) {
            parts_.log.logEvent(full.what(), true);
        }
    });
    const int added = iplist.count() - before;
    if (added == 0) return 0;
    parts_.run.ServerListChanged = true;
    for (const std::size_t button : {2, 3, 4}) parts_.flags.tbservers[button].set(true);
    return added;
}

void ServerDesk::selectAddresses(const std::vector<std::string>& addresses) {
    std::unordered_set<std::string> wanted;
    for (const std::string& address : addresses) wanted.insert(keyOf(address));
    ServerTable& iplist = parts_.iplist;
    const auto isWanted = [&](int row) { return wanted.contains(keyOf(iplist.at(row).Address)); };
    for (int row = iplist.count(); row > 0 && !wanted.empty(); --row) {
        if (!isWanted(row)) continue;
        iplist.setCurrent(row);
        iplist.selectWhere(isWanted);
        break;
    }
}

void ServerDesk::toggleFavourite() {
    std::vector<std::string> all, others;
    for (int row = 1; row <= parts_.iplist.count(); ++row) {
        if (!parts_.iplist.selected(row)) continue;
        const std::string& address = parts_.iplist.at(row).Address;
        all.push_back(address);
        if (!parts_.favourites.contains(address)) others.push_back(address);
    }
    if (all.empty()) return;
    const bool favourite = !others.empty();
    parts_.undo.setFavourites("Favourite", favourite ? others : all, favourite);
}

void ServerDesk::restoreDesign() {
    passwordsShown.set(false);
    soon_->setEnabled(false);
}

}  // namespace gatehouse
