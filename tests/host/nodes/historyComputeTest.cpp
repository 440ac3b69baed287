#include "host/nodes/historyCompute.h"

#include "MeshFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V3f;
using testing::ElementsAre;

class History : public MeshFixture {
protected:
    Node& change(const char* type) {
        Node& node = make(type, "change");
        connect(source, "worldMesh[0]", node, "inputGeometry");
        connect(node, "outputGeometry", shown, "inMesh");
        return node;
    }
    MeshPtr result() { return evaluatedMesh(graph, shown); }

    Node& source = makeTriangle("source");
    Node& shown = makeMesh("shown");
};

TEST_F(History, PassesThroughWhenItsStateSaysSo) {
    Node& node = change("transformGeometry");
    setMatrix(node, "transform", moved(1, 2, 3));
    set(node, "nodeState", 1);
    EXPECT_EQ((*result()->points)[0], V3f(0, 0, 0));
}

TEST_F(History, GroupIdsAreAllDifferent) {
    Node& first = make("groupId", "first");
    Node& second = make("groupId", "second");
    EXPECT_NE(number(first, "groupId"), 0.0);
    EXPECT_NE(number(second, "groupId"), 0.0);
    EXPECT_NE(number(first, "groupId"), number(second, "groupId"));
}

TEST_F(History, GroupPartsGiveComponentsToTheGroupsOfAShape) {
    Node& id = make("groupId", "id");
    Node& parts = change("groupParts");
    connect(id, "groupId", parts, "groupId");
    connect(id, "groupId", shown, "instObjGroups[0].objectGroups[4].objectGroupId");
    setComponents(parts, "inputComponents", {"f[0]"});
    setComponents(shown, "instObjGroups[0].objectGroups[4].objectGrpCompList", {"f[7]"}); // a stale copy
    const auto components = groupComponents(graph, shown, 0, 4);
    ASSERT_NE(components, nullptr);
    EXPECT_EQ(componentText(components->ranges.at(0)), "f[0]");
}

TEST_F(History, LaterGroupPartsReplaceTheMembersOfAGroup) {
    Node& id = make("groupId", "id");
    Node& earlier = make("groupParts", "earlier");
    Node& later = make("groupParts", "later");
    connect(id, "groupId", earlier, "groupId");
    connect(id, "groupId", later, "groupId");
    connect(source, "worldMesh[0]", earlier, "inputGeometry");
    connect(earlier, "outputGeometry", later, "inputGeometry");
    connect(later, "outputGeometry", shown, "inMesh");
    setComponents(earlier, "inputComponents", {"f[0]"});
    setComponents(later, "inputComponents", {"f[0:3]"});
    ASSERT_EQ(result()->groups.size(), 1U);
    EXPECT_EQ(componentText(result()->groups[0].components->ranges.at(0)), "f[0:3]");
}

TEST_F(History, TransformGeometryMovesPointsAndTurnsUserNormals) {
    setRows(source, "normals", {0, 1, 0, 1, 1, 0, 1e20, 1e20, 1e20});
    Node& node = change("transformGeometry");
    setMatrix(node, "transform", rows({2, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 5}));
    EXPECT_THAT(*result()->points, ElementsAre(V3f(0, 0, 5), V3f(2, 0, 5), V3f(0, 1, 5)));
    EXPECT_EQ(result()->normals()[0], V3f(0, 1, 0));
    EXPECT_NEAR(result()->normals()[1].x, 1 / std::sqrt(5.0), 1e-6); // (1/2, 1, 0)
    EXPECT_EQ(result()->normals()[2], V3f(0, 0, 1));
    set(node, "invertTransform", 1);
    EXPECT_EQ((*result()->points)[1], V3f(0.5F, 0, -5));
}

TEST_F(History, SetsCanBeMadeAndDeleted) {
    Node& node = change("createUVSet");
    EXPECT_EQ(graph.setString(plug(node, "uvSetName"), "second").error, "");
    ASSERT_EQ(result()->uvSets.size(), 2U);
    EXPECT_EQ(result()->uvSets[1].name, "second");
    Node& eraser = make("deleteUVSet", "eraser");
    EXPECT_EQ(graph.setString(plug(eraser, "uvSetName"), "map1").error, "");
    connect(node, "outputGeometry", eraser, "inputGeometry");
    EXPECT_EQ(graph.connect(plug(eraser, "outputGeometry"), plug(shown, "inMesh"), true).error, "");
    ASSERT_EQ(result()->uvSets.size(), 1U);
    EXPECT_EQ(result()->uvSets[0].name, "second");
}

TEST_F(History, ColorSetsCanBeMadeAndDeleted) {
    Node& node = change("createColorSet");
    EXPECT_EQ(graph.setString(plug(node, "colorSetName"), "paint").error, "");
    set(node, "representation", 1);
    ASSERT_EQ(result()->colorSets.size(), 1U);
    EXPECT_EQ(result()->colorSets[0].representation, ColorRepresentation::kAlpha);
    Node& eraser = make("deleteColorSet", "eraser");
    EXPECT_EQ(graph.setString(plug(eraser, "colorSetName"), "paint").error, "");
    connect(node, "outputGeometry", eraser, "inputGeometry");
    EXPECT_EQ(graph.connect(plug(eraser, "outputGeometry"), plug(shown, "inMesh"), true).error, "");
    EXPECT_TRUE(result()->colorSets.empty());
}

TEST_F(History, PolyTweakMovesPoints) {
    Node& tweak = make("polyTweak", "tweak");
    connect(source, "worldMesh[0]", tweak, "inputPolymesh");
    connect(tweak, "output", shown, "inMesh");
    set(tweak, "tweak[1].tweakZ", 4);
    EXPECT_THAT(*result()->points, ElementsAre(V3f(0, 0, 0), V3f(1, 0, 4), V3f(0, 1, 0)));
}

} // namespace

} // namespace host
