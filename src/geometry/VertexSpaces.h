#pragma once

#include "geometry/Affine.h"
#include "scene/SceneData.h"

#include <cstdint>
#include <unordered_map>

namespace tvk {

/// How the points and normals of a shape get into the frame of the matrix that they are on. Points count from the
/// shape's pivot, as ShapeRecord::points do.
struct VertexSpace {
    Affine output;         // of points: to what the file holds
    Affine bounding;       // of points: to the node's own frame, or the model's for united nodes
    Affine normals;        // of directions; no offset
    bool isAsRead = false; // all three change nothing; normals keep their length, too
};

/// The spaces of one shape at the exported pose. A blend is in the model's space at binding, so that a reader who
/// undoes each influence's world at the exported pose finds the shape that the host shows, in every other pose as well.
class VertexSpaces {
public:
    /// Both must outlive this and keep what it reads: the nodes' exported worlds, the matrices, the envelope.
    ///   united   all points go to the model's space
    VertexSpaces(const SceneData& sceneData, const ShapeRecord& shapeRecord, bool united);

    /// The space of a matrix of the list; the reference stays good.
    const VertexSpace& of(int32_t matrix);

    /// Whether faces are seen from behind when they are drawn: the exported pose mirrors the shape.
    bool isMirrored() const;

private:
    /// An influence in this shape's terms.
    struct Carrier {
        MMatrix toModel;         // from the host's world at binding to the model at the exported pose
        bool isAtBinding = true; // which is all the same for all influences as long as they stand as they were bound
    };

    VertexSpace makeSpace(const MatrixRecord& matrix) const;
    MMatrix modelMatrix(const MatrixRecord& matrix) const;
    Carrier carrierOf(const NodeRecord& node) const;

    const SceneData& scene;
    const ShapeRecord& shape;
    const bool isUnited;
    const MMatrix atBinding; // from the host's world to the model, for influences that stand as they were bound
    std::unordered_map<const NodeRecord*, Carrier> carriers;
    std::unordered_map<int32_t, VertexSpace> spaces;
};

} // namespace tvk
