#include "geometry/modelTables.h"

#include "common/fixedPoint.h"
#include "geometry/BoundingBox.h"
#include "geometry/VertexSpaces.h"
#include "geometry/faceSplitting.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>

namespace tvk {
namespace {

template <std::size_t N, typename Source>
std::array<int16_t, N> fixedOf(const Source& value, const FixedFormat& format) {
    std::array<int16_t, N> result{};
    for (std::size_t i = 0; i < N; ++i) {
        result[i] = static_cast<int16_t>(toFixed(value[i], format));
    }
    return result;
}

void scalePoints(std::vector<Vector3>& points, double factor) {
    for (Vector3& point : points) {
        point = {point[0] * factor, point[1] * factor, point[2] * factor};
    }
}

void fillPositions(SceneData& scene) {
    const double factor = std::ldexp(1.0, -scene.positionScale);
    for (ShapeRecord& shape : scene.shapes) {
        scalePoints(shape.points, factor);
        scalePoints(shape.boundingPoints, factor);
        scalePoints(shape.outputPoints, factor);
        shape.positions.resize(shape.outputPoints.size());
        for (std::size_t i = 0; i < shape.positions.size(); ++i) {
            shape.positions[i] = scene.tables.positions.findOrAdd(fixedOf<3>(shape.outputPoints[i], kFixedPosition));
        }
    }
}

// What the faces of one shape need besides their polygon.
struct ShapeState {
    VertexSpaces spaces;
    bool isReversed;          // seen from the other side than the mesh winds
    std::vector<bool> isUsed; // per vertex, by a polygon that is kept
};

class Filling {
public:
    Filling(SceneData& sceneData, bool united) : scene(sceneData), isUnited(united), states(sceneData.shapes.size()) {}

    void fill(PolygonRecord& polygon, int32_t place) {
        BoundingBox box;
        reserve(polygon);
        for (const PolygonPart& part : polygon.parts) {
            addPart(polygon, part, box);
        }
        polygon.volumeMin = box.min;
        polygon.volumeMax = box.max;
        polygon.volumeRadius = radiusOf(polygon, box);
        polygon.dropped = polygon.faces.sizes.empty();
        if (!polygon.dropped) {
            keep(polygon, place);
        }
        polygon.parts.clear();
        polygon.parts.shrink_to_fit();
    }

    // The polygons' volumes once more for each node that draws them.
    void measureNodes() const {
        std::unordered_map<const NodeRecord*, BoundingBox> boxes;
        forEachUsedPoint([&](NodeRecord& node, const Vector3& point) { boxes[&node].add(point); });
        forEachUsedPoint([&](NodeRecord& node, const Vector3& point) {
            const BoundingBox& box = boxes[&node];
            node.volumeMin = box.min;
            node.volumeMax = box.max;
            node.volumeRadius = std::max(node.volumeRadius, box.distance(point));
        });
    }

private:
    ShapeRecord& shapeOf(const PolygonPart& part) const { return scene.shapes[static_cast<std::size_t>(part.shape)]; }

    ShapeState& stateOf(const PolygonPart& part) {
        std::unique_ptr<ShapeState>& state = states[static_cast<std::size_t>(part.shape)];
        if (state == nullptr) {
            const ShapeRecord& shape = shapeOf(part);
            state = std::make_unique<ShapeState>(
                ShapeState{VertexSpaces(scene, shape, isUnited), false, std::vector<bool>(shape.points.size())});
            state->isReversed = shape.isFlipped != state->spaces.isMirrored();
        }
        return *state;
    }

    // Most faces stay what they are.
    static void reserve(PolygonRecord& polygon) {
        std::size_t cornerCount = 0;
        std::size_t faceCount = 0;
        for (const PolygonPart& part : polygon.parts) {
            cornerCount += part.corners.size();
            faceCount += part.faceSizes.size();
        }
        polygon.faces.corners.reserve(cornerCount);
        polygon.faces.sizes.reserve(faceCount);
    }

    void addPart(PolygonRecord& polygon, const PolygonPart& part, BoundingBox& box) {
        const ShapeRecord& shape = shapeOf(part);
        ShapeState& state = stateOf(part);
        std::size_t first = 0;
        for (const int32_t size : part.faceSizes) {
            const auto count = static_cast<std::size_t>(size);
            corners.clear();
            points.clear();
            for (std::size_t k = 0; k < count; ++k) {
                // A reversed face still begins with its first corner.
                const CornerSource& source = part.corners[first + (state.isReversed && k > 0 ? count - k : k)];
                corners.push_back(cornerOf(polygon, shape, state, source));
                points.push_back(facePoint(shape, source, corners.back()));
                box.add(shape.boundingPoints[static_cast<std::size_t>(source.vertex)]);
            }
            addFace(polygon.faces);
            first += count;
        }
    }

    Corner cornerOf(const PolygonRecord& polygon, const ShapeRecord& shape, ShapeState& state,
                    const CornerSource& source) {
        const auto vertex = static_cast<std::size_t>(source.vertex);
        Corner corner;
        corner.matrix = scene.vertexMatrices[static_cast<std::size_t>(shape.firstVertex) + vertex];
        corner.position = shape.positions[vertex];
        if (polygon.nrmFlag) {
            corner.normal = scene.tables.normals.findOrAdd(normalOf(shape, state, source, corner.matrix));
        }
        if (polygon.clrFlag) {
            corner.color = scene.tables.colors.findOrAdd(source.color);
        }
        if (polygon.texFlag) {
            corner.texCoord = scene.tables.texCoords.findOrAdd(source.texCoord);
        }
        return corner;
    }

    FacePoint facePoint(const ShapeRecord& shape, const CornerSource& source, const Corner& corner) const {
        const FixedPosition& written = scene.tables.positions[corner.position];
        FacePoint point;
        point.point = shape.points[static_cast<std::size_t>(source.vertex)];
        point.quantised = {written[0], written[1], written[2]};
        point.matrix = corner.matrix;
        return point;
    }

    // A normal that the mesh does not have is a zero one.
    static FixedNormal normalOf(const ShapeRecord& shape, ShapeState& state, const CornerSource& source,
                                int32_t matrix) {
        const auto& normals = shape.exportedNormals();
        const auto index = static_cast<std::size_t>(source.normal);
        Vector3 normal{};
        if (source.normal >= 0 && index < normals.size()) {
            const double side = shape.isFlipped ? -1.0 : 1.0;
            const FloatVector3& read = normals[index];
            normal = {side * read[0], side * read[1], side * read[2]};
        }
        const VertexSpace& space = state.spaces.of(matrix);
        return fixedOf<3>(space.isAsRead ? normal : normalised(space.normals.direction(normal)), kFixedNormal);
    }

    void addFace(FaceList& faces) {
        splitFace(points, split);
        for (const int32_t corner : split.corners) {
            faces.corners.push_back(corners[static_cast<std::size_t>(corner)]);
        }
        faces.sizes.insert(faces.sizes.end(), split.sizes.begin(), split.sizes.end());
    }

    double radiusOf(const PolygonRecord& polygon, const BoundingBox& box) const {
        double radius = 0.0;
        for (const PolygonPart& part : polygon.parts) {
            const ShapeRecord& shape = shapeOf(part);
            for (const CornerSource& corner : part.corners) {
                radius = std::max(radius, box.distance(shape.boundingPoints[static_cast<std::size_t>(corner.vertex)]));
            }
        }
        return radius;
    }

    void keep(const PolygonRecord& polygon, int32_t place) {
        for (const PolygonPart& part : polygon.parts) {
            std::vector<int32_t>& polygons = shapeOf(part).polygons;
            if (polygons.empty() || polygons.back() != place) {
                polygons.push_back(place); // once for all parts of a combined polygon
            }
            ShapeState& state = stateOf(part);
            for (const CornerSource& corner : part.corners) {
                state.isUsed[static_cast<std::size_t>(corner.vertex)] = true;
            }
        }
    }

    template <typename Visit>
    void forEachUsedPoint(Visit visit) const {
        for (std::size_t s = 0; s < states.size(); ++s) {
            if (states[s] == nullptr) {
                continue;
            }
            const ShapeRecord& shape = scene.shapes[s];
            NodeRecord& node = isUnited ? *scene.nodes.front() : *shape.node;
            for (std::size_t i = 0; i < shape.boundingPoints.size(); ++i) {
                if (states[s]->isUsed[i]) {
                    visit(node, shape.boundingPoints[i]);
                }
            }
        }
    }

    SceneData& scene;
    const bool isUnited;
    std::vector<std::unique_ptr<ShapeState>> states; // per shape, from its first polygon on

    // Of the face at hand, kept for their memory.
    std::vector<Corner> corners;
    std::vector<FacePoint> points;
    SplitFaces split;
};

} // namespace

void fillTables(SceneData& scene, bool united) {
    fillPositions(scene);
    Filling filling(scene, united);
    for (std::size_t i = 0; i < scene.polygons.size(); ++i) {
        if (!scene.polygons[i].dropped) {
            filling.fill(scene.polygons[i], static_cast<int32_t>(i));
        }
    }
    filling.measureNodes();
}

} // namespace tvk
