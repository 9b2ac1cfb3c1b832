#pragma once

#include "base/command_flags.h"
#include "base/field.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "mods/mod_table.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/udp_socket.h"
#include "servers/server_entry.h"
#include "servers/server_numbers.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace gatehouse {

/// What a status query acts on. All of it outlives the query.
struct StatusQueryParts : Ground {
    UdpSocket& socket;
    Clock& clock;
    ServerTable& iplist;
    ServerNumbers& numbers;
    const ModTable& mods;
    const TextField& q3pingwait;
};

/// Asks servers of the game for their status over UDP, one at a time: one datagram out, one in. Idle while `QueryRow`
/// is 0, waiting otherwise.
class StatusQuery {
public:
    explicit StatusQuery(const StatusQueryParts& parts);
    StatusQuery(const StatusQuery&) = delete;
    StatusQuery& operator=(const StatusQuery&) = delete;

    /// The row to ask, set by the caller; not 0 while an answer is awaited. The answer goes to the same server wherever
    /// it stands by then, and nowhere if it is gone.
    std::int16_t QueryRow = 0;
    /// A good answer opens the players dialog.
    bool PlayersAfterReply = false;
    /// Shows the players dialog and returns when it is closed.
    std::function<void()> showPlayers;

    FieldGroup totals{"totals"};
    LabelField iptotservers{totals, {.name = "iptotservers", .caption = "Servers:"}, "0"};
    LabelField iptotplayers{totals, {.name = "iptotplayers", .caption = "Players:"}, "0"};

    /// The walk over the selected rows asks one of them again: it goes on until the selection is another.
    Observable<bool> askingAgain{false};

    /// Waits until the server of a row may be asked once more: a server answers a few requests of one address a second
    /// and then falls silent. Handlers run meanwhile.
    void waitForTurn(int row);
    /// Sends the query for `QueryRow`, once the name of its host is looked up. Fails for an address that is too short
    /// to have a port.
    void ping_Server();
    /// Asks the selected rows one after the other, then adds up the totals.
    void QuerySelectedServers();
    /// Adds the servers of an exported list, one a line ("a|b|host|port|..."), and asks each. Fails if the file can't
    /// be opened.
    void ImportGameSpyList(const std::string& path);

    /// Counts the servers and the players on them.
    void addTotals();

    /// Gives up what is under way.
    void restoreDesign();

private:
    void q3winsock_DataArrival(int bytesTotal);
    void q3winsock_Error(int number, const std::string& description);
    void q3pingtimer_Timer();

    void hostKnown();
    bool send();
    void giveUp();
    void startTimer();
    int waitingMilliseconds() const;
    void takeReply(const std::string& reply);
    void writeRow(const std::string& reply);
    void badReply(const std::string& report, const std::string& reply);
    void stopTimer();
    void enableCommands(bool enabled);
    int askAndWait(std::int16_t row);
    void setPicture(int row, const char* key);

    StatusQueryParts parts_;
    std::unique_ptr<Timer> q3pingtimer_;
    std::uint32_t QuerySentTick_ = 0;  ///< milliseconds
    std::uint32_t asked_ = 0;  ///< number of the server asked last
    std::string askedName_;
    bool lookingUp_ = false;                      ///< the request is sent when the host is known
    std::map<std::string, double> lastRequests_;  ///< tick counts by address, of those that still count
    /// The running index of `QuerySelectedServers`. The reply handler keeps the game type in it and the error handler
    /// the answer of its box, so that both move the loop: that is how the list has always been walked.
    double sharedIndex_ = 0;
};

}  // namespace gatehouse
