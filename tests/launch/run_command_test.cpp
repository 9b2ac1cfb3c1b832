#include "launch/run_command.h"

#include "launch_fixture.h"

namespace gatehouse {
namespace {

constexpr const char* kMade = "CFG & BAT files have been created to run the current configuration.\r\n";
constexpr const char* kError = "An error occurred when trying to run the game. Check the error log.";

class RunCommandTest : public LaunchFixture {
protected:
    RunCommandTest() {
        world.processes.variables = {"PATH=C:\\bin", "ComSpec=C:\\win\\cmd.exe"};
        q3runoptions.setIndex(0);
    }

    void connectTo(const std::string& address) {
        ServerEntry entry;
        entry.Address = address;
        iplist.setCurrent(iplist.append(entry));
    }
    /// A run that needs nothing but a server to connect to.
    void prepareConnect() {
        chooseMod("Quake 3: Arena", "baseq3");
        run.CurrentMode.set(kConnect);
        connectTo("192.0.2.7:27960");
    }

    std::string cfg() const { return world.files.content(folder() + "gatehouse.cfg"); }
    std::string bat() const { return world.files.content(folder() + "gatehouse.bat"); }
    std::string ghaliases() const { return world.files.content(run.GameDir + "baseq3\\ghaliases.cfg"); }
    std::string folder() const { return run.GameDir + mods.current().dir + "\\"; }

    FieldGroup options{"options"};
    ListField q3runoptions{options, {.name = "q3runoptions"}, {"launch", "ask", "files", "fourth"}};
    TextField extracmdline{options, {.name = "extracmdline"}};
    TextField q3FilePath{options, {.name = "q3FilePath"}, "C:\\Q3\\quake3.exe"};
    ServerTable iplist;
    RunCommand command{
        {world.ground, world.processes, doc, mods, iplist, q3runoptions, extracmdline, q3FilePath, gameConfig}};
};

TEST_F(RunCommandTest, ConnectMatchesTheGoldenFiles) {
    world.files.put("C:\\gh\\aliases.txt",
                    "Scripts. Text out here is a comment.\r\n#def \"Zoom Toggle\"\r\n#key \"in\"\r\n#key \"out\"\r\n"
                    "// works in any arena\r\nset zin \"cg_fov 20\"\r\nbind #01 vstr zin\r\n"
                    "BIND   #02 \"say 50% off\" // twice #02\r\n#end\r\n\r\n#def \"Half Bound\"\r\n#key \"a\"\r\n"
                    "#key \"b\"\r\nbind #01 kill\r\n#end\r\n#def \"Last One\"\r\n#key \"go\"\r\n"
                    "bind #01 +attack \x80\r\necho no end here\r\n");
    doc.bindlist.append({"Freeze Ray", "+freeze 50%\xff", "", "", BindingKind::Mod});
    aliases.loadAliases();
    for (const GameAction& action : gameActions()) setTag(std::string(action.text), std::string(action.defaultButton));
    setTag("Run", "NOTHING");
    setTag("Freeze Ray", "leftctrl");
    setTag("Zoom Toggle in", "mwheelup");
    setTag("Zoom Toggle out", "MOUSE3");
    setTag("Half Bound a", "k0");
    setTag("Last One go", "n5");
    prepareConnect();
    connectTo("198.51.100.1:1");
    iplist.setCurrent(1);
    extracmdline.setText("  +set vm_game 0 ");

    command.mfilerun_Click();

    EXPECT_EQ(cfg(), golden("connect/gatehouse.cfg"));
    EXPECT_EQ(bat(), golden("connect/gatehouse.bat"));
    EXPECT_EQ(ghaliases(), golden("connect/ghaliases.cfg"));
    const std::string start = "C:\\win\\cmd.exe /c \"C:\\Quake III Arena\\baseq3\\gatehouse.bat\"";
    EXPECT_EQ(world.processes.started, std::vector<std::string>{start});
    EXPECT_EQ(world.log.lines.back(), "Launching Quake 3 (" + start + ")");
    EXPECT_FALSE(run.RunErrors);
}

TEST_F(RunCommandTest, ListenMatchesTheGoldenFiles) {
    run.GameDir = "D:\\Games\\Q3\\";
    world.files.addFolder("D:\\Games\\Q3\\arena");
    world.files.addFolder("D:\\Games\\Q3\\baseq3");
    chooseMod("Rocket \x80 Arena", "arena",
              {modOption("checkbox", "ra_check", "TRUE", true, false),
               modOption("textbox", "ra_text", " a \"b\" 50% \xff", true, true),
               modOption("listbox", "ra_list", "2", false, true), modOption("number", "ra_number", "7", false, false),
               modOption("checkbox", "ra_other", "yes", false, true)});
    doc.q3gametype.setIndex(3);
    doc.q3usepass.setValue(1);
    doc.q3userconpass.setValue(0);
    doc.q3cheats.setValue(1);
    doc.maplist.append({"001", "q3dm1 ", "Arena Gate"});
    doc.maplist.append({"002", "Q3TOURNEY2 ", ""});
    doc.q3botlist.append({"Sarge", "3", "Red"});
    doc.q3botlist.append({"Xaero", "", ""});
    doc.q3botlist.append({"Bones", "5", "None"});
    host.model = "Sarge";
    doc.q3sexfemale.setValue(0);
    doc.invertmouse.setValue(0);
    doc.q3brass.setValue(0);
    doc.q3trilinear.setValue(1);
    doc.q3soundquality.setValue(1);
    doc.q3brightness.setPosition(50);
    doc.q3musicvol.setPosition(0);
    doc.q3effectsvol.setPosition(50);
    doc.q3texquality.setIndex(0);
    doc.q3colordepth.setIndex(-1);
    doc.q3lighting.setIndex(0);
    doc.q3geometry.setIndex(0);
    run.CurrentMode.set(kListen);

    command.mfilerun_Click();

    EXPECT_EQ(cfg(), golden("listen/gatehouse.cfg"));
    EXPECT_EQ(bat(), golden("listen/gatehouse.bat"));
    EXPECT_EQ(ghaliases(), golden("listen/ghaliases.cfg"));
    EXPECT_EQ(world.processes.started.size(), 1u);
}

TEST_F(RunCommandTest, TheOptionDecidesWhetherTheGameStarts) {
    prepareConnect();
    struct Case {
        int option;
        std::optional<Answer> answer;
        const char* text;
        bool starts;
    };
    const Case cases[] = {
        {0, {}, "", true},
        {1, Answer::Yes, "Do you want to launch Quake 3: Arena with these settings?", true},
        {1, Answer::No, "Do you want to launch Quake 3: Arena with these settings?", false},
        {2, Answer::Ok, "Quake 3: Arena will not be launched.", false},
        {3, {}, "", false},
    };
    for (const Case& one : cases) {
        world.processes.started.clear();
        world.dialogs.shown.clear();
        q3runoptions.setIndex(one.option);
        if (one.answer) world.dialogs.answer("Run", *one.answer);
        command.mfilerun_Click();
        EXPECT_EQ(world.processes.started.size(), one.starts ? 1u : 0u) << one.option;
        EXPECT_NE(bat().find("+connect 192.0.2.7:27960\r\n"), std::string::npos);
        ASSERT_EQ(world.dialogs.shown.size(), one.answer ? 1u : 0u);
        if (!one.answer) continue;
        const MessageBox& box = world.dialogs.shown.front();
        EXPECT_EQ(box.text, std::string(kMade) + one.text);
        EXPECT_EQ(box.buttons, one.option == 1 ? Buttons::YesNo : Buttons::Ok);
        EXPECT_EQ(box.safeAnswer, one.option == 1 ? Answer::No : Answer::Ok);
    }
}

TEST_F(RunCommandTest, AnAddressThatTheGameWouldTakeForACommandIsNotHandedOver) {
    for (const char* address : {"a b:27960", "a\"b:27960", "a;quit:27960", "a\nb:27960", "+quit:27960"}) {
        prepareConnect();
        world.files.put("C:\\Quake III Arena\\baseq3\\gatehouse.cfg", "earlier");
        iplist.update(iplist.current(), [&](ServerEntry& row) { row.Address = address; });
        world.dialogs.answer("Error", Answer::Ok);
        command.mfilerun_Click();
        EXPECT_EQ(cfg(), "earlier") << address;
        EXPECT_TRUE(run.RunErrors && world.processes.started.empty()) << address;
    }
}

}  // namespace
}  // namespace gatehouse
