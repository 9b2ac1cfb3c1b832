#include "startup/options.h"

#include "base/numbers.h"
#include "base/text.h"
#include "startup/findq3a.h"

namespace gatehouse {

/// One option: its key, where it goes, and its values.
struct OptionKeeper::Row {
    std::string_view key;
    Field* field = nullptr;            ///< nothing: a value of the run
    std::string* runValue = nullptr;
    std::string readDefault;
    std::string firstRun;
    bool storedOnChange = false;
};

OptionKeeper::OptionKeeper(OptionsForm& form, OptionStore& store, Log& log, RunState& run)
    : form_(form), store_(store), log_(log), run_(run) {}

std::vector<OptionKeeper::Row> OptionKeeper::rows() const {
    const auto kept = [](std::string_view key, Field& field, std::string value) {
        return Row{key, &field, nullptr, value, value, true};
    };
    return {
        {"exepath", &form_.q3FilePath, nullptr, "none", form_.q3FilePath.text(), false},
        kept("startwith", form_.q3startwith, "0"),
        kept("runoptions", form_.q3runoptions, "0"),
        kept("overwrite", form_.q3overwrite, "0"),
        kept("pingwait", form_.q3pingwait, "3"),
        kept("loglevel", form_.q3loglevel, "0"),
        kept("buffsize", form_.q3buffsize, "4096"),
        kept("keeplogs", form_.q3keeplogs, "5"),
        kept("extracmdline", form_.extracmdline, ""),
        {"ghcdir", &form_.ghcdir, nullptr, run_.AppDir, run_.AppDir, false},
        kept("staleaction", form_.q3staleaction, "0"),
        kept("democount", form_.democount, "3"),
        kept("benchwait", form_.q3bwait, "5"),
        {"basedir", nullptr, &run_.GameDir, "none", run_.GameDir, false},
        {"lastsvr", nullptr, &run_.CurrentServerList, "default.ghs", "default.ghs", false},
    };
}

void OptionKeeper::read() {
    for (const Row& row : rows()) {
        const std::string text = store_.getOption(std::string(row.key), row.readDefault);
        if (row.field) row.field->setValueText(text);
        if (row.runValue) *row.runValue = text;
    }
    run_.ShowConsole.set(strictBoolean(store_.getOption("showconsole", "0")));
}

void OptionKeeper::storeFirstRun(const std::string& exepath) {
    form_.q3FilePath.setText(exepath);
    run_.GameDir = gameFolderOf(exepath);
    for (const Row& row : rows()) store_.setOption(std::string(row.key), row.firstRun);
    store_.setOption("lastcfg", run_.AppDir + "default.ghc");
    store_.setOption("showconsole", "0");
    store_.setOption("ghversion", run_.VersionString);
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
