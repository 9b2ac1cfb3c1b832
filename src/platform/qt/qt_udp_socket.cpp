#include "platform/qt/qt_udp_socket.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <QHostInfo>
#include <QSignalBlocker>

#include <algorithm>

namespace gatehouse {

namespace {

constexpr qint64 kLongestDatagram = 65535;
constexpr std::int32_t kLastPort = 65535;

QHostAddress resolve(const std::string& host) {
    if (trim(host).empty()) throw RuntimeFailure("There is no host to send to");
    const QString name = QString::fromLatin1(trim(host));
    if (QHostAddress address; address.setAddress(name)) return address;
    const QList<QHostAddress> found = QHostInfo::fromName(name).addresses();
    if (found.isEmpty()) throw RuntimeFailure("The host " + host + " is not known");
    const auto isIpv4 = [](const QHostAddress& address) { return address.protocol() == QHostAddress::IPv4Protocol; };
    const auto ipv4 = std::find_if(found.begin(), found.end(), isIpv4);
    return ipv4 != found.end() ? *ipv4 : found.front();
}

}  // namespace

QtUdpSocket::QtUdpSocket(QtEventLoop& events) {
    QObject::connect(&socket_, &QUdpSocket::readyRead, &socket_, [this, &events] {
        const auto bytes = static_cast<int>(socket_.pendingDatagramSize());
        if (onDataArrival) events.guarded([&] { onDataArrival(bytes); });
    });
    QObject::connect(&socket_, &QUdpSocket::errorOccurred, &socket_, [this, &events](int number) {
        if (number == QAbstractSocket::ConnectionRefusedError) return;
        if (onError) events.guarded([&] { onError(number, socket_.errorString().toStdString()); });
    });
}

void QtUdpSocket::sendData(const std::string& bytes) {
    if (port_ < 1 || port_ > kLastPort) throw RuntimeFailure("There is no port " + std::to_string(port_));
    const QHostAddress target = resolve(host_);
    open(target);
    remoteIp_ = target.toString().toStdString();
    remotePort_ = port_;

    // A failure is told by this call alone.
    const QSignalBlocker silent(socket_);
    const qint64 size = static_cast<qint64>(bytes.size());
    if (socket_.writeDatagram(bytes.data(), size, target, static_cast<quint16>(port_)) != size)
        throw RuntimeFailure("Can't send to " + host_ + ": " + socket_.errorString().toStdString());
}

void QtUdpSocket::open(const QHostAddress& target) {
    const bool ipv4 = target.protocol() == QHostAddress::IPv4Protocol;
    const QHostAddress any(ipv4 ? QHostAddress::AnyIPv4 : QHostAddress::AnyIPv6);
    if (socket_.state() == QAbstractSocket::BoundState) {
        if (socket_.localAddress() == any) return;
        close();
    }
    const QSignalBlocker silent(socket_);
    if (!socket_.bind(any)) throw RuntimeFailure("Can't open a socket: " + socket_.errorString().toStdString());
}

std::string QtUdpSocket::getData() {
    if (socket_.state() != QAbstractSocket::BoundState || !socket_.hasPendingDatagrams())
        throw RuntimeFailure("No datagram has arrived");
    const qint64 size = std::clamp<qint64>(socket_.pendingDatagramSize(), 0, kLongestDatagram);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    QHostAddress sender;
    quint16 port = 0;
    const qint64 read = socket_.readDatagram(bytes.data(), size, &sender, &port);
    if (read < 0) throw RuntimeFailure("Can't read the datagram: " + socket_.errorString().toStdString());
    bytes.resize(static_cast<std::size_t>(read));
    remoteIp_ = sender.toString().toStdString();
    remotePort_ = port;
    return bytes;
}

void QtUdpSocket::close() {
    const QSignalBlocker silent(socket_);
    socket_.abort();
}

}  // namespace gatehouse
