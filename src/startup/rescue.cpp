#include "startup/rescue.h"

#include "base/log.h"
#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/file_tools.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::string_view kRecord = "rescue.txt";
constexpr std::string_view kHeaderLine = "// Gatehouse tells of this at its next start, and takes this file away then.";
constexpr std::string_view kTime = "time ";
constexpr std::string_view kReason = "reason ";
constexpr std::string_view kFile = "file ";
/// Bounds of a record, which anybody may have written.
constexpr std::size_t kLargestRecord = 65536;
constexpr long kLongestText = 500;
constexpr std::size_t kMostEntries = 20;

/// A text that stays one line of the record.
std::string recordText(std::string_view text) { return oneLine(left(text, kLongestText)); }

/// "a", "a and b", "a, b and c".
std::string listed(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    return text;
}

}  // namespace

Rescue::Rescue(const Ground& ground, const Clock& clock, std::vector<RescueKind> kinds)
    : ground_(ground), clock_(clock), kinds_(std::move(kinds)), own_(kinds_.size()) {}

Kept Rescue::keep(const std::string& reason) {
    Entry entry{.time = dateTimeText(clock_.now()), .reason = recordText(reason), .paths = {}};
    Kept result;
    // What can't be kept of one kind must not cost the others.
    const auto attempt = [&result](auto&& action) {
        try {
            action();
        } catch (const std::exception& failure) {
            result.lost += std::string("; ") + failure.what();
        }
    };
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        attempt([&] {
            const auto text = kinds_[i].unsaved();
            if (!text) return;
            const std::string path =
                own_[i].empty() ? freePath(ground_.files, ground_.run.AppDir, kinds_[i].stem, kinds_[i].ending) : own_[i];
            replaceFile(ground_.files, path, *text);
            own_[i] = path;
            entry.paths.push_back(path);
        });
    }
    if (entry.paths.empty()) return result;
    if (!earlier_) earlier_ = readRecord();
    auto entries = *earlier_;
    entries.push_back(entry);
    attempt([&] { writeRecord(entries); });
    result.where = "; what was not saved is in " + listed(entry.paths);
    return result;
}

void Rescue::takeBack() {
    if (!earlier_) return;
    try {
        for (std::string& path : own_) {
            if (!path.empty()) ground_.files.deleteFile(std::exchange(path, {}), true);
        }
        writeRecord(*std::exchange(earlier_, std::nullopt));
    } catch (const RuntimeFailure& failure) {
        // Then the next start offers what has been saved or given up: a question too many, and no loss.
        ground_.log.logEvent(failure.what(), true);
    }
}

std::string Rescue::notice() const {
    std::string line;
    for (const Entry& entry : readRecord())
        line += (line.empty() ? "What was not saved is in " : "; ") + listed(entry.paths) + " (" + entry.time + ", " +
                entry.reason + ")";
    return line;
}

void Rescue::offer() {
    const auto entries = readRecord();
    if (entries.empty()) return;
    MessageBox box{.title = "Gatehouse",
                   .text = "Gatehouse had to end before all was saved, and has kept this:\r\n",
                   .buttons = Buttons::YesNo,
                   .icon = Icon::Question};
    for (const Entry& entry : entries) {
        box.text += "\r\n" + entry.time + ", " + entry.reason + "\r\n";
        for (const std::string& path : entry.paths) box.text += path + "\r\n";
    }
    box.text += entries.size() > 1 ? "\r\nOpen the latest now?" : "\r\nOpen it now?";
    const bool wanted = ground_.dialogs.show(box) == Answer::Yes;
    try {
        writeRecord({});
    } catch (const RuntimeFailure& failure) {
        ground_.log.logEvent(failure.what(), true);  // it will be told again
    }
    if (wanted) openLatest(entries);
}

void Rescue::openLatest(const std::vector<Entry>& entries) {
    for (const RescueKind& kind : kinds_) {
        const std::string* latest = nullptr;
        for (const Entry& entry : entries)
            for (const std::string& path : entry.paths)
                if (kindOf(bareName(path)) == &kind) latest = &path;
        if (!latest) continue;
        try {
            ground_.files.openText(*latest);
            kind.open(*latest);
        } catch (const FileFailure& failure) {
            ground_.log.logEvent(failure.what(), true);
            ground_.dialogs.show({.title = "Gatehouse", .text = failure.what(), .icon = Icon::Stop});
        }
    }
}

std::string Rescue::recordPath() const { return ground_.run.AppDir + std::string(kRecord); }

const RescueKind* Rescue::kindOf(std::string_view name) const {
    for (const RescueKind& kind : kinds_) {
        if (name.size() < kind.stem.size() + kind.ending.size()) continue;
        if (name.starts_with(kind.stem) && name.ends_with(kind.ending) && bareName(name) == name) return &kind;
    }
    return nullptr;
}

std::vector<Rescue::Entry> Rescue::readRecord() const {
    std::vector<Entry> entries;
    std::string text;
    try {
        if (ground_.files.fileExists(recordPath()))
            text = ground_.files.openText(recordPath())->readBytes(kLargestRecord);
    } catch (const FileFailure& failure) {
        ground_.log.logEvent(failure.what(), true);
    }
    for (const std::string& raw : splitLines(text)) {
        const std::string line = recordText(raw);
        if (line.starts_with(kTime)) entries.push_back({.time = line.substr(kTime.size()), .reason = {}, .paths = {}});
        if (entries.empty()) continue;
        if (line.starts_with(kReason)) entries.back().reason = line.substr(kReason.size());
        if (!line.starts_with(kFile)) continue;
        const std::string name = line.substr(kFile.size());
        const std::string path = ground_.run.AppDir + name;
        // What somebody has taken away since is nothing to tell of.
        if (kindOf(name) && ground_.files.fileExists(path)) entries.back().paths.push_back(path);
    }
    std::erase_if(entries, [](const Entry& entry) { return entry.paths.empty(); });
    if (entries.size() > kMostEntries) entries.erase(entries.begin(), entries.end() - kMostEntries);
    return entries;
}

void Rescue::writeRecord(const std::vector<Entry>& entries) {
    if (entries.empty()) {
        if (ground_.files.fileExists(recordPath())) ground_.files.deleteFile(recordPath(), true);
        return;
    }
    std::string text = std::string(kHeaderLine).append(kCrLf);
    for (const Entry& entry : entries) {
        text.append(kTime).append(entry.time).append(kCrLf).append(kReason).append(entry.reason).append(kCrLf);
        for (const std::string& path : entry.paths) text.append(kFile).append(bareName(path)).append(kCrLf);
    }
    replaceFile(ground_.files, recordPath(), text);
}

}  // namespace gatehouse
