#pragma once

#include <optional>
#include <string>
#include <vector>

namespace gatehouse {

/// What is said of a set of figures. Without figures all is 0.
struct Summary {
    int n = 0;
    double median = 0;
    double mean = 0;
    double minimum = 0;
    double maximum = 0;
    /// Of the sample (n - 1); needs two figures.
    std::optional<double> deviation;
    /// Half the width of the 95 % interval of the mean (Student's t); needs two figures.
    std::optional<double> halfInterval;
};

Summary summarise(const std::vector<double>& figures);

/// For each figure whether its modified z-score (from the median absolute deviation, after Iglewicz and Hoaglin) is
/// above 3.5. Where more than half of the figures are equal, the mean absolute deviation stands in.
std::vector<bool> outliers(const std::vector<double>& figures);

/// Whether the first figure is lower than all others by more than they differ among themselves, as after a cold disk.
/// Needs three figures.
bool slowFirst(const std::vector<double>& figures);

/// Two sets of figures held against each other.
struct Comparison {
    enum class Verdict {
        TooFew,    ///< a set has fewer than two figures
        NoRatio,   ///< a figure of 0: no percentage can be told
        Same,      ///< the interval holds 1
        Different  ///< it doesn't
    };
    Verdict verdict = Verdict::TooFew;
    /// 95 % interval of the ratio of the second set to the first (Welch's t on the logarithms).
    double low = 1;
    double high = 1;
    /// For `Same`: how many more figures in each set might tell them apart, if the spread stays; nothing where the
    /// difference is too small for that.
    std::optional<int> more;
};

Comparison compare(const std::vector<double>& first, const std::vector<double>& second);

/// The comparison in words with its ground, about the second configuration: "B is 4 to 7 % faster on demo001 ...".
std::string verdictText(const Comparison& comparison, const std::string& first, const std::string& second,
                        const std::string& demo, std::size_t firstCount, std::size_t secondCount);

}  // namespace gatehouse
