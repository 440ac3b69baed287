#include "animation/channelEncoding.h"

#include "animation/keyEncoding.h"
#include "animation/steppedEncoding.h"
#include "common/fixedPoint.h"
#include "scene/Run.h"

#include <algorithm>
#include <array>

namespace tvk {
namespace {

constexpr float kFullColor = 31.0F;

/// Channels that share a pool.
enum Group : std::size_t { kNodeScale, kNodeRotate, kNodeTranslate, kMatColor, kTexScale, kTexRotate, kTexTranslate };
constexpr std::size_t kGroupCount = 7;

struct GroupRow {
    double (*tolerance)(const ExportOptions& options); // in the samples' own units
    bool isAngle;
    bool isColor;
    std::vector<int32_t> SceneData::*pool;
};

constexpr std::array<GroupRow, kGroupCount> kGroups{{
    {[](const ExportOptions& o) -> double { return o.animeTolS; }, false, false, &SceneData::nodeScaleData},
    {[](const ExportOptions& o) -> double { return o.animeTolR; }, true, false, &SceneData::nodeRotateData},
    {[](const ExportOptions& o) -> double { return o.animeTolT; }, false, false, &SceneData::nodeTranslateData},
    {[](const ExportOptions& o) -> double { return o.animeTolC; }, false, true, &SceneData::matColorData},
    {[](const ExportOptions& o) -> double { return o.animeTolUvS; }, false, false, &SceneData::texScaleData},
    {[](const ExportOptions& o) -> double { return o.animeTolUvR; }, true, false, &SceneData::texRotateData},
    {[](const ExportOptions& o) -> double { return o.animeTolUvT; }, false, false, &SceneData::texTranslateData},
}};

class Encoder {
public:
    explicit Encoder(const ExportOptions& options) : options_(options) {}

    void encode(Group group, AnimTrack& track) {
        if (options_.animeInterp == kKeyInterpolation) {
            encodeAsKeys(group, track);
        } else {
            encodeInSteps(group, track);
        }
        track.samples = {};
        track.continuous = {};
    }

    void store(SceneData& scene) const {
        for (std::size_t group = 0; group < kGroupCount; ++group) {
            scene.*kGroups[group].pool = options_.animeInterp == kKeyInterpolation ? keyNumbers(keyPools_[group])
                                                                                   : numberPools_[group].symbols();
        }
    }

private:
    void encodeInSteps(Group group, AnimTrack& track) {
        const GroupRow& row = kGroups[group];
        std::vector<int32_t> values(track.samples.size());
        std::transform(track.samples.begin(), track.samples.end(), values.begin(), [&](float sample) {
            return row.isColor ? roundClamped(sample, 0, static_cast<int32_t>(kFullColor)) : toFixed12(sample);
        });
        constexpr double kUnit = 4096.0;
        const double tolerance = row.tolerance(options_) * (row.isColor ? 1.0 : kUnit);
        encodeStepped(values, {options_.frameStepMode, static_cast<int64_t>(tolerance), row.isAngle},
                      numberPools_[group], track);
    }

    void encodeAsKeys(Group group, AnimTrack& track) {
        const GroupRow& row = kGroups[group];
        std::vector<float>& samples = row.isAngle ? track.continuous : track.samples;
        if (row.isColor) {
            for (float& sample : samples) {
                sample = std::clamp(sample, 0.0F, kFullColor);
            }
        }
        encodeKeys(samples, {row.tolerance(options_), row.isAngle, options_.loopInterp}, keyPools_[group], track);
    }

    const ExportOptions& options_;
    std::array<NumberPool, kGroupCount> numberPools_;
    std::array<KeyPool, kGroupCount> keyPools_;
};

void encodeNodes(SceneData& scene, Encoder& encoder) {
    constexpr std::size_t kAxes = 3;
    for (NodeRecord* node : scene.outputNodes) {
        for (std::size_t channel = 0; !node->skipOutput && channel < node->channels.size(); ++channel) {
            encoder.encode(static_cast<Group>(kNodeScale + channel / kAxes), node->channels[channel]);
        }
    }
}

void encodeMaterials(SceneData& scene, Encoder& encoder) {
    for (MaterialRecord& material : scene.materials) {
        for (ColorChannelRecord& channel : material.channels) {
            if (material.colorAnimated) {
                encoder.encode(kMatColor, channel.track);
            }
        }
    }
}

void encodePlacements(SceneData& scene, Encoder& encoder) {
    constexpr std::array<Group, kPlacementChannelCount> kChannelGroups{kTexScale, kTexScale, kTexRotate, kTexTranslate,
                                                                       kTexTranslate};
    for (TextureSourceRecord& source : scene.textureSources) {
        for (std::size_t channel = 0; source.texSrtAnimated && channel < kPlacementChannelCount; ++channel) {
            encoder.encode(kChannelGroups[channel], source.placementTracks[channel]);
        }
    }
}

} // namespace

void encodeChannels(SceneData& scene) {
    Encoder encoder(run().options);
    if (run().options.outIca) {
        encodeNodes(scene, encoder);
    }
    if (run().options.outIma) {
        encodeMaterials(scene, encoder);
    }
    if (run().options.outIta) {
        encodePlacements(scene, encoder);
    }
    encoder.store(scene);
}

} // namespace tvk
