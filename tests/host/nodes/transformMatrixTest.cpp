#include "host/nodes/transformMatrix.h"

#include "GraphFixture.h"

#include <cmath>
#include <limits>

namespace host {
namespace {

using Imath::M33d;
using Imath::V3d;

Matrix44 moved(double x, double y, double z) {
    return rows({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {x, y, z});
}

// The elementary rotations for row vectors, written out as the documentation of the host gives them.
Matrix44 turnedX(double a) {
    return rows({1, 0, 0}, {0, std::cos(a), std::sin(a)}, {0, -std::sin(a), std::cos(a)}, {0, 0, 0});
}
Matrix44 turnedY(double a) {
    return rows({std::cos(a), 0, -std::sin(a)}, {0, 1, 0}, {std::sin(a), 0, std::cos(a)}, {0, 0, 0});
}
Matrix44 turnedZ(double a) {
    return rows({std::cos(a), std::sin(a), 0}, {-std::sin(a), std::cos(a), 0}, {0, 0, 1}, {0, 0, 0});
}
Matrix44 scaled(double x, double y, double z) {
    return rows({x, 0, 0}, {0, y, 0}, {0, 0, z}, {0, 0, 0});
}

TEST(TransformMatrix, TakesUnknownRotateOrdersAsTheFirst) {
    for (const double number : {-1.0, 6.0, 1e300, -1e300, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(rotateOrderOf(number), RotateOrder::kXYZ) << number;
    }
    EXPECT_EQ(rotateOrderOf(5.0), RotateOrder::kZYX);
}

TEST(TransformMatrix, IsTheIdentityForANewNode) {
    EXPECT_TRUE(isNear(transformMatrix({}), Matrix44(), 0.0));
    EXPECT_TRUE(isNear(jointMatrix({}, {}), Matrix44(), 0.0));
}

TEST(TransformMatrix, AppliesTheThreeAnglesInTheOrderOfTheName) {
    const double x = 0.3;
    const double y = -1.1;
    const double z = 2.0;
    struct Row {
        RotateOrder order;
        Matrix44 expected;
    };
    const Row orders[] = {{RotateOrder::kXYZ, turnedX(x) * turnedY(y) * turnedZ(z)},
                          {RotateOrder::kYZX, turnedY(y) * turnedZ(z) * turnedX(x)},
                          {RotateOrder::kZXY, turnedZ(z) * turnedX(x) * turnedY(y)},
                          {RotateOrder::kXZY, turnedX(x) * turnedZ(z) * turnedY(y)},
                          {RotateOrder::kYXZ, turnedY(y) * turnedX(x) * turnedZ(z)},
                          {RotateOrder::kZYX, turnedZ(z) * turnedY(y) * turnedX(x)}};
    for (const Row& row : orders) {
        TransformPieces pieces;
        pieces.rotate = {x, y, z};
        pieces.rotateOrder = row.order;
        EXPECT_TRUE(isNear(transformMatrix(pieces), row.expected)) << static_cast<int>(row.order);
    }
}

TEST(TransformMatrix, TurnsAPointByXFirstInTheUsualOrder) {
    TransformPieces pieces;
    pieces.rotate = {90 * kDegree, 90 * kDegree, 0};
    // Y goes to Z by the first turn, Z to X by the second.
    EXPECT_TRUE((V3d(0, 1, 0) * transformMatrix(pieces)).equalWithAbsError(V3d(1, 0, 0), 1e-15));
}

TEST(TransformMatrix, IsTheProductOfAllItsPieces) {
    TransformPieces p;
    p.scale = {2, 3, -0.5};
    p.shear = {0.1, 0.2, 0.3};
    p.rotate = {0.4, 0.5, 0.6};
    p.rotateOrder = RotateOrder::kZXY;
    p.rotateAxis = {0.7, 0.8, 0.9};
    p.translate = {10, 20, 30};
    p.rotatePivot = {1, 2, 3};
    p.rotatePivotTranslate = {4, 5, 6};
    p.scalePivot = {-1, -2, -3};
    p.scalePivotTranslate = {7, 8, 9};
    const Matrix44 shear = rows({1, 0, 0}, {0.1, 1, 0}, {0.2, 0.3, 1}, {0, 0, 0});
    const Matrix44 expected = moved(1, 2, 3) * scaled(2, 3, -0.5) * shear * moved(-1, -2, -3) * moved(7, 8, 9) *
                              moved(-1, -2, -3) * turnedX(0.7) * turnedY(0.8) * turnedZ(0.9) * turnedZ(0.6) *
                              turnedX(0.4) * turnedY(0.5) * moved(1, 2, 3) * moved(4, 5, 6) * moved(10, 20, 30);
    EXPECT_TRUE(isNear(transformMatrix(p), expected));
}

TEST(TransformMatrix, LeavesTheRotatePivotInPlace) {
    TransformPieces pieces;
    pieces.rotate = {0, 0, 90 * kDegree};
    pieces.rotatePivot = {2, 0, 0};
    pieces.translate = {5, 0, 0};
    pieces.rotatePivotTranslate = {0, 0, 1};
    const Matrix44 matrix = transformMatrix(pieces);
    EXPECT_TRUE((V3d(2, 0, 0) * matrix).equalWithAbsError(V3d(7, 0, 1), 1e-15));
    // Row 3 is t + rpt + rp - rp * R, not the translation.
    EXPECT_TRUE(V3d(matrix[3][0], matrix[3][1], matrix[3][2]).equalWithAbsError(V3d(7, -2, 1), 1e-15));
}

TEST(TransformMatrix, ScalesAboutTheScalePivot) {
    TransformPieces pieces;
    pieces.scale = {3, 1, 1};
    pieces.scalePivot = {1, 0, 0};
    EXPECT_TRUE((V3d(1, 0, 0) * transformMatrix(pieces)).equalWithAbsError(V3d(1, 0, 0), 1e-15));
    EXPECT_TRUE((V3d(2, 0, 0) * transformMatrix(pieces)).equalWithAbsError(V3d(4, 0, 0), 1e-15));
}

TEST(JointMatrix, IsTheProductOfAllItsPieces) {
    TransformPieces p;
    p.scale = {2, 3, 4};
    p.shear = {0.1, 0.2, 0.3};
    p.rotate = {0.4, 0.5, 0.6};
    p.rotateOrder = RotateOrder::kYXZ;
    p.rotateAxis = {0.7, 0.8, 0.9};
    p.translate = {10, 20, 30};
    p.rotatePivot = {100, 100, 100};
    JointPieces joint;
    joint.jointOrient = {-0.1, -0.2, -0.3};
    joint.inverseScale = {2, 4, 5};
    const Matrix44 shear = rows({1, 0, 0}, {0.1, 1, 0}, {0.2, 0.3, 1}, {0, 0, 0});
    const Matrix44 turned = scaled(2, 3, 4) * shear * turnedX(0.7) * turnedY(0.8) * turnedZ(0.9) * turnedY(0.5) *
                            turnedX(0.4) * turnedZ(0.6) * turnedX(-0.1) * turnedY(-0.2) * turnedZ(-0.3);
    EXPECT_TRUE(isNear(jointMatrix(p, joint), turned * scaled(0.5, 0.25, 0.2) * moved(10, 20, 30)));
    joint.segmentScaleCompensate = false;
    EXPECT_TRUE(isNear(jointMatrix(p, joint), turned * moved(10, 20, 30)));
}

TEST(JointMatrix, TakesAZeroInverseScaleAsOne) {
    JointPieces joint;
    joint.inverseScale = {0, 2, 0};
    EXPECT_TRUE(isNear(jointMatrix({}, joint), scaled(1, 0.5, 1), 0.0));
}

} // namespace
} // namespace host
