#pragma once

#include <string>
#include <vector>

namespace gatehouse {

/// File name of the document that every installation has.
inline constexpr std::string_view kDefaultDocument = "default.ghc";

/// The lines of default.ghc.
std::vector<std::string> defaultDocumentLines();

}  // namespace gatehouse
