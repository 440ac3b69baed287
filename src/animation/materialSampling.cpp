#include "animation/materialSampling.h"

#include "animation/rotationConditioning.h"
#include "scene/decomposition.h"
#include "scene/plugReading.h"

#include <algorithm>

namespace tvk {
namespace {

constexpr float kFullColor = 31.0F;

bool isChannel(std::size_t channel, ColorChannel first, ColorChannel last) {
    return channel >= static_cast<std::size_t>(first) && channel <= static_cast<std::size_t>(last);
}

float colorOf(const MaterialRecord& material, std::size_t channel) {
    if (!material.hasSpecular && isChannel(channel, ColorChannel::kSpecularR, ColorChannel::kSpecularB)) {
        return 0.0F;
    }
    float value = 0.0F;
    if (!readPlug(material.channels[channel].plug, value)) {
        return 0.0F;
    }
    value = std::clamp(value, 0.0F, 1.0F);
    if (isChannel(channel, ColorChannel::kDiffuseR, ColorChannel::kDiffuseB)) {
        value *= material.diffuseCoeff;
    }
    if (isChannel(channel, ColorChannel::kAlpha, ColorChannel::kAlpha) && material.alphaFromTransparency) {
        value = 1.0F - value;
    }
    return value * kFullColor;
}

} // namespace

void sampleMaterialColors(SceneData& scene) {
    for (MaterialRecord& material : scene.materials) {
        if (!material.colorAnimated || material.isDummy) {
            continue;
        }
        for (std::size_t channel = 0; channel < kColorChannelCount; ++channel) {
            material.channels[channel].track.samples.push_back(colorOf(material, channel));
        }
    }
}

void samplePlacements(SceneData& scene) {
    for (TextureSourceRecord& source : scene.textureSources) {
        if (!source.texSrtAnimated) {
            continue;
        }
        for (std::size_t channel = 0; channel < kPlacementChannelCount; ++channel) {
            const bool isScale = channel <= static_cast<std::size_t>(PlacementChannel::kScaleT);
            double value = isScale ? 1.0 : 0.0;
            const bool isRead = readPlug(source.placementPlugs[channel], value);
            AnimTrack& track = source.placementTracks[channel];
            if (channel == static_cast<std::size_t>(PlacementChannel::kRotate)) {
                const auto degrees = static_cast<float>(isRead ? value * kDegreesPerRadian : 0.0);
                track.continuous.push_back(degrees);
                track.samples.push_back(normalisedTurn(degrees));
            } else {
                track.samples.push_back(static_cast<float>(value));
            }
        }
    }
}

} // namespace tvk
