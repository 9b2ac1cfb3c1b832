// An address out of the clipboard: digits and dots, a colon, digits; or nothing.

#include "fuzz.h"
#include "servers/address_form.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gatehouse;
    const std::string text = fuzz::textOf(data, size);
    const auto address = addressIn(text);
    if (!address) return 0;
    fuzz::require(address->host.find_first_not_of("0123456789.") == std::string::npos, "a host is digits and dots");
    fuzz::require(address->port.find_first_not_of("0123456789") == std::string::npos, "a port is digits");
    if (text.size() > 6) {
        const std::string whole = address->host + ":" + address->port;
        fuzz::require(text == whole || text + ":" == whole, "the address is the whole text");
    }
    return 0;
}
