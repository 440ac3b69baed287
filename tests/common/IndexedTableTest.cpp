#include "common/IndexedTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

struct Identity {
    uint64_t operator()(uint32_t value) const { return value; }
};
struct AlwaysTheSame {
    uint64_t operator()(const std::string& /*value*/) const { return 7; }
};

TEST(IndexedTable, IsEmptyAtFirst) {
    const IndexedTable<uint32_t, Identity> table;
    EXPECT_TRUE(table.empty());
    EXPECT_EQ(table.size(), 0);
}

TEST(IndexedTable, NumbersValuesInTheOrderOfTheirFirstInsertion) {
    IndexedTable<uint32_t, Identity> table;
    EXPECT_EQ(table.findOrAdd(9), 0);
    EXPECT_EQ(table.findOrAdd(3), 1);
    EXPECT_EQ(table.findOrAdd(9), 0);
    EXPECT_EQ(table.findOrAdd(0), 2);
    EXPECT_EQ(table.entries(), (std::vector<uint32_t>{9, 3, 0}));
    EXPECT_EQ(table[1], 3U);
}

TEST(IndexedTable, TellsValuesOfOneHashApart) {
    IndexedTable<std::string, AlwaysTheSame> table;
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(table.findOrAdd(std::to_string(i)), i);
    }
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(table.findOrAdd(std::to_string(i)), i);
    }
    EXPECT_EQ(table.size(), 100);
}

TEST(IndexedTable, KeepsPlacesWhileItGrows) {
    IndexedTable<uint32_t, Identity> table;
    constexpr uint32_t kCount = 100000;
    for (uint32_t i = 0; i < kCount; ++i) {
        ASSERT_EQ(table.findOrAdd(i * 65536U), static_cast<int32_t>(i < 65536 ? i : i - 65536));
    }
    EXPECT_EQ(table.size(), 65536); // the rest wraps round to values that are there
}

} // namespace
} // namespace tvk
