#pragma once

#include "platform/qt/qt_event_loop.h"
#include "platform/udp_socket.h"

#include <QHostAddress>
#include <QList>
#include <QUdpSocket>

namespace gatehouse {

/// The address to send to out of several: the first of IPv4, otherwise the first.
QHostAddress preferredAddress(const QList<QHostAddress>& found);

/// A UDP socket of this machine. Its events are handlers of the event loop.
class QtUdpSocket : public UdpSocket {
public:
    explicit QtUdpSocket(QtEventLoop& events);

    void setRemoteHost(const std::string& host) override { host_ = host; }
    void setRemotePort(std::int32_t port) override { port_ = port; }
    void lookUp(std::function<void()> onDone) override;
    void sendData(const std::string& bytes) override;
    /// At most 65535 bytes.
    std::string getData() override;
    void close() override;
    std::string remoteHostIp() const override { return remoteIp_; }
    std::int32_t remotePort() const override { return remotePort_; }

    /// A look-up is under way: the system's part of it can't be called off.
    bool lookingUp() const { return lookUps_ > 0; }

private:
    void open(const QHostAddress& target);
    QHostAddress target() const;
    void callOff();

    QtEventLoop& events_;
    QUdpSocket socket_;
    std::string host_;
    std::int32_t port_ = 0;
    std::string foundName_;  ///< the name that was looked up last
    QHostAddress found_;
    int lookUp_ = 0;   ///< number of the look-up whose end is wanted; 0 for none
    int lookUps_ = 0;  ///< under way
    std::string remoteIp_;
    std::int32_t remotePort_ = 0;
};

}  // namespace gatehouse
