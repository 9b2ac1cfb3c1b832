#pragma once

#include "base/field.h"
#include "benchmark/apistuff.h"
#include "benchmark/bench_data.h"
#include "benchmark/benchmark_setup.h"
#include "benchmark/run_keeper.h"
#include "benchmark/stale_form.h"
#include "config/filescfg.h"
#include "launch/filesout.h"
#include "platform/ground.h"
#include "platform/services.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace gatehouse {

/// The run of a benchmark: each chosen document on each chosen demo, a number of times. The game is given a config that
/// plays the demo, writes its console to a file and quits; the file is waited for, and its timing is the figure.
class BenchmarkRun {
public:
    /// What it works with.
    struct Parts : Ground {
        const Services& services;
        const TextField& ghcdir;
        const TextField& extracmdline;
        const TextField& q3FilePath;
        TextField& democount;
        const TextField& q3bwait;
        const ListField& q3staleaction;
        BenchmarkSetup& setup;
        ConfigDocuments& documents;
        GameConfig& gameConfig;
        WindowSearch& windows;
        Observable<std::string>& q3status;
    };

    explicit BenchmarkRun(const Parts& parts);

    StaleForm stale;
    RunKeeper keeper;
    /// What is being done, for the line on the tab; empty while no run is on.
    Observable<std::string> progress;
    /// A run was stopped, and what it has disabled waits for the end of another.
    Observable<bool> stopped{false};
    /// The run's tab is to be on show.
    Signal<> tabWanted;
    /// The results of the last run are wanted.
    Signal<> resultsWanted;

    /// Carries a whole run. Fails, with the commands given back and the rows so far kept, for a document that can't be
    /// read, a game that can't be started, a file that can't be written, and a number that is none.
    void run();
    void pause_Click();
    void stop_Click();
    void restoreDesign();

private:
    /// The state of an iteration.
    enum class State { Fresh, Stale, Retry, Stop };
    /// The rows of one configuration and demo.
    struct Pair {
        std::string config;
        std::string demo;
        int configIndex = 0;
        int demoIndex = 0;
    };

    void begin();
    /// Where the unsaved changes of the document went; empty without any.
    std::string keepUnsaved();
    void loadConfig(const std::string& config);
    /// These return false for a run that was stopped.
    bool runAll();
    bool runConfig(const std::string& config, int index);
    bool runPair(const Pair& pair);
    bool iterate(const Pair& pair, int& i, std::string& row, double& sum);
    bool waitForQuiet();

    std::string writeGameConfig(const std::string& demo);
    void deleteOldData();
    void lockControls();
    void startTimer();
    void startGame();
    std::string programLine() const;
    void waitForResults(const Pair& pair, int i);
    void showRemaining();
    std::string progressText(double remaining) const;
    void handleStale(const Pair& pair, int i);
    std::string elsewhere() const;
    double ParseBenchData(Iteration& iteration);

    void finish();
    bool askToView(const std::string& text, const std::string& path, bool withResults);
    void abort();
    void giveBack();
    void btimer_Timer();

    std::string baseFile(const std::string& name) const { return gameDir_ + "baseq3\\" + name; }

    Parts with_;
    std::unique_ptr<Timer> btimer_;
    std::unique_ptr<TextWriter> results_;
    State bstatus_ = State::Fresh;
    std::int16_t WaitMinutes_ = 0;

    // Of the run that is on.
    std::string gameDir_;
    std::vector<std::string> configs_, demos_;
    std::string good_;  ///< the document that was loaded last without a failure
    double start_ = 0;  ///< tick count of the iteration's start
    double shownAt_ = 0, toldAt_ = 0;
    std::string doing_;  ///< configuration, demo and iteration, for the progress line
    int planned_ = 0, done_ = 0;
    double spent_ = 0;  ///< milliseconds of the iterations that are done
};

}  // namespace gatehouse
