#include <maya/MPoint.h>

#include "plainMatrices.h"

#include <maya/MFloatPoint.h>

#include <gtest/gtest.h>

namespace {

TEST(MPoint, WithoutAWeightIsLeftAsItIs) {
    MPoint point(1, 2, 3, 0);
    EXPECT_EQ(point.rationalize(), MPoint(1, 2, 3, 0));
    EXPECT_EQ(point.cartesianize(), MPoint(1, 2, 3, 0));
}

TEST(MPoint, DefaultsToTheOriginWithWeightOne) {
    EXPECT_EQ(MPoint(), MPoint(0, 0, 0, 1));
    EXPECT_EQ(MPoint(), MPoint::origin);
    EXPECT_EQ(MPoint(MVector(1, 2, 3)), MPoint(1, 2, 3, 1));
}

TEST(MPoint, DifferencesAreVectors) {
    const MPoint a(1, 2, 3), b(0, 4, 3);
    const MVector difference = a - b;
    EXPECT_EQ(difference, MVector(1, -2, 0));
    EXPECT_EQ(b + difference, a);
    EXPECT_EQ(a - difference, b);
    MPoint moved = a;
    moved += MVector(1, 1, 1);
    moved -= MVector(0, 1, 1);
    EXPECT_EQ(moved, MPoint(2, 2, 3));
    EXPECT_DOUBLE_EQ(MPoint(1, 2, 3).distanceTo(MPoint(3, 5, 9)), 7.0);
    EXPECT_TRUE(a.isEquivalent(MPoint(1, 2, 3 + 1e-11)));
    EXPECT_FALSE(a.isEquivalent(b));
}

TEST(MPoint, MultipliesInFourDimensions) {
    const MMatrix matrix = toMMatrix(plainProduct(plainRotation(2, 90 * kDegree), plainTranslation(5, 6, 7)));
    EXPECT_THAT(MPoint(1, 0, 0) * matrix, IsTriple(5, 7, 7, 1e-15));
    EXPECT_THAT(MPoint(1, 0, 0, 0) * matrix, IsTriple(0, 1, 0, 1e-15));
    MMatrix projection;
    projection[2][3] = 1.0;
    projection[3][3] = 0.0;
    const MPoint projected = MPoint(4, 6, 2) * projection;
    EXPECT_EQ(projected, MPoint(4, 6, 2, 2));
    MPoint inPlace(4, 6, 2);
    EXPECT_EQ(inPlace *= projection, projected);
    EXPECT_EQ(projection * MPoint(4, 6, 2, 3), MPoint(4, 6, 5, 0));
}

TEST(MPoint, ChangesBetweenItsForms) {
    MPoint point(4, 6, 2, 2);
    EXPECT_EQ(point.rationalize(), MPoint(2, 3, 1, 2));
    EXPECT_EQ(point.homogenize(), MPoint(4, 6, 2, 2));
    EXPECT_EQ(point.cartesianize(), MPoint(2, 3, 1, 1));
}

TEST(MPoint, ScalesItsCoordinatesOnly) {
    EXPECT_EQ(MPoint(1, 2, 3, 4) * 2.0, MPoint(2, 4, 6, 4));
    EXPECT_EQ(2.0 * MPoint(1, 2, 3), MPoint(2, 4, 6));
    EXPECT_EQ(MPoint(2, 4, 6) / 2.0, MPoint(1, 2, 3));
}

TEST(MFloatPoint, FollowsTheDoubleOne) {
    const MFloatPoint point(1.0f, 2.0f, 3.0f);
    EXPECT_EQ(point.w, 1.0f);
    EXPECT_EQ(MPoint(point), MPoint(1, 2, 3));
    EXPECT_EQ(MFloatPoint(MPoint(1, 2, 3, 4)), MFloatPoint(1.0f, 2.0f, 3.0f, 4.0f));
    EXPECT_EQ(point - MFloatPoint(0.0f, 4.0f, 3.0f), MFloatVector(1.0f, -2.0f, 0.0f));
    EXPECT_EQ(point * toMMatrix(plainTranslation(1, 1, 1)), MFloatPoint(2.0f, 3.0f, 4.0f));
    EXPECT_EQ(MFloatPoint(4.0f, 6.0f, 2.0f, 2.0f).cartesianize(), MFloatPoint(2.0f, 3.0f, 1.0f));
    EXPECT_EQ(point.distanceTo(MFloatPoint(3.0f, 5.0f, 9.0f)), 7.0f);
    EXPECT_EQ(MVector(point), MVector(1, 2, 3));
}

} // namespace
