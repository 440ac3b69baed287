#include "animation/channelEncoding.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tvk {
namespace {

/// One node, one animated material and one animated placement, every channel with the same samples.
class EncodedChannels : public testing::Test {
protected:
    EncodedChannels() {
        ExportOptions& options = run().options;
        options.outIca = options.outIma = options.outIta = true;
        options.frameStepMode = 1;
        scene_.nodes.push_back(std::make_unique<NodeRecord>());
        scene_.outputNodes.push_back(scene_.nodes.front().get());
        scene_.materials.resize(1);
        scene_.materials[0].colorAnimated = true;
        scene_.textureSources.resize(1);
        scene_.textureSources[0].texSrtAnimated = true;
    }

    void encode(const std::vector<float>& samples) {
        for (AnimTrack& track : node().channels) {
            track.samples = track.continuous = samples;
        }
        for (ColorChannelRecord& channel : scene_.materials[0].channels) {
            channel.track.samples = samples;
        }
        for (AnimTrack& track : scene_.textureSources[0].placementTracks) {
            track.samples = track.continuous = samples;
        }
        encodeChannels(scene_);
    }

    NodeRecord& node() { return *scene_.nodes.front(); }

    FreshRun fresh_;
    SceneData& scene_ = run().scene;
};

TEST_F(EncodedChannels, ShareOnePoolPerKind) {
    encode({1, 9});
    const std::vector<int32_t> fixed{4096, 36864};
    for (const auto* pool : {&scene_.nodeScaleData, &scene_.nodeRotateData, &scene_.nodeTranslateData,
                             &scene_.texScaleData, &scene_.texRotateData, &scene_.texTranslateData}) {
        EXPECT_EQ(*pool, fixed);
    }
    EXPECT_EQ(scene_.matColorData, (std::vector<int32_t>{1, 9}));
    EXPECT_EQ(node().channels[8].dataSize, 2);
    EXPECT_EQ(scene_.materials[0].channels[12].track.dataSize, 2);
    EXPECT_EQ(scene_.textureSources[0].placementTracks[4].dataSize, 2);
}

TEST_F(EncodedChannels, OfFilesThatAreNotAskedForStayEmpty) {
    run().options.outIca = run().options.outIma = run().options.outIta = false;
    encode({1, 2});
    EXPECT_TRUE(scene_.nodeScaleData.empty() && scene_.matColorData.empty() && scene_.texScaleData.empty());
    EXPECT_EQ(node().channels[0].dataSize, 0);
}

TEST_F(EncodedChannels, OfNodesThatAreNotWrittenStayEmpty) {
    node().skipOutput = true;
    encode({1, 2});
    EXPECT_TRUE(scene_.nodeScaleData.empty());
}

TEST_F(EncodedChannels, GiveTheirSamplesBack) {
    encode({1, 2});
    EXPECT_TRUE(node().channels[0].samples.empty());
    EXPECT_TRUE(node().channels[4].continuous.empty());
}

TEST_F(EncodedChannels, ColoursAreRoundedAndClampedToFiveBits) {
    encode({-3, 15.5F, 40});
    EXPECT_EQ(scene_.matColorData, (std::vector<int32_t>{0, 16, 31}));
}

struct ToleranceCase {
    const char* name;
    float ExportOptions::*option;
    std::vector<int32_t> SceneData::*pool;
};

class ToleranceOf : public EncodedChannels, public testing::WithParamInterface<ToleranceCase> {};

TEST_P(ToleranceOf, TheGroupMakesItConstantAndNoOther) {
    for (float ExportOptions::*option :
         {&ExportOptions::animeTolS, &ExportOptions::animeTolR, &ExportOptions::animeTolT, &ExportOptions::animeTolUvS,
          &ExportOptions::animeTolUvR, &ExportOptions::animeTolUvT}) {
        run().options.*option = 0;
    }
    run().options.*GetParam().option = 0.1F; // 409 of 4096
    encode({0, 408.0F / 4096});
    for (std::vector<int32_t> SceneData::*pool :
         {&SceneData::nodeScaleData, &SceneData::nodeRotateData, &SceneData::nodeTranslateData,
          &SceneData::texScaleData, &SceneData::texRotateData, &SceneData::texTranslateData}) {
        EXPECT_EQ((scene_.*pool).size(), pool == GetParam().pool ? 1U : 2U);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Groups, ToleranceOf,
    testing::Values(ToleranceCase{"NodeScale", &ExportOptions::animeTolS, &SceneData::nodeScaleData},
                    ToleranceCase{"NodeRotate", &ExportOptions::animeTolR, &SceneData::nodeRotateData},
                    ToleranceCase{"NodeTranslate", &ExportOptions::animeTolT, &SceneData::nodeTranslateData},
                    ToleranceCase{"TexScale", &ExportOptions::animeTolUvS, &SceneData::texScaleData},
                    ToleranceCase{"TexRotate", &ExportOptions::animeTolUvR, &SceneData::texRotateData},
                    ToleranceCase{"TexTranslate", &ExportOptions::animeTolUvT, &SceneData::texTranslateData}),
    [](const testing::TestParamInfo<ToleranceCase>& tested) { return tested.param.name; });

TEST_F(EncodedChannels, AToleranceIsTruncatedToWholeUnits) {
    run().options.animeTolS = 0.1F;
    encode({0, 409.0F / 4096});
    EXPECT_EQ(scene_.nodeScaleData.size(), 2U); // 0.1 is 409, and only less than that is nothing
}

TEST_F(EncodedChannels, TheColourToleranceIsInSteps) {
    run().options.animeTolC = 3;
    encode({10, 12.4F});
    EXPECT_EQ(scene_.matColorData, (std::vector<int32_t>{10}));
    encode({10, 13});
    EXPECT_EQ(scene_.matColorData, (std::vector<int32_t>{10, 13}));
}

TEST_F(EncodedChannels, KeysReplaceStepsInTheKeyMode) {
    run().options.animeInterp = 2;
    encode({0, 1});
    const std::vector<int32_t> keys{0, 0, 4096, 4096, 4096, 4096, 4096, 4096};
    EXPECT_EQ(scene_.nodeScaleData, keys);
    EXPECT_EQ(scene_.matColorData, keys);
    EXPECT_EQ(node().channels[3].dataSize, 2);
}

TEST_F(EncodedChannels, KeysOfAnglesAreThoseOfTheContinuousCurve) {
    run().options.animeInterp = 2;
    node().channels[3].samples = {170, -170};
    node().channels[3].continuous = {170, 190};
    encodeChannels(scene_);
    EXPECT_EQ(scene_.nodeRotateData[5], 190 * 4096);
}

TEST_F(EncodedChannels, KeysOfColoursAreClampedFirst) {
    run().options.animeInterp = 2;
    encode({40, 40});
    EXPECT_EQ(scene_.matColorData[1], 31 * 4096);
}

} // namespace
} // namespace tvk
