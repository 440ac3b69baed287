#include "animation/nodeSampling.h"

#include "scene/Run.h"
#include "scene/decomposition.h"
#include "scene/nodeMatrix.h"

namespace tvk {
namespace {

void append(NodeRecord& node, const TransformSet& set) {
    std::size_t channel = 0;
    for (const Vector3* part : {&set.scale, &set.rotate, &set.translate}) {
        for (const double value : *part) {
            node.channels[channel++].samples.push_back(static_cast<float>(value));
        }
    }
}

// Folding took an ancestor's transform into the node, or the node no longer undoes its parent's scale.
bool isRecomposed(const NodeRecord& node) {
    return node.foldedCount > 0 || (node.scaleCompensate && !node.writesCompensation && !run().options.unite);
}

} // namespace

NodeSampler::NodeSampler(SceneData& scene, const NodeSetReader& readSet, std::size_t frameCount)
    : scene_(scene), readSet_(readSet), frames_(scene.nodes.size()) {
    for (const auto& node : scene.nodes) {
        previousRotate_.push_back(node->written.rotate);
        for (AnimTrack& track : node->channels) {
            track.samples.reserve(node->removed ? 0 : frameCount);
        }
    }
}

void NodeSampler::sampleFrame() {
    for (const auto& node : scene_.nodes) {
        readFrame(*node);
        const auto place = static_cast<std::size_t>(node->listPlace);
        if (node->removed) {
            const MMatrix local = localOf(*node);
            frames_[place].folded = node->foldedCount > 0 ? local * frameOf(*node->scene.parent).folded : local;
        } else {
            const TransformSet written = isRecomposed(*node) ? recomposed(*node) : frames_[place].set;
            append(*node, written);
            previousRotate_[place] = written.rotate;
        }
    }
}

void NodeSampler::readFrame(const NodeRecord& node) {
    TransformSet set;
    if (!node.hasDagNode) {
        set = node.written;
    } else if (!readSet_(node, set)) {
        set = TransformSet();
    }
    frames_[static_cast<std::size_t>(node.listPlace)].set = set;
}

MMatrix NodeSampler::localOf(const NodeRecord& node) const {
    const NodeRecord* const parent = node.scene.parent;
    const Vector3 parentScale = parent == nullptr ? Vector3{1.0, 1.0, 1.0} : frameOf(*parent).set.scale;
    return localMatrix(frameOf(node).set, node.scaleCompensate, parentScale);
}

TransformSet NodeSampler::recomposed(const NodeRecord& node) const {
    const MMatrix local = localOf(node);
    const Vector3& hint = previousRotate_[static_cast<std::size_t>(node.listPlace)];
    return decompose(node.foldedCount > 0 ? local * frameOf(*node.scene.parent).folded : local, hint).parts;
}

} // namespace tvk
