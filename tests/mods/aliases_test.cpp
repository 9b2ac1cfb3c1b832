#include "mods/aliases.h"

#include "base/line_failure.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class AliasTest : public testing::Test {
protected:
    AliasTest() {
        run.AppDir = "C:\\gh\\";
        run.GameDir = "C:\\q3\\";
        world.files.addFolder("C:\\q3\\baseq3");
    }

    void put(const std::vector<std::string>& lines) { world.files.put("C:\\gh\\aliases.txt", fake::crlf(lines)); }
    /// Binds rows to buttons, in the order of the list.
    void bind(const std::vector<std::string>& tags) {
        for (std::size_t i = 0; i < tags.size(); ++i)
            bindlist.update(static_cast<int>(i + 1), [&](KeyBinding& row) { row.tag = tags[i]; });
    }
    void write() {
        const auto stream = world.files.createText("C:\\q3\\out.cfg");
        aliases.WriteAliases(*stream);
    }
    /// What reaches the game for a file whose keys are bound in order.
    std::string written(const std::vector<std::string>& lines, const std::vector<std::string>& tags) {
        put(lines);
        bindlist.clear();
        aliases.loadAliases();
        bind(tags);
        write();
        return world.files.content("C:\\q3\\baseq3\\ghaliases.cfg");
    }
    template <class Work>
    static std::string failureOf(Work&& work) {
        try {
            work();
        } catch (const LineFailure& failure) {
            return failure.what();
        }
        return "";
    }
    std::vector<std::string> rows() const {
        std::vector<std::string> result;
        for (int i = 1; i <= bindlist.count(); ++i) result.push_back(bindlist.at(i).text + "|" + bindlist.at(i).key);
        return result;
    }

    fake::World world;
    RunState& run = world.run;
    BindingTable bindlist;
    AliasBook aliases{world.ground, bindlist};
};

TEST_F(AliasTest, KeysBecomeRowsWhoseBlocksCountPasses) {
    put({"#key \"stray\"", "#def \"One\"", "#key \"a\"", "  #key \"b\" and a remark", "echo", "echo", "#end",
         "#def \"Two\"", "#key \"vote\"", "#end", "#KEY \"not a key to the reader\"", "#Def \"nor a block\"",
         "#key \"c\"", "#def \"Three\"", "echo", "#key \"behind the script\""});
    aliases.loadAliases();
    EXPECT_EQ(rows(), (std::vector<std::string>{"One a|alias21", "One b|alias22", "Two vote|alias41"}));
    EXPECT_TRUE(bindlist.at(1).tag == "NOTHING" && bindlist.at(1).kind == BindingKind::Alias);
    EXPECT_EQ(world.log.lines.back(), "16 lines parsed OK");
}

TEST_F(AliasTest, MissingFilesQuotesAndRowsFailTheWriting) {
    aliases.loadAliases();
    EXPECT_EQ(world.log.lines.back(), "Couldn't open aliases.txt");
    EXPECT_THROW(write(), RuntimeFailure);
    put({"#def \"A\"", "#key \"x\"", "#end"});
    EXPECT_THROW(write(), RuntimeFailure);
    for (const auto& [key, number] : {std::pair("#key \"a", 2), {"#key a", 2}, {"#def One", 1}}) {
        put(number == 2 ? std::vector<std::string>{"#def \"One\"", key, "#end"} : std::vector<std::string>{key, "#end"});
        const std::string message =
            "C:\\gh\\aliases.txt, line " + std::to_string(number) + ": " + key + ": a name needs two quotes";
        EXPECT_EQ(failureOf([this] { aliases.loadAliases(); }), message);
        EXPECT_EQ(failureOf([this] { write(); }), message);
    }
}

TEST_F(AliasTest, PlaceholdersTakeTheChosenKeys) {
    const std::vector<std::string> head = {"#def \"A\"", "#key \"x\"", "#key \"y\""};
    const std::pair<const char*, const char*> cases[] = {
        {"bind #02 +attack", "bind mouse1 +attack"},
        {"BIND #01 +attack", "BIND kp_end +attack"},
        {"bindlist #01", "bindlist kp_end "},
        {"bind #03 gone", "bind  gone"},
        {"bind #00 gone", "bind  gone"},
        {"bind #", "bind  "},
        {"bind #1 +attack", "bind kp_end attack"},
        {" bind #02 indented", " bind #02 indented"},
        {"set k \"bind #02\"", "set k \"bind #02\""},
        {"", ""},
    };
    for (const auto& [script, expected] : cases) {
        auto lines = head;
        lines.insert(lines.end(), {script, "#End of it"});
        EXPECT_EQ(written(lines, {"n1", "mouse1"}), fake::crlf({"", "// Alias: A", "", expected}));
    }
    for (const char* script : {"bind mouse1 kill", "bind #-1 kill"}) {
        auto lines = head;
        lines.push_back(script);
        EXPECT_THROW(written(lines, {"n1", "mouse1"}), LineFailure) << script;
    }
}

TEST_F(AliasTest, TheWriterTakesKeywordsInAnyCase) {
    bindlist.append({"Loud k", "", "", "kq", BindingKind::Alias});
    put({"#DEF \"Loud\"", "#Key \"k\"", "Bind #01 shout", "#END", "#def \"No keys at the end\""});
    write();
    EXPECT_EQ(world.files.content("C:\\q3\\baseq3\\ghaliases.cfg"),
              fake::crlf({"", "// Alias: Loud", "", "Bind q shout"}));
}

}  // namespace
}  // namespace gatehouse
