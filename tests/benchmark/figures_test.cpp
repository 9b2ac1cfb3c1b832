#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "benchmark/bench_data.h"
#include "benchmark/chart.h"

#include <gtest/gtest.h>

#include <cmath>

namespace gatehouse {
namespace {

TEST(Figures, AreSummarisedByTheirMedianMeanSpreadAndInterval) {
    const Summary four = summarise({4, 1, 3, 2});
    EXPECT_TRUE(four.n == 4 && four.median == 2.5 && four.mean == 2.5 && four.minimum == 1 && four.maximum == 4);
    EXPECT_NEAR(*four.deviation, 1.2909944, 1e-6);
    EXPECT_NEAR(*four.halfInterval, 2.0542603, 1e-4);
    const Summary one = summarise({7});
    EXPECT_TRUE(one.median == 7 && !one.deviation && !one.halfInterval);
    const Summary equal = summarise({0, 0, 0});
    EXPECT_TRUE(equal.mean == 0 && equal.deviation == 0.0 && equal.halfInterval == 0.0);
    EXPECT_EQ(summarise({}).n, 0);
    std::vector<double> many(50);
    for (int i = 0; i < 50; ++i) many[static_cast<std::size_t>(i)] = i % 2;
    EXPECT_NEAR(*summarise(many).halfInterval, 0.1435394, 1e-4);
}

TEST(Figures, FarOnesAndASlowFirstOneAreMarked) {
    using Marks = std::vector<bool>;
    EXPECT_EQ(outliers({10, 11, 10, 12, 30}), (Marks{false, false, false, false, true}));
    EXPECT_EQ(outliers({5, 5, 5, 5, 9}), (Marks{false, false, false, false, true})) << "most of them equal";
    EXPECT_EQ(outliers({5, 5, 5}), Marks(3, false));
    EXPECT_EQ(outliers({1, 99}), Marks(2, false));
    EXPECT_TRUE(slowFirst({40, 50, 51, 50}));
    EXPECT_TRUE(slowFirst({40, 50, 50}));
    for (const std::vector<double>& no :
         {std::vector<double>{50, 40, 51}, {49.9, 50, 50}, {40, 50}, {49, 50, 53, 47, 51}, {0, 0, 0}})
        EXPECT_FALSE(slowFirst(no)) << no.front();
}

TEST(Figures, TwoSetsAreToldApartOnlyWithGround) {
    const auto words = [](const std::vector<double>& a, const std::vector<double>& b) {
        return verdictText(compare(a, b), "a", "b", "demo001", a.size(), b.size());
    };
    const struct {
        std::vector<double> a, b;
        const char* text;
    } cases[] = {
        {{100, 101, 99}, {106, 105, 107}, "b is 4 to 8 % faster than a on demo001 (95 % interval, 3 runs each)."},
        {{106, 105, 107}, {100, 101, 99}, "b is 4 to 8 % slower than a on demo001 (95 % interval, 3 runs each)."},
        {{50, 50}, {60, 60, 60}, "b is about 20.0 % faster than a on demo001 (95 % interval, 2 and 3 runs)."},
        {{100, 110, 90}, {108, 118, 98}, "b and a can't be told apart on demo001 with 3 runs each; 11 more might."},
        {{50, 50},
         {50, 50},
         "b and a can't be told apart on demo001 with 2 runs each; more runs will hardly change that."},
        {{99.99, 100.01}, {100.09, 100.11}, "b is up to 0.2 % faster than a on demo001 (95 % interval, 2 runs each)."},
        {{50}, {60, 60}, "b and a can't be compared on demo001: two good runs of each are needed at least."},
        {{0, 50}, {60, 60}, "b and a can't be compared on demo001: there is a figure of 0."},
    };
    for (const auto& one : cases) EXPECT_EQ(words(one.a, one.b), one.text);
}

TEST(Figures, AreWrittenWithUpToFifteenDigits) {
    for (const auto& [value, text] : {std::pair(59.2, "59.2"),
                                      {84.4 / 3, "28.1333333333333"},
                                      {0.0, "0"},
                                      {100.0, "100"},
                                      {20.0 / 3, "6.66666666666667"},
                                      {1e15, "1E+15"}})
        EXPECT_EQ(decimalText(value), text);
    for (const char* text : {"", "x", "1x", "1e999", "nan", "inf", "1 2"}) EXPECT_FALSE(parseDecimal(text)) << text;
    EXPECT_EQ(parseDecimal(" 2.5 "), 2.5);
}

TEST(Timings, AreReadInBothFormsAndFromNothingElse) {
    const struct {
        const char* text;
        double value;
    } found[] = {{"x\n1260 frames, 45.2 seconds: 27.9 fps\n1 frames, 1 seconds: 5 fps", 27.9},
                 {"9 seconds: many fps\n9 seconds: 8 fps", 8},
                 {"player: 1 frames 1 seconds 999 fps\n199 frames 3.4 seconds 59.2 fps 10.0/16.9/74.0/5.2 ms", 59.2},
                 {"199 frames 3.4 seconds 59.2 fps\n1 seconds: 7 x", 7}};
    for (const auto& one : found) {
        const auto timing = findTiming(one.text);
        ASSERT_TRUE(timing) << one.text;
        EXPECT_EQ(timing->value, one.value) << one.text;
    }
    EXPECT_TRUE(findTiming(found[0].text)->frames == 1260 && findTiming(found[0].text)->seconds == 45.2);
    for (const char* none : {"", "seconds: 27.9", "1 seconds: -5 fps", "1 Seconds: 5 fps", "seconds:  5 fps",
                             "59.2 fps", "x frames y seconds z fps", "1 seconds: nan fps"})
        EXPECT_FALSE(findTiming(none)) << none;
}

RunRecord sample() {
    RunRecord record;
    record.version = "00.03.03";
    record.started = "2001-02-03 14:05:06";
    record.wanted = 2;
    record.configurations = {{"a,\"b\".ghc", "// x\r\nr_mode      \"3\"\r\nseta s_khz \"22\"\r\nonly \"1\"\r\n"},
                             {"c.ghc", "r_mode      \"4\"\r\nseta s_khz \"22\"\r\n"}};
    record.demos = {"<demo>"};
    for (int i = 0; i < 5; ++i) {
        Iteration one;
        one.configuration = i / 3;
        one.number = i % 3 + 1;
        one.value = i == 2 ? 0 : 50.1 + i;
        one.outcome = i == 2 ? Outcome::Stale : Outcome::Good;
        one.at = "2001-02-03 14:05:07";
        if (i == 0) one.frames = 199, one.seconds = 3.4;
        record.iterations.push_back(one);
    }
    return record;
}

TEST(Records, ComeBackAsTheyWereAndRefuseWhatIsNone) {
    const RunRecord record = sample();
    const std::string text = recordText(record);
    EXPECT_TRUE(parseRecord(text) == record);
    RunRecord latin = record;
    latin.demos = {"d\xE9mo"};
    EXPECT_EQ(parseRecord(recordText(latin)).demos.front(), "d\xC3\xA9mo");
    const auto with = [&text](const std::string& from, const std::string& to) {
        std::string changed = text;
        return changed.replace(changed.find(from), from.size(), to);
    };
    for (const std::string& bad :
         {std::string(), std::string("[]"), std::string(100'000, '['), text.substr(0, text.size() / 2),
          with("\"format\": 1", "\"format\": 2"), with("\"demo\":0", "\"demo\":1"),
          with("\"value\":50.1", "\"value\":-1"), with("\"value\":50.1", "\"value\":1e999"),
          with("\"good\"", "\"fine\""), with("\"number\":1", "\"number\":1e30"),
          with("\"wanted\": 2", "\"wanted\": 99999999999"), with("\"started\"", "\"begun\"")})
        EXPECT_THROW(parseRecord(bad), RuntimeFailure) << bad.substr(0, 300);
}

TEST(Records, BecomeRowsValuesAndDifferences) {
    const RunRecord record = sample();
    const auto rows = resultRows({record});
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_TRUE(rows[0].summary.n == 2 && rows[0].iterations.size() == 3 && rows[1].summary.n == 2);
    EXPECT_EQ(resultRows({record, record})[2].configurationLabel(), "a,\"b\".ghc (2001-02-03 14:05:06)");
    const std::string csv = csvText(rows);
    EXPECT_NE(csv.find("\r\n,\"a,\"\"b\"\".ghc\",<demo>,1,good,50.1,199,3.4,2001-02-03 14:05:07\r\n"),
              std::string::npos)
        << csv;
    EXPECT_NE(csv.find(",3,stale,,,,"), std::string::npos) << csv;
    const auto differences = differingSettings(rows[0].text, rows[1].text);
    ASSERT_EQ(differences.size(), 2U);
    EXPECT_TRUE(differences[0].variable == "r_mode" && differences[0].first == "3" && differences[0].second == "4");
    EXPECT_TRUE(differences[1].variable == "only" && differences[1].second.empty());
}

TEST(Charts, KeepEveryDotInsideItsRowAndTheScaleRound) {
    const auto rows = resultRows({sample()});
    const ChartMetrics paper{.width = 800, .letter = 7, .line = 16};
    const ChartLayout chart = layOut(rows, paper);
    ASSERT_EQ(chart.dots.size(), 5U);
    for (const ChartDot& dot : chart.dots) {
        const ChartRow& row = chart.rows[dot.row];
        EXPECT_TRUE(dot.y - chart.radius > row.top && dot.y + chart.radius < row.bottom);
        const bool apart = dot.kind == ChartDot::Kind::NotCounted;
        EXPECT_TRUE(apart ? dot.x > chart.apart : dot.x >= chart.left && dot.x <= chart.right);
    }
    EXPECT_LT(chart.dots[0].x, chart.dots[1].x) << "the larger figure stands to the right";
    EXPECT_EQ(chart.dots[2].kind, ChartDot::Kind::NotCounted);
    EXPECT_EQ(chart.dotAt(chart.dots[3].x, chart.dots[3].y), 3U);
    EXPECT_EQ(chart.dots[chart.dotBeside(0, 1)].row, 1U);
    EXPECT_EQ(chart.dotBeside(0, -1), 0U);
    EXPECT_EQ(dotText(rows, chart.dots[1]), "a,\"b\".ghc, <demo>, iteration 2: 51.10 frames per second");
    EXPECT_NE(chartSvg(rows, chart, "x").find("&lt;demo&gt;, iteration 3: stale, not counted"), std::string::npos);
    RunRecord named = sample();
    for (std::size_t letters = 30; letters < 34; ++letters) {
        named.configurations[0].name =
            std::string(letters, 'x') + "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9";
        const std::string label = layOut(resultRows({named}), paper).rows[0].label;
        EXPECT_TRUE(label.ends_with("...") && label[label.size() - 4] != '\xC3') << "half a letter: " << label;
    }
    for (const std::vector<double>& figures : {std::vector<double>{}, {0}, {0, 0}, {50}, {50, 50, 50}, {1e12, 1}}) {
        RunRecord record = sample();
        record.iterations.clear();
        for (const double value : figures) record.iterations.emplace_back().value = value;
        const ChartLayout flat = layOut(resultRows({record}), paper);
        EXPECT_TRUE(flat.ticks.size() >= 2 && flat.ticks.size() <= 42) << flat.ticks.size();
        for (const ChartDot& dot : flat.dots)
            EXPECT_TRUE(std::isfinite(dot.x) && dot.x >= flat.left && dot.x <= flat.right);
    }
}

}  // namespace
}  // namespace gatehouse
