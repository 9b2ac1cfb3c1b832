// A console text with a timing: a figure that is found is a number, and stands in the text.

#include "benchmark/bench_data.h"

#include "fuzz.h"

#include <cmath>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gatehouse;
    const std::string text = fuzz::textOf(data, size);
    const auto timing = findTiming(text);
    if (!timing) return 0;
    fuzz::require(std::isfinite(timing->value) && timing->value >= 0, "a figure is a number");
    fuzz::require(!timing->frames || *timing->frames >= 0, "frames are counted from 0");
    fuzz::require(text.find("seconds") != std::string::npos, "a timing tells its seconds");
    return 0;
}
