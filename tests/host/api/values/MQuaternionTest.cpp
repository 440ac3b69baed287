#include <maya/MQuaternion.h>

#include "plainMatrices.h"

#include <maya/MEulerRotation.h>

#include <gtest/gtest.h>

namespace {

constexpr PlainMatrix kIdentity = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

TEST(MQuaternion, NullQuaternionsAndAxesDoNotRotate) {
    const MQuaternion null(0, 0, 0, 0);
    EXPECT_THAT(null.asMatrix(), IsMatrix(kIdentity, 0.0));
    EXPECT_EQ(null.inverse(), MQuaternion::identity);
    EXPECT_EQ(null.normal(), MQuaternion::identity);
    EXPECT_EQ(MQuaternion(1.0, MVector::zero), MQuaternion::identity);
    EXPECT_EQ(MQuaternion(MVector::zero, MVector::xAxis), MQuaternion::identity);
    MVector axis;
    double angle = 1.0;
    EXPECT_FALSE(MQuaternion().getAxisAngle(axis, angle));
    EXPECT_EQ(axis, MVector::xAxis);
    EXPECT_EQ(angle, 0.0);
}

TEST(MQuaternion, MatrixFollowsTheElementaryRotations) {
    const double angle = 37 * kDegree;
    EXPECT_THAT(MQuaternion().setToXAxis(angle).asMatrix(), IsMatrix(plainRotation(0, angle), 1e-15));
    EXPECT_THAT(MQuaternion().setToYAxis(angle).asMatrix(), IsMatrix(plainRotation(1, angle), 1e-15));
    EXPECT_THAT(MQuaternion().setToZAxis(angle).asMatrix(), IsMatrix(plainRotation(2, angle), 1e-15));
    EXPECT_THAT(MQuaternion(angle, MVector(0, 0, 5)).asMatrix(), IsMatrix(plainRotation(2, angle), 1e-15));
}

TEST(MQuaternion, IsTheHalfAnglesSineAndCosine) {
    const MQuaternion quarter(90 * kDegree, MVector::zAxis);
    EXPECT_TRUE(quarter.isEquivalent(MQuaternion(0, 0, 0.70710678118654752, 0.70710678118654752), 1e-15));
    EXPECT_EQ(quarter[2], quarter.z);
    double out[4];
    quarter.get(out);
    EXPECT_EQ(MQuaternion(out), quarter);
}

TEST(MQuaternion, LeftFactorOfAProductComesFirst) {
    const MQuaternion x = MQuaternion().setToXAxis(50 * kDegree), y = MQuaternion().setToYAxis(20 * kDegree);
    const PlainMatrix expected = plainProduct(plainRotation(0, 50 * kDegree), plainRotation(1, 20 * kDegree));
    EXPECT_THAT((x * y).asMatrix(), IsMatrix(expected, 1e-15));
    MQuaternion product = x;
    product *= y;
    EXPECT_EQ(product, x * y);
}

TEST(MQuaternion, InverseUndoes) {
    const MQuaternion q = MQuaternion(1, -2, 3, 0.5);
    EXPECT_TRUE((q * q.inverse()).isEquivalent(MQuaternion::identity, 1e-15));
    EXPECT_EQ(q.conjugate(), MQuaternion(-1, 2, -3, 0.5));
    MQuaternion changed = q;
    EXPECT_EQ(changed.conjugateIt().conjugateIt(), q);
    EXPECT_TRUE(changed.invertIt().invertIt().isEquivalent(q, 1e-14));
    changed = q;
    changed.negateIt();
    EXPECT_TRUE(changed.asMatrix().isEquivalent(q.asMatrix()));
    EXPECT_EQ(changed, -q);
    EXPECT_EQ(changed.scaleIt(-1.0), q);
    EXPECT_EQ(q + q, 2.0 * q);
    EXPECT_EQ(q * 3.0 - q, q * 2.0);
}

TEST(MQuaternion, ComesFromMatricesWhateverTheirScale) {
    const double angle = 200 * kDegree;
    const PlainMatrix rotation = plainProduct(plainRotation(1, angle), plainRotation(0, 0.3));
    MQuaternion q;
    q = toMMatrix(plainProduct(plainScale(2, 0.5, 7), rotation));
    EXPECT_THAT(q.asMatrix(), IsMatrix(rotation, 1e-14));
    q = toMMatrix(plainProduct(plainScale(-1, -1, -1), rotation));
    EXPECT_THAT(q.asMatrix(), IsMatrix(rotation, 1e-14));
    q = MEulerRotation(0.1, 0.2, 0.3, MEulerRotation::kYXZ);
    EXPECT_THAT(q.asMatrix(), IsMatrix(plainEuler(4, 0.1, 0.2, 0.3), 1e-15));
    const MEulerRotation euler = q.asEulerRotation();
    EXPECT_EQ(euler.order, MEulerRotation::kXYZ);
    EXPECT_THAT(euler.asMatrix(), IsMatrix(plainEuler(4, 0.1, 0.2, 0.3), 1e-15));
}

TEST(MQuaternion, TellsAxisAndAngle) {
    MVector axis;
    double angle = 0.0;
    EXPECT_TRUE(MQuaternion(250 * kDegree, MVector(0, 3, 4)).getAxisAngle(axis, angle));
    EXPECT_THAT(axis, IsTriple(0, 0.6, 0.8, 1e-15));
    EXPECT_NEAR(angle, 250 * kDegree, 1e-14);
}

TEST(MQuaternion, TurnsOneDirectionIntoAnother) {
    const MQuaternion half(MVector(2, 0, 0), MVector(0, 0, 3), 0.5);
    EXPECT_THAT(MVector::xAxis * half.asMatrix(), IsTriple(0.70710678118654752, 0, 0.70710678118654752, 1e-15));
    const MQuaternion back(MVector::xAxis, MVector::xNegAxis);
    EXPECT_THAT(MVector::xAxis * back.asMatrix(), IsTriple(-1, 0, 0, 1e-15));
}

TEST(MQuaternion, SlerpTakesTheShorterArcAtConstantSpeed) {
    const MQuaternion start, end = MQuaternion().setToYAxis(80 * kDegree);
    const PlainMatrix quarter = plainRotation(1, 20 * kDegree);
    EXPECT_THAT(slerp(start, end, 0.25).asMatrix(), IsMatrix(quarter, 1e-15));
    EXPECT_THAT(slerp(start, -end, 0.25).asMatrix(), IsMatrix(quarter, 1e-15));
    EXPECT_TRUE(slerp(start, end, 0.0).isEquivalent(start));
    EXPECT_TRUE(slerp(start, end, 1.0).isEquivalent(end));
    EXPECT_TRUE(slerp(end, end, 0.5).isEquivalent(end));
}

} // namespace
