#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gatehouse {

/// A picture in memory, its lines from the top down.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> argb;  ///< one number for each point, 0xAARRGGBB
    friend bool operator==(const Picture&, const Picture&) = default;
};

/// Pictures of the formats that the game and this program keep. Each call fails with `RuntimeFailure` for a file or
/// bytes that are no such picture.
class Pictures {
public:
    virtual ~Pictures() = default;
    /// A JPEG or BMP file, to look at: a large one may come back smaller, in its own proportions.
    virtual Picture open(const std::string& path) = 0;
    /// The bytes of a BMP file that shows the picture, without its transparency.
    virtual std::string bmp(Picture picture) = 0;
    /// The bytes of a PNG file of an SVG drawing on white, of that width in points. Fails for what is no drawing, and
    /// for one that would be too large.
    virtual std::string png(const std::string& svg, int width) = 0;
};

}  // namespace gatehouse
