#include "content/standard_maps.h"

namespace gatehouse {

namespace {

// The blank before 's belongs to two of the names. The last tourney map is in no class, so it is never offered.
constexpr std::array<StandardMap, kStandardMapCount> kStandardMaps = {{
    {"q3dm1", "Arena Gate", {true, false, false, false}},
    {"q3dm2", "House Of Pain", {true, true, false, false}},
    {"q3dm3", "Arena Of Death", {true, false, false, false}},
    {"q3tourney1", "Powerstation 218", {false, true, false, false}},
    {"q3dm4", "The Place Of Many Deaths", {true, false, false, false}},
    {"q3dm5", "The Forgotten Place", {true, false, false, false}},
    {"q3dm6", "The Camping Grounds", {true, false, true, false}},
    {"q3tourney2", "The Proving Grounds", {false, true, false, false}},
    {"q3dm7", "Temple of Retribution", {true, false, true, false}},
    {"q3dm8", "Brimstone Abbey", {true, false, true, false}},
    {"q3dm9", "Hero 's Keep", {true, false, true, false}},
    {"q3tourney3", "Hell 's Gate", {false, true, false, false}},
    {"q3dm10", "The Nameless Place", {true, false, false, false}},
    {"q3dm11", "Deva Station", {true, false, false, false}},
    {"q3dm12", "The Dredwerkz", {true, false, true, false}},
    {"q3tourney4", "Vertical Vengeance", {false, true, true, false}},
    {"q3dm13", "Lost World", {true, false, false, false}},
    {"q3dm14", "Grim Dungeons", {true, false, true, false}},
    {"q3dm15", "Demon Keep", {true, false, true, false}},
    {"q3tourney5", "Fatal Instinct", {false, true, false, false}},
    {"q3dm16", "The Bouncy Map", {true, false, false, false}},
    {"q3dm17", "The Longest Yard", {true, false, false, false}},
    {"q3dm18", "Space Chamber", {true, false, false, false}},
    {"q3dm19", "Apocalypse Void", {true, false, false, false}},
    {"q3tourney6", "The Very End Of You", {false, false, false, false}},
    {"q3ctf1", "Dueling Keeps", {false, false, false, true}},
    {"q3ctf2", "Troubled Waters", {false, false, false, true}},
    {"q3ctf3", "The Stronghold", {false, false, false, true}},
    {"q3ctf4", "Space CTF", {false, false, false, true}},
}};

}  // namespace

std::span<const StandardMap, kStandardMapCount> standardMaps() { return kStandardMaps; }

}  // namespace gatehouse
