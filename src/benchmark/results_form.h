#pragma once

#include "base/field.h"
#include "base/form.h"
#include "base/table.h"
#include "benchmark/results.h"
#include "platform/ground.h"
#include "platform/services.h"

#include <string>
#include <vector>

namespace gatehouse {

/// The window of results: one run of the benchmark or two, as a chart, a table and a comparison of two configurations.
class ResultsForm {
public:
    ResultsForm(const Ground& ground, const Services& services);

    Form q3results{"q3results"};
    FieldGroup fields{"results"};
    ListField runlist{fields, {.name = "runlist", .caption = "Run:", .hint = "The run to look at, the newest first."}};
    ListField otherrun{fields,
                       {.name = "otherrun", .caption = "Beside it:", .hint = "Another run to hold against this one."}};
    ListField firstconfig{
        fields,
        {.name = "firstconfig", .caption = "Compare:", .hint = "The document that comes first in the comparison."}};
    ListField secondconfig{
        fields, {.name = "secondconfig", .caption = "With:", .hint = "The document that it is held against."}};
    /// What is to be known of the runs on show: how they ended, where unsaved changes went, what can't be read.
    Observable<std::string> about;
    /// The comparison in words, a line for each demo.
    Observable<std::string> verdict;
    Table<ResultRow> figures;
    Table<SettingDifference> differences;
    /// Other rows are on show.
    Signal<> rowsChanged;

    /// Shows the newest run, or what there is to say instead.
    void mtoolsresults_Click();
    void resultsclose_Click() { q3results.set(false); }
    /// The table to the clipboard.
    void copyresults_Click();
    /// Everything on show as a file: CSV, JSON, SVG or PNG, by the ending of its name.
    void saveresults_Click();
    void restoreDesign();

private:
    void listRuns();
    void showRuns();
    void compareChosen();
    /// The record of an entry of the lists; nothing, and a line in `problem`, for one that can't be read.
    void take(const ListField& list, int offset, std::vector<RunRecord>& records, std::string& problem) const;
    /// The configurations on show, each once, with the rows of its demos.
    std::vector<const ResultRow*> rowsOf(const std::string& label) const;
    std::string fileText(const std::string& path) const;

    Ground with_;
    const Services& services_;
    std::vector<std::string> paths_;  ///< of the records, as the list has them
    std::vector<RunRecord> records_;  ///< on show
    std::vector<ResultRow> rows_;
    bool filling_ = false;
    Connections follow_;
};

}  // namespace gatehouse
