#pragma once

#include "base/log.h"
#include "base/signal.h"
#include "base/table.h"
#include "config/rotation.h"
#include "platform/ground.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace gatehouse {

class Dialogs;
class Files;
class TextReader;
struct RunState;

enum class MapImage { ClosedGroup = 1, FreeMap = 2, UsedMap = 3, OpenGroup = 4 };

/// One node of the map tree.
struct MapEntry {
    std::string key;          ///< group key, or class prefix and number ("AA00", "AE29")
    std::string parent;       ///< key of the node above, empty for a root
    std::string text;         ///< map name, blank, description
    std::string description;
    bool used = false;        ///< stands in the rotation: shown in the button-face colour
    MapImage image = MapImage::FreeMap;
};

/// The folder of the maps' pictures, in the program folder, in `baseq3` and in an archive.
inline constexpr std::string_view kLevelShotsFolder = "levelshots";

using MapTree = Table<MapEntry>;

/// The keys of maps, and of no group, begin with this letter.
inline bool isMap(const MapEntry& node) { return node.key.starts_with('A'); }
/// The keys of user maps begin with these.
inline constexpr std::string_view kUserPrefix = "AE";

/// The catalog of maps: the tree `maptree`, the standard maps and the file `usermaps.txt`.
class MapCatalog {
public:
    explicit MapCatalog(const Ground& ground)
        : files_(ground.files), dialogs_(ground.dialogs), log_(ground.log), run_(ground.run) {}

    MapTree maptree;
    /// A command has made another map the selected one.
    Signal<> walked;
    void walkTo(int position);

    /// Empties the tree and fills it with the groups and the standard maps.
    void loadStandardMaps();
    /// Adds the maps of `usermaps.txt` under the group of user maps.
    void loadUserMaps();
    /// Writes `usermaps.txt` whole, unless it is that already. A failure is logged, and told
    /// where it costs a map. False if the user maps are not all in the file.
    bool saveUserMaps();
    /// For an end without questions: `usermaps.txt` is written if the user maps have changed. Returns what the file
    /// was to hold where that fails.
    std::optional<std::string> saveOrTell();
    /// Puts the maps of such a file in place of the user maps. Fails like any file.
    void takeUserMaps(const std::string& path);
    /// Adds a user map and returns its position.
    int addUserMap(const std::string& name, const std::string& description);

    std::string userMapsPath() const;
    /// The trimmed texts of the user maps: name, blank and description.
    std::unordered_set<std::string> userMapTexts() const;
    /// What stands in front of the first blank of each, upper-cased; a text without a blank as it is.
    std::unordered_set<std::string> userMapNames() const;

    /// Takes the marks of use off all maps.
    void unmarkAll();
    /// Marks every node of a map in the rotation.
    void markRotation(const Rotation& rotation);
    /// Marks all nodes of that map as used or free, and returns the position of the last one, 0 if there is none.
    int mark(const std::string& map, bool used);

private:
    std::string fileText() const;
    void readUserMaps(TextReader& file, const std::string& path);
    /// The lines of the user maps.
    std::string userMapLines() const;
    /// True if `usermaps.txt` is this text.
    bool holds(const std::string& text) const;

    Files& files_;
    Dialogs& dialogs_;
    Log& log_;
    RunState& run_;
    std::int16_t userMapCounter_ = 0;
    bool unread_ = false;  ///< there is a file that could not be read
    std::string kept_;     ///< the lines of the user maps as they were read or saved last
};

}  // namespace gatehouse
