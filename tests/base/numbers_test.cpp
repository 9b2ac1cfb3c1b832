#include "base/numbers.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

TEST(Numbers, ValReadsTheLongestNumberAtTheStart) {
    const struct {
        std::string text;
        double value;
    } cases[] = {
        {"", 0},          {"abc", 0},     {"12abc", 12},  {"  7", 7},    {"1 2 3", 123}, {"-3.5x", -3.5}, {".5.5", 0.5},
        {"1e2", 100},     {"1e", 1},      {"1d2", 100},   {"+4", 4},     {"--4", 0},     {".", 0},        {"- 5", -5},
        {"0x10", 0},      {"1,5", 1},     {"\t9", 9},     {"\xA0" "5", 0}, {"inf", 0},     {"nan", 0},
    };
    for (const auto& one : cases) EXPECT_DOUBLE_EQ(val(one.text), one.value) << one.text;
    EXPECT_GT(val("1e999999"), 1e300);
    EXPECT_EQ(val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(val(std::string(1000000, '9') + "e-9999999"), val(std::string(4096, '9')));
}

TEST(Numbers, StrictConversionRoundsTiesToEvenAndRefusesTheRest) {
    EXPECT_EQ(strictInt16(" 12 "), 12);
    EXPECT_EQ(strictInt16("2.5"), 2);
    EXPECT_EQ(strictInt16("3.5"), 4);
    EXPECT_EQ(strictInt16("-32768"), -32768);
    for (const std::string text : {"", " ", "abc", "1x", "1 2", "0x1", "\"1\"", "32768", "-32769", "1e5", "32767.5"})
        EXPECT_THROW(strictInt16(text), RuntimeFailure) << text;
    EXPECT_TRUE(strictBoolean("TRUE") && strictBoolean("-1") && !strictBoolean("False"));
    EXPECT_THROW(strictBoolean("yes"), RuntimeFailure);
    EXPECT_THROW(valInt16("99999"), RuntimeFailure);
    EXPECT_THROW(addInt16(32767, 1), RuntimeFailure);
}

TEST(Text, CutsFailForNegativeLengthsAndAreBoundedOtherwise) {
    EXPECT_EQ(mid("abcdef", 3, 2), "cd");
    EXPECT_EQ(mid("abc", 3, 100), "c");
    EXPECT_EQ(mid("abc", 9, 1), "");
    EXPECT_EQ(right("abc", 9), "abc");
    EXPECT_EQ(cut("maps/q3dm1.bsp", 5, 4), "q3dm1");
    EXPECT_EQ(cut("ab", 2, 0), "");
    EXPECT_THROW(cut("a", 2, 0), RuntimeFailure);
    EXPECT_THROW(left("abc", -1), RuntimeFailure);
    EXPECT_THROW(mid("abc", 0, 1), RuntimeFailure);
    EXPECT_THROW(padLeft("12345", 4), RuntimeFailure);
}

}  // namespace
}  // namespace gatehouse
