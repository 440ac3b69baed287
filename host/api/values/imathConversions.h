#pragma once

// Between the classes of the API and those of Imath, which have the same layout and the same row-vector convention.

#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>

namespace host::api {

inline Imath::V3d toImath(const MVector& vector) {
    return Imath::V3d(vector.x, vector.y, vector.z);
}
inline Imath::M44d toImath(const MMatrix& matrix) {
    return Imath::M44d(matrix.matrix);
}
inline Imath::Quatd toImath(const MQuaternion& q) {
    return Imath::Quatd(q.w, q.x, q.y, q.z);
}

inline MVector fromImath(const Imath::V3d& vector) {
    return MVector(vector.x, vector.y, vector.z);
}
inline MMatrix fromImath(const Imath::M44d& matrix) {
    return MMatrix(matrix.x);
}
inline MQuaternion fromImath(const Imath::Quatd& q) {
    return MQuaternion(q.v.x, q.v.y, q.v.z, q.r);
}

} // namespace host::api
