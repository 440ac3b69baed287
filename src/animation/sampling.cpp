#include "animation/sampling.h"

#include "scene/Run.h"
#include "scene/nodeTests.h"

#include <maya/MAnimControl.h>
#include <maya/MTime.h>

#include <algorithm>
#include <vector>

namespace tvk {
namespace {

void sampleVisibility(SceneData& scene, std::vector<bool>& visible) {
    for (const auto& node : scene.nodes) {
        const NodeRecord* const parent = node->scene.parent;
        const auto index = static_cast<std::size_t>(&node - scene.nodes.data());
        visible[index] =
            isSelfVisible(*node) && (parent == nullptr || visible[static_cast<std::size_t>(parent->index)]);
        node->visibilityTrack.samples.push_back(visible[index] ? 1.0F : 0.0F);
    }
}

bool varies(const AnimTrack& track) {
    return std::any_of(track.samples.begin(), track.samples.end(),
                       [&](float sample) { return sample != track.samples.front(); });
}

// Room for a whole range at once, unless the range is absurd: it then grows with the samples that are really taken.
void makeRoom() {
    constexpr int32_t kUsualRange = 100000;
    const auto frames = static_cast<std::size_t>(std::min(run().options.frameCount, kUsualRange));
    for (const auto& node : run().scene.nodes) {
        node->visibilityTrack.samples.reserve(frames);
    }
}

} // namespace

MStatus sampleAnimation() {
    SceneData& scene = run().scene;
    const ExportOptions& options = run().options;
    const MTime userTime = MAnimControl::currentTime();
    makeRoom();
    std::vector<bool> visible(scene.nodes.size());
    for (int32_t i = 0; i < options.frameCount; ++i) {
        const MStatus status =
            MAnimControl::setCurrentTime(MTime(static_cast<double>(options.startFrame) + i, MTime::uiUnit()));
        if (!status) {
            return status;
        }
        sampleVisibility(scene, visible);
    }
    scene.visibilityAnimated = std::any_of(scene.outputNodes.begin(), scene.outputNodes.end(),
                                           [](const NodeRecord* node) { return varies(node->visibilityTrack); });
    return MAnimControl::setCurrentTime(userTime);
}

} // namespace tvk
