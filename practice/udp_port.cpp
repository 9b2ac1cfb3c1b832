#include "udp_port.h"

#include "status_text.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>

namespace gatehouse::practice {

namespace {

constexpr std::uint16_t kDefaultPort = 27960;
constexpr std::size_t kMaxDatagram = 65536;
constexpr int kAnswerMs = 2000;

const sockaddr* generic(const sockaddr_in& address) { return reinterpret_cast<const sockaddr*>(&address); }

}  // namespace

std::optional<sockaddr_in> parseAddress(const std::string& text) {
    const std::size_t colon = text.find(':');
    std::string host = text.substr(0, colon);
    if (host == "localhost") host = "127.0.0.1";
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(kDefaultPort);
    if (inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1) return std::nullopt;
    if (colon == std::string::npos) return address;
    std::uint16_t port = 0;
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data() + colon + 1, end, port);
    if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
    address.sin_port = htons(port);
    return address;
}

bool isLoopback(const sockaddr_in& address) { return (ntohl(address.sin_addr.s_addr) >> 24) == 127; }

std::string shown(const sockaddr_in& address) {
    char host[INET_ADDRSTRLEN] = "?";
    inet_ntop(AF_INET, &address.sin_addr, host, sizeof host);
    return std::string(host) + ":" + std::to_string(ntohs(address.sin_port));
}

bool UdpPort::open(const sockaddr_in& address) {
    close();
    descriptor_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor_ < 0) return false;
    if (bind(descriptor_, generic(address), sizeof address) == 0) return true;
    const int reason = errno;
    close();
    errno = reason;
    return false;
}

void UdpPort::close() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

bool UdpPort::send(const std::string& datagram, const sockaddr_in& to) const {
    return sendto(descriptor_, datagram.data(), datagram.size(), 0, generic(to), sizeof to) ==
           static_cast<ssize_t>(datagram.size());
}

std::optional<std::string> UdpPort::receive(sockaddr_in& from) const {
    std::string datagram(kMaxDatagram, '\0');
    socklen_t length = sizeof from;
    const ssize_t got =
        recvfrom(descriptor_, datagram.data(), datagram.size(), 0, reinterpret_cast<sockaddr*>(&from), &length);
    if (got < 0) return std::nullopt;
    datagram.resize(static_cast<std::size_t>(got));
    return datagram;
}

int askAndPrint(const std::string& text) {
    const auto server = parseAddress(text);
    if (!server || !isLoopback(*server)) {
        std::fprintf(stderr, "not an address of this machine: %s\n", text.c_str());
        return 2;
    }
    UdpPort port;
    sockaddr_in from = *server;
    from.sin_port = 0;
    if (!port.open(from) || !port.send(std::string(kStatusQuery), *server)) {
        std::perror("status query");
        return 1;
    }
    pollfd waiting{.fd = port.descriptor(), .events = POLLIN, .revents = 0};
    poll(&waiting, 1, kAnswerMs);
    const auto datagram = port.receive(from);
    const auto reply = datagram ? textOfReply(*datagram) : std::nullopt;
    if (!reply) {
        std::fprintf(stderr, "no answer from %s\n", text.c_str());
        return 1;
    }
    std::fwrite(reply->data(), 1, reply->size(), stdout);
    return 0;
}

}  // namespace gatehouse::practice
