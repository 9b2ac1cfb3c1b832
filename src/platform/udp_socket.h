#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace gatehouse {

/// A UDP socket, unconnected: a refused port is a silence, not an error (RFC 768). Events come inside the event loop.
class UdpSocket {
public:
    virtual ~UdpSocket() = default;
    /// A name or a dotted address.
    virtual void setRemoteHost(const std::string& host) = 0;
    virtual void setRemotePort(std::int32_t port) = 0;
    /// Looks the remote host up, if it is a name, and calls `onDone` once it is known or is known not to exist: at once
    /// for a dotted address, otherwise inside the event loop. Another look-up, and `close`, call it off.
    virtual void lookUp(std::function<void()> onDone) = 0;
    /// Sends one datagram from a fresh local port if the socket is closed. Fails when it can't be sent, and for a
    /// name that was not found.
    virtual void sendData(const std::string& bytes) = 0;
    /// Takes the datagram that has arrived. Fails when there is none.
    virtual std::string getData() = 0;
    /// Gives up the socket and what has not been read.
    virtual void close() = 0;
    /// Sender of the datagram read last.
    virtual std::string remoteHostIp() const = 0;
    virtual std::int32_t remotePort() const = 0;

    std::function<void(int bytesTotal)> onDataArrival;
    std::function<void(int number, const std::string& description)> onError;
};

}  // namespace gatehouse
