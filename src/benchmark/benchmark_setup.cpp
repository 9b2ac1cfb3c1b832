#include "benchmark/benchmark_setup.h"

#include "base/command_flags.h"
#include "base/log.h"
#include "base/numbers.h"
#include "base/run_state.h"
#include "base/text.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <unordered_set>

namespace gatehouse {

namespace {

constexpr std::string_view kDemoFolder = "baseq3\\demos";
constexpr std::string_view kDocumentEnd = "ghc";
constexpr std::string_view kDemoEnd = "dm3";
/// The demos that come inside of the game's own archive.
constexpr std::array<std::string_view, 2> kBuiltInDemos = {"demo001", "demo002"};

/// The bare name of a demo of the game's later releases, "name.dm_68": the game adds that ending itself.
std::optional<std::string> laterDemo(const std::string& name) {
    constexpr std::size_t kEnding = 6;
    if (name.size() <= kEnding) return std::nullopt;
    const std::string ending = lower(name.substr(name.size() - kEnding));
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!ending.starts_with(".dm_") || !isDigit(ending[4]) || !isDigit(ending[5])) return std::nullopt;
    return name.substr(0, name.size() - kEnding);
}

/// A name that the game's console would take for more than a name: it goes into a line of commands.
bool isUnsafe(const std::string& name) {
    return std::any_of(name.begin(), name.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F || c == '"' || c == ';'; });
}

std::string shownFolder(std::string path) {
    while (path.ends_with('\\')) path.pop_back();
    return lower(path);
}

void fill(BenchmarkList& list, const std::vector<std::string>& names) {
    std::vector<BenchmarkEntry> rows;
    rows.reserve(names.size());
    for (const std::string& name : names) rows.push_back({name});
    list.setRows(std::move(rows), 1);
}

}  // namespace

BenchmarkSetup::BenchmarkSetup(const Ground& ground, const TextField& ghcdir, TextField& democount)
    : with_(ground), ghcdir_(ghcdir), democount_(democount) {
    follow_.on(configlist.selectionChanged, [this] { checkRun(); });
    follow_.on(demolist.selectionChanged, [this] { checkRun(); });
    follow_.on(democount.changed, [this] { checkRun(); });
}

void BenchmarkSetup::LoadBenchmarkLists() {
    loadDemos();
    loadConfigs();
    with_.flags.SetRunEnabled(false);
    with_.log.logEvent("");
}

void BenchmarkSetup::loadDemos() {
    std::vector<std::string> names(kBuiltInDemos.begin(), kBuiltInDemos.end());
    try {
        const std::string folder = with_.run.GameDir + std::string(kDemoFolder);
        const auto files = with_.files.listFolder(folder).files;
        demolabel.setText("Demos in " + shownFolder(folder));
        with_.log.logEvent("Got demo folder OK");
        std::unordered_set<std::string> known(names.begin(), names.end());
        const auto add = [&](const std::string& name) {
            if (isUnsafe(name)) return with_.log.logEvent("The game can't be given the demo " + quoted(name), true);
            if (known.insert(lower(name)).second) names.push_back(name);
        };
        for (const FolderEntry& file : files)
            if (endsWithNoCase(file.name, kDemoEnd)) add(file.name);
        for (const FolderEntry& file : files)
            if (const auto name = laterDemo(file.name)) add(*name);
        with_.log.logEvent("Got " + std::to_string(names.size()) + " demos OK");
    } catch (const RuntimeFailure&) {
        demolabel.setText(demolabel.design());
        with_.log.logEvent("No demos available");
    }
    fill(demolist, names);
}

void BenchmarkSetup::loadConfigs() {
    std::vector<std::string> names;
    const std::string folder = trim(ghcdir_.text());
    try {
        const auto files = with_.files.listFolder(folder).files;
        cfglabel.setText("Configs in " + shownFolder(folder));
        with_.log.logEvent("Got user config folder OK");
        for (const FolderEntry& file : files)
            if (endsWithNoCase(file.name, kDocumentEnd)) names.push_back(file.name);
        with_.log.logEvent("Got " + std::to_string(names.size()) + " configs OK");
    } catch (const RuntimeFailure& failure) {
        cfglabel.setText(cfglabel.design());
        with_.log.logEvent(failure.what(), true);
    }
    fill(configlist, names);
}

bool BenchmarkSetup::canRun() const {
    const auto count = parseDecimal(democount_.text());
    return configlist.selectedCount() != 0 && demolist.selectedCount() != 0 && count && *count > 0;
}

void BenchmarkSetup::checkRun() {
    if (with_.run.CurrentMode.get() == kBenchmark && !with_.run.benchmarking.get()) with_.flags.SetRunEnabled(canRun());
}

void BenchmarkSetup::restoreDesign() {
    configlist.clear();
    demolist.clear();
    for (Field* field : labels.fields) field->restoreDesign();
    choosing.set(true);
}

std::vector<std::string> BenchmarkSetup::chosen(const BenchmarkList& list) {
    std::vector<std::string> names;
    for (int position = 1; position <= list.count(); ++position)
        if (list.selected(position)) names.push_back(list.at(position).name);
    return names;
}

}  // namespace gatehouse
