#pragma once

#include "scene/NodeRecord.h"

#include <algorithm>
#include <cmath>

namespace tvk {

/// The box of the points that were added; all 0 without any.
struct BoundingBox {
    Vector3 min{};
    Vector3 max{};
    bool isEmpty = true;

    void add(const Vector3& point) {
        for (std::size_t i = 0; i < point.size(); ++i) {
            min[i] = isEmpty ? point[i] : std::min(min[i], point[i]);
            max[i] = isEmpty ? point[i] : std::max(max[i], point[i]);
        }
        isEmpty = false;
    }

    Vector3 middle() const { return {(min[0] + max[0]) / 2.0, (min[1] + max[1]) / 2.0, (min[2] + max[2]) / 2.0}; }

    /// How far a point lies from the middle.
    double distance(const Vector3& point) const {
        const Vector3 center = middle();
        return std::hypot(point[0] - center[0], point[1] - center[1], point[2] - center[2]);
    }
};

} // namespace tvk
