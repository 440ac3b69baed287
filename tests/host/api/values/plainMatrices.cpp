#include "plainMatrices.h"

#include <cmath>

namespace {

constexpr PlainMatrix kIdentity = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

constexpr int kAxes[6][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};

} // namespace

PlainMatrix plainProduct(const PlainMatrix& left, const PlainMatrix& right) {
    PlainMatrix product{};
    for (std::size_t cell = 0; cell < 16; ++cell) {
        const std::size_t row = cell / 4, column = cell % 4;
        for (std::size_t i = 0; i < 4; ++i) {
            product[row][column] += left[row][i] * right[i][column];
        }
    }
    return product;
}

PlainMatrix plainRotation(int axis, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    switch (axis) {
    case 0:
        return {{{1, 0, 0, 0}, {0, c, s, 0}, {0, -s, c, 0}, {0, 0, 0, 1}}};
    case 1:
        return {{{c, 0, -s, 0}, {0, 1, 0, 0}, {s, 0, c, 0}, {0, 0, 0, 1}}};
    default:
        return {{{c, s, 0, 0}, {-s, c, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    }
}

PlainMatrix plainScale(double x, double y, double z) {
    return {{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}}};
}

PlainMatrix plainShear(double xy, double xz, double yz) {
    return {{{1, 0, 0, 0}, {xy, 1, 0, 0}, {xz, yz, 1, 0}, {0, 0, 0, 1}}};
}

PlainMatrix plainTranslation(double x, double y, double z) {
    return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {x, y, z, 1}}};
}

PlainMatrix plainEuler(int order, double x, double y, double z) {
    const double angles[3] = {x, y, z};
    PlainMatrix product = kIdentity;
    for (const int axis : kAxes[order]) {
        product = plainProduct(product, plainRotation(axis, angles[axis]));
    }
    return product;
}

MMatrix toMMatrix(const PlainMatrix& matrix) {
    MMatrix result;
    for (unsigned int row = 0; row < 4; ++row) {
        for (unsigned int column = 0; column < 4; ++column) {
            result[row][column] = matrix[row][column];
        }
    }
    return result;
}
