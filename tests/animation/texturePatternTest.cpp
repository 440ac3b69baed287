#include "animation/texturePatternBody.h"
#include "animation/texturePatternSampling.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "textureScene.h"

#include "common/numberText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace tvk {
namespace {

struct NearestCase {
    int64_t wanted;
    std::size_t place; // in 1, 5, 10
};

class NearestFrame : public testing::TestWithParam<NearestCase> {};

TEST_P(NearestFrame, IsTheLowerOfEqualOnes) {
    EXPECT_EQ(nearestFrame({1, 5, 10}, GetParam().wanted), GetParam().place) << GetParam().wanted;
}

INSTANTIATE_TEST_SUITE_P(Numbers, NearestFrame,
                         testing::Values(NearestCase{-1000000, 0}, NearestCase{0, 0}, NearestCase{1, 0},
                                         NearestCase{3, 0}, NearestCase{4, 1}, NearestCase{5, 1}, NearestCase{7, 1},
                                         NearestCase{8, 2}, NearestCase{10, 2}, NearestCase{1000000000000000, 2}));

/// A pattern of the images 1, 5 and 10, with a curve of a scene.
class SampledPattern : public testing::Test, public ExportSession {
protected:
    std::vector<int32_t> sample(const std::string& keys, int count, int frames) {
        open(steppedCurveText("curve", keys, count) + playback(0, frames - 1));
        prepareRun("itp_file_out=1");
        pattern_.fileNodeName = "torch";
        pattern_.curve = node("curve");
        pattern_.frames = {1, 5, 10};
        pattern_.textureRefs = {100, 200, 300};
        return samplePattern(pattern_);
    }

    TexturePatternRecord pattern_;
};

using Refs = std::vector<int32_t>;
const std::string kNearest =
    "Warning: Texture pattern animation invalid frame extension (use nearest): torch.fe: fe = ";

TEST_F(SampledPattern, ShowsTheImagesOfItsCurve) {
    EXPECT_EQ(sample("0 10 2 1 3 5", 3, 5), (Refs{300, 300, 100, 200, 200}));
    EXPECT_EQ(takeMessages(), "");
}

TEST_F(SampledPattern, OfAMissingFrameShowsTheNearestAndWarnsOnceForItsEntry) {
    EXPECT_EQ(sample("0 7 4 3 5 1", 3, 6), (Refs{200, 200, 200, 200, 100, 100}));
    EXPECT_EQ(takeMessages(), kNearest + "7 -> 5\n");
}

TEST_F(SampledPattern, RoundsHalvesUpBeforeItLooksForTheNearest) {
    EXPECT_EQ(sample("0 7.5 1 9.5 2 0.5", 3, 3), (Refs{300, 300, 100}));
    EXPECT_EQ(takeMessages(), kNearest + "8 -> 10\n");
}

TEST_F(SampledPattern, RoundsNegativeHalvesAwayFromZero) {
    EXPECT_EQ(sample("0 -0.5", 1, 1), (Refs{100}));
    EXPECT_EQ(takeMessages(), kNearest + "-1 -> 1\n");
}

TEST_F(SampledPattern, OfABadNumberShowsSomeImage) {
    EXPECT_EQ(sample("0 1e300 1 -1e300", 2, 2), (Refs{300, 100}));
    EXPECT_EQ(takeMessages(), kNearest + "1000000000000000 -> 10\n");
}

TEST_F(SampledPattern, BeginsAtTheFirstFrameOfTheRange) {
    open(steppedCurveText("curve", "3 1 5 10", 2) + playback(4, 5));
    prepareRun("itp_file_out=1");
    pattern_.curve = node("curve");
    pattern_.frames = {1, 10};
    pattern_.textureRefs = {7, 8};
    EXPECT_EQ(samplePattern(pattern_), (Refs{7, 8}));
}

// --- the file's body, of records made here

class PatternBody : public testing::Test, public ExportSession {
protected:
    // Image i has the name iI and, where `palettes` says so, the palette pI.
    void prepare(const std::string& curve, int frames, const std::vector<bool>& palettes) {
        open(curve + playback(0, frames - 1));
        prepareRun("itp_file_out=1");
        SceneData& scene = run().scene;
        scene.materials.resize(1);
        scene.materials[0].name = "torch_mat";
        scene.textureSources.resize(1);
        scene.textureSources[0].materialIndex = 0;
        TexturePatternRecord pattern;
        pattern.fileNodeName = "torch";
        pattern.textureSource = 0;
        pattern.curve = node("curve");
        for (std::size_t i = 0; i < palettes.size(); ++i) {
            const std::string number = std::to_string(i);
            scene.textures.emplace_back().name = "i" + number;
            MaterialTextureRef& ref = scene.textureRefs.emplace_back();
            ref.imageIndex = static_cast<int32_t>(i);
            if (palettes[i]) {
                ref.paletteIndex = static_cast<int32_t>(scene.palettes.size());
                scene.palettes.emplace_back().name = "p" + number;
            }
            pattern.frames.push_back(static_cast<int64_t>(i));
            pattern.textureRefs.push_back(static_cast<int32_t>(i));
        }
        scene.texturePatterns.push_back(std::move(pattern));
    }
    static std::string body(bool succeeds = true) {
        std::ostringstream out;
        setupStream(out);
        EXPECT_EQ(static_cast<bool>(writeTexturePatternBody(out)), succeeds);
        return out.str();
    }
};

TEST_F(PatternBody, OfNoPatternIsEmpty) {
    prepareRun("itp_file_out=1");
    EXPECT_EQ(body(), "");
}

TEST_F(PatternBody, ListsOnlyImagesThatAreShownAndMinusOneWhereThereIsNoPalette) {
    prepare(steppedCurveText("curve", "0 3 2 1 4 3", 3), 6, {true, true, true, false});
    EXPECT_EQ(body(), "<tex_pattern_list_data image_size=\"2\" palette_size=\"1\">\n"
                      "\t<image_name index=\"0\" name=\"i1\"/>\n"
                      "\t<image_name index=\"1\" name=\"i3\"/>\n"
                      "\t<palette_name index=\"0\" name=\"p1\"/>\n"
                      "</tex_pattern_list_data>\n\n"
                      "<tex_pattern_data>\n"
                      "\t<frame_idx size=\"3\">\n\t\t0 2 4\n\t</frame_idx>\n"
                      "\t<image_idx size=\"3\">\n\t\t1 0 1\n\t</image_idx>\n"
                      "\t<palette_idx size=\"3\">\n\t\t-1 0 -1\n\t</palette_idx>\n"
                      "</tex_pattern_data>\n\n"
                      "<tex_pattern_anm_array size=\"1\">\n"
                      "\t<tex_pattern_anm index=\"0\" material_name=\"torch_mat\" data_size=\"3\" data_head=\"0\"/>\n"
                      "</tex_pattern_anm_array>\n\n");
}

TEST_F(PatternBody, SharesTheKeysOfEqualPatterns) {
    prepare(steppedCurveText("curve", "0 0 1 1", 2), 3, {false, false});
    run().scene.texturePatterns.push_back(run().scene.texturePatterns.front());
    const std::string text = body();
    EXPECT_NE(text.find("\t<frame_idx size=\"2\">"), std::string::npos) << text;
    EXPECT_NE(text.find("<tex_pattern_anm index=\"1\" material_name=\"torch_mat\" data_size=\"2\" data_head=\"0\"/>"),
              std::string::npos)
        << text;
}

// One more a frame, so that every image is shown.
std::string climbing(int images) {
    const std::string last = std::to_string(images - 1);
    return nodeText("animCurveTU", "curve", "",
                    "setAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s 2 \".ktv[0:1]\" 0 0 " + last + " " +
                        last + ";");
}

TEST_F(PatternBody, NumbersAsManyImagesAsTwelveBitsHold) {
    prepare(climbing(4096), 4096, std::vector<bool>(4096, true));
    EXPECT_NE(body().find("<tex_pattern_list_data image_size=\"4096\" palette_size=\"4096\">"), std::string::npos);
    EXPECT_EQ(takeMessages(), "");
}

TEST_F(PatternBody, OfMoreImagesThanTwelveBitsHoldFails) {
    prepare(climbing(4097), 4097, std::vector<bool>(4097, false));
    EXPECT_EQ(body(false), "");
    EXPECT_EQ(takeMessages(), "Error: Too many textures: 4097\n");
}

} // namespace
} // namespace tvk
