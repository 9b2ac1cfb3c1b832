#include "servers/master_protocol.h"

#include "base/numbers.h"
#include "base/text.h"
#include "servers/server_address.h"

#include <algorithm>
#include <map>

namespace gatehouse {

namespace {

constexpr std::string_view kOutOfBand = "\xFF\xFF\xFF\xFF";
constexpr std::string_view kMasterReply = "\xFF\xFF\xFF\xFFgetserversResponse";
constexpr std::string_view kInfoReply = "\xFF\xFF\xFF\xFFinfoResponse\n";
/// A record: a backslash, four bytes of the address, two of the port, the higher one first.
constexpr std::size_t kRecord = 7;

constexpr std::size_t kMostValues = 64;
constexpr long kLongestValue = 64;
constexpr std::size_t kPlayersWidth = 5;

/// The pairs of an info string, which parts keys and values with backslashes; of a key that stands there twice the first.
std::map<std::string, std::string> infoValues(std::string_view text) {
    std::map<std::string, std::string> values;
    text = text.substr(0, text.find('\n'));
    const auto take = [&text] {
        if (text.starts_with('\\')) text.remove_prefix(1);
        const std::string_view part = text.substr(0, text.find('\\'));
        text.remove_prefix(part.size());
        return std::string(part);
    };
    while (!text.empty() && values.size() < kMostValues) {
        std::string key = take();
        values.emplace(std::move(key), take());
    }
    return values;
}

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

std::string infoRequest(std::string_view word) { return std::string(kOutOfBand) + "getinfo " + std::string(word); }

std::optional<ServerEntry> parseInfoReply(std::string_view bytes, std::string_view word) {
    if (!bytes.starts_with(kInfoReply)) return std::nullopt;
    const auto values = infoValues(bytes.substr(kInfoReply.size()));
    const auto value = [&values](const char* key) {
        const auto found = values.find(key);
        return found == values.end() ? std::string() : oneLine(left(found->second, kLongestValue));
    };
    if (value("challenge") != word) return std::nullopt;
    ServerEntry server = newServer("", "");
    server.Name = value("hostname");
    server.Map = upper(value("mapname"));
    server.Mod = value("game");
    const std::string players = value("clients"), places = value("sv_maxclients");
    if (isNumeric(players) && isNumeric(places)) {
        server.Players = padLeft(left(players + "/" + places, kPlayersWidth), kPlayersWidth);
        server.PlayerCount = left(players, kPlayersWidth);
    }
    return server;
}

std::vector<MasterAddress> parseMasters(std::string_view list) {
    std::vector<MasterAddress> masters;
    while (!list.empty() && masters.size() < kMostMasters) {
        const std::string_view word = list.substr(0, list.find_first_of(" ,;\t\r\n"));
        list.remove_prefix(std::min(word.size() + 1, list.size()));
        const auto address = parseServerAddress(word);
        if (!address) continue;
        const bool named = word.find(':', word.rfind(']') == word.npos ? 0 : word.rfind(']')) != word.npos;
        masters.push_back({address->host, named ? address->port : kMasterPort});
    }
    return masters;
}

std::span<const ProtocolNumber> protocolNumbers() {
    static constexpr ProtocolNumber kNumbers[] = {{"68: version 1.32", 68},  {"71: later engines", 71},
                                                  {"67: version 1.31", 67},  {"66: version 1.29 and 1.30", 66},
                                                  {"48: version 1.27", 48},  {"45: version 1.17", 45},
                                                  {"43: version 1.11 to 1.16", 43}};
    return kNumbers;
}

}  // namespace gatehouse
