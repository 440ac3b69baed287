#include "animation/sampling.h"

#include "animation/animationMessages.h"
#include "animation/materialSampling.h"
#include "animation/nodeSampling.h"
#include "animation/rotationConditioning.h"
#include "common/numberText.h"
#include "scene/Run.h"
#include "scene/nodeTests.h"

#include <maya/MAnimControl.h>
#include <maya/MTime.h>

#include <algorithm>
#include <vector>

namespace tvk {
namespace {

// Almost five hours of animation. A range beyond it is a slip of whoever typed it, and stepping through it would take
// days; and keys hold frame numbers in 32 bits, 12 of them behind the point.
constexpr int32_t kFrameLimit = 524287;

constexpr std::size_t kFirstRotation = 3; // of the nine channels of a node

void sampleVisibility(SceneData& scene, std::vector<bool>& visible) {
    for (const auto& node : scene.nodes) {
        const NodeRecord* const parent = node->scene.parent;
        const auto place = static_cast<std::size_t>(&node - scene.nodes.data());
        const bool isAncestorVisible = parent == nullptr || visible[static_cast<std::size_t>(parent->listPlace)];
        visible[place] = isSelfVisible(*node) && isAncestorVisible;
        node->visibilityTrack.samples.push_back(visible[place] ? 1.0F : 0.0F);
    }
}

bool varies(const AnimTrack& track) {
    return std::any_of(track.samples.begin(), track.samples.end(),
                       [&](float sample) { return sample != track.samples.front(); });
}

void makeRoomForVisibility(SceneData& scene, std::size_t frameCount) {
    for (const auto& node : scene.nodes) {
        node->visibilityTrack.samples.reserve(frameCount);
    }
}

void keepContinuous(AnimTrack& track) {
    track.continuous = track.samples;
    normaliseTurns(track.samples);
    recentre(track.continuous);
}

void conditionRotations(SceneData& scene) {
    for (NodeRecord* node : scene.outputNodes) {
        AnimTrack* const rotation = &node->channels[kFirstRotation];
        filterEuler(rotation[0].samples, rotation[1].samples, rotation[2].samples);
        std::for_each(rotation, rotation + 3, keepContinuous);
    }
    for (TextureSourceRecord& source : scene.textureSources) {
        recentre(source.placementTracks[static_cast<std::size_t>(PlacementChannel::kRotate)].continuous);
    }
}

} // namespace

MStatus sampleAnimation(const NodeSetReader& readSet) {
    SceneData& scene = run().scene;
    const ExportOptions& options = run().options;
    if (options.frameCount > kFrameLimit) {
        say(kTooManyFrames, integerText(options.frameCount).view());
        return MS::kFailure;
    }
    const MTime userTime = MAnimControl::currentTime();
    const auto frameCount = static_cast<std::size_t>(std::max(options.frameCount, 0));
    makeRoomForVisibility(scene, frameCount);
    std::vector<bool> visible(scene.nodes.size());
    NodeSampler sampler(scene, readSet, options.outIca ? frameCount : 0);
    for (int32_t i = 0; i < options.frameCount; ++i) {
        MAnimControl::setCurrentTime(MTime(static_cast<double>(options.startFrame) + i, MTime::uiUnit()));
        sampleVisibility(scene, visible);
        if (options.outIca) {
            sampler.sampleFrame();
        }
        if (options.outIma) {
            sampleMaterialColors(scene);
        }
        if (options.outIta) {
            samplePlacements(scene);
        }
    }
    scene.visibilityAnimated =
        std::any_of(scene.outputNodes.begin(), scene.outputNodes.end(),
                    [](const NodeRecord* node) { return !node->skipOutput && varies(node->visibilityTrack); });
    MAnimControl::setCurrentTime(userTime);
    conditionRotations(scene);
    return MS::kSuccess;
}

} // namespace tvk
