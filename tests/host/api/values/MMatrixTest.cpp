#include <maya/MMatrix.h>

#include "plainMatrices.h"

#include <maya/MFloatMatrix.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr PlainMatrix kIdentity = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
constexpr PlainMatrix kGeneral = {{{2, 1, 0, 1}, {0, 3, -1, 0}, {4, 0, 1, 2}, {1, -2, 5, 1}}};

TEST(MMatrix, InverseOfASingularMatrixIsTheIdentity) {
    EXPECT_EQ(toMMatrix(plainScale(1, 0, 1)).inverse(), MMatrix::identity);
    EXPECT_EQ((MMatrix() * 0.0).inverse(), MMatrix::identity);
}

TEST(MMatrix, IsSingularAsFarAsRoundingTells) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(toMMatrix(plainScale(1, 0, 1)).isSingular());
    EXPECT_TRUE(toMMatrix({{{0.1, 0.2, 0.3, 0}, {0.7, 1.4, 2.1, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}).isSingular());
    EXPECT_TRUE(toMMatrix(plainScale(nan, 1, 1)).isSingular());
    EXPECT_FALSE(toMMatrix(plainScale(1e-6, 1e-6, 1e-6)).isSingular());
    EXPECT_FALSE(MMatrix().isSingular());
}

TEST(MMatrix, IsTheIdentityAtFirst) {
    EXPECT_THAT(MMatrix(), IsMatrix(kIdentity, 0.0));
    EXPECT_EQ(MMatrix(), MMatrix::identity);
    MMatrix matrix = toMMatrix(kGeneral);
    EXPECT_EQ(matrix.setToIdentity(), MMatrix::identity);
}

TEST(MMatrix, LeftFactorOfAProductComesFirst) {
    const PlainMatrix left = plainEuler(0, 0.3, -0.7, 1.1);
    EXPECT_THAT(toMMatrix(left) * toMMatrix(kGeneral), IsMatrix(plainProduct(left, kGeneral), 1e-14));
    MMatrix product = toMMatrix(left);
    product *= toMMatrix(kGeneral);
    EXPECT_EQ(product, toMMatrix(left) * toMMatrix(kGeneral));
    EXPECT_EQ(MMatrix().setToProduct(toMMatrix(left), toMMatrix(kGeneral)), product);
}

TEST(MMatrix, InverseUndoesAffineAndGeneralMatrices) {
    const PlainMatrix affine = plainProduct(plainProduct(plainShear(0.5, -0.2, 0.1), plainScale(2, -3, 0.001)),
                                            plainProduct(plainEuler(3, 1, 2, 3), plainTranslation(10, 20, 30)));
    for (const PlainMatrix& matrix : {affine, kGeneral}) {
        EXPECT_THAT(toMMatrix(matrix) * toMMatrix(matrix).inverse(), IsMatrix(kIdentity, 1e-12));
    }
    EXPECT_THAT(toMMatrix(plainTranslation(1, 2, 3)).inverse(), IsMatrix(plainTranslation(-1, -2, -3), 0.0));
}

// By hand: without the first row in rows 2 and 3 the last column is (1, 0, 0, 0), and -det(0 3 -1; 0 -2 1; -1 -3 5)
// is 1.
TEST(MMatrix, DeterminantsAndAdjointAgree) {
    const MMatrix matrix = toMMatrix(kGeneral);
    EXPECT_DOUBLE_EQ(matrix.det3x3(), 2.0);
    EXPECT_DOUBLE_EQ(matrix.det4x4(), 1.0);
    EXPECT_THAT(matrix * matrix.adjoint(), IsMatrix(kIdentity, 1e-12));
    const MMatrix doubled = matrix * 2.0;
    EXPECT_DOUBLE_EQ(doubled.det4x4(), 16.0);
    EXPECT_THAT(doubled * doubled.adjoint() * (1.0 / 16.0), IsMatrix(kIdentity, 1e-12));
    EXPECT_DOUBLE_EQ(toMMatrix(plainScale(2, 3, -4)).det3x3(), -24.0);
}

TEST(MMatrix, TransposesAndHomogenizes) {
    const MMatrix matrix = toMMatrix(kGeneral);
    EXPECT_EQ(matrix.transpose()(0, 3), 1.0);
    EXPECT_EQ(matrix.transpose()(3, 0), matrix(0, 3));
    EXPECT_EQ((matrix * 4.0).homogenize(), matrix);
    MMatrix without = matrix;
    without[3][3] = 0.0;
    EXPECT_EQ(without.homogenize(), without);
}

TEST(MMatrix, SumsScalesAndCompares) {
    MMatrix matrix = toMMatrix(kGeneral);
    EXPECT_EQ(matrix + matrix, matrix * 2.0);
    EXPECT_EQ(2.0 * matrix - matrix, matrix);
    matrix += matrix;
    matrix -= toMMatrix(kGeneral);
    matrix *= 1.0;
    EXPECT_EQ(matrix, toMMatrix(kGeneral));
    MMatrix other = matrix;
    other[2][1] += 1e-11;
    EXPECT_TRUE(other != matrix);
    EXPECT_TRUE(other.isEquivalent(matrix));
    EXPECT_FALSE(other.isEquivalent(matrix, 1e-12));
}

TEST(MMatrix, ConvertsFromAndToPlainArrays) {
    const float source[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
    const MMatrix matrix(source);
    EXPECT_EQ(matrix(1, 2), 7.0);
    double doubles[4][4];
    float floats[4][4];
    EXPECT_TRUE(matrix.get(doubles));
    EXPECT_TRUE(matrix.get(floats));
    EXPECT_EQ(MMatrix(doubles), matrix);
    EXPECT_EQ(floats[3][2], 15.0f);
}

TEST(MFloatMatrix, FollowsTheDoubleOne) {
    const MMatrix matrix = toMMatrix(plainEuler(0, 0.3, -0.7, 1.1));
    const MFloatMatrix rounded(matrix.matrix);
    EXPECT_TRUE(MMatrix(rounded * rounded.inverse()).isEquivalent(MMatrix::identity, 1e-6));
    EXPECT_TRUE(MMatrix(rounded.transpose()).isEquivalent(matrix.transpose(), 1e-6));
    EXPECT_FLOAT_EQ(rounded.det4x4(), 1.0f);
    EXPECT_TRUE(rounded.isEquivalent(rounded * 1.000001f));
    EXPECT_FALSE(rounded == rounded * 1.5f);
}

} // namespace
