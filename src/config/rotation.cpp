#include "config/rotation.h"

namespace gatehouse {

void sortRotation(Rotation& rotation) {
    rotation.setSortState({.sorted = true, .key = 0, .descending = false});
    rotation.sort([](const RotationRow& row, int) -> const std::string& { return row.position; });
}

}  // namespace gatehouse
