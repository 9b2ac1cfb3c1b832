#pragma once

#include <string>
#include <vector>

namespace gatehouse {

/// The lines of default.ghc.
std::vector<std::string> defaultDocumentLines();

}  // namespace gatehouse
