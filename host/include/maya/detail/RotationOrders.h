#pragma once

namespace host::api {

/// The rotation orders of MTransformationMatrix, apart so that MVector, which that class is made of, can name them.
/// One more than the numbers of MEulerRotation and of the rotateOrder attribute.
struct RotationOrders {
    enum RotationOrder { kInvalid = 0, kXYZ = 1, kYZX = 2, kZXY = 3, kXZY = 4, kYXZ = 5, kZYX = 6, kLast = 7 };
};

} // namespace host::api
