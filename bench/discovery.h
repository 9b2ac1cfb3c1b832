#pragma once

#include "sample_game.h"

namespace gatehouse {

/// Searches the sample's game folder for mods through the real file and archive services. The number of mods found.
int discoverMods(const SampleGame& sample);

}  // namespace gatehouse
