#include "host/scene/setAttrStatement.h"

#include "OpenedScene.h"

#include "host/geometry/ComponentList.h"
#include "host/geometry/PolyFaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct NumberRow {
    const char* name;
    std::string statements;
    const char* plug;
    std::vector<double> numbers; // in the scene's units
};

class SetNumbers : public testing::TestWithParam<NumberRow> {};

TEST_P(SetNumbers, AreStored) {
    OpenedScene opened(GetParam().statements);
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    const std::vector<double> numbers = opened.numbers(GetParam().plug);
    ASSERT_EQ(numbers.size(), GetParam().numbers.size());
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        EXPECT_NEAR(numbers[at], GetParam().numbers[at], 1e-6) << at;
    }
}

const std::string kTransform = "createNode transform -n \"a\";\n";
const std::string kMesh = "createNode mesh -n \"a\";\n";
const std::string kSkin = "createNode skinCluster -n \"a\";\n";
const std::string kCurve = "createNode animCurveTL -n \"a\";\n";

INSTANTIATE_TEST_SUITE_P(
    All, SetNumbers,
    testing::Values(
        NumberRow{"Scalar", kTransform + "setAttr \".tx\" 5;", "a.translateX", {5}},
        NumberRow{"LongName", kTransform + "setAttr \".translateX\" 5;", "a.tx", {5}},
        NumberRow{"NodeInTheName", kTransform + "createNode transform -n \"b\";\nsetAttr \"a.tx\" 5;", "a.tx", {5}},
        NumberRow{"PathInTheName", kTransform + "createNode transform -n \"b\";\nsetAttr \"|a.tx\" 5;", "a.tx", {5}},
        NumberRow{"BooleanWord", kTransform + "setAttr \".v\" no;", "a.v", {0}},
        NumberRow{"BooleanNumber", kTransform + "setAttr \".v\" 0;", "a.v", {0}},
        NumberRow{"IntegerForADouble", kTransform + "setAttr \".sx\" 3;", "a.sx", {3}},
        NumberRow{"Double3", kTransform + "setAttr \".t\" -type \"double3\" 1 -2 3e0 ;", "a.t", {1, -2, 3}},
        NumberRow{"Float3ForADouble3", kTransform + "setAttr \".r\" -type \"float3\" 10 20 30 ;", "a.r", {10, 20, 30}},
        NumberRow{"CompoundWithoutType", kTransform + "setAttr \".s\" 1 2 3;", "a.s", {1, 2, 3}},
        NumberRow{"TypeBeforeTheName", kTransform + "setAttr -type \"double3\" \".t\" 1 2 3;", "a.t", {1, 2, 3}},
        NumberRow{"FlagsBehindTheValues", kTransform + "setAttr \".tx\" 5 -k off;", "a.tx", {5}},
        NumberRow{"FlagsBehindTheName", kTransform + "setAttr \".tx\" -k off -av 5;", "a.tx", {5}},
        NumberRow{"LongFlags",
                  kTransform + "setAttr -keyable off -lock off -channelBox on -alteredValue \".tx\" 5;",
                  "a.tx",
                  {5}},
        NumberRow{"Child", kTransform + "setAttr \".t.ty\" 4;", "a.t", {0, 4, 0}},
        NumberRow{"Element", kMesh + "setAttr \".pt[2]\" -type \"float3\" 1 2 3 ;", "a.pt[2]", {1, 2, 3}},
        NumberRow{"ElementWithoutType", kMesh + "setAttr \".pt[2]\" 1 2 3;", "a.pt[2]", {1, 2, 3}},
        NumberRow{"ChildOfAnElement", kMesh + "setAttr \".pt[2].py\" 7;", "a.pt[2]", {0, 7, 0}},
        NumberRow{
            "Range", kMesh + "setAttr -s 3 \".vt[0:2]\"  0 1 2 3 4 5 6 7 8;", "a.vt", {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        NumberRow{"RangeInChunks",
                  kMesh + "setAttr -s 4 \".vt[0:1]\"  0 1 2 3 4 5;\nsetAttr \".vt[2:3]\" 6 7 8 9 10 11;",
                  "a.vt",
                  {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
        NumberRow{"RangeAgain",
                  kMesh + "setAttr \".vt[0:1]\"  0 1 2 3 4 5;\nsetAttr \".vt[1:1]\" 6 7 8;",
                  "a.vt",
                  {0, 1, 2, 6, 7, 8}},
        NumberRow{"RangeThatBeginsLate",
                  kMesh + "setAttr \".pt[5:6]\" -type \"float3\" 1 2 3 4 5 6 ;",
                  "a.pt",
                  {1, 2, 3, 4, 5, 6}},
        NumberRow{
            "RangeOfBooleans", "createNode dagPose -n \"a\";\nsetAttr -s 3 \".g[0:2]\" yes no yes;", "a.g", {1, 0, 1}},
        NumberRow{"Edges", kMesh + "setAttr -s 2 \".ed[0:1]\"  0 1 0 2 3 1;", "a.ed", {0, 1, 0, 2, 3, 1}},
        NumberRow{"NestedRange",
                  kMesh + "setAttr -s 2 \".uvst[1].uvsp[0:1]\" -type \"float2\" 0.1 0.2 0.3 0.4 ;",
                  "a.uvst[1].uvsp",
                  {0.1, 0.2, 0.3, 0.4}},
        NumberRow{"RaggedWeights",
                  kSkin + "setAttr -s 3 \".wl\";\nsetAttr \".wl[0:2].w\"  2 0 0.5 3 0.5 1 7 1 0;",
                  "a.wl[0].w",
                  {0.5, 0.5}},
        NumberRow{
            "RaggedWeightAtItsIndex", kSkin + "setAttr \".wl[0:1].w\"  2 0 0.25 3 0.75 1 7 1;", "a.wl[1].w[7]", {1}},
        NumberRow{"WeightsOfOneVertex",
                  kSkin + "setAttr -s 3 \".wl[0].w[0:2]\"  0.62 0.37 0.01;",
                  "a.wl[0].w",
                  {0.62, 0.37, 0.01}},
        NumberRow{
            "OneWeight", kSkin + "setAttr -s 2 \".wl[3].w\";\nsetAttr \".wl[3].w[5]\" 0.5;", "a.wl[3].w[5]", {0.5}},
        NumberRow{"KeysOfACurve", kCurve + "setAttr -s 2 \".ktv[0:1]\"  1 5 10.5 -6;", "a.ktv", {1, 5, 10.5, -6}},
        NumberRow{"OneKey", kCurve + "setAttr \".ktv[0]\"  -3.5 5;", "a.ktv[0]", {-3.5, 5}},
        NumberRow{"EnumsOfACurve", kCurve + "setAttr -size 2 \".keyTanOutType[0:1]\"  5 18;", "a.kot", {5, 18}},
        NumberRow{
            "Matrix",
            "createNode joint -n \"a\";\nsetAttr \".bps\" -type \"matrix\" 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16;",
            "a.bindPose",
            {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}},
        NumberRow{"AlphaColors",
                  kMesh + "setAttr \".clst[0].rprt\" 1;\nsetAttr -s 2 \".clst[0].clsp[0:1]\"  0.5 0.25;",
                  "a.clst[0].clsp",
                  {0, 0, 0, 0.5, 0, 0, 0, 0.25}},
        NumberRow{"ColorsWithoutAlpha",
                  kMesh + "setAttr \".clst[0].rprt\" 3;\nsetAttr -s 2 \".clst[0].clsp[0:1]\"  0.1 0.2 0.3 0.4 0.5 0.6;",
                  "a.clst[0].clsp",
                  {0.1, 0.2, 0.3, 1, 0.4, 0.5, 0.6, 1}},
        NumberRow{"ColorsWithAlpha",
                  kMesh + "setAttr -s 1 \".clst[0].clsp[0:0]\"  0.1 0.2 0.3 0.4;",
                  "a.clst[0].clsp",
                  {0.1, 0.2, 0.3, 0.4}},
        NumberRow{"IntegerList",
                  kTransform + "addAttr -ln \"l\" -dt \"Int32Array\";\nsetAttr \".l\" -type \"Int32Array\" 3 4 5 6;",
                  "a.l",
                  {4, 5, 6}},
        NumberRow{"NumberList",
                  kTransform +
                      "addAttr -ln \"l\" -dt \"doubleArray\";\nsetAttr \".l\" -type \"doubleArray\" 2 0.5 1.5;",
                  "a.l",
                  {0.5, 1.5}},
        NumberRow{
            "GenericNumber", kTransform + "addAttr -ln \"g\" -at \"generic\";\nsetAttr \".g\" 2.5;", "a.g", {2.5}},
        NumberRow{"ValueOfAnOutputIsIgnored",
                  "createNode animCurveTU -n \"a\";\nsetAttr \".ktv[0]\" 1 4;\nsetAttr \".o\" 99;",
                  "a.o",
                  {4}}),
    [](const auto& row) { return row.param.name; });

struct UnitRow {
    const char* name;
    const char* units;
    std::string statements;
    const char* plug;
    double internal; // centimetres, radians, ticks
};

class SetInUnits : public testing::TestWithParam<UnitRow> {};

TEST_P(SetInUnits, IsHeldInInternalUnits) {
    OpenedScene opened(std::string("currentUnit ") + GetParam().units + ";\n" + GetParam().statements);
    ASSERT_EQ(opened.result.error, "");
    const Scene::PlugMatch plug = opened.scene.findPlug(GetParam().plug);
    ASSERT_TRUE(plug.ok());
    EXPECT_NEAR(opened.scene.graph().number(plug.plug), GetParam().internal, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    All, SetInUnits,
    testing::Values(
        UnitRow{"Millimetres", "-l millimeter -a degree -t film", kTransform + "setAttr \".tx\" 25;", "a.tx", 2.5},
        UnitRow{"Feet", "-l ft", kTransform + "setAttr \".rp\" -type \"double3\" 1 0 0;", "a.rpx", 30.48},
        UnitRow{"Metres", "-l m", "createNode polyCube -n \"a\";\nsetAttr \".w\" 2;", "a.w", 200},
        UnitRow{"Degrees", "-a degree", kTransform + "setAttr \".rz\" 180;", "a.rz", 3.14159265358979},
        UnitRow{"Radians", "-a rad", "createNode joint -n \"a\";\nsetAttr \".jox\" 1.5;", "a.jox", 1.5},
        UnitRow{"ScaleHasNoUnit", "-l mm", kTransform + "setAttr \".sx\" 25;", "a.sx", 25},
        UnitRow{"KeyTimesInFrames", "-t ntsc", kCurve + "setAttr -s 1 \".ktv[0:0]\" 15 1;", "a.ktv[0].kt", 70560000},
        UnitRow{"KeyTimesBetweenFrames", "-t film", kCurve + "setAttr \".ktv[0]\" 0.5 1;", "a.ktv[0].kt", 2940000},
        UnitRow{"DistanceKeys", "-l mm", kCurve + "setAttr \".ktv[0]\" 1 25;", "a.ktv[0].kv", 2.5},
        UnitRow{"AngleKeys", "-l mm", "createNode animCurveTA -n \"a\";\nsetAttr \".ktv[0]\" 1 180;", "a.ktv[0].kv",
                3.14159265358979},
        UnitRow{"OtherKeysHaveNoUnit", "-l mm", "createNode animCurveTU -n \"a\";\nsetAttr \".ktv[0]\" 1 25;",
                "a.ktv[0].kv", 25}),
    [](const auto& row) { return row.param.name; });

TEST(SetAttr, TextsInAllTheirForms) {
    OpenedScene opened(
        "createNode file -n \"a\";\n\tsetAttr \".ftn\" -type \"string\" \"C:/x \\\"y\\\"\\n\\t\\\\\";\n"
        "createNode script -n \"s\";\n\tsetAttr \".b\" -type \"string\" (\n\t\t\"one \\\"1\\\"\"\n\t\t+ \"two\" );\n"
        "createNode camera -n \"c\";\n\tsetAttr \".imn\" \"bare\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.text("a.ftn"), "C:/x \"y\"\n\t\\");
    EXPECT_EQ(opened.text("s.b"), "one \"1\"two");
    EXPECT_EQ(opened.text("c.imn"), "bare");
}

TEST(SetAttr, ListsOfTextsAndComponents) {
    OpenedScene opened(
        "createNode transform -n \"t\";\naddAttr -ln \"l\" -dt \"stringArray\";\n"
        "\tsetAttr \".l\" -type \"stringArray\" 2 \"a\" \"b c\"  ;\n"
        "createNode mesh -n \"m\";\n"
        "\tsetAttr \".iog[0].og[3].gcl\" -type \"componentList\" 3 \"f[0:2]\" \"f[*]\" \"vtxFace[1][2]\";\n"
        "\tsetAttr \".iog[0].og[4].gcl\" -type \"componentList\" 0;\n"
        "\tsetAttr \".iog[0].og[5].gcl\" -type \"componentList\" 2 \"zap[0]\" \"e[1]\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.texts("t.l"), ElementsAre("a", "b c"));
    EXPECT_THAT(opened.texts("m.iog[0].og[3].gcl"), ElementsAre("f[0:2]", "f[*]", "vtxFace[1][2]"));
    EXPECT_THAT(opened.texts("m.iog[0].og[4].gcl"), IsEmpty());
    EXPECT_THAT(opened.texts("m.iog[0].og[5].gcl"), ElementsAre("e[1]"));
    EXPECT_THAT(opened.warnings, ElementsAre("s.ma(8): unknown component 'zap[0]' is skipped"));
}

TEST(SetAttr, AliasesNameTheirAttributes) {
    OpenedScene opened(
        "createNode blendShape -n \"b\";\n\tsetAttr -s 2 \".w[0:1]\"  0.25 0.5;\n"
        "\tsetAttr \".aal\" -type \"attributeAlias\" {\"smile\",\"weight[0]\",\"frown\",\"weight[1]\"} ;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.number("b.smile"), 0.25);
    EXPECT_EQ(opened.number("b.frown"), 0.5);
    EXPECT_THAT(opened.texts("b.aal"), ElementsAre("smile", "weight[0]", "frown", "weight[1]"));
}

const PolyFaces* facesOf(OpenedScene& opened, const char* plug) {
    const DataPtr data = opened.scene.graph().data(opened.scene.findPlug(plug).plug);
    return data != nullptr && data->kind == DataKind::kPolyFaces ? static_cast<const PolyFaces*>(data.get()) : nullptr;
}

TEST(SetAttr, FacesOverSeveralChunksNameTheirTypeOnce) {
    OpenedScene opened(kMesh +
                       "\tsetAttr -s 3 -ch 11 \".fc[0:1]\" -type \"polyFaces\"\n\t\tf 4 0 5 -2 -5\n\t\tmu 0 4 0 1 3 2\n"
                       "\t\tf 4 1 7 -3 -7 mu 0 4 2 3 5 4;\n\tsetAttr \".fc[2]\"\n\t\tf 3 0 1 2\n\t\tmc 1 3 -1 0 1;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    const PolyFaces* faces = facesOf(opened, "a.fc[0]");
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(faces->faceCount(), 3);
    EXPECT_THAT(faces->edges, ElementsAre(0, 5, -2, -5, 1, 7, -3, -7, 0, 1, 2));
    EXPECT_THAT(faces->uvIds.at(0).ids, ElementsAre(0, 1, 3, 2, 2, 3, 5, 4));
    EXPECT_THAT(faces->colorIds.at(1).ids, ElementsAre(-1, 0, 1));
}

TEST(SetAttr, FacesOfTwoMeshesStayApart) {
    OpenedScene opened("createNode mesh -n \"a\";\n\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2;\n"
                       "createNode mesh -n \"b\";\n\tsetAttr \".fc[0:1]\" -type \"polyFaces\" f 3 3 4 5 f 3 6 7 8;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(facesOf(opened, "a.fc[0]")->edges, ElementsAre(0, 1, 2));
    EXPECT_THAT(facesOf(opened, "b.fc[0]")->edges, ElementsAre(3, 4, 5, 6, 7, 8));
}

TEST(SetAttr, TypeOfAGenericArrayHoldsForItsLaterChunks) {
    OpenedScene opened("createNode transform -n \"t\";\naddAttr -ln \"g\" -at \"generic\" -m;\n"
                       "\tsetAttr \".g[0:1]\" -type \"string\" \"a\" \"b\";\n\tsetAttr \".g[2]\" \"c\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.text("t.g[1]"), "b");
    EXPECT_EQ(opened.text("t.g[2]"), "c");
}

// A transform in parts: scale 2 3 4, rotation of 90 degrees about z, translate 10 20 30, nothing else.
TEST(SetAttr, MatrixInParts) {
    OpenedScene opened(
        "createNode dagPose -n \"p\";\n\tsetAttr \".xm[1]\" -type \"matrix\" \"xform\" 2 3 4 0 0 "
        "1.5707963267948966 0 10 20 30 0 0 0\n\t\t 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 0 1 1 1 1 yes;\n");
    ASSERT_EQ(opened.result.error, "");
    const std::vector<double> expected{0, 2, 0, 0, -3, 0, 0, 0, 0, 0, 4, 0, 10, 20, 30, 1};
    const std::vector<double> read = opened.numbers("p.xm[1]");
    ASSERT_EQ(read.size(), 16U);
    for (std::size_t at = 0; at < 16; ++at) {
        EXPECT_NEAR(read[at], expected[at], 1e-12) << at;
    }
}

// The quaternion turns 90 degrees about x, after the rotation of 90 degrees about z: x goes to y and then to z.
TEST(SetAttr, JointOrientOfAMatrixInPartsComesAfterItsRotation) {
    OpenedScene opened("createNode dagPose -n \"p\";\n\tsetAttr \".xm[0]\" -type \"matrix\" \"xform\" 1 1 1 0 0 "
                       "1.5707963267948966 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0.70710678118654757 0 0 "
                       "0.70710678118654757 1 1 1 no;\n");
    ASSERT_EQ(opened.result.error, "");
    const std::vector<double> read = opened.numbers("p.xm[0]");
    ASSERT_EQ(read.size(), 16U);
    EXPECT_NEAR(read[0], 0.0, 1e-12);
    EXPECT_NEAR(read[1], 0.0, 1e-12);
    EXPECT_NEAR(read[2], 1.0, 1e-12);
}

TEST(SetAttr, FlagsOfAttributes) {
    OpenedScene opened(kTransform +
                       "\tsetAttr -k off \".v\";\n\tsetAttr -cb on \".ro\";\n\tsetAttr -l on -k on \".tx\" 3;\n");
    ASSERT_EQ(opened.result.error, "");
    Node* node = opened.node("a");
    const auto flags = [&](const char* name) { return *node->flags(opened.scene.findPlug(name).plug.at); };
    EXPECT_EQ(flags("a.v").keyable, false);
    EXPECT_EQ(flags("a.ro").channelBox, true);
    EXPECT_TRUE(flags("a.tx").locked);
    EXPECT_EQ(opened.number("a.tx"), 3.0);
}

TEST(SetAttr, TypesThatNothingEvaluatesAreReadOver) {
    OpenedScene opened(
        kMesh +
        "\tsetAttr \".cd\" -type \"dataPolyComponent\" Index_Data Edge 1 \n3 0.5 ;\n"
        "createNode reference -n \"r\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n\t\t\"rRN\"\n"
        "\t\t\"rRN\" 2\n\t\t2 \"|a\" \"visibility\" \" 0\";\n"
        "createNode nurbsCurve -n \"n\";\n\tsetAttr \".cc\" -type \"nurbsCurve\" \n\t\t1 1 0 no 3\n\t\t2 0 1\n\t\t2\n"
        "\t\t0 0 0\n\t\t0 1 0\n\t\t;\n");
    EXPECT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
}

// What a file claims about sizes costs nothing: only numbers that are there take memory.
TEST(SetAttr, ClaimedSizesTakeNoMemory) {
    OpenedScene opened(
        kMesh + "\tsetAttr -s 2000000000 \".vt\";\n\tsetAttr -s 2000000000 -ch 2000000000 \".vt[0:1]\" 0 0 0 1 1 1;\n"
                "\tsetAttr \".pt[2000000000]\" -type \"float3\" 1 2 3;\n");
    ASSERT_EQ(opened.result.error, "");
    const NumberRows* rows = opened.scene.graph().storedRows(opened.scene.findPlug("a.vt").plug);
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->rowCount(), 2U);
    EXPECT_LT(rows->floats().capacity(), 1000U);
    EXPECT_THAT(opened.numbers("a.pt[2000000000]"), ElementsAre(1, 2, 3));
}

} // namespace

} // namespace host
