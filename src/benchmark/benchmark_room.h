#pragma once

#include "base/room.h"
#include "benchmark/apistuff.h"
#include "benchmark/benchmark_run.h"
#include "benchmark/benchmark_setup.h"
#include "benchmark/results_form.h"
#include "platform/services.h"
#include "startup/options.h"

namespace gatehouse {

/// Timed runs of the game over documents and demos, and what came of them.
class BenchmarkRoom : public Room {
public:
    /// What a run is made from.
    struct Sources {
        OptionsForm& options;
        ConfigDocuments& documents;
        GameConfig& gameConfig;
        Observable<std::string>& q3status;
    };

    BenchmarkRoom(const Ground& ground, const Services& services, const Sources& from)
        : windows(services.windows, services.events, services.clock, ground.log),
          setup(ground, from.options.ghcdir, from.options.democount),
          run({ground, services, from.options.ghcdir, from.options.extracmdline, from.options.q3FilePath,
               from.options.democount, from.options.q3bwait, from.options.q3staleaction, setup, from.documents,
               from.gameConfig, windows, from.q3status}),
          results(ground, services) {
        has(run.stale.waitwindow);
        has(results.q3results);
        restores(setup, run, results);
        follow_.on(run.resultsWanted, [this] { results.mtoolsresults_Click(); });
    }

    WindowSearch windows;
    BenchmarkSetup setup;
    BenchmarkRun run;
    ResultsForm results;

private:
    Connections follow_;
};

}  // namespace gatehouse
