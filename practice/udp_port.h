#pragma once

#include <netinet/in.h>

#include <optional>
#include <string>

namespace gatehouse::practice {

/// An IPv4 address and port of "host:port"; the host is dotted or "localhost", the port defaults to 27960.
std::optional<sockaddr_in> parseAddress(const std::string& text);
bool isLoopback(const sockaddr_in& address);
std::string shown(const sockaddr_in& address);

/// A UDP socket that never blocks.
class UdpPort {
public:
    UdpPort() = default;
    ~UdpPort() { close(); }
    UdpPort(const UdpPort&) = delete;
    UdpPort& operator=(const UdpPort&) = delete;

    /// Opens the socket on an address, port 0 for any; false with `errno` set if that fails.
    bool open(const sockaddr_in& address);
    void close();
    bool send(const std::string& datagram, const sockaddr_in& to) const;
    /// The next datagram that has arrived, if any, and who sent it.
    std::optional<std::string> receive(sockaddr_in& from) const;
    /// The file descriptor, -1 when closed.
    int descriptor() const { return descriptor_; }

private:
    int descriptor_ = -1;
};

/// Asks a server on this machine for its status and prints the answer; the exit status for the process.
int askAndPrint(const std::string& address);

}  // namespace gatehouse::practice
