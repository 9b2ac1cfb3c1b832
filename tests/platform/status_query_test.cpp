#include "servers/status_query.h"

#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_udp_socket.h"
#include "support/core/fakes.h"
#include "support/platform/fake_server.h"

#include <QTimer>
#include <gtest/gtest.h>

#include <filesystem>

namespace gatehouse {
namespace {

using fake::statusReply;

const std::string kGood =
    statusReply("\\sv_hostname\\A Server\\mapname\\q3dm6\\sv_maxclients\\8\\g_gametype\\9\\z\\", {"3 40 \"One\""});

/// The query over real sockets, on the loopback. A game type of 9 ends the walk over the rows.
class StatusQueryOverUdpTest : public ::testing::Test {
protected:
    StatusQueryOverUdpTest() {
        files.addFolder("C:\\gh");
        iplist.append(newServer(server.address(), ""));
        iplist.select(1);
        q3pingwait.setText("0.05");
    }
    /// Asks once; the server does this when it is asked.
    std::string ask(std::function<void()> action) {
        server.onRequest = std::move(action);
        query.QuerySelectedServers();
        return iplist.at(1).SmallIcon;
    }
    void pause(int milliseconds) {
        bool over = false;
        QTimer::singleShot(milliseconds, [&over] { over = true; });
        events.waitUntil([&over] { return over; }, 0);
    }
    static long openFiles() {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    }

    fake::MemoryFiles files;
    fake::ScriptedDialogs dialogs;
    fake::RecordingLog log;
    fake::FakeServer server;
    QtEventLoop events;
    QtUdpSocket socket{events};
    QtClock clock;
    CommandFlags flags;
    FieldGroup group{"options"};
    TextField q3pingwait{group, {.name = "q3pingwait"}};
    ModTable mods;
    ServerTable iplist;
    bool listChanged = false;
    StatusQuery query{{socket, events, clock, files, dialogs, log, flags, iplist, mods, q3pingwait, listChanged}};
};

TEST_F(StatusQueryOverUdpTest, EveryKindOfServerIsTold) {
    EXPECT_EQ(ask([] {}), "bad");
    EXPECT_EQ(server.request, "\xFF\xFF\xFF\xFFgetstatus info");
    EXPECT_EQ(ask([this] { server.answer(kGood); }), "ok");
    EXPECT_EQ(iplist.at(1).Players, "  1/8");
    EXPECT_EQ(ask([this] { server.answer("no status at all"); }), "bad");
    EXPECT_EQ(ask([this] { server.answerFromAnotherPort(kGood); }), "ok");
    EXPECT_EQ(ask([this] {
                  server.answer(kGood);
                  server.answer("the same again");
              }),
              "ok");
    pause(10);
    EXPECT_EQ(iplist.at(1).SmallIcon, "ok") << "the second answer came to nobody";
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(StatusQueryOverUdpTest, ALateAnswerIsNotThatOfTheNextQuery) {
    EXPECT_EQ(ask([this] { server.answerLater(kGood, 70); }), "bad");
    bool asked = false;
    EXPECT_EQ(ask([&asked] { asked = true; }), "bad");
    EXPECT_TRUE(asked);
    EXPECT_EQ(iplist.at(1).Name, "Unknown");
}

TEST_F(StatusQueryOverUdpTest, GarbageAndManyQueriesLeaveNothingBehind) {
    ask([this] { server.answer(kGood); });
    const long before = openFiles();
    std::mt19937 random(1999);
    for (int i = 0; i < 300; ++i) {
        ask([this, &random] {
            // Whatever game type stands in it: the row is asked once.
            iplist.selectNone();
            server.answer(fake::garbage(random));
        });
        iplist.select(1);
        ASSERT_EQ(query.QueryRow, 0);
    }
    EXPECT_EQ(ask([this] { server.answer(kGood); }), "ok");
    EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace gatehouse
