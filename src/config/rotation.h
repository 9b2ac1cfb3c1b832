#pragma once

#include "base/table.h"

#include <string>

namespace gatehouse {

/// One row of the map rotation. The rows are kept sorted by the text of their position.
struct RotationRow {
    std::string position;     ///< "001", "002", ...
    std::string name;         ///< map name; may carry the blank that ended it, every reader trims
    std::string description;
    friend bool operator==(const RotationRow&, const RotationRow&) = default;
};

using Rotation = Table<RotationRow>;

/// Orders the rows by position text.
void sortRotation(Rotation& rotation);

}  // namespace gatehouse
