#include <maya/MBoundingBox.h>

#include "plainMatrices.h"

#include <gtest/gtest.h>

namespace {

TEST(MBoundingBox, AnEmptyOneHoldsNothing) {
    MBoundingBox box;
    EXPECT_FALSE(box.contains(MPoint()));
    EXPECT_FALSE(box.intersects(MBoundingBox(MPoint(-1, -1, -1), MPoint(1, 1, 1))));
    EXPECT_EQ(box.width(), 0.0);
    EXPECT_EQ(box.min(), MPoint());
    box.transformUsing(toMMatrix(plainTranslation(1, 2, 3)));
    box.expand(MBoundingBox());
    EXPECT_FALSE(box.contains(MPoint(1, 2, 3)));
    box.expand(MPoint(5, 6, 7));
    EXPECT_EQ(box.min(), MPoint(5, 6, 7));
    EXPECT_EQ(box.max(), MPoint(5, 6, 7));
    box.clear();
    EXPECT_EQ(box.max(), MPoint());
}

TEST(MBoundingBox, TakesAnyTwoOppositeCorners) {
    const MBoundingBox box(MPoint(1, -2, 3), MPoint(-1, 2, 5));
    EXPECT_EQ(box.min(), MPoint(-1, -2, 3));
    EXPECT_EQ(box.max(), MPoint(1, 2, 5));
    EXPECT_EQ(box.width(), 2.0);
    EXPECT_EQ(box.height(), 4.0);
    EXPECT_EQ(box.depth(), 2.0);
    EXPECT_EQ(box.center(), MPoint(0, 0, 4));
    EXPECT_TRUE(box.contains(MPoint(1, 2, 5)));
    EXPECT_FALSE(box.contains(MPoint(1, 2, 5.001)));
}

TEST(MBoundingBox, ExpandsByPointsAndBoxes) {
    MBoundingBox box(MPoint(0, 0, 0), MPoint(1, 1, 1));
    box.expand(MPoint(0.5, 3, -1));
    box.expand(MBoundingBox(MPoint(-2, 0, 0), MPoint(0, 0, 0)));
    EXPECT_EQ(box.min(), MPoint(-2, 0, -1));
    EXPECT_EQ(box.max(), MPoint(1, 3, 1));
}

TEST(MBoundingBox, IntersectsWithATolerance) {
    const MBoundingBox box(MPoint(0, 0, 0), MPoint(1, 1, 1)), beside(MPoint(1.1, 0, 0), MPoint(2, 1, 1));
    EXPECT_FALSE(box.intersects(beside));
    EXPECT_TRUE(box.intersects(beside, 0.2));
    EXPECT_TRUE(beside.intersects(box, 0.2));
    EXPECT_TRUE(box.intersects(MBoundingBox(MPoint(1, 1, 1), MPoint(2, 2, 2))));
}

TEST(MBoundingBox, GoesAroundItsTransformedCorners) {
    MBoundingBox box(MPoint(-1, -1, -1), MPoint(1, 1, 1));
    box.transformUsing(toMMatrix(plainProduct(plainRotation(2, 45 * kDegree), plainTranslation(10, 0, 0))));
    EXPECT_TRUE(box.max().isEquivalent(MPoint(10 + 1.4142135623730951, 1.4142135623730951, 1)));
    EXPECT_TRUE(box.min().isEquivalent(MPoint(10 - 1.4142135623730951, -1.4142135623730951, -1)));
}

} // namespace
