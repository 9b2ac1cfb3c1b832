#include "servers/refresh.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "servers/server_address.h"
#include "servers/status_reply.h"
#include "servers/status_row.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace gatehouse {

namespace {

constexpr int kTickMilliseconds = 10;
constexpr double kSecond = 1000;
constexpr double kUsualPatience = 3 * kSecond;
constexpr double kMostSeconds = 3600;
/// What may be sent at once after a pause.
constexpr double kBurst = 8;
constexpr double kSlowestPing = 9999;

}  // namespace

Refresh::Refresh(const Parts& parts) : parts_(parts), timer_(parts.events.createTimer([this] { work(); })) {
    timer_->setInterval(kTickMilliseconds);
    parts_.datagrams.onArrival = [this](const Datagram& datagram) { take(datagram); };
}

void Refresh::refreshAll() {
    begin();
    std::vector<int> rows(static_cast<std::size_t>(parts_.iplist.count()));
    std::iota(rows.begin(), rows.end(), 1);
    ask(rows);
}

void Refresh::refreshSelected() {
    begin();
    std::vector<int> rows;
    for (int row = 1; row <= parts_.iplist.count(); ++row)
        if (parts_.iplist.selected(row)) rows.push_back(row);
    ask(rows);
}

void Refresh::refreshToo(int row) {
    if (!running.get()) goOn();
    ask({row});
}

void Refresh::begin() {
    stop();
    wanted_ = settled_ = silent_ = 0;
    goOn();
}

void Refresh::goOn() {
    ++run_;
    const double seconds = val(parts_.q3pingwait.text());
    patience_ = seconds > 0 && seconds < kMostSeconds ? seconds * kSecond : kUsualPatience;
    allowance_ = kBurst;
    workedTick_ = parts_.clock.tickCount();
    timer_->setEnabled(true);
    running.set(true);
}

void Refresh::ask(const std::vector<int>& rows) {
    std::vector<std::string> hosts;
    Asked unreadable{.servers = {}, .tries = kTries};
    for (const int row : rows) {
        const std::uint32_t server = parts_.numbers.of(row);
        rows_[server] = row;
        const auto address = parseServerAddress(parts_.iplist.at(row).Address);
        if (!address) {
            unreadable.servers.push_back(server);
            continue;
        }
        auto& servers = unnamed_[address->host];
        if (servers.empty()) hosts.push_back(address->host);
        servers.emplace_back(address->port, server);
    }
    wanted_ += rows.size();
    if (!unreadable.servers.empty()) silent(unreadable);
    for (const std::string& host : hosts)
        parts_.names.lookUp(host, [this, run = run_, host](const std::optional<std::string>& ip) { nameKnown(run, host, ip); });
    settle(0, true);
    endIfDone();
}

void Refresh::nameKnown(int run, const std::string& host, const std::optional<std::string>& ip) {
    if (run != run_ || !running.get()) return;
    const auto servers = unnamed_.extract(host);
    if (servers.empty()) return;
    Asked lost;
    lost.tries = kTries;
    for (const auto& [port, server] : servers.mapped()) {
        if (!ip) {
            lost.servers.push_back(server);
            continue;
        }
        const Endpoint end{*ip, port};
        if (!targets_.contains(end)) waiting_.push_back(end);
        targets_[end].servers.push_back(server);
    }
    if (!lost.servers.empty()) silent(lost);
    work();
}

void Refresh::work() {
    if (!running.get()) return;
    const double now = parts_.clock.tickCount();
    allowance_ = std::min(kBurst, allowance_ + (now - workedTick_) * kMostPerSecond / kSecond);
    workedTick_ = now;
    giveUpLate();
    sendWaiting();
    endIfDone();
}

void Refresh::giveUpLate() {
    const double now = parts_.clock.tickCount();
    for (auto one = inFlight_.begin(); one != inFlight_.end();) {
        if (now - one->second.sentTick < patience_) {
            ++one;
            continue;
        }
        if (mayRetry(one->second)) {
            waiting_.push_back(one->first);
            targets_[one->first] = std::move(one->second);
        } else {
            silent(one->second);
        }
        one = inFlight_.erase(one);
    }
}

void Refresh::sendWaiting() {
    while (!waiting_.empty() && inFlight_.size() < kMostInFlight && allowance_ >= 1) {
        const Endpoint end = waiting_.front();
        waiting_.pop_front();
        Asked asked = std::move(targets_.extract(end).mapped());
        ++asked.tries;
        allowance_ -= 1;
        asked.sentTick = parts_.clock.tickCount();
        // What can't be sent is a silence: the net may be back for the second try.
        parts_.datagrams.send(end, kStatusRequest);
        inFlight_.emplace(end, std::move(asked));
    }
}

void Refresh::take(const Datagram& reply) {
    // Of a server that was not asked, or has answered already, nothing is taken.
    const auto found = inFlight_.extract(reply.from);
    if (found.empty()) return;
    const Asked& asked = found.mapped();
    const double milliseconds = std::clamp(reply.receivedTick - asked.sentTick, 0.0, kSlowestPing);
    try {
        double gameType = 0;
        const StatusRow row = readStatus(reply.bytes, parts_.mods.current().gtype, gameType);
        const std::string ping = std::to_string(std::lround(milliseconds));
        for (const std::uint32_t server : asked.servers)
            update(server, [&](ServerEntry& entry) { writeStatus(entry, row, ping); });
    } catch (const RuntimeFailure&) {
        for (const std::uint32_t server : asked.servers) update(server, [](ServerEntry& entry) { entry.SmallIcon = "bad"; });
    }
    settle(asked.servers.size(), true);
    work();
}

void Refresh::silent(const Asked& asked) {
    const std::string since = dateTimeText(parts_.clock.now());
    for (const std::uint32_t server : asked.servers)
        update(server, [&since](ServerEntry& entry) {
            entry.SmallIcon = "bad";
            if (entry.SilentSince.empty()) entry.SilentSince = since;
        });
    settle(asked.servers.size(), false);
}

template <class Change>
void Refresh::update(std::uint32_t server, Change change) {
    int& row = rows_[server];
    const bool there = row >= 1 && row <= parts_.iplist.count() && parts_.iplist.at(row).number == server;
    if (!there) row = parts_.numbers.rowOf(server);
    if (row != 0) parts_.iplist.update(row, change);
}

void Refresh::settle(std::size_t servers, bool answered) {
    settled_ += servers;
    if (!answered) silent_ += servers;
    progress.set(std::to_string(settled_) + " of " + std::to_string(wanted_) +
                 (silent_ > 0 ? ", " + std::to_string(silent_) + " silent" : ""));
}

void Refresh::endIfDone() {
    if (running.get() && settled_ >= wanted_) stop();
}

void Refresh::stop() {
    if (!running.get()) return;
    timer_->setEnabled(false);
    parts_.datagrams.close();
    unnamed_.clear();
    waiting_.clear();
    targets_.clear();
    inFlight_.clear();
    rows_.clear();
    running.set(false);
}

void Refresh::restoreDesign() {
    stop();
    wanted_ = settled_ = silent_ = 0;
    progress.set("");
}

}  // namespace gatehouse
