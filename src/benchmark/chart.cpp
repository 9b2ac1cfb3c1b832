#include "benchmark/chart.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace gatehouse {

namespace {

constexpr double kLinesInRow = 2.6;
constexpr double kLabelShare = 0.3;  // of the width, at the most
constexpr double kApartLetters = 12;
constexpr double kTickLetters = 10;  // room for one tick of the scale
/// Dots with near figures are told apart by their heights: so many of them before they begin anew.
constexpr std::size_t kHeights = 5;

/// Round numbers around what is to be shown.
struct Scale {
    double from = 0, to = 1, step = 1;
};

double roundStep(double wanted) {
    const double power = std::pow(10, std::floor(std::log10(wanted)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (power * factor >= wanted) return power * factor;
    return power * 10;
}

Scale scaleOf(const std::vector<ResultRow>& rows, double ticks) {
    double least = 0;
    double most = 0;
    bool any = false;
    const auto take = [&](double value) {
        least = any ? std::min(least, value) : value;
        most = any ? std::max(most, value) : value;
        any = true;
    };
    for (const ResultRow& row : rows) {
        for (const double figure : row.figures()) take(figure);
        if (!row.summary.halfInterval) continue;
        take(std::max(0.0, row.summary.mean - *row.summary.halfInterval));
        take(row.summary.mean + *row.summary.halfInterval);
    }
    if (!any) return {};
    // A single figure gets some room around it.
    if (most - least < most * 1e-6 || most == 0) {
        const double room = std::max(most * 0.05, 0.5);
        least = std::max(0.0, least - room);
        most += room;
    }
    const double step = roundStep((most - least) / std::max(ticks, 1.0));
    return {std::max(0.0, std::floor(least / step) * step), std::ceil(most / step) * step, step};
}

/// Records are UTF-8: no letter is cut in two.
std::string cutTo(const std::string& text, std::size_t letters) {
    if (text.size() <= letters) return text;
    std::size_t end = letters > 3 ? letters - 3 : 0;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return text.substr(0, end) + "...";
}

ChartDot::Kind kindOf(const ResultRow& row, std::size_t iteration) {
    if (row.iterations[iteration].outcome != Outcome::Good) return ChartDot::Kind::NotCounted;
    if (iteration == 0 && row.slowFirst) return ChartDot::Kind::SlowFirst;
    return row.outlier[iteration] ? ChartDot::Kind::Outlier : ChartDot::Kind::Good;
}

/// Lays out one chart.
class Layer {
public:
    Layer(const std::vector<ResultRow>& rows, const ChartMetrics& metrics) : rows_(rows), metrics_(metrics) {}

    ChartLayout make() {
        chart_.width = metrics_.width;
        chart_.letter = metrics_.letter;
        chart_.line = metrics_.line;
        chart_.radius = metrics_.line * 0.22;
        placeColumns();
        const double room = std::max(chart_.right - chart_.left, 1.0);
        scale_ = scaleOf(rows_, std::clamp(room / (kTickLetters * metrics_.letter), 1.0, 10.0));
        double top = metrics_.line * 0.5;
        for (std::size_t i = 0; i < rows_.size(); ++i, top += metrics_.line * kLinesInRow) placeRow(i, top);
        chart_.axis = top + metrics_.line * 0.3;
        placeTicks();
        chart_.height = chart_.axis + metrics_.line * 2.8;
        return std::move(chart_);
    }

private:
    void placeColumns() {
        std::size_t longest = 8;
        bool lost = false;
        for (const ResultRow& row : rows_) {
            longest = std::max({longest, row.configurationLabel().size(), row.demo.size()});
            for (const Iteration& one : row.iterations) lost |= one.outcome != Outcome::Good;
        }
        labelLetters_ = std::min(longest + 1, static_cast<std::size_t>(metrics_.width * kLabelShare / metrics_.letter));
        const double margin = metrics_.letter * 4;
        chart_.left = static_cast<double>(labelLetters_) * metrics_.letter + margin;
        chart_.apart = metrics_.width - (lost ? kApartLetters * metrics_.letter : 0);
        chart_.right = std::max(chart_.left + 1, chart_.apart - margin);
    }

    double xOf(double value) const {
        const double share = (value - scale_.from) / (scale_.to - scale_.from);
        return chart_.left + std::clamp(share, 0.0, 1.0) * (chart_.right - chart_.left);
    }

    void placeRow(std::size_t index, double top) {
        const ResultRow& from = rows_[index];
        ChartRow row;
        row.top = top;
        row.bottom = top + metrics_.line * kLinesInRow;
        row.label = cutTo(from.configurationLabel(), labelLetters_);
        row.demo = cutTo(from.demo, labelLetters_);
        if (from.summary.n > 0) row.median = xOf(from.summary.median);
        if (from.summary.halfInterval)
            row.interval = {xOf(from.summary.mean - *from.summary.halfInterval),
                            xOf(from.summary.mean + *from.summary.halfInterval)};
        row.firstDot = chart_.dots.size();
        row.dots = from.iterations.size();
        placeDots(index, row);
        chart_.rows.push_back(std::move(row));
    }

    void placeDots(std::size_t index, const ChartRow& row) {
        const ResultRow& from = rows_[index];
        const double middle = (row.top + row.bottom) / 2;
        const double room = chart_.width - chart_.apart - 2 * metrics_.letter;
        const auto most = static_cast<std::size_t>(std::max(1.0, room / (3 * chart_.radius)));
        std::size_t lost = 0;
        for (std::size_t i = 0; i < from.iterations.size(); ++i) {
            ChartDot dot{.row = index, .iteration = i, .x = 0, .y = 0, .kind = kindOf(from, i)};
            if (dot.kind == ChartDot::Kind::NotCounted) {
                dot.x = chart_.apart + metrics_.letter + static_cast<double>(lost++ % most) * 3 * chart_.radius;
                dot.y = middle;
            } else {
                const double height =
                    from.iterations.size() > 1 ? static_cast<double>(i % kHeights) / (kHeights - 1) - 0.5 : 0;
                dot.x = xOf(from.iterations[i].value);
                dot.y = middle + height * metrics_.line * 1.5;
            }
            chart_.dots.push_back(dot);
        }
    }

    void placeTicks() {
        const int count = static_cast<int>(std::lround((scale_.to - scale_.from) / scale_.step));
        for (int i = 0; i <= std::min(count, 40); ++i) {
            // Counted from the step, so that a sum of tenths doesn't show its last digits.
            const double value = (std::round(scale_.from / scale_.step) + i) * scale_.step;
            chart_.ticks.push_back({xOf(value), decimalText(std::round(value * 1e6) / 1e6)});
        }
    }

    const std::vector<ResultRow>& rows_;
    ChartMetrics metrics_;
    ChartLayout chart_;
    Scale scale_;
    std::size_t labelLetters_ = 0;
};

/// A text inside of the drawing: nothing in it is markup, and every byte is valid.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : oneLine(text)) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::string number(double value) { return decimalText(std::round(value * 100) / 100); }

std::string line(double x1, double y1, double x2, double y2, const char* style) {
    return "<line x1=\"" + number(x1) + "\" y1=\"" + number(y1) + "\" x2=\"" + number(x2) + "\" y2=\"" + number(y2) +
           "\" " + style + "/>\n";
}

std::string textAt(double x, double y, const std::string& text, const char* style) {
    return "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" " + style + ">" + escaped(text) + "</text>\n";
}

const char* dotStyle(ChartDot::Kind kind) {
    switch (kind) {
        case ChartDot::Kind::Outlier:
            return "fill=\"#fff\" stroke=\"#b3261e\" stroke-width=\"2\"";
        case ChartDot::Kind::SlowFirst:
            return "fill=\"#fff\" stroke=\"#1f5fa8\" stroke-width=\"2\" stroke-dasharray=\"2 2\"";
        case ChartDot::Kind::NotCounted:
            return "fill=\"none\" stroke=\"#777\"";
        case ChartDot::Kind::Good:
            break;
    }
    return "fill=\"#1f5fa8\" fill-opacity=\"0.7\"";
}

}  // namespace

std::pair<std::size_t, std::size_t> ChartLayout::rowsBetween(double top, double bottom) const {
    const auto above = [](const ChartRow& row, double y) { return row.bottom < y; };
    const auto below = [](double y, const ChartRow& row) { return y < row.top; };
    return {static_cast<std::size_t>(std::lower_bound(rows.begin(), rows.end(), top, above) - rows.begin()),
            static_cast<std::size_t>(std::upper_bound(rows.begin(), rows.end(), bottom, below) - rows.begin())};
}

std::optional<std::size_t> ChartLayout::dotAt(double x, double y) const {
    std::optional<std::size_t> nearest;
    double best = radius * 2;
    const auto [first, end] = rowsBetween(y, y);
    for (std::size_t row = first; row < end; ++row)
        for (std::size_t i = rows[row].firstDot; i < rows[row].firstDot + rows[row].dots; ++i) {
            const double away = std::hypot(dots[i].x - x, dots[i].y - y);
            if (away > best) continue;
            best = away;
            nearest = i;
        }
    return nearest;
}

std::size_t ChartLayout::dotBeside(std::size_t dot, int direction) const {
    for (std::size_t row = dots[dot].row; direction < 0 ? row-- > 0 : ++row < rows.size();) {
        const ChartRow& to = rows[row];
        if (to.dots == 0) continue;
        const auto begin = dots.begin() + static_cast<std::ptrdiff_t>(to.firstDot);
        const auto nearest = std::min_element(
            begin, begin + static_cast<std::ptrdiff_t>(to.dots),
            [&](auto& a, auto& b) { return std::fabs(a.x - dots[dot].x) < std::fabs(b.x - dots[dot].x); });
        return static_cast<std::size_t>(nearest - dots.begin());
    }
    return dot;
}

ChartLayout layOut(const std::vector<ResultRow>& rows, const ChartMetrics& metrics) {
    return Layer(rows, metrics).make();
}

std::string dotText(const std::vector<ResultRow>& rows, const ChartDot& dot) {
    const ResultRow& row = rows[dot.row];
    const Iteration& one = row.iterations[dot.iteration];
    std::string text = row.configurationLabel() + ", " + row.demo + ", iteration " + std::to_string(one.number) + ": ";
    if (one.outcome != Outcome::Good) return text + std::string(outcomeName(one.outcome)) + ", not counted";
    text += figureText(one.value) + " " + kAxisTitle;
    if (dot.kind == ChartDot::Kind::Outlier) text += ", far from the others";
    if (dot.kind == ChartDot::Kind::SlowFirst) text += ", slower than the others: perhaps a cold disk";
    return text;
}

std::string chartSvg(const std::vector<ResultRow>& rows, const ChartLayout& chart, const std::string& title) {
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + number(chart.width) + " " +
                      number(chart.height) + "\" font-family=\"DejaVu Sans, sans-serif\" font-size=\"" +
                      number(chart.line * 0.72) + "\">\n<title>" + escaped(title) + "</title>\n" +
                      "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
    for (const ChartTick& tick : chart.ticks) {
        svg += line(tick.x, 0, tick.x, chart.axis, "stroke=\"#ddd\"");
        svg += textAt(tick.x, chart.axis + chart.line, tick.text, "text-anchor=\"middle\"");
    }
    svg += line(chart.left, chart.axis, chart.right, chart.axis, "stroke=\"#333\"");
    svg += textAt((chart.left + chart.right) / 2, chart.axis + chart.line * 2.1, kAxisTitle, "text-anchor=\"middle\"");
    for (const ChartRow& row : chart.rows) {
        const double middle = (row.top + row.bottom) / 2;
        svg += textAt(chart.letter, middle - chart.line * 0.15, row.label, "fill=\"#000\"");
        svg += textAt(chart.letter, middle + chart.line * 0.8, row.demo, "fill=\"#555\"");
        if (row.interval)
            svg += line(row.interval->first, middle, row.interval->second, middle,
                        "stroke=\"#1f5fa8\" stroke-opacity=\"0.35\" stroke-width=\"8\"");
        if (row.median)
            svg += line(*row.median, middle - chart.line, *row.median, middle + chart.line,
                        "stroke=\"#000\" stroke-width=\"2\"");
    }
    for (const ChartDot& dot : chart.dots)
        svg += "<circle cx=\"" + number(dot.x) + "\" cy=\"" + number(dot.y) + "\" r=\"" + number(chart.radius) + "\" " +
               dotStyle(dot.kind) + "><title>" + escaped(dotText(rows, dot)) + "</title></circle>\n";
    return svg + "</svg>\n";
}

}  // namespace gatehouse
