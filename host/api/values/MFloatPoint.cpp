#include <maya/MFloatPoint.h>

#include <maya/MFloatMatrix.h>
#include <maya/MMatrix.h>

const MFloatPoint MFloatPoint::origin(0.0f, 0.0f, 0.0f, 1.0f);

MStatus MFloatPoint::get(double out[4]) const {
    return MPoint(*this).get(out);
}

MStatus MFloatPoint::get(float out[4]) const {
    return MPoint(*this).get(out);
}

MStatus MFloatPoint::setCast(const MPoint& source) {
    *this = MFloatPoint(source);
    return MStatus::kSuccess;
}

MFloatPoint MFloatPoint::operator*(const MMatrix& matrix) const {
    return MPoint(*this) * matrix;
}

MFloatPoint MFloatPoint::operator*(const MFloatMatrix& matrix) const {
    return MPoint(*this) * MMatrix(matrix);
}

MFloatPoint& MFloatPoint::operator*=(const MMatrix& matrix) {
    return *this = *this * matrix;
}

MFloatPoint& MFloatPoint::operator*=(const MFloatMatrix& matrix) {
    return *this = *this * matrix;
}

MFloatPoint& MFloatPoint::cartesianize() {
    return *this = MPoint(*this).cartesianize();
}

MFloatPoint& MFloatPoint::rationalize() {
    return *this = MPoint(*this).rationalize();
}

MFloatPoint& MFloatPoint::homogenize() {
    return *this = MPoint(*this).homogenize();
}

float MFloatPoint::distanceTo(const MFloatPoint& other) const {
    return static_cast<float>(MPoint(*this).distanceTo(MPoint(other)));
}

bool MFloatPoint::isEquivalent(const MFloatPoint& other, float tolerance) const {
    return MPoint(*this).isEquivalent(MPoint(other), static_cast<double>(tolerance));
}
