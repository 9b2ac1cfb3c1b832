#include "mods/mod_file.h"

#include "support/core/fakes.h"
#include "support/core/garbage.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

const std::string kPath = "C:\\gh\\mods\\x.ghm";

/// The entry of a file with these lines; nothing if the file is rejected.
std::optional<ModEntry> parse(const std::string& content) {
    fake::MemoryFiles files;
    files.put(kPath, content);
    ModEntry entry;
    if (!parseModFile(files, kPath, entry)) return std::nullopt;
    return entry;
}

TEST(ModFile, ReadsAllThatAMultiplayerModDeclares) {
    const auto mod = parse(
        "// a mod\r\nNAME\tMy \t Mod \r\ndir  mymod\r\nauthor someone\r\nurl http://x/\r\nemail   \r\n"
        "unknown keyword\r\n  name ignored\r\n\t\r\n\r\n"
        "cvars 2 options\r\nkeys 1\r\ngtype 3 Team Play\r\n"
        "listbox g_mode\r\ntext Mode\r\nvalue 1\r\nlistitems a|b c||\r\nlistdata \r\nserver TRUE\r\nclient 0\r\n"
        "Number g_size\r\nmin -5\r\nmax 70000\r\nincrement 2.5\r\nclient -1\r\ndestination cfg\r\n"
        "key Hook\r\ncmd +hook\r\n");
    ASSERT_TRUE(mod);
    EXPECT_EQ(mod->name, "My \t Mod ");
    EXPECT_EQ(mod->dir, "mymod");
    EXPECT_EQ(mod->author + mod->url + mod->email, "someonehttp://x/");
    EXPECT_EQ(mod->gtype[3], "Team Play");
    ASSERT_EQ(mod->options.size(), 2u);
    const ModOption& list = mod->options[0];
    EXPECT_EQ(list.type + "/" + list.name + "/" + list.text + "/" + list.value, "listbox/g_mode/Mode/1");
    EXPECT_EQ(list.listitems, (std::vector<std::string>{"a", "b c", "", ""}));
    EXPECT_EQ(list.listdata, (std::vector<std::string>{""}));
    EXPECT_TRUE(list.server);
    EXPECT_FALSE(list.client);
    const ModOption& number = mod->options[1];
    EXPECT_TRUE(number.type == "number" && number.client && number.destination == "cfg");
    EXPECT_TRUE(number.min == -5 && number.max == 70000 && number.increment == 2);
    ASSERT_EQ(mod->modKeys.size(), 1u);
    EXPECT_EQ(mod->modKeys[0].key + "/" + mod->modKeys[0].cmd, "Hook/+hook");
}

TEST(ModFile, AFaultRejectsTheWholeFile) {
    // Nothing behind the keyword, attributes of nothing, numbers out of range or too short to be cut, a value too far.
    const std::string faults[] = {"checkbox",    "nonsense", "listitems a|b", "text x",
                                  "cmd x",       "gtype 3",  "gtype ",        "cvars 40000",
                                  "name" + std::string(32763, ' ') + "x"};
    for (const std::string& line : faults) EXPECT_FALSE(parse("name x\r\n" + line + "\r\nkey k\r\n")) << line;
    EXPECT_TRUE(parse("name" + std::string(32762, ' ') + "x"));
    const char* const optionFaults[] = {"min x", "max ", "increment 3000000000", "server maybe", "client "};
    for (const char* line : optionFaults) EXPECT_FALSE(parse(std::string("checkbox c\r\n") + line)) << line;
    EXPECT_TRUE(parse("checkbox \r\nname \r\n"));
    EXPECT_TRUE(parse("cvars none\r\n"));
}

}  // namespace
}  // namespace gatehouse
