#include "host/nodes/meshQueries.h"

#include "MeshFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace host {

namespace {

using Imath::V3f;
using testing::ElementsAre;
using testing::IsEmpty;

class MeshCompute : public MeshFixture {};

TEST_F(MeshCompute, OfAnEmptyShapeIsEmptyAndSilent) {
    Node& node = makeMesh("nothing");
    EXPECT_EQ(evaluatedMesh(graph, node)->topology->faceCount(), 0);
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(MeshCompute, OfNoMeshIsEmpty) {
    EXPECT_EQ(evaluatedMesh(graph, make("transform", "t"))->topology->vertexCount(), 0);
}

TEST_F(MeshCompute, EmptiesAMeshWhoseEdgesNameNoVertices) {
    Node& node = makeTriangle("bad");
    setRows(node, "edge", {0, 1, 1, 1, 2, 1, 2, 7, 1});
    graph.setNumber(plug(node, "edge[2].edg2"), 7);
    EXPECT_EQ(evaluatedMesh(graph, node)->topology->vertexCount(), 0);
    EXPECT_THAT(points(node), IsEmpty());
    EXPECT_THAT(warnings, ElementsAre("bad: edge 2 names vertex 7 of 3 (its mesh is empty)"));
}

TEST_F(MeshCompute, CutsFacesFromTheFirstBadOne) {
    Node& node = makeTriangle("bad");
    setFaces(node, {{0, 1, 2}, {0, 2, 1}, {0, 1, 2}});
    EXPECT_EQ(evaluatedMesh(graph, node)->topology->faceCount(), 1);
    EXPECT_THAT(warnings, ElementsAre("bad: face 1 does not close: edge 0 ends at vertex 1, edge 2 begins at vertex 2 "
                                      "(the faces from there on are left out)"));
}

TEST_F(MeshCompute, RefusesAFewNumbersThatClaimAllMemory) {
    Node& node = makeTriangle("bad");
    set(node, "vrts[2000000000].vrtx", 1);
    EXPECT_EQ(evaluatedMesh(graph, node)->topology->vertexCount(), 0);
    EXPECT_THAT(warnings, ElementsAre("bad: its vertices or edges have indices far beyond their number (its mesh is "
                                      "empty)"));
}

TEST_F(MeshCompute, ComputesNormalsWhenTheStoredOnesAreNotOnePerId) {
    Node& node = makeTriangle("bad");
    setRows(node, "normals", {1, 0, 0, 1, 0, 0});
    EXPECT_EQ(evaluatedMesh(graph, node)->userNormals, nullptr);
    EXPECT_THAT(warnings, ElementsAre("bad: 2 normals are stored, 3 are needed (the normals are computed)"));
}

TEST_F(MeshCompute, AddsTweaksToStoredPoints) {
    Node& node = makeTriangle();
    setRows(node, "pnts", {0, 0, 5});
    EXPECT_THAT(points(node), ElementsAre(V3f(0, 0, 5), V3f(1, 0, 0), V3f(0, 1, 0)));
}

TEST_F(MeshCompute, LeavesOutTweaksOfPointsThatAreNotThere) {
    Node& node = makeTriangle();
    set(node, "pnts[2000000000].pntx", 1);
    EXPECT_THAT(points(node), ElementsAre(V3f(0, 0, 0), V3f(1, 0, 0), V3f(0, 1, 0)));
}

TEST_F(MeshCompute, FollowsTweaksThatConnectionsDrive) {
    Node& node = makeTriangle();
    setRows(node, "pnts", {0, 0, 5, 0, 0, 6});
    Node& driver = make("transform", "driver");
    connect(driver, "translateY", node, "pnts[1].pnty");
    connect(driver, "scale", node, "pnts[2]");
    set(driver, "translateY", 3);
    EXPECT_THAT(points(node), ElementsAre(V3f(0, 0, 5), V3f(1, 3, 6), V3f(1, 2, 1)));
    set(driver, "translateY", 4);
    EXPECT_EQ(points(node)[1], V3f(1, 4, 6));
}

TEST_F(MeshCompute, ShowsTheMeshOfItsHistoryWithItsOwnTweaks) {
    Node& source = makeTriangle("source");
    Node& shown = makeMesh("shown");
    setRows(shown, "pnts", {0, 0, 5});
    connect(source, "worldMesh[0]", shown, "inMesh");
    EXPECT_EQ(points(shown)[0], V3f(0, 0, 5));
    graph.setNumber(plug(source, "vrts[0].vrtx"), 2);
    EXPECT_EQ(points(shown)[0], V3f(2, 0, 5));
}

TEST_F(MeshCompute, SharesWhatTweaksDoNotChange) {
    Node& source = makeTriangle("source");
    Node& shown = makeMesh("shown");
    setRows(shown, "pnts", {0, 0, 5});
    connect(source, "outMesh", shown, "inMesh");
    EXPECT_EQ(evaluatedMesh(graph, source)->topology, evaluatedMesh(graph, shown)->topology);
}

TEST_F(MeshCompute, IsTheSameOnEveryPath) {
    Node& node = makeTriangle();
    EXPECT_EQ(graph.addParent(node, make("transform", "other")).error, "");
    EXPECT_EQ(graph.data(plug(node, "worldMesh[1]")), graph.data(plug(node, "outMesh")));
}

TEST_F(MeshCompute, IsNotMadeAgainWhenOnlyATweakChanges) {
    Node& node = makeTriangle();
    const auto before = evaluatedMesh(graph, node)->topology;
    set(node, "pnts[0].pntx", 1);
    EXPECT_EQ(evaluatedMesh(graph, node)->topology, before);
    set(node, "vrts[0].vrtx", 1);
    EXPECT_NE(evaluatedMesh(graph, node)->topology, before);
}

TEST_F(MeshCompute, KeepsMatricesAsOtherShapesDo) {
    Node& node = makeTriangle();
    set3(*node.parents().front(), "translate", 1, 2, 3);
    EXPECT_EQ(matrix(node, "worldMatrix[0]")[3][1], 2.0);
    EXPECT_EQ(points(node)[0], V3f(0, 0, 0));
}

TEST_F(MeshCompute, TakesWeightingAndCurrentSetsOfTheShape) {
    Node& node = makeTriangle();
    set(node, "vertexNormalMethod", 0);
    EXPECT_EQ(graph.setString(plug(node, "currentUVSet"), "other").error, "");
    EXPECT_EQ(evaluatedMesh(graph, node)->weighting, NormalWeighting::kUnweighted);
    EXPECT_EQ(evaluatedMesh(graph, node)->currentUvSet, "other");
    EXPECT_EQ(evaluatedMesh(graph, node)->uvSets.size(), 1U);
    EXPECT_EQ(evaluatedMesh(graph, node)->findUvSet("")->name, "map1");
    EXPECT_EQ(evaluatedMesh(graph, node)->findUvSet("other"), nullptr);
}

TEST_F(MeshCompute, FindsStoredGroupsByInstance) {
    Node& node = makeTriangle();
    ComponentRange face;
    ASSERT_TRUE(parseComponent("f[0]", face));
    const auto list = std::make_shared<ComponentList>(std::vector<ComponentRange>{face});
    EXPECT_EQ(graph.setData(plug(node, "instObjGroups[1].objectGroups[2].objectGrpCompList"), list).error, "");
    EXPECT_EQ(groupComponents(graph, node, 1, 2), list);
    EXPECT_EQ(groupComponents(graph, node, 0, 2), nullptr);
}

} // namespace

} // namespace host
