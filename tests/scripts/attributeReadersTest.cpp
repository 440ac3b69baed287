#include "ScriptSession.h"

#include "textFiles.h"
#include "textureScene.h"

#include "scene/nodeTests.h"
#include "scene/plugReading.h"

#include <maya/MFnMatrixData.h>
#include <maya/MMatrix.h>
#include <maya/MString.h>

#include <gtest/gtest.h>

#include <string_view>

namespace tvk {
namespace {

std::string typeOf(const ExpectedAttribute& row) {
    const std::string_view description = row.description;
    return std::string(description.substr(0, description.find(' ')));
}

// What the scripts make is what the exporter reads, with the defaults that it takes for missing attributes.
TEST(AttributeReaders, ReadEveryNumberOfAShader) {
    ScriptSession session;
    session.mel("createNode lambert -n \"a\"; select -r a; TVK_AddShaderAttributes();");
    for (const ExpectedAttribute& row : kExpectedAttributes) {
        const std::string type = typeOf(row);
        if (row.kind != std::string("shader") || type == "matrix") {
            continue;
        }
        const int expected = row.description[type.size() + 1] - '0';
        int value = -1;
        EXPECT_TRUE(readAttribute(session.node("a"), row.name, value)) << row.name;
        EXPECT_EQ(value, expected) << row.name;
        session.mel(std::string("setAttr a.") + row.name + " " + (expected == 1 && type == "bool" ? "0;" : "1;"));
        EXPECT_TRUE(readAttribute(session.node("a"), row.name, value)) << row.name;
        EXPECT_EQ(value, expected == 1 && type == "bool" ? 0 : 1) << row.name;
    }
}

TEST(AttributeReaders, ReadTheEffectMatrix) {
    ScriptSession session;
    session.mel("createNode lambert -n \"a\"; select -r a; TVK_AddShaderAttributes();"
                "setAttr a.tvk_tex_effect_mtx -type \"matrix\" 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16;");
    const MPlug plug = findPlug(MFnDependencyNode(session.node("a")), "tvk_tex_effect_mtx");
    MObject value;
    ASSERT_TRUE(plug.getValue(value));
    const MMatrix matrix = MFnMatrixData(value).matrix();
    for (unsigned int element = 0; element < 16; ++element) {
        EXPECT_EQ(matrix(element / 4, element % 4), element + 1.0);
    }
}

TEST(AttributeReaders, ReadTheFrameList) {
    ScriptSession session;
    session.mel("createNode file -n \"a\"; select -r a; TVK_AddTextureAttributes();"
                "setAttr a.tvk_fe_list -type \"string\" \"1-3, 7\";");
    MString list;
    ASSERT_TRUE(readAttribute(session.node("a"), "tvk_fe_list", list));
    EXPECT_STREQ(list.asChar(), "1-3, 7");
}

TEST(AttributeReaders, ReadTheAttributesOfATransform) {
    ScriptSession session;
    session.mel("createNode transform -n \"a\"; select -r a; TVK_AddTransformAttributes();");
    EXPECT_FALSE(isNoCut(session.node("a")));
    EXPECT_EQ(billboardOf(session.node("a")), Billboard::kOff);
    session.mel("setAttr a.tvk_no_cut 1; setAttr a.tvk_billboard 1;");
    EXPECT_TRUE(isNoCut(session.node("a")));
    EXPECT_EQ(billboardOf(session.node("a")), Billboard::kOn);
    session.mel("setAttr a.tvk_billboard 2;");
    EXPECT_EQ(billboardOf(session.node("a")), Billboard::kYOn);
}

// What the file says after an artist set the attribute.
struct WrittenRow {
    const char* attribute;
    int value;
    const char* line; // of the material's element
    const char* word;
};

constexpr WrittenRow kWritten[] = {
    {"tvk_lighting", 0, "light0", "off"},
    {"tvk_lighting1", 1, "light1", "on"},
    {"tvk_lighting2", 1, "light2", "on"},
    {"tvk_lighting3", 1, "light3", "on"},
    {"tvk_shininess_table", 1, "shininess_table_flag", "on"},
    {"tvk_disp_face", 2, "face", "both"},
    {"tvk_poly_mode", 2, "polygon_mode", "toon_highlight"},
    {"tvk_poly_id", 63, "polygon_id", "63"},
    {"tvk_wire_mode", 1, "wire_mode", "on"},
    {"tvk_fog", 1, "fog_flag", "on"},
    {"tvk_depth_test_decal", 1, "depth_test_decal", "on"},
    {"tvk_xlu_update_depth", 1, "translucent_update_depth", "on"},
    {"tvk_render_1_pixel", 1, "render_1_pixel", "on"},
    {"tvk_far_clip", 1, "far_clipping", "on"},
    {"tvk_tex_gen_mode", 3, "tex_gen_mode", "pos"},
    {"tvk_tex_gen_st_src", 0, "tex_gen_st_src", "polygon"},
};

TEST(AttributeReaders, WhatAnArtistSetsIsWhatTheFileSays) {
    ScriptSession session;
    session.open(texturedText("a", sourcePath("samples/sourceimages/checker.tga")));
    session.mel("select -r a_shader; TVK_AddShaderAttributes();");
    for (const WrittenRow& row : kWritten) {
        session.mel(std::string("setAttr a_shader.") + row.attribute + " " + std::to_string(row.value) + ";");
    }
    ASSERT_TRUE(session.exportAll());
    const decode::FileElement file = decode::readIntermediateFile(session.fileText("model.imd"));
    const decode::FileElement& material = file.find("body")->find("material_array")->children.at(0);
    for (const WrittenRow& row : kWritten) {
        EXPECT_EQ(material.value(row.line), row.word) << row.attribute;
    }
}

// Up to what follows the time of the export.
std::string exportedModel(ExportSession& session) {
    EXPECT_TRUE(session.exportAll());
    const std::string text = session.fileText("model.imd");
    return text.substr(text.find("<model_info"));
}

TEST(AttributeReaders, AddingThemChangesNothingThatIsExported) {
    ScriptSession session;
    session.mel("workspace -o \"" + sourcePath("samples") + "\"; file -f -o \"" + sourcePath("samples/materials.ma") +
                "\";");
    const std::string before = exportedModel(session);
    session.mel("select -r `ls -type lambert` `ls -type transform` `ls -type file`;"
                "TVK_AddShaderAttributes(); TVK_AddTransformAttributes(); TVK_AddTextureAttributes();");
    EXPECT_EQ(exportedModel(session), before);
}

} // namespace
} // namespace tvk
