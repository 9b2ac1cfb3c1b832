#include "platform/qt/qt_udp_socket.h"

#include "base/runtime_failure.h"

#include <QTimer>

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class UdpSocketTest : public ::testing::Test {
protected:
    UdpSocketTest() {
        EXPECT_TRUE(server.bind(QHostAddress::LocalHost));
        socket.setRemoteHost("127.0.0.1");
        socket.setRemotePort(server.localPort());
        socket.onDataArrival = [this](int bytes) { arrivals.push_back(bytes); };
        socket.onError = [this](int, const std::string&) { ++errors; };
    }
    /// Waits for the server's next datagram and keeps where it came from.
    std::string received() {
        events.waitUntil([this] { return server.hasPendingDatagrams(); }, 5);
        std::string bytes(65536, '\0');
        bytes.resize(static_cast<std::size_t>(server.readDatagram(bytes.data(), 65536, &clientHost, &clientPort)));
        return bytes;
    }
    void answer(const std::string& bytes) {
        server.writeDatagram(bytes.data(), static_cast<qint64>(bytes.size()), clientHost, clientPort);
    }
    void waitForArrivals(std::size_t count) {
        events.waitUntil([this, count] { return arrivals.size() >= count; }, 0);
    }
    void pause(int milliseconds) {
        bool over = false;
        QTimer::singleShot(milliseconds, [&over] { over = true; });
        events.waitUntil([&over] { return over; }, 0);
    }

    QtEventLoop events;
    QUdpSocket server;
    QtUdpSocket socket{events};
    QHostAddress clientHost;
    quint16 clientPort = 0;
    std::vector<int> arrivals;
    int errors = 0;
};

TEST_F(UdpSocketTest, SendsBytesAndReadsTheAnswer) {
    const std::string request = "\xFF\xFF\xFF\xFFgetstatus info";
    socket.sendData(request);
    EXPECT_EQ(received(), request);
    const std::string reply = std::string("\xFF\0\x80\n", 4) + std::string(20000, 'x');
    answer(reply);
    waitForArrivals(1);
    EXPECT_EQ(arrivals.front(), static_cast<int>(reply.size()));
    EXPECT_EQ(socket.getData(), reply);
    EXPECT_THROW(socket.getData(), RuntimeFailure) << "it was taken";

}

TEST_F(UdpSocketTest, ARefusedPortIsASilence) {
    server.close();
    socket.sendData("anyone");
    pause(30);
    socket.sendData("there");
    pause(30);
    EXPECT_TRUE(arrivals.empty());
    EXPECT_EQ(errors, 0);
}

TEST_F(UdpSocketTest, NamesAreLookedUpInsideTheEventLoop) {
    int done = 0;
    const auto ask = [&](const char* host) {
        socket.setRemoteHost(host);
        socket.lookUp([&] { ++done; });
    };
    ask("127.0.0.1");
    EXPECT_EQ(done, 1);  // nothing to look up
    ask("no-such-host.invalid");
    ask("localhost");  // in place of the other
    EXPECT_EQ(done, 1);
    EXPECT_THROW(socket.sendData("early"), RuntimeFailure);
    events.waitUntil([&] { return done == 2 && !socket.lookingUp(); }, 10);
    socket.sendData("hello");
    EXPECT_EQ(received(), "hello");
    const QList<QHostAddress> both{QHostAddress("::1"), QHostAddress("192.0.2.7"), QHostAddress("192.0.2.8")};
    EXPECT_EQ(preferredAddress(both), QHostAddress("192.0.2.7"));
    EXPECT_EQ(preferredAddress(both.first(1)), QHostAddress("::1"));
    EXPECT_TRUE(preferredAddress({}).isNull());
}

TEST_F(UdpSocketTest, FailsWithoutAPlaceToSendTo) {
    const std::string known = "127.0.0.1";
    const struct {
        std::string host;
        std::int32_t port;
    } cases[] = {{"", 27960}, {"  ", 27960}, {"no such host.invalid", 27960}, {known, 0}, {known, -1}, {known, 65536}};
    for (const auto& c : cases) {
        socket.setRemoteHost(c.host);
        socket.setRemotePort(c.port);
        EXPECT_THROW(socket.sendData("x"), RuntimeFailure) << c.host << ":" << c.port;
    }
    socket.setRemoteHost(known);
    socket.setRemotePort(server.localPort());
    EXPECT_THROW(socket.sendData(std::string(70000, 'x')), RuntimeFailure);
    EXPECT_EQ(errors, 0) << "a failed send is told once";
}

}  // namespace
}  // namespace gatehouse
