#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// Where a server listens.
struct ServerAddress {
    std::string host;  ///< a name, or an address of IPv4 or IPv6 without brackets
    std::uint16_t port = 0;
};

/// The port that a server takes if nobody says otherwise.
inline constexpr std::uint16_t kStandardPort = 27960;

/// "host:port" with any port, "host", or an address of IPv6 in brackets; nothing without a host, or for a port that is
/// none.
std::optional<ServerAddress> parseServerAddress(std::string_view text);

/// The address in the form of the table, with brackets around one of IPv6.
std::string addressText(const std::string& host, std::uint16_t port);

/// The addresses that stand in a text from anywhere, such as a message of a friend: in the form of the table, each once,
/// and not more than `most` of them. A word counts if it has a port, or is an address of IPv4.
std::vector<std::string> addressesIn(std::string_view text, std::size_t most);

}  // namespace gatehouse
