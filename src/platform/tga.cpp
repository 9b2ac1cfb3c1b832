#include "platform/tga.h"

#include "base/runtime_failure.h"

#include <algorithm>

namespace gatehouse {

namespace {

constexpr unsigned kPlain = 2;
constexpr unsigned kRunLength = 10;
constexpr unsigned kLongestSide = 4096;
constexpr std::size_t kLongestPacket = 128;
constexpr std::uint32_t kOpaque = 0xFF000000;

constexpr unsigned kFromTheRight = 0x10;
constexpr unsigned kFromTheTop = 0x20;
constexpr unsigned kInterleaved = 0xC0;
constexpr unsigned kIsRun = 0x80;

[[noreturn]] void failAtEnd() { throw RuntimeFailure("the picture's data end too early"); }

/// What is still to be read of the file; never beyond its end.
class Bytes {
public:
    explicit Bytes(std::string_view all) : rest_(all) {}

    std::size_t left() const { return rest_.size(); }
    std::string_view take(std::size_t count) {
        if (count > rest_.size()) failAtEnd();
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }
    /// A number of so many bytes, the lowest first.
    unsigned number(std::size_t count) {
        const std::string_view taken = take(count);
        unsigned value = 0;
        for (auto byte = taken.rbegin(); byte != taken.rend(); ++byte)
            value = value << 8 | static_cast<unsigned char>(*byte);
        return value;
    }

private:
    std::string_view rest_;
};

struct Header {
    unsigned kind = 0;
    unsigned width = 0;
    unsigned height = 0;
    std::size_t depth = 0;  ///< bytes of a point
    unsigned flags = 0;

    std::size_t points() const { return std::size_t{width} * height; }
};

/// Ends the reading unless it is a picture that can be read.
void requireKnown(const Header& header, unsigned bits, unsigned colourMap) {
    if (header.kind != kPlain && header.kind != kRunLength)
        throw RuntimeFailure("a TGA picture of kind " + std::to_string(header.kind) + " is not known");
    if (colourMap > 1) throw RuntimeFailure("a colour map of kind " + std::to_string(colourMap) + " is not known");
    if (bits != 24 && bits != 32) throw RuntimeFailure("points of " + std::to_string(bits) + " bits are not known");
    if (header.flags & kInterleaved) throw RuntimeFailure("a picture with interleaved lines is not known");
    const auto [shorter, longer] = std::minmax(header.width, header.height);
    if (shorter < 1 || longer > kLongestSide)
        throw RuntimeFailure("the picture claims " + std::to_string(header.width) + " x " +
                             std::to_string(header.height) + " points: a side may have 1 to " +
                             std::to_string(kLongestSide));
}

/// Leaves the points next to be read.
Header readHeader(Bytes& bytes) {
    const std::size_t idLength = bytes.number(1);
    const unsigned colourMap = bytes.number(1);
    Header header;
    header.kind = bytes.number(1);
    bytes.take(2);  // where the colour map starts to count
    const std::size_t mapLength = bytes.number(2);
    const std::size_t mapBits = bytes.number(1);
    bytes.take(4);  // the place on a screen
    header.width = bytes.number(2);
    header.height = bytes.number(2);
    const unsigned bits = bytes.number(1);
    header.flags = bytes.number(1);
    header.depth = bits / 8;
    requireKnown(header, bits, colourMap);

    bytes.take(idLength);
    // A picture of true colours may bring a map along that it has no use for.
    if (colourMap == 1) bytes.take(mapLength * ((mapBits + 7) / 8));
    return header;
}

/// The most points that so many bytes can stand for.
std::size_t mostPoints(const Header& header, std::size_t bytes) {
    return header.kind == kPlain ? bytes / header.depth : bytes / (1 + header.depth) * kLongestPacket;
}

/// The fourth byte is taken as it stands, whatever the header says of it: writers often leave that out.
std::uint32_t readPoint(Bytes& bytes, std::size_t depth) {
    return depth == 4 ? bytes.number(4) : kOpaque | bytes.number(3);
}

using Points = std::vector<std::uint32_t>;

void readPlain(Bytes& bytes, const Header& header, Points& points, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) points.push_back(readPoint(bytes, header.depth));
}

/// A packet may cross the end of a line, but not that of the picture.
void readRunLength(Bytes& bytes, const Header& header, Points& points) {
    while (points.size() < header.points()) {
        const unsigned head = bytes.number(1);
        const std::size_t count = (head & ~kIsRun) + 1;
        if (count > header.points() - points.size()) throw RuntimeFailure("a run reaches beyond the picture's end");
        if (head & kIsRun)
            points.insert(points.end(), count, readPoint(bytes, header.depth));
        else
            readPlain(bytes, header, points, count);
    }
}

/// Puts the upper left corner first. The reverse of the whole is both turns at once.
void turnUpright(const Header& header, Points& points) {
    const bool fromTheTop = header.flags & kFromTheTop;
    const bool fromTheRight = header.flags & kFromTheRight;
    if (!fromTheTop) std::reverse(points.begin(), points.end());
    if (fromTheTop != fromTheRight) return;
    for (auto line = points.begin(); line != points.end(); line += header.width)
        std::reverse(line, line + header.width);
}

}  // namespace

Picture decodeTga(std::string_view file) {
    Bytes bytes(file);
    const Header header = readHeader(bytes);
    if (header.points() > mostPoints(header, bytes.left())) failAtEnd();

    Picture picture{static_cast<int>(header.width), static_cast<int>(header.height), {}};
    picture.argb.reserve(header.points());
    if (header.kind == kPlain)
        readPlain(bytes, header, picture.argb, header.points());
    else
        readRunLength(bytes, header, picture.argb);
    turnUpright(header, picture.argb);
    return picture;
}

}  // namespace gatehouse
