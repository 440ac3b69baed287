#include "host/nodes/polyFaceCompute.h"

#include "MeshFixture.h"

#include "host/geometry/meshNormals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V3f;
using testing::ElementsAre;
using testing::IsEmpty;

/// A cube, behind it one modifier, behind that the shape that shows it.
class FaceModifier : public MeshFixture {
protected:
    Node& modify(const char* type, const std::vector<std::string>& components) {
        Node& node = make(type, "modifier");
        connect(cube, "output", node, "inputPolymesh");
        connect(node, "output", shown, "inMesh");
        setComponents(node, "inputComponents", components);
        return node;
    }
    MeshPtr result() { return evaluatedMesh(graph, shown); }
    MeshPtr input() { return meshOf(graph.data(plug(cube, "output"))); }

    Node& cube = make("polyCube", "cube");
    Node& shown = makeMesh("shown");
};

TEST_F(FaceModifier, SubdFaceDividesAsOftenAsItSays) {
    Node& node = modify("polySubdFace", {"f[*]"});
    EXPECT_EQ(result()->topology->faceCount(), 24);
    set(node, "divisions", 2);
    EXPECT_EQ(result()->topology->faceCount(), 96);
    setComponents(node, "inputComponents", {"f[0]"});
    EXPECT_EQ(result()->topology->faceCount(), 21);
    set(node, "divisions", 0);
    EXPECT_EQ(result()->topology, input()->topology);
    set(node, "divisions", -3);
    EXPECT_EQ(result()->topology, input()->topology);
    EXPECT_THAT(warnings, IsEmpty());
}

class Dividing : public FaceModifier, public testing::WithParamInterface<const char*> {};

TEST_P(Dividing, StopsBeforeThereAreTooManyFaces) {
    Node& node = modify(GetParam(), {"f[*]"});
    set(node, "divisions", 2e9);
    EXPECT_EQ(result()->topology->faceCount(), 0);
    EXPECT_THAT(warnings, ElementsAre("modifier: it makes too many faces (its mesh is empty)"));
}

INSTANTIATE_TEST_SUITE_P(Types, Dividing, testing::Values("polySubdFace", "polySmoothFace"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(FaceModifier, SmoothFaceRoundsTheMesh) {
    Node& node = modify("polySmoothFace", {"f[*]"});
    EXPECT_FLOAT_EQ((*result()->points)[1].x, 5.0F / 18);
    EXPECT_EQ(result()->topology->normalFans().count, 26);
    set(node, "propagateEdgeHardness", 1);
    EXPECT_EQ(result()->topology->normalFans().count, 54) << "three at corners, two at middles of edges";
    set(node, "divisions", 0);
    EXPECT_EQ(result()->topology, input()->topology);
}

TEST_F(FaceModifier, MergeVertJoinsWhatIsNear) {
    Node& node = modify("polyMergeVert", {"vtx[*]"});
    EXPECT_EQ(result()->topology->vertexCount(), 8);
    set(node, "distance", 1);
    EXPECT_EQ(result()->topology->vertexCount(), 1);
    setComponents(node, "inputComponents", {"vtx[0:1]"});
    EXPECT_EQ(result()->topology->vertexCount(), 7);
    EXPECT_EQ((*result()->points)[0], V3f(0, -0.5F, 0.5F));
    set(node, "distance", 0);
    EXPECT_EQ(result()->topology->vertexCount(), 8);
    set(node, "alwaysMergeTwoVertices", 1);
    EXPECT_EQ(result()->topology->vertexCount(), 7);
}

TEST_F(FaceModifier, MergeVertMeasuresWhereTheMeshStands) {
    Node& node = modify("polyMergeVert", {"vtx[*]"});
    set(node, "distance", 1);
    setMatrix(node, "inputMatrix", Matrix44().setScale(2.0));
    EXPECT_EQ(result()->topology->vertexCount(), 8);
}

TEST_F(FaceModifier, ChipOffMovesCopiesInTheWorld) {
    Node& node = modify("polyChipOff", {"f[1]"});
    setMatrix(node, "inputMatrix", Matrix44().setScale(Imath::V3d(2, 4, 2)));
    set(node, "translateY", 2);
    ASSERT_EQ(result()->topology->faceCount(), 7);
    EXPECT_EQ((*result()->points)[2], V3f(-0.5F, 0.5F, 0.5F));
    EXPECT_EQ((*result()->points)[8], V3f(-0.5F, 1, 0.5F));
    set(node, "duplicate", 0);
    EXPECT_EQ(result()->topology->faceCount(), 6);
    EXPECT_EQ((*result()->points)[8], V3f(-0.5F, 1, 0.5F));
    EXPECT_EQ(faceNormal(*result(), 1), V3f(0, 1, 0));
}

TEST_F(FaceModifier, ChipOffKeepsFacesTogetherOrNot) {
    Node& node = modify("polyChipOff", {"f[0:1]"});
    EXPECT_EQ(result()->topology->vertexCount(), 14);
    set(node, "keepFacesTogether", 0);
    EXPECT_EQ(result()->topology->vertexCount(), 16);
}

TEST_F(FaceModifier, ExtrudeFaceMovesAlongTheNormalInTheWorld) {
    Node& node = modify("polyExtrudeFace", {"f[1]"});
    setMatrix(node, "inputMatrix", Matrix44().setScale(2.0));
    set(node, "localTranslateZ", 1);
    set(node, "thickness", 2);
    set(node, "offset", 0.5);
    ASSERT_EQ(result()->topology->faceCount(), 10);
    EXPECT_TRUE(((*result()->points)[8] - V3f(-0.25F, 2, 0.25F)).length() < 1e-6F) << (*result()->points)[8];
    set(node, "worldSpace", 0);
    EXPECT_TRUE(((*result()->points)[8] - V3f(0, 3.5F, 0)).length() < 1e-6F) << (*result()->points)[8];
}

TEST_F(FaceModifier, ExtrudeFaceKeepsFacesTogetherOrNot) {
    Node& node = modify("polyExtrudeFace", {"f[0:1]"});
    set(node, "translateY", 1);
    EXPECT_EQ(result()->topology->faceCount(), 12);
    set(node, "keepFacesTogether", 0);
    EXPECT_EQ(result()->topology->faceCount(), 14);
}

TEST_F(FaceModifier, MoveTakesVerticesOfWhatItNames) {
    Node& node = modify("polyMoveVertex", {"vtx[0]"});
    set3(node, "translate", 0, 0, 1);
    EXPECT_EQ((*result()->points)[0], V3f(-0.5F, -0.5F, 1.5F));
    EXPECT_EQ((*result()->points)[1], V3f(0.5F, -0.5F, 0.5F));
    setMatrix(node, "inputMatrix", Matrix44().setAxisAngle(Imath::V3d(0, 1, 0), 90 * kDegree)); // z turns to x
    EXPECT_TRUE(((*result()->points)[0] - V3f(-1.5F, -0.5F, 0.5F)).length() < 1e-6F) << (*result()->points)[0];
}

TEST_F(FaceModifier, MoveTakesWholeFaces) {
    Node& node = modify("polyMoveFace", {"f[1]"});
    set(node, "translateY", 1);
    for (const std::size_t vertex : {2U, 3U, 4U, 5U}) {
        EXPECT_EQ((*result()->points)[vertex].y, 1.5F);
    }
    EXPECT_EQ((*result()->points)[0].y, -0.5F);
}

TEST_F(FaceModifier, DelFacetTakesFaces) {
    modify("polyDelFacet", {"f[1:5]", "f[99]"});
    EXPECT_EQ(result()->topology->faceCount(), 1);
    EXPECT_EQ(result()->topology->vertexCount(), 4);
}

TEST_F(FaceModifier, DelEdgeCleansWhenAsked) {
    set(cube, "subdivisionsWidth", 2); // loops of edges around the middle
    Node& node = modify("polyDelEdge", {"e[0]"});
    const std::int32_t faces = input()->topology->faceCount();
    std::vector<std::string> loop; // the edges within x = 0
    for (std::int32_t edge = 0; edge < input()->topology->edgeCount(); ++edge) {
        const MeshEdge& ends = input()->topology->edges()[static_cast<std::size_t>(edge)];
        if ((*input()->points)[static_cast<std::size_t>(ends.start)].x == 0.0F &&
            (*input()->points)[static_cast<std::size_t>(ends.end)].x == 0.0F) {
            loop.push_back("e[" + std::to_string(edge) + "]");
        }
    }
    ASSERT_EQ(loop.size(), 4U);
    setComponents(node, "inputComponents", loop);
    EXPECT_EQ(result()->topology->faceCount(), faces - 4);
    EXPECT_EQ(result()->topology->vertexCount(), 12);
    set(node, "cleanVertices", 1);
    EXPECT_EQ(result()->topology->vertexCount(), 8);
    EXPECT_EQ(result()->topology->edgeCount(), 12);
}

TEST_F(FaceModifier, DeleteComponentTakesPartsOfOneKind) {
    Node& node = make("deleteComponent", "eraser");
    connect(cube, "output", node, "inputGeometry");
    connect(node, "outputGeometry", shown, "inMesh");
    EXPECT_EQ(result()->topology->faceCount(), 6);
    setComponents(node, "deleteComponents", {"f[1:5]"});
    EXPECT_EQ(result()->topology->faceCount(), 1);
    EXPECT_EQ(result()->topology->vertexCount(), 4);
    setComponents(node, "deleteComponents", {"e[0]"});
    EXPECT_EQ(result()->topology->faceCount(), 5);
    EXPECT_EQ(result()->topology->vertexCount(), 8);
    setComponents(node, "deleteComponents", {"vtx[0]"});
    EXPECT_EQ(result()->topology->vertexCount(), 8) << "three edges meet there";
}

TEST_F(FaceModifier, SeparateGivesEachShell) {
    Node& unite = make("polyUnite", "unite");
    connect(makeTriangle(), "worldMesh[0]", unite, "inputPoly[0]");
    connect(cube, "output", unite, "inputPoly[1]");
    Node& node = make("polySeparate", "separate");
    connect(unite, "output", node, "inputPoly");
    connect(node, "output[1]", shown, "inMesh");
    EXPECT_EQ(result()->topology->faceCount(), 6);
    EXPECT_EQ(result()->uvSets[0].points->size(), 14U);
    EXPECT_EQ(graph.connect(plug(node, "output[0]"), plug(shown, "inMesh"), true).error, "");
    EXPECT_EQ(result()->topology->faceCount(), 1);
    EXPECT_EQ(graph.connect(plug(node, "output[2]"), plug(shown, "inMesh"), true).error, "");
    EXPECT_EQ(result()->topology->faceCount(), 0) << "there is no third";
}

TEST_F(FaceModifier, MapCutAndCreasesChangeNothing) {
    for (const char* type : {"polyMapCut", "polyCrease", "polyHoleFace", "polyBlindData"}) {
        Node& node = make(type, "same");
        connect(cube, "output", node, "inputPolymesh");
        EXPECT_EQ(graph.data(plug(node, "output")), graph.data(plug(cube, "output"))) << type;
    }
}

} // namespace

} // namespace host
