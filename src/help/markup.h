#pragma once

#include <string>
#include <string_view>

namespace gatehouse {

/// A text as it stands in a page: what would be taken for markup is written out.
std::string escaped(std::string_view text);
/// What of a piece of a page is read: no tags, no references, one blank for each stretch of white space.
std::string plainText(std::string_view html);

}  // namespace gatehouse
