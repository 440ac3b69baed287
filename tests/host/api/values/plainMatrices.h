#pragma once

#include <maya/MMatrix.h>

#include <gmock/gmock.h>

#include <array>

// Matrices worked out with nothing but sums and products, to judge the API's classes by.

using PlainMatrix = std::array<std::array<double, 4>, 4>;

PlainMatrix plainProduct(const PlainMatrix& left, const PlainMatrix& right);

// Elementary rotations for row vectors about x (0), y (1) or z (2), radians.
PlainMatrix plainRotation(int axis, double angle);
PlainMatrix plainScale(double x, double y, double z);
PlainMatrix plainShear(double xy, double xz, double yz);
PlainMatrix plainTranslation(double x, double y, double z);

// The product of three elementary rotations: order is 0 xyz, 1 yzx, 2 zxy, 3 xzy, 4 yxz, 5 zyx; the leftmost letter's
// rotation is the left factor. The angles are those about x, y and z.
PlainMatrix plainEuler(int order, double x, double y, double z);

MMatrix toMMatrix(const PlainMatrix& matrix);

constexpr double kDegree = 3.14159265358979323846 / 180.0;

MATCHER_P2(IsMatrix, expected, tolerance, "") {
    for (unsigned int row = 0; row < 4; ++row) {
        for (unsigned int column = 0; column < 4; ++column) {
            // Written so that what is not a number does not match.
            if (!(std::abs(arg(row, column) - expected[row][column]) <= tolerance)) {
                *result_listener << "row " << row << ", column " << column << ": " << arg(row, column) << " instead of "
                                 << expected[row][column];
                return false;
            }
        }
    }
    return true;
}

MATCHER_P4(IsTriple, x, y, z, tolerance, "") {
    return std::abs(arg.x - x) <= tolerance && std::abs(arg.y - y) <= tolerance && std::abs(arg.z - z) <= tolerance;
}
