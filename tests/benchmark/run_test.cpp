#include "support/core/started_program.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

/// A started program with two documents on its Benchmark tab, and a game that answers at each start.
class BenchmarkRunTest : public testing::Test {
protected:
    BenchmarkRunTest() {
        world.settings.values.insert({{"loglevel", "2"}, {"democount", "3"}, {"benchwait", "2"}});
        world.dialogs.watched = false;
        program.StartupDriver();
        world.files.put("C:\\gh\\fast.ghc", "seta r_picmip 0\r\nbase cfgtype 0\r\n");
        world.files.put("C:\\gh\\slow.ghc", "seta com_maxfps 85\r\n");
        world.files.put("C:\\Q3\\baseq3\\demos\\x.DM3", "");
        for (const char* other : {"x.dm3.bak", "later.dm_68", "LATER.dm_71", "demo001.dm_68", "a;quit.dm3"})
            world.files.put(std::string("C:\\Q3\\baseq3\\demos\\") + other, "");
        program.rules.modes.sbar_GroupClick(kBenchmark);
        world.processes.onStart = [this] { start(); };
    }

    /// Each start takes the next answer: a console text, or nothing for a game that hangs.
    void start() {
        configs.push_back(world.files.content("C:\\Q3\\baseq3\\gatehouse.cfg"));
        const std::string answer = answers.at(std::min(next++, answers.size() - 1));
        if (!answer.empty()) world.files.put(kData, answer);
    }
    void choose(const std::vector<std::string>& documents, const std::vector<std::string>& demos) {
        const auto pick = [](BenchmarkList& list, const std::vector<std::string>& names) {
            list.selectWhere(
                [&](int row) { return std::find(names.begin(), names.end(), list.at(row).name) != names.end(); });
        };
        pick(room.setup.configlist, documents);
        pick(room.setup.demolist, demos);
    }
    void play() {
        for (const Answer answer : ends) world.dialogs.answer("Benchmarks Complete", answer);
        program.mfilerun_Click();
    }
    std::string results() const { return world.files.content("C:\\Q3\\baseq3\\bresults.txt"); }
    bool logged(const std::string& line) const {
        return program.startup.q3.q3console.get().find("\n" + line) != std::string::npos ||
               world.files.content(program.startup.log.LogPath()).find("\n" + line + "\r\n") != std::string::npos;
    }
    std::vector<Outcome> outcomes() const {
        std::vector<Outcome> all;
        for (const Iteration& one : room.run.keeper.record().iterations) all.push_back(one.outcome);
        return all;
    }

    static constexpr const char* kData = "C:\\Q3\\baseq3\\bdata.txt";
    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    BenchmarkRoom& room = program.benchmark;
    std::vector<std::string> answers{"1260 frames, 45.2 seconds: 27.9 fps\n"};
    std::vector<Answer> ends{Answer::No};
    std::vector<std::string> configs;
    std::size_t next = 0;
};

TEST_F(BenchmarkRunTest, ListsHoldWhatCanBeRunAndARunNeedsAChoiceFromEachAndACount) {
    std::vector<std::string> demos;
    for (const BenchmarkEntry& row : room.setup.demolist.rows()) demos.push_back(row.name);
    EXPECT_EQ(demos, (std::vector<std::string>{"demo001", "demo002", "x.DM3", "later"}));
    EXPECT_EQ(room.setup.demolabel.text(), "Demos in c:\\q3\\baseq3\\demos");
    EXPECT_EQ(room.setup.cfglabel.text(), "Configs in c:\\gh");
    EXPECT_FALSE(program.flags.mfilerun.get());
    choose({"fast.ghc"}, {"demo001"});
    EXPECT_TRUE(program.flags.mfilerun.get() && program.flags.btbar[1].get() && !program.flags.btbar[3].get());
    for (const char* count : {"0", "-1", "many", ""}) {
        program.startup.options.democount.setText(count);
        EXPECT_FALSE(program.flags.mfilerun.get()) << count;
        program.startup.options.democount.setText("3");
    }
    EXPECT_EQ(world.settings.values["democount"], "3");
    choose({}, {"demo001"});
    EXPECT_FALSE(program.flags.mfilerun.get());
    world.files.put("C:\\Q3\\baseq3\\bresults.txt", "an earlier run");
    world.dialogs.answer("Error", Answer::Ok);
    program.mfilerun_Click();
    EXPECT_EQ(results(), "an earlier run") << "a run of nothing takes nothing away";
}

TEST_F(BenchmarkRunTest, EachPairIsPlayedAndWrittenAndTheDocumentInUseIsKept) {
    const std::string before = program.run.CurrentConfigPath;
    program.config.doc.q3hostname.setText("Unsaved");
    world.settings.values["lastcfg"] = before;
    answers = {"a, 1 seconds: no figure \n1260 frames, 45.2 seconds: 27.9 fps\n",
               "199 frames 3.4 seconds 59.2 fps 10.0/16.9 ms\n", "9 frames, 1 seconds: 28 fps\n"};
    choose({"fast.ghc", "slow.ghc"}, {"demo001", "x.DM3"});
    world.files.put(kData, "an old one, 1 seconds: 99 fps");
    bool locked = false;
    world.events.pending.push_back([&] {
        locked = !program.flags.sbar.get() && !program.flags.mfilerun.get() && !program.flags.mfileopen.get() &&
                 !room.setup.choosing.get() && program.flags.btbar[3].get() && !room.run.progress.get().empty();
    });
    answers.insert(answers.begin(), "");  // the first one comes late
    world.events.pending.push_back([&] { world.files.put(kData, answers[1]); });
    next = 0;
    world.processes.onStart = [this] { start(); };
    play();
    EXPECT_TRUE(locked);
    EXPECT_EQ(results(), fake::crlf({"fast.ghc,demo001,27.9,27.9,59.2,38.3333333333333", "fast.ghc,x.DM3,28,28,28,28",
                                     "slow.ghc,demo001,28,28,28,28", "slow.ghc,x.DM3,28,28,28,28"}));
    EXPECT_EQ(world.processes.started.front(), "C:\\Q3\\|quake3.exe  +exec gatehouse.cfg");
    EXPECT_TRUE(configs.front().starts_with("\r\n\r\n// GATEHOUSE.CFG\r\n"));
    EXPECT_TRUE(configs.front().ends_with(
        "\r\n\r\nset nextdemo \"condump bdata.txt; quit\"\r\ntimedemo 1\r\ndemo demo001\r\n"));
    EXPECT_EQ(program.run.CurrentMode.get(), kBenchmark) << "the documents' own modes are left alone";
    EXPECT_EQ(program.run.CurrentConfigPath, "C:\\gh\\slow.ghc");
    EXPECT_EQ(world.settings.values["lastcfg"], before);
    EXPECT_NE(world.files.content("C:\\gh\\before-benchmark.ghc").find("Unsaved"), std::string::npos);
    EXPECT_TRUE(program.flags.sbar.get() && program.flags.mfilerun.get() && !program.run.ConfigChanged);
    const RunRecord kept = parseRecord(world.files.content(room.run.keeper.path()));
    EXPECT_TRUE(kept == room.run.keeper.record() && kept.end == RunEnd::Finished && kept.iterations.size() == 12);
    EXPECT_EQ(kept.iterations[2].frames, 199);
    // A later save starts from the document whose values these are.
    world.dialogs.choose(std::nullopt);
    program.mfilesave_Click();
    EXPECT_EQ(world.dialogs.fileDialogs.back().fileName, "C:\\gh\\slow.ghc");
}

TEST_F(BenchmarkRunTest, AStaleGameIsClosedAndTheIterationTriedAgainOrGivenUp) {
    answers = {"1 frames, 1 seconds: 10 fps", "", "1 frames, 1 seconds: 10 fps \n", "", "no timing\n"};
    answers[0] += " \n";
    world.windows.windows = {{7, "QUAKE 3 in a browser"}, {9, "The engine", true}};
    world.windows.onClose = [this] { world.windows.windows.pop_back(); };
    world.dialogs.answer("Benchmarks Complete", Answer::No);
    choose({"fast.ghc"}, {"demo001"});
    program.startup.options.q3staleaction.setIndex(0);
    // The first dialog answers itself: Retry. The second one is answered: Next.
    int asked = 0;
    room.run.stale.waitwindow.changed.connect([&] {
        if (room.run.stale.waitwindow.get() && ++asked == 2)
            world.events.pending.push_back([&] { room.run.stale.wnext_Click(); });
    });
    program.mfilerun_Click();
    EXPECT_EQ(results(), fake::crlf({"fast.ghc,demo001,10,0,10,0,6.66666666666667"}));
    EXPECT_EQ(outcomes(), (std::vector{Outcome::Good, Outcome::Retried, Outcome::Good, Outcome::Stale}));
    EXPECT_EQ(world.windows.closed.front(), 9U) << "a game of ours before what looks like one";
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(room.run.stale.msg.get().substr(0, 66),
              "Quake 3 has not produced any results after 120 seconds. This itera");
    for (const char* line :
         {"->demo001,fast.ghc iteration 2: Stale.", "->Process was killed ok.", "->Trying same iteration again.",
          "->Iteration 1 of 3 completed.", "->Forcing next iteration."})
        EXPECT_TRUE(logged(line)) << line;
}

TEST_F(BenchmarkRunTest, AGameThatWritesElsewhereIsToldHowToWriteHere) {
    answers = {""};
    program.startup.options.democount.setText("1");
    program.startup.options.q3staleaction.setIndex(1);
    world.processes.variables = {"HOME=/home/me"};
    world.files.put("/home/me/.local/share/ioquake3/baseq3/bdata.txt", "1 seconds: 5 fps");
    choose({"fast.ghc"}, {"demo001"});
    for (const double age : {0.0, 1e9}) {
        world.files.age = age;
        play();
        const bool told = room.run.stale.msg.get().find("+set fs_homepath \"/Q3\"") != std::string::npos;
        EXPECT_EQ(told, age == 0) << "only what is fresh: " << room.run.stale.msg.get();
    }
    EXPECT_EQ(results(), fake::crlf({"fast.ghc,demo001,0,0"}));
}

TEST_F(BenchmarkRunTest, AFileThatCannotBeWrittenOrDeletedEndsTheRunWithABox) {
    choose({"fast.ghc"}, {"demo001"});
    for (const char* file : {"bresults.txt", "gatehouse.cfg", "bdata.txt"}) {
        world.files.put(kData, "of before");
        world.files.denied = {std::string("c:\\q3\\baseq3\\") + file};
        world.dialogs.answer("Error", Answer::Ok);
        program.mfilerun_Click();
        EXPECT_TRUE(program.flags.mfilerun.get() && program.flags.sbar.get() && !program.run.benchmarking.get()) << file;
        EXPECT_NE(world.dialogs.shown.back().text.find(file), std::string::npos) << world.dialogs.shown.back().text;
        EXPECT_TRUE(configs.empty()) << "no game was started";
    }
}

TEST_F(BenchmarkRunTest, AGameThatDoesNotGoIsEndedByForceAndStopWinsOverTheWait) {
    world.windows.windows = {{9, "Quake 3: Arena"}};
    WindowSearch& search = room.windows;
    EXPECT_FALSE(search.KillWindow("quake 3", [] { return false; }));
    EXPECT_TRUE(logged("KILL: Process not terminated. Continuing anyway."));
    world.windows.terminates = true;
    EXPECT_TRUE(search.KillWindow("quake 3", [] { return false; }));
    EXPECT_TRUE(logged("KILL: Process terminated successfully."));
    const double before = world.clock.ticks;
    EXPECT_FALSE(search.KillWindow("quake 3", [] { return true; }));
    EXPECT_LT(world.clock.ticks - before, 1000);
    EXPECT_FALSE(search.KillWindow("no such", [] { return false; }));
}

TEST_F(BenchmarkRunTest, StopEndsTheRunAndLeavesWhatItHasLockedToTheNextOne) {
    choose({"fast.ghc"}, {"demo001", "demo002"});
    answers = {"1 seconds: 5 fps", "1 seconds: 5 fps", "1 seconds: 5 fps", ""};
    world.dialogs.answer("Benchmarks", Answer::Ok);
    world.dialogs.answer("Stop", Answer::Ok);
    world.processes.onStart = [this] {
        start();
        if (next == 4) world.events.pending = {[this] { room.run.pause_Click(); }, [this] { room.run.stop_Click(); }};
    };
    program.mfilerun_Click();
    EXPECT_EQ(results(), fake::crlf({"fast.ghc,demo001,5,5,5,5"}));
    EXPECT_EQ(room.run.keeper.record().end, RunEnd::Stopped);
    EXPECT_EQ(outcomes().back(), Outcome::Stopped);
    EXPECT_TRUE(!program.flags.sbar.get() && !program.flags.q3bar1.get() && room.run.stopped.get());
    EXPECT_TRUE(program.flags.btbar[1].get() && program.flags.mfilerun.get() && room.setup.choosing.get());
    answers = {"1 seconds: 6 fps"};
    world.processes.onStart = [this] { start(); };
    play();
    EXPECT_TRUE(program.flags.sbar.get() && program.flags.q3bar1.get() && !room.run.stopped.get());
}

TEST_F(BenchmarkRunTest, AFailureGivesTheCommandsBackAndKeepsTheRows) {
    choose({"fast.ghc", "slow.ghc"}, {"demo001"});
    answers = {"1 seconds: 5 fps"};
    world.files.put("C:\\gh\\slow.ghc", "seta dmflags 5\r\nbase cfgtype 99\r\nsrvr bad\r\n");
    world.files.denied.insert("c:\\gh\\slow.ghc");
    world.dialogs.answer("Error", Answer::Ok);
    program.mfilerun_Click();
    EXPECT_EQ(results(), fake::crlf({"fast.ghc,demo001,5,5,5,5"}));
    EXPECT_EQ(room.run.keeper.record().end, RunEnd::Failed);
    EXPECT_EQ(program.run.CurrentConfigPath, "C:\\gh\\fast.ghc") << "half a document has no name";
    EXPECT_TRUE(program.flags.sbar.get() && program.flags.mfilerun.get() && !program.run.benchmarking.get());
    // A record that can't be written costs no run.
    world.files.denied = {lower(room.run.keeper.path())};
    choose({"fast.ghc"}, {"demo001"});
    world.viewers.failToStart = true;
    ends = {Answer::Yes};
    world.dialogs.answer("Benchmarks Complete", Answer::Yes);
    world.dialogs.answer("Benchmarks Complete", Answer::Ok);
    program.mfilerun_Click();
    EXPECT_EQ(results(), fake::crlf({"fast.ghc,demo001,5,5,5,5"}));
}

TEST_F(BenchmarkRunTest, AFileThatIsMadeEmptyCountsOnceItIsReadOrHasComeToRest) {
    DataWatch watch(world.files, world.clock, kData);
    EXPECT_FALSE(watch.there());
    world.files.put(kData, "");
    EXPECT_FALSE(watch.there());
    world.clock.ticks += 249;
    world.files.put(kData, "1 seconds: 5");
    EXPECT_FALSE(watch.there());
    world.files.put(kData, "1 seconds: 5 fps");
    EXPECT_TRUE(watch.there());
    world.files.put(kData, "nothing");
    EXPECT_FALSE(watch.there());
    world.clock.ticks += 250;
    EXPECT_TRUE(watch.there());
}

TEST_F(BenchmarkRunTest, ResultsShowTheNewestRunsAndCompareTwoDocuments) {
    choose({"fast.ghc", "slow.ghc"}, {"demo001"});
    answers = {"1 seconds: 50 fps", "1 seconds: 51 fps", "1 seconds: 49 fps",
               "1 seconds: 40 fps", "1 seconds: 41 fps", "1 seconds: 42 fps"};
    ends = {Answer::Other};
    play();
    ResultsForm& form = room.results;
    EXPECT_TRUE(form.q3results.get());
    EXPECT_EQ(form.runlist.text(), "2001-02-03 14:05:06");
    EXPECT_EQ(form.figures.count(), 2);
    EXPECT_NE(form.verdict.get().find("slow.ghc is 14 to 22 % slower than fast.ghc on demo001"), std::string::npos)
        << form.verdict.get();
    ASSERT_FALSE(form.differences.empty());
    EXPECT_EQ(form.differences.at(1).variable, "com_maxfps");
    world.files.put("C:\\gh\\benchmarks\\20010203140507.json", "{\"format\": 1");
    form.mtoolsresults_Click();
    EXPECT_NE(form.about.get().find("20010203140507.json can't be read"), std::string::npos);
    form.otherrun.setIndex(2);
    EXPECT_EQ(form.figures.count(), 2) << "the other one is still there";
    for (const char* file : {"C:\\r.csv", "C:\\r.json", "C:\\r.svg", "C:\\r.png"}) {
        world.dialogs.choose(file);
        form.saveresults_Click();
        EXPECT_TRUE(world.files.fileExists(file)) << file;
    }
    EXPECT_TRUE(parseRecord(world.files.content("C:\\r.json")) == room.run.keeper.record());
}

}  // namespace
}  // namespace gatehouse
