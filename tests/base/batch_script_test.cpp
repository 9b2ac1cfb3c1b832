#include "platform/batch_script.h"

#include "base/runtime_failure.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

using Words = std::vector<std::string>;

TEST(BatchScriptTest, SplitsAtBlanksAndQuotesGroup) {
    const struct {
        std::string line;
        Words words;
    } cases[] = {
        {"quake3.exe  +set a 1 ", {"quake3.exe", "+set", "a", "1"}},
        {R"("my game.exe" +set n "a  b")", {"my game.exe", "+set", "n", "a  b"}},
        {R"(pre"mid dle"post)", {"premid dlepost"}},
        {R"(%PATH% ^& a|b >c <d ; `e` $(f) 'g h' \"i)",
         {"%PATH%", "^&", "a|b", ">c", "<d", ";", "`e`", "$(f)", "'g", "h'", "\\i"}},
    };
    for (const auto& c : cases) EXPECT_EQ(splitProgramLine(c.line), c.words) << c.line;
}

TEST(BatchScriptTest, FailsWithTheLine) {
    const struct {
        std::string text, message;
    } cases[] = {
        {"", "The batch file names no program"},
        {"a\nb\n", "The batch file, line 2: b: it comes after the program line"},
        {":loop\n", "The batch file, line 1: :loop: it is not known"},
        {"cd \\a\n", "The batch file, line 1: cd \\a: it names no folder"},
        {"a " + std::string(32768, 'x'), "The batch file, line 1: a " + std::string(198, 'x') + ": it is too long"},
        {std::string("a \0b", 4), "The batch file, line 1: a  b: it holds a character that no program can be given"},
    };
    for (const auto& c : cases) {
        try {
            parseBatchScript(c.text);
            ADD_FAILURE() << "no failure: " << c.text.substr(0, 40);
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.what(), c.message);
        }
    }
}

}  // namespace
}  // namespace gatehouse
