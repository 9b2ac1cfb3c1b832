// An address in the clipboard: taken in its two parts if it is digits and dots with one colon at most, refused
// otherwise.

#include "servers/address_form.h"

#include "fuzz.h"

namespace {

using namespace gatehouse;

constexpr std::size_t kLongestIgnored = 6;

bool consistsOf(const std::string& text, const char* characters) {
    return text.find_first_not_of(characters) == std::string::npos;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    const auto found = addressIn(text);
    if (size <= kLongestIgnored) {
        fuzz::require(found == HostAndPort{}, "a text too short counts as an empty address");
        return 0;
    }
    const std::size_t colon = text.find(':');
    const HostAndPort parts{text.substr(0, colon), colon == std::string::npos ? "" : text.substr(colon + 1)};
    const bool valid = consistsOf(parts.host, "0123456789.") && consistsOf(parts.port, "0123456789");
    fuzz::require(found.has_value() == valid, "digits and dots are an address, and nothing else is");
    fuzz::require(!found || *found == parts, "an address comes out as it stands");
    return 0;
}
