#include "window/rules/mod_options.h"

#include "mods/mod_file.h"
#include "support/core/fakes.h"

#include <gtest/gtest.h>

#include <functional>

namespace gatehouse {
namespace {

struct ModOptionsTest : testing::Test {
    ModEntry& choose(const std::vector<std::string>& lines) {
        world.files.put("C:\\a.ghm", fake::crlf(lines));
        ModEntry mod;
        EXPECT_TRUE(parseModFile(world.files, "C:\\a.ghm", mod));
        mods.setCurrentMod(mods.add(std::move(mod)));
        return mods.current();
    }
    void show(std::string_view letter, std::function<void()> user = [] {}) {
        world.events.pending.push_back([this, user = std::move(user)] {
            user();
            options.modclose_Click();
        });
        options.showFor(letter);
    }

    fake::World world;
    RunState& run = world.run;
    ModTable mods;
    Edits edits;
    ModOptions options{world.ground, mods, edits};
};

TEST_F(ModOptionsTest, LaysOutByWhatIsDeclaredAndWhatIsShown) {
    struct Case {
        int cvars, keys;
        std::string url, email, letter, summary, links;
        int shown, lastRow, lastColumn, width, height;
    };
    const Case cases[] = {
        {0, 0, "", " ", "S", "No Server Variables", "|", 0, 0, 0, 5000, 1600},
        {12, 3, "HTTP://a", "", "A", "3 Key Bindings and 12 Variables", "a|", 12, 11, 0, 5000, 6500},
        {13, 3, "http://", "a@b", "A", "3 Key Bindings and 13 Variables", "http://|a@b", 13, 0, 1, 6800, 6850},
        {30, 3, "https://a", "mailto:", "C", "3 Key Bindings and 10 Client Variables", "https://a|mailto:", 10, 9, 0,
         10100, 6150},
    };
    for (const Case& one : cases) {
        std::vector<std::string> lines{"url " + one.url, "email " + one.email, "cvars " + std::to_string(one.cvars),
                                       "keys " + std::to_string(one.keys)};
        for (int i = 1; i <= one.cvars; ++i)
            for (const char* line : {"checkbox a", i % 3 == 0 ? "client true" : "server true"}) lines.push_back(line);
        choose(lines);
        show(one.letter);
        const ModDialogPlan& plan = options.plan();
        EXPECT_EQ(plan.modkeys, one.summary);
        EXPECT_EQ(plan.modurl.caption + "|" + (plan.modemail.visible ? plan.modemail.caption : ""), one.links);
        EXPECT_TRUE(options.modShownCount() == one.shown && plan.width == one.width && plan.height == one.height)
            << one.summary << plan.width << 'x' << plan.height;
        if (plan.fields.empty()) continue;
        EXPECT_TRUE(plan.fields.back().row == one.lastRow && plan.fields.back().column == one.lastColumn) << one.summary;
    }
}

TEST_F(ModOptionsTest, TheButtonShowsWhatTheModeNeeds) {
    choose({"cvars 1", "checkbox a", "client true"});
    for (const auto& [mode, summary] : {std::pair(kListen, "No Key Bindings and 1 Variables"), {kDedicated, "No Server Variables"}}) {
        run.CurrentMode.set(mode);
        world.events.pending.push_back([this] { options.modclose_Click(); });
        options.modoptions_Click();
        EXPECT_EQ(options.plan().modkeys, summary);
    }
}

TEST_F(ModOptionsTest, StoresWhatIsDoneAndReadsAListBackOneRowAbove) {
    ModEntry& mod = choose({"cvars 5", "checkbox a", "value TRUE ", "listbox b", "value 2.4", "listitems x|y|z",
                            "number c", "value x", "increment 2", "min 9", "max -9", "number d", "value 7",
                            "textbox e"});
    const auto& fields = options.plan().fields;
    options.q3mod.changed.connect([&] {
        if (!options.q3mod.get()) return;
        EXPECT_TRUE(options.modDialogBuilding());
        options.mcheckbox_Click(1, false);
        EXPECT_TRUE(options.mtextbox_Change(4, "not heard"));
    });
    show("A", [&] {
        EXPECT_TRUE(fields[0].checked && !fields[3].spin && fields[2].text == "x");
        EXPECT_EQ(fields[1].listIndex, 1);
        EXPECT_TRUE(fields[2].spin->min == -9 && fields[2].spin->max == 9 && fields[2].spin->step == 2);
        EXPECT_TRUE(mod.options[0].value == "TRUE " && mod.options[3].value == "7");
        options.mcheckbox_Click(1, false);
        options.mlistbox_Click(2, 1);  // a choice of what is chosen already is one
        EXPECT_TRUE(options.mtextbox_Change(3, " -1e3 "));
        EXPECT_TRUE(options.mtextbox_Change(5, "-"));
        for (const char* text : {"", "-", "5x"}) {
            world.dialogs.answer("Number Required", Answer::Ok);
            EXPECT_FALSE(options.mtextbox_Change(4, text));
        }
        EXPECT_EQ(world.dialogs.shown.back().text, "This field requires a number.");
    });
    EXPECT_EQ(mods.values(), (std::vector<std::string>{"false", "1", " -1e3 ", "7", "-"}));
    EXPECT_TRUE(run.ConfigChanged);
    for (const int index : {0, -1}) {
        show("A", [&] { EXPECT_EQ(fields[1].listIndex, index); });
        mod.options[1].value = "0";
    }
    for (const std::string value : {"", "b", "4", "-1", "99999"}) {
        mod.options[1].value = value;
        show("A", [&] { EXPECT_EQ(fields[1].listIndex, -1) << value; });
        EXPECT_EQ(world.log.lines.back(), "!: no entry of b for the value \"" + value + "\"");
    }
    EXPECT_EQ(world.log.lines.size(), 5u) << "0 selects nothing and is no fault";
}

}  // namespace
}  // namespace gatehouse
