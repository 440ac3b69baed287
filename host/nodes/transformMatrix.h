#pragma once

#include "host/graph/Value.h"

#include <Imath/ImathMatrix.h>
#include <Imath/ImathVec.h>

namespace host {

/// Order in which the three angles of a rotation are applied, first letter first; the numbers of a node's rotateOrder.
enum class RotateOrder : int { kXYZ, kYZX, kZXY, kXZY, kYXZ, kZYX };

/// Nearest order for what an attribute holds: numbers outside 0 … 5 are taken as kXYZ.
RotateOrder rotateOrderOf(double number);

/// Rotation by three angles in radians, for row vectors: p' = p * M.
Imath::M33d rotationMatrix(const Imath::V3d& radians, RotateOrder order);

/// What the matrix of a transform is made of. Lengths in centimetres, angles in radians; as a new node has it.
struct TransformPieces {
    Imath::V3d scale{1.0};
    Imath::V3d shear{0.0}; // xy, xz, yz
    Imath::V3d rotate{0.0};
    RotateOrder rotateOrder = RotateOrder::kXYZ;
    Imath::V3d rotateAxis{0.0}; // XYZ order always
    Imath::V3d translate{0.0};
    Imath::V3d rotatePivot{0.0}, rotatePivotTranslate{0.0};
    Imath::V3d scalePivot{0.0}, scalePivotTranslate{0.0};
};

/// What a joint has beside these. A joint has no pivots: those of its pieces are not used.
struct JointPieces {
    Imath::V3d jointOrient{0.0}; // XYZ order always
    Imath::V3d inverseScale{1.0};
    bool segmentScaleCompensate = true;
};

/// [sp]^-1 [s] [sh] [sp] [spt] [rp]^-1 [ra] [r] [rp] [rpt] [t]; the left factor applies first.
Matrix44 transformMatrix(const TransformPieces& pieces);

/// [s] [sh] [ra] [r] [jo] [is]^-1 [t]; [is]^-1 only with segmentScaleCompensate. A component of inverseScale that is 0
/// counts as 1.
Matrix44 jointMatrix(const TransformPieces& pieces, const JointPieces& joint);

} // namespace host
