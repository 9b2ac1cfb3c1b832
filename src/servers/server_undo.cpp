#include "servers/server_undo.h"

#include "base/command_flags.h"
#include "base/run_state.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_set>

namespace gatehouse {

ServerUndo::Rows ServerUndo::taken(const std::function<bool(int)>& which) {
    Rows rows;
    for (int row = 1; row <= iplist_.count(); ++row) {
        if (!which(row)) continue;
        numbers_.of(row);
        rows.emplace_back(row, iplist_.at(row));
    }
    return rows;
}

void ServerUndo::removing(const std::string& name, const std::function<bool(int)>& goes,
                          const std::function<void()>& remove) {
    journal.edits.make(name, [&] {
        noteRows(taken(goes), true);
        remove();
    });
}

void ServerUndo::adding(const std::string& name, const std::function<void()>& add) {
    journal.edits.make(name, [&] {
        const int before = iplist_.count();
        add();
        noteRows(taken([before](int row) { return row > before; }), false);
    });
}

void ServerUndo::noteRows(Rows rows, bool wereThere) {
    if (rows.empty()) return;
    // Shared, as a copy of the walk must not copy a whole list.
    const auto kept = std::make_shared<const Rows>(std::move(rows));
    journal.note([this, kept, wereThere](bool back) { back == wereThere ? putBack(*kept) : takeOut(*kept); });
}

void ServerUndo::putBack(const Rows& rows) {
    std::vector<ServerEntry> all = iplist_.rows();
    std::vector<ServerEntry> merged;
    merged.reserve(all.size() + rows.size());
    std::unordered_set<std::uint32_t> back;
    std::size_t next = 0;
    for (const auto& [position, server] : rows) {
        while (next < all.size() && static_cast<int>(merged.size()) < position - 1) merged.push_back(std::move(all[next++]));
        merged.push_back(server);
        back.insert(server.number);
    }
    std::move(all.begin() + static_cast<std::ptrdiff_t>(next), all.end(), std::back_inserter(merged));
    if (merged.size() > std::numeric_limits<short>::max()) merged.resize(std::numeric_limits<short>::max());
    iplist_.setRows(std::move(merged), 0);
    const auto isBack = [&](int row) { return back.contains(iplist_.at(row).number); };
    for (int row = 1; row <= iplist_.count(); ++row) {
        if (!isBack(row)) continue;
        iplist_.setCurrent(row);
        break;
    }
    iplist_.selectWhere(isBack);
    listChanged();
}

void ServerUndo::takeOut(const Rows& rows) {
    std::unordered_set<std::uint32_t> gone;
    for (const auto& [position, server] : rows) gone.insert(server.number);
    iplist_.retain([&gone](int, const ServerEntry& server) { return !gone.contains(server.number); });
    listChanged();
}

void ServerUndo::listChanged() {
    ground_.run.ServerListChanged = true;
    for (const std::size_t button : {2, 3, 4}) ground_.flags.tbservers[button].set(!iplist_.empty());
    if (iplist_.empty()) ground_.flags.tbservers[5].set(false);
}

void ServerUndo::setFavourites(const std::string& name, const std::vector<std::string>& addresses, bool favourite) {
    journal.edits.make(name, [&] {
        favourites_.set(addresses, favourite);
        journal.note([this, addresses, favourite](bool back) { favourites_.set(addresses, favourite != back); });
    });
}

}  // namespace gatehouse
