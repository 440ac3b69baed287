#include "ScriptSession.h"

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

} // namespace
} // namespace tvk
