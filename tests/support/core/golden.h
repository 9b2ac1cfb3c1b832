#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace gatehouse {

/// Bytes of a golden file.
inline std::string golden(const std::string& name) {
    std::ifstream file(std::string(GATEHOUSE_GOLDEN_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace gatehouse
