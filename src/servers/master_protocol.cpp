#include "servers/master_protocol.h"

#include <algorithm>

namespace gatehouse {

namespace {

constexpr std::string_view kOutOfBand = "\xFF\xFF\xFF\xFF";
constexpr std::string_view kMasterReply = "\xFF\xFF\xFF\xFFgetserversResponse";
constexpr std::string_view kInfoReply = "\xFF\xFF\xFF\xFFinfoResponse\n";
/// A record: a backslash, four bytes of the address, two of the port, the higher one first.
constexpr std::size_t kRecord = 7;

}  // namespace

std::string masterRequest(int protocol) {
    return std::string(kOutOfBand) + "getservers " + std::to_string(protocol) + " full empty";
}

bool isPublicAddress(std::uint8_t a, std::uint8_t b, std::uint8_t c, std::uint8_t d) {
    if (a == 0 || a == 10 || a == 127 || a >= 224) return false;  // this net, private, this machine, groups and beyond
    if (a == 100 && b >= 64 && b < 128) return false;             // behind a provider (RFC 6598)
    if (a == 169 && b == 254) return false;                       // of the link alone (RFC 3927)
    if (a == 172 && b >= 16 && b < 32) return false;              // private (RFC 1918)
    if (a == 192 && b == 168) return false;                       // private
    if (a == 192 && b == 0 && c <= 2) return false;               // for protocols and documents (RFC 5737)
    if (a == 198 && (b == 18 || b == 19)) return false;           // for measurements (RFC 2544)
    return d != 255 && d != 0;                                    // whole networks, as a rule
}

std::optional<std::vector<Endpoint>> parseMasterReply(std::string_view bytes) {
    if (!bytes.starts_with(kMasterReply)) return std::nullopt;
    bytes.remove_prefix(kMasterReply.size());
    std::vector<Endpoint> found;
    // Some masters put a zero or a line end in front of the first record.
    bytes.remove_prefix(std::min(bytes.size(), bytes.find('\\')));
    while (bytes.size() >= kRecord && bytes.front() == '\\') {
        const auto byte = [bytes](std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); };
        const auto port = static_cast<std::uint16_t>(byte(5) << 8 | byte(6));
        if (port == 0) break;  // the mark of the end has the form of an address without a port
        if (isPublicAddress(byte(1), byte(2), byte(3), byte(4))) {
            std::string ip = std::to_string(byte(1));
            for (const std::size_t at : {2, 3, 4}) ip += "." + std::to_string(byte(at));
            found.push_back({ip, port});
        }
        bytes.remove_prefix(kRecord);
    }
    return found;
}

bool isInfoReply(std::string_view bytes) { return bytes.starts_with(kInfoReply); }

}  // namespace gatehouse
