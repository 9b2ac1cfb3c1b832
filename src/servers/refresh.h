#pragma once

#include "base/field.h"
#include "base/observable.h"
#include "mods/mod_table.h"
#include "platform/clock.h"
#include "platform/datagrams.h"
#include "platform/event_loop.h"
#include "platform/ground.h"
#include "servers/server_entry.h"
#include "servers/server_numbers.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace gatehouse {

/// Asks many servers at once for their status. No row moves and no selection changes meanwhile; a server that is silent
/// keeps what was known of it.
class Refresh {
public:
    struct Parts : Ground {
        Datagrams& datagrams;
        HostNames& names;
        Clock& clock;
        ServerTable& iplist;
        ServerNumbers& numbers;
        const ModTable& mods;
        const TextField& q3pingwait;
    };
    static constexpr std::size_t kMostInFlight = 32;
    static constexpr double kMostPerSecond = 200;  ///< datagrams
    static constexpr int kTries = 2;

    explicit Refresh(const Parts& parts);

    Observable<bool> running{false};
    /// Such as "38 of 120, 3 silent"; it stays when the refresh has ended.
    Observable<std::string> progress;

    /// Asks all servers, or the selected ones. What is under way ends first.
    void refreshAll();
    void refreshSelected();
    /// Asks one more, beside those that are being asked, and counts on. Fails for a row that isn't there.
    void refreshToo(int row);
    void stop();
    void restoreDesign();

private:
    /// One end to be asked, for each server of the list that has that address.
    struct Asked {
        std::vector<std::uint32_t> servers;
        int tries = 0;
        double sentTick = 0;
    };

    void begin();
    void goOn();
    void ask(const std::vector<int>& rows);
    void nameKnown(int run, const std::string& host, const std::optional<std::string>& ip);
    void work();
    void sendWaiting();
    void giveUpLate();
    bool mayRetry(const Asked& asked) const { return asked.tries < kTries; }
    void take(const Datagram& reply);
    void silent(const Asked& asked);
    void settle(std::size_t servers, bool answered);
    void endIfDone();
    template <class Change>
    void update(std::uint32_t server, Change change);

    Parts parts_;
    std::unique_ptr<Timer> timer_;
    int run_ = 0;  ///< number of the refresh, by which late look-ups are told apart
    double allowance_ = 0;  ///< datagrams that may be sent now
    double workedTick_ = 0;
    double patience_ = 0;  ///< milliseconds for an answer
    std::map<std::string, std::vector<std::pair<std::uint16_t, std::uint32_t>>> unnamed_;  ///< by the host looked up
    std::deque<Endpoint> waiting_;
    std::map<Endpoint, Asked> targets_;
    std::map<Endpoint, Asked> inFlight_;
    std::map<std::uint32_t, int> rows_;  ///< where servers stood last
    std::size_t wanted_ = 0, settled_ = 0, silent_ = 0;
};

}  // namespace gatehouse
