#include "support/core/started_program.h"

#include <gtest/gtest.h>

#include <sstream>

namespace gatehouse {
namespace {

class LoadSequenceTest : public testing::Test {
protected:
    LoadSequenceTest() {
        world.settings.values.insert({{"loglevel", "2"}, {"extracmdline", "+set vm_game 0"}});
    }

    bool logged(const std::string& line) const {
        for (const auto& path : world.files.paths())
            if (endsWithNoCase(path, "errorlog.txt"))
                return (world.files.content(path)).find("\n" + line + "\r\n") != std::string::npos;
        return false;
    }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
};

TEST_F(LoadSequenceTest, ARunningCopyIsReportedAndTheSequenceGoesOn) {
    world.windows.windows = {{1, "Terminal"}, {2, "Gatehouse: something"}};
    world.dialogs.answer("Sorry...", Answer::Ok);
    program.StartupDriver();
    EXPECT_TRUE(program.startup.q3.visible.get() && world.dialogs.shown.size() == 1);
}

TEST_F(LoadSequenceTest, AnOrdinaryStartEndsWithTheWindowAndTheLastDocument) {
    program.StartupDriver();
    EXPECT_TRUE(program.startup.q3.visible.get());
    EXPECT_FALSE(program.startup.splash.visible.get());
    EXPECT_EQ(program.run.title.get(), "c:\\gh\\default.ghc");
    EXPECT_FALSE(program.run.ConfigChanged);
    EXPECT_TRUE(logged("No errors during startup."));
    EXPECT_TRUE(world.dialogs.shown.empty());
    // The rotation of the document is marked in the catalog.
    int used = 0;
    for (int i = 1; i <= program.content.maps.maptree.count(); ++i) used += program.content.maps.maptree.at(i).used;
    EXPECT_EQ(used, 5);  // q3dm7 stands in two classes
}

TEST_F(LoadSequenceTest, MapsAndModelsAreSearchedForWhereTheirListsAreMissing) {
    for (const char* list : {"C:\\gh\\usermaps.txt", "C:\\gh\\usermdls.txt"}) world.files.deleteFile(list, true);
    world.archives.put("C:\\Q3\\baseq3\\a.pk3", {{"maps/new.bsp", std::string(40'000, ' ') + "\"message\" \"New\""},
                                                  {"models/players/robot/upper_red.skin"}});
    for (const char* title : {"User Map Search", "User Model Search"}) world.dialogs.answer(title, Answer::Ok);
    program.StartupDriver();
    const auto& maps = program.content.maps.maptree;
    EXPECT_EQ(maps.at(maps.count()).text, "NEW New");
    EXPECT_TRUE(program.content.models.selectModel("Robot\\Red"));
    EXPECT_TRUE(logged("finished extracting 1 new maps, 0 new map previews"));
    ASSERT_EQ(world.dialogs.shown.size(), 2U);
    const std::string where = "from any non-standard PAK files in your BASEQ3 folder or the\r\n";
    EXPECT_EQ(world.dialogs.shown[0].text, "Gatehouse will now extract the map names & descriptions\r\n" + where +
                                               "MAPS folder. This may take a minute or two.");
    EXPECT_EQ(world.dialogs.shown[1].text, "Gatehouse will now extract the models & skins\r\n" + where +
                                               "Models folder. This may take a minute or two.");
}

TEST_F(LoadSequenceTest, OptionsOfAnEarlierVersionAreBroughtUpToThisOne) {
    struct Case {
        const char* version;
        bool folders, scan, scanned;
    };
    for (const Case& one : {Case{"", true, true, true}, Case{"00.02.50", false, true, true},
                            Case{"00.02.49", true, true, false}, Case{"00.02.55", false, false, false},
                            Case{"00.09.00", false, false, false}, Case{"0.3", false, false, false}}) {
        fake::UsedWorld old;
        old.settings.values["lastcfg"] = "war.ghc";
        old.files.put("C:\\gh\\war.ghc", "seta sv_hostname \"War\"\r\n");
        old.settings.values["ghversion"] = one.version;
        if (*one.version == '\0') old.settings.values.erase("ghversion");
        old.files.put("C:\\Q3\\baseq3\\maps\\new.bsp", std::string(40'000, ' ') + "\"message\" \"New\"");
        if (one.scan) {
            old.dialogs.answer("Gatehouse Upgrade", one.scanned ? Answer::Yes : Answer::No);
            for (const char* title : {"Map & Model Scan Complete.", "Upgrade Summary"}) old.dialogs.answer(title, Answer::Ok);
        }
        Gatehouse other(old.services, "C:\\gh");
        other.StartupDriver();
        const std::string from = *one.version == '\0' ? "00.00.00" : one.version;
        EXPECT_EQ(other.run.title.get(), one.folders ? "c:\\gh\\war.ghc" : "c:\\gh\\default.ghc") << from;
        EXPECT_EQ(old.settings.values["ghversion"], "00.03.03");
        EXPECT_EQ(old.files.content("C:\\gh\\usermaps.txt"), one.scanned ? "NEW New\r\n" : "") << from;
        EXPECT_EQ(old.dialogs.shown.size(), one.scan ? 3U : 0U) << from;
        if (!one.scan) continue;
        EXPECT_EQ(old.dialogs.shown[2].text,
                  "The following actions were taken upgrading from\r\nGatehouse version " + from +
                      " to 00.03.03:\r\n\r\n" +
                      (one.folders ? "  - Updated registry key: LASTCFG\r\n  - Created registry key: GHCDIR\r\n" : "") +
                      (one.scanned ? "  - Scanned for new maps/models\r\n" : "  - Did not get new maps/models\r\n"));
        EXPECT_EQ(old.dialogs.shown[1].text.starts_with("Maps/models extracted Successfully.\r\n\r\n"), one.scanned);
    }
    // A scan that can't be made costs no option.
    world.settings.values["ghversion"] = "00.02.54";
    world.settings.values["basedir"] = "C:\\Q3\\";
    world.files.deleteFolder("C:\\Q3\\baseq3");
    for (const char* title : {"Gatehouse Upgrade", "Map & Model Scan Complete.", "Upgrade Summary"})
        world.dialogs.answer(title, Answer::Yes);
    program.StartupDriver();
    EXPECT_EQ(world.settings.values["exepath"], "C:\\Q3\\quake3.exe");
    EXPECT_TRUE(world.dialogs.shown[2].text.ends_with("  - Did not get new maps/models\r\n"));
}

TEST_F(LoadSequenceTest, OptionsThatCannotBeReadAreErasedAfterABox) {
    for (const auto& [key, text] : {std::pair("startwith", "abc"), {"runoptions", "7"}, {"showconsole", "maybe"}}) {
        fake::UsedWorld fresh;
        fresh.settings.values[key] = text;
        fresh.dialogs.answer("Critical Error", Answer::Ok);
        Gatehouse other(fresh.services, "C:\\gh");
        EXPECT_THROW(other.StartupDriver(), RuntimeFailure) << key;  // the game's place went with the options
        EXPECT_FALSE(fresh.settings.values.contains("exepath"));
    }
}

TEST_F(LoadSequenceTest, TheEndAsksAboutBothChangesAndSavesWhatIsWanted) {
    program.StartupDriver();
    program.config.doc.q3hostname.setText("My Server");
    program.run.ServerListChanged = true;
    world.dialogs.answer("Exit Gatehouse", Answer::Yes);
    world.dialogs.answer("Exit Gatehouse", Answer::Yes);
    program.q3_Unload();
    EXPECT_FALSE(program.startup.q3.visible.get());
    EXPECT_TRUE(world.events.ended);
    EXPECT_NE(world.files.content("C:\\gh\\default.ghc").find("seta sv_hostname \"My Server\""), std::string::npos);
    EXPECT_NE(world.files.content("C:\\gh\\default.ghs").find("// server list"), std::string::npos);
    EXPECT_TRUE(world.files.fileExists("C:\\gh\\usermaps.txt"));
    EXPECT_EQ(world.dialogs.shown[1].text, "Save changes to C:\\gh\\default.ghc?");
    EXPECT_EQ(world.settings.values["showconsole"], "False");
    EXPECT_EQ(world.settings.values["extracmdline"], "+set vm_game 0");  // putting the form back stores nothing
}

TEST_F(LoadSequenceTest, OptionsThatCantBeStoredHoldForTheRunAndAreToldOnce) {
    world.settings.full = true;
    world.dialogs.answer("Options", Answer::Ok);
    program.StartupDriver();
    for (const char* text : {"7", "8"}) program.startup.options.q3pingwait.setText(text);
    EXPECT_EQ(program.startup.store.getOption("pingwait", ""), "8");
    world.settings.full = false;
    program.mtoolsconsole_Click();
    EXPECT_EQ(world.settings.values["pingwait"] + world.settings.values["showconsole"], "8True");
}

TEST_F(LoadSequenceTest, AGameFolderThatHasGoneIsNamedAndAskedForWhereSomebodyCanAnswer) {
    world.settings.values["basedir"] = "C:\\Gone\\";
    world.dialogs.watched = false;
    EXPECT_THROW(program.StartupDriver(), RuntimeFailure);
    world.dialogs.watched = true;
    Gatehouse again{world.services, "C:\\gh"};
    world.dialogs.answer("Initial Setup", Answer::Ok);
    world.dialogs.answer("Inital Setup", Answer::Yes);
    world.dialogs.choose("C:\\Q3\\quake3.exe");
    again.StartupDriver();
    EXPECT_TRUE(again.startup.q3.visible.get());
    EXPECT_TRUE(world.dialogs.shown.front().text.find("C:\\Gone\\ is not there") != std::string::npos);
    EXPECT_EQ(world.settings.values["basedir"], "C:\\Q3\\");
}

/// All that windows can show of a program, as texts.
std::vector<std::string> shownState(Gatehouse& program) {
    std::vector<std::string> state;
    const auto add = [&state](const std::string& name, const auto& value) {
        state.push_back((std::ostringstream() << name << '=' << value).str());
    };
    std::vector<FieldGroup*> groups{&program.startup.options.options, &program.startup.options.benchmark,
                                    &program.servers.query.totals, &program.servers.addressForm.group};
    for (FieldGroup* group : program.config.doc.groups()) groups.push_back(group);
    for (const FieldGroup* group : groups)
        for (const Field* field : group->fields)
            add(field->name(),
                field->valueText() + " " + std::to_string(field->enabled.get() + 2 * field->visible.get()));
    const auto& doc = program.config.doc;
    for (const int rows :
         {doc.bindlist.count(), doc.maplist.count(), doc.q3botlist.count(), doc.LastGameType, int{doc.MapCount},
          program.servers.iplist.count(), program.content.maps.maptree.count(), program.content.models.mdltree.count(),
          int{program.mods.table.modCount()}, program.servers.playersForm.playerlist.count()})
        add("rows", rows);
    const CommandFlags& flags = program.flags;
    for (const Observable<bool>* flag : std::initializer_list<const Observable<bool>*>{
             &flags.mfilerun, &flags.btbar[1], &flags.btbar[2], &flags.btbar[3], &flags.tbservers[1],
             &flags.tbservers[2], &flags.tbservers[3], &flags.tbservers[5], &flags.mtool1[1], &flags.mtool1[2],
             &flags.mtool2[1], &flags.mtool2[2], &flags.q3botlist, &flags.q3botadd, &flags.q3botdel,
             &flags.namedBotsShown, &program.startup.q3.visible, &program.startup.splash.visible,
             &program.config.history.canUndo})
        add("flag", flag->get());
    for (const Form* form : program.forms()) add(std::string(form->name), form->get());
    const MainView& q3 = program.startup.q3;
    for (const std::string& text : {program.rules.modes.TabKey.get(), program.rules.modes.frameCaption.get(),
                                    q3.q3status.get(), q3.q3console.get(), program.startup.splash.files.get(),
                                    program.run.title.get(), program.servers.playersForm.caption.get(),
                                    program.servers.addressForm.iptag, program.rules.rotationRules.focusPane})
        add("text", text);
    for (const int number : {q3.width.get(), q3.height.get(), int{program.run.CurrentMode.get()},
                             int{program.rules.modes.FrameShown.get()}, int{program.servers.commands.SortColumn},
                             int{program.servers.query.PlayersAfterReply}, int{program.run.ConfigChanged}})
        add("number", number);
    return state;
}

TEST_F(LoadSequenceTest, ClosingAllWindowsPutsEverythingBack) {
    Gatehouse fresh(world.services, "C:\\gh");
    program.StartupDriver();
    for (FieldGroup* group : program.config.doc.groups())
        for (Field* field : group->fields) {
            field->enabled.set(false);
            if (field->kind() == Field::Kind::Check) field->setValueText("1");
            if (field->kind() == Field::Kind::Slider) field->setValueText("7");
        }
    program.config.doc.q3gametype.setIndex(3);
    program.config.doc.fraglimit.edit([this] { program.config.doc.fraglimit.setText("77"); });
    program.config.doc.q3usepass.setValue(1);
    program.config.doc.maplist.append({"001", "Q3DM1", "Arena Gate"});
    program.servers.iplist.append(newServer("192.0.2.7:27960", ""));
    program.servers.playersForm.caption.set("Players on it");
    program.servers.playersForm.playerlist.append({});
    program.servers.addressForm.ip1.setText("192.0.2.7");
    program.servers.addressForm.iptag = "OK";
    program.servers.query.iptotplayers.setText("9");
    program.servers.query.PlayersAfterReply = true;
    program.servers.commands.SortColumn = 5;
    program.rules.rotationRules.focusPane = "LIST";
    program.startup.options.q3pingwait.setText("9");
    program.startup.splash.files.set("9");
    program.startup.q3.width.set(1);
    for (auto* flags : {&program.flags.mtool1, &program.flags.mtool2}) flags->setAll(true);
    program.flags.tbservers.setAll(true);
    program.flags.SetRunEnabled(false);
    program.rules.modes.sbar_GroupClick(kDedicated);
    for (Form* form : program.forms()) form->set(true);
    program.run.ConfigChanged = program.run.ServerListChanged = false;
    program.closeAllWindows();
    EXPECT_EQ(shownState(program), shownState(fresh));
}

}  // namespace
}  // namespace gatehouse
