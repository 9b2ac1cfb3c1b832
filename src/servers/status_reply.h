#pragma once

#include <string>
#include <string_view>

namespace gatehouse {

/// The game's request for the status of a server: the mark of a datagram outside of a connection, and the command.
inline constexpr std::string_view kStatusRequest = "\xFF\xFF\xFF\xFFgetstatus info";

/// The value of a key in the info string of a status reply, "Not set" if the key is nowhere. A plain search through the
/// whole reply, in any case: the first place where the key's text stands wins, be it a value. Fails for a value with no
/// backslash behind it, the last of the info string above all, and beyond the 32767th character.
std::string FindCvar(std::string_view key, std::string_view reply);

/// Players of a reply: its line ends but for those of the header and the info string.
int playerCount(std::string_view reply);

}  // namespace gatehouse
