#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace gatehouse {

/// The first path of that folder, stem and ending, with "-2", "-3" ... between them, at which there is nothing.
std::string freePath(const Files& files, const std::string& folder, std::string_view stem, std::string_view ending);

/// Puts the text in place of the file, as `Files::replaceText` does, or makes it.
void replaceFile(Files& files, const std::string& path, const std::string& text);

}  // namespace gatehouse
