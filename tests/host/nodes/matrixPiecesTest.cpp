#include "host/nodes/matrixPieces.h"

#include "GraphFixture.h"

namespace host {
namespace {

using Imath::V3d;

Matrix44 whole(const MatrixPieces& pieces) {
    TransformPieces parts;
    parts.scale = pieces.scale;
    parts.shear = pieces.shear;
    Matrix44 matrix = transformMatrix(parts) * matrixOf(pieces.rotation);
    for (int axis = 0; axis < 3; ++axis) {
        matrix[3][axis] = pieces.translate[axis];
    }
    return matrix;
}

TEST(MatrixPieces, AreWhatTheMatrixWasMadeOf) {
    TransformPieces parts;
    parts.scale = {2, 0.5, 3};
    parts.shear = {0.25, -0.5, 1.5};
    parts.rotate = {0.3, -0.7, 2.1};
    parts.translate = {1, -2, 3};
    const MatrixPieces pieces = piecesOf(transformMatrix(parts));
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(pieces.scale[axis], parts.scale[axis], 1e-12);
        EXPECT_NEAR(pieces.shear[axis], parts.shear[axis], 1e-12);
        EXPECT_EQ(pieces.translate[axis], parts.translate[axis]);
    }
    EXPECT_TRUE(isNear(matrixOf(pieces.rotation), matrixOf(rotationMatrix(parts.rotate, RotateOrder::kXYZ))));
}

TEST(MatrixPieces, OfMirrorsHaveNegativeScales) {
    TransformPieces parts;
    parts.scale = {2, -3, 4};
    parts.rotate = {0.5, 0.25, 0};
    const Matrix44 matrix = transformMatrix(parts);
    const MatrixPieces pieces = piecesOf(matrix);
    EXPECT_NEAR(pieces.scale.x, -2, 1e-12);
    EXPECT_NEAR(pieces.scale.y, -3, 1e-12);
    EXPECT_NEAR(pieces.scale.z, -4, 1e-12);
    EXPECT_GT(matrixOf(pieces.rotation).determinant(), 0.0);
    EXPECT_TRUE(isNear(whole(pieces), matrix));
}

TEST(MatrixPieces, OfFlatMatricesStillTurn) {
    const V3d scales[] = {{0, 2, 3}, {1, 0, 3}, {1, 2, 0}, {0, 0, 3}, {0, 2, 0}, {1, 0, 0}, {0, 0, 0}};
    for (const V3d& scale : scales) {
        TransformPieces parts;
        parts.scale = scale;
        parts.rotate = {0.4, 0.2, -1};
        const Matrix44 matrix = transformMatrix(parts);
        const MatrixPieces pieces = piecesOf(matrix);
        const Matrix44 turn = matrixOf(pieces.rotation);
        EXPECT_TRUE(isNear(turn * turn.transposed(), Matrix44(), 1e-9)) << scale;
        EXPECT_NEAR(turn.determinant(), 1.0, 1e-9) << scale;
        EXPECT_TRUE(isNear(whole(pieces), matrix, 1e-9)) << scale;
    }
}

} // namespace
} // namespace host
