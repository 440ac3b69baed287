#include "geometry/VertexSpaces.h"

#include "geometry/guardedInverse.h"
#include "scene/nodeMatrix.h"

namespace tvk {
namespace {

// Elements of two worlds that differ by less are the same pose.
constexpr double kSamePose = 1e-3;

Vector3 negative(const Vector3& v) {
    return {-v[0], -v[1], -v[2]};
}

MMatrix withoutTranslation(const MMatrix& matrix) {
    return withScaledTranslation(matrix, 0.0);
}

} // namespace

VertexSpaces::VertexSpaces(const SceneData& sceneData, const ShapeRecord& shapeRecord, bool united)
    : scene(sceneData), shape(shapeRecord), isUnited(united), atBinding(guardedInverse(shapeRecord.outerWorld)) {
    for (const Influence& influence : shape.influences) {
        const NodeRecord& node = *influence.node;
        Carrier carrier;
        carrier.toModel = influence.bindInverse * translationMatrix(negative(node.pivotOffset)) * node.exportedWorld;
        carrier.isAtBinding = carrier.toModel.isEquivalent(atBinding, kSamePose);
        carriers.emplace(&node, carrier);
    }
}

const VertexSpace& VertexSpaces::of(int32_t matrix) {
    const auto found = spaces.find(matrix);
    if (found != spaces.end()) {
        return found->second;
    }
    return spaces.emplace(matrix, makeSpace(scene.matrices[static_cast<std::size_t>(matrix)])).first->second;
}

bool VertexSpaces::isMirrored() const {
    if (isUnited) {
        return shape.world.det3x3() < 0.0;
    }
    return (shape.isSkinned ? shape.bindWorld * atBinding : shape.node->exportedWorld).det3x3() < 0.0;
}

VertexSpaces::Carrier VertexSpaces::carrierOf(const NodeRecord& node) const {
    const auto found = carriers.find(&node);
    return found == carriers.end() ? Carrier{atBinding, true} : found->second;
}

// From the host's world at binding to the model: one and the same for all vertices while the influences stand as they
// did at binding. For a skin that was bound in another pose than the exported one it is the pose itself.
MMatrix VertexSpaces::modelMatrix(const MatrixRecord& matrix) const {
    std::vector<EnvelopeEntry> entries;
    if (matrix.isBlend()) {
        const auto head = scene.envelope.begin() + matrix.envelopeHead;
        entries.assign(head, head + matrix.weightCount);
    } else {
        entries.push_back({100, matrix.node, -1});
    }
    MMatrix sum = MMatrix() * 0.0;
    int32_t weights = 0;
    bool isAtBinding = true;
    for (const EnvelopeEntry& entry : entries) {
        const Carrier carrier = carrierOf(*entry.node);
        sum += carrier.toModel * static_cast<double>(entry.weight);
        weights += entry.weight;
        isAtBinding = isAtBinding && carrier.isAtBinding;
    }
    return isAtBinding ? atBinding : sum * (1.0 / weights);
}

VertexSpace VertexSpaces::makeSpace(const MatrixRecord& matrix) const {
    VertexSpace space;
    if (!isUnited && !matrix.isBlend() && matrix.node == shape.node) {
        space.isAsRead = true;
        return space;
    }
    const MMatrix fromPivot = translationMatrix(shape.node->pivotOffset);
    MMatrix output = fromPivot * (isUnited ? shape.world : shape.bindWorld * modelMatrix(matrix));
    space.bounding = Affine(isUnited ? output : output * guardedInverse(shape.node->exportedWorld));
    if (!isUnited && !matrix.isBlend()) {
        output = output * guardedInverse(matrix.node->exportedWorld);
    }
    space.output = Affine(output);
    space.normals = Affine(guardedInverse(withoutTranslation(output)).transpose());
    return space;
}

} // namespace tvk
