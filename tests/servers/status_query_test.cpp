#include "servers/status_query.h"

#include "servers/status_reply.h"
#include "startup/options.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

std::string reply(const std::string& info, const std::string& players = "") {
    return "\xFF\xFF\xFF\xFFx\n" + info + "\n" + players;
}

const std::string kGood = reply(
    "\\sv_hostname\\^1My\tServer\\mapname\\q3dm6\\sv_maxclients\\16\\g_gametype\\4\\fs_game\\cpma"
    "\\sv_privateclients\\0\\z\\",
    "3 40 \"One\"\n");

class StatusQueryTest : public ::testing::Test {
protected:
    StatusQueryTest() {
        ModEntry mod;
        mod.gtype[0] = "Free For All";
        mod.gtype[4] = " CTF ";
        mods.add(mod);
        mods.setCurrentMod(1);
        world.files.addFolder("C:\\gh");
        query.showPlayers = [this] { shown += "players "; };
    }
    /// Rows of these addresses, all of them selected.
    void fill(const std::vector<std::string>& addresses) {
        iplist.clear();
        for (const std::string& address : addresses) iplist.append(newServer(address, ""));
        iplist.selectWhere([](int) { return true; });
    }
    /// What the servers do, one after the other; then they are silent.
    void then(std::vector<std::function<void()>> actions) {
        answers = {actions.begin(), actions.end()};
        world.socket.onSend = [this] {
            if (answers.empty()) return;
            world.events.pending.push_back(answers.front());
            answers.pop_front();
        };
    }
    std::function<void()> answer(const std::string& bytes, double milliseconds = 35) {
        return [this, bytes, milliseconds] {
            world.clock.ticks += milliseconds;
            world.socket.deliver(bytes);
        };
    }
    /// All columns of a row, its picture and the number of its players.
    std::string row(int position) const {
        const ServerEntry& server = iplist.at(position);
        return server.Name + "|" + server.Ping + "|" + server.Players + "|" + server.Game + "|" + server.Mod + "|" +
               server.Map + "|" + server.SmallIcon + "|" + server.PlayerCount;
    }
    bool idle() const {
        const bool rows = !iplist.empty();
        return query.QueryRow == 0 && !world.socket.open && flags.tbservers[3].get() == rows &&
               flags.tbservers[4].get() == rows;
    }

    fake::World world;
    CommandFlags& flags = world.flags;
    OptionsForm options;
    ModTable mods;
    ServerTable iplist;
    bool& listChanged = world.run.ServerListChanged;
    ServerNumbers numbers{iplist};
    StatusQuery query{{world.ground, world.socket, world.clock, iplist, numbers, mods, options.q3pingwait}};
    std::deque<std::function<void()>> answers;
    std::string shown;
};

TEST_F(StatusQueryTest, AGoodAnswerFillsTheRow) {
    fill({"1.2.3.4:27960"});
    then({answer(kGood)});
    query.QuerySelectedServers();
    EXPECT_EQ(row(1), "^1My Server|  35| 1/16| CTF |cpma|Q3DM6|ok|1");
    EXPECT_EQ(world.socket.sent, std::vector<std::string>{"1.2.3.4|27960|" + std::string(kStatusRequest)});
    EXPECT_EQ(kStatusRequest.size(), 18u);
    EXPECT_EQ(iplist.at(1).StatusReply, kGood);
    EXPECT_EQ(world.files.content("C:\\out.txt"), kGood + "\r\n");
    EXPECT_EQ(query.iptotplayers.text() + query.iptotservers.text(), "11");
    EXPECT_EQ(world.log.lines,
              (std::vector<std::string>{"Querying Server: Unknown", "Waiting for Response from Unknown",
                                        "Response OK. Bytes: " + std::to_string(kGood.size())}));
    EXPECT_TRUE(idle() && shown.empty());
}

TEST_F(StatusQueryTest, EveryOtherOutcomeIsToldByTheRow) {
    const std::string info = "\\sv_hostname\\N\\mapname\\m\\fs_game\\f\\sv_maxclients\\";
    const struct {
        const char* what;
        std::string reply, row, logged;
    } cases[] = {
        {"private", reply(info + "8\\sv_privateclients\\1\\g_gametype\\12\\"), "N|   5|  0/8|???|f|M|locked|0", ""},
        {"three digits of slots", reply(info + "128\\", std::string(100, '\n')), "Old|0|0|0|0|0|bad|",
         "!Bad Status returned from 1.2.3.4:27960,"},
        {"a line end at the very start", "\n" + info + "8\\sv_privateclients\\3\\\n\n",
         "N|   5|  0/8|Free For All|f|M|ok|0", ""},
        {"private clients last", reply(info + "8\\g_gametype\\3.9\\sv_privateclients\\1"),
         "N|   5|  0/8| CTF |f|M|bad|0", "!Bad Status returned from 1.2.3.4:27960,"},
        {"empty", "", "Old|0|0|0|0|0|bad|", "!Bad Status returned from 1.2.3.4:27960,"},
        {"a last value", reply("\\sv_maxclients\\8\\sv_hostname\\N"), "Old|0|0|0|0|0|bad|",
         "!Bad Status returned from 1.2.3.4:27960,"},
        {"too far back", reply(std::string(40'000, '.') + info + "8\\"), "Old|0|0|0|0|0|bad|",
         "!Bad Status returned from 1.2.3.4:27960,"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fill({"1.2.3.4:27960"});
        iplist.update(1, [](ServerEntry& server) {
            server.Name = "Old";
            server.Ping = server.Players = server.Game = server.Mod = server.Map = "0";
        });
        // A game type of 0 would have the first row asked again.
        then({[&] {
            answer(c.reply, 5)();
            iplist.selectNone();
        }});
        world.log.lines.clear();
        query.QuerySelectedServers();
        EXPECT_EQ(row(1), c.row);
        EXPECT_TRUE(idle());
        if (!c.logged.empty()) {
            EXPECT_EQ(world.log.lines.back(), c.logged + oneLine(c.reply.substr(0, 1024)));
        }
    }
    // A ping of five digits: the name is written by then.
    fill({"1.2.3.4:27960"});
    options.q3pingwait.setText("30");
    then({answer(kGood, 12345)});
    query.QuerySelectedServers();
    EXPECT_EQ(row(1), "^1My Server|9999|?|?|?|?|bad|");
    // Silence keeps name and map.
    iplist.update(1, [](ServerEntry& server) { server.Map = "KEPT"; });
    options.q3pingwait.setText("1.5");
    const double before = world.clock.ticks;
    then({});
    query.QuerySelectedServers();
    EXPECT_EQ(row(1), "^1My Server|9999|?|?|?|KEPT|bad|");
    EXPECT_EQ(world.clock.ticks - before, 1500);
    EXPECT_TRUE(idle());
    // What can't be read.
    world.socket.failToRead = true;
    then({answer(kGood)});
    query.QuerySelectedServers();
    EXPECT_EQ(world.log.lines.back(), "!Error while contacting 1.2.3.4:27960,");
    EXPECT_TRUE(idle());
}

TEST_F(StatusQueryTest, AnAddressIsCutAtItsSixthLastCharacter) {
    const std::pair<const char*, const char*> cases[] = {{"1.2.3.4:27961", "1.2.3.4|27961|"},
                                                         {"1.2.3.4:800", "1.2.3|27960|"},
                                                         {"myhost", "|27960|"},
                                                         {"host:9e999", "host|27960|"}};
    for (const auto& [address, expected] : cases) {
        fill({address});
        world.socket.sent.clear();
        query.QuerySelectedServers();
        ASSERT_EQ(world.socket.sent.size(), 1u);
        EXPECT_EQ(world.socket.sent.front(), expected + std::string(kStatusRequest));
    }
    fill({"short"});
    EXPECT_THROW(query.QuerySelectedServers(), RuntimeFailure);
    fill({"1.2.3.4:27960"});
    world.socket.failingSends = 2;
    world.log.lines.clear();
    query.QuerySelectedServers();
    EXPECT_EQ(world.log.lines,
              (std::vector<std::string>{"Querying Server: Unknown", "Winsock error. Retrying", "Bad IP Address."}));
    EXPECT_EQ(iplist.at(1).SmallIcon, "mystery");
    EXPECT_TRUE(idle());
}

TEST_F(StatusQueryTest, ANameIsLookedUpWhileHandlersRun) {
    world.socket.slowNames = true;
    const struct {
        const char* what;
        std::function<void()> meanwhile;
        std::size_t sent;
        const char* picture;
    } cases[] = {
        {"it is found", [this] { world.socket.named(); }, 1, "bad"},  // and then nobody answers
        {"it never is", [] {}, 0, "bad"},
        {"it is not there",
         [this] {
             world.socket.failingSends = 2;
             world.socket.named();
         },
         0, "mystery"},
        {"the row has gone",
         [this] {
             iplist.remove(1);
             world.socket.named();
         },
         0, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fill({"slow.example:27960"});
        world.socket.sent.clear();
        world.clock.ticks += 5000;
        world.events.pending.push_back(c.meanwhile);
        query.QuerySelectedServers();
        EXPECT_TRUE(idle());
        EXPECT_EQ(world.socket.sent.size(), c.sent);
        if (c.picture) {
            EXPECT_EQ(iplist.at(1).SmallIcon, c.picture);
        }
    }
}

TEST_F(StatusQueryTest, OneAddressIsNotAskedFasterThanItAnswers) {
    const std::string type0 = reply("\\sv_maxclients\\8\\g_gametype\\0\\");
    fill({"a:11111", "b:22222"});
    std::vector<double> asked;
    bool told = false;
    world.socket.onSend = [&] {
        asked.push_back(world.clock.ticks);
        told = told || query.askingAgain.get();
        world.events.pending.push_back([&, turns = asked.size()] {
            answer(type0)();
            if (turns == 3) world.events.pending.push_back([this] { iplist.selectNone(); });  // inside the wait
        });
    };
    query.QuerySelectedServers();
    ASSERT_EQ(asked.size(), 3u);
    for (const std::size_t i : {1u, 2u}) EXPECT_GE(asked[i] - asked[i - 1], 1050);
    EXPECT_TRUE(told && !query.askingAgain.get() && idle());
    EXPECT_EQ(iplist.at(1).SmallIcon, "ok");
}

TEST_F(StatusQueryTest, AnswersMoveTheIndexOfTheWalk) {
    const std::string type0 = reply("\\sv_maxclients\\8\\g_gametype\\0\\");
    const std::string type1 = reply("\\sv_maxclients\\8\\g_gametype\\1\\");
    const std::string below = reply("\\sv_maxclients\\8\\g_gametype\\-1e300\\");
    const std::vector<std::string> three{"a:11111", "b:22222", "c:33333"};
    const auto deselect = [this](std::function<void()> action, int position) {
        return [this, action, position] {
            iplist.select(position, false);
            action();
        };
    };
    const auto box = [this] {
        world.dialogs.answer("Gatehouse", Answer::Ok);
        world.socket.onError(7, "broken");
    };
    const struct {
        const char* what;
        std::vector<std::function<void()>> answers;
        std::string asked;
    } cases[] = {
        {"silence goes on with the next", {}, "abc"},
        {"type 4 passes the rest over", {answer(kGood)}, "a"},
        {"type 0 asks the first again until it is not selected",
         {answer(type0), answer(type0), deselect(answer(type0), 1)},
         "aaabc"},
        {"type 1 goes on at 2", {answer(type1), [] {}, answer(type1), deselect(answer(type1), 2)}, "abcbc"},
        {"a type below all starts at the first", {answer(below), deselect(answer(below), 1)}, "aabc"},
        {"a box moves to 2", {[] {}, [] {}, box}, "abcbc"},
        {"rows that are gone are passed over", {[this] { iplist.remove(3); }}, "ab"},
    };
    for (const auto& c : cases) {
        fill(three);
        world.socket.sent.clear();
        then(c.answers);
        query.QuerySelectedServers();
        std::string asked;
        for (const std::string& sent : world.socket.sent) asked += sent[0];
        EXPECT_EQ(asked, c.asked) << c.what;
    }
    EXPECT_TRUE(world.log.has("!Problem with Winsock. Error 7, broken"));
}

TEST_F(StatusQueryTest, AnAnswerGoesToItsServerWhereverItStandsByThen) {
    const struct {
        const char* what;
        std::function<void()> meanwhile;
        std::string names;
    } cases[] = {
        {"another is deleted", [this] { iplist.remove(1); }, "^1My Server "},
        {"it is deleted itself", [this] { iplist.remove(2); }, "Unknown "},
        {"the list is emptied", [this] { iplist.clear(); }, ""},
    };
    for (const auto& c : cases) {
        fill({"a:11111", "b:22222"});
        iplist.select(1, false);
        then({[&] {
            c.meanwhile();
            world.socket.deliver(kGood);
        }});
        query.QuerySelectedServers();
        std::string names;
        for (int i = 1; i <= iplist.count(); ++i) names += iplist.at(i).Name + " ";
        EXPECT_EQ(names, c.names) << c.what;
        EXPECT_TRUE(idle()) << c.what;
    }
    // One that is added and asked meanwhile takes the only socket over.
    fill({"a:11111"});
    const int portsBefore = world.socket.ports;
    then({[this] {
        iplist.append(newServer("b:22222", ""));
        iplist.selectWhere([](int position) { return position == 2; });
        then({answer(kGood)});
        query.PlayersAfterReply = true;
        query.QuerySelectedServers();
    }});
    query.QuerySelectedServers();
    EXPECT_EQ(iplist.at(1).SmallIcon + iplist.at(2).SmallIcon, "mysteryok");
    EXPECT_EQ(world.socket.ports, portsBefore + 2);
    EXPECT_EQ(shown, "");
    // The players of a server that is gone are nobody's.
    query.PlayersAfterReply = true;
    query.QueryRow = 1;
    query.ping_Server();
    iplist.remove(1);
    world.socket.deliver(kGood);
    EXPECT_EQ(shown, "");
    iplist.update(1, [](ServerEntry& server) { server.PlayerCount = "100000"; });
    iplist.selectNone();
    query.QuerySelectedServers();
    EXPECT_EQ(query.iptotplayers.text(), "100000");
    query.PlayersAfterReply = true;
    query.QueryRow = 1;
    query.ping_Server();
    EXPECT_FALSE(flags.tbservers[3].get() || flags.tbservers[4].get());
    world.socket.deliver(kGood);
    EXPECT_EQ(shown, "players ");
}

TEST_F(StatusQueryTest, AnImportAddsAndAsksEachServerOfTheFile) {
    world.files.put("C:\\gamespy.txt",
                    "a|b|1.2.3.4|27960|x\r\na|b|1.2.3.4|27960\r\n\r\na|b|||\r\na|b|dead|12345||||\r\n");
    iplist.append(newServer("old:11111", ""));
    then({answer(kGood)});
    world.dialogs.answer("Server List Import", Answer::Ok);
    query.ImportGameSpyList("C:\\gamespy.txt");
    EXPECT_EQ(world.dialogs.shown.back().text, "Import Results:\r\n\r\nTotal Servers: 2\r\nDead Servers: 1");
    ASSERT_EQ(iplist.count(), 4);  // one has no port to be asked at: its row stays
    EXPECT_EQ(iplist.at(2).Address + iplist.at(2).SmallIcon, "1.2.3.4:27960ok");
    EXPECT_EQ(iplist.at(4).Address + iplist.at(4).SmallIcon, "dead:12345bad");
    EXPECT_TRUE(listChanged && idle());
}

}  // namespace
}  // namespace gatehouse
