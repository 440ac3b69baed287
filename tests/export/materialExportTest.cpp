#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::Contains;
using testing::ElementsAre;

// Whole exports of shaded scenes, read back from their files.
class MaterialExport : public testing::Test {
protected:
    // The elements of an array of the body, which must say how many they are.
    const std::vector<decode::FileElement>& elements(const char* array) {
        model = session.model();
        const decode::FileElement* const found = model.root.find("body")->find(array);
        if (found == nullptr) {
            return none;
        }
        EXPECT_EQ(static_cast<std::size_t>(found->integer("size")), found->children.size());
        return found->children;
    }
    std::vector<std::string> names(const char* array) {
        std::vector<std::string> result;
        for (const decode::FileElement& element : elements(array)) {
            EXPECT_EQ(static_cast<std::size_t>(element.integer("index")), result.size());
            result.push_back(element.value("name"));
        }
        return result;
    }
    const decode::FileElement& material(const std::string& name) {
        for (const decode::FileElement& element : elements("material_array")) {
            if (element.value("name") == name) {
                return element;
            }
        }
        ADD_FAILURE() << "no material " << name;
        return nothing;
    }
    std::string image(const std::string& name, std::size_t colors = 4) const {
        const std::string path = session.folder.path(name);
        writeImage(path, pictureOfColors(16, 8, colors));
        return path;
    }

    ExportSession session;
    decode::ModelFile model;
    const std::vector<decode::FileElement> none;
    const decode::FileElement nothing;
};

std::string number(const std::string& name, int value) {
    return addedAttribute(name, "long", std::to_string(value));
}

std::string priority(int value) {
    return number("tvk_use_render_priority", 1) + number("tvk_render_priority", value);
}

// --- merging, naming, order

TEST_F(MaterialExport, EqualShadersBecomeOneAndAKeyedColourStays) {
    session.open(nodeText("transform", "all") + shadingText("lambert", "b", priority(5)) +
                 shadingText("lambert", "a", priority(9)) + shadingText("lambert", "c") + shadingText("lambert", "d") +
                 keysText("c.cr", "keys", "1 0.5 10 1") + shadedMesh("m1", "bSG") + shadedMesh("m2", "aSG") +
                 shadedMesh("m3", "cSG") + shadedMesh("m4", "dSG") + playback(1, 10));
    ASSERT_TRUE(session.exportAll("compress_material=1"));
    EXPECT_THAT(names("material_array"), ElementsAre("a", "c"));
    EXPECT_EQ(model.info->value("material_size"), "4 2");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_THAT(session.infos, Contains("Compress Material\t: Compress Same Material ( 4 -> 2 )"));
}

TEST_F(MaterialExport, WithoutCompressionEveryShaderIsWritten) {
    session.open(shadingText("lambert", "b") + shadingText("lambert", "a") + shadedMesh("m1", "bSG") +
                 shadedMesh("m2", "aSG"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(names("material_array"), ElementsAre("a", "b"));
    EXPECT_EQ(model.info->value("material_size"), "2 2");
    EXPECT_THAT(session.infos, Contains("Compress Material\t: None ( 2 )"));
}

TEST_F(MaterialExport, ASurfaceShaderBecomesTheDummyWithAWarning) {
    session.open(shadingText("surfaceShader", "flat") + shadedMesh("m", "flatSG"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(names("material_array"), ElementsAre("dummy_material"));
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid shader (ignored): flat\n\n");
}

TEST_F(MaterialExport, ASceneWithoutShadingHasNoMaterialArray) {
    session.open(nodeText("transform", "a"));
    ASSERT_TRUE(session.exportAll());
    model = session.model();
    EXPECT_EQ(model.root.find("body")->find("material_array"), nullptr);
    EXPECT_EQ(model.info->value("material_size"), "0 0");
}

// --- texture coordinates

TEST_F(MaterialExport, GenerationFromNormalsWithoutLightsIsNoneOrByThePlacement) {
    const std::string attributes = number("tvk_lighting", 0) + number("tvk_tex_gen_mode", 2);
    const auto textured = [&](const std::string& name, const std::string& placement) {
        return shadingText("lambert", name, attributes) +
               placedTextureText(name + "File", image("hide.tga"), placement) +
               connectText(name + "File.oc", name + ".c") + shadedMesh(name + "Mesh", name + "SG");
    };
    session.open(textured("plain", "") + textured("tiled", "setAttr \".re\" -type \"float2\" 2 1;"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_EQ(material("plain").value("tex_gen_mode"), "none");
    EXPECT_EQ(material("tiled").value("tex_gen_mode"), "tex");
    EXPECT_EQ(material("tiled").value("tex_scale"), "2.000000 1.000000");
}

// --- the sections together

TEST_F(MaterialExport, ImagesPalettesAndMaterialsReferToEachOther) {
    const auto textured = [&](const std::string& name, const std::string& path) {
        return shadingText("lambert", name) + placedTextureText(name + "File", path) +
               connectText(name + "File.oc", name + ".c") + shadedMesh(name + "Mesh", name + "SG");
    };
    session.open(textured("a", image("z.tga")) + textured("b", image("y.tga", 200)) + shadingText("phong", "c") +
                 shadedMesh("cMesh", "cSG"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(names("tex_image_array"), ElementsAre("y", "z"));
    EXPECT_THAT(names("tex_palette_array"), ElementsAre("y", "z"));
    decode::readModelTextures(session.model().root);
    EXPECT_EQ(material("a").value("tex_image_idx"), "1");
    EXPECT_EQ(material("a").value("tex_palette_idx"), "1");
    EXPECT_EQ(material("b").value("tex_image_idx"), "0");
    EXPECT_EQ(material("c").value("tex_image_idx"), "-1");
    std::vector<std::string> sections;
    for (const decode::FileElement& element : model.root.find("body")->children) {
        if (element.name.find("_array") != std::string::npos) {
            sections.push_back(element.name);
        }
    }
    EXPECT_THAT(sections, ElementsAre("tex_image_array", "tex_palette_array", "material_array", "matrix_array",
                                      "polygon_array", "node_array"));
}

TEST_F(MaterialExport, AnImageThatIsMissingStopsTheExportBeforeAnyFile) {
    session.open(shadingText("lambert", "a") + placedTextureText("hide", session.folder.path("missing.tga")) +
                 connectText("hide.oc", "a.c") + shadedMesh("m", "aSG"));
    EXPECT_FALSE(session.exportAll());
    EXPECT_THAT(session.takeMessages(), testing::HasSubstr("missing.tga"));
    EXPECT_FALSE(session.hasFile("model.imd"));
    EXPECT_THAT(session.infos, Contains("---- No Output File ----"));
}

// Colours are read at the start of the range, whatever time it is for the user.
TEST_F(MaterialExport, AKeyedColourHasItsValueAtTheStart) {
    session.open(shadingText("lambert", "a", "setAttr \".dc\" 1;") + keysText("a.cr", "keys", "1 0 11 1") +
                 shadedMesh("m", "aSG") + playback(6, 20));
    session.mel("currentTime 11");
    ASSERT_TRUE(session.exportAll());
    EXPECT_EQ(material("a").value("diffuse"), "16 16 16");
    EXPECT_EQ(session.currentTime(), 11.0);
}

TEST_F(MaterialExport, NamesThatAreTooLongForTheConsoleAreToldInWrittenOrder) {
    session.open(nodeText("transform", "a_transform_of_many") + shadingText("lambert", "short") +
                 shadingText("lambert", "lambert_of_17_chr") + shadingText("lambert", "a_lambert_of_18_ch") +
                 placedTextureText("hide", image("picture_of_17_chr.tga")) + connectText("hide.oc", "short.c") +
                 shadedMesh("m1", "shortSG") + shadedMesh("m2", "lambert_of_17_chrSG") +
                 shadedMesh("m3", "a_lambert_of_18_chSG"));
    ASSERT_TRUE(session.exportAll());
    const std::string text = "Warning: Length of name over 16 characters: ";
    EXPECT_EQ(session.takeMessages(), text + "node: a_transform_of_many\n" + text + "material: a_lambert_of_18_ch\n" +
                                          text + "material: lambert_of_17_chr\n" + text +
                                          "texture: picture_of_17_chr\n" + text + "palette: picture_of_17_chr\n\n");
}

} // namespace
} // namespace tvk
