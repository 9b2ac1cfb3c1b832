#include "benchmark/statistics.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace gatehouse {

namespace {

constexpr double kOutlierScore = 3.5;
/// What makes the median and the mean absolute deviation comparable to a standard deviation.
constexpr double kMedianScale = 1.4826;
constexpr double kMeanScale = 1.2533;
/// A slow first figure is this many deviations of the others below their median, and this share of it.
constexpr double kSlowDeviations = 3;
constexpr double kSlowShare = 0.01;
constexpr int kMostMore = 50;

double meanOf(const std::vector<double>& figures) {
    return std::accumulate(figures.begin(), figures.end(), 0.0) / static_cast<double>(figures.size());
}

double medianOf(std::vector<double> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    if (figures.size() % 2 == 1) return *middle;
    return std::midpoint(*std::max_element(figures.begin(), middle), *middle);
}

/// Of the sample.
double varianceOf(const std::vector<double>& figures) {
    const double mean = meanOf(figures);
    double sum = 0;
    for (const double one : figures) sum += (one - mean) * (one - mean);
    return sum / static_cast<double>(figures.size() - 1);
}

/// A robust stand-in for the standard deviation; 0 if all figures are equal.
double spreadOf(const std::vector<double>& figures) {
    const double median = medianOf(figures);
    std::vector<double> away;
    for (const double one : figures) away.push_back(std::fabs(one - median));
    const double typical = medianOf(away) * kMedianScale;
    return typical > 0 ? typical : meanOf(away) * kMeanScale;
}

/// The 97.5 % quantile of Student's t. Between two rows of the table it lies on their chord, which is the safe side.
double studentT(double degrees) {
    static constexpr std::array kTable = {12.7062, 4.3027, 3.1824, 2.7764, 2.5706, 2.4469, 2.3646, 2.3060,
                                          2.2622,  2.2281, 2.2010, 2.1788, 2.1604, 2.1448, 2.1314, 2.1199,
                                          2.1098,  2.1009, 2.0930, 2.0860, 2.0796, 2.0739, 2.0687, 2.0639,
                                          2.0595,  2.0555, 2.0518, 2.0484, 2.0452, 2.0423};
    const double known = std::max(degrees, 1.0);
    if (known < kTable.size()) {
        const auto row = static_cast<std::size_t>(known);
        return std::lerp(kTable[row - 1], kTable[row], known - static_cast<double>(row));
    }
    // Fisher's expansion around the normal distribution's quantile.
    constexpr double z = 1.959964;
    return z + (z * z * z + z) / (4 * known) + (5 * std::pow(z, 5) + 16 * z * z * z + 3 * z) / (96 * known * known);
}

std::vector<double> logarithms(std::vector<double> figures) {
    for (double& one : figures) one = std::log(one);
    return figures;
}

/// How many more figures in each set would tell this difference, if difference and spread stay.
std::optional<int> moreFor(double difference, double varianceSum, std::size_t n) {
    for (int more = 1; more <= kMostMore; ++more) {
        const double each = static_cast<double>(n) + more;
        if (std::fabs(difference) > studentT(2 * each - 2) * std::sqrt(varianceSum / each)) return more;
    }
    return std::nullopt;
}

std::string runs(std::size_t first, std::size_t second) {
    if (first == second) return std::to_string(first) + " runs each";
    return std::to_string(first) + " and " + std::to_string(second) + " runs";
}

/// A percentage with one decimal place, or none.
std::string percent(double value, bool fine) {
    const long tenths = std::lround(value * 10);
    return fine ? std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) : std::to_string(std::lround(value));
}

/// "4 to 7 %", "about 4.2 %", "up to 0.3 %".
std::string percentRange(double low, double high) {
    const bool fine = high - low < 2 || low < 1;
    const std::string from = percent(low, fine);
    const std::string to = percent(high, fine);
    if (to == "0.0") return "less than 0.1 %";
    if (from == "0.0") return "up to " + to + " %";
    return from == to ? "about " + to + " %" : from + " to " + to + " %";
}

}  // namespace

Summary summarise(const std::vector<double>& figures) {
    Summary summary;
    summary.n = static_cast<int>(figures.size());
    if (figures.empty()) return summary;
    summary.median = medianOf(figures);
    summary.mean = meanOf(figures);
    const auto [least, most] = std::minmax_element(figures.begin(), figures.end());
    summary.minimum = *least;
    summary.maximum = *most;
    if (figures.size() < 2) return summary;
    const auto n = static_cast<double>(figures.size());
    summary.deviation = std::sqrt(varianceOf(figures));
    summary.halfInterval = studentT(n - 1) * *summary.deviation / std::sqrt(n);
    return summary;
}

std::vector<bool> outliers(const std::vector<double>& figures) {
    std::vector<bool> far(figures.size(), false);
    if (figures.size() < 3) return far;
    const double median = medianOf(figures);
    const double spread = spreadOf(figures);
    if (spread <= 0) return far;
    for (std::size_t i = 0; i < figures.size(); ++i) far[i] = std::fabs(figures[i] - median) / spread > kOutlierScore;
    return far;
}

bool slowFirst(const std::vector<double>& figures) {
    if (figures.size() < 3) return false;
    const std::vector<double> others(figures.begin() + 1, figures.end());
    const double median = medianOf(others);
    const double below = median - figures.front();
    return figures.front() < *std::min_element(others.begin(), others.end()) &&
           below > kSlowDeviations * spreadOf(others) && below > kSlowShare * median;
}

Comparison compare(const std::vector<double>& first, const std::vector<double>& second) {
    Comparison result;
    if (first.size() < 2 || second.size() < 2) return result;
    const auto isPositive = [](double one) { return one > 0; };
    if (!std::all_of(first.begin(), first.end(), isPositive) ||
        !std::all_of(second.begin(), second.end(), isPositive)) {
        result.verdict = Comparison::Verdict::NoRatio;
        return result;
    }
    const std::vector<double> a = logarithms(first);
    const std::vector<double> b = logarithms(second);
    const double difference = meanOf(b) - meanOf(a);
    const double ofA = varianceOf(a) / static_cast<double>(a.size());
    const double ofB = varianceOf(b) / static_cast<double>(b.size());
    double half = 0;
    if (ofA + ofB > 0) {
        const double degrees =
            (ofA + ofB) * (ofA + ofB) /
            (ofA * ofA / static_cast<double>(a.size() - 1) + ofB * ofB / static_cast<double>(b.size() - 1));
        half = studentT(degrees) * std::sqrt(ofA + ofB);
    }
    result.low = std::exp(difference - half);
    result.high = std::exp(difference + half);
    const bool told = difference != 0 && std::fabs(difference) > half;
    result.verdict = told ? Comparison::Verdict::Different : Comparison::Verdict::Same;
    if (!told && difference != 0)
        result.more = moreFor(difference, varianceOf(a) + varianceOf(b), std::min(a.size(), b.size()));
    return result;
}

std::string verdictText(const Comparison& comparison, const std::string& first, const std::string& second,
                        const std::string& demo, std::size_t firstCount, std::size_t secondCount) {
    const std::string both = second + " and " + first;
    switch (comparison.verdict) {
        case Comparison::Verdict::TooFew:
            return both + " can't be compared on " + demo + ": two good runs of each are needed at least.";
        case Comparison::Verdict::NoRatio:
            return both + " can't be compared on " + demo + ": there is a figure of 0.";
        case Comparison::Verdict::Same: {
            const std::string apart =
                both + " can't be told apart on " + demo + " with " + runs(firstCount, secondCount);
            if (!comparison.more) return apart + "; more runs will hardly change that.";
            return apart + "; " + std::to_string(*comparison.more) + " more might.";
        }
        case Comparison::Verdict::Different:
            break;
    }
    const bool faster = comparison.low > 1;
    const double low = faster ? comparison.low - 1 : 1 - comparison.high;
    const double high = faster ? comparison.high - 1 : 1 - comparison.low;
    return second + " is " + percentRange(low * 100, high * 100) + (faster ? " faster" : " slower") + " than " + first +
           " on " + demo + " (95 % interval, " + runs(firstCount, secondCount) + ").";
}

}  // namespace gatehouse
