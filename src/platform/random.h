#pragma once

#include <cstdint>

namespace gatehouse {

/// Uniform numbers from a generator seeded with a constant, so that every run draws the same ones.
class Random {
public:
    /// The next number in [0, 1).
    double next();

private:
    std::uint64_t state_ = 0x9E3779B97F4A7C15u;
};

}  // namespace gatehouse
