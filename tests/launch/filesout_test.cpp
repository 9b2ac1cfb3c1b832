#include "launch_fixture.h"

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
