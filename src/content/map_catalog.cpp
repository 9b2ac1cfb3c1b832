#include "content/map_catalog.h"

#include "base/line_failure.h"
#include "base/numbers.h"
#include "base/run_state.h"
#include "base/text.h"
#include "content/standard_maps.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <array>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::string_view kUserMapsFile = "usermaps.txt";
constexpr std::string_view kStandardGroup = "STD";
constexpr std::string_view kUserGroup = "USER";
constexpr int kKeyDigits = 2;
/// The groups and the standard maps: the nodes that every tree begins with.
constexpr int kFixedNodes = 43;

constexpr std::array<std::string_view, 14> kHeaderLines = {
    "/////////////////////////////////////////////////////////////",
    "// usermaps.txt",
    "//",
    "// this file list all user-added maps in gatehouse. you can",
    "// add maps to this list manually, but it is probably easier",
    "// to add them from within gatehouse.",
    "//",
    "// format: MAPNAME Map Description",
    "//",
    "// e.g.",
    "//",
    "// Q3DM1 Arena Gate",
    "// q3TOURNEY2 The Proving Grounds",
    "//",
};

MapEntry groupNode(std::string_view key, std::string_view text, std::string_view parent) {
    return {.key = std::string(key),
            .parent = std::string(parent),
            .text = std::string(text),
            .description = {},
            .image = MapImage::ClosedGroup};
}

MapEntry mapNode(std::string_view prefix, int number, std::string_view parent, const std::string& name,
                 std::string_view description) {
    return {.key = std::string(prefix) + zeroPadded(number, kKeyDigits),
            .parent = std::string(parent),
            .text = name + " " + std::string(description),
            .description = std::string(description)};
}

/// What two texts of the same map have in common, however the blanks in them came about.
std::string mapId(std::string_view text) {
    const std::string map = upper(trim(text));
    const long blank = find(map, " ");
    return blank == 0 ? map : left(map, blank) + trim(mid(map, blank));
}

void setUsed(MapTree& maptree, int position, bool used) {
    maptree.update(position, [used](MapEntry& node) {
        node.used = used;
        node.image = used ? MapImage::UsedMap : isMap(node) ? MapImage::FreeMap : MapImage::ClosedGroup;
    });
}

}  // namespace

void MapCatalog::loadStandardMaps() {
    maptree.clear();
    maptree.append(groupNode(kStandardGroup, "Standard Maps", {}));
    maptree.append(groupNode(kUserGroup, "User Maps", {}));
    for (const MapClass& one : kMapClasses) maptree.append(groupNode(one.key, one.text, kStandardGroup));
    for (std::size_t column = 0; column < kMapClasses.size(); ++column) {
        const MapClass& one = kMapClasses[column];
        int number = 0;
        for (const StandardMap& map : standardMaps()) {
            if (map.inClass[column])
                maptree.append(mapNode(one.prefix, number, one.key, upper(map.name), map.description));
            ++number;
        }
    }
    log_.logEvent("Standard Maps OK");
}

std::string MapCatalog::userMapsPath() const { return run_.AppDir + std::string(kUserMapsFile); }

void MapCatalog::loadUserMaps() {
    log_.logEvent("Opening usermaps.txt");
    std::unique_ptr<TextReader> file;
    try {
        file = files_.openText(userMapsPath());
    } catch (const FileFailure&) {
        log_.logEvent("Couldn't open usermaps.txt");
        unread_ = files_.fileExists(userMapsPath());
        return;
    }
    log_.logEvent("File opened OK");
    readUserMaps(*file, userMapsPath());
    kept_ = userMapLines();
    log_.logEvent(std::to_string(userMapCounter_ - static_cast<int>(kStandardMapCount)) + " Maps parsed OK");
}

void MapCatalog::readUserMaps(TextReader& file, const std::string& path) {
    userMapCounter_ = kStandardMapCount;
    std::string line;
    for (long number = 1; file.readLine(line); ++number) {
        if (startsWith(line, "//")) continue;
        const long blank = find(line, " ");
        if (blank == 0) {
            log_.logEvent("Couldn't parse map line:" + line);
            continue;
        }
        const std::string name = left(line, blank - 1);
        try {
            addUserMap(name, mid(line, blank + 1));
        } catch (const RuntimeFailure& failure) {
            throw LineFailure(path, number, line, failure.what());
        }
        log_.logEvent("->parsed " + name + " OK");
    }
}

void MapCatalog::takeUserMaps(const std::string& path) {
    const auto file = files_.openText(path);
    // Maps that came in by half must not go over the file.
    const bool unread = std::exchange(unread_, true);
    maptree.retain([](int, const MapEntry& node) { return !startsWith(node.key, kUserPrefix); });
    readUserMaps(*file, path);
    unread_ = unread;
}

bool MapCatalog::saveUserMaps() {
    log_.logEvent("Saving usermaps.txt");
    if (unread_) {
        log_.logEvent("usermaps.txt could not be read: it stays as it is", true);
        return userMapLines() == kept_;
    }
    const std::string text = fileText();
    try {
        if (holds(text)) {
            log_.logEvent("File opened OK");  // and not a byte of it is another
        } else {
            const auto file = files_.replaceText(userMapsPath());
            log_.logEvent("File opened OK");
            file->write(text);
            file->close();
        }
    } catch (const FileFailure& failure) {
        log_.logEvent("Couldn't write to usermaps.txt");
        log_.logEvent(failure.what(), true);
        if (userMapLines() == kept_) return true;  // nothing of the user's is lost
        run_.SaveFailed = true;
        dialogs_.show(
            {.title = "User Maps",
             .text = std::string("The user maps are not saved. What was on the disk is still there.\r\n\r\n") +
                     failure.what(),
             .icon = Icon::Stop,
             .safeAnswer = Answer::Ok});
        return false;
    }
    kept_ = userMapLines();
    log_.logEvent(std::to_string(maptree.count() - kFixedNodes) + " maps written OK");
    return true;
}

std::optional<std::string> MapCatalog::saveOrTell() {
    if (userMapLines() == kept_) return std::nullopt;
    try {
        if (unread_) return fileText();
        const auto file = files_.replaceText(userMapsPath());
        file->write(fileText());
        file->close();
    } catch (const FileFailure&) {
        return fileText();
    }
    kept_ = userMapLines();
    return std::nullopt;
}

std::string MapCatalog::fileText() const {
    std::string text;
    for (const auto line : kHeaderLines) text.append(line).append(kCrLf);
    return text + userMapLines();
}

std::string MapCatalog::userMapLines() const {
    std::string lines;
    for (int position = 1; position <= maptree.count(); ++position) {
        const MapEntry& node = maptree.at(position);
        if (startsWith(node.key, kUserPrefix)) lines.append(node.text).append(kCrLf);
    }
    return lines;
}

bool MapCatalog::holds(const std::string& text) const {
    return files_.fileExists(userMapsPath()) && files_.openText(userMapsPath())->readBytes(text.size() + 1) == text;
}

int MapCatalog::addUserMap(const std::string& name, const std::string& description) {
    const int position = maptree.append(mapNode(kUserPrefix, userMapCounter_, kUserGroup, name, description));
    userMapCounter_ = addInt16(userMapCounter_, 1);
    return position;
}

void MapCatalog::walkTo(int position) {
    maptree.setCurrent(position);
    walked.emit();
}

std::unordered_set<std::string> MapCatalog::userMapTexts() const {
    std::unordered_set<std::string> texts;
    for (const MapEntry& node : maptree.rows())
        if (startsWith(node.key, kUserPrefix)) texts.insert(trim(node.text));
    return texts;
}

std::unordered_set<std::string> MapCatalog::userMapNames() const {
    std::unordered_set<std::string> names;
    for (const std::string& text : userMapTexts()) {
        const long blank = find(text, " ");
        names.insert(blank == 0 ? text : upper(left(text, blank - 1)));
    }
    return names;
}

void MapCatalog::unmarkAll() {
    for (int position = 1; position <= maptree.count(); ++position)
        if (maptree.at(position).used) setUsed(maptree, position, false);
}

void MapCatalog::markRotation(const Rotation& rotation) {
    std::unordered_set<std::string> inRotation;
    for (int position = 1; position <= rotation.count(); ++position) {
        const RotationRow& row = rotation.at(position);
        inRotation.insert(mapId(trim(row.name) + " " + row.description));
    }
    for (int position = 1; position <= maptree.count(); ++position)
        if (inRotation.contains(mapId(maptree.at(position).text))) setUsed(maptree, position, true);
}

int MapCatalog::mark(const std::string& map, bool used) {
    const std::string wanted = mapId(map);
    int last = 0;
    for (int position = 1; position <= maptree.count(); ++position) {
        if (mapId(maptree.at(position).text) != wanted) continue;
        last = position;
        setUsed(maptree, position, used);
    }
    return last;
}

}  // namespace gatehouse
