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
    for (auto _ : state) benchmark::DoNotOptimize(started.program.config.documents.loadConfig("C:\\gh\\default.ghc"));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(LoadDocument);

/// A hostile document of many megabytes: the time is to grow with the size and no faster.
void LoadLargeDocument(benchmark::State& state) {
    Started started;
    const std::string lines = "maps q3dm1 \"Arena Gate\"\r\nbots Sarge \"3Red\"\r\n" +
                              fake::crlf(std::vector<std::string>(200, "bind W|W \"Moonwalk|kw\"")) +
                              "seta sv_hostname \"" + std::string(2000, ' ') + "\"\r\n";
    std::string text;
    while (text.size() < static_cast<std::size_t>(state.range(0)) << 20) text += lines;
    started.world.files.put("C:\\gh\\large.ghc", text);
    for (auto _ : state) benchmark::DoNotOptimize(started.program.config.documents.loadConfig("C:\\gh\\large.ghc"));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(LoadLargeDocument)->Arg(2)->Arg(20);

void WriteDocument(benchmark::State& state) {
    Started started;
    for (auto _ : state) started.program.config.documents.writeConfig("C:\\gh\\copy.ghc");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(WriteDocument);

}  // namespace
}  // namespace gatehouse
