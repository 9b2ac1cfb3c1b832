#include "servers/server_commands.h"

#include "startup/options.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

struct ServerCommandsTest : testing::Test {
    ServerCommandsTest() {
        options.ghcdir.setText("C:\\gh\\");
        world.files.put("C:\\gh\\mine.ghs", "Loaded|P|35|3/16|CTF|Q3CTF1|1.2.3.4:27960|\r\n");
    }
    /// Rows named "a", "b" and so on; those named in `selected` are selected.
    void fill(int count, const std::string& selected, int current = 1) {
        iplist.clear();
        ServerEntry row;
        for (row.Name = "a"; count-- > 0; ++row.Name[0]) iplist.append(row);
        iplist.selectWhere([&](int position) { return selected.find(iplist.at(position).Name) != std::string::npos; });
        iplist.setCurrent(current);
    }
    /// The rows that aren't selected, ":" and those that are.
    std::string names() const {
        std::string half[2];
        for (int i = 1; i <= iplist.count(); ++i) half[iplist.selected(i)] += iplist.at(i).Name;
        return half[0] + ":" + half[1];
    }
    bool button(std::size_t number) const { return flags.tbservers[number].get(); }
    /// What the user does in the next dialog; after it no server answers.
    void then(std::function<void()> action) {
        world.events.pending = {std::move(action), [this] { world.events.advance(5000); }};
    }
    fake::World world;
    RunState& run = world.run;
    CommandFlags& flags = world.flags;
    OptionsForm options;
    ModTable mods;
    ServerTable iplist;
    ServerLists lists{world.ground, options.ghcdir, iplist};
    AddressForm form{world.ground, world.clipboard};
    ServerNumbers numbers{iplist};
    PlayersForm players{world.ground, iplist, numbers};
    Favourites favourites{world.ground};
    ServerUndo undo{world.ground, iplist, numbers, favourites};
    StatusQuery query{{world.ground, world.socket, world.clock, iplist, numbers, mods, options.q3pingwait}};
    std::string asked;  ///< what the commands have asked the window for
    ServerCommands commands{{world.ground, world.clipboard, mods, options.ghcdir, iplist, lists, query, form,
                              players, undo}};
};

TEST(AddressIn, TakesDigitsAndDotsWithOneColon) {
    const std::pair<std::string, std::optional<HostAndPort>> cases[] = {
        {"x.2.3.", {{"", ""}}},  // too short to be looked at
        {"10.0.0.1", {{"10.0.0.1", ""}}},
        {"192.0.2.7:27960", {{"192.0.2.7", "27960"}}},
        {"192.0.2.7:27960 ", {}}, {"1.2.3.4:5:6", {}}, {"1.2.3.4:5.6", {}}, {std::string("1.2.3.4\0", 8), {}},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(addressIn(text), expected) << text.substr(0, 40);
}

TEST_F(ServerCommandsTest, AddTakesWhatTheDialogHoldsAndACancelIsAChangeToo) {
    world.clipboard.value = "a server at 1.2.3.4";
    form.q3pwd.setText(" pw ");
    fill(2, "ab");
    then([this] { form.newipOK_Click(); });
    commands.tbservers_ButtonClick("Add");
    EXPECT_EQ(names(), "ab:Unknown");
    EXPECT_EQ(iplist.at(iplist.current()).Address + iplist.at(3).Password, "127.0.0.1:27960pw");
    EXPECT_TRUE(button(2) && button(3) && world.log.has("Querying Server: Unknown"));
    iplist.clear();
    world.clipboard.value = std::nullopt;
    for (int box = 0; box < 2; ++box) world.dialogs.answer("Error", Answer::Ok);
    form.focusWanted.connect([&](const TextField& field) { asked += field.name() + " "; });
    then([&] {
        EXPECT_EQ(form.address(), ":");  // no text at all is taken for an address
        form.newipOK_Click();
        form.ip1.setText("1");
        form.newipOK_Click();
        run.ServerListChanged = false;
        form.newipCancel_Click();
    });
    commands.tbservers_ButtonClick("Add");
    EXPECT_EQ(asked, "ip1 port ");
    EXPECT_TRUE(iplist.empty() && run.ServerListChanged);
}

TEST_F(ServerCommandsTest, ADoubleClickEditsTheCurrentRowByWayOfTheClipboard) {
    fill(2, "", 2);
    iplist.update(2, [](ServerEntry& row) { row.Address = "192.0.2.7:27960", row.Password = "old"; });
    for (const bool accept : {false, true}) {
        then([this, accept] {
            EXPECT_EQ(form.address() + form.q3pwd.text(), "192.0.2.7:27960old");
            form.port.setText("27961");
            form.q3pwd.setText(" new ");
            accept ? form.newipOK_Click() : form.newipCancel_Click();
        });
        run.ServerListChanged = false;
        commands.iplist_DblClick();
        EXPECT_EQ(world.clipboard.value, "192.0.2.7:27960");
        EXPECT_EQ(run.ServerListChanged, !accept);  // the host came up for the first time at the first showing
        EXPECT_EQ(iplist.at(2).Address + iplist.at(2).Password, accept ? "192.0.2.7:27961new" : "192.0.2.7:27960old");
    }
    iplist.update(2, [](ServerEntry& row) { row.Address = "my.host:27962"; });
    then([this] {
        EXPECT_EQ(form.address(), "my.host:27962");  // a name is no address that a clipboard gives
        form.newipCancel_Click();
    });
    commands.iplist_DblClick();
    run.ServerListChanged = false;
    form.restoreDesign();
    EXPECT_FALSE(run.ServerListChanged);
}

TEST_F(ServerCommandsTest, DeleteLeavesOneRowSelectedAndNamesUpToTenOfThem) {
    const std::tuple<std::string, int, std::string, std::string, std::string> cases[] = {
        {"b", 2, "adefghijklmn", "c", "removing \"b\" from server list"},
        {"mn", 14, "abcdefghijk", "l", "removing \"m\" from server list"},
        {"", 3, "abdefghijklmn", "c", "none"},
        {"bcdefghijkl", 5, "an", "m", "deleting 11 servers from the server list"},
        {"defghijklmn", 9, "ab", "c", "deleting 11 servers from the server list"},
    };
    for (const auto& [selected, current, left, selectedThen, line] : cases) {
        fill(14, selected, current);
        run.ServerListChanged = false;
        world.log.lines.clear();
        commands.tbservers_ButtonClick("Delete");
        EXPECT_EQ(names() + iplist.at(iplist.current()).Name, left + ":" + selectedThen + selectedThen) << selected;
        EXPECT_EQ(world.log.lines.empty() ? "none" : world.log.lines.front(), line);
        EXPECT_TRUE(run.ServerListChanged && flags.mfilerun.get() && !commands.busy.get());
    }
    fill(3, "abc");
    flags.tbservers.setAll(true);
    run.ServerListChanged = false;
    commands.tbservers_ButtonClick("Delete");
    EXPECT_TRUE(iplist.empty() && !run.ServerListChanged && !flags.mfilerun.get());
    EXPECT_FALSE(button(2) || button(3) || button(4) || button(5));
}

TEST_F(ServerCommandsTest, OpenAndSaveAskAgainAndKeepToTheListsOwnFolder) {
    world.settings.values["lastsvr"] = " ";
    world.dialogs.answer("Open Server List", Answer::Yes);
    for (const char* name : {"gh\\gone.ghs", "gh\\Mine.ghs", "gone.ghs", "x\\s.TXT", "x\\s.TXT", "gh\\mine.ghs",
                             "gh\\mine.ghs", "else\\new.ghs", "gh\\full.ghs"})
        world.dialogs.choose(std::string("C:\\") + name);
    commands.tbservers_ButtonClick("Open");
    EXPECT_EQ(world.dialogs.fileDialogs.front().fileName, "C:\\gh\\default.ghs");
    EXPECT_EQ(names() + world.settings.values["lastsvr"], "Loaded:Mine.ghs");
    world.log.lines = {};
    for (const char* title : {"Open Server List", "File Open/Import"}) {
        world.dialogs.answer(title, Answer::No);
        commands.tbservers_ButtonClick("Open");
    }
    EXPECT_EQ(world.dialogs.shown.back().text, "Import s.TXT as a Gamespy Export File?");
    EXPECT_EQ(world.log.lines, (std::vector<std::string>{
                                  "opening new server list", "file does not exist. wtf?", "user canceled",
                                  "opening new server list", "user chose \"gamespy.txt\"", "user canceled"}));
    world.dialogs.answer("File Open/Import", Answer::Yes);
    world.dialogs.answer("Server List Import", Answer::Ok);
    world.files.put("C:\\x\\s.TXT", "");
    commands.tbservers_ButtonClick("Open");
    for (const Answer answer : {Answer::No, Answer::Cancel}) world.dialogs.answer("Save Server List", answer);
    world.settings.values["lastsvr"] = "";
    commands.tbservers_ButtonClick("Save");  // no to overwriting, and the second time the user gives up
    EXPECT_EQ(world.log.lines.back(), "user canceled");
    EXPECT_EQ(world.dialogs.fileDialogs.back().fileName, "C:\\gh\\default.ghc");
    run.ServerListChanged = true;
    commands.tbservers_ButtonClick("Save");
    EXPECT_EQ(world.settings.values["lastsvr"] + run.CurrentServerList, "new.ghsdefault.ghc");
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\new.ghs") && !run.ServerListChanged);
    world.files.failAtChange = 2;
    world.dialogs.answer("Save Server List", Answer::Ok);
    commands.tbservers_ButtonClick("Save");  // the disk is full
    EXPECT_TRUE(world.log.lines.back().starts_with("!"));
}

TEST_F(ServerCommandsTest, ClicksSortAndChooseTheMod) {
    lists.LoadServerList(run.CurrentServerList = "mine.ghs");
    for (const auto& [column, descending] : {std::pair{1, true}, {1, false}, {0, false}, {0, true}, {6, false}}) {
        commands.iplist_ColumnClick(column);
        EXPECT_TRUE(iplist.sortState().key == column && iplist.sortState().descending == descending) << column;
    }
    for (const char* selected : {"", "a", "ab"}) {
        fill(2, selected);
        commands.iplist_Click();
        EXPECT_EQ(button(5), std::string_view(selected) == "a") << selected;
    }
    for (const char* dir : {"osp", " OSP ", "other"}) mods.at(mods.add({})).dir = dir;
    world.dialogs.answer("Mod Options", Answer::Ok);
    commands.modOptionsWanted.connect([this] { asked += "mod "; });
    for (const auto& [mod, index] : {std::pair{"Osp ", 2}, {"?", 0}}) {
        iplist.update(1, [&, text = mod](ServerEntry& row) { row.Mod = text; });
        commands.tbservers_ButtonClick("Mod");
        EXPECT_EQ(mods.currentMod(), index);
    }
    iplist.setCurrent(2);  // the selected row is one, however many are selected
    iplist.update(2, [](ServerEntry& row) { row.Address = "192.0.2.7:27960"; });
    commands.tbservers_ButtonClick("Players");
    EXPECT_TRUE(query.QueryRow == 2 && query.PlayersAfterReply && world.socket.host == "192.0.2.7");
    iplist.clear();
    commands.tbservers_ButtonClick("Mod");
    EXPECT_EQ(asked, "mod ");
}

TEST_F(ServerCommandsTest, PlayersAreListedUpToTheFirstLineThatIsNone) {
    const std::string head = "\xff\xff\xff\xffstatusResponse\n\\mapname\\q3dm6\\\n";
    const std::tuple<std::string, std::string, bool> cases[] = {  // reply, rows, whether a line was none
        {"no second\nline", "not shown", false},
        {head, "", false},
        {head + "3 50 \"^^2x\"\n-2 0 \"a b\"\n12 7 \"^1Bob^\"\n", "Bob,   12,7;a b,   -2,0;2x,    3,50;", false},
        {head + "3 50 \"cut\" here\"\n4 1 \"no end", "cut,    3,50;", true},
        {head + "3 50 \"a\tb\x01\"\r\n4 noquotes\n5 1 \"never\"\n", "a b ,    3,50;", true},
        {head + "1 2 \"a\"\n123456 2 \"b\"\n", "a,    1,2;", true},
    };
    fill(1, "");
    for (const auto& [reply, expected, broken] : cases) {
        iplist.update(1, [&, text = reply](ServerEntry& row) { row.StatusReply = text; });
        world.log.lines = {};
        std::string rows = "not shown";
        then([&] {
            rows.clear();
            for (const PlayerRow& row : players.playerlist.rows())
                rows += row.Name + "," + row.Frags + "," + row.Ping + ";";
            players.plistclose_Click();
        });
        players.showPlayers();
        EXPECT_EQ(rows, expected) << reply;
        EXPECT_EQ(world.log.has("!Unreadable player in the status of a"), broken) << reply;
        EXPECT_EQ(world.log.has("showing playerlist for a: 0 players."), reply == head);
    }
}

}  // namespace
}  // namespace gatehouse
