#pragma once

#include <string>

namespace gatehouse {

/// The version of this build: three numbers of at least two digits each, such as 00.03.03.
std::string versionString();

}  // namespace gatehouse
