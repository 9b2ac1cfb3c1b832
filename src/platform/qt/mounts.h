#pragma once

#include <set>
#include <string>

namespace gatehouse {

/// Native paths where file systems are mounted that hold no programs of this machine: the system's pseudo file systems
/// and those of other machines. Nothing where the system keeps no such list.
std::set<std::string> foreignMounts();

/// The same from the text of the system's list, one mount a line.
std::set<std::string> foreignMounts(const std::string& mountInfo);

}  // namespace gatehouse
