#include "servers/status_query.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "servers/status_reply.h"
#include "servers/status_row.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <set>
#include <utility>

namespace gatehouse {

namespace {

constexpr long kPortDigits = 5;
constexpr const char* kDumpFile = "C:\\out.txt";
constexpr const char* kStandardPort = "27960";
constexpr double kSecond = 1000;
/// Milliseconds between two requests to one address at the least; the game's servers take about one a second.
constexpr double kLeastPause = 1050;
constexpr int kPauseTick = 50;
constexpr long kMostShownReply = 1024;

std::int32_t portNumber(const std::string& text) {
    try {
        if (isNumeric(text)) return strictInt32(text);
    } catch (const RuntimeFailure&) {
        // Too large for any number is no number either.
    }
    return strictInt32(kStandardPort);
}

}  // namespace

StatusQuery::StatusQuery(const StatusQueryParts& parts)
    : parts_(parts), q3pingtimer_(parts.events.createTimer([this] { q3pingtimer_Timer(); })) {
    parts_.socket.onDataArrival = [this](int bytesTotal) { q3winsock_DataArrival(bytesTotal); };
    parts_.socket.onError = [this](int number, const std::string& description) {
        q3winsock_Error(number, description);
    };
}

void StatusQuery::waitForTurn(int row) {
    if (row < 1 || row > parts_.iplist.count()) return;
    const std::string address = parts_.iplist.at(row).Address;
    const auto now = [this] { return parts_.clock.tickCount(); };
    std::erase_if(lastRequests_, [&](const auto& request) { return now() - request.second >= kLeastPause; });
    const auto last = lastRequests_.find(address);
    if (last == lastRequests_.end()) return;
    const double turn = last->second + kLeastPause;
    parts_.events.waitUntil([&] { return now() >= turn; }, kPauseTick);
}

void StatusQuery::ping_Server() {
    if (parts_.iplist.empty()) return;
    const ServerEntry server = parts_.iplist.at(QueryRow);
    // Always a colon and five digits: a shorter port takes from the host.
    const long hostLength = static_cast<long>(server.Address.size()) - kPortDigits - 1;
    if (hostLength < 0)
        throw RuntimeFailure("The server " + quoted(server.Name) +
                             " has no address with a port: " + quoted(server.Address));
    parts_.socket.setRemoteHost(left(server.Address, hostLength));
    parts_.socket.setRemotePort(portNumber(right(server.Address, kPortDigits)));
    asked_ = parts_.numbers.of(QueryRow);
    askedName_ = server.Name;
    lastRequests_[server.Address] = parts_.clock.tickCount();
    // A query can begin while another waits: what answers that one still gets must not be taken for its own.
    parts_.socket.close();
    lookingUp_ = true;
    parts_.socket.lookUp([this] { hostKnown(); });
    if (!lookingUp_) return;
    enableCommands(false);
    startTimer();
}

void StatusQuery::hostKnown() {
    if (!std::exchange(lookingUp_, false)) return;
    if (parts_.numbers.rowOf(asked_) == 0) return giveUp();  // gone meanwhile
    if (!send()) return;
    QuerySentTick_ = static_cast<std::uint32_t>(static_cast<std::int64_t>(parts_.clock.tickCount()));
    enableCommands(false);
    parts_.log.logEvent("Waiting for Response from " + askedName_);
    startTimer();
}

bool StatusQuery::send() {
    for (const char* report : {"Winsock error. Retrying", "Bad IP Address."}) {
        try {
            parts_.socket.sendData(std::string(kStatusRequest));
            return true;
        } catch (const RuntimeFailure&) {
            parts_.log.logEvent(report);
        }
    }
    giveUp();
    return false;
}

void StatusQuery::giveUp() {
    enableCommands(true);
    parts_.socket.close();
    stopTimer();
    QueryRow = 0;
}

void StatusQuery::startTimer() {
    q3pingtimer_->setInterval(waitingMilliseconds());
    q3pingtimer_->setEnabled(true);
}

int StatusQuery::waitingMilliseconds() const {
    const std::string& seconds = parts_.q3pingwait.text();
    const double wait = std::nearbyint(val(seconds) * kSecond);
    if (isNumeric(seconds) && wait >= 1 && wait <= std::numeric_limits<std::int32_t>::max())
        return static_cast<int>(wait);
    const std::string& usual = parts_.q3pingwait.design();
    parts_.log.logEvent("pingwait " + quoted(seconds) + " is no time in seconds: " + usual + " is taken", true);
    return static_cast<int>(val(usual) * kSecond);
}

void StatusQuery::q3pingtimer_Timer() {
    parts_.log.logEvent("No Response From Server");
    lookingUp_ = false;
    parts_.socket.close();
    stopTimer();
    enableCommands(true);
    if (const int row = parts_.numbers.rowOf(asked_)) {
        parts_.iplist.update(row, [this](ServerEntry& server) {
            server.Ping = "9999";
            server.Players = server.Game = server.Mod = "?";
            server.SmallIcon = "bad";
            if (server.SilentSince.empty()) server.SilentSince = dateTimeText(parts_.clock.now());
        });
    }
    QueryRow = 0;
}

void StatusQuery::q3winsock_DataArrival(int bytesTotal) {
    std::string reply;
    try {
        reply = parts_.socket.getData();
        parts_.log.logEvent("Response OK. Bytes: " + std::to_string(bytesTotal));
        parts_.socket.close();
        stopTimer();
    } catch (const std::exception&) {
        return badReply("Error while contacting ", reply);
    }
    try {
        takeReply(reply);
    } catch (const std::exception&) {
        return badReply("Bad Status returned from ", reply);
    }
    QueryRow = 0;
    if (PlayersAfterReply && showPlayers && parts_.numbers.rowOf(asked_) != 0) showPlayers();
}

void StatusQuery::takeReply(const std::string& reply) {
    const auto dump = parts_.files.createText(kDumpFile);
    dump->writeLine(reply);
    dump->close();
    writeRow(reply);
    enableCommands(true);
}

void StatusQuery::writeRow(const std::string& reply) {
    const auto now = static_cast<std::uint32_t>(static_cast<std::int64_t>(parts_.clock.tickCount()));
    const std::string ping = std::to_string(now - QuerySentTick_);
    const StatusRow status = readStatus(reply, parts_.mods.current().gtype, sharedIndex_);
    if (const int row = parts_.numbers.rowOf(asked_))
        parts_.iplist.update(row, [&](ServerEntry& server) { writeStatus(server, status, ping); });
}

void StatusQuery::badReply(const std::string& report, const std::string& reply) {
    parts_.log.logEvent(report + parts_.socket.remoteHostIp() + ":" + std::to_string(parts_.socket.remotePort()) + "," +
                            oneLine(left(reply, kMostShownReply)),
                        true);
    if (const int row = parts_.numbers.rowOf(asked_)) setPicture(row, "bad");
    enableCommands(true);
    parts_.socket.close();
    QueryRow = 0;
    q3pingtimer_->setEnabled(false);
}

void StatusQuery::q3winsock_Error(int number, const std::string& description) {
    parts_.log.logEvent("Problem with Winsock. Error " + std::to_string(number) + ", " + description, true);
    constexpr double kOk = 1;
    parts_.dialogs.show({.title = "Gatehouse", .text = "Winsock Error", .safeAnswer = Answer::Ok});
    sharedIndex_ = kOk;
}

void StatusQuery::QuerySelectedServers() {
    PlayersAfterReply = false;
    const int rows = parts_.iplist.count();
    std::set<std::uint32_t> askedBefore;
    const auto isWanted = [this](int row) {
        return row >= 1 && row <= parts_.iplist.count() && parts_.iplist.selected(row);
    };
    for (sharedIndex_ = 1; sharedIndex_ <= rows; sharedIndex_ += 1) {
        const auto row = static_cast<std::int16_t>(std::nearbyint(sharedIndex_));
        // Rows may have gone during a wait, or are selected no more.
        if (!isWanted(row)) continue;
        askingAgain.set(askedBefore.contains(parts_.iplist.at(row).number));
        waitForTurn(row);
        if (!isWanted(row)) continue;
        parts_.log.logEvent("Querying Server: " + parts_.iplist.at(row).Name);
        setPicture(row, "mystery");
        askAndWait(row);
        askedBefore.insert(asked_);
        // A server may report any number for its game type: there is nothing to walk below the first row.
        sharedIndex_ = std::max(sharedIndex_, 0.0);
    }
    askingAgain.set(false);
    addTotals();
}

void StatusQuery::addTotals() {
    std::int64_t players = 0;
    for (int row = 1; row <= parts_.iplist.count(); ++row)
        players += static_cast<std::int64_t>(val(parts_.iplist.at(row).PlayerCount));
    iptotplayers.setText(std::to_string(players));
    iptotservers.setText(std::to_string(parts_.iplist.count()));
}

int StatusQuery::askAndWait(std::int16_t row) {
    QueryRow = row;
    ping_Server();
    const std::uint32_t asked = asked_;
    parts_.events.waitUntil([this] { return QueryRow == 0; }, 0);
    return parts_.numbers.rowOf(asked);
}

void StatusQuery::stopTimer() {
    q3pingtimer_->setInterval(0);
    q3pingtimer_->setEnabled(false);
}

void StatusQuery::enableCommands(bool enabled) {
    // The list may have been emptied while a query waited.
    const bool on = enabled && !parts_.iplist.empty();
    for (const std::size_t button : {3, 4}) parts_.flags.tbservers[button].set(on);
}

void StatusQuery::setPicture(int row, const char* key) {
    parts_.iplist.update(row, [key](ServerEntry& server) { server.SmallIcon = key; });
}

void StatusQuery::restoreDesign() {
    parts_.socket.close();
    stopTimer();
    lookingUp_ = false;
    QueryRow = 0;
    PlayersAfterReply = false;
    askingAgain.set(false);
    lastRequests_.clear();
    for (Field* total : totals.fields) total->restoreDesign();
}

}  // namespace gatehouse
