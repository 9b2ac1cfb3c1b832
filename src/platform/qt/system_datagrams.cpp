#include "platform/qt/system_datagrams.h"

#include "platform/qt/qt_udp_socket.h"

#include <QHostInfo>
#include <QNetworkInterface>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace gatehouse {

namespace {

constexpr std::size_t kLongestDatagram = 65535;
constexpr int kReceiveBuffer = 1 << 20;  // bytes: hundreds of servers may answer while the window paints
/// Datagrams that are taken before other handlers get their turn.
constexpr int kMostAtOnce = 64;
constexpr double kMillisecond = 1e-3, kNanosecond = 1e-9;
constexpr std::string_view kMapped = "::ffff:";  // IPv4 in IPv6 (RFC 4291)

struct Address {
    sockaddr_storage bytes{};
    socklen_t size = 0;
};

template <class T>
T& as(sockaddr_storage& storage) {
    return reinterpret_cast<T&>(storage);
}

/// The system's form of an end; a size of 0 for an address that is none.
Address systemAddress(const Endpoint& end, bool both) {
    Address address;
    const bool v4 = end.ip.find(':') == std::string::npos;
    if (v4 && !both) {
        auto& in = as<sockaddr_in>(address.bytes);
        in.sin_family = AF_INET;
        in.sin_port = htons(end.port);
        if (::inet_pton(AF_INET, end.ip.c_str(), &in.sin_addr) == 1) address.size = sizeof in;
        return address;
    }
    auto& in = as<sockaddr_in6>(address.bytes);
    in.sin6_family = AF_INET6;
    in.sin6_port = htons(end.port);
    const std::string ip = v4 ? std::string(kMapped) + end.ip : end.ip;
    if (both && ::inet_pton(AF_INET6, ip.c_str(), &in.sin6_addr) == 1) address.size = sizeof in;
    return address;
}

Endpoint endOf(sockaddr_storage& from) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (from.ss_family == AF_INET) {
        auto& in = as<sockaddr_in>(from);
        ::inet_ntop(AF_INET, &in.sin_addr, text.data(), text.size());
        return {text.data(), ntohs(in.sin_port)};
    }
    auto& in = as<sockaddr_in6>(from);
    ::inet_ntop(AF_INET6, &in.sin6_addr, text.data(), text.size());
    const std::string_view ip = text.data();
    const bool mapped = ip.starts_with(kMapped) && ip.find('.') != std::string_view::npos;
    return {std::string(mapped ? ip.substr(kMapped.size()) : ip), ntohs(in.sin6_port)};
}

double seconds(const timespec& time) { return double(time.tv_sec) + double(time.tv_nsec) * kNanosecond; }

/// Milliseconds since the system received a message; 0 where it doesn't tell.
double ageOf(msghdr& message) {
    for (cmsghdr* one = CMSG_FIRSTHDR(&message); one; one = CMSG_NXTHDR(&message, one)) {
        if (one->cmsg_level != SOL_SOCKET || one->cmsg_type != SCM_TIMESTAMPNS) continue;
        timespec stamp{}, now{};
        std::memcpy(&stamp, CMSG_DATA(one), sizeof stamp);
        ::clock_gettime(CLOCK_REALTIME, &now);
        return std::max(0.0, (seconds(now) - seconds(stamp)) / kMillisecond);
    }
    return 0;
}

}  // namespace

bool SystemDatagrams::open() {
    if (socket_) return true;
    constexpr int kType = SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC;
    Descriptor made(::socket(AF_INET6, kType, 0));
    both_ = bool(made);
    const int no = 0, yes = 1;
    if (both_ && ::setsockopt(made.get(), IPPROTO_IPV6, IPV6_V6ONLY, &no, sizeof no) != 0) both_ = false;
    if (!both_) made = Descriptor(::socket(AF_INET, kType, 0));
    if (!made) return false;
    ::setsockopt(made.get(), SOL_SOCKET, SO_TIMESTAMPNS, &yes, sizeof yes);
    ::setsockopt(made.get(), SOL_SOCKET, SO_BROADCAST, &yes, sizeof yes);
    ::setsockopt(made.get(), SOL_SOCKET, SO_RCVBUF, &kReceiveBuffer, sizeof kReceiveBuffer);
    socket_ = std::move(made);
    notifier_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { events_.guarded([this] { drain(); }); });
    return true;
}

bool SystemDatagrams::send(const Endpoint& to, std::string_view bytes) {
    if (!open()) return false;
    Address address = systemAddress(to, both_);
    if (address.size == 0) return false;
    const auto sent = ::sendto(socket_.get(), bytes.data(), bytes.size(), 0,
                               reinterpret_cast<const sockaddr*>(&address.bytes), address.size);
    return sent == static_cast<ssize_t>(bytes.size());
}

void SystemDatagrams::drain() {
    std::string buffer(kLongestDatagram, '\0');
    for (int i = 0; i < kMostAtOnce && socket_; ++i) {
        sockaddr_storage from{};
        alignas(cmsghdr) std::array<char, 256> control{};
        iovec part{buffer.data(), buffer.size()};
        msghdr message{};
        message.msg_name = &from;
        message.msg_namelen = sizeof from;
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        message.msg_control = control.data();
        message.msg_controllen = control.size();
        const ssize_t size = ::recvmsg(socket_.get(), &message, 0);
        if (size < 0 && errno == EAGAIN) return;
        if (size < 0) continue;  // an earlier datagram was refused: a silence
        const double received = clock_.tickCount() - ageOf(message);
        if (onArrival) onArrival({endOf(from), buffer.substr(0, static_cast<std::size_t>(size)), received});
    }
}

void SystemDatagrams::close() {
    // Not at once: it may be its own event that runs.
    if (notifier_) {
        notifier_->setEnabled(false);
        notifier_.release()->deleteLater();
    }
    socket_ = Descriptor();
}

std::vector<std::string> SystemNetwork::broadcastAddresses() const {
    std::vector<std::string> all;
    for (const QNetworkInterface& interface : QNetworkInterface::allInterfaces()) {
        if (!interface.flags().testFlags(QNetworkInterface::IsUp | QNetworkInterface::CanBroadcast)) continue;
        for (const QNetworkAddressEntry& entry : interface.addressEntries()) {
            if (entry.broadcast().isNull()) continue;
            std::string address = entry.broadcast().toString().toStdString();
            if (std::find(all.begin(), all.end(), address) == all.end()) all.push_back(std::move(address));
        }
    }
    return all;
}

void QtHostNames::lookUp(const std::string& name, std::function<void(std::optional<std::string> ip)> onDone) {
    const QString host = QString::fromLatin1(name);
    QHostAddress address;
    if (address.setAddress(host)) return onDone(address.toString().toStdString());
    ++lookUps_;
    QHostInfo::lookupHost(host, &context_, [this, onDone = std::move(onDone)](const QHostInfo& info) {
        --lookUps_;
        const QHostAddress found = preferredAddress(info.addresses());
        events_.guarded([&] { onDone(found.isNull() ? std::nullopt : std::optional(found.toString().toStdString())); });
    });
}

}  // namespace gatehouse
