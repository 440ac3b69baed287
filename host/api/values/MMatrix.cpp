#include <maya/MMatrix.h>

#include "host/api/values/imathConversions.h"

#include <maya/MFloatMatrix.h>

#include <cmath>

using host::api::fromImath;
using host::api::toImath;

namespace {

// Rows whose volume is this small beside the box of their lengths differ by no more than rounding.
constexpr double kSingular = 1e-14;

template <class From, class To>
void copyElements(const From (&from)[4][4], To (*to)[4]) {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            to[row][column] = static_cast<To>(from[row][column]);
        }
    }
}

} // namespace

const MMatrix MMatrix::identity;

MMatrix::MMatrix(const double source[4][4]) : MMatrix() {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            matrix[row][column] = source[row][column];
        }
    }
}

MMatrix::MMatrix(const float source[4][4]) : MMatrix() {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            matrix[row][column] = static_cast<double>(source[row][column]);
        }
    }
}

MMatrix::MMatrix(const MFloatMatrix& source) : MMatrix(source.matrix) {}

MStatus MMatrix::get(double out[4][4]) const {
    copyElements(matrix, out);
    return MStatus::kSuccess;
}

MStatus MMatrix::get(float out[4][4]) const {
    copyElements(matrix, out);
    return MStatus::kSuccess;
}

MMatrix MMatrix::operator+(const MMatrix& other) const {
    return fromImath(toImath(*this) + toImath(other));
}

MMatrix MMatrix::operator-(const MMatrix& other) const {
    return fromImath(toImath(*this) - toImath(other));
}

MMatrix MMatrix::operator*(const MMatrix& other) const {
    return fromImath(toImath(*this) * toImath(other));
}

MMatrix MMatrix::operator*(double factor) const {
    return fromImath(toImath(*this) * factor);
}

MMatrix operator*(double factor, const MMatrix& other) {
    return other * factor;
}

MMatrix& MMatrix::operator+=(const MMatrix& other) {
    return *this = *this + other;
}

MMatrix& MMatrix::operator-=(const MMatrix& other) {
    return *this = *this - other;
}

MMatrix& MMatrix::operator*=(const MMatrix& other) {
    return *this = *this * other;
}

MMatrix& MMatrix::operator*=(double factor) {
    return *this = *this * factor;
}

bool MMatrix::operator==(const MMatrix& other) const {
    return toImath(*this) == toImath(other);
}

MMatrix& MMatrix::setToIdentity() {
    return *this = MMatrix();
}

MMatrix& MMatrix::setToProduct(const MMatrix& left, const MMatrix& right) {
    return *this = left * right;
}

MMatrix MMatrix::inverse() const {
    return fromImath(toImath(*this).inverse());
}

MMatrix MMatrix::transpose() const {
    return fromImath(toImath(*this).transposed());
}

MMatrix MMatrix::adjoint() const {
    const Imath::M44d source = toImath(*this);
    MMatrix result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const double sign = (row + column) % 2 == 0 ? 1.0 : -1.0;
            result.matrix[column][row] = sign * source.minorOf(row, column);
        }
    }
    return result;
}

MMatrix MMatrix::homogenize() const {
    return matrix[3][3] == 0.0 ? *this : *this * (1.0 / matrix[3][3]);
}

double MMatrix::det4x4() const {
    return toImath(*this).determinant();
}

double MMatrix::det3x3() const {
    return toImath(*this).fastMinor(0, 1, 2, 0, 1, 2);
}

bool MMatrix::isSingular() const {
    double box = 1.0;
    for (const double(&row)[4] : matrix) {
        box *= std::hypot(std::hypot(row[0], row[1]), std::hypot(row[2], row[3]));
    }
    return !(std::fabs(det4x4()) > kSingular * box);
}

bool MMatrix::isEquivalent(const MMatrix& other, double tolerance) const {
    return toImath(*this).equalWithAbsError(toImath(other), tolerance);
}
