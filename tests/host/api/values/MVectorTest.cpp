#include <maya/MVector.h>

#include "plainMatrices.h"

#include <maya/MEulerRotation.h>
#include <maya/MFloatVector.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MTransformationMatrix.h>

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(MVector, ANullVectorCannotBeNormalized) {
    MVector null;
    EXPECT_FALSE(null.normalize());
    EXPECT_EQ(null, MVector::zero);
    EXPECT_EQ(null.normal(), MVector::zero);
    EXPECT_EQ(null.angle(MVector::xAxis), 0.0);
}

TEST(MVector, DotAndCrossProduct) {
    const MVector a(1, 2, 3), b(4, -5, 6);
    EXPECT_EQ(a * b, 12.0);
    EXPECT_EQ(a ^ b, MVector(27, 6, -13));
    EXPECT_EQ(MVector::xAxis ^ MVector::yAxis, MVector::zAxis);
    EXPECT_EQ(MVector::zNegAxis, -MVector::zAxis);
}

TEST(MVector, Arithmetic) {
    MVector v(1, 2);
    EXPECT_EQ(v.z, 0.0);
    v += MVector(1, 1, 1);
    v *= 2.0;
    v -= MVector(0, 0, 1);
    v /= 2.0;
    EXPECT_EQ(v, MVector(2, 3, 0.5));
    EXPECT_EQ(2.0 * v, v + v);
    EXPECT_EQ(v / 0.5, v * 2.0);
    EXPECT_TRUE(v != -v);
    v[1] = 7.0;
    EXPECT_EQ(v(1), 7.0);
    double out[3];
    v.get(out);
    EXPECT_EQ(MVector(out), v);
}

TEST(MVector, IsARowVectorThatTranslationsDoNotMove) {
    const MMatrix quarterAboutZ = toMMatrix(plainProduct(plainRotation(2, 90 * kDegree), plainTranslation(5, 6, 7)));
    EXPECT_THAT(MVector::xAxis * quarterAboutZ, IsTriple(0, 1, 0, 1e-15));
    EXPECT_THAT(quarterAboutZ * MVector::xAxis, IsTriple(0, -1, 0, 1e-15));
    MVector v = MVector::yAxis;
    v *= quarterAboutZ;
    EXPECT_THAT(v, IsTriple(-1, 0, 0, 1e-15));
}

TEST(MVector, NormalsStayNormalUnderNonUniformScale) {
    const MMatrix flatten = toMMatrix(plainScale(2, 1, 1));
    const MVector inSurface(1, -1, 0), normal(1, 1, 0);
    EXPECT_NE((inSurface * flatten) * (normal * flatten), 0.0);
    EXPECT_NEAR((inSurface * flatten) * normal.transformAsNormal(flatten), 0.0, 1e-15);
}

TEST(MVector, AnglesKeepSmallDifferences) {
    EXPECT_DOUBLE_EQ(MVector::xAxis.angle(MVector(0, 5, 0)), 90 * kDegree);
    EXPECT_DOUBLE_EQ(MVector(3, 0, 0).angle(MVector(-1, 0, 0)), 180 * kDegree);
    EXPECT_NEAR(MVector(1, 0, 0).angle(MVector(1, 1e-9, 0)), 1e-9, 1e-18);
    EXPECT_TRUE(MVector(1, 2, 3).isParallel(MVector(-2, -4, -6)));
    EXPECT_FALSE(MVector(1, 2, 3).isParallel(MVector(1, 2, 3.1)));
    EXPECT_DOUBLE_EQ(MVector(2, 3, 6).length(), 7.0);
    EXPECT_DOUBLE_EQ(MVector(2, 3, 6).normal().length(), 1.0);
}

TEST(MVector, RotatesByEveryFormOfRotation) {
    const double angles[3] = {20 * kDegree, 30 * kDegree, 40 * kDegree};
    const MVector v(1, 2, 3);
    const MEulerRotation euler(angles, MEulerRotation::kZXY);
    const MVector expected = v * toMMatrix(plainEuler(2, angles[0], angles[1], angles[2]));
    EXPECT_TRUE(v.rotateBy(angles, MTransformationMatrix::kZXY).isEquivalent(expected));
    EXPECT_TRUE(v.rotateBy(euler).isEquivalent(expected));
    EXPECT_TRUE(v.rotateBy(euler.asQuaternion()).isEquivalent(expected));
    EXPECT_THAT(MVector::yAxis.rotateBy(MVector::kXaxis, 90 * kDegree), IsTriple(0, 0, 1, 1e-15));
    EXPECT_THAT(MVector::zAxis.rotateBy(MVector::kYaxis, 90 * kDegree), IsTriple(1, 0, 0, 1e-15));
    EXPECT_THAT(MVector::xAxis.rotateBy(MVector::kZaxis, 90 * kDegree), IsTriple(0, 1, 0, 1e-15));
}

TEST(MVector, RotateToTurnsIntoTheOthersDirection) {
    for (const MVector& to : {MVector(0, 2, 0), MVector(-3, 0, 0), MVector(1, 2, 3), MVector(1, 1e-9, 0)}) {
        const MVector turned = MVector(2, 0, 0).rotateBy(MVector(2, 0, 0).rotateTo(to));
        EXPECT_TRUE(turned.isEquivalent(to.normal() * 2.0)) << to;
    }
}

TEST(MVector, ConvertsFromTheOtherKinds) {
    EXPECT_EQ(MVector(MFloatVector(1.0f, 2.0f, 0.5f)), MVector(1, 2, 0.5));
    EXPECT_EQ(MVector(MPoint(1, 2, 3, 4)), MVector(1, 2, 3));
    EXPECT_EQ(MFloatVector(MVector(1, 2, 0.5)), MFloatVector(1.0f, 2.0f, 0.5f));
}

TEST(MVector, IsWrittenWithItsComponents) {
    std::ostringstream stream;
    stream << MVector(1, -2.5, 1e-5);
    EXPECT_EQ(stream.str(), "[1, -2.5, 1e-05]");
}

TEST(MFloatVector, FollowsTheDoubleOne) {
    MFloatVector v(2.0f, 3.0f, 6.0f);
    EXPECT_EQ(v.length(), 7.0f);
    EXPECT_TRUE(v.normalize());
    EXPECT_FLOAT_EQ(v.length(), 1.0f);
    EXPECT_EQ(MFloatVector(1, 2, 3) * MFloatVector(4, -5, 6), 12.0f);
    EXPECT_EQ(MFloatVector::xAxis ^ MFloatVector::yAxis, MFloatVector::zAxis);
    const MMatrix quarterAboutZ = toMMatrix(plainRotation(2, 90 * kDegree));
    EXPECT_TRUE((MFloatVector::xAxis * quarterAboutZ).isEquivalent(MFloatVector::yAxis));
    EXPECT_FLOAT_EQ(MFloatVector::xAxis.angle(MFloatVector::yAxis), 1.5707964f);
    EXPECT_FALSE(MFloatVector().normalize());
}

} // namespace
