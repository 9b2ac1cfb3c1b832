#pragma once

#include "sample_game.h"

#include <string>

namespace gatehouse {

/// Scans the sample's game folder for maps through the real file and archive services; nobody is there to be asked.
/// What the scan says at its end, empty if it has failed.
std::string scanMaps(const SampleGame& sample);

}  // namespace gatehouse
