#include "animation/materialSampling.h"

#include "ExportSession.h"
#include "sceneText.h"

#include <maya/MFnDependencyNode.h>

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

constexpr auto kDiffuseR = static_cast<std::size_t>(ColorChannel::kDiffuseR);
constexpr auto kAmbientG = static_cast<std::size_t>(ColorChannel::kAmbientG);
constexpr auto kSpecularR = static_cast<std::size_t>(ColorChannel::kSpecularR);
constexpr auto kAlpha = static_cast<std::size_t>(ColorChannel::kAlpha);

/// A record whose channels read plugs of one node.
class SampledMaterial : public testing::Test, public ExportSession {
protected:
    SampledMaterial() {
        open(nodeText("transform", "values"));
        material().colorAnimated = true;
    }
    static MaterialRecord& material() {
        if (run().scene.materials.empty()) {
            run().scene.materials.resize(1);
        }
        return run().scene.materials[0];
    }
    // The channel's sample when its plug has a value.
    float sampled(std::size_t channel, double value) {
        mel("setAttr values.tx " + std::to_string(value));
        material().channels.at(channel).plug = MFnDependencyNode(node("values")).findPlug("translateX", true);
        return again(channel);
    }
    static float again(std::size_t channel) {
        sampleMaterialColors(run().scene);
        const std::vector<float>& samples = material().channels.at(channel).track.samples;
        EXPECT_FALSE(samples.empty());
        return samples.empty() ? -1.0F : samples.back();
    }
};

TEST_F(SampledMaterial, OfATransparencyOfAQuarterHasAnAlphaOf23AndAQuarter) {
    material().alphaFromTransparency = true;
    EXPECT_EQ(sampled(kAlpha, 0.25), 23.25F);
}

TEST_F(SampledMaterial, OfAnOpacityHasItAsItIs) {
    material().alphaFromTransparency = false;
    EXPECT_EQ(sampled(kAlpha, 0.25), 7.75F);
}

TEST_F(SampledMaterial, ColoursAreClampedBeforeTheyAreScaled) {
    EXPECT_EQ(sampled(kAmbientG, -0.5), 0.0F);
    EXPECT_EQ(sampled(kAmbientG, 0.5), 15.5F);
    EXPECT_EQ(sampled(kAmbientG, 1.5), 31.0F);
}

TEST_F(SampledMaterial, ADiffuseCoefficientMayLiftAColourBeyondTheRange) {
    material().diffuseCoeff = 2.0F;
    EXPECT_EQ(sampled(kDiffuseR, 0.75), 46.5F);
    EXPECT_EQ(sampled(kAmbientG, 0.75), 23.25F);
}

TEST_F(SampledMaterial, WithoutSpecularColourReadsNoPlug) {
    EXPECT_EQ(sampled(kSpecularR, 1.0), 0.0F);
    material().hasSpecular = true;
    EXPECT_EQ(sampled(kSpecularR, 1.0), 31.0F);
}

TEST_F(SampledMaterial, APlugThatCannotBeReadIsBlack) {
    EXPECT_EQ(again(kDiffuseR), 0.0F);
    EXPECT_EQ(again(kAlpha), 0.0F);
}

TEST_F(SampledMaterial, ThatIsNotAnimatedOrTheDummyHasNoSamples) {
    material().isDummy = true;
    sampleMaterialColors(run().scene);
    material().isDummy = false;
    material().colorAnimated = false;
    sampleMaterialColors(run().scene);
    EXPECT_TRUE(material().channels[kDiffuseR].track.samples.empty());
}

/// A record of an animated placement whose channels read plugs of one node.
class SampledPlacement : public testing::Test, public ExportSession {
protected:
    SampledPlacement() {
        open(nodeText("place2dTexture", "place", "",
                      "setAttr \".re\" -type \"float2\" 2 3 ;\n\tsetAttr \".rf\" 270;\n\tsetAttr \".tf\" -type "
                      "\"float2\" -0.5 9 ;"));
        run().scene.textureSources.resize(1);
        source().texSrtAnimated = true;
    }
    static TextureSourceRecord& source() { return run().scene.textureSources[0]; }
    static std::vector<float> samples() {
        samplePlacements(run().scene);
        std::vector<float> result;
        for (const AnimTrack& track : source().placementTracks) {
            EXPECT_EQ(track.samples.size(), 1U);
            result.push_back(track.samples.empty() ? -1.0F : track.samples.back());
        }
        return result;
    }
};

TEST_F(SampledPlacement, TurnsAreDegreesBelowHalfATurnWithACopyThatGoesOn) {
    const MFnDependencyNode function(node("place"));
    constexpr const char* kNames[] = {"repeatU", "repeatV", "rotateFrame", "translateFrameU", "translateFrameV"};
    for (std::size_t i = 0; i < kPlacementChannelCount; ++i) {
        source().placementPlugs[i] = function.findPlug(kNames[i], true);
    }
    EXPECT_EQ(samples(), (std::vector<float>{2, 3, -90, -0.5F, 9}));
    EXPECT_EQ(source().placementTracks[2].continuous, std::vector<float>{270});
}

TEST_F(SampledPlacement, PlugsThatCannotBeReadAreTheIdentity) {
    EXPECT_EQ(samples(), (std::vector<float>{1, 1, 0, 0, 0}));
}

TEST_F(SampledPlacement, ThatIsNotAnimatedHasNoSamples) {
    source().texSrtAnimated = false;
    samplePlacements(run().scene);
    EXPECT_TRUE(source().placementTracks[0].samples.empty());
}

} // namespace
} // namespace tvk
