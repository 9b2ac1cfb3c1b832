// The benchmarks; or, with `--make DIR`, `--discover DIR` and `--scan DIR`, the making of the sample game in a folder,
// one search for mods and one scan for maps in a folder like it, for a script that times the whole process.

#include "discovery.h"
#include "map_scan.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <string_view>

namespace {

/// The most memory that this process has had at one time, such as "20000 kB".
std::string peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:" && status >> std::ws && std::getline(status, word)) return word;
    return "unknown";
}

int scan(const gatehouse::SampleGame& sample) {
    const auto start = std::chrono::steady_clock::now();
    const std::string found = gatehouse::scanMaps(sample);
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    std::printf("%s: %.1f ms, peak memory %s\n", found.c_str(), wall.count(), peakMemory().c_str());
    return found.empty() ? 1 : 0;
}

/// Exit status of the flag; -1 if it is none of ours.
int runFlag(std::string_view flag, const gatehouse::SampleGame& sample) {
    if (flag == "--make") {
        sample.make();
        return 0;
    }
    if (flag == "--scan") return scan(sample);
    if (flag != "--discover") return -1;
    const int found = gatehouse::discoverMods(sample);
    std::printf("%d mods\n", found);
    return found > 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 3) {
            const int status = runFlag(argv[1], {argv[2]});
            if (status >= 0) return status;
        }
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
