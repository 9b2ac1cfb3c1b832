// Documents loaded and written per second, and the game config of one, on files in memory: what is timed is the
// program's own work.

#include "startup/gatehouse.h"
#include "support/core/fakes.h"

#include <benchmark/benchmark.h>

namespace gatehouse {
namespace {

/// A program that has started, with its default document in place.
struct Started {
    Started() {
        world.files.put("C:\\gh\\aliases.txt", "");
        world.files.put("C:\\gh\\default.ghs", "");
        world.files.put("C:\\gh\\mods\\00-baseq3.ghm",
                        "name Quake 3: Arena\r\ndir baseq3\r\ngtype 0 Free For All\r\ngtype 1 Tournament\r\n"
                        "gtype 3 Teamplay\r\ngtype 4 CTF!\r\n");
        world.files.put("C:\\Q3\\baseq3\\x", "");
        world.settings.values = {{"exepath", "C:\\Q3\\quake3.exe"},
                                 {"basedir", "C:\\Q3\\"},
                                 {"ghcdir", "C:\\gh\\"},
                                 {"runoptions", "0"},
                                 {"ghversion", "00.03.03"}};
        program.StartupDriver();
    }
    fake::World world;
    Gatehouse program{world.services, "C:\\gh"};
};

void LoadDocument(benchmark::State& state) {
    Started started;
    for (auto _ : state) benchmark::DoNotOptimize(started.program.documents.loadConfig("C:\\gh\\default.ghc"));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(LoadDocument);

void WriteDocument(benchmark::State& state) {
    Started started;
    for (auto _ : state) started.program.documents.writeConfig("C:\\gh\\copy.ghc");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(WriteDocument);

}  // namespace
}  // namespace gatehouse
