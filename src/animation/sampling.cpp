#include "animation/sampling.h"

#include "animation/animationMessages.h"
#include "common/numberText.h"
#include "scene/Run.h"
#include "scene/nodeTests.h"

#include <maya/MAnimControl.h>
#include <maya/MTime.h>

#include <algorithm>
#include <vector>

namespace tvk {
namespace {

// Hours of animation. A range beyond it is a slip of whoever typed it, and stepping through it would take days.
constexpr int32_t kFrameLimit = 1000000;

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

void makeRoom() {
    for (const auto& node : run().scene.nodes) {
        node->visibilityTrack.samples.reserve(static_cast<std::size_t>(run().options.frameCount));
    }
}

} // namespace

MStatus sampleAnimation() {
    SceneData& scene = run().scene;
    const ExportOptions& options = run().options;
    if (options.frameCount > kFrameLimit) {
        say(kTooManyFrames, integerText(options.frameCount).view());
        return MS::kFailure;
    }
    const MTime userTime = MAnimControl::currentTime();
    makeRoom();
    std::vector<bool> visible(scene.nodes.size());
    for (int32_t i = 0; i < options.frameCount; ++i) {
        MAnimControl::setCurrentTime(MTime(static_cast<double>(options.startFrame) + i, MTime::uiUnit()));
        sampleVisibility(scene, visible);
    }
    scene.visibilityAnimated = std::any_of(scene.outputNodes.begin(), scene.outputNodes.end(),
                                           [](const NodeRecord* node) { return varies(node->visibilityTrack); });
    MAnimControl::setCurrentTime(userTime);
    return MS::kSuccess;
}

} // namespace tvk
