#include "platform/qt/shown_text.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(ShownTextTest, ShowsBytes) {
    const struct {
        std::string bytes;
        QString text;
    } cases[] = {
        {"plain ^1& <b>", u"plain ^1& <b>"_qs},
        {"\x80 5, \x93quoted\x94 \xFC", u"€ 5, “quoted” ü"_qs},
        {"j\xC3\xBCrgen", u"jürgen"_qs},
        {"\xD0\x9A\xD0\xB2\xD0\xB0\xD0\xBA\xD0\xB5", u"Кваке"_qs},
        {"\xC3\xBC and \xFC", u"Ã¼ and ü"_qs},  // not UTF-8 as a whole
        {"cut \xC3", u"cut Ã"_qs},              // an unfinished character
        {"\xC0\xAF", u"À¯"_qs},            // a longer form than needed
        {"\xED\xA0\x80", u"í\u00A0€"_qs},  // half a pair
    };
    for (const auto& c : cases) EXPECT_EQ(shown(c.bytes), c.text) << c.bytes;
}

TEST(ShownTextTest, EveryByteComesBack) {
    for (int number = 0; number < 256; ++number) {
        const std::string bytes(1, static_cast<char>(number));
        EXPECT_EQ(shown(bytes).size(), 1) << number;
        EXPECT_EQ(textBytes(shown(bytes)), bytes) << number;
        const bool control = number < 0x20 || number == 0x7F;
        EXPECT_EQ(typedBytes(shown(bytes)), control ? "" : bytes) << number;
    }
}

}  // namespace
}  // namespace gatehouse
