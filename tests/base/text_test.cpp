#include "base/text.h"

#include "base/runtime_failure.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

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

TEST(Text, SearchesCountFromOne) {
    EXPECT_EQ(find("a|b|c", "|"), 2);
    EXPECT_EQ(find("a|b|c", "|", 3), 4);
    EXPECT_EQ(find("a|b|c", "|", 5), 0);
    EXPECT_EQ(find("abc", "x", 99), 0);
    EXPECT_EQ(findNoCase("abc|p|", "|P|"), 4);
    EXPECT_EQ(findNoCase("abc", "c", 9), 0);
    EXPECT_EQ(findNoCase("ab", "abc"), 0);
}

TEST(Text, CaseIsThatOfAsciiLettersAlone) {
    EXPECT_EQ(lower("AZ\xC4[`"), "az\xC4[`");
    EXPECT_TRUE(equalNoCase("Q3dm1", "q3DM1"));
    EXPECT_FALSE(equalNoCase("\xC4", "\xE4"));
}

}  // namespace
}  // namespace gatehouse
