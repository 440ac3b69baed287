#include "ScriptSession.h"

#include "sceneText.h"
#include "textFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace tvk {
namespace {

// How each kind of node gets its attributes.
struct KindRow {
    const char* kind;
    const char* command;
    const char* nodeType; // one that fits
    const char* refusal;
    const char* one; // as the command counts them
    const char* two;
};

const KindRow kKinds[] = {
    {"shader", "TVK_AddShaderAttributes", "blinn",
     "No attributes were added: select lambert, blinn, phong, phongE or anisotropic shaders", "1 shader", "2 shaders"},
    {"transform", "TVK_AddTransformAttributes", "transform", "No attributes were added: select transforms or joints",
     "1 transform", "2 transforms"},
    {"texture", "TVK_AddTextureAttributes", "file", "No attributes were added: select file textures", "1 file texture",
     "2 file textures"},
};

int countOf(const std::string& kind) {
    return static_cast<int>(std::count_if(kExpectedAttributes.begin(), kExpectedAttributes.end(),
                                          [&](const ExpectedAttribute& row) { return row.kind == kind; }));
}

std::string attributes(int count) {
    return std::to_string(count) + (count == 1 ? " attribute" : " attributes");
}

class AddAttributes : public testing::TestWithParam<KindRow> {
protected:
    std::string run() { return session.mel(std::string(GetParam().command) + "();"); }
    void create(const std::string& name) { session.mel("createNode " + type() + " -n \"" + name + "\";"); }
    std::string type() const { return GetParam().nodeType; }
    std::string command() const { return std::string(GetParam().command) + "();"; }
    void expectAllOn(const std::string& node) {
        for (const ExpectedAttribute& row : kExpectedAttributes) {
            EXPECT_EQ(session.describe(node, row.name),
                      row.kind == std::string(GetParam().kind) ? row.description : "missing")
                << node << "." << row.name;
        }
    }

    ScriptSession session;
};

TEST_P(AddAttributes, RefusesWhenNothingIsSelected) {
    create("a");
    session.mel("select -clear;");
    EXPECT_FALSE(session.melRuns(command()));
    ASSERT_EQ(session.errors.size(), 1U);
    EXPECT_EQ(session.errors[0], GetParam().refusal);
    EXPECT_EQ(session.takePrinted(), "");
}

TEST_P(AddAttributes, RefusesASelectionOfOtherNodes) {
    session.open(meshText("aShape", "") + nodeText("surfaceShader", "flat") + nodeText("layeredShader", "layers") +
                 nodeText("useBackground", "holdout") + nodeText("rampShader", "toon") +
                 nodeText("oceanShader", "waves") + nodeText("checker", "procedural") +
                 nodeText("place2dTexture", "placed") + nodeText("psdFileTex", "layered"));
    session.mel("select -r aShape flat layers holdout toon waves procedural placed layered;");
    EXPECT_FALSE(session.melRuns(command()));
    ASSERT_EQ(session.errors.size(), 1U);
    EXPECT_EQ(session.errors[0], GetParam().refusal);
}

TEST_P(AddAttributes, MakesEveryAttributeAsItIsMeant) {
    create("a");
    session.mel("select -r a;");
    const int count = countOf(GetParam().kind);
    EXPECT_EQ(run(), std::to_string(count));
    EXPECT_EQ(session.takePrinted(), "Added " + attributes(count) + " to " + GetParam().one + "\n");
    expectAllOn("a");
}

TEST_P(AddAttributes, TakesEveryFittingNodeOfTheSelectionOnce) {
    create("a");
    create("b");
    create("untouched");
    session.mel("createNode mesh -n other; select -r a b other; select -add a;");
    const int count = 2 * countOf(GetParam().kind);
    EXPECT_EQ(run(), std::to_string(count));
    EXPECT_EQ(session.takePrinted(), "Added " + attributes(count) + " to " + GetParam().two + "\n");
    expectAllOn("a");
    expectAllOn("b");
    EXPECT_EQ(session.describe("untouched", kExpectedAttributes.front().name), "missing");
}

TEST_P(AddAttributes, ASecondRunChangesNothing) {
    create("a");
    session.mel("select -r a;");
    run();
    session.takePrinted();
    EXPECT_EQ(run(), "0");
    EXPECT_EQ(session.takePrinted(),
              std::string("Nothing to add to ") + GetParam().one + ": every attribute is there\n");
    expectAllOn("a");
    EXPECT_EQ(session.mel("string $selected[] = `ls -sl`; $selected[0];"), "a");
}

TEST_P(AddAttributes, OnlyTheNodesThatLackSomethingAreCounted) {
    create("a");
    session.mel("select -r a;");
    run();
    session.takePrinted();
    create("b");
    session.mel("select -r a b;");
    const int count = countOf(GetParam().kind);
    EXPECT_EQ(run(), std::to_string(count));
    EXPECT_EQ(session.takePrinted(), "Added " + attributes(count) + " to " + GetParam().one + "\n");
}

TEST_P(AddAttributes, NothingOfThemIsKeyableAndNumbersAreInTheChannelBox) {
    create("a");
    session.mel("select -r a;");
    run();
    for (const ExpectedAttribute& row : kExpectedAttributes) {
        if (row.kind == std::string(GetParam().kind)) {
            const std::string plug = std::string("\"a.") + row.name + "\";";
            const bool isNumber = std::string(row.description).rfind("matrix", 0) != 0 &&
                                  std::string(row.description).rfind("string", 0) != 0;
            EXPECT_EQ(session.mel("getAttr -keyable " + plug), "0") << row.name;
            EXPECT_EQ(session.mel("getAttr -channelBox " + plug), isNumber ? "1" : "0") << row.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, AddAttributes, testing::ValuesIn(kKinds),
                         [](const auto& row) { return row.param.kind; });

// As the page of attributes tells artists to install it.
TEST(AttributeScript, IsFoundOnTheScriptPath) {
    ExportSession session;
    EXPECT_FALSE(session.melRuns("source TVK_Attributes;"));
    ::setenv("MAYA_SCRIPT_PATH", sourcePath("scripts").c_str(), 1);
    EXPECT_TRUE(session.melRuns("source TVK_Attributes; createNode file; TVK_AddTextureAttributes();"));
    ::unsetenv("MAYA_SCRIPT_PATH");
}

TEST(AddShaderAttributes, KeepsTheValuesAndRangesOfAScene) {
    ScriptSession session;
    session.open(
        nodeText("phong", "old", "",
                 "addAttr -ci true -sn \"tvk_lighting\" -ln \"tvk_lighting\" -min 0 -max 1 -at \"bool\";\n"
                 "\taddAttr -ci true -sn \"tvk_poly_id\" -ln \"tvk_poly_id\" -dv 7 -at \"long\";\n"
                 "\taddAttr -ci true -sn \"tvk_disp_face\" -ln \"tvk_disp_face\" -min 0 -max 3 -at \"short\";\n"
                 "\tsetAttr -k on \".tvk_lighting\" no;\n\tsetAttr -k on \".tvk_poly_id\" 200;\n"
                 "\tsetAttr -k on \".tvk_disp_face\" 3;"));
    session.mel("select -r old;");
    EXPECT_EQ(session.mel("TVK_AddShaderAttributes();"), "17");
    EXPECT_EQ(session.mel("getAttr old.tvk_lighting;"), "0");
    EXPECT_EQ(session.mel("getAttr old.tvk_poly_id;"), "200");
    EXPECT_EQ(session.mel("getAttr old.tvk_disp_face;"), "3");
    EXPECT_EQ(session.describe("old", "tvk_poly_id"), "long 7 - - Tvk_poly_id");
    EXPECT_EQ(session.mel("getAttr -type old.tvk_disp_face;"), "short");
    EXPECT_EQ(session.mel("getAttr -keyable old.tvk_lighting;"), "1");
    EXPECT_EQ(session.mel("getAttr old.tvk_lighting1;"), "0");
}

TEST(AddShaderAttributes, EveryShaderThatIsExportedFits) {
    for (const std::string type : {"lambert", "blinn", "phong", "phongE", "anisotropic"}) {
        ScriptSession session;
        session.mel("createNode " + type + " -n \"a\"; select -r a;");
        EXPECT_EQ(session.mel("TVK_AddShaderAttributes();"), std::to_string(countOf("shader"))) << type;
    }
}

TEST(AddTransformAttributes, JointsFitConstraintsAndHandlesDoNot) {
    ScriptSession session;
    session.mel("createNode joint -n \"hip\"; createNode transform -n \"goal\";"
                "createNode parentConstraint -n \"follow\" -p \"goal\"; createNode ikHandle -n \"reach\";"
                "createNode ikEffector -n \"tip\" -p \"hip\"; select -r hip follow reach tip;");
    EXPECT_EQ(session.mel("TVK_AddTransformAttributes();"), "2");
    EXPECT_EQ(session.takePrinted(), "Added 2 attributes to 1 transform\n");
    EXPECT_EQ(session.describe("follow", "tvk_no_cut"), "missing");
}

TEST(AddTransformAttributes, NodesOfOneNameAreKeptApart) {
    ScriptSession session;
    session.open(nodeText("transform", "l") + nodeText("transform", "r") + nodeText("transform", "hand", "l") +
                 nodeText("transform", "hand", "r"));
    session.mel("select -r \"r|hand\";");
    EXPECT_EQ(session.mel("TVK_AddTransformAttributes();"), "2");
    EXPECT_EQ(session.describe("r|hand", "tvk_no_cut"), "bool 0 - - Never Remove");
    EXPECT_EQ(session.describe("l|hand", "tvk_no_cut"), "missing");
}

TEST(AddShaderAttributes, TheEffectMatrixBeginsAsTheIdentity) {
    ScriptSession session;
    session.mel("createNode lambert -n \"a\"; select -r a; TVK_AddShaderAttributes();");
    for (int element = 0; element < 16; ++element) {
        const std::string value = "float $m[] = `getAttr a.tvk_tex_effect_mtx`; $m[" + std::to_string(element) + "];";
        EXPECT_EQ(session.mel(value), element % 5 == 0 ? "1" : "0") << element;
    }
}

} // namespace
} // namespace tvk
