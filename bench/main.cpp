// The benchmarks; or, with `--make DIR` and `--discover DIR`, the making of the sample game in a folder and one search
// for mods in it, for a script that times the whole process.

#include "discovery.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string_view>

namespace {

/// Exit status of the flag; -1 if it is none of ours.
int runFlag(std::string_view flag, const gatehouse::SampleGame& sample) {
    if (flag == "--make") {
        sample.make();
        return 0;
    }
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
