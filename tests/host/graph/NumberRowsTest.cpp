#include "host/graph/NumberRows.h"

#include <gtest/gtest.h>

#include <limits>

using host::NumberRows;

namespace {

constexpr double kFill[] = {7.0, 8.0};

std::vector<std::int32_t> indicesOf(const NumberRows& rows) {
    std::vector<std::int32_t> indices;
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        indices.push_back(rows.logicalIndex(row));
    }
    return indices;
}

} // namespace

TEST(NumberRows, FindsNothingInAnEmptyBlock) {
    const NumberRows rows(1, NumberRows::Storage::kFloat);
    EXPECT_EQ(rows.findRow(0), -1);
    EXPECT_EQ(rows.findRow(-1), -1);
    EXPECT_EQ(rows.rowCount(), 0U);
}

TEST(NumberRows, StaysDenseWhileRowsContinue) {
    NumberRows rows(2, NumberRows::Storage::kDouble);
    EXPECT_EQ(rows.makeRow(0, kFill), 0U);
    EXPECT_EQ(rows.makeRow(1, kFill), 1U);
    EXPECT_EQ(rows.makeRow(0, kFill), 0U);
    EXPECT_TRUE(rows.isDense());
    EXPECT_EQ(rows.rowCount(), 2U);
    EXPECT_EQ(rows.value(1, 1), 8.0);
    EXPECT_EQ(rows.findRow(2), -1);
}

TEST(NumberRows, KeepsSparseRowsAscendingInAnyOrderOfMaking) {
    NumberRows rows(2, NumberRows::Storage::kInt);
    for (const std::int32_t logical : {5, 2, 2147483647, 3, 0}) {
        const std::size_t row = rows.makeRow(logical, kFill);
        rows.setValue(row, 0, logical);
    }
    EXPECT_EQ(rows.findRow(4), -1);
    EXPECT_FALSE(rows.isDense());
    EXPECT_EQ(indicesOf(rows), (std::vector<std::int32_t>{0, 2, 3, 5, 2147483647}));
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        EXPECT_EQ(rows.value(row, 0), rows.logicalIndex(row));
        EXPECT_EQ(rows.value(row, 1), 8.0);
        EXPECT_EQ(rows.findRow(rows.logicalIndex(row)), static_cast<std::ptrdiff_t>(row));
    }
    EXPECT_EQ(rows.findRow(4), -1);
}

TEST(NumberRows, RowsThatComeBackwardsCostNoMoreThanOthers) {
    constexpr std::int32_t kCount = 300000; // moving what follows each time would take minutes
    NumberRows rows(2, NumberRows::Storage::kFloat);
    for (std::int32_t logical = kCount; logical-- > 0;) {
        const std::size_t row = rows.makeRow(logical, kFill);
        rows.setValue(row, 0, logical);
        ASSERT_EQ(rows.findRow(logical), static_cast<std::ptrdiff_t>(row));
    }
    EXPECT_EQ(rows.makeRow(kCount - 1, kFill), 0U); // is there already, and not sorted in yet
    EXPECT_EQ(rows.rowCount(), static_cast<std::size_t>(kCount));
    EXPECT_EQ(rows.logicalIndex(0), 0);
    EXPECT_TRUE(rows.isDense()); // none is missing in the end
    for (std::int32_t logical = 0; logical < kCount; ++logical) {
        ASSERT_EQ(rows.findRow(logical), logical);
        ASSERT_EQ(rows.floats()[2 * static_cast<std::size_t>(logical)], static_cast<float>(logical));
    }
}

TEST(NumberRows, RowsMadeOutOfOrderAreSortedInBeforeOneIsRemoved) {
    NumberRows rows(2, NumberRows::Storage::kInt);
    for (const std::int32_t logical : {7, 3, 5}) {
        rows.setValue(rows.makeRow(logical, kFill), 1, 10.0 * logical);
    }
    EXPECT_TRUE(rows.remove(5));
    EXPECT_EQ(rows.makeRow(4, kFill), 2U);
    EXPECT_EQ(rows.logicalIndex(1), 4);
    EXPECT_EQ(rows.value(0, 1), 30.0);
    EXPECT_EQ(rows.value(2, 1), 70.0);
}

TEST(NumberRows, BecomesSparseAtAGap) {
    NumberRows rows(1, NumberRows::Storage::kFloat);
    rows.makeRow(0, kFill);
    rows.makeRow(1, kFill);
    EXPECT_EQ(rows.makeRow(10, kFill), 2U);
    EXPECT_EQ(indicesOf(rows), (std::vector<std::int32_t>{0, 1, 10}));
}

TEST(NumberRows, AppendsOnlyWhereABlockContinues) {
    NumberRows rows(2, NumberRows::Storage::kFloat);
    EXPECT_EQ(rows.appendDense(1, 3), NumberRows::npos);
    EXPECT_EQ(rows.appendDense(0, 3), 0U);
    EXPECT_EQ(rows.floats().size(), 6U);
    EXPECT_EQ(rows.appendDense(3, 2), 6U);
    EXPECT_EQ(rows.appendDense(1, 2), 2U); // within: written again
    EXPECT_EQ(rows.appendDense(4, 2), 8U); // half within
    EXPECT_EQ(rows.rowCount(), 6U);
    EXPECT_EQ(rows.appendDense(-1, 1), NumberRows::npos);
    EXPECT_EQ(rows.appendDense(6, 2147483648U), NumberRows::npos);
    rows.makeRow(100, kFill);
    EXPECT_EQ(rows.appendDense(101, 1), NumberRows::npos);
}

TEST(NumberRows, RemovesRows) {
    NumberRows rows(1, NumberRows::Storage::kInt);
    for (std::int32_t logical = 0; logical < 4; ++logical) {
        rows.setValue(rows.makeRow(logical, kFill), 0, 10.0 * logical);
    }
    EXPECT_FALSE(rows.remove(4));
    EXPECT_TRUE(rows.remove(3));
    EXPECT_TRUE(rows.isDense());
    EXPECT_TRUE(rows.remove(1));
    EXPECT_EQ(indicesOf(rows), (std::vector<std::int32_t>{0, 2}));
    EXPECT_EQ(rows.value(1, 0), 20.0);
    EXPECT_TRUE(rows.remove(0));
    EXPECT_TRUE(rows.remove(2));
    EXPECT_EQ(rows.rowCount(), 0U);
    EXPECT_EQ(rows.makeRow(0, kFill), 0U);
}

TEST(NumberRows, HoldsNumbersBeyondTheStoredType) {
    NumberRows floats(1, NumberRows::Storage::kFloat);
    floats.makeRow(0, kFill);
    floats.setValue(0, 0, 1e300);
    EXPECT_EQ(floats.value(0, 0), std::numeric_limits<double>::infinity());
    floats.setValue(0, 0, -1e300);
    EXPECT_EQ(floats.value(0, 0), -std::numeric_limits<double>::infinity());
    floats.setValue(0, 0, 0.1);
    EXPECT_EQ(floats.value(0, 0), static_cast<double>(0.1F));

    NumberRows ints(1, NumberRows::Storage::kInt);
    ints.makeRow(0, kFill);
    ints.setValue(0, 0, 1e300);
    EXPECT_EQ(ints.value(0, 0), 2147483647.0);
    ints.setValue(0, 0, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(ints.value(0, 0), 0.0);
}
