#pragma once

#include <cmath>

namespace gatehouse {

/// Sizes of windows are told in twips; this is how large one is on the screen, in device-independent pixels.
inline constexpr double kPixelsPerTwip = 0.12;

inline int pixels(int twips) { return static_cast<int>(std::lround(twips * kPixelsPerTwip)); }

}  // namespace gatehouse
