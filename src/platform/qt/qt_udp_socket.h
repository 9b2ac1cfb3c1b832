#pragma once

#include "platform/qt/qt_event_loop.h"
#include "platform/udp_socket.h"

#include <QUdpSocket>

namespace gatehouse {

/// A UDP socket of this machine. Its events are handlers of the event loop.
class QtUdpSocket : public UdpSocket {
public:
    explicit QtUdpSocket(QtEventLoop& events);

    void setRemoteHost(const std::string& host) override { host_ = host; }
    void setRemotePort(std::int32_t port) override { port_ = port; }
    /// A name is looked up first, which holds the program up for as long as it takes; an IPv4 address is preferred.
    void sendData(const std::string& bytes) override;
    /// At most 65535 bytes.
    std::string getData() override;
    void close() override;
    std::string remoteHostIp() const override { return remoteIp_; }
    std::int32_t remotePort() const override { return remotePort_; }

private:
    void open(const QHostAddress& target);

    QUdpSocket socket_;
    std::string host_;
    std::int32_t port_ = 0;
    std::string remoteIp_;
    std::int32_t remotePort_ = 0;
};

}  // namespace gatehouse
