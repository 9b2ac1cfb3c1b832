#include "benchmark/results_form.h"

#include "base/log.h"
#include "base/run_state.h"
#include "base/text.h"
#include "benchmark/chart.h"
#include "benchmark/run_keeper.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/file_tools.h"
#include "platform/pictures.h"

#include <algorithm>

namespace gatehouse {

namespace {

constexpr std::size_t kLargestRecord = std::size_t{64} << 20;
constexpr std::string_view kRecordEnd = ".json";
constexpr std::string_view kTitle = "Benchmark Results";
/// Of the chart in a file, in pixels.
constexpr ChartMetrics kFileMetrics{.width = 1000, .letter = 7, .line = 17};
constexpr int kPictureWidth = 2000;
constexpr std::string_view kSaveFilter =
    "Values (*.csv)|*.csv|Records (*.json)|*.json|Drawing (*.svg)|*.svg|Picture (*.png)|*.png";

/// "20010203140506-2.json" as "2001-02-03 14:05:06 (2)"; another name as it stands.
std::string runLabel(const std::string& fileName) {
    constexpr std::size_t kStamp = 14;
    const std::string stem = fileName.substr(0, fileName.size() - kRecordEnd.size());
    if (stem.size() < kStamp || stem.find_first_not_of("0123456789") < kStamp) return stem;
    const auto part = [&](std::size_t at) { return stem.substr(at, 2); };
    std::string label =
        stem.substr(0, 4) + "-" + part(4) + "-" + part(6) + " " + part(8) + ":" + part(10) + ":" + part(12);
    if (stem.size() > kStamp + 1) label += " (" + stem.substr(kStamp + 1) + ")";
    return label;
}

std::string endText(const RunRecord& record) {
    switch (record.end) {
        case RunEnd::None:
            return "It was broken off.";
        case RunEnd::Stopped:
            return "It was stopped.";
        case RunEnd::Failed:
            return "It ended with a failure: " + record.failure;
        case RunEnd::Finished:
            break;
    }
    return {};
}

void addLine(std::string& text, const std::string& line) {
    if (line.empty()) return;
    if (!text.empty()) text += "\n";
    text += line;
}

std::string aboutRun(const RunRecord& record) {
    std::string text;
    for (const std::string& part : {record.machine.processor, record.machine.graphics, record.machine.kernel})
        if (!part.empty()) text += (text.empty() ? "" : ", ") + part;
    text = "Run of " + record.started + (text.empty() ? "." : " on " + text + ".");
    if (const std::string end = endText(record); !end.empty()) text += " " + end;
    if (!record.unsavedKept.empty())
        addLine(text, "Changes that were unsaved then were kept in " + record.unsavedKept + ".");
    return text;
}

std::vector<Choice> choicesOf(const std::vector<std::string>& texts) {
    std::vector<Choice> choices;
    for (const std::string& text : texts) choices.push_back({text, 0});
    return choices;
}

}  // namespace

ResultsForm::ResultsForm(const Ground& ground, const Services& services) : with_(ground), services_(services) {
    for (ListField* list : {&runlist, &otherrun})
        follow_.on(list->changed, [this] {
            if (!filling_) showRuns();
        });
    for (ListField* list : {&firstconfig, &secondconfig})
        follow_.on(list->changed, [this] {
            if (!filling_) compareChosen();
        });
}

void ResultsForm::mtoolsresults_Click() {
    listRuns();
    showRuns();
    q3results.set(true);
}

void ResultsForm::listRuns() {
    paths_.clear();
    std::vector<std::string> labels;
    try {
        const std::string folder = RunKeeper::folder(with_.run);
        if (with_.files.folderExists(folder))
            for (const FolderEntry& file : with_.files.listFolder(folder).files)
                if (endsWithNoCase(file.name, kRecordEnd)) paths_.push_back(folder + file.name);
    } catch (const RuntimeFailure& failure) {
        with_.log.logEvent(failure.what(), true);
    }
    std::reverse(paths_.begin(), paths_.end());
    for (const std::string& path : paths_) labels.push_back(runLabel(bareName(path)));
    filling_ = true;
    runlist.setChoices(choicesOf(labels));
    labels.insert(labels.begin(), "none");
    otherrun.setChoices(choicesOf(labels));
    if (!paths_.empty()) runlist.setIndex(0);
    otherrun.setIndex(0);
    filling_ = false;
}

void ResultsForm::take(const ListField& list, int offset, std::vector<RunRecord>& records, std::string& problem) const {
    const int place = list.index() - offset;
    if (place < 0 || place >= static_cast<int>(paths_.size())) return;
    const std::string& path = paths_[static_cast<std::size_t>(place)];
    try {
        if (with_.files.fileSize(path) > kLargestRecord) throw RuntimeFailure("it is too large");
        records.push_back(parseRecord(with_.files.openText(path)->readBytes(kLargestRecord)));
    } catch (const RuntimeFailure& failure) {
        const std::string line = path + " can't be read: " + failure.what();
        with_.log.logEvent(line, true);
        addLine(problem, line);
    }
}

void ResultsForm::showRuns() {
    records_.clear();
    std::string text;
    if (paths_.empty())
        text = "No run has been kept yet. Choose documents and demos on the Benchmark tab and press Play.";
    take(runlist, 0, records_, text);
    if (otherrun.index() - 1 != runlist.index()) take(otherrun, 1, records_, text);
    for (const RunRecord& record : records_) addLine(text, aboutRun(record));
    about.set(text);
    rows_ = resultRows(records_);
    figures.setRows(rows_, 1);

    std::vector<std::string> labels;
    for (const ResultRow& row : rows_) {
        const std::string label = row.configurationLabel();
        if (std::find(labels.begin(), labels.end(), label) == labels.end()) labels.push_back(label);
    }
    filling_ = true;
    for (ListField* list : {&firstconfig, &secondconfig}) list->setChoices(choicesOf(labels));
    if (!labels.empty()) firstconfig.setIndex(0);
    if (labels.size() > 1) secondconfig.setIndex(1);
    filling_ = false;
    rowsChanged.emit();
    compareChosen();
}

std::vector<const ResultRow*> ResultsForm::rowsOf(const std::string& label) const {
    std::vector<const ResultRow*> found;
    for (const ResultRow& row : rows_)
        if (row.configurationLabel() == label) found.push_back(&row);
    return found;
}

void ResultsForm::compareChosen() {
    std::string text;
    std::vector<SettingDifference> settings;
    const auto first = rowsOf(firstconfig.text());
    const auto second = rowsOf(secondconfig.text());
    if (firstconfig.text() == secondconfig.text() || first.empty() || second.empty()) {
        text = "Choose two configurations to compare.";
    } else {
        for (const ResultRow* a : first)
            for (const ResultRow* b : second)
                if (a->demo == b->demo)
                    addLine(text, verdictText(compare(a->figures(), b->figures()), firstconfig.text(),
                                              secondconfig.text(), a->demo, a->figures().size(), b->figures().size()));
        if (text.empty()) text = "They have no demo in common.";
        settings = differingSettings(first.front()->text, second.front()->text);
    }
    verdict.set(text);
    differences.setRows(std::move(settings), 1);
}

void ResultsForm::copyresults_Click() { services_.clipboard.setText(tableText(rows_)); }

std::string ResultsForm::fileText(const std::string& path) const {
    if (endsWithNoCase(path, ".csv")) return csvText(rows_);
    if (endsWithNoCase(path, ".json")) {
        if (records_.size() == 1) return recordText(records_.front());
        std::string all = "[";
        for (const RunRecord& record : records_) all += (all.size() > 1 ? ",\n" : "\n") + recordText(record);
        return all + "]\n";
    }
    const std::string svg = chartSvg(rows_, layOut(rows_, kFileMetrics), std::string(kTitle));
    if (endsWithNoCase(path, ".svg")) return svg;
    if (endsWithNoCase(path, ".png")) return services_.pictures.png(svg, kPictureWidth);
    throw RuntimeFailure("The name " + bareName(path) + " must end in .csv, .json, .svg or .png");
}

void ResultsForm::saveresults_Click() {
    const auto chosen = with_.dialogs.saveFile(
        {.title = "Save Results", .filter = std::string(kSaveFilter), .startFolder = {}, .fileName = "results.csv"});
    if (!chosen) return;
    if (with_.files.fileExists(*chosen)) {
        const Answer answer = with_.dialogs.show({.title = "Save Results",
                                                  .text = "File Already Exists. Overwrite?",
                                                  .buttons = Buttons::YesNo,
                                                  .icon = Icon::Question});
        if (answer != Answer::Yes) return;
    }
    try {
        replaceFile(with_.files, *chosen, fileText(*chosen));
        with_.log.logEvent("Results saved to " + *chosen);
    } catch (const RuntimeFailure& failure) {
        with_.log.logEvent(failure.what(), true);
        with_.dialogs.show(
            {.title = "Save Results", .text = failure.what(), .icon = Icon::Stop, .safeAnswer = Answer::Ok});
    }
}

void ResultsForm::restoreDesign() {
    q3results.set(false);
    figures.clear();
    differences.clear();
}

}  // namespace gatehouse
