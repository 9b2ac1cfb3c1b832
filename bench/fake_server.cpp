#include "fake_server.h"

#include <QTimer>

namespace gatehouse::fake {

namespace {

constexpr std::size_t kLongestDatagram = 65'507;

}  // namespace

FakeServer::FakeServer() {
    // An address has a port of five digits.
    for (quint16 port = 20'000; !socket_.bind(QHostAddress::LocalHost, port); ++port) {
    }
    other_.bind(QHostAddress::LocalHost);
    connect(&socket_, &QUdpSocket::readyRead, this, &FakeServer::read);
}

std::string FakeServer::address() const { return "127.0.0.1:" + std::to_string(socket_.localPort()); }

void FakeServer::read() {
    while (socket_.hasPendingDatagrams()) {
        request.resize(static_cast<std::size_t>(socket_.pendingDatagramSize()));
        socket_.readDatagram(request.data(), static_cast<qint64>(request.size()), &clientHost_, &clientPort_);
        ++requests;
        if (onRequest) onRequest();
    }
}

void FakeServer::answerFrom(QUdpSocket& socket, const std::string& bytes) {
    socket.writeDatagram(bytes.data(), static_cast<qint64>(bytes.size()), clientHost_, clientPort_);
}

void FakeServer::answerLater(const std::string& bytes, int milliseconds) {
    QTimer::singleShot(milliseconds, this, [this, bytes, host = clientHost_, port = clientPort_] {
        socket_.writeDatagram(bytes.data(), static_cast<qint64>(bytes.size()), host, port);
    });
}

void FakeServer::answerFromAnotherPort(const std::string& bytes) { answerFrom(other_, bytes); }

std::string statusReply(const std::string& info, const std::vector<std::string>& players) {
    std::string reply = "\xFF\xFF\xFF\xFFstatusResponse\n" + info + "\n";
    for (const std::string& player : players) reply += player + "\n";
    return reply;
}

std::string garbage(std::mt19937& random) {
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    std::string bytes = statusReply("\\sv_hostname\\A Server\\mapname\\q3dm6\\sv_maxclients\\16\\g_gametype\\0\\x\\y",
                                    {"12 40 \"One\"", "-3 999 \"^1Two^7\""});
    for (std::size_t i = below(12); i > 0; --i) {
        const std::size_t at = below(bytes.size() + 1);
        const std::size_t length = below(40);
        switch (below(4)) {
            case 0:
                bytes.erase(at, length);
                break;
            case 1:
                bytes.insert(at, bytes.substr(at, length));
                break;
            case 2:
                bytes.insert(at, length, static_cast<char>(random()));
                break;
            default:
                if (at < bytes.size()) bytes[at] = static_cast<char>(random());
        }
    }
    if (below(20) == 0) bytes.insert(below(bytes.size() + 1), below(kLongestDatagram), static_cast<char>(random()));
    return bytes.substr(0, kLongestDatagram);
}

}  // namespace gatehouse::fake
