#include "servers/server_search.h"

#include "support/core/started_program.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class ServerSearchTest : public testing::Test {
protected:
    ServerSearchTest() {
        program.StartupDriver();
        program.servers.iplist.clear();
        search.findServers();
        search.masters.setText("203.0.113.1, unknown.example.org 203.0.113.2:9");
    }
    ~ServerSearchTest() override { search.close(); }
    static std::string record(int host, int port) {
        return "\\" + std::string{'\xcb', '\0', '\x71', char(host), char(port >> 8), char(port & 255)};
    }
    static std::string masterReply(const std::string& records) { return "\xFF\xFF\xFF\xFFgetserversResponse" + records + "\\EOT\0\0\0"; }
    void arrives(const Endpoint& from, const std::string& bytes) { socket().onArrival({from, bytes, 0}); }
    fake::FakeDatagrams& socket() { return *world.network.sockets[world.network.sockets.size() - 2]; }
    fake::FakeDatagrams& status() { return *world.network.sockets.back(); }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    ServerSearch& search = program.servers.search;
};

TEST_F(ServerSearchTest, MastersAndTheLocalNetworkAreAskedAndWhatTheyTellIsRefreshed) {
    search.protocol.setIndex(1);
    EXPECT_EQ(search.protocolnumber.text(), "71");
    search.search();
    world.hostNames.later.back()(std::nullopt);
    EXPECT_EQ(world.settings.read("masters"), "203.0.113.1, unknown.example.org 203.0.113.2:9");
    ASSERT_EQ(socket().sent.size(), 6u) << "two masters and four ports of one network";
    EXPECT_EQ(socket().sent[0], (Endpoint{"203.0.113.1", kMasterPort}));
    EXPECT_NE(socket().texts[0].find("getservers 71"), std::string::npos);
    EXPECT_EQ(socket().sent.back(), (Endpoint{"10.1.2.255", kLastLocalPort}));
    const std::string word = socket().texts.back().substr(socket().texts.back().rfind(' ') + 1);

    arrives({"203.0.113.1", kMasterPort}, masterReply(record(7, 27960) + record(8, 1) + record(7, 27960)));
    arrives({"203.0.113.9", kMasterPort}, masterReply(record(9, 27960)));
    arrives({"10.1.2.3", 27961}, "\xFF\xFF\xFF\xFFinfoResponse\n\\challenge\\" + word + "\\hostname\\Den|\\clients\\3\\sv_maxclients\\8");
    arrives({"10.1.2.4", 27961}, "\xFF\xFF\xFF\xFFinfoResponse\n\\challenge\\other\\hostname\\Forged");
    ASSERT_EQ(search.found.count(), 3) << "each once, and none of who was not asked";
    EXPECT_EQ(search.found.at(3).Name, "Den|");
    EXPECT_EQ(search.found.at(3).Players, "  3/8");
    EXPECT_EQ(status().sent.size(), 3u);
    status().onArrival({status().sent[0],
                        "\xFF\xFF\xFF\xFFx\n\\sv_hostname\\Seven\\mapname\\q3dm6\\sv_maxclients\\16\\g_gametype\\0\\fs_game\\"
                        "baseq3\\sv_privateclients\\0\\z\\\n",
                        world.clock.ticks});
    EXPECT_EQ(search.found.at(1).Name, "Seven");
    EXPECT_EQ(search.progress.get(), "3 found. 1 of 3");
    world.events.advance(20'000);
    EXPECT_FALSE(search.running.get());
    EXPECT_EQ(search.progress.get(), "3 found. 1 master is silent. 3 of 3, 2 silent");

    search.found.selectWhere([](int) { return true; });
    search.addSelected();
    search.addSelected();
    EXPECT_EQ(program.servers.iplist.count(), 3);
    EXPECT_EQ(program.servers.iplist.at(1).Name, "Seven");
    EXPECT_TRUE(program.run.ServerListChanged);
    EXPECT_EQ(program.config.history.undoName.get(), "Add Found Servers");
}

TEST_F(ServerSearchTest, AFloodEndsAtTheLimitAndStopEndsAll) {
    search.searchlocal.setValue(0);
    search.search();
    for (int datagram = 0; datagram < 200; ++datagram) {
        std::string records;
        for (int host = 1; host <= 100; ++host) records += record(host, 1000 + datagram);
        arrives({"203.0.113.1", kMasterPort}, masterReply(records));
    }
    EXPECT_EQ(search.found.count(), static_cast<int>(kMostFound));
    search.stop();
    const std::size_t sent = status().sent.size();
    world.events.advance(10'000);
    EXPECT_EQ(status().sent.size(), sent);
    EXPECT_LE(sent, Refresh::kMostInFlight);
    arrives({"203.0.113.1", kMasterPort}, masterReply(record(7, 1)));
    EXPECT_EQ(search.found.count(), static_cast<int>(kMostFound));
}

}  // namespace
}  // namespace gatehouse
