// A record of a benchmark: what is read, written and read again is the same, and what comes of it can be laid out.

#include "benchmark/run_record.h"

#include "base/runtime_failure.h"
#include "benchmark/chart.h"
#include "fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gatehouse;
    try {
        const RunRecord record = parseRecord(fuzz::textOf(data, size));
        fuzz::require(parseRecord(recordText(record)) == record, "the record comes back");
        const auto rows = resultRows({record});
        const ChartLayout chart = layOut(rows, {.width = 500, .letter = 7, .line = 16});
        fuzz::require(chart.dots.size() == record.iterations.size(), "every iteration has its dot");
        static_cast<void>(chartSvg(rows, chart, "fuzz") + csvText(rows) + tableText(rows));
        if (rows.size() > 1) static_cast<void>(compare(rows[0].figures(), rows[1].figures()));
    } catch (const RuntimeFailure& failure) {
        fuzz::require(*failure.what() != '\0', "a refusal tells why");
    }
    return 0;
}
