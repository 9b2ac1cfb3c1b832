// A reply of a master server: as many servers as it has records at the most, each with a public address and a port, and
// nothing of a private network.

#include "fuzz.h"
#include "servers/master_protocol.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gatehouse;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto found = parseMasterReply(bytes);
    if (!found) return 0;
    constexpr std::size_t kRecord = 7;
    fuzz::require(found->size() <= size / kRecord, "a server takes a record");
    for (const Endpoint& server : *found) {
        fuzz::require(server.port != 0, "a server has a port");
        fuzz::require(server.ip.size() >= 7 && server.ip.size() <= 15, "an address is one of IPv4");
        fuzz::require(!server.ip.starts_with("127.") && !server.ip.starts_with("10."), "an address is public");
    }
    return 0;
}
