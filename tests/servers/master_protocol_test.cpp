#include "servers/master_protocol.h"

#include <gtest/gtest.h>

#include <array>

namespace gatehouse {
namespace {

std::string record(int a, int b, int c, int d, int port) {
    std::string bytes = "\\";
    for (int byte : {a, b, c, d, port >> 8, port & 255}) bytes += static_cast<char>(byte);
    return bytes;
}

TEST(MasterProtocol, KeepsWhatAServerOfTheNetCanHave) {
    const std::string head = "\xFF\xFF\xFF\xFFgetserversResponse";
    // An address may hold a backslash.
    const auto found = parseMasterReply(head + record(81, 92, 1, 2, 27960) + record(192, 168, 1, 1, 27960) +
                                        record(92, 92, 92, 92, 92 * 257) + record(8, 8, 8, 255, 1) +
                                        record(172, 32, 0, 1, 65535) + std::string("\\EOT\0\0\0", 7) + record(8, 8, 8, 8, 1));
    const std::vector<Endpoint> wanted{{"81.92.1.2", 27960}, {"92.92.92.92", 23644}, {"172.32.0.1", 65535}};
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, wanted);
    EXPECT_EQ(parseMasterReply(head + '\0' + record(8, 8, 8, 8, 1).substr(0, 6))->size(), 0u);
    EXPECT_EQ(parseMasterReply(head + "\n" + record(8, 8, 8, 8, 1) + "rubbish")->size(), 1u);
    EXPECT_EQ(parseMasterReply(head)->size(), 0u);
    EXPECT_FALSE(parseMasterReply("\xFF\xFF\xFF\xFFstatusResponse"));
    for (const auto& [a, b, c, d] : {std::array{0, 1, 1, 1}, {10, 1, 1, 1}, {127, 0, 0, 1}, {169, 254, 1, 1}, {172, 16, 1, 1},
                                     {100, 64, 1, 1}, {192, 0, 2, 1}, {224, 1, 1, 1}, {255, 255, 255, 255}})
        EXPECT_FALSE(isPublicAddress(std::uint8_t(a), std::uint8_t(b), std::uint8_t(c), std::uint8_t(d))) << a;
}

}  // namespace
}  // namespace gatehouse
