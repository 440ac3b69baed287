#include <maya/MFloatMatrix.h>

namespace {

MFloatMatrix rounded(const MMatrix& matrix) {
    return MFloatMatrix(matrix.matrix);
}

} // namespace

MFloatMatrix::MFloatMatrix(const double source[4][4]) : MFloatMatrix() {
    MMatrix(source).get(matrix);
}

MFloatMatrix::MFloatMatrix(const float source[4][4]) : MFloatMatrix() {
    MMatrix(source).get(matrix);
}

MStatus MFloatMatrix::get(double out[4][4]) const {
    return MMatrix(*this).get(out);
}

MStatus MFloatMatrix::get(float out[4][4]) const {
    return MMatrix(*this).get(out);
}

MFloatMatrix MFloatMatrix::operator+(const MFloatMatrix& other) const {
    return rounded(MMatrix(*this) + MMatrix(other));
}

MFloatMatrix MFloatMatrix::operator-(const MFloatMatrix& other) const {
    return rounded(MMatrix(*this) - MMatrix(other));
}

MFloatMatrix MFloatMatrix::operator*(const MFloatMatrix& other) const {
    return rounded(MMatrix(*this) * MMatrix(other));
}

MFloatMatrix MFloatMatrix::operator*(float factor) const {
    return rounded(MMatrix(*this) * static_cast<double>(factor));
}

MFloatMatrix operator*(float factor, const MFloatMatrix& other) {
    return other * factor;
}

MFloatMatrix& MFloatMatrix::operator+=(const MFloatMatrix& other) {
    return *this = *this + other;
}

MFloatMatrix& MFloatMatrix::operator-=(const MFloatMatrix& other) {
    return *this = *this - other;
}

MFloatMatrix& MFloatMatrix::operator*=(const MFloatMatrix& other) {
    return *this = *this * other;
}

MFloatMatrix& MFloatMatrix::operator*=(float factor) {
    return *this = *this * factor;
}

bool MFloatMatrix::operator==(const MFloatMatrix& other) const {
    return MMatrix(*this) == MMatrix(other);
}

MFloatMatrix& MFloatMatrix::setToIdentity() {
    return *this = MFloatMatrix();
}

MFloatMatrix& MFloatMatrix::setToProduct(const MFloatMatrix& left, const MFloatMatrix& right) {
    return *this = left * right;
}

MFloatMatrix MFloatMatrix::inverse() const {
    return rounded(MMatrix(*this).inverse());
}

MFloatMatrix MFloatMatrix::transpose() const {
    return rounded(MMatrix(*this).transpose());
}

MFloatMatrix MFloatMatrix::adjoint() const {
    return rounded(MMatrix(*this).adjoint());
}

MFloatMatrix MFloatMatrix::homogenize() const {
    return rounded(MMatrix(*this).homogenize());
}

float MFloatMatrix::det4x4() const {
    return static_cast<float>(MMatrix(*this).det4x4());
}

float MFloatMatrix::det3x3() const {
    return static_cast<float>(MMatrix(*this).det3x3());
}

bool MFloatMatrix::isEquivalent(const MFloatMatrix& other, float tolerance) const {
    return MMatrix(*this).isEquivalent(MMatrix(other), static_cast<double>(tolerance));
}
