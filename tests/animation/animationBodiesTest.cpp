#include "animation/materialColorBody.h"
#include "animation/poolText.h"
#include "animation/textureSrtBody.h"

#include "FreshRun.h"
#include "common/numberText.h"

#include <gtest/gtest.h>

#include <numeric>
#include <sstream>
#include <vector>

namespace tvk {
namespace {

std::string written(MStatus (*body)(std::ostream&)) {
    std::ostringstream out;
    setupStream(out);
    EXPECT_TRUE(body(out));
    return out.str();
}

std::string pool(const std::vector<int32_t>& numbers, bool isFixed) {
    std::ostringstream out;
    setupStream(out);
    writePool(out, "node_scale_data", numbers, isFixed);
    return out.str();
}

TEST(PoolText, OfNothingIsItsTwoLines) {
    const FreshRun fresh;
    EXPECT_EQ(pool({}, true), "<node_scale_data size=\"0\">\n</node_scale_data>\n\n");
}

TEST(PoolText, StandsTenToALine) {
    const FreshRun fresh;
    std::vector<int32_t> numbers(11);
    std::iota(numbers.begin(), numbers.end(), 0);
    EXPECT_EQ(pool(numbers, false),
              "<node_scale_data size=\"11\">\n\t0 1 2 3 4 5 6 7 8 9\n\t10\n</node_scale_data>\n\n");
    numbers.pop_back();
    EXPECT_EQ(pool(numbers, false), "<node_scale_data size=\"10\">\n\t0 1 2 3 4 5 6 7 8 9\n</node_scale_data>\n\n");
}

TEST(PoolText, IsInUnitsOrRaw) {
    const FreshRun fresh;
    EXPECT_EQ(pool({4096, -1}, true), "<node_scale_data size=\"2\">\n\t1.000000 -0.000244\n</node_scale_data>\n\n");
    run().options.rawValues = true;
    EXPECT_EQ(pool({4096, -1}, true), "<node_scale_data size=\"2\">\n\t4096 -1\n</node_scale_data>\n\n");
}

TEST(MaterialColorBody, OfNoAnimatedMaterialIsEmpty) {
    const FreshRun fresh;
    run().scene.materials.resize(2);
    EXPECT_EQ(written(writeMaterialColorBody), "");
}

TEST(MaterialColorBody, CountsAnimatedMaterialsOnly) {
    const FreshRun fresh;
    SceneData& scene = run().scene;
    scene.materials.resize(3);
    for (const std::size_t i : {1U, 2U}) {
        scene.materials[i].name = "m" + std::to_string(i);
        scene.materials[i].colorAnimated = true;
    }
    scene.materials[2].channels[12].track = {{}, {}, false, 2, 5, 7};
    scene.matColorData = {31, 0};
    const std::string text = written(writeMaterialColorBody);
    EXPECT_EQ(text.substr(0, text.find("0\" material_name")),
              "<mat_color_data size=\"2\">\n\t31 0\n</mat_color_data>\n\n"
              "<mat_color_anm_array size=\"2\">\n\t<mat_color_anm index=\"");
    EXPECT_NE(text.find("\t<mat_color_anm index=\"0\" material_name=\"m1\">\n"
                        "\t\t<diffuse_r frame_step=\"1\" data_size=\"0\" data_head=\"0\"/>\n"),
              std::string::npos);
    EXPECT_NE(text.find("\t<mat_color_anm index=\"1\" material_name=\"m2\">\n"), std::string::npos);
    EXPECT_NE(text.find("\t\t<polygon_alpha frame_step=\"2\" data_size=\"5\" data_head=\"7\"/>\n\t</mat_color_anm>\n"
                        "</mat_color_anm_array>\n\n"),
              std::string::npos);
}

TEST(MaterialColorBody, PrintsKeysAsDecimalsAndAnEmptyPoolNotAtAll) {
    const FreshRun fresh;
    run().scene.materials.resize(1);
    run().scene.materials[0].colorAnimated = true;
    EXPECT_EQ(written(writeMaterialColorBody).substr(0, 20), "<mat_color_anm_array");
    run().scene.matColorData = {4096};
    run().options.animeInterp = 2;
    EXPECT_EQ(written(writeMaterialColorBody).substr(0, 36), "<mat_color_data size=\"1\">\n\t1.000000\n");
}

TEST(TextureSrtBody, OfNoAnimatedTextureIsEmpty) {
    const FreshRun fresh;
    run().scene.textureSources.resize(1);
    EXPECT_EQ(written(writeTextureSrtBody), "");
}

TEST(TextureSrtBody, PrintsPoolsEvenEmptyAndAnEntryPerTexture) {
    const FreshRun fresh;
    SceneData& scene = run().scene;
    scene.materials.resize(2);
    scene.materials[1].name = "water";
    scene.textureSources.resize(2);
    scene.textureSources[1].materialIndex = 1;
    scene.textureSources[1].texSrtAnimated = true;
    scene.textureSources[1].placementTracks[3] = {{}, {}, false, 4, 3, 1};
    scene.texTranslateData = {0, 4096};
    EXPECT_EQ(written(writeTextureSrtBody),
              "<tex_scale_data size=\"0\">\n</tex_scale_data>\n\n"
              "<tex_rotate_data size=\"0\">\n</tex_rotate_data>\n\n"
              "<tex_translate_data size=\"2\">\n\t0.000000 1.000000\n</tex_translate_data>\n\n"
              "<tex_srt_anm_array size=\"1\">\n\t<tex_srt_anm index=\"0\" material_name=\"water\">\n"
              "\t\t<tex_scale_s frame_step=\"1\" data_size=\"0\" data_head=\"0\"/>\n"
              "\t\t<tex_scale_t frame_step=\"1\" data_size=\"0\" data_head=\"0\"/>\n"
              "\t\t<tex_rotate frame_step=\"1\" data_size=\"0\" data_head=\"0\"/>\n"
              "\t\t<tex_translate_s frame_step=\"4\" data_size=\"3\" data_head=\"1\"/>\n"
              "\t\t<tex_translate_t frame_step=\"1\" data_size=\"0\" data_head=\"0\"/>\n"
              "\t</tex_srt_anm>\n</tex_srt_anm_array>\n\n");
}

} // namespace
} // namespace tvk
