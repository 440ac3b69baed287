#include "geometry/vertexPlacement.h"

#include "common/fixedPoint.h"
#include "geometry/BoundingBox.h"
#include "geometry/VertexSpaces.h"
#include "geometry/positionScale.h"

#include <algorithm>
#include <limits>

namespace tvk {
namespace {

// Of components in 1/4096. Nothing yet when lowest is above highest.
struct Extent {
    int32_t lowest = std::numeric_limits<int32_t>::max();
    int32_t highest = -std::numeric_limits<int32_t>::max();

    void add(const Vector3& point) {
        for (const double component : point) {
            lowest = std::min(lowest, toFixed12(component));
            highest = std::max(highest, toFixed12(component));
        }
    }
};

void placeShape(const SceneData& scene, ShapeRecord& shape, bool united) {
    VertexSpaces spaces(scene, shape, united);
    shape.outputPoints.resize(shape.points.size());
    shape.boundingPoints.resize(shape.points.size());
    const VertexSpace* space = nullptr;
    int32_t matrix = -1;
    for (std::size_t i = 0; i < shape.points.size(); ++i) {
        const int32_t own = scene.vertexMatrices[static_cast<std::size_t>(shape.firstVertex) + i];
        if (own != matrix) {
            matrix = own;
            space = &spaces.of(matrix);
        }
        shape.outputPoints[i] = space->isAsRead ? shape.points[i] : space->output.point(shape.points[i]);
        shape.boundingPoints[i] = space->isAsRead ? shape.points[i] : space->bounding.point(shape.points[i]);
    }
}

} // namespace

void placeVertices(SceneData& scene, bool united) {
    Extent extent;
    BoundingBox box;
    for (ShapeRecord& shape : scene.shapes) {
        placeShape(scene, shape, united);
        for (const Vector3& point : shape.outputPoints) {
            extent.add(point);
            box.add(point);
        }
    }
    scene.boxMin = box.min;
    scene.boxMax = box.max;
    scene.positionScale = findPositionScale(extent.lowest, extent.highest).exponent;
}

} // namespace tvk
