// A TGA picture: refused with a reason, or as many points as its sides say.

#include "platform/tga.h"

#include "base/runtime_failure.h"
#include "fuzz.h"

namespace {

using namespace gatehouse;

constexpr int kLongestSide = 4096;
constexpr unsigned char kPointBits = 24;
constexpr std::size_t kBitsPlace = 16;
constexpr std::uint32_t kOpaque = 0xFF;

bool isSide(int length) { return length >= 1 && length <= kLongestSide; }

void check(const Picture& picture, const std::string& file) {
    fuzz::require(isSide(picture.width) && isSide(picture.height), "the sides keep to their range");
    const auto points = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    fuzz::require(points == picture.argb.size(), "every point is there");
    fuzz::require(points <= file.size() * 128 / 4, "the points come from the file");
    if (static_cast<unsigned char>(file.at(kBitsPlace)) != kPointBits) return;
    for (const std::uint32_t point : picture.argb) fuzz::require(point >> 24 == kOpaque, "24 bits are opaque");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file = fuzz::textOf(data, size);
    try {
        check(decodeTga(file), file);
    } catch (const RuntimeFailure& failure) {
        fuzz::require(*failure.what() != '\0', "a refusal tells why");
    }
    return 0;
}
