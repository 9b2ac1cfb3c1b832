#include "servers/server_order.h"
#include "support/core/started_program.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class ServerDeskTest : public testing::Test {
protected:
    ServerDeskTest() {
        program.StartupDriver();
        iplist.clear();
        for (const char* name : {"One", "Two", "Three", "Four"}) {
            ServerEntry server = newServer(std::string(name) + ".example.org:27960", "secret");
            server.Name = name;
            server.Players = name[0] == 'T' ? " 8/8 " : "0/16";
            server.Mod = name[0] == 'T' ? "osp" : "baseq3";
            iplist.append(server);
        }
        program.servers.undo.journal.forget();
        run.ServerListChanged = false;
    }
    void select(const std::string& initials) {
        iplist.selectWhere([&](int row) { return initials.find(iplist.at(row).Name[0]) != initials.npos; });
    }
    /// The names of the rows that are seen; of the selected ones in capitals.
    std::string seen() const {
        std::string names;
        for (int row = 1; row <= iplist.count(); ++row)
            if (!iplist.at(row).hidden)
                names += (iplist.selected(row) ? upper(iplist.at(row).Name) : iplist.at(row).Name) + " ";
        return names;
    }
    void later() { world.events.advance(100); }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    RunState& run = program.run;
    ServerTable& iplist = program.servers.iplist;
    ServerDesk& desk = program.servers.desk;
    ServerFilter& filter = program.servers.filter;
    EditHistory& history = program.config.history;
};

TEST_F(ServerDeskTest, DeletedServersComeBackWhereTheyWere) {
    select("T");
    program.servers.commands.tbservers_ButtonClick("Delete");
    EXPECT_EQ(iplist.count(), 2);
    // What is learned meanwhile about the others stays.
    iplist.update(1, [](ServerEntry& server) { server.Name = "Une"; });
    run.ServerListChanged = false;
    program.meditundo_Click();
    EXPECT_EQ(seen(), "Une TWO THREE Four ");
    EXPECT_TRUE(run.ServerListChanged && program.flags.tbservers[2].get());
    program.meditredo_Click();
    EXPECT_EQ(seen(), "Une Four ");
    program.meditundo_Click();

    // A document's own history doesn't take it away, another list does.
    history.startAnew();
    EXPECT_EQ(history.redoName.get(), "Delete");
    program.meditredo_Click();
    std::string none = "none.ghs";
    program.servers.lists.LoadServerList(none);
    EXPECT_FALSE(history.canUndo.get() || history.canRedo.get());
}

TEST_F(ServerDeskTest, AResetIsOneStepWithTheServersInIt) {
    world.dialogs.answer("Reset Tabs", Answer::Yes);
    program.config.doc.q3playername.setText("Somebody");
    program.rules.tabReset.ResetTabs("all");
    EXPECT_TRUE(iplist.empty());
    program.meditundo_Click();
    EXPECT_EQ(iplist.count(), 4);
    EXPECT_EQ(program.config.doc.q3playername.text(), "Somebody");
    EXPECT_FALSE(history.canUndo.get());
}

TEST_F(ServerDeskTest, FavouritesAreOfAnAddressAndAreKept) {
    select("TF");
    desk.toggleFavourite();
    select("T");
    desk.toggleFavourite();
    EXPECT_EQ(world.files.content("C:\\gh\\favourites.txt"), "four.example.org:27960\r\n");
    EXPECT_FALSE(run.ServerListChanged) << "they are no part of a list";
    filter.filterfavourites.setValue(1);
    EXPECT_EQ(seen(), "Four ");
    program.meditundo_Click();
    EXPECT_EQ(seen(), "Two Three Four ");
    world.files.failAtChange = 1;
    world.dialogs.answer("Favourites", Answer::Ok);
    desk.toggleFavourite();
    EXPECT_NE(world.files.content("C:\\gh\\favourites.txt").find("two."), std::string::npos) << "the old file stands";
}

TEST_F(ServerDeskTest, WhatIsFilteredAwayIsReachedByNoCommand) {
    select("OTF");
    iplist.setCurrent(1);
    filter.filtertext.setText(" OSP ");
    EXPECT_EQ(seen(), "TWO THREE ");
    EXPECT_EQ(iplist.current(), 2);
    EXPECT_EQ(filter.summary.get(), "2 of 4 shown");
    program.servers.commands.tbservers_ButtonClick("Delete");
    filter.clear();
    EXPECT_EQ(iplist.count(), 2) << "One and Four are still there";
    filter.filtertext.setText("secret");
    EXPECT_EQ(seen(), "") << "a password can't be found out";
    EXPECT_EQ(iplist.current(), 0);
    filter.clear();
    program.meditundo_Click();

    filter.filterfree.setValue(1);
    EXPECT_EQ(seen(), "One Four ");
    filter.filterplayers.setValue(1);
    EXPECT_EQ(seen(), "");
    filter.clear();
    later();
    filter.filtermod.setIndex(2);
    EXPECT_EQ(filter.filtermod.text(), "osp");
    iplist.update(2, [](ServerEntry& server) { server.Mod = "q3f"; });
    later();
    EXPECT_EQ(filter.filtermod.text(), "osp") << "the choice stays while the list of choices grows";
    EXPECT_EQ(filter.filtermod.choices().size(), 4u);
    EXPECT_FALSE(iplist.at(2).hidden) << "no row goes by itself";
    filter.apply();
    EXPECT_TRUE(iplist.at(2).hidden);
}

TEST_F(ServerDeskTest, AddressesTravelByTheClipboard) {
    select("OF");
    desk.copyAddresses();
    EXPECT_EQ(world.clipboard.text(), "One.example.org:27960\nFour.example.org:27960");
    world.clipboard.setText("at 20:15 join <10.1.2.3:27961>, [2001:db8::1]:5 or ONE.example.org:27960; 10.9.8.7!\x01:9 a:0 b:65536");
    desk.pasteAddresses();
    ASSERT_EQ(iplist.count(), 6);
    EXPECT_EQ(iplist.at(5).Address, "10.1.2.3:27961");
    EXPECT_EQ(iplist.at(6).Address, "[2001:db8::1]:5");
    EXPECT_TRUE(iplist.selected(1) && iplist.selected(6)) << "those that were there are shown as well";
    program.meditundo_Click();
    EXPECT_EQ(iplist.count(), 4);
    world.clipboard.setText(std::string(100'000, ':'));
    desk.pasteAddresses();
    EXPECT_EQ(iplist.count(), 4);
}

TEST_F(ServerDeskTest, TotalsAgreeWithTheRows) {
    const auto totals = [this] {
        later();
        return program.servers.query.iptotservers.text() + " " + program.servers.query.iptotplayers.text();
    };
    EXPECT_EQ(totals(), "4 0");
    iplist.update(2, [](ServerEntry& server) { server.PlayerCount = "7"; });
    EXPECT_EQ(totals(), "4 7");
    iplist.remove(2);
    EXPECT_EQ(totals(), "3 0");
}

TEST_F(ServerDeskTest, NumbersAreOrderedAsNumbersBesideTheTextOrder) {
    const char* pings[] = {"  90", "1000", "?", "   8"};
    for (int row = 1; row <= 4; ++row) iplist.update(row, [&](ServerEntry& server) { server.Ping = trim(pings[row - 1]); });
    orderServers(iplist, serverOrders().front().key, program.servers.favourites);
    EXPECT_EQ(seen(), "Four One Two Three ");
    EXPECT_EQ(orderColumn(iplist.sortState()), kPingColumn);
    program.servers.commands.iplist_ColumnClick(kPingColumn);
    EXPECT_NE(seen(), "Four One Two Three ") << "a click on the header goes by the text";
}

}  // namespace
}  // namespace gatehouse
