#include "base/table.h"

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

using Words = Table<std::string>;

std::string joined(const Words& table) {
    std::string text;
    for (int i = 1; i <= table.count(); ++i) text += (i == table.current() ? "*" : "") + table.at(i) + " ";
    return text;
}

const std::string& self(const std::string& row, int) { return row; }

TEST(Table, TheFirstRowBecomesCurrentAndSortingKeepsIt) {
    Words table;
    for (const char* word : {"c", "a", "b"}) table.append(word);
    EXPECT_EQ(joined(table), "*c a b ");
    table.select(1);
    table.setSortState({.sorted = true});
    table.sort(self);
    EXPECT_EQ(joined(table), "a b *c ");
    EXPECT_TRUE(table.selected(3) && table.selectedCount() == 1);
    table.setSortState({.sorted = true, .descending = true});
    table.sort(self);
    EXPECT_EQ(joined(table), "*c b a ");
}

TEST(Table, RemovingKeepsTheCurrentRecordOrTakesItsPlace) {
    Words table;
    for (const char* word : {"a", "b", "c", "d"}) table.append(word);
    table.setCurrent(3);
    table.remove(1);
    EXPECT_EQ(joined(table), "b *c d ");
    table.remove(2);
    EXPECT_EQ(joined(table), "b *d ");
    table.remove(2);
    EXPECT_EQ(joined(table), "*b ");
    table.remove(1);
    EXPECT_EQ(table.current(), 0);
    EXPECT_THROW(table.remove(1), RuntimeFailure);
    for (int i = 1; i <= 100; ++i) table.append(std::to_string(i));
    table.setCurrent(52);
    table.retain([](int position, const std::string&) { return position % 2 == 0; });
    EXPECT_EQ(table.count(), 50);
    EXPECT_EQ(table.at(table.current()), "52");
}

}  // namespace
}  // namespace gatehouse
