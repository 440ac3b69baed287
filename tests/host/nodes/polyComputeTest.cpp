#include "host/nodes/polyCompute.h"

#include "MeshFixture.h"

#include "host/geometry/meshNormals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3f;
using Imath::V4f;
using testing::ElementsAre;
using testing::IsEmpty;

/// A cube, behind it one modifier, behind that the shape that shows it.
class Modifier : public MeshFixture {
protected:
    Node& modify(const char* type) {
        Node& node = make(type, "modifier");
        connect(cube, "output", node, "inputPolymesh");
        connect(node, "output", shown, "inMesh");
        return node;
    }
    MeshPtr result() { return evaluatedMesh(graph, shown); }

    Node& cube = make("polyCube", "cube");
    Node& shown = makeMesh("shown");
};

class EveryModifier : public Modifier, public testing::WithParamInterface<const char*> {};

TEST_P(EveryModifier, PassesItsInputThroughWhenItsStateSaysSo) {
    Node& node = modify(GetParam());
    setComponents(node, "inputComponents", {"f[*]", "e[*]"});
    set(node, "nodeState", 1);
    EXPECT_EQ(graph.data(plug(node, "output")), graph.data(plug(cube, "output")));
}

TEST_P(EveryModifier, ChangesNothingWithoutAnythingSet) {
    modify(GetParam());
    EXPECT_EQ(*result()->points, *meshOf(graph.data(plug(cube, "output")))->points);
    EXPECT_EQ(result()->topology->cornerEdges(), meshOf(graph.data(plug(cube, "output")))->topology->cornerEdges());
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_P(EveryModifier, WithoutInputGivesNothing) {
    Node& node = make(GetParam(), "lonely");
    EXPECT_EQ(graph.data(plug(node, "output")), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Types, EveryModifier,
                         testing::Values("polyTweak", "polyTweakUV", "polySoftEdge", "polyNormal", "polyMapDel",
                                         "polyColorPerVertex", "polyTriangulate", "polyQuad", "polySmoothFace",
                                         "polySubdFace", "polyMergeVert", "polyChipOff", "polyDelFacet", "polyDelEdge",
                                         "polyDelVertex", "polyMoveVertex", "polyCrease"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(Modifier, TweakUvMovesCoordinatesOfTheSetThatItNames) {
    Node& node = modify("polyTweakUV");
    set(node, "uvTweak[1].uvTweakX", 0.5);
    set(node, "uvTweak[99].uvTweakX", 0.5);
    EXPECT_EQ((*result()->uvSets[0].points)[1], V2f(1.125F, 0));
    EXPECT_EQ(graph.setString(plug(node, "uvSetName"), "other").error, "");
    EXPECT_EQ((*result()->uvSets[0].points)[1], V2f(0.625F, 0));
}

TEST_F(Modifier, SoftEdgeComparesItsAngle) {
    Node& node = modify("polySoftEdge");
    setComponents(node, "inputComponents", {"e[*]"});
    set(node, "angle", 30 * kDegree);
    EXPECT_EQ(result()->topology->normalFans().count, 24);
    set(node, "angle", 180 * kDegree);
    EXPECT_EQ(result()->topology->normalFans().count, 8);
}

TEST_F(Modifier, NormalReversesFaces) {
    Node& node = modify("polyNormal");
    setComponents(node, "inputComponents", {"f[2:3]"});
    EXPECT_EQ(faceNormal(*result(), 2), V3f(0, 0, 1));
    EXPECT_EQ(faceNormal(*result(), 0), V3f(0, 0, 1));
}

TEST_F(Modifier, NormalMakesFacesAlike) {
    Node& wrong = make("polyNormal", "wrong");
    Node& node = modify("polyNormal");
    EXPECT_EQ(graph.connect(plug(cube, "output"), plug(wrong, "inputPolymesh"), true).error, "");
    EXPECT_EQ(graph.connect(plug(wrong, "output"), plug(node, "inputPolymesh"), true).error, "");
    setComponents(wrong, "inputComponents", {"f[0]"});
    EXPECT_EQ(faceNormal(*result(), 0), V3f(0, 0, -1));
    setComponents(node, "inputComponents", {"f[0]"});
    set(node, "normalMode", 1); // all like the first
    EXPECT_EQ(faceNormal(*result(), 0), V3f(0, 0, -1));
    EXPECT_EQ(faceNormal(*result(), 1), V3f(0, -1, 0));
    set(node, "normalMode", 2); // like most
    EXPECT_EQ(faceNormal(*result(), 0), V3f(0, 0, 1));
    EXPECT_EQ(faceNormal(*result(), 1), V3f(0, 1, 0));
    set(node, "normalMode", 4); // the first turns round, all follow
    EXPECT_EQ(faceNormal(*result(), 0), V3f(0, 0, 1));
    EXPECT_EQ(faceNormal(*result(), 1), V3f(0, 1, 0));
    set(node, "normalMode", 3); // turned round and cut off
    EXPECT_EQ(faceNormal(*result(), 0), V3f(0, 0, 1));
    EXPECT_EQ(result()->topology->vertexCount(), 12);
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Modifier, TriangulateCutsFaces) {
    Node& node = modify("polyTriangulate");
    setComponents(node, "inputComponents", {"f[*]"});
    EXPECT_EQ(result()->topology->faceCount(), 12);
    EXPECT_EQ(result()->topology->cornerCount(), 36);
}

TEST_F(Modifier, QuadUndoesTriangulate) {
    Node& cut = make("polyTriangulate", "cut");
    Node& node = modify("polyQuad");
    EXPECT_EQ(graph.connect(plug(cube, "output"), plug(cut, "inputPolymesh"), true).error, "");
    EXPECT_EQ(graph.connect(plug(cut, "output"), plug(node, "inputPolymesh"), true).error, "");
    setComponents(cut, "inputComponents", {"f[*]"});
    setComponents(node, "inputComponents", {"f[0:5]"});
    EXPECT_EQ(result()->topology->faceCount(), 9);
    setComponents(node, "inputComponents", {"f[*]"});
    EXPECT_EQ(result()->topology->cornerEdges(), meshOf(graph.data(plug(cube, "output")))->topology->cornerEdges());
}

TEST_F(Modifier, QuadAsksItsSwitches) {
    Node& roof = makeMesh("roof"); // two triangles, bent by 45 degrees along a hard edge
    setRows(roof, "vrts", {0, -1, 0, 1, 0, 0, 0, 1, 0, -1, 0, 1});
    setRows(roof, "edge", {0, 1, 1, 1, 2, 1, 2, 0, 0, 2, 3, 1, 3, 0, 1});
    setFaces(roof, {{0, 1, 2}, {-3, 3, 4}});
    Node& parts = make("groupParts", "parts");
    connect(roof, "outMesh", parts, "inputGeometry");
    setComponents(parts, "inputComponents", {"f[1]"});
    Node& node = modify("polyQuad");
    EXPECT_EQ(graph.connect(plug(parts, "outputGeometry"), plug(node, "inputPolymesh"), true).error, "");
    setComponents(node, "inputComponents", {"f[*]"});
    set(node, "angle", 46 * kDegree);
    set(node, "keepHardEdges", 0);
    set(node, "keepGroupBorder", 0);
    EXPECT_EQ(result()->topology->faceCount(), 1);
    set(node, "keepHardEdges", 1);
    EXPECT_EQ(result()->topology->faceCount(), 2);
    set(node, "keepHardEdges", 0);
    set(node, "keepGroupBorder", 1);
    EXPECT_EQ(result()->topology->faceCount(), 2);
    set(node, "keepGroupBorder", 0);
    set(node, "angle", 44 * kDegree);
    EXPECT_EQ(result()->topology->faceCount(), 2);
    setMatrix(node, "inputMatrix", Matrix44().setScale(Imath::V3d(1, 1, 0.5)));
    EXPECT_EQ(result()->topology->faceCount(), 1) << "it is flatter where it stands";
    set(node, "worldSpace", 0);
    EXPECT_EQ(result()->topology->faceCount(), 2);
}

TEST_F(Modifier, MapDelUnmapsFaces) {
    Node& node = modify("polyMapDel");
    setComponents(node, "inputComponents", {"f[1:5]"});
    EXPECT_THAT(result()->uvSets[0].ids->faces, ElementsAre(0));
    EXPECT_EQ(result()->uvSets[0].points->size(), 4U);
}

TEST_F(Modifier, ColorPerVertexPaintsCorners) {
    Node& node = modify("polyColorPerVertex");
    EXPECT_EQ(graph.setString(plug(node, "colorSetName"), "paint").error, "");
    set3(node, "colorPerVertex.vertexColor[0].vertexFaceColor[3].vertexFaceColorRGB", 0.25, 0.5, 1);
    set(node, "colorPerVertex.vertexColor[0].vertexFaceColor[3].vertexFaceAlpha", 0.5);
    set3(node, "colorPerVertex.vertexColor[5].vertexColorRGB", 1, 0, 0);
    set3(node, "colorPerVertex.vertexColor[99].vertexColorRGB", 1, 0, 0);
    const MeshPtr painted = result();
    ASSERT_EQ(painted->colorSets.size(), 1U);
    const ColorSet& paint = painted->colorSets[0];
    EXPECT_EQ(paint.name, "paint");
    EXPECT_EQ(paint.representation, ColorRepresentation::kRgba);
    EXPECT_THAT(paint.ids->faces, ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(*paint.colors,
                ElementsAre(V4f(0.25F, 0.5F, 1, 0.5F), V4f(1, 0, 0, 1), V4f(1, 0, 0, 1), V4f(1, 0, 0, 1)));
    std::int32_t count = 0;
    const std::int32_t* bottom = paint.ids->find(3, count); // 6 7 1 0
    EXPECT_EQ(std::vector<std::int32_t>(bottom, bottom + count), (std::vector<std::int32_t>{-1, -1, -1, 0}));
}

TEST_F(Modifier, ColorPerVertexLeavesOtherCornersOfItsSet) {
    Node& first = modify("polyColorPerVertex");
    set3(first, "colorPerVertex.vertexColor[0].vertexColorRGB", 1, 0, 0);
    set3(first, "colorPerVertex.vertexColor[1].vertexColorRGB", 0, 1, 0);
    Node& second = make("polyColorPerVertex", "second");
    connect(first, "output", second, "inputPolymesh");
    EXPECT_EQ(graph.connect(plug(second, "output"), plug(shown, "inMesh"), true).error, "");
    set3(second, "colorPerVertex.vertexColor[1].vertexColorRGB", 0, 0, 1);
    const MeshPtr painted = result();
    const ColorSet& paint = *painted->findColorSet("");
    std::int32_t count = 0;
    const std::int32_t* front = paint.ids->find(0, count); // 0 1 3 2
    EXPECT_EQ((*paint.colors)[static_cast<std::size_t>(front[0])], V4f(1, 0, 0, 1));
    EXPECT_EQ((*paint.colors)[static_cast<std::size_t>(front[1])], V4f(0, 0, 1, 1));
    EXPECT_EQ(front[2], -1);
}

TEST_F(Modifier, ColorPerVertexKeepsOnlyWhatTheRepresentationHas) {
    Node& node = modify("polyColorPerVertex");
    set3(node, "colorPerVertex.vertexColor[0].vertexColorRGB", 0.25, 0.5, 1);
    set(node, "colorPerVertex.vertexColor[0].vertexAlpha", 0.5);
    set(node, "representation", 1);
    EXPECT_EQ(result()->colorSets[0].colors->at(0), V4f(0, 0, 0, 0.5F));
    set(node, "representation", 3);
    EXPECT_EQ(result()->colorSets[0].colors->at(0), V4f(0.25F, 0.5F, 1, 1));
}

TEST_F(Modifier, ThatIsNotEvaluatedMakesNoMeshUnlessItsStateSaysSo) {
    Node& node = modify("polyBevel3");
    EXPECT_EQ(graph.data(plug(node, "output")), nullptr);
    set(node, "nodeState", 1);
    EXPECT_EQ(result()->topology->faceCount(), 6);
}

TEST_F(Modifier, UniteJoinsWhatComesIn) {
    Node& node = make("polyUnite", "unite");
    Node& triangle = makeTriangle();
    connect(cube, "output", node, "inputPoly[0]");
    connect(triangle, "worldMesh[0]", node, "inputPoly[2]");
    setMatrix(node, "inputMat[2]", moved(0, 5, 0));
    connect(node, "output", shown, "inMesh");
    EXPECT_EQ(result()->topology->faceCount(), 7);
    EXPECT_EQ((*result()->points)[8], V3f(0, 5, 0));
}

TEST_F(Modifier, UniteDoesNotMultiplyWithoutEnd) {
    set(cube, "subdivisionsWidth", 2500); // forty thousand corners
    Node* last = &cube;
    for (const char* name : {"first", "second", "third"}) {
        Node& node = make("polyUnite", name);
        for (int input = 0; input < 32; ++input) {
            connect(*last, "output", node, "inputPoly[" + std::to_string(input) + "]");
        }
        last = &node;
    }
    connect(*last, "output", shown, "inMesh");
    EXPECT_EQ(result()->topology->faceCount(), 0);
    EXPECT_THAT(warnings, ElementsAre("second: it has too many faces (its mesh is empty)"));
}

} // namespace

} // namespace host
