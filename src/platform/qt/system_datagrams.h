#pragma once

#include "platform/clock.h"
#include "platform/datagrams.h"
#include "platform/qt/descriptor.h"
#include "platform/qt/qt_event_loop.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace gatehouse {

/// UDP through the system's own calls, which the toolkit doesn't offer: the system stamps each datagram with the time at
/// which it came in. IPv4 goes through a socket of IPv6 that carries both, where there is one.
class SystemDatagrams : public Datagrams {
public:
    SystemDatagrams(QtEventLoop& events, const Clock& clock) : events_(events), clock_(clock) {}

    bool send(const Endpoint& to, std::string_view bytes) override;
    void close() override;

private:
    bool open();
    void drain();

    QtEventLoop& events_;
    const Clock& clock_;
    Descriptor socket_;
    std::unique_ptr<QSocketNotifier> notifier_;
    bool both_ = true;  ///< the socket carries IPv6 and IPv4
};

/// Sockets of the system.
class SystemNetwork : public Network {
public:
    SystemNetwork(QtEventLoop& events, const Clock& clock) : events_(events), clock_(clock) {}
    std::unique_ptr<Datagrams> makeSocket() override { return std::make_unique<SystemDatagrams>(events_, clock_); }
    std::vector<std::string> broadcastAddresses() const override;

private:
    QtEventLoop& events_;
    const Clock& clock_;
};

/// Look-ups of the toolkit, which go on in threads of its own.
class QtHostNames : public HostNames {
public:
    explicit QtHostNames(QtEventLoop& events) : events_(events) {}
    void lookUp(const std::string& name, std::function<void(std::optional<std::string> ip)> onDone) override;
    /// A look-up is under way: the system's part of it can't be called off.
    bool lookingUp() const { return lookUps_ > 0; }

private:
    QtEventLoop& events_;
    QObject context_;
    int lookUps_ = 0;
};

}  // namespace gatehouse
