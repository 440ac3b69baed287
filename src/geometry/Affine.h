#pragma once

#include "scene/NodeRecord.h"

#include <cmath>

namespace tvk {

/// An affine map of row vectors as plain numbers: what the loops over vertices work with.
struct Affine {
    std::array<Vector3, 3> axes{{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
    Vector3 offset{};

    Affine() = default;
    explicit Affine(const MMatrix& matrix) {
        for (unsigned int r = 0; r < 3; ++r) {
            for (unsigned int c = 0; c < 3; ++c) {
                axes[r][c] = matrix(r, c);
            }
            offset[r] = matrix(3, r);
        }
    }

    Vector3 direction(const Vector3& v) const {
        Vector3 result{};
        for (std::size_t c = 0; c < 3; ++c) {
            result[c] = v[0] * axes[0][c] + v[1] * axes[1][c] + v[2] * axes[2][c];
        }
        return result;
    }

    Vector3 point(const Vector3& p) const {
        const Vector3 turned = direction(p);
        return {turned[0] + offset[0], turned[1] + offset[1], turned[2] + offset[2]};
    }
};

/// The vector with length 1; one without length stays as it is.
inline Vector3 normalised(const Vector3& v) {
    const double length = std::hypot(v[0], v[1], v[2]);
    return length > 0.0 ? Vector3{v[0] / length, v[1] / length, v[2] / length} : v;
}

} // namespace tvk
