#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/system_datagrams.h"

#include <gtest/gtest.h>

#include <QNetworkDatagram>
#include <QThread>
#include <QUdpSocket>

#include <vector>

namespace gatehouse {
namespace {

class SystemDatagramsTest : public testing::Test {
protected:
    /// A server that answers at once, and hands over what it was asked.
    std::string answerOne(QUdpSocket& server, const QByteArray& answer) {
        EXPECT_TRUE(server.waitForReadyRead(2000));
        const QNetworkDatagram request = server.receiveDatagram();
        server.writeDatagram(request.makeReply(answer));
        return request.data().toStdString();
    }

    QtEventLoop events;
    QtClock clock;
    SystemNetwork network{events, clock};
    std::unique_ptr<Datagrams> socket = network.makeSocket();
};

TEST_F(SystemDatagramsTest, CarryBytesBothWaysWithTheTimeOfTheirArrival) {
    for (const char* ip : {"127.0.0.1", "::1"}) {
        QUdpSocket server;
        if (!server.bind(QHostAddress(ip), 0)) continue;  // a machine without IPv6
        std::vector<Datagram> arrived;
        socket->onArrival = [&](const Datagram& datagram) { arrived.push_back(datagram); };
        // The system begins to stamp a moment after it was asked to.
        socket->send({ip, server.localPort()}, "first");
        answerOne(server, "");
        QThread::msleep(50);
        events.waitUntil([&] { return !arrived.empty(); }, 10);
        arrived.clear();
        const double sent = clock.tickCount();
        ASSERT_TRUE(socket->send({ip, server.localPort()}, std::string("ask\0\xFF", 5)));
        EXPECT_EQ(answerOne(server, QByteArray("answer\0\xFF", 8)), std::string("ask\0\xFF", 5));
        QThread::msleep(150);  // a busy program doesn't make a server look slow
        events.waitUntil([&] { return !arrived.empty(); }, 10);
        EXPECT_EQ(arrived[0].from, (Endpoint{ip, server.localPort()}));
        EXPECT_EQ(arrived[0].bytes, std::string("answer\0\xFF", 8));
        EXPECT_GE(arrived[0].receivedTick, sent - 20);
        EXPECT_LT(arrived[0].receivedTick, sent + 100);
    }
}

TEST_F(SystemDatagramsTest, NothingArrivesOnceItIsClosed) {
    QUdpSocket server;
    ASSERT_TRUE(server.bind(QHostAddress::LocalHost, 0));
    int arrived = 0;
    socket->onArrival = [&](const Datagram&) { ++arrived; };
    EXPECT_FALSE(socket->send({"no address", 1}, "x"));
    ASSERT_TRUE(socket->send({"127.0.0.1", server.localPort()}, "ask"));
    answerOne(server, "late");
    socket->close();
    for (int i = 0; i < 10; ++i) events.yield();
    EXPECT_EQ(arrived, 0);
    // A port that refuses is a silence, and what comes next still arrives.
    QUdpSocket closed;
    ASSERT_TRUE(closed.bind(QHostAddress::LocalHost, 0));
    const quint16 port = closed.localPort();
    closed.close();
    socket->send({"127.0.0.1", port}, "x");
    QThread::msleep(20);
    socket->send({"127.0.0.1", server.localPort()}, "ask");
    answerOne(server, "now");
    events.waitUntil([&] { return arrived == 1; }, 10);
}

TEST_F(SystemDatagramsTest, NamesAreLookedUpBesideTheProgram) {
    QtHostNames names(events);
    std::optional<std::string> found, none = "not asked";
    int done = 0;
    names.lookUp("localhost", [&](std::optional<std::string> ip) { found = ip, ++done; });
    names.lookUp("203.0.113.7", [&](std::optional<std::string> ip) { none = ip, ++done; });
    events.waitUntil([&] { return done == 2; }, 10);
    EXPECT_TRUE(found == "127.0.0.1" || found == "::1");
    EXPECT_EQ(none, "203.0.113.7");
}

}  // namespace
}  // namespace gatehouse
