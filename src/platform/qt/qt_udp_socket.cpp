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

QString shownName(const std::string& host) { return QString::fromLatin1(trim(host)); }

}  // namespace

QHostAddress preferredAddress(const QList<QHostAddress>& found) {
    const auto isIpv4 = [](const QHostAddress& address) { return address.protocol() == QHostAddress::IPv4Protocol; };
    const auto ipv4 = std::find_if(found.begin(), found.end(), isIpv4);
    if (ipv4 != found.end()) return *ipv4;
    return found.isEmpty() ? QHostAddress() : found.front();
}

QtUdpSocket::QtUdpSocket(QtEventLoop& events) : events_(events) {
    QObject::connect(&socket_, &QUdpSocket::readyRead, &socket_, [this, &events] {
        const auto bytes = static_cast<int>(socket_.pendingDatagramSize());
        if (onDataArrival) events.guarded([&] { onDataArrival(bytes); });
    });
    QObject::connect(&socket_, &QUdpSocket::errorOccurred, &socket_, [this, &events](int number) {
        if (number == QAbstractSocket::ConnectionRefusedError) return;
        if (onError) events.guarded([&] { onError(number, socket_.errorString().toStdString()); });
    });
}

void QtUdpSocket::lookUp(std::function<void()> onDone) {
    callOff();
    const QString name = shownName(host_);
    if (name.isEmpty() || QHostAddress().setAddress(name)) return onDone();
    foundName_ = host_;
    found_ = {};
    ++lookUps_;
    lookUp_ = QHostInfo::lookupHost(name, &socket_, [this, onDone = std::move(onDone)](const QHostInfo& info) {
        --lookUps_;
        if (info.lookupId() != lookUp_) return;  // called off
        lookUp_ = 0;
        found_ = preferredAddress(info.addresses());
        events_.guarded(onDone);
    });
}

void QtUdpSocket::callOff() { lookUp_ = 0; }

QHostAddress QtUdpSocket::target() const {
    if (trim(host_).empty()) throw RuntimeFailure("There is no host to send to");
    QHostAddress address;
    if (address.setAddress(shownName(host_))) return address;
    if (host_ != foundName_ || found_.isNull()) throw RuntimeFailure("The host " + host_ + " is not known");
    return found_;
}

void QtUdpSocket::sendData(const std::string& bytes) {
    if (port_ < 1 || port_ > kLastPort) throw RuntimeFailure("There is no port " + std::to_string(port_));
    const QHostAddress target = this->target();
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
    callOff();
    const QSignalBlocker silent(socket_);
    socket_.abort();
}

}  // namespace gatehouse
