#pragma once

#include <string>
#include <string_view>

namespace gatehouse {

// Changes of an INI file's text as the toolkit's settings write it. What isn't touched stays to the byte: other
// sections, comments, and the order of the lines.

/// A value (UTF-8) as it stands behind the equals sign.
std::string iniValue(std::string_view plain);

/// The file's text with a key of a section set: in its old place, or at the section's end. `value` is escaped already.
std::string withIniKey(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

/// The file's text without a section.
std::string withoutIniSection(std::string_view file, std::string_view section);

}  // namespace gatehouse
