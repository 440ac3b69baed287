#include "geometry/guardedInverse.h"

#include "scene/decomposition.h"
#include "scene/nodeMatrix.h"

#include <algorithm>

namespace tvk {
namespace {

constexpr double kStandInLength = 1e-6;

bool lacksLength(const Vector3& scale) {
    return std::any_of(scale.begin(), scale.end(), [](double length) { return length == 0.0; });
}

} // namespace

bool isFlattening(const MMatrix& matrix) {
    return lacksLength(decompose(matrix, {}).parts.scale);
}

MMatrix guardedInverse(const MMatrix& matrix) {
    TransformSet parts = decompose(matrix, {}).parts;
    if (!lacksLength(parts.scale)) {
        return matrix.inverse();
    }
    for (double& length : parts.scale) {
        length = length == 0.0 ? kStandInLength : length;
    }
    return matrixOf(parts).inverse();
}

} // namespace tvk
