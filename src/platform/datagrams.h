#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// One end of a conversation over UDP (RFC 768).
struct Endpoint {
    std::string ip;  ///< in numbers, IPv4 or IPv6
    std::uint16_t port = 0;
    friend auto operator<=>(const Endpoint&, const Endpoint&) = default;
};

/// What has arrived, with the time at which the system received it: a busy program doesn't make anybody look slow.
struct Datagram {
    Endpoint from;
    std::string bytes;
    double receivedTick = 0;  ///< milliseconds of the clock's tick count
};

/// A UDP socket for many ends at once. Events come inside the event loop.
class Datagrams {
public:
    virtual ~Datagrams() = default;
    /// Sends one datagram from the one local port, which is opened when it is first needed. False if it can't be sent.
    virtual bool send(const Endpoint& to, std::string_view bytes) = 0;
    /// Gives up the port and what has not been read.
    virtual void close() = 0;
    /// For each datagram, in the order of their arrival.
    std::function<void(const Datagram&)> onArrival;
};

/// Where sockets come from.
class Network {
public:
    virtual ~Network() = default;
    virtual std::unique_ptr<Datagrams> makeSocket() = 0;
    /// Addresses of IPv4 by which all machines of the local networks are reached at once, each once.
    virtual std::vector<std::string> broadcastAddresses() const = 0;
};

/// Look-ups of host names beside the program.
class HostNames {
public:
    virtual ~HostNames() = default;
    /// Calls `onDone` inside the event loop with an address of the host; with nothing for a name that is not known. A name
    /// that is an address already is answered at once.
    virtual void lookUp(const std::string& name, std::function<void(std::optional<std::string> ip)> onDone) = 0;
};

}  // namespace gatehouse
