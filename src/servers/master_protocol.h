#pragma once

#include "platform/datagrams.h"
#include "servers/server_entry.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

// How the game's servers are found: by asking a master server for its list, and by calling into the local network. The
// protocol is the game's own.

inline constexpr std::uint16_t kMasterPort = 27950;
/// Ports on which servers of a local network are called; a machine with several takes the next ones.
inline constexpr std::uint16_t kFirstLocalPort = 27960;
inline constexpr std::uint16_t kLastLocalPort = 27963;
/// Servers that are kept from one search: nobody can say how many a master tells of.
inline constexpr std::size_t kMostFound = 10'000;

/// The request for all servers of a protocol number, full and empty ones too.
std::string masterRequest(int protocol);

/// The servers of a reply; nothing for what is no reply to that request. Addresses that no server of the net can have, such
/// as those of private networks and broadcasts, are left out, and so is a record that is cut off.
std::optional<std::vector<Endpoint>> parseMasterReply(std::string_view bytes);

/// Whether a server of the net can have that address of IPv4.
bool isPublicAddress(std::uint8_t a, std::uint8_t b, std::uint8_t c, std::uint8_t d);

/// The call into the local network; servers send the word back.
std::string infoRequest(std::string_view word);
/// What an answer to that call says of a server, with an unknown ping and without an address; nothing for what is no answer,
/// or one to another word.
std::optional<ServerEntry> parseInfoReply(std::string_view bytes, std::string_view word);

/// A master server of the list that a person keeps: "host" or "host:port".
struct MasterAddress {
    std::string host;
    std::uint16_t port = kMasterPort;
};
/// The masters of a list, parted by blanks, commas or line ends, and not more than `kMostMasters`.
std::vector<MasterAddress> parseMasters(std::string_view list);
inline constexpr std::size_t kMostMasters = 20;

/// A number of the game's protocol, and what speaks it.
struct ProtocolNumber {
    std::string_view text;
    int number;
};
std::span<const ProtocolNumber> protocolNumbers();

}  // namespace gatehouse
