#include "launch_fixture.h"

#include <functional>

namespace gatehouse {
namespace {

constexpr const char* kFile = "C:\\Quake III Arena\\out.cfg";

class GameConfigTest : public LaunchFixture {
protected:
    /// Lines that the writer leaves behind, whether or not it fails.
    std::vector<std::string> lines(void (GameConfig::*writer)()) {
        gameConfig.open(world.files.createText(kFile));
        (gameConfig.*writer)();
        gameConfig.close();
        return splitLines(world.files.content(kFile));
    }
    std::vector<std::string> serverLines() { return lines(&GameConfig::WriteServerVars); }
    std::vector<std::string> playerLines() { return lines(&GameConfig::WritePlayerVars); }

    /// The quoted value of a variable, or "<none>".
    static std::string valueOf(const std::vector<std::string>& text, const std::string& variable) {
        for (const std::string& line : text)
            if (line.starts_with(variable + " ")) return line.substr(line.find('"'));
        return "<none>";
    }
    static std::vector<std::string> startingWith(const std::vector<std::string>& text, const std::string& beginning) {
        std::vector<std::string> found;
        for (const std::string& line : text)
            if (line.starts_with(beginning)) found.push_back(line);
        return found;
    }
};

TEST_F(GameConfigTest, BenchmarkGetsItsReducedSetOfVariables) {
    gameConfig.open(world.files.createText(kFile));
    gameConfig.WriteBenchmarkVars();
    gameConfig.close();
    EXPECT_EQ(world.files.content(kFile), golden("benchmark/variables.cfg"));
}

TEST_F(GameConfigTest, DisplayValuesTakeTheGamesForms) {
    struct Case {
        std::function<void(SettingsDocument&)> change;
        const char* variable;
        const char* value;
    };
    const Case cases[] = {
        {[](auto& d) { d.q3brightness.setPosition(50); }, "r_gamma", "\" .5\""},
        {[](auto& d) { d.q3brightness.setPosition(100); }, "r_gamma", "\" 1\""},
        {[](auto& d) { d.q3effectsvol.setPosition(25); }, "s_volume", "\"0.3\""},
        {[](auto& d) { d.q3musicvol.setPosition(94); }, "s_musicvolume", "\"0.9\""},
        {[](auto& d) { d.q3musicvol.setPosition(95); }, "s_musicvolume", "\"1.0\""},
        {[](auto& d) { d.q3texquality.setIndex(-1); }, "r_texturebits", "<none>"},
        {[](auto& d) { d.q3colordepth.setIndex(2); }, "r_colorbits", "\"32\""},
        {[](auto& d) { d.q3colordepth.setIndex(-1); }, "r_colorbits", "<none>"},
        {[](auto& d) { d.q3geometry.setIndex(-1); }, "r_subdivisions", "<none>"},
        {[](auto& d) { d.q3vidres.setIndex(-1); }, "r_mode", "\"-1\""},
        {[](auto& d) { d.q3soundquality.setValue(2); }, "s_khz", "\"22\""},
        {[](auto& d) { d.q3brass.setValue(2); }, "cg_brasstime", "\"0\""},
        {[](auto& d) { d.invertmouse.setValue(2); }, "m_pitch", "\"0.022\""},
        {[](auto& d) { d.chindex.setText(" 03.50 of 10"); }, "cg_drawcrosshair", "\"3.5\""},
        {[](auto& d) { d.chindex.setText("none"); }, "cg_drawcrosshair", "\"0\""},
    };
    for (const Case& one : cases) {
        one.change(doc);
        EXPECT_EQ(valueOf(playerLines(), one.variable), one.value);
    }
}

TEST_F(GameConfigTest, LimitsFollowThePositionOfTheGameType) {
    doc.maplist.append({"001", "q3dm1", ""});
    struct Case {
        int position;
        std::string gametype, fraglimit, timelimit, capturelimit;
    };
    const auto number = [](const char* field) { return "\"" + std::to_string(patternNumber(field)) + "\""; };
    const Case cases[] = {
        {0, "\"0\"", number("ui_ffa_fraglimit"), number("ui_ffa_timelimit"), "\"0\""},
        {1, "\"1\"", number("ui_tourney_fraglimit"), number("ui_tourney_timelimit"), "\"0\""},
        {4, "\"5\"", "<none>", "<none>", "<none>"},
        {-1, "<none>", "<none>", "<none>", "<none>"},
    };
    for (const Case& one : cases) {
        doc.q3gametype.setIndex(one.position);
        const auto text = serverLines();
        EXPECT_EQ(valueOf(text, "seta g_gametype"), one.gametype) << one.position;
        EXPECT_EQ(valueOf(text, "fraglimit"), one.fraglimit) << one.position;
        EXPECT_EQ(valueOf(text, "timelimit"), one.timelimit) << one.position;
        EXPECT_EQ(valueOf(text, "capturelimit"), one.capturelimit) << one.position;
    }
}

TEST_F(GameConfigTest, AnEmptyRotationFailsBehindItsTitle) {
    EXPECT_THROW(serverLines(), RuntimeFailure);
    gameConfig.abandon();
    const auto text = splitLines(world.files.content(kFile));
    ASSERT_GE(text.size(), 3u);
    EXPECT_EQ(text[text.size() - 2], "// Map Rotation");
    EXPECT_TRUE(world.log.has("->Wrote Server CFG Vars OK"));
    EXPECT_FALSE(world.log.has("->Wrote map rotation OK"));
}

TEST_F(GameConfigTest, RandomBotsSplitIntoTeams) {
    doc.maplist.append({"001", "q3dm1", ""});
    doc.q3botlist.append({"Sarge", "1", "Red"});
    doc.q3randbots.setValue(1);
    doc.q3randskill.setText("4");
    struct Case {
        int gametype;
        const char* count;
        std::size_t red, blue, none;
    };
    const Case cases[] = {{0, "3", 0, 0, 3}, {1, "2", 0, 0, 2}, {2, "5", 2, 3, 0}, {3, "4", 2, 2, 0},
                          {4, "1", 0, 1, 0}, {2, "0", 0, 0, 0}, {2, "-2", 0, 0, 0}};
    for (const Case& one : cases) {
        doc.q3gametype.setIndex(one.gametype);
        doc.q3randnum.setText(one.count);
        const auto bots = startingWith(serverLines(), "addbot ");
        const auto ending = [&bots](const char* team) {
            return std::count_if(bots.begin(), bots.end(), [team](const auto& line) { return line.ends_with(team); });
        };
        EXPECT_EQ(ending(" 4 red"), one.red) << one.count;
        EXPECT_EQ(ending(" 4 blue"), one.blue) << one.count;
        EXPECT_EQ(ending(" 4"), one.none) << one.count;
        EXPECT_EQ(bots.size(), one.red + one.blue + one.none);
    }
    for (const char* count : {"", "many", "3 or so", "40000"}) {
        doc.q3randnum.setText(count);
        EXPECT_THROW(serverLines(), RuntimeFailure) << count;
    }
}

}  // namespace
}  // namespace gatehouse
