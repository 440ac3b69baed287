#pragma once

#include "animation/sampling.h"
#include "scene/SceneData.h"

#include <cstddef>
#include <vector>

namespace tvk {

/// Records the transforms of the written nodes, frame by frame.
class NodeSampler {
public:
    /// Makes room for `frameCount` frames. Both arguments must outlive the sampler.
    NodeSampler(SceneData& scene, const NodeSetReader& readSet, std::size_t frameCount);

    /// Adds the current time's frame to the nine channels of every node of the output list.
    void sampleFrame();

private:
    /// One record at the frame at hand.
    struct Frame {
        TransformSet set; // as read
        MMatrix folded;   // of a removed node: from its space to that of its nearest remaining ancestor
    };

    void readFrame(const NodeRecord& node);
    TransformSet recomposed(const NodeRecord& node) const;
    MMatrix localOf(const NodeRecord& node) const;
    const Frame& frameOf(const NodeRecord& node) const { return frames_[static_cast<std::size_t>(node.listPlace)]; }

    SceneData& scene_;
    const NodeSetReader& readSet_;
    std::vector<Frame> frames_;           // in list order
    std::vector<Vector3> previousRotate_; // written at the frame before
};

} // namespace tvk
