#include <maya/MTransformationMatrix.h>

#include "plainMatrices.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

static_assert(MTransformationMatrix::kInvalid == 0 && MTransformationMatrix::kXYZ == 1 &&
              MTransformationMatrix::kYZX == 2 && MTransformationMatrix::kZXY == 3 &&
              MTransformationMatrix::kXZY == 4 && MTransformationMatrix::kYXZ == 5 &&
              MTransformationMatrix::kZYX == 6 && MTransformationMatrix::kLast == 7);

PlainMatrix product(const std::vector<PlainMatrix>& factors) {
    PlainMatrix result = plainScale(1, 1, 1);
    for (const PlainMatrix& factor : factors) {
        result = plainProduct(result, factor);
    }
    return result;
}

MVector scaleOf(const MTransformationMatrix& transformation) {
    double scale[3];
    EXPECT_TRUE(transformation.getScale(scale, MSpace::kTransform));
    return MVector(scale);
}

MVector shearOf(const MTransformationMatrix& transformation) {
    double shear[3];
    EXPECT_TRUE(transformation.getShear(shear, MSpace::kTransform));
    return MVector(shear);
}

// A transformation with every piece, and the same by plain matrices.
struct Pieces {
    MTransformationMatrix transformation;
    PlainMatrix matrix;
};

Pieces allPieces() {
    Pieces pieces;
    MTransformationMatrix& t = pieces.transformation;
    const double scale[3] = {2, 3, -0.5}, shear[3] = {0.1, 0.2, -0.3};
    const double rotation[3] = {20 * kDegree, -35 * kDegree, 110 * kDegree};
    EXPECT_TRUE(t.setScale(scale, MSpace::kTransform));
    EXPECT_TRUE(t.setShear(shear, MSpace::kTransform));
    EXPECT_TRUE(t.setRotation(rotation, MTransformationMatrix::kZXY));
    t.setRotationOrientation(MEulerRotation(0.4, 0.5, 0.6).asQuaternion());
    EXPECT_TRUE(t.setScalePivot(MPoint(1, 2, 3), MSpace::kTransform, false));
    EXPECT_TRUE(t.setScalePivotTranslation(MVector(4, 5, 6), MSpace::kTransform));
    EXPECT_TRUE(t.setRotatePivot(MPoint(-7, 8, 9), MSpace::kTransform, false));
    EXPECT_TRUE(t.setRotatePivotTranslation(MVector(10, -11, 12), MSpace::kTransform));
    EXPECT_TRUE(t.setTranslation(MVector(13, 14, -15), MSpace::kTransform));
    pieces.matrix = product({plainTranslation(-1, -2, -3), plainScale(2, 3, -0.5), plainShear(0.1, 0.2, -0.3),
                             plainTranslation(1, 2, 3), plainTranslation(4, 5, 6), plainTranslation(7, -8, -9),
                             plainEuler(0, 0.4, 0.5, 0.6), plainEuler(2, rotation[0], rotation[1], rotation[2]),
                             plainTranslation(-7, 8, 9), plainTranslation(10, -11, 12), plainTranslation(13, 14, -15)});
    return pieces;
}

TEST(MTransformationMatrix, RefusesSpacesAndOrdersThatAreNone) {
    Pieces pieces = allPieces();
    MTransformationMatrix& t = pieces.transformation;
    double numbers[3] = {77, 77, 77};
    MTransformationMatrix::RotationOrder order = MTransformationMatrix::kLast;
    for (const MSpace::Space space : {MSpace::kInvalid, MSpace::kLast}) {
        MStatus status;
        EXPECT_EQ(t.getScale(numbers, space), MS::kInvalidParameter);
        EXPECT_EQ(t.getShear(numbers, space), MS::kInvalidParameter);
        EXPECT_EQ(t.getRotation(numbers, order, space), MS::kInvalidParameter);
        EXPECT_EQ(numbers[0], 77.0);
        EXPECT_EQ(order, MTransformationMatrix::kLast);
        EXPECT_EQ(t.getTranslation(space, &status), MVector::zero);
        EXPECT_EQ(status, MS::kInvalidParameter);
        EXPECT_EQ(t.rotatePivot(space, &status), MPoint::origin);
        EXPECT_EQ(status, MS::kInvalidParameter);
        EXPECT_EQ(t.setTranslation(MVector::one, space), MS::kInvalidParameter);
        EXPECT_EQ(t.setScalePivot(MPoint(), space, true), MS::kInvalidParameter);
        EXPECT_EQ(t.addRotationQuaternion(1, 0, 0, 0, space), MS::kInvalidParameter);
    }
    const double angles[3] = {1, 1, 1};
    EXPECT_EQ(t.setRotation(angles, MTransformationMatrix::kLast), MS::kInvalidParameter);
    EXPECT_EQ(t.setRotation(angles, MTransformationMatrix::kInvalid), MS::kInvalidParameter);
    EXPECT_EQ(t.reorderRotation(MTransformationMatrix::kInvalid), MS::kInvalidParameter);
    EXPECT_THAT(t.asMatrix(), IsMatrix(pieces.matrix, 1e-12));
}

TEST(MTransformationMatrix, ZeroScaleKeepsAValidRotation) {
    const PlainMatrix rotation = plainEuler(0, 0.3, -0.4, 2.0);
    const struct {
        double x, y, z;
    } scales[] = {{0, 2, 3}, {2, 0, 3}, {2, 3, 0}, {0, 0, 3}, {0, 2, 0}, {2, 0, 0}, {0, 0, 0}};
    for (const auto& scale : scales) {
        const PlainMatrix matrix = plainProduct(plainScale(scale.x, scale.y, scale.z), rotation);
        const MTransformationMatrix t(toMMatrix(matrix));
        EXPECT_THAT(scaleOf(t), IsTriple(scale.x, scale.y, scale.z, 1e-14));
        EXPECT_THAT(shearOf(t), IsTriple(0, 0, 0, 1e-14));
        EXPECT_THAT(t.asMatrix(), IsMatrix(matrix, 1e-14));
        EXPECT_NEAR(t.asRotateMatrix().det3x3(), 1.0, 1e-14);
    }
    // One missing axis is determined by the two others.
    const MTransformationMatrix flat(toMMatrix(plainProduct(plainScale(2, 0, 3), rotation)));
    EXPECT_THAT(flat.asRotateMatrix(), IsMatrix(rotation, 1e-14));
}

TEST(MTransformationMatrix, DependentRowsAreAZeroScaleWithoutShear) {
    const MTransformationMatrix t(toMMatrix({{{0.1, 0.2, 0.3, 0}, {0.7, 1.4, 2.1, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}));
    EXPECT_EQ(scaleOf(t).y, 0.0);
    EXPECT_EQ(shearOf(t).x, 0.0);
    EXPECT_NEAR(t.asRotateMatrix().det3x3(), 1.0, 1e-14);
}

TEST(MTransformationMatrix, WhatIsNotANumberDoesNotReachTheRotation) {
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, inf, -inf}) {
        const MTransformationMatrix t(toMMatrix(plainScale(1, bad, 1)));
        EXPECT_EQ(scaleOf(t), MVector(1, 0, 1));
        EXPECT_EQ(shearOf(t), MVector(0, 0, 0));
        EXPECT_TRUE(t.eulerRotation().isZero());
    }
}

TEST(MTransformationMatrix, MirroringGivesThreeNegativeScales) {
    const PlainMatrix rotation = plainEuler(0, 0.3, -0.4, 2.0);
    const PlainMatrix mirrored = product({plainScale(-2, 3, 4), plainShear(0.1, 0.2, 0.3), rotation});
    const MTransformationMatrix t(toMMatrix(mirrored));
    EXPECT_THAT(scaleOf(t), IsTriple(-2, -3, -4, 1e-13));
    EXPECT_THAT(t.asMatrix(), IsMatrix(mirrored, 1e-13));
    EXPECT_NEAR(t.asRotateMatrix().det3x3(), 1.0, 1e-14);
}

TEST(MTransformationMatrix, SplitsAMatrixIntoItsPieces) {
    const PlainMatrix matrix = product(
        {plainScale(2, 3, 0.01), plainShear(0.1, -0.2, 5), plainEuler(0, 0.3, -0.4, 2.0), plainTranslation(4, 5, 6)});
    const MTransformationMatrix t(toMMatrix(matrix));
    EXPECT_THAT(scaleOf(t), IsTriple(2, 3, 0.01, 1e-13));
    EXPECT_THAT(shearOf(t), IsTriple(0.1, -0.2, 5, 1e-12));
    EXPECT_TRUE(t.eulerRotation().isEquivalent(MEulerRotation(0.3, -0.4, 2.0), 1e-13));
    EXPECT_EQ(t.getTranslation(MSpace::kTransform), MVector(4, 5, 6));
    EXPECT_EQ(t.rotationOrder(), MTransformationMatrix::kXYZ);
    EXPECT_EQ(t.rotatePivot(MSpace::kTransform), MPoint::origin);
    EXPECT_THAT(t.asMatrix(), IsMatrix(matrix, 1e-13));
    MTransformationMatrix assigned;
    assigned = toMMatrix(matrix);
    EXPECT_EQ(assigned, t);
}

// Row 0 is (0, 0, -1) at 90 degrees about y: what x and z cannot share goes to x.
TEST(MTransformationMatrix, GimbalLockPutsTheWholeTurnOnX) {
    const MTransformationMatrix t(toMMatrix(plainEuler(0, 40 * kDegree, 90 * kDegree, 25 * kDegree)));
    EXPECT_THAT(t.eulerRotation(), IsTriple(15 * kDegree, 90 * kDegree, 0, 1e-12));
}

TEST(MTransformationMatrix, MultipliesItsPiecesInTheOrderOfATransform) {
    const Pieces pieces = allPieces();
    EXPECT_THAT(pieces.transformation.asMatrix(), IsMatrix(pieces.matrix, 1e-12));
    EXPECT_THAT(pieces.transformation.asMatrix() * pieces.transformation.asMatrixInverse(),
                IsMatrix(plainScale(1, 1, 1), 1e-12));
    EXPECT_THAT(pieces.transformation.asScaleMatrix(), IsMatrix(plainScale(2, 3, -0.5), 0.0));
    EXPECT_THAT(
        pieces.transformation.asRotateMatrix(),
        IsMatrix(plainProduct(plainEuler(0, 0.4, 0.5, 0.6), plainEuler(2, 20 * kDegree, -35 * kDegree, 110 * kDegree)),
                 1e-14));
}

TEST(MTransformationMatrix, GivesItsPiecesBack) {
    const MTransformationMatrix t = allPieces().transformation;
    EXPECT_EQ(scaleOf(t), MVector(2, 3, -0.5));
    EXPECT_EQ(shearOf(t), MVector(0.1, 0.2, -0.3));
    EXPECT_EQ(t.scalePivot(MSpace::kTransform), MPoint(1, 2, 3));
    EXPECT_EQ(t.rotatePivot(MSpace::kObject), MPoint(-7, 8, 9));
    EXPECT_EQ(t.scalePivotTranslation(MSpace::kTransform), MVector(4, 5, 6));
    EXPECT_EQ(t.rotatePivotTranslation(MSpace::kTransform), MVector(10, -11, 12));
    EXPECT_EQ(t.translation(MSpace::kTransform), MVector(13, 14, -15));
    double rotation[3];
    MTransformationMatrix::RotationOrder order = MTransformationMatrix::kInvalid;
    EXPECT_TRUE(t.getRotation(rotation, order));
    EXPECT_EQ(order, MTransformationMatrix::kZXY);
    EXPECT_EQ(rotation[2], 110 * kDegree);
    EXPECT_EQ(t.eulerRotation().order, MEulerRotation::kZXY);
    double x = 0, y = 0, z = 0, w = 0;
    EXPECT_TRUE(t.getRotationQuaternion(x, y, z, w));
    EXPECT_EQ(MQuaternion(x, y, z, w), t.rotation());
}

TEST(MTransformationMatrix, WorldSpaceCountsTheWholeTransformation) {
    Pieces pieces = allPieces();
    MTransformationMatrix& t = pieces.transformation;
    const std::array<double, 4>& row = pieces.matrix[3];
    EXPECT_THAT(t.getTranslation(MSpace::kWorld), IsTriple(row[0], row[1], row[2], 1e-12));
    EXPECT_TRUE(t.setTranslation(MVector(1, 2, 3), MSpace::kPostTransform));
    EXPECT_THAT(t.getTranslation(MSpace::kPostTransform), IsTriple(1, 2, 3, 1e-12));
    EXPECT_TRUE(t.addTranslation(MVector(1, 0, 0), MSpace::kTransform));
    EXPECT_THAT(t.getTranslation(MSpace::kWorld), IsTriple(2, 2, 3, 1e-12));
    EXPECT_TRUE(t.rotatePivot(MSpace::kWorld).isEquivalent(MPoint(-7, 8, 9) * t.asMatrix()));
}

TEST(MTransformationMatrix, BalancedPivotsLeaveTheMatrixAlone) {
    for (const MSpace::Space space : {MSpace::kTransform, MSpace::kWorld}) {
        Pieces pieces = allPieces();
        EXPECT_TRUE(pieces.transformation.setRotatePivot(MPoint(100, -50, 20), space, true));
        EXPECT_THAT(pieces.transformation.asMatrix(), IsMatrix(pieces.matrix, 1e-11));
        EXPECT_TRUE(pieces.transformation.rotatePivot(space).isEquivalent(MPoint(100, -50, 20), 1e-9));
        EXPECT_TRUE(pieces.transformation.setScalePivot(MPoint(3, 30, 300), space, true));
        EXPECT_THAT(pieces.transformation.asMatrix(), IsMatrix(pieces.matrix, 1e-11));
        EXPECT_TRUE(pieces.transformation.scalePivot(space).isEquivalent(MPoint(3, 30, 300), 1e-9));
        EXPECT_TRUE(pieces.transformation.setRotatePivot(MPoint(), space, false));
        EXPECT_FALSE(pieces.transformation.asMatrix().isEquivalent(toMMatrix(pieces.matrix)));
    }
}

TEST(MTransformationMatrix, RotatesBeforeInObjectSpaceAndAfterElsewhere) {
    const PlainMatrix own = plainRotation(0, 0.5), further = plainRotation(2, 0.7);
    for (const MSpace::Space space : {MSpace::kTransform, MSpace::kPostTransform, MSpace::kWorld, MSpace::kObject}) {
        MTransformationMatrix t(toMMatrix(own));
        const double angles[3] = {0, 0, 0.7};
        EXPECT_TRUE(t.addRotation(angles, MTransformationMatrix::kXYZ, space));
        const PlainMatrix expected = space == MSpace::kObject ? plainProduct(further, own) : plainProduct(own, further);
        EXPECT_THAT(t.asMatrix(), IsMatrix(expected, 1e-14)) << space;
        MTransformationMatrix byQuaternion(toMMatrix(own));
        byQuaternion.rotateBy(MQuaternion(0.7, MVector::zAxis), space);
        EXPECT_TRUE(byQuaternion.isEquivalent(t));
    }
}

TEST(MTransformationMatrix, ReordersItsRotation) {
    Pieces pieces = allPieces();
    EXPECT_TRUE(pieces.transformation.reorderRotation(MTransformationMatrix::kYXZ));
    EXPECT_EQ(pieces.transformation.rotationOrder(), MTransformationMatrix::kYXZ);
    EXPECT_THAT(pieces.transformation.asMatrix(), IsMatrix(pieces.matrix, 1e-12));
    pieces.transformation.rotateTo(pieces.transformation.rotation());
    EXPECT_EQ(pieces.transformation.rotationOrder(), MTransformationMatrix::kYXZ);
    EXPECT_THAT(pieces.transformation.asMatrix(), IsMatrix(pieces.matrix, 1e-12));
    pieces.transformation.rotateTo(MEulerRotation(1, 2, 3, MEulerRotation::kXZY));
    EXPECT_EQ(pieces.transformation.rotationOrder(), MTransformationMatrix::kXZY);
}

TEST(MTransformationMatrix, PartOfATransformationGoesFromNothingToAll) {
    const Pieces pieces = allPieces();
    EXPECT_THAT(pieces.transformation.asMatrix(0.0), IsMatrix(plainScale(1, 1, 1), 1e-12));
    EXPECT_THAT(pieces.transformation.asMatrix(1.0), IsMatrix(pieces.matrix, 1e-12));
    MTransformationMatrix t;
    const double scale[3] = {3, 1, 1}, factors[3] = {1, 2, 1}, shear[3] = {1, 0, 0};
    t.setScale(scale, MSpace::kTransform);
    t.addScale(factors, MSpace::kTransform);
    t.addShear(shear, MSpace::kTransform);
    t.setRotationQuaternion(0, 0, std::sin(0.5), std::cos(0.5));
    t.setTranslation(MVector(8, 0, 0), MSpace::kTransform);
    const PlainMatrix half =
        product({plainScale(2, 1.5, 1), plainShear(0.5, 0, 0), plainRotation(2, 0.5), plainTranslation(4, 0, 0)});
    EXPECT_THAT(t.asMatrix(0.5), IsMatrix(half, 1e-14));
}

} // namespace
