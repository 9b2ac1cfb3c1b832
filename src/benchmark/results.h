#pragma once

#include "benchmark/run_record.h"
#include "benchmark/statistics.h"

#include <cstddef>
#include <string>
#include <vector>

namespace gatehouse {

/// One configuration on one demo in one run: a row of the chart and of the table.
struct ResultRow {
    std::string run;  ///< when the run began, where there is more than one; otherwise empty
    std::string configuration;
    std::string demo;
    std::string text;                   ///< what the game was given of the configuration
    std::vector<Iteration> iterations;  ///< all, in their order
    Summary summary;                    ///< of the good ones
    /// For each iteration whether it is a good one that lies far from the others.
    std::vector<bool> outlier;
    bool slowFirst = false;

    std::vector<double> figures() const;     ///< of the good iterations
    std::string configurationLabel() const;  ///< with its run, where there is more than one
};

/// The rows of records in the order of their configurations, then demos; pairs that never began are left out.
std::vector<ResultRow> resultRows(const std::vector<RunRecord>& records);

/// A variable that two generated texts give different values; one that a text doesn't have is empty there.
struct SettingDifference {
    std::string variable;
    std::string first;
    std::string second;
};

std::vector<SettingDifference> differingSettings(const std::string& first, const std::string& second);

/// All iterations as comma-separated values (RFC 4180) under a header line, UTF-8.
std::string csvText(const std::vector<ResultRow>& rows);
/// The summaries as a table of tab-separated values under a header line, for the clipboard.
std::string tableText(const std::vector<ResultRow>& rows);

/// A figure as a person reads it: two decimal places, "59.20".
std::string figureText(double figure);

}  // namespace gatehouse
