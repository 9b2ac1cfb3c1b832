#pragma once

#include "base/table.h"

#include <array>
#include <string>
#include <string_view>

namespace gatehouse {

/// One bot that joins a hosted game; all three values are texts.
struct BotEntry {
    std::string name;
    std::string skill;
    std::string team;
    friend bool operator==(const BotEntry&, const BotEntry&) = default;
};

using BotTable = Table<BotEntry>;

/// The game's own bots, in the order of the choice.
inline constexpr std::array<std::string_view, 32> kBotNames = {
    "Anarki", "Angel",  "Biker", "Bitterman", "Bones",  "Cadavre", "Crash",  "Daemia", "Doom",  "Gorre", "Grunt",
    "Hossman", "Hunter", "Keel",  "Klesk",     "Lucy",   "Major",   "Mynx",   "Orbb",   "Patriot", "Phobos", "Ranger",
    "Razor",  "Sarge",  "Slash", "Sorlag",    "Stripe", "Tankjr",  "Uriel",  "Visor",  "Wrack", "Xaero"};

inline constexpr std::array<std::string_view, 3> kBotTeams = {"Red", "Blue", "None"};

}  // namespace gatehouse
