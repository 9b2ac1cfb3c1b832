#include "mods/mod_discovery.h"

#include "base/game_folder.h"
#include "base/text.h"
#include "mods/mod_file.h"

#include <string_view>

namespace gatehouse {

namespace {

constexpr std::string_view kDefinitionEnd = "ghm";
constexpr std::string_view kGameCode = "qagame.qvm";
constexpr double kArchiveExtent = 100;

/// Game types of a mod that is known by its loose game code alone. Single player is not offered.
void offerUsualGameTypes(ModEntry& mod) {
    mod.gtype[0] = "Free For All";
    mod.gtype[1] = "Tournament";
    mod.gtype[3] = "Team DM";
    mod.gtype[4] = "CTF";
}

ModEntry modOfFolder(const std::string& dir) {
    ModEntry mod;
    mod.name = dir;
    mod.dir = dir;
    return mod;
}

}  // namespace

void ModDiscovery::scanForMods() {
    log_.logEvent("scanning for mods");
    const Hourglass hourglass(run_);
    const Showing showing(q3getmods);
    events_.yield();
    // Definition files come first: a folder that one of them names is not added again.
    readDefinitions();
    recoverGameDir(run_, store_);
    for (const FolderEntry& folder : files_.listFolder(run_.GameDir).folders) scanGameFolder(folder);
    run_.hourglass.set(false);
    events_.yield();
    if (q3getmods.stopped()) log_.logEvent(kScanStopped);
    log_.logEvent("found " + std::to_string(mods_.modCount()) + " mods.");
}

void ModDiscovery::readDefinitions() {
    for (const FolderEntry& file : files_.listFolder(run_.AppDir + "mods").files) {
        if (!file.name.ends_with(kDefinitionEnd)) continue;
        ModEntry mod;
        if (!parseModFile(files_, file.path, mod)) continue;
        const std::string name = mod.name;
        mods_.add(std::move(mod));
        log_.logEvent("Found mod: " + name);
    }
}

void ModDiscovery::scanGameFolder(const FolderEntry& folder) {
    const FolderListing listing = files_.listFolder(folder.path);
    for (const FolderEntry& file : listing.files)
        if (endsWithNoCase(file.name, kArchiveEnd) && !equalNoCase(file.shortName, kGameArchive))
            scanArchive(file, folder.name);
    for (const FolderEntry& subFolder : listing.folders) scanSubFolder(subFolder, folder.name);
}

void ModDiscovery::scanArchive(const FolderEntry& archive, const std::string& dir) {
    if (q3getmods.stopped()) return;
    log_.logEvent("scanning " + archive.name);
    q3getmods.place.set("Scanning " + archive.name);
    q3getmods.startBar(kArchiveExtent);
    // A mod that is known from an archive alone offers no game types.
    if (holdsGameCode(archive) && !known(dir)) mods_.add(modOfFolder(dir));
}

bool ModDiscovery::holdsGameCode(const FolderEntry& archive) {
    const auto opened = archives_.open(archive.path);
    if (!opened) {
        log_.logEvent("couldn't read archive " + archive.path, true);
        return false;
    }
    bool found = false;
    opened->list([&](const std::string& entry) {
        q3getmods.pulse();
        pace_.breathe();
        found = found || findNoCase(entry, kGameCode) != 0;
    });
    return found;
}

void ModDiscovery::scanSubFolder(const FolderEntry& subFolder, const std::string& dir) {
    const std::string place = dir + "\\" + subFolder.name;
    if (q3getmods.stopped()) return;
    log_.logEvent("scanning folder " + place);
    q3getmods.place.set("Scanning folder " + place);
    pace_.breathe();
    const FolderListing listing = files_.listFolder(subFolder.path);
    if (listing.files.empty()) return;
    q3getmods.startBar(static_cast<double>(listing.files.size()));
    for (const FolderEntry& file : listing.files) {
        if (equalNoCase(file.name, kGameCode) && !known(dir)) {
            ModEntry mod = modOfFolder(dir);
            offerUsualGameTypes(mod);
            mods_.add(std::move(mod));
            log_.logEvent("Found mod: " + dir);
        }
        q3getmods.progress.set(q3getmods.progress.get() + 1);
    }
}

bool ModDiscovery::known(const std::string& dir) const {
    for (int index = 1; index <= mods_.modCount(); ++index)
        if (equalNoCase(mods_.at(index).dir, dir)) return true;
    return false;
}

}  // namespace gatehouse
