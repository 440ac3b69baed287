// Keyed colours and placements of textures: what a reader plays, beside what the host evaluates.

#include "ExportSession.h"
#include "decode/AnimationFile.h"
#include "motionChecks.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace tvk {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kColors = "ima_file_out=1;anime_tol_c=0";
const std::string kPlacements = "ita_file_out=1;anime_tol_uv_t=0;anime_tol_uv_r=0;anime_tol_uv_s=0";

class ShadingAnimation : public testing::Test, public ExportSession {
protected:
    decode::AnimationFile play(const std::string& statements, const std::string& options) {
        open(statements);
        EXPECT_TRUE(exportAll(options)) << takeMessages();
        return decode::readAnimationFile(fileText(options.substr(0, 3) == "ima" ? "model.ima" : "model.ita"));
    }
    std::string image() const {
        const std::string path = folder.path("water.tga");
        writeImage(path, pictureOfColors(16, 16, 4));
        return path;
    }
    // A plug at a frame, in the units of the host's interface.
    double valueAt(const std::string& plug, std::size_t frame) {
        mel("currentTime " + std::to_string(frame));
        return std::stod(mel("getAttr " + plug));
    }
};

std::string lambert(const std::string& name, const std::string& attributes = "setAttr \".dc\" 1;") {
    return shadingText("lambert", name, attributes) + shadedMesh(name + "Mesh", name + "SG");
}

TEST_F(ShadingAnimation, OfATransparencyIsTheAlphaThatIsLeft) {
    const decode::AnimationFile file =
        play(lambert("glass") + keyed("glass.itr", "0 0.25 4 0.25") + keyed("glass.cr", "0 0 4 1") + playback(0, 4),
             kColors);
    const decode::AnimatedThing& glass = file.of("glass");
    EXPECT_THAT(glass.channel("polygon_alpha").frames, Each(23)); // 0.75 * 31 = 23.25
    EXPECT_THAT(glass.channel("diffuse_r").frames, ElementsAre(0, 8, 16, 23, 31));
    EXPECT_THAT(glass.channel("specular_r").frames, Each(0)); // a lambert shader has none
}

TEST_F(ShadingAnimation, OfADiffuseColourIsTimesItsCoefficient) {
    const decode::AnimationFile file =
        play(lambert("a", "setAttr \".dc\" 0.5;") + keyed("a.cg", "0 0 2 1") + playback(0, 2), kColors);
    EXPECT_THAT(file.of("a").channel("diffuse_g").frames, ElementsAre(0, 8, 16)); // 15.5 and 7.75 rounded
}

TEST_F(ShadingAnimation, OfColoursBeyondTheirRangeIsClamped) {
    const decode::AnimationFile file = play(lambert("a") + keyed("a.cb", "0 -1 4 3") + playback(0, 4), kColors);
    EXPECT_THAT(file.of("a").channel("diffuse_b").frames, ElementsAre(0, 0, 31, 31, 31));
}

TEST_F(ShadingAnimation, OfAShinyShaderHasSpecularColours) {
    const decode::AnimationFile file =
        play(shadingText("phong", "metal") + shadedMesh("m", "metalSG") + keyed("metal.sr", "0 0 2 1") + playback(0, 2),
             kColors);
    EXPECT_THAT(file.of("metal").channel("specular_r").frames, ElementsAre(0, 16, 31));
}

// b and a are equal and become one; c is keyed.
TEST_F(ShadingAnimation, CountsOnlyMaterialsThatHaveIt) {
    const decode::AnimationFile file =
        play(lambert("b") + lambert("a") + lambert("c") + keyed("c.cr", "0 0 2 1") + playback(0, 2),
             kColors + ";compress_material=1");
    ASSERT_EQ(file.things.size(), 1U);
    EXPECT_EQ(file.thing(0).materialName, "c");
    EXPECT_EQ(model().root.find("body")->find("material_array")->children.at(1).value("name"), "c");
}

TEST_F(ShadingAnimation, OfAFadeIsPlayedInEveryMode) {
    for (const char* const mode : {";anime_interp=1;frame_step_mode=0", ";anime_interp=2"}) {
        SCOPED_TRACE(mode);
        const decode::AnimationFile file = play(lambert("a") + keyed("a.cr", "0 0 7 0.9 20 0.2") + playback(0, 20),
                                                "ima_file_out=1;anime_tol_c=1" + std::string(mode));
        const std::vector<double>& frames = file.of("a").channel("diffuse_r").frames;
        ASSERT_EQ(frames.size(), 21U);
        for (std::size_t frame = 0; frame < frames.size(); ++frame) {
            EXPECT_NEAR(frames[frame], 31 * valueAt("a.colorR", frame), 1.01) << frame;
        }
    }
}

TEST_F(ShadingAnimation, OfNothingIsAnEmptyBodyAndAWarning) {
    const decode::AnimationFile file = play(lambert("a") + playback(0, 4), "ima_file_out=1");
    EXPECT_TRUE(file.things.empty());
    EXPECT_TRUE(file.pools.empty());
    EXPECT_EQ(takeMessages(), "Warning: No material color animation\n\n");
    const decode::AnimationFile placements = play(lambert("a") + playback(0, 4), "ita_file_out=1");
    EXPECT_TRUE(placements.things.empty());
    EXPECT_EQ(takeMessages(), "Warning: No texture SRT animation\n\n");
}

// --- placements

class PlacementAnimation : public ShadingAnimation, public testing::WithParamInterface<const char*> {
protected:
    std::string water() const {
        return placedTextureText("water", image()) + shaderText("sea", "water") + texturedSquareText("square", "sea");
    }
};

TEST_P(PlacementAnimation, IsThatOfItsNode) {
    const decode::AnimationFile file =
        play(water() + keyed("water_placement.reu", "0 1 8 3 12 2") + keyed("water_placement.rev", "0 4 12 1") +
                 keyed("water_placement.rf", "0 170 12 260") + keyed("water_placement.tfu", "0 0 5 1 12 -2") +
                 keyed("water_placement.tfv", "0 0.5 12 0.5") + playback(0, 12),
             kPlacements + GetParam());
    struct Row {
        const char* word;
        const char* plug;
    };
    constexpr Row kRows[] = {{"tex_scale_s", "repeatU"},
                             {"tex_scale_t", "repeatV"},
                             {"tex_rotate", "rotateFrame"},
                             {"tex_translate_s", "translateFrameU"},
                             {"tex_translate_t", "translateFrameV"}};
    for (const Row& row : kRows) {
        const std::vector<double>& frames = file.of("sea").channel(row.word).frames;
        ASSERT_EQ(frames.size(), 13U) << row.word;
        for (std::size_t frame = 0; frame < frames.size(); ++frame) {
            const double wanted = valueAt(std::string("water_placement.") + row.plug, frame);
            const bool isAngle = std::string(row.word) == "tex_rotate";
            const double error = isAngle ? std::remainder(frames[frame] - wanted, 360.0) : frames[frame] - wanted;
            EXPECT_NEAR(error, 0.0, 1e-3) << row.word << " at " << frame;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, PlacementAnimation,
                         testing::Values(";anime_interp=0", ";anime_interp=1;frame_step_mode=0", ";anime_interp=2"));

TEST_F(PlacementAnimation, OfWaterThatScrollsTakesTwoKeys) {
    const decode::AnimationFile file =
        play(water() + keyed("water_placement.tfv", "0 0 59 1.5") + playback(0, 59), "ita_file_out=1;anime_interp=2");
    EXPECT_EQ(file.of("sea").channel("tex_translate_t").dataSize, 2);
    EXPECT_EQ(file.of("sea").channel("tex_scale_s").frames, std::vector<double>(60, 1.0));
}

} // namespace
} // namespace tvk
