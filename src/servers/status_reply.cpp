#include "servers/status_reply.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"

#include <algorithm>
#include <limits>

namespace gatehouse {

namespace {

/// A position in a reply has 16 bits.
int position16(long position) {
    if (position > std::numeric_limits<std::int16_t>::max()) throw RuntimeFailure("Overflow: a reply of that length");
    return static_cast<int>(position);
}

}  // namespace

std::string FindCvar(std::string_view key, std::string_view reply) {
    const int found = position16(find(lower(reply), lower(key)));
    if (found == 0) return "Not set";
    const int start = addInt16(static_cast<std::int16_t>(found), static_cast<int>(key.size()) + 1);
    const int end = position16(find(reply, "\\", start));
    return mid(reply, start, end - start);
}

int playerCount(std::string_view reply) {
    // The count begins behind the first character.
    const std::string_view counted = reply.substr(std::min<std::size_t>(reply.size(), 1));
    return static_cast<int>(std::count(counted.begin(), counted.end(), '\n')) - 2;
}

}  // namespace gatehouse
