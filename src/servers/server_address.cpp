#include "servers/server_address.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace gatehouse {

namespace {

constexpr std::size_t kLongestHost = 253;  // of a name (RFC 1035), without the last full stop
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHostLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";
constexpr std::string_view kAddress6Letters = "0123456789abcdefABCDEF:.";
/// What parts words in a text: blanks, and what people put around an address.
constexpr std::string_view kGaps = " \t\r\n,;|<>()\"'/";

std::optional<std::uint16_t> portOf(std::string_view digits) {
    std::uint16_t port = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
    if (error != std::errc() || end != digits.data() + digits.size() || port == 0) return std::nullopt;
    return port;
}

bool consistsOf(std::string_view text, std::string_view letters) {
    return !text.empty() && text.find_first_not_of(letters) == std::string_view::npos;
}

bool isAddress4(std::string_view host) {
    return consistsOf(host, "0123456789.") && std::count(host.begin(), host.end(), '.') == 3;
}

/// Whether a word of a text is meant as an address.
bool isMeant(std::string_view word, const ServerAddress& address) {
    if (word.starts_with('[')) return consistsOf(address.host, kAddress6Letters);
    if (!consistsOf(address.host, kHostLetters) || address.host.size() > kLongestHost) return false;
    // A time of day is none, whatever its colon says.
    const bool named = !consistsOf(address.host, kDigits);
    return named && (word.find(':') != std::string_view::npos || isAddress4(address.host));
}

}  // namespace

std::optional<ServerAddress> parseServerAddress(std::string_view text) {
    const std::string address = trim(text);
    std::size_t colon = address.rfind(':');
    const auto bracket = address.rfind(']');
    if (bracket != std::string::npos && (colon == std::string::npos || colon < bracket)) colon = std::string::npos;
    ServerAddress result{.host = trim(address.substr(0, colon)), .port = kStandardPort};
    if (result.host.starts_with('[') && result.host.ends_with(']')) result.host = cut(result.host, 1, 1);
    if (result.host.empty()) return std::nullopt;
    if (colon == std::string::npos) return result;
    const auto port = portOf(std::string_view(address).substr(colon + 1));
    if (!port) return std::nullopt;
    result.port = *port;
    return result;
}

std::string addressText(const std::string& host, std::uint16_t port) {
    const bool is6 = host.find(':') != std::string::npos;
    return (is6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::vector<std::string> addressesIn(std::string_view text, std::size_t most) {
    std::vector<std::string> found;
    std::set<std::string> known;
    while (!text.empty() && found.size() < most) {
        const std::string_view word = text.substr(0, text.find_first_of(kGaps));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const auto address = parseServerAddress(word);
        if (!address || !isMeant(word, *address)) continue;
        std::string whole = addressText(address->host, address->port);
        if (known.insert(lower(whole)).second) found.push_back(std::move(whole));
    }
    return found;
}

}  // namespace gatehouse
