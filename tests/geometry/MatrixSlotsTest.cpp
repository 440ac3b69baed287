#include "geometry/MatrixSlots.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace tvk {
namespace {

using List = std::vector<int32_t>;

List range(int32_t first, int32_t count) {
    List list(static_cast<std::size_t>(count));
    std::iota(list.begin(), list.end(), first);
    return list;
}

TEST(MatrixSlots, HoldNothingAtFirst) {
    const MatrixSlots slots;
    EXPECT_EQ(slots.slotOf(0), -1);
    EXPECT_EQ(slots.slotOf(-1), -1);
    EXPECT_FALSE(slots.holds(0));
}

TEST(MatrixSlots, FirstGroupFillsSlotsInListOrder) {
    MatrixSlots slots;
    EXPECT_EQ(slots.load({5, 3, 8}), (List{5, 3, 8}));
    EXPECT_EQ(slots.slotOf(5), 0);
    EXPECT_EQ(slots.slotOf(8), 2);
}

TEST(MatrixSlots, HeldMatricesAreLeftAlone) {
    MatrixSlots slots;
    slots.load({5, 3, 8});
    EXPECT_EQ(slots.load({3, 9}), (List{9, -1, -1}));
    EXPECT_EQ(slots.slotOf(5), -1);
    EXPECT_EQ(slots.slotOf(3), 1);
    EXPECT_EQ(slots.slotOf(8), 2);
}

TEST(MatrixSlots, NewMatrixBeforeAHeldOneDoesNotEvictIt) {
    MatrixSlots slots;
    slots.load({5});
    EXPECT_EQ(slots.load({7, 5}), (List{-1, 7}));
    EXPECT_EQ(slots.slotOf(5), 0);
}

TEST(MatrixSlots, ListIsAsLongAsTheSlotsEverUsed) {
    MatrixSlots slots;
    EXPECT_EQ(slots.load(range(0, 31)).size(), 31u);
    List expected(31, -1);
    expected[0] = 40;
    EXPECT_EQ(slots.load({40}), expected);
}

TEST(MatrixSlots, AllSlotsCanChangeAtOnce) {
    MatrixSlots slots;
    slots.load(range(0, 31));
    EXPECT_EQ(slots.load(range(100, 31)), range(100, 31));
}

} // namespace
} // namespace tvk
