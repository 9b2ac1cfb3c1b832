#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// What a target defines: it takes one input and returns 0. A crash, a hang, an exception that leaves it and a broken
/// promise are findings.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace gatehouse::fuzz {

inline std::string textOf(const std::uint8_t* data, std::size_t size) { return std::string(data, data + size); }

/// Ends the process, unless the promise is kept.
inline void require(bool kept, const std::string& promise) {
    if (kept) return;
    std::fprintf(stderr, "broken: %s\n", promise.c_str());
    std::abort();
}

}  // namespace gatehouse::fuzz
