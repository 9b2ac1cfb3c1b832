#include "content/archive_scan.h"

#include "base/game_folder.h"
#include "base/text.h"

namespace gatehouse {

namespace {

constexpr std::size_t kMostEntries = 100;
constexpr double kListingExtent = 100;

}  // namespace

bool isGameArchive(const FolderEntry& archive) { return equalNoCase(archive.name, kGameArchive); }

bool ArchiveScan::run() {
    if (view.q3scan.get()) return false;  // one at a time
    leftOut_.clear();
    bool whole = false;
    {
        const Hourglass hourglass(run_);
        const Showing showing(view);
        try {
            whole = scan();
        } catch (const RuntimeFailure& failure) {
            log_.logEvent(failure.what(), true);
        }
    }
    leftOut_.tell(std::string(view.caption));
    return whole;
}

void ArchiveScan::enterGame() {
    events_.yield();
    recoverGameDir(run_, options_);
}

void ArchiveScan::forEachArchive(Own own, const std::function<void(const Opened&)>& visit) {
    for (const FolderEntry& file : files_.listFolder(gameFile("")).files) {
        if (view.stopped()) return;
        if (!endsWithNoCase(file.name, kArchiveEnd) || (own == Own::LeaveOut && isGameArchive(file))) continue;
        events_.yield();
        const auto archive = archives_.open(file.path);
        if (archive)
            visit({file, *archive});
        else
            leftOut_.add(file.path, {}, "it can't be read as an archive");
    }
}

void ArchiveScan::forEachEntry(const Opened& opened, const std::string& phase, const Filter& filter,
                               const std::function<void(const std::string&)>& visit) {
    if (view.stopped()) return;
    view.place.set(phase + opened.file.path);
    view.startBar(kListingExtent);
    std::vector<std::string> kept;
    std::size_t more = 0;
    opened.archive.list([&](const std::string& entry) {
        view.pulse();
        pace_.breathe();
        if (!endsWithNoCase(entry, filter.srchext) || findNoCase(entry, filter.srchdir) == 0) return;
        if (filter.wanted && !filter.wanted(entry)) return;
        kept.size() < kMostEntries ? kept.push_back(entry) : static_cast<void>(++more);
    });
    if (more > 0)
        leftOut_.add(opened.file.path, {},
                     std::to_string(more) + " more of *" + std::string(filter.srchext) + ": a scan takes " +
                         std::to_string(kMostEntries) + " of each kind from an archive");
    if (!kept.empty()) view.startBar(static_cast<double>(kept.size()));
    double done = 0;
    for (const std::string& entry : kept) {
        if (view.stopped()) return;
        view.entry.set(entry);
        pace_.breathe();
        visit(entry);
        view.extent.set(static_cast<double>(kept.size()));
        view.progress.set(++done);
    }
}

void ArchiveScan::guarded(const Guarded& what, const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        log_.logEvent(what.trouble + (what.saysWhy ? std::string(": ") + failure.what() : ""));
        leftOut_.add(what.archive, what.entry, failure.what());
    }
}

void ArchiveScan::endPasses() {
    run_.hourglass.set(false);
    events_.yield();
    if (view.stopped()) log_.logEvent(kScanStopped);
}

}  // namespace gatehouse
