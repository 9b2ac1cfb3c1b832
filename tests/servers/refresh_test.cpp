#include "servers/refresh.h"

#include "startup/options.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

std::string reply(const std::string& name) {
    return "\xFF\xFF\xFF\xFFx\n\\sv_hostname\\" + name +
           "\\mapname\\q3dm6\\sv_maxclients\\16\\g_gametype\\0\\fs_game\\baseq3\\sv_privateclients\\0\\z\\\n3 40 \"One\"\n";
}

class RefreshTest : public testing::Test {
protected:
    RefreshTest() {
        ModEntry mod;
        mod.gtype[0] = "Free For All";
        mods.add(mod);
        mods.setCurrentMod(1);
        options.q3pingwait.setText("1");
    }
    void add(const std::string& address) { iplist.append(newServer(address, "")); }
    void answer(const Endpoint& from, const std::string& bytes, double after) {
        datagrams.onArrival({from, bytes, world.clock.ticks + after});
    }

    fake::World world;
    fake::FakeDatagrams datagrams;
    fake::FakeHostNames& names = world.hostNames;
    OptionsForm options;
    ModTable mods;
    ServerTable iplist;
    ServerNumbers numbers{iplist};
    Refresh refresh{{world.ground, datagrams, names, world.clock, iplist, numbers, mods, options.q3pingwait}};
};

TEST_F(RefreshTest, AsksManyAtOnceButNotMoreAndNotFaster) {
    for (int i = 0; i < 100; ++i) add("10.0.0." + std::to_string(i) + ":27960");
    refresh.refreshAll();
    world.events.advance(40);
    EXPECT_LE(datagrams.sent.size(), 8u + 8u);  // what may go at once, and 200 a second
    world.events.advance(500);
    EXPECT_EQ(datagrams.sent.size(), Refresh::kMostInFlight);
    answer(datagrams.sent.front(), reply("First"), 0);
    EXPECT_EQ(datagrams.sent.size(), Refresh::kMostInFlight + 1) << "its place is taken at once";
    EXPECT_EQ(refresh.progress.get(), "1 of 100");
    refresh.stop();
    EXPECT_FALSE(refresh.running.get());
    const std::size_t before = datagrams.sent.size();
    world.events.advance(5000);
    EXPECT_EQ(datagrams.sent.size(), before);
    answer(datagrams.sent.back(), reply("Late"), 0);
    EXPECT_EQ(iplist.at(static_cast<int>(before)).Name, "Unknown");
}

TEST_F(RefreshTest, WritesAnswersWhereTheServersStandAndKeepsWhatWasKnown) {
    for (const char* address : {"10.0.0.1:27960", "10.0.0.2:2", "10.0.0.3", "10.0.0.2:2", "no port:x"}) add(address);
    iplist.update(3, [](ServerEntry& server) { server.Name = "Known"; });
    iplist.select(2);
    refresh.refreshAll();
    world.events.advance(20);
    ASSERT_EQ(datagrams.sent.size(), 3u) << "one address is asked once";
    EXPECT_EQ(datagrams.sent[1], (Endpoint{"10.0.0.2", 2}));
    EXPECT_EQ(datagrams.sent[2].port, 27960);
    iplist.remove(1);
    world.clock.ticks += 500;  // the window was busy; the datagram came long before it was read
    answer({"10.0.0.2", 2}, reply("Second"), -450);
    for (int row : {1, 3}) {
        EXPECT_EQ(iplist.at(row).Name, "Second");
        EXPECT_EQ(iplist.at(row).Ping, "  70");
        EXPECT_EQ(iplist.at(row).SmallIcon, "ok");
    }
    EXPECT_TRUE(iplist.selected(1));
    answer({"10.0.0.2", 2}, reply("Twice"), 0);
    answer({"10.0.0.9", 9}, reply("Nobody"), 0);
    EXPECT_EQ(iplist.at(1).Name, "Second");
    answer({"10.0.0.1", 27960}, reply("Gone"), 0);
    world.events.advance(2500);
    EXPECT_EQ(datagrams.sent.size(), 4u) << "one more try for the silent one";
    EXPECT_FALSE(refresh.running.get());
    EXPECT_EQ(refresh.progress.get(), "5 of 5, 2 silent");
    EXPECT_EQ(iplist.at(2).Name + iplist.at(2).SmallIcon + iplist.at(2).SilentSince, "Knownbad2001-02-03 14:05:06");
    EXPECT_EQ(iplist.at(4).SmallIcon, "bad");

    iplist.selectWhere([](int row) { return row == 2; });
    refresh.refreshSelected();
    world.events.advance(20);
    answer({"10.0.0.3", 27960}, "no status", 0);
    EXPECT_EQ(refresh.progress.get(), "1 of 1");
    EXPECT_EQ(iplist.at(2).Name, "Known");
    EXPECT_EQ(iplist.at(2).SmallIcon, "bad");
}

TEST_F(RefreshTest, EachNameIsLookedUpOnce) {
    for (const char* address : {"arena.example.org:1", "arena.example.org:2", "none.example.org:1", "10.0.0.1:1"}) add(address);
    refresh.refreshAll();
    EXPECT_EQ(names.asked.size(), 3u);
    world.events.advance(20);
    EXPECT_EQ(datagrams.sent.size(), 1u) << "the others go on meanwhile";
    names.later[0]("10.0.0.9");
    names.later[1](std::nullopt);
    EXPECT_EQ(datagrams.sent.size(), 3u);
    EXPECT_EQ(refresh.progress.get(), "1 of 4, 1 silent");
    // A look-up that ends after its refresh is nobody's.
    refresh.refreshAll();
    auto late = std::move(names.later);
    refresh.stop();
    refresh.refreshAll();
    late[2]("10.0.0.7");
    world.events.advance(20);
    for (const Endpoint& end : datagrams.sent) EXPECT_NE(end.ip, "10.0.0.7");
}

}  // namespace
}  // namespace gatehouse
