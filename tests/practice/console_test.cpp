#include "console.h"
#include "game_files.h"
#include "status_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace gatehouse::practice {
namespace {

namespace fs = std::filesystem;

TEST(CommandText, IsTakenApartAsTheGameDoes) {
    struct Case {
        std::string text;
        std::vector<Words> commands;
    };
    const Case cases[] = {
        {"", {}},
        {"  \t\r\n;;  ; // nothing; at all\n", {}},
        {"sv_hostname              \"My Server\"\r\nmap q3dm1", {{"sv_hostname", "My Server"}, {"map", "q3dm1"}}},
        {"seta map1 \"map a; set nextmap vstr map2\"", {{"seta", "map1", "map a; set nextmap vstr map2"}}},
        {"map a; set nextmap vstr map2", {{"map", "a"}, {"set", "nextmap", "vstr", "map2"}}},
        {"set a \"\"", {{"set", "a", ""}}},
        {"say \"http://x\" // said\nquit", {{"say", "http://x"}, {"quit"}}},
        {"set open \"no end\nquit", {{"set", "open", "no end"}, {"quit"}}},
        {"set q \"a\"b c\"d\"", {{"set", "q", "a", "b", "c", "d"}}},
        {"set high \"\x80\xff%s\"", {{"set", "high", "\x80\xff%s"}}},
    };
    for (const Case& one : cases) EXPECT_EQ(parseCommands(one.text), one.commands) << one.text;
    EXPECT_EQ(parseCommands(std::string(100'000, ';') + "x").size(), 1U);
    std::string many;
    for (std::size_t i = 0; i < kMaxCommandsOfText + 10; ++i) many += "x;";
    EXPECT_LE(parseCommands(many).size(), kMaxCommandsOfText + 1);
    EXPECT_EQ(parseCommands(std::string(100'000, 'x'))[0][0].size(), kMaxWordLength);
}

TEST(CommandText, ArgumentsBeginACommandAtAPlus) {
    const Words arguments{"stray", "+set", "net_ip", "127.0.0.1 ", "+exec", "gatehouse.cfg", "+", "+set a b"};
    const std::vector<Words> commands{{"set", "net_ip", "127.0.0.1 "}, {"exec", "gatehouse.cfg"}, {"set", "a", "b"}};
    EXPECT_EQ(parseArguments(arguments), commands);
}

class ConsoleTest : public testing::Test {
protected:
    void type(const std::string& text) {
        console.insertText(text);
        while (!console.idle()) console.frame();
    }
    bool reported(const std::string& line) const {
        return std::find(reports.begin(), reports.end(), line) != reports.end();
    }

    std::map<std::string, std::string> configs;
    std::vector<std::string> reports;
    Console console{[this](const std::string& name) -> std::optional<std::string> {
                        const auto found = configs.find(name);
                        if (found == configs.end()) return std::nullopt;
                        return found->second;
                    },
                    [this](const std::string& line) { reports.push_back(line); }};
};

TEST_F(ConsoleTest, CarriesOutAConfigInItsOrder) {
    Words maps;
    console.addCommand("map", [&](const Words& words) { maps.push_back(words.at(1)); });
    configs["gatehouse.cfg"] =
        "seta map1 \"map a; set nextmap vstr map2\"\r\nseta map2 \"map b; set nextmap vstr map1\"\r\nvstr map1\r\n"
        "SV_HostName \"x y\"\r\nbind mouse1              \"+attack\"\r\nexec missing.cfg\r\nset order last\r\n";
    type("exec gatehouse; set order first; vstr nextmap");
    EXPECT_EQ(maps, (Words{"a", "b"}));
    EXPECT_EQ(console.value("order"), "first");
    EXPECT_EQ(console.value("sv_hostname"), "x y");
    EXPECT_EQ(console.value("nextmap"), "vstr map1");
    EXPECT_TRUE(reported("set SV_HostName = x y"));
    EXPECT_TRUE(reported("bind mouse1 = +attack"));
    EXPECT_TRUE(reported("exec missing.cfg: not found"));
}

TEST_F(ConsoleTest, HostileConfigsEnd) {
    configs["loop.cfg"] = "exec loop.cfg\nexec loop.cfg\n";
    for (const char* text : {"set a \"vstr a\"; vstr a", "set b \"vstr b; vstr b\"; vstr b", "exec loop.cfg"}) type(text);
    EXPECT_TRUE(reported("too deeply nested, not carried out"));
    EXPECT_TRUE(reported("too many commands, the rest is dropped"));
    EXPECT_LE(reports.size(), static_cast<std::size_t>(2 * Console::kMaxCommands));
}

TEST(StatusText, RepliesInTheGamesOwnFormat) {
    const InfoPairs info{{"sv_hostname", "a\\b\"c;\nd"}, {"mapname", "q3dm1"}, {"version", "practice"}};
    EXPECT_EQ(statusReply(info, {{.name = "Sa\"rge\n", .skill = "3", .team = "red"}, {.name = "Major", .skill = "", .team = ""}}),
              "\xff\xff\xff\xffstatusResponse\n\\sv_hostname\\abcd\\mapname\\q3dm1\\version\\practice\n"
              "0 0 \"Sarge\"\n0 0 \"Major\"\n");
    EXPECT_EQ(textOfReply(statusReply(info, {})), "\\sv_hostname\\abcd\\mapname\\q3dm1\\version\\practice\n");
    EXPECT_LT(statusReply(InfoPairs(1000, {"key", std::string(4096, 'x')}), {}).size(), 16'384U);
}

TEST(StatusText, OnlyAStatusQueryIsAnswered) {
    EXPECT_EQ(kStatusQuery.size(), 18U);
    EXPECT_EQ(challengeOfQuery(kStatusQuery), "info");
    EXPECT_EQ(challengeOfQuery("\xff\xff\xff\xffgetstatus"), "");
    for (const char* datagram : {"", "getstatus", "\xff\xff\xff\xff", "\xff\xff\xff\xffgetstatusx", "\xff\xff\xff\xffrcon x quit"}) {
        EXPECT_FALSE(challengeOfQuery(datagram)) << datagram;
    }
}

class GameFilesTest : public testing::Test {
protected:
    GameFilesTest() {
        char name[] = "/tmp/practice-files-XXXXXX";
        root = mkdtemp(name);
        put("outside.cfg", "outside");
        put("game/baseq3/both.cfg", "base");
        put("game/baseq3/Only.CFG", "only");
        put("game/baseq3/demos/one.dm3", "");
        put("game/MyMod/both.cfg", "mod");
        fs::create_symlink(root / "outside.cfg", root / "game/baseq3/link.cfg");
        fs::create_symlink(root, root / "game/linked");
    }
    ~GameFilesTest() override { fs::remove_all(root); }

    void put(const std::string& name, const std::string& text) const {
        fs::create_directories((root / name).parent_path());
        std::ofstream(root / name) << text;
    }

    fs::path root;
};

TEST_F(GameFilesTest, LooksInTheModThenInTheGameWithoutRegardToCase) {
    const GameFiles files(root / "game", "mymod");
    EXPECT_EQ(files.readConfig("BOTH.cfg"), "mod");
    EXPECT_EQ(files.readConfig("only.cfg"), "only");
    EXPECT_EQ(GameFiles(root / "game", "").readConfig("both.cfg"), "base");
    EXPECT_TRUE(files.hasDemo("one"));
    EXPECT_TRUE(files.hasDemo("ONE.DM3"));
    EXPECT_TRUE(files.hasDemo("demo001"));
    EXPECT_FALSE(files.hasDemo("two"));
}

TEST_F(GameFilesTest, NeverLeavesTheGameFolder) {
    const GameFiles files(root / "game", "mymod");
    for (const char* name : {"../../outside.cfg", "..\\..\\outside.cfg", "/etc/passwd", "", ".", "c:x"}) {
        EXPECT_FALSE(files.readConfig(name)) << name;
        EXPECT_FALSE(files.writeDump(name, "x")) << name;
    }
    for (const char* name : {"link.cfg", "demos"}) EXPECT_FALSE(files.readConfig(name)) << name;
    EXPECT_EQ(GameFiles(root / "game", "..").mod(), "");
    EXPECT_FALSE(GameFiles(root / "game", "linked").readConfig("outside.cfg"));
    EXPECT_FALSE(GameFiles(root / "game", "linked").writeDump("dump", "x"));
    put("game/baseq3/huge.cfg", std::string(GameFiles::kMaxConfigBytes + 1, ' '));
    EXPECT_FALSE(files.readConfig("huge.cfg"));
}

}  // namespace
}  // namespace gatehouse::practice
