#include "material/materialWriter.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

MaterialRecord& addMaterial(const std::string& name) {
    SceneData& scene = run().scene;
    MaterialRecord material;
    material.name = name;
    material.outputIndex = static_cast<int32_t>(scene.materials.size());
    scene.materialOrder.push_back(material.outputIndex);
    scene.materials.push_back(material);
    return scene.materials.back();
}

// A material with the only texture of the model.
MaterialRecord& addTextured() {
    SceneData& scene = run().scene;
    TextureRecord image;
    image.index = 4;
    scene.textures.push_back(image);
    PaletteRecord palette;
    palette.index = 7;
    scene.palettes.push_back(palette);
    MaterialTextureRef ref;
    ref.imageIndex = 0;
    ref.paletteIndex = 0;
    ref.tilingS = kTilingFlip;
    scene.textureRefs.push_back(ref);
    MaterialRecord& material = addMaterial("skin");
    material.textureRef = 0;
    return material;
}

std::string written() {
    std::ostringstream out;
    EXPECT_TRUE(writeMaterialArray(out));
    return out.str();
}

// The lines from the one that begins like this to the end of the material.
std::string tailFrom(const std::string& beginning) {
    const std::string text = written();
    const auto at = text.find("\t\t" + beginning);
    EXPECT_NE(at, std::string::npos) << beginning << " in\n" << text;
    return at == std::string::npos ? "" : text.substr(at, text.find("\t/>\n", at) - at);
}

TEST(MaterialWriter, WritesNoElementWithoutMaterials) {
    const FreshRun fresh;
    EXPECT_EQ(written(), "");
}

TEST(MaterialWriter, UntexturedMaterialEndsWithItsTextureIndices) {
    const FreshRun fresh;
    addMaterial("plain");
    EXPECT_EQ(written(), "<material_array size=\"1\">\n"
                         "\t<material index=\"0\" name=\"plain\"\n"
                         "\t\tlight0=\"on\" light1=\"off\" light2=\"off\" light3=\"off\"\n"
                         "\t\tface=\"front\"\n"
                         "\t\talpha=\"31\"\n"
                         "\t\twire_mode=\"off\"\n"
                         "\t\tpolygon_mode=\"modulate\"\n"
                         "\t\tpolygon_id=\"0\"\n"
                         "\t\tfog_flag=\"off\"\n"
                         "\t\tdepth_test_decal=\"off\"\n"
                         "\t\ttranslucent_update_depth=\"off\"\n"
                         "\t\trender_1_pixel=\"off\"\n"
                         "\t\tfar_clipping=\"off\"\n"
                         "\t\tdiffuse=\"31 31 31\"\n"
                         "\t\tambient=\"0 0 0\"\n"
                         "\t\tspecular=\"0 0 0\"\n"
                         "\t\temission=\"0 0 0\"\n"
                         "\t\tshininess_table_flag=\"off\"\n"
                         "\t\ttex_image_idx=\"-1\" tex_palette_idx=\"-1\"\n"
                         "\t/>\n"
                         "</material_array>\n\n");
}

TEST(MaterialWriter, WritesEveryAttributeThatDiffersFromItsDefault) {
    const FreshRun fresh;
    MaterialRecord& material = addMaterial("all");
    material.lights = {false, true, false, true};
    material.face = 2;
    material.alpha = 12;
    material.wireMode = true;
    material.polygonMode = 2;
    material.polygonId = 63;
    material.fog = true;
    material.depthTestDecal = true;
    material.translucentUpdateDepth = true;
    material.render1Pixel = true;
    material.farClip = true;
    material.diffuse = {1, 2, 3, 4};
    material.ambient = {5, 6, 7, 8};
    material.specular = {9, 10, 11, 12};
    material.emission = {13, 14, 15, 16};
    material.shininessTable = true;
    EXPECT_EQ(tailFrom("light0"), "\t\tlight0=\"off\" light1=\"on\" light2=\"off\" light3=\"on\"\n"
                                  "\t\tface=\"both\"\n"
                                  "\t\talpha=\"12\"\n"
                                  "\t\twire_mode=\"on\"\n"
                                  "\t\tpolygon_mode=\"toon_highlight\"\n"
                                  "\t\tpolygon_id=\"63\"\n"
                                  "\t\tfog_flag=\"on\"\n"
                                  "\t\tdepth_test_decal=\"on\"\n"
                                  "\t\ttranslucent_update_depth=\"on\"\n"
                                  "\t\trender_1_pixel=\"on\"\n"
                                  "\t\tfar_clipping=\"on\"\n"
                                  "\t\tdiffuse=\"1 2 3\"\n"
                                  "\t\tambient=\"5 6 7\"\n"
                                  "\t\tspecular=\"9 10 11\"\n"
                                  "\t\temission=\"13 14 15\"\n"
                                  "\t\tshininess_table_flag=\"on\"\n"
                                  "\t\ttex_image_idx=\"-1\" tex_palette_idx=\"-1\"\n");
}

TEST(MaterialWriter, GeneratedFromTextureCoordinatesHasNoSourceAndNoEffectMatrix) {
    const FreshRun fresh;
    MaterialRecord& material = addTextured();
    material.placement.scale = {2.0F, 0.5F};
    material.placement.rotate = -90.0F;
    material.placement.translate = {0.25F, -1.5F};
    material.texGenMode = kTexGenTex;
    EXPECT_EQ(tailFrom("tex_image_idx"), "\t\ttex_image_idx=\"4\" tex_palette_idx=\"7\"\n"
                                         "\t\ttex_tiling=\"flip clamp\"\n"
                                         "\t\ttex_scale=\"2.000000 0.500000\"\n"
                                         "\t\ttex_rotate=\"-90.000000\"\n"
                                         "\t\ttex_translate=\"0.250000 -1.500000\"\n"
                                         "\t\ttex_gen_mode=\"tex\"\n");
}

TEST(MaterialWriter, RawValuesAreIntegersOf4096) {
    const FreshRun fresh;
    run().options.rawValues = true;
    MaterialRecord& material = addTextured();
    material.placement.scale = {2.0F, 0.5F};
    material.placement.rotate = 90.0F;
    material.placement.translate = {-0.25F, 0.0001F}; // the last rounds to nothing
    EXPECT_EQ(tailFrom("tex_scale"), "\t\ttex_scale=\"8192 2048\"\n"
                                     "\t\ttex_rotate=\"368640\"\n"
                                     "\t\ttex_translate=\"-1024 0\"\n"
                                     "\t\ttex_gen_mode=\"none\"\n");
}

TEST(MaterialWriter, GeneratedFromNormalsWritesItsEffectMatrixInFourRows) {
    const FreshRun fresh;
    MaterialRecord& material = addTextured();
    material.texGenMode = kTexGenNrm;
    material.texGenStSrc = 0;
    material.texEffectMatrixFx[1] = -2048;
    EXPECT_EQ(tailFrom("tex_gen_mode"), "\t\ttex_gen_mode=\"nrm\"\n"
                                        "\t\ttex_gen_st_src=\"polygon\"\n"
                                        "\t\ttex_effect_mtx=\"1.000000 -0.500000 0.000000 0.000000\n"
                                        "\t\t                0.000000 1.000000 0.000000 0.000000\n"
                                        "\t\t                0.000000 0.000000 1.000000 0.000000\n"
                                        "\t\t                0.000000 0.000000 0.000000 1.000000\"\n");
}

TEST(MaterialWriter, GeneratedFromPositionsWritesARawEffectMatrixToo) {
    const FreshRun fresh;
    run().options.rawValues = true;
    addTextured().texGenMode = kTexGenPos;
    EXPECT_EQ(tailFrom("tex_gen_mode"), "\t\ttex_gen_mode=\"pos\"\n"
                                        "\t\ttex_gen_st_src=\"material\"\n"
                                        "\t\ttex_effect_mtx=\"4096 0 0 0\n"
                                        "\t\t                0 4096 0 0\n"
                                        "\t\t                0 0 4096 0\n"
                                        "\t\t                0 0 0 4096\"\n");
}

TEST(MaterialWriter, TextureWithoutPaletteHasPaletteIndexMinusOne) {
    const FreshRun fresh;
    addTextured();
    run().scene.textureRefs[0].paletteIndex = -1;
    EXPECT_EQ(tailFrom("tex_image_idx").substr(0, 42), "\t\ttex_image_idx=\"4\" tex_palette_idx=\"-1\"\n\t");
}

TEST(MaterialWriter, ReferenceWithoutImageHasImageIndexMinusOne) {
    const FreshRun fresh;
    addTextured();
    run().scene.textureRefs[0].imageIndex = -1;
    EXPECT_EQ(tailFrom("tex_image_idx").substr(0, 41), "\t\ttex_image_idx=\"-1\" tex_palette_idx=\"7\"\n");
}

TEST(MaterialWriter, WritesMaterialsInTheirOrder) {
    const FreshRun fresh;
    addMaterial("b").outputIndex = 1;
    addMaterial("a").outputIndex = 0;
    addMaterial("c").outputIndex = 2;
    run().scene.materialOrder = {1, 0, 2};
    const std::string text = written();
    const auto a = text.find("<material index=\"0\" name=\"a\"");
    const auto b = text.find("<material index=\"1\" name=\"b\"");
    const auto c = text.find("<material index=\"2\" name=\"c\"");
    EXPECT_LT(a, b);
    EXPECT_LT(b, c);
    EXPECT_NE(c, std::string::npos);
}

struct WordCase {
    int32_t MaterialRecord::*field;
    int32_t value;
    const char* line;
};

class MaterialWord : public testing::TestWithParam<WordCase> {};

TEST_P(MaterialWord, IsThatOfItsNumber) {
    const FreshRun fresh;
    addTextured().*GetParam().field = GetParam().value;
    EXPECT_NE(written().find(std::string("\t\t") + GetParam().line + "\n"), std::string::npos) << GetParam().line;
}

INSTANTIATE_TEST_SUITE_P(Face, MaterialWord,
                         testing::Values(WordCase{&MaterialRecord::face, 0, "face=\"front\""},
                                         WordCase{&MaterialRecord::face, 1, "face=\"back\""},
                                         WordCase{&MaterialRecord::face, 2, "face=\"both\""}));
INSTANTIATE_TEST_SUITE_P(PolygonMode, MaterialWord,
                         testing::Values(WordCase{&MaterialRecord::polygonMode, 0, "polygon_mode=\"modulate\""},
                                         WordCase{&MaterialRecord::polygonMode, 1, "polygon_mode=\"decal\""},
                                         WordCase{&MaterialRecord::polygonMode, 2, "polygon_mode=\"toon_highlight\""},
                                         WordCase{&MaterialRecord::polygonMode, 3, "polygon_mode=\"shadow\""}));
INSTANTIATE_TEST_SUITE_P(PolygonModeOutsideItsWords, MaterialWord,
                         testing::Values(WordCase{&MaterialRecord::polygonMode, 4, "polygon_mode=\"modulate\""},
                                         WordCase{&MaterialRecord::polygonMode, -1, "polygon_mode=\"modulate\""}));
INSTANTIATE_TEST_SUITE_P(TexGenMode, MaterialWord,
                         testing::Values(WordCase{&MaterialRecord::texGenMode, 0, "tex_gen_mode=\"none\""},
                                         WordCase{&MaterialRecord::texGenMode, 1, "tex_gen_mode=\"tex\""},
                                         WordCase{&MaterialRecord::texGenMode, 2, "tex_gen_mode=\"nrm\""},
                                         WordCase{&MaterialRecord::texGenMode, 3, "tex_gen_mode=\"pos\""},
                                         WordCase{&MaterialRecord::texGenMode, 9, "tex_gen_mode=\"none\""}));

TEST(MaterialWriter, WritesNamesInShiftJis) {
    const FreshRun fresh;
    addMaterial("\xE3\x82\xBD");
    EXPECT_NE(written().find("name=\"\x83\x5C\""), std::string::npos);
}

} // namespace
} // namespace tvk
