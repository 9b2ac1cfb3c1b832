#include "startup/options.h"

#include "base/game_folder.h"
#include "base/numbers.h"
#include "base/text.h"
#include "config/default_document.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

/// One option: its key, where it goes, and its values.
struct OptionKeeper::Row {
    std::string_view key;
    int firstRunPlace = 0;         ///< where a first run stores it
    std::string firstRun;
    std::string readDefault = {};
    // Where it is read into; nowhere if all three are missing.
    Field* field = nullptr;
    std::string* runText = nullptr;
    Observable<bool>* runFlag = nullptr;
    bool storedOnChange = false;
};

OptionKeeper::OptionKeeper(OptionsForm& form, Options& store, Log& log, RunState& run)
    : form_(form), store_(store), log_(log), run_(run) {}

std::vector<OptionKeeper::Row> OptionKeeper::rows() const {
    const auto kept = [](std::string_view key, int place, Field& field, const std::string& value) {
        return Row{key, place, value, value, &field, nullptr, nullptr, true};
    };
    // In the order in which they are read.
    return {
        {"exepath", 1, form_.q3FilePath.text(), kNoOption, &form_.q3FilePath},
        kept("startwith", 6, form_.q3startwith, "0"),
        kept("runoptions", 7, form_.q3runoptions, "0"),
        kept("overwrite", 8, form_.q3overwrite, "0"),
        kept("pingwait", 9, form_.q3pingwait, "3"),
        kept("loglevel", 13, form_.q3loglevel, "0"),
        kept("buffsize", 14, form_.q3buffsize, "4096"),
        kept("keeplogs", 15, form_.q3keeplogs, "5"),
        kept("extracmdline", 17, form_.extracmdline, ""),
        {"ghcdir", 3, run_.AppDir, run_.AppDir, &form_.ghcdir},
        kept("staleaction", 11, form_.q3staleaction, "0"),
        kept("democount", 16, form_.democount, "3"),
        kept("benchwait", 10, form_.q3bwait, "5"),
        {"basedir", 2, run_.GameDir, kNoOption, nullptr, &run_.GameDir},
        {"showconsole", 12, "0", "0", nullptr, nullptr, &run_.ShowConsole},
        {"lastsvr", 5, "default.ghs", "default.ghs", nullptr, &run_.CurrentServerList},
        {"lastcfg", 4, run_.AppDir + std::string(kDefaultDocument)},
        {"ghversion", 18, run_.VersionString},
    };
}

void OptionKeeper::read() {
    for (const Row& row : rows()) {
        if (!row.field && !row.runText && !row.runFlag) continue;
        const std::string text = store_.getOption(std::string(row.key), row.readDefault);
        if (row.field) row.field->setValueText(text);
        if (row.runText) *row.runText = text;
        if (row.runFlag) row.runFlag->set(strictBoolean(text));
    }
}

void OptionKeeper::storeFirstRun(const std::string& exepath) {
    form_.q3FilePath.setText(exepath);
    run_.GameDir = gameFolderOf(exepath);
    std::vector<Row> inOrder = rows();
    std::sort(inOrder.begin(), inOrder.end(), [](const Row& a, const Row& b) { return a.firstRunPlace < b.firstRunPlace; });
    // In one go: a set that is stored in part would be taken for a whole one.
    Options::Values values;
    for (const Row& row : inOrder) {
        values.emplace_back(row.key, row.firstRun);
        if (row.runText) *row.runText = row.firstRun;
    }
    store_.setOptions(values);
}

std::optional<std::string> OptionKeeper::firstRunText(const Field& field) const {
    for (const Row& row : rows()) {
        if (row.field != &field) continue;
        const auto* list = dynamic_cast<const ListField*>(&field);
        if (!row.storedOnChange) return std::string();  // the place of the game, or of the program
        return list ? list->choices().at(static_cast<std::size_t>(strictInt16(row.firstRun))).text : row.firstRun;
    }
    return std::nullopt;
}

void OptionKeeper::keepChanges() {
    keeping_ = true;
    if (std::exchange(kept_, true)) return;
    for (const Row& row : rows())
        if (row.storedOnChange) row.field->changed.connect([this, row] { keep(row); });
}

void OptionKeeper::keep(const Row& row) {
    if (!keeping_) return;
    const std::string value = row.field == &form_.extracmdline ? trim(form_.extracmdline.text()) : row.field->valueText();
    const auto* list = dynamic_cast<const ListField*>(row.field);
    store_.setOption(std::string(row.key), value);
    log_.logEvent("option change: " + std::string(row.key) + "=" + (list ? list->text() : value));
}

void OptionKeeper::restoreDesign() {
    keeping_ = false;
    for (FieldGroup* group : {&form_.options, &form_.benchmark})
        for (Field* field : group->fields) field->restoreDesign();
}

}  // namespace gatehouse
