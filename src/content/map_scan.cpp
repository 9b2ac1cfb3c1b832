#include "content/map_scan.h"

#include "base/numbers.h"
#include "base/run_state.h"
#include "base/text.h"

#include <optional>

namespace gatehouse {

namespace {

constexpr std::string_view kMapsFolder = "maps";

/// Lengths of "maps/" and ".bsp".
constexpr long kBeforeName = 5;
constexpr long kBehindName = 4;

/// The upper-cased name that an entry `maps/NAME.bsp` has in the catalog: cut by these lengths, wherever the entry
/// really stands. Fails for a shorter one.
std::string nameOfEntry(const std::string& entry) { return upper(cut(entry, kBeforeName, kBehindName)); }

}  // namespace

MapScan::MapScan(const Ground& ground, Archives& archives, const MapCatalog& maps, Observable<std::string>& q3status)
    : ArchiveScan(ground, archives, {"q3getmaps", "mappakname", "maplabel", "mapprog"}, "Looking for Maps"),
      descriptions(ground, view, q3status),
      maps_(maps) {}

bool MapScan::scan() {
    newMaps_ = newPreviews_ = 0;
    known_ = maps_.userMapNames();
    listed_ = maps_.userMapTexts();
    log_.logEvent("finding non-standard maps");
    LineAppender usermaps(files_, maps_.userMapsPath());
    enterGame();
    forEachArchive(Own::Take, [&](const Opened& opened) {
        takeMaps(opened, usermaps);
        takeLevelShots(opened);
        view.startBar(100);
    });
    takeLooseMaps(usermaps);
    endPasses();
    deleteExtracted();
    log_.logEvent("finished extracting " + std::to_string(newMaps_) + " new maps, " + std::to_string(newPreviews_) +
                  " new map previews");
    usermaps.close();
    return !usermaps.failed();
}

void MapScan::takeMaps(const Opened& opened, LineAppender& usermaps) {
    const auto unknown = [this](const std::string& entry) {
        return entry.size() < kBeforeName + kBehindName || !known_.contains(nameOfEntry(entry));
    };
    forEachEntry(opened, "Looking for maps in ", {kMapsFolder, "bsp", unknown}, [&](const std::string& entry) {
        if (isGameArchive(opened.file)) return;
        guarded({opened.file.path, entry, "problem with map " + entry + " in file " + opened.file.path},
                [&] { takeMap(opened, entry, usermaps); });
    });
}

void MapScan::takeMap(const Opened& opened, const std::string& entry, LineAppender& usermaps) {
    const std::string name = nameOfEntry(entry);
    std::optional<DescriptionSearch> search;
    const auto take = [&](std::uint64_t size, std::string_view piece) {
        if (!search) {
            search.emplace(size);
            view.startBar(static_cast<double>(size));
        }
        if (!search->done()) search->take(piece);
        // The bar goes on behind the title: the rest is read for its checksum.
        view.progress.set(view.progress.get() + static_cast<double>(piece.size()));
        pace_.breathe();
    };
    if (const EntryFault fault = opened.archive.read(entry, kMostMapBytes, DescriptionSearch::kChunk, take))
        return leftOut_.add(opened.file.path, entry, *fault);
    // An answer of No is written as the description, unlike that for a loose map.
    const std::string description = descriptions.conclude(run_.AppDir + entry, search.value_or(DescriptionSearch(0)));
    write(usermaps, name, description);
}

void MapScan::write(LineAppender& usermaps, const std::string& name, const std::string& description) {
    const std::string line = oneLine(name + " " + description);
    // A name with a blank in it is never known; its line would come again with each scan.
    if (listed_.contains(trim(line))) return;
    usermaps.write(line);
    newMaps_ = addInt16(newMaps_, 1);
}

void MapScan::takeLevelShots(const Opened& opened) {
    forEachEntry(opened, "Looking for pics in ", {kLevelShotsFolder, "jpg"}, [&](const std::string& entry) {
        guarded({opened.file.path, entry, "problem with levelshot " + entry}, [&] {
            if (files_.fileExists(run_.AppDir + entry)) return;
            const EntryFault fault =
                opened.archive.extract(entry, kMostPictureBytes, run_.AppDir, [this] { pace_.breathe(); });
            if (fault) return leftOut_.add(opened.file.path, entry, *fault);
            newPreviews_ = addInt16(newPreviews_, 1);
        });
    });
}

void MapScan::takeLooseMaps(LineAppender& usermaps) {
    view.place.set("Searching: Maps Folder");
    if (view.stopped() || !files_.folderExists(gameFile(kMapsFolder))) return;
    for (const FolderEntry& file : files_.listFolder(gameFile(kMapsFolder)).files) {
        if (view.stopped()) return;
        pace_.breathe();
        if (!endsWithNoCase(file.name, "bsp")) continue;
        guarded({file.path, {}, "problem with map " + file.name}, [&] { takeLooseMap(file, usermaps); });
    }
}

void MapScan::takeLooseMap(const FolderEntry& file, LineAppender& usermaps) {
    view.entry.set(lower(file.name));
    const std::string name = upper(cut(file.name, 0, kBehindName));
    if (known_.contains(name)) return;
    const std::string description = descriptions.scanFile(file.path);
    if (description != DescriptionScan::kCancel) write(usermaps, name, description);
    copyLevelShot(name, file.name);
}

void MapScan::copyLevelShot(const std::string& name, const std::string& file) {
    const std::string shot = std::string(kLevelShotsFolder) + "\\" + lower(name) + ".jpg";
    if (!files_.fileExists(gameFile(shot))) return log_.logEvent("No map preview available for " + lower(file));
    files_.copyFile(gameFile(shot), run_.AppDir + shot);
    newPreviews_ = addInt16(newPreviews_, 1);
}

void MapScan::deleteExtracted() {
    // By the spelling that it is listed with: a folder tree goes by its exact name only.
    try {
        for (const FolderEntry& folder : files_.listFolder(run_.AppDir).folders)
            if (equalNoCase(folder.name, kMapsFolder)) files_.deleteFolder(folder.path);
    } catch (const FileFailure& failure) {
        log_.logEvent(failure.what(), true);
    }
}

}  // namespace gatehouse
