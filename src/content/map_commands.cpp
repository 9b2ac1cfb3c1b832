#include "content/map_commands.h"

#include "base/run_state.h"
#include "base/text.h"

#include <algorithm>
#include <optional>

namespace gatehouse {

namespace {

constexpr std::string_view kTitle = "Add Map to List";

std::string levelShot(const std::string& separator, const std::string& map) {
    return std::string(kLevelShotsFolder) + separator + map + ".jpg";
}

}  // namespace

void MapCommands::scanForMaps() {
    if (scan_.view.q3scan.get()) return;
    const Answer answer = dialogs_.show({.title = "Scan for new maps",
                                         .text = "Gatehouse can scan your Quake 3 folders for new\r\n"
                                                 "maps. This may take a minute or two if there are\r\n"
                                                 "many new map files.\r\n\r\nDo you want to do this now?",
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Question});
    if (answer != Answer::Yes) return;
    // What the file doesn't have would be gone from the tree when it is loaded anew.
    if (!maps_.saveUserMaps())
        return refuse("Without a saved list of your maps a scan would lose those that you have added.");
    scan_.run();
    maps_.loadStandardMaps();
    maps_.loadUserMaps();
}

void MapCommands::addMap() {
    const std::string startFolder = run_.GameDir + "baseq3\\maps";
    log_.logEvent("adding new map. displaying open dialog");
    const auto path = dialogs_.openFile({.title = std::string(kTitle),
                                         .filter = "Map Files & Pak Files (*.bsp, *.pk3)|*.bsp;*.pk3",
                                         .startFolder = startFolder,
                                         .fileName = {}});
    if (!path) return log_.logEvent("user canceled. no map added");
    leftOut_.clear();
    try {
        const Hourglass hourglass(run_);
        if (endsWithNoCase(*path, ".bsp")) addFile(*path, startFolder);
        if (endsWithNoCase(*path, ".pk3")) addFromArchive(*path);
    } catch (const RuntimeFailure& failure) {
        log_.logEvent(failure.what(), true);
        refuse(failure.what());
    }
    leftOut_.tell(std::string(kTitle));
}

void MapCommands::addFile(const std::string& path, const std::string& startFolder) {
    log_.logEvent("user chose " + quoted(path));
    constexpr std::size_t kEnding = 4;
    if (path.size() < startFolder.size() + 1 + kEnding)
        return refuse(path + " is not in the game's folder for maps, " + startFolder + ".");
    // The cut is by length, wherever the file lies.
    const std::string name = upper(cut(path, static_cast<long>(startFolder.size()) + 1, kEnding));
    const std::string description = scan_.descriptions.scanFile(path);
    if (description == DescriptionScan::kCancel) return;
    const std::string shot = run_.GameDir + "baseq3\\" + levelShot("\\", name);
    log_.logEvent("->looking for corresponding levelshot (" + shot + ")");
    try {
        files_.copyFile(shot, run_.AppDir + levelShot("\\", name));
        log_.logEvent("->levelshot copied OK");
    } catch (const RuntimeFailure&) {
        log_.logEvent("->could not find levelshot (" + shot + ")");
    }
    log_.logEvent("new map " + quoted(addNode(name, description)) + " added OK");
    focusWanted.emit();
}

void MapCommands::addFromArchive(const std::string& path) {
    log_.logEvent("user chose a pakfile. opening " + quoted(path));
    const auto archive = archives_.open(path);
    if (!archive) return leftOut_.add(path, {}, "it can't be read as an archive");
    std::vector<PakMap> maps;
    archive->list([&](const std::string& entry) {
        if (endsWithNoCase(entry, ".bsp")) maps.push_back({cut(upper(bareName(entry)), 0, 4), entry});
    });
    run_.hourglass.set(false);
    const auto chosen = pakMaps.choose(std::move(maps));
    run_.hourglass.set(true);
    if (chosen) addEntry(*archive, path, *chosen);
}

void MapCommands::addEntry(Archive& archive, const std::string& path, const PakMap& map) {
    std::optional<DescriptionSearch> search;
    const auto take = [&](std::uint64_t size, std::string_view piece) {
        if (!search) search.emplace(size);
        if (search->done()) return;
        scan_.descriptions.showProgress(*search);
        search->take(piece);
    };
    if (const EntryFault fault = archive.read(map.entry, kMostMapBytes, DescriptionSearch::kChunk, take))
        return leftOut_.add(path, map.entry, *fault);
    log_.logEvent("Looking inside pak for levelshot");
    const std::string shot = levelShot("/", lower(map.name));
    if (archive.extract(shot, kMostPictureBytes, run_.AppDir, {}))
        log_.logEvent("-> error extracting file. Zip error:" + shot);
    else
        log_.logEvent("-> found and extracted levelshot OK");
    const std::string description =
        scan_.descriptions.conclude(run_.AppDir + map.entry, search.value_or(DescriptionSearch(0)));
    if (description != DescriptionScan::kCancel)
        log_.logEvent("new map " + quoted(addNode(map.name, description)) + " added from pak file OK");
    focusWanted.emit();
}

std::string MapCommands::addNode(const std::string& name, const std::string& description) {
    const int position = maps_.addUserMap(oneLine(name), description);
    maps_.walkTo(position);
    return maps_.maptree.at(position).text;
}

void MapCommands::deleteMap() {
    MapTree& tree = maps_.maptree;
    const int position = tree.current();
    if (position == 0) return;
    const MapEntry node = tree.at(position);
    if (!startsWith(node.key, kUserPrefix)) return refuse("You can't delete one of the standard id maps.");
    if (node.used) return refuse("That map is currently being used. Can't delete.");
    log_.logEvent("deleting user map " + quoted(node.text) + " from available maps list");
    tree.remove(position);
    maps_.walkTo(std::min(position, tree.count()));
    focusWanted.emit();
}

void MapCommands::refuse(const std::string& reason) {
    dialogs_.show({.title = "No!", .text = reason, .icon = Icon::Information});
}

}  // namespace gatehouse
