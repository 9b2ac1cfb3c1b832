// The search for mods over 400 MB of archives on the disk.

#include "discovery.h"

#include "mods/mod_discovery.h"
#include "platform/qt/qt_files.h"
#include "platform/qt/zip_archives.h"
#include "support/core/fakes.h"

#include <benchmark/benchmark.h>

namespace gatehouse {

int discoverMods(const SampleGame& sample) {
    fake::World world;
    QtFiles files(sample.root / "cache");
    ZipArchives archives;
    sample.enter(world.run);
    const Ground ground{files, world.dialogs, world.events, world.log, world.store, world.run, world.flags, world.pace};
    ModTable mods;
    ModDiscovery discovery(ground, archives, mods);
    discovery.scanForMods();
    return mods.modCount();
}

namespace {

void DiscoverMods(benchmark::State& state) {
    const SampleGame sample = sampleGame();
    sample.make();
    for (auto _ : state) benchmark::DoNotOptimize(discoverMods(sample));
}
BENCHMARK(DiscoverMods)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace gatehouse
