#include "scene/nodeMatrix.h"

#include "common/fixedPoint.h"
#include "scene/decomposition.h"

#include <maya/MEulerRotation.h>

namespace tvk {

MMatrix rotationMatrix(const Vector3& degrees) {
    return MEulerRotation(degrees[0] * kRadiansPerDegree, degrees[1] * kRadiansPerDegree,
                          degrees[2] * kRadiansPerDegree, MEulerRotation::kXYZ)
        .asMatrix();
}

MMatrix translationMatrix(const Vector3& offset) {
    MMatrix result;
    for (unsigned int i = 0; i < 3; ++i) {
        result(3, i) = offset[i];
    }
    return result;
}

MMatrix localMatrix(const TransformSet& set, bool compensates, const Vector3& parentScale) {
    MMatrix result = rotationMatrix(set.rotate);
    for (unsigned int r = 0; r < 3; ++r) {
        for (unsigned int c = 0; c < 3; ++c) {
            const double undone = compensates && parentScale[c] != 0.0 ? 1.0 / parentScale[c] : 1.0;
            result(r, c) *= set.scale[r] * undone;
        }
        result(3, r) = set.translate[r];
    }
    return result;
}

MMatrix matrixOf(const TransformSet& set) {
    return localMatrix(set, false, {1.0, 1.0, 1.0});
}

TransformSet quantised(const TransformSet& set) {
    TransformSet result;
    for (std::size_t i = 0; i < 3; ++i) {
        result.scale[i] = fromFixed(toFixed12(set.scale[i]));
        result.rotate[i] = fromFixed(toFixed12(set.rotate[i]));
        result.translate[i] = fromFixed(toFixed12(set.translate[i]));
    }
    return result;
}

MMatrix withScaledTranslation(const MMatrix& matrix, double factor) {
    MMatrix result = matrix;
    for (unsigned int i = 0; i < 3; ++i) {
        result(3, i) *= factor;
    }
    return result;
}

} // namespace tvk
