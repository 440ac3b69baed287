#pragma once

#include "scene/NodeRecord.h"

namespace tvk {

/// Scale, then XYZ rotation, then translation, for row vectors.
MMatrix matrixOf(const TransformSet& set);

/// The node's exported local matrix: matrixOf(set), with the parent's scale undone between rotation and translation
/// when `compensates`; a zero component of the parent's scale counts as 1.
MMatrix localMatrix(const TransformSet& set, bool compensates, const Vector3& parentScale);

/// The set as a file's reader finds it: every component rounded to 1/4096.
TransformSet quantised(const TransformSet& set);

/// A rotation of the given degrees about x, then y, then z.
MMatrix rotationMatrix(const Vector3& degrees);

MMatrix translationMatrix(const Vector3& offset);

/// The matrix with its translation multiplied by `factor`: a host matrix in exported units.
MMatrix withScaledTranslation(const MMatrix& matrix, double factor);

} // namespace tvk
