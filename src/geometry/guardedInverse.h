#pragma once

#include "scene/NodeRecord.h"

namespace tvk {

/// Whether some axis of the matrix has no length, so that it flattens what it is applied to.
bool isFlattening(const MMatrix& matrix);

/// The inverse of an affine matrix; an axis without length counts as 1e-6 long, so that the result is always finite and
/// always undoes what the matrix does along its other axes.
MMatrix guardedInverse(const MMatrix& matrix);

} // namespace tvk
