#include "help/help_book.h"

#include "support/core/started_program.h"
#include "window/rules/commands.h"

#include <gtest/gtest.h>

#include <set>

namespace gatehouse {
namespace {

class HelpTest : public testing::Test {
protected:
    HelpTest() { program.StartupDriver(); }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    HelpRules& help = program.rules.help;
    ModeRules& modes = program.rules.modes;
    HelpViewer& hwin = program.rules.hwin;
};

TEST_F(HelpTest, TellsOfEveryFieldCommandAndWindowAndLeadsNowhereElse) {
    EXPECT_EQ(help.book.faults(), std::vector<std::string>{});
    std::set<std::string> titles;
    for (int page = 0; page < static_cast<int>(kHelpPages.size()); ++page) titles.insert(help.book.title(page));
    EXPECT_EQ(titles.size(), kHelpPages.size());
    EXPECT_FALSE(titles.contains(""));
    const auto expectTold = [this](std::string_view name) {
        const auto place = help.book.placeOf(name);
        EXPECT_TRUE(place && !place->anchor.empty() && !help.book.paragraphOf(name).empty()) << name;
    };
    for (FieldGroup* group : program.config.doc.groups())
        for (const Field* field : group->fields)
            if (group != &program.config.doc.limits) expectTold(field->spec().name);
    for (const FieldGroup* group :
         {&program.startup.options.options, &program.startup.options.benchmark, &program.rules.botsRules.newbot,
          &program.servers.addressForm.group, &program.servers.playersForm.group, &program.servers.filter.fields,
          &program.servers.search.fields, &program.benchmark.setup.labels, &program.benchmark.results.fields})
        for (const Field* field : group->fields) expectTold(field->spec().name);
    for (const CommandInfo& command : commands()) expectTold(command.name);
    for (const ListInfo& list : lists()) expectTold(list.name);
    for (const DialogInfo& dialog : dialogs()) expectTold(dialog.form);
    for (const Form* form : program.forms()) expectTold(form->name);
    // The names of the first two references stand crossed; what they tell goes by the frame.
    for (int frame = 0; frame < kHelpFrame; ++frame)
        EXPECT_EQ(help.book.title(kReferencePages + frame),
                  "The " + std::string(tabInfo(static_cast<Frame>(frame)).caption) + " tab");
    EXPECT_TRUE(help.book.paragraphOf("maps").starts_with("<b>The Maps tab</b><br/>What is played"));
    for (int page : {-1, 15}) EXPECT_THROW(help.book.html(page), RuntimeFailure);
    EXPECT_THROW(CHelp(help.window).Show("", "", 15), RuntimeFailure);
}

TEST_F(HelpTest, FactsComeFromTheDeclarations) {
    SettingFacts facts(program.config.doc, program.startup.keeper);
    const SettingsDocument& doc = program.config.doc;
    EXPECT_EQ(facts.line(doc.cg_fov), "Game variable cg_fov. 1 to 360, in steps of 5. At first 90.");
    EXPECT_EQ(facts.line(doc.q3colordepth),
              "Game variable r_colorbits. One of: Default, 16-Bit, 32-Bit. At first Default.");
    EXPECT_EQ(facts.line(doc.q3texdetail), "Game variable r_picmip. 0 to 3. At first 2.")
        << "counted from the other end";
    EXPECT_EQ(facts.line(doc.q3syncframe), "Game variable r_finish. At first on.");
    EXPECT_EQ(facts.firstValue(doc.q3gametype), "Free For All");
    EXPECT_EQ(facts.line(program.startup.options.q3overwrite),
              "One of: Confirm overwrite, Always overwrite. At first Confirm overwrite.");
    // What is typed by anybody is no markup.
    program.config.doc.q3gametype.setChoices({{"<b>&", 0}});
    EXPECT_NE(HelpBook({program.rules.helpPages, doc, program.startup.keeper,
                        [&doc] { return std::vector<const FieldGroup*>{&doc.server}; }, [](auto) { return false; }})
                  .html(kReferencePages)
                  .find("One of: &lt;b&gt;&amp;."),
              std::string::npos);
}

TEST_F(HelpTest, ASearchFindsTheParagraphThatHoldsAllWords) {
    const auto hits = help.book.search("TURKEYS  lagged-out");
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].place, (HelpPlace{kReferencePages, "sv_maxping"}));
    EXPECT_EQ(hits[0].heading, "The Server tab > Network");
    EXPECT_EQ(hits[0].text.find("Show it"), std::string::npos);
    ASSERT_FALSE(help.book.search("resolution").empty());
    EXPECT_EQ(help.book.search("resolution")[0].place.anchor, "q3vidres") << "first what begins with the word";
    EXPECT_TRUE(help.book.search("no such word here").empty() && help.book.search(" ").empty());
}

TEST_F(HelpTest, TheOverviewLiesOverTheTabUntilOneIsClicked) {
    modes.sbar_GroupClick(kListen);
    const std::int16_t shown = modes.FrameShown.get();
    program.mhelpover_Click();
    EXPECT_TRUE(modes.overviewShown.get());
    EXPECT_EQ(modes.frameCaption.get(), "Help: Welcome to Gatehouse");
    EXPECT_EQ(modes.FrameShown.get(), shown);
    modes.sbar_ListItemClick(2);  // the tab that is on show below
    EXPECT_FALSE(modes.overviewShown.get());
    EXPECT_EQ(modes.frameCaption.get(), "Server");
    modes.sbar_ListItemClick(1);
    EXPECT_EQ(modes.frameCaption.get(), "Help: Listen");
    EXPECT_EQ(hwin.place.get(), (HelpPlace{2}));
    program.mhelpover_Click();
    modes.sbar_ListItemClick(1);
    EXPECT_EQ(hwin.place.get(), (HelpPlace{2})) << "the page of the tab is back";
    EXPECT_EQ(modes.FrameShown.get(), kHelpFrame);

    modes.sbar_ListItemClick(4);  // Bots
    help.HelpOnTab();
    EXPECT_EQ(modes.frameCaption.get(), "Help on ");
    EXPECT_EQ(hwin.place.get(), (HelpPlace{kReferencePages + kBotsFrame}));
    EXPECT_EQ(modes.FrameShown.get(), kHelpFrame);
    help.hwinbar_ButtonClick("back");
    EXPECT_EQ(hwin.place.get(), (HelpPlace{2}));
    EXPECT_EQ(modes.frameCaption.get(), "Help on ") << "neither back nor forward touches it";
    help.hwinbar_ButtonClick("forward");
    EXPECT_EQ(hwin.place.get(), (HelpPlace{kReferencePages + kBotsFrame}));
    help.hwinbar_ButtonClick("home");
    EXPECT_EQ(modes.frameCaption.get(), "Help: Welcome to Gatehouse");
    EXPECT_FALSE(hwin.canGoForward.get());

    // In a first run it comes at each activation.
    program.run.FirstRun = true;
    modes.sbar_GroupClick(kConnect);
    EXPECT_EQ(modes.frameCaption.get(), "Help: Connect");
    program.mhelpabout_Click();
    program.rules.q3aboutOK_Click();
    EXPECT_TRUE(modes.overviewShown.get());
}

TEST_F(HelpTest, ControlsAreLedToAndTheHelpToThem) {
    std::vector<std::string> wanted;
    help.controlWanted.connect([&wanted](const std::string& name) { wanted.push_back(name); });
    help.commandWanted.connect([&wanted](const std::string& name) { wanted.push_back("run " + name); });
    modes.sbar_GroupClick(kDedicated);
    help.showControl("maptree");
    EXPECT_EQ(modes.TabKey.get(), "maps");
    EXPECT_EQ(program.run.CurrentMode.get(), kDedicated) << "the mode has that tab";
    help.showControl("cg_fov");
    EXPECT_EQ(modes.TabKey.get(), "tweak1");
    EXPECT_EQ(program.run.CurrentMode.get(), kConnect);
    help.showControl("q3loglevel");
    help.showControl("mfilerun");
    help.showControl("newipOK");  // stands in a window that has no command of its own
    help.showControl("nothing");
    const std::vector<std::string> expected{"maptree", "cg_fov", "run mtoolsoptions", "q3loglevel", "mfilerun"};
    EXPECT_EQ(wanted, expected);
    program.flags.setMovable(false);  // as in a run of the benchmark
    help.showControl("maptree");
    EXPECT_EQ(modes.TabKey.get(), "tweak1");
    EXPECT_EQ(wanted, expected);

    help.helpOn("cg_fov");
    EXPECT_TRUE(help.window.shown.get());
    EXPECT_EQ(help.window.viewer.place.get(), (HelpPlace{kReferencePages + kTweak1Frame, "cg_fov"}));
    help.helpOn("nothing");
    EXPECT_EQ(help.window.viewer.place.get().anchor, "cg_fov") << "what was read last";
    help.helpOn("video");
    EXPECT_EQ(help.window.viewer.place.get(), (HelpPlace{kReferencePages + kVideoFrame})) << "a tab by its key";
    EXPECT_EQ(hwin.place.get().page, -1) << "the window has a way of its own";
}

}  // namespace
}  // namespace gatehouse
