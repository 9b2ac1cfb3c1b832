#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace gatehouse {

/// A class of standard maps: its group in the map tree and the beginning of its maps' keys.
struct MapClass {
    std::string_view key;
    std::string_view text;
    std::string_view prefix;
};

inline constexpr std::array<MapClass, 4> kMapClasses = {{
    {"FFA", "Free For All", "AA"},
    {"1ON1", "1 on 1 Pickup", "AB"},
    {"TEAM", "Teamplay", "AC"},
    {"CTF", "Capture The Flag", "AD"},
}};

/// A map that comes with the game, and for each class whether it stands there.
struct StandardMap {
    std::string_view name;
    std::string_view description;
    std::array<bool, kMapClasses.size()> inClass;
};

inline constexpr std::size_t kStandardMapCount = 29;

/// The standard maps in the order of their numbers.
std::span<const StandardMap, kStandardMapCount> standardMaps();

}  // namespace gatehouse
