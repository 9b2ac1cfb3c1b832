#pragma once

#include "platform/pictures.h"

#include <string_view>

namespace gatehouse {

/// Reads a Truevision TGA picture: types 2 and 10 (true colour, plain or run-length coded) of 24 or 32 bits, from
/// either origin, of at most 4096 by 4096 points, with or without a footer. Fails with `RuntimeFailure` for anything
/// else, and for one that claims more than its bytes hold, before any memory is taken for it. A picture of 24 bits is
/// opaque.
Picture decodeTga(std::string_view bytes);

}  // namespace gatehouse
