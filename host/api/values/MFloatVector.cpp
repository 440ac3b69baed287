#include <maya/MFloatVector.h>

#include <maya/MFloatMatrix.h>
#include <maya/MMatrix.h>

const MFloatVector MFloatVector::zero(0.0f, 0.0f, 0.0f);
const MFloatVector MFloatVector::one(1.0f, 1.0f, 1.0f);
const MFloatVector MFloatVector::xAxis(1.0f, 0.0f, 0.0f);
const MFloatVector MFloatVector::yAxis(0.0f, 1.0f, 0.0f);
const MFloatVector MFloatVector::zAxis(0.0f, 0.0f, 1.0f);
const MFloatVector MFloatVector::xNegAxis(-1.0f, 0.0f, 0.0f);
const MFloatVector MFloatVector::yNegAxis(0.0f, -1.0f, 0.0f);
const MFloatVector MFloatVector::zNegAxis(0.0f, 0.0f, -1.0f);

MStatus MFloatVector::get(float out[3]) const {
    out[0] = x;
    out[1] = y;
    out[2] = z;
    return MStatus::kSuccess;
}

MFloatVector MFloatVector::operator*(const MMatrix& matrix) const {
    return MVector(*this) * matrix;
}

MFloatVector MFloatVector::operator*(const MFloatMatrix& matrix) const {
    return MVector(*this) * MMatrix(matrix);
}

MFloatVector MFloatVector::transformAsNormal(const MFloatMatrix& matrix) const {
    return MVector(*this).transformAsNormal(MMatrix(matrix));
}

float MFloatVector::length() const {
    return static_cast<float>(MVector(*this).length());
}

MFloatVector MFloatVector::normal() const {
    return MVector(*this).normal();
}

MStatus MFloatVector::normalize() {
    *this = normal();
    return *this == zero ? MStatus::kFailure : MStatus::kSuccess;
}

float MFloatVector::angle(const MFloatVector& other) const {
    return static_cast<float>(MVector(*this).angle(MVector(other)));
}

bool MFloatVector::isEquivalent(const MFloatVector& other, float tolerance) const {
    return MVector(*this).isEquivalent(MVector(other), static_cast<double>(tolerance));
}

bool MFloatVector::isParallel(const MFloatVector& other, float tolerance) const {
    return MVector(*this).isParallel(MVector(other), static_cast<double>(tolerance));
}
