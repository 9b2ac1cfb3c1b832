#pragma once

#include "benchmark/results.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace gatehouse {

/// What a layout needs to know of the paper and the letters, in pixels.
struct ChartMetrics {
    double width = 0;   ///< of the whole chart
    double letter = 0;  ///< average width of a letter
    double line = 0;    ///< height of a line of text
};

/// One iteration in the chart.
struct ChartDot {
    enum class Kind { Good, Outlier, SlowFirst, NotCounted };
    std::size_t row = 0;
    std::size_t iteration = 0;  ///< its place in the row
    double x = 0, y = 0;        ///< of its middle
    Kind kind = Kind::Good;
};

struct ChartRow {
    double top = 0, bottom = 0;
    std::string label, demo;                            ///< cut to the room there is
    std::optional<double> median;                       ///< x
    std::optional<std::pair<double, double>> interval;  ///< x of the ends of the mean's 95 % interval
    std::size_t firstDot = 0, dots = 0;
};

struct ChartTick {
    double x = 0;
    std::string text;
};

/// Where everything of a chart stands: rows from the top down with a scale of frames a second below them. Iterations
/// without a figure stand apart, at the right.
struct ChartLayout {
    double width = 0, height = 0;
    double left = 0, right = 0;  ///< of the scale
    double apart = 0;            ///< where the column of what doesn't count begins
    double axis = 0;             ///< y of the scale
    double letter = 0, line = 0, radius = 0;
    std::vector<ChartRow> rows;
    std::vector<ChartDot> dots;  ///< by row, then in the order of the iterations
    std::vector<ChartTick> ticks;

    /// The rows between two heights: the first, and the one behind the last.
    std::pair<std::size_t, std::size_t> rowsBetween(double top, double bottom) const;
    /// The dot at a place, if there is one.
    std::optional<std::size_t> dotAt(double x, double y) const;
    /// The dot above or below one, in the next row that has any: the nearest to it.
    std::size_t dotBeside(std::size_t dot, int direction) const;
};

ChartLayout layOut(const std::vector<ResultRow>& rows, const ChartMetrics& metrics);

/// What a dot stands for, in words: document, demo, iteration, figure and state.
std::string dotText(const std::vector<ResultRow>& rows, const ChartDot& dot);

/// The chart as a drawing of its own, dark on light (SVG 1.1).
std::string chartSvg(const std::vector<ResultRow>& rows, const ChartLayout& layout, const std::string& title);

/// What stands below the scale.
inline constexpr const char* kAxisTitle = "frames per second";

}  // namespace gatehouse
