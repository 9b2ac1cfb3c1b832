#include "mods/mod_choice.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

struct ModChoiceTest : testing::Test {
    ModChoiceTest() {
        run.GameDir = "C:\\q3\\";
        world.files.addFolder("C:\\q3");
        addRow("Jump", BindingKind::Action);
    }

    void addRow(const std::string& text, BindingKind kind) { doc.bindlist.append({text, "", "", "", kind}); }
    int addMod(const std::string& name, const std::string& dir, std::int16_t keys, std::vector<ModKey> modKeys = {}) {
        ModEntry mod;
        mod.name = name;
        mod.dir = dir;
        mod.keys = keys;
        mod.modKeys = std::move(modKeys);
        mod.gtype[0] = "FFA";
        mod.gtype[4] = " CTF ";
        mod.gtype[5] = "  ";
        return mods.add(std::move(mod));
    }
    void offer(std::vector<Choice> choices) { doc.modcombo.setChoices(std::move(choices)); }
    std::string bindings() const {
        std::string text;
        for (int i = 1; i <= doc.bindlist.count(); ++i) text += doc.bindlist.at(i).text + ";";
        return text;
    }

    fake::World world;
    RunState run;
    SettingsDocument doc;
    ModTable mods;
    ModChoice choice{mods, doc, run};
};

TEST_F(ModChoiceTest, OffersAModForEachOfItsFoldersAndChoosesTheFirst) {
    addMod("Gone", "gone", 0);
    const int osp = addMod("Title", " OSP ", 0);
    addMod("Other", "other", 0);
    addMod("Again", "osp", 0);
    mods.setCurrentMod(1);
    world.files.addFolder("C:\\q3\\Osp");
    world.files.addFolder("C:\\q3\\osp ");
    world.files.addFolder("C:\\q3\\other");
    choice.fillModcombo(world.files);
    EXPECT_EQ(doc.modcombo.choices(),
              (std::vector<Choice>{{"Title", 0}, {"Title", 0}, {"Other", 0}, {"Again", 0}, {"Again", 0}}));
    EXPECT_EQ(doc.modcombo.index(), 0);
    EXPECT_EQ(mods.currentMod(), osp);
}

TEST_F(ModChoiceTest, AChoiceBringsGameTypesWithTheirNumbersAndKeyRows) {
    addMod("Mod", "mod", 2, {{"Hook", "+hook"}, {"Flag", "dropflag"}});
    offer({{" mOD ", 0}});
    std::vector<std::string> order;
    doc.q3gametype.choicesChanged.connect([&] { order.push_back("choices"); });
    doc.q3gametype.changed.connect([&] { order.push_back("changed at " + std::to_string(mods.currentMod())); });
    doc.modcombo.setIndex(0);
    EXPECT_TRUE(run.ConfigChanged);
    EXPECT_EQ(doc.q3gametype.choices(), (std::vector<Choice>{{"FFA", 0}, {" CTF ", 4}}));
    EXPECT_EQ(order, (std::vector<std::string>{"choices", "choices", "changed at 1"}));
    EXPECT_EQ(bindings(), "Jump;Mod (Hook);Mod (Flag);");
    EXPECT_EQ(doc.bindlist.at(2).key, "+hook");
    EXPECT_EQ(doc.bindlist.at(2).tag, "");
}

TEST_F(ModChoiceTest, TheOldModsKeyRowsGoFromTheEnd) {
    struct Case {
        std::int16_t declared;
        std::vector<ModKey> keys;
        const char* during;
        const char* after;
    };
    const Case cases[] = {
        {2, {{"A", "a"}, {"B", "b"}}, "Jump;Mod (A);Mod (B);", "Jump;"},
        {1, {{"A", "a"}, {"B", "b"}}, "Jump;Mod (A);Mod (B);", "Jump;Mod (A);"},  // one declared, one taken
        {0, {{"A", "a"}}, "Jump;", "Jump;"},
    };
    for (const Case& one : cases) {
        mods.clear();
        doc.bindlist.clear();
        addRow("Jump", BindingKind::Action);
        addMod("Mod", "mod", one.declared, one.keys);
        addMod("Plain", "plain", 0);
        offer({{"Mod", 0}, {"Plain", 0}});
        doc.modcombo.setIndex(0);
        EXPECT_EQ(bindings(), one.during) << one.declared;
        doc.modcombo.setIndex(1);
        EXPECT_EQ(bindings(), one.after) << one.declared;
    }
}

}  // namespace
}  // namespace gatehouse
