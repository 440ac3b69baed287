#include "geometry/MatrixSet.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

TEST(MatrixSet, SortsAndCountsOnce) {
    MatrixSet set;
    for (const int32_t matrix : {7, 2, 7, 9, 2})
        set.add(matrix);
    EXPECT_EQ(set.sorted(), (std::array<int32_t, 4>{2, 7, 9, MatrixSet::kNone}));
}

TEST(MatrixSet, TakesFour) {
    MatrixSet set;
    for (const int32_t matrix : {4, 3, 2, 1, 4})
        set.add(matrix);
    EXPECT_EQ(set.sorted(), (std::array<int32_t, 4>{1, 2, 3, 4}));
}

TEST(MatrixSet, SmallerSetsComeFirst) {
    MatrixSet one;
    one.add(1);
    MatrixSet two = one;
    two.add(5);
    EXPECT_TRUE(one < two);
    EXPECT_TRUE(one != two);
}

} // namespace
} // namespace tvk
