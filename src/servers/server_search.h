#pragma once

#include "base/field.h"
#include "base/form.h"
#include "base/observable.h"
#include "base/signal.h"
#include "mods/mod_table.h"
#include "platform/clock.h"
#include "platform/datagrams.h"
#include "platform/event_loop.h"
#include "platform/ground.h"
#include "platform/random.h"
#include "platform/random.h"
#include "servers/master_protocol.h"
#include "servers/refresh.h"
#include "servers/server_desk.h"
#include "servers/server_entry.h"
#include "servers/server_filter.h"
#include "servers/server_numbers.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace gatehouse {

/// The form `q3find`: finds servers by master servers and in the local network, asks each for its status, and takes those
/// that a person chooses into the list.
class ServerSearch {
public:
    struct Parts : Ground {
        Network& network;
        HostNames& names;
        Clock& clock;
        Random& random;
        const ModTable& mods;
        const TextField& q3pingwait;
        const Favourites& favourites;
        ServerDesk& desk;
    };
    explicit ServerSearch(const Parts& parts);
    ServerSearch(const ServerSearch&) = delete;
    ServerSearch& operator=(const ServerSearch&) = delete;

    Form q3find{"q3find"};
    FieldGroup fields{"q3find"};
    CheckField askmasters{fields,
                          {.name = "askmasters",
                           .caption = "Master servers",
                           .hint = "Asks the servers in this line, which know the game's servers of the whole net."},
                          1};
    TextField masters{fields,
                      {.name = "masters",
                       .caption = "Masters:",
                       .hint = "Hosts of master servers, parted by blanks, with a port if it is not 27950."}};
    ListField protocol{fields,
                       {.name = "protocol",
                        .caption = "Version:",
                        .hint = "The version of the game whose servers are wanted; it fills in the number."}};
    TextField protocolnumber{fields,
                             {.name = "protocolnumber",
                              .caption = "Protocol:",
                              .hint = "The number of the game's protocol that the servers are to speak."},
                             "68",
                             Range{1, 999, 1}};
    CheckField searchlocal{fields,
                           {.name = "searchlocal",
                            .caption = "Local network",
                            .hint = "Calls into the networks that this computer is part of."},
                           1};

    ServerTable found;
    ServerFilter filter;
    /// Servers are being looked for or asked.
    Observable<bool> running{false};
    /// Such as "214 found. 38 of 120, 3 silent".
    Observable<std::string> progress;
    Observable<bool> canAdd{false};

    void findServers();
    void search();
    void stop();
    /// Takes the selected servers into the list.
    void addSelected();
    void close();
    void restoreDesign();

    static constexpr std::string_view kUsualMasters =
        "master.quake3arena.com master.ioquake3.org master.maverickservers.com dpmaster.deathmask.net";

private:
    /// A master that is being asked.
    struct Asked {
        int tries = 0;
        double sentTick = 0;
        bool answered = false;
    };

    void readOptions();
    void keepOptions();
    void askMaster(const Endpoint& master);
    void callLocal();
    void take(const Datagram& datagram);
    void add(const Endpoint& server, ServerEntry row);
    void work();
    bool stillWaiting() const;
    void tell();

    Parts parts_;
    ServerNumbers numbers_{found};
    std::unique_ptr<Datagrams> socket_, statusSocket_;
    Refresh refresh_;
    std::unique_ptr<Timer> timer_;
    int run_ = 0;         ///< number of the search, by which late look-ups are told apart
    int lookUps_ = 0;     ///< names of masters that are being looked up
    int localCalls_ = 0;  ///< made so far
    double calledTick_ = 0;
    double lastArrival_ = 0;
    std::string word_;  ///< by which answers to our call are known
    std::map<Endpoint, Asked> masters_;
    std::set<Endpoint> known_;
    Connections follow_;
};

}  // namespace gatehouse
