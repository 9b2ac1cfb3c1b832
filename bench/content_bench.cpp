// The marks of a rotation in a large catalog of maps.

#include "content/map_catalog.h"
#include "support/core/fakes.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace gatehouse {
namespace {

void MarkRotation(benchmark::State& state) {
    constexpr int kMaps = 10'000;
    constexpr int kRows = 1000;
    fake::World world;
    world.run.AppDir = "C:\\gh\\";
    std::string lines;
    Rotation rotation;
    for (int i = 0; i < kMaps; ++i) {
        const std::string name = "USERMAP" + std::to_string(i);
        const std::string description = "The Long Yard of User Map " + std::to_string(i);
        lines += name + " " + description + "\r\n";
        if (i % (kMaps / kRows) == 0) rotation.append({std::to_string(rotation.count() + 1), name, description});
    }
    world.files.put("C:\\gh\\usermaps.txt", lines);
    MapCatalog maps(world.ground);
    maps.loadStandardMaps();
    maps.loadUserMaps();
    for (auto _ : state) {
        state.PauseTiming();
        maps.unmarkAll();
        state.ResumeTiming();
        maps.markRotation(rotation);
    }
    const auto all = maps.maptree.rows();
    state.counters["marked"] =
        static_cast<double>(std::count_if(all.begin(), all.end(), [](auto& map) { return map.used; }));
}
BENCHMARK(MarkRotation)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace gatehouse
