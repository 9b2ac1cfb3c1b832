#include "window/rules/player_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

TEST(PlayerRules, TheNameIsShownAsTheGameColoursIt) {
    struct Case {
        std::string name, shown;  ///< '#' stands for the cells that keep what they showed
        Colour first;
    };
    const Case cases[] = {{"", "", kBlack},          {"^1^6Bob^2", "Bob", kMagenta},   {"^^2x", "#", kGreen},
                          {"ab^9cd", "ab#", kWhite}, {"^7ab^", "ab#", kWhite},         {"   abcdef", "   abc", kWhite},
                          {"^0abcdefghijklmnopqrstuvwxyz", "abcdefghijklmnopqrstuvwxy", kBlack}};
    for (Case one : cases) {
        NameCells cells;
        cells.fill({'#', kGreen});
        cells = previewName(cells, one.name);
        one.shown.resize(kNameCells, one.shown.ends_with('#') ? '#' : ' ');
        for (std::size_t i = 0; i < kNameCells; ++i) EXPECT_EQ(cells[i].character, one.shown[i]) << one.name << i;
        EXPECT_EQ(cells[0].colour, one.first) << one.name;
    }
}

}  // namespace
}  // namespace gatehouse
