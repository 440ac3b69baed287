#include <maya/MPoint.h>

#include <maya/MMatrix.h>

const MPoint MPoint::origin(0.0, 0.0, 0.0, 1.0);

MStatus MPoint::get(double out[4]) const {
    for (unsigned int i = 0; i < 4; ++i) {
        out[i] = (*this)[i];
    }
    return MStatus::kSuccess;
}

MStatus MPoint::get(float out[4]) const {
    for (unsigned int i = 0; i < 4; ++i) {
        out[i] = static_cast<float>((*this)[i]);
    }
    return MStatus::kSuccess;
}

// Written out: skinning and baking run it for every vertex, and the library's product of a point divides by w.
MPoint MPoint::operator*(const MMatrix& matrix) const {
    const double(&m)[4][4] = matrix.matrix;
    return MPoint(
        x * m[0][0] + y * m[1][0] + z * m[2][0] + w * m[3][0], x * m[0][1] + y * m[1][1] + z * m[2][1] + w * m[3][1],
        x * m[0][2] + y * m[1][2] + z * m[2][2] + w * m[3][2], x * m[0][3] + y * m[1][3] + z * m[2][3] + w * m[3][3]);
}

MPoint& MPoint::operator*=(const MMatrix& matrix) {
    return *this = *this * matrix;
}

MPoint operator*(const MMatrix& matrix, const MPoint& point) {
    return point * matrix.transpose();
}

MPoint& MPoint::cartesianize() {
    rationalize();
    w = w == 0.0 ? 0.0 : 1.0;
    return *this;
}

MPoint& MPoint::rationalize() {
    return w == 0.0 ? *this : *this = *this / w;
}

MPoint& MPoint::homogenize() {
    return *this = *this * w;
}

double MPoint::distanceTo(const MPoint& other) const {
    return (*this - other).length();
}

bool MPoint::isEquivalent(const MPoint& other, double tolerance) const {
    return MVector(*this).isEquivalent(MVector(other), tolerance);
}
