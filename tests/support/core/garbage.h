#pragma once

#include <random>
#include <string>
#include <string_view>

namespace gatehouse::fake {

/// Nonsense, the same for the same seed: any byte, and pieces that the reader at hand takes notice of.
template <class Pieces>
std::string garbage(unsigned seed, const Pieces& pieces, int count = 400) {
    std::mt19937 random(seed);
    std::string text;
    for (int i = 0; i < count; ++i) {
        const auto drawn = random();
        if (drawn % 3 == 0)
            text += static_cast<char>((drawn >> 8) & 0xff);
        else if (drawn % 17 == 1)
            text += "\r\n";
        else
            text += std::string_view(pieces[(drawn >> 8) % std::size(pieces)]);
    }
    return text;
}

/// All bytes from 0x80 to 0xFF.
inline std::string highBytes() {
    std::string text;
    for (int byte = 0x80; byte <= 0xff; ++byte) text += static_cast<char>(byte);
    return text;
}

}  // namespace gatehouse::fake
