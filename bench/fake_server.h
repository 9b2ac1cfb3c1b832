#pragma once

#include <QObject>
#include <QUdpSocket>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace gatehouse::fake {

/// A game server on the loopback that answers a status request as it is told to: well, badly, late, twice or not at
/// all.
class FakeServer : public QObject {
    Q_OBJECT

public:
    FakeServer();

    std::string address() const;
    /// Answers a request; called inside the event loop. Silent at first.
    std::function<void()> onRequest;
    /// The last request and how many there were.
    std::string request;
    int requests = 0;

    /// Sends a datagram to whoever asked last.
    void answer(const std::string& bytes) { answerFrom(socket_, bytes); }
    /// The same, to who has asked last by now, when some time has passed.
    void answerLater(const std::string& bytes, int milliseconds);
    /// Answers from a port that nobody asked.
    void answerFromAnotherPort(const std::string& bytes);

private:
    void read();
    void answerFrom(QUdpSocket& socket, const std::string& bytes);

    QUdpSocket socket_;
    QUdpSocket other_;
    QHostAddress clientHost_;
    quint16 clientPort_ = 0;
};

/// A status reply with these names and values, and a line for each player.
std::string statusReply(const std::string& info, const std::vector<std::string>& players = {});

/// What a broken or wicked server may send: replies with pieces cut out, doubled, replaced by other bytes, and noise.
std::string garbage(std::mt19937& random);

}  // namespace gatehouse::fake
