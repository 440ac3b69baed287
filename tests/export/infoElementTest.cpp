#include "export/envelope.h"

#include "FreshRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace tvk {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string info(OutputKind kind) {
    std::ostringstream out;
    writeInfo(out, kind);
    return out.str();
}

// Five gathered nodes of which three are written.
void fillRun() {
    for (int i = 0; i < 5; ++i) {
        run().scene.nodes.push_back(std::make_unique<NodeRecord>());
    }
    for (std::size_t i = 0; i < 3; ++i) {
        run().scene.outputNodes.push_back(run().scene.nodes[i].get());
    }
    run().scene.materialCount = 4;
    run().scene.outputMaterialCount = 2;
    run().scene.positionScale = 6;
    run().options.startFrame = 10;
    run().options.endFrame = 21;
    run().options.frameCount = 12;
}

TEST(InfoElement, OfTheModel) {
    const FreshRun fresh;
    fillRun();
    EXPECT_EQ(info(OutputKind::kImd), "<model_info\n"
                                      "\tpos_scale=\"6\"\n"
                                      "\tscaling_rule=\"standard\"\n"
                                      "\tvertex_style=\"direct\"\n"
                                      "\tmagnify=\"1.000000\"\n"
                                      "\ttool_start_frame=\"10\"\n"
                                      "\ttex_matrix_mode=\"maya\"\n"
                                      "\tcompress_node=\"none\" node_size=\"5 3\"\n"
                                      "\tcompress_material=\"off\" material_size=\"4 2\"\n"
                                      "\toutput_texture=\"used\"\n"
                                      "\tforce_full_weight=\"off\"\n"
                                      "\tuse_primitive_strip=\"on\"\n"
                                      "/>\n\n");
}

TEST(InfoElement, OfTheNodeAnimation) {
    const FreshRun fresh;
    fillRun();
    run().options.animeInterp = 1;
    run().options.loopInterp = true;
    run().options.magnify = 2;
    run().scene.scalingRuleIsMaya = true;
    EXPECT_EQ(info(OutputKind::kIca), "<node_anm_info\n"
                                      "\tframe_size=\"12\"\n"
                                      "\tscaling_rule=\"maya\"\n"
                                      "\tmagnify=\"2.000000\"\n"
                                      "\ttool_start_frame=\"10\"\n"
                                      "\ttool_end_frame=\"21\"\n"
                                      "\tinterpolation=\"linear\"\n"
                                      "\tinterp_end_to_start=\"on\"\n"
                                      "\tcompress_node=\"none\" node_size=\"5 3\"\n"
                                      "\tframe_step_mode=\"1\"\n"
                                      "\ttolerance_scale=\"0.100000\"\n"
                                      "\ttolerance_rotate=\"0.100000\"\n"
                                      "\ttolerance_translate=\"0.100000\"\n"
                                      "/>\n\n");
}

TEST(InfoElement, OfTheMaterialColourAnimation) {
    const FreshRun fresh;
    fillRun();
    EXPECT_EQ(info(OutputKind::kIma), "<mat_color_info\n"
                                      "\tframe_size=\"12\"\n"
                                      "\ttool_start_frame=\"10\"\n"
                                      "\ttool_end_frame=\"21\"\n"
                                      "\tinterpolation=\"frame\"\n"
                                      "\tcompress_material=\"off\" material_size=\"4 2\"\n"
                                      "\tframe_step_mode=\"1\"\n"
                                      "\ttolerance_color=\"3\"\n"
                                      "/>\n\n");
}

TEST(InfoElement, OfTheTexturePatternAnimation) {
    const FreshRun fresh;
    fillRun();
    run().options.compressMaterial = true;
    EXPECT_EQ(info(OutputKind::kItp), "<tex_pattern_info\n"
                                      "\tframe_size=\"12\"\n"
                                      "\ttool_start_frame=\"10\"\n"
                                      "\ttool_end_frame=\"21\"\n"
                                      "\tcompress_material=\"on\" material_size=\"4 2\"\n"
                                      "/>\n\n");
}

TEST(InfoElement, OfTheVisibilityAnimationHasNothingElse) {
    const FreshRun fresh;
    fillRun();
    run().options.animeInterp = 1;
    EXPECT_EQ(info(OutputKind::kIva), "<visibility_info\n"
                                      "\tframe_size=\"12\"\n"
                                      "\ttool_start_frame=\"10\"\n"
                                      "\ttool_end_frame=\"21\"\n"
                                      "\tcompress_node=\"none\" node_size=\"5 3\"\n"
                                      "/>\n\n");
}

TEST(InfoElement, OfTheTextureSrtAnimation) {
    const FreshRun fresh;
    fillRun();
    run().options.animeInterp = 2;
    run().options.animeTolUvT = 0.25F;
    run().options.animeTolUvR = 0.5F;
    run().options.animeTolUvS = 0.75F;
    EXPECT_EQ(info(OutputKind::kIta), "<tex_srt_info\n"
                                      "\tframe_size=\"12\"\n"
                                      "\ttool_start_frame=\"10\"\n"
                                      "\ttool_end_frame=\"21\"\n"
                                      "\tinterpolation=\"key\"\n"
                                      "\tinterp_end_to_start=\"off\"\n"
                                      "\ttex_matrix_mode=\"maya\"\n"
                                      "\tcompress_material=\"off\" material_size=\"4 2\"\n"
                                      "\tframe_step_mode=\"1\"\n"
                                      "\ttolerance_tex_scale=\"0.750000\"\n"
                                      "\ttolerance_tex_rotate=\"0.500000\"\n"
                                      "\ttolerance_tex_translate=\"0.250000\"\n"
                                      "/>\n\n");
}

TEST(InfoElement, OfAnUnknownKindIsEmpty) {
    const FreshRun fresh;
    EXPECT_EQ(info(static_cast<OutputKind>(6)), "<unknown\n/>\n\n");
}

TEST(InfoElement, ChoicesAreWords) {
    const FreshRun fresh;
    const std::pair<int, const char*> compressions[] = {{0, "none"},          {1, "cull"}, {2, "merge"}, {3, "unite"},
                                                        {4, "unite_combine"}, {5, "none"}, {-1, "none"}};
    for (const auto& [mode, word] : compressions) {
        run().options.optimizeNode = mode;
        EXPECT_THAT(info(OutputKind::kImd), HasSubstr(std::string("\tcompress_node=\"") + word + "\" node_size=\""));
    }
    const std::pair<int, const char*> steps[] = {{0, "auto"}, {1, "1"}, {2, "2"}, {3, "4"}, {4, "1"}, {-1, "1"}};
    for (const auto& [mode, word] : steps) {
        run().options.frameStepMode = mode;
        EXPECT_THAT(info(OutputKind::kIca), HasSubstr(std::string("\tframe_step_mode=\"") + word + "\"\n"));
    }
    run().options.vertexTableFlag = true;
    run().options.outAllTex = true;
    run().options.forceFullWeight = true;
    run().options.usePrimitiveStrip = false;
    EXPECT_THAT(info(OutputKind::kImd), HasSubstr("\tvertex_style=\"index\"\n"));
    EXPECT_THAT(info(OutputKind::kImd),
                HasSubstr("\toutput_texture=\"all\"\n\tforce_full_weight=\"on\"\n\tuse_primitive_strip=\"off\"\n"));
}

// What behaves like frame interpolation is written like it: no way back to the start either.
TEST(InfoElement, OnlyInterpolationsThatFillFramesInTellOfTheLoop) {
    const FreshRun fresh;
    run().options.loopInterp = true;
    const std::pair<int, const char*> cases[] = {{0, "frame"}, {1, "linear"}, {2, "key"}, {3, "frame"}, {-1, "frame"}};
    for (const auto& [mode, word] : cases) {
        run().options.animeInterp = mode;
        EXPECT_THAT(info(OutputKind::kIca), HasSubstr(std::string("\tinterpolation=\"") + word + "\"\n")) << mode;
        if (word == std::string("frame")) {
            EXPECT_THAT(info(OutputKind::kIca), Not(HasSubstr("interp_end_to_start"))) << mode;
        } else {
            EXPECT_THAT(info(OutputKind::kIca), HasSubstr("\tinterp_end_to_start=\"on\"\n")) << mode;
        }
    }
}

} // namespace
} // namespace tvk
