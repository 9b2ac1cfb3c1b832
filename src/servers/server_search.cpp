#include "servers/server_search.h"

#include "base/log.h"
#include "base/numbers.h"
#include "base/text.h"
#include "servers/server_address.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

namespace {

constexpr int kTickMilliseconds = 50;
constexpr int kTries = 2;
/// Milliseconds that a master or the local network may take, and may go on with after a datagram.
constexpr double kPatience = 2000;
constexpr const char* kMastersOption = "masters";
constexpr const char* kProtocolOption = "masterprotocol";
constexpr double kWords = 1e9;

}  // namespace

ServerSearch::ServerSearch(const Parts& parts)
    : filter("foundfilter", found, parts.favourites),
      parts_(parts),
      socket_(parts.network.makeSocket()),
      statusSocket_(parts.network.makeSocket()),
      refresh_({parts, *statusSocket_, parts.names, parts.clock, found, numbers_, parts.mods, parts.q3pingwait}),
      timer_(parts.events.createTimer([this] { work(); })) {
    timer_->setInterval(kTickMilliseconds);
    socket_->onArrival = [this](const Datagram& datagram) { take(datagram); };
    std::vector<Choice> versions;
    for (const ProtocolNumber& version : protocolNumbers()) versions.push_back({std::string(version.text), version.number});
    protocol.setChoices(std::move(versions));
    follow_.on(protocol.changed, [this] {
        if (protocol.index() >= 0) protocolnumber.setText(std::to_string(protocol.data()));
    });
    follow_.on(protocolnumber.changed, [this] {
        const auto& choices = protocol.choices();
        const auto same = std::find_if(choices.begin(), choices.end(), [this](const Choice& choice) {
            return std::to_string(choice.data) == trim(protocolnumber.text());
        });
        protocol.setIndex(same == choices.end() ? -1 : static_cast<int>(same - choices.begin()));
    });
    follow_.on(refresh_.progress.changed, [this] { tell(); });
    follow_.on(refresh_.running.changed, [this] { work(); });
    follow_.on(found.selectionChanged, [this] { canAdd.set(found.selectedCount() > 0); });
    follow_.on(found.reset, [this] { canAdd.set(found.selectedCount() > 0); });
}

void ServerSearch::readOptions() {
    masters.setText(parts_.options.getOption(kMastersOption, std::string(kUsualMasters)));
    protocolnumber.setText(parts_.options.getOption(kProtocolOption, protocolnumber.design()));
}

void ServerSearch::keepOptions() {
    const auto keep = [this](const char* key, const TextField& field, std::string_view usual) {
        if (parts_.options.getOption(key, std::string(usual)) != field.text()) parts_.options.setOption(key, field.text());
    };
    keep(kMastersOption, masters, kUsualMasters);
    keep(kProtocolOption, protocolnumber, protocolnumber.design());
}

void ServerSearch::findServers() {
    parts_.log.logEvent("find servers dialog loaded");
    readOptions();
    // An empty or unknown number has no version; the first has one.
    if (protocol.index() < 0) protocolnumber.changed.emit();
    q3find.set(true);
}

void ServerSearch::search() {
    stop();
    keepOptions();
    ++run_;
    refresh_.restoreDesign();
    found.clear();
    known_.clear();
    masters_.clear();
    localCalls_ = 0;
    word_ = std::to_string(static_cast<long>(parts_.random.next() * kWords));
    lastArrival_ = parts_.clock.tickCount();
    running.set(true);
    timer_->setEnabled(true);
    if (askmasters.value() != 0) {
        for (const MasterAddress& master : parseMasters(masters.text())) {
            ++lookUps_;
            parts_.names.lookUp(master.host, [this, run = run_, master](const std::optional<std::string>& ip) {
                if (run != run_ || !running.get()) return;
                --lookUps_;
                if (ip) askMaster({*ip, master.port});
                else parts_.log.logEvent("The master server " + master.host + " is not known", true);
                work();
            });
        }
    }
    if (searchlocal.value() != 0) callLocal();
    tell();
    work();
}

void ServerSearch::askMaster(const Endpoint& master) {
    // "68" and no more, whatever was typed behind it.
    const double number = std::clamp(val(protocolnumber.text()), 0.0, 999.0);
    Asked& asked = masters_[master];
    ++asked.tries;
    asked.sentTick = parts_.clock.tickCount();
    socket_->send(master, masterRequest(static_cast<int>(number)));
    parts_.log.logEvent("Asking the master server " + addressText(master.ip, master.port));
}

void ServerSearch::callLocal() {
    ++localCalls_;
    calledTick_ = parts_.clock.tickCount();
    for (const std::string& network : parts_.network.broadcastAddresses())
        for (std::uint16_t port = kFirstLocalPort; port <= kLastLocalPort; ++port)
            socket_->send({network, port}, infoRequest(word_));
}

void ServerSearch::take(const Datagram& datagram) {
    if (!running.get()) return;
    if (const auto asked = masters_.find(datagram.from); asked != masters_.end()) {
        const auto servers = parseMasterReply(datagram.bytes);
        if (!servers) return;
        asked->second.answered = true;
        lastArrival_ = parts_.clock.tickCount();
        for (const Endpoint& server : *servers) add(server, newServer("", ""));
    } else if (localCalls_ > 0) {
        auto row = parseInfoReply(datagram.bytes, word_);
        if (!row) return;
        lastArrival_ = parts_.clock.tickCount();
        add(datagram.from, std::move(*row));
    }
    tell();
}

void ServerSearch::add(const Endpoint& server, ServerEntry row) {
    if (known_.size() >= kMostFound || !known_.insert(server).second) return;
    row.Address = addressText(server.ip, server.port);
    refresh_.refreshToo(found.append(std::move(row)));
}

bool ServerSearch::stillWaiting() const {
    const double now = parts_.clock.tickCount();
    if (lookUps_ > 0 || now - lastArrival_ < kPatience) return true;
    return std::any_of(masters_.begin(), masters_.end(), [now](const auto& master) {
        return !master.second.answered && now - master.second.sentTick < kPatience;
    });
}

void ServerSearch::work() {
    if (!running.get()) return;
    const double now = parts_.clock.tickCount();
    for (const auto& [master, asked] : masters_)
        if (!asked.answered && asked.tries < kTries && now - asked.sentTick >= kPatience) askMaster(master);
    if (localCalls_ > 0 && localCalls_ < kTries && now - calledTick_ >= kPatience / 2) callLocal();
    if (!stillWaiting() && !refresh_.running.get()) stop();
}

void ServerSearch::tell() {
    std::string text = std::to_string(found.count()) + " found.";
    if (known_.size() >= kMostFound) text += " No more are kept.";
    const auto silent = std::count_if(masters_.begin(), masters_.end(),
                                      [](const auto& master) { return !master.second.answered; });
    if (!running.get() && silent > 0)
        text += " " + std::to_string(silent) + (silent == 1 ? " master is silent." : " masters are silent.");
    if (!found.empty()) text += " " + refresh_.progress.get();
    progress.set(text);
}

void ServerSearch::stop() {
    if (!running.get()) return;
    running.set(false);
    timer_->setEnabled(false);
    socket_->close();
    refresh_.stop();
    lookUps_ = 0;
    filter.offerChoices();
    filter.apply();
    tell();
}

void ServerSearch::addSelected() {
    std::vector<ServerEntry> servers;
    for (int row = 1; row <= found.count(); ++row)
        if (found.selected(row)) servers.push_back(found.at(row));
    const int added = servers.empty() ? 0 : parts_.desk.add("Add Found Servers", servers);
    progress.set(std::to_string(added) + " of " + std::to_string(servers.size()) +
                 " added to the list." + (added < static_cast<int>(servers.size()) ? " The others are there already." : ""));
    parts_.log.logEvent(progress.get());
}

void ServerSearch::close() {
    stop();
    keepOptions();
    q3find.set(false);
}

void ServerSearch::restoreDesign() {
    stop();
    q3find.set(false);
    for (Field* field : fields.fields) field->restoreDesign();
    filter.restoreDesign();
    found.clear();
    known_.clear();
    masters_.clear();
    progress.set("");
}

}  // namespace gatehouse
