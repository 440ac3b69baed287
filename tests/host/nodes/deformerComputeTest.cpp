#include "host/nodes/deformerCompute.h"

#include "MeshFixture.h"

#include "host/geometry/ArrayData.h"
#include "host/nodes/skinCompute.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;
using testing::ElementsAre;
using testing::IsEmpty;

/// A triangle at 0, x and y, behind it one deformer, behind that the shape that shows it.
class Deformer : public MeshFixture {
protected:
    Node& deform(const char* type) {
        Node& node = make(type, "deformer");
        connect(source, "worldMesh[0]", node, "input[0].inputGeometry");
        connect(node, "outputGeometry[0]", shown, "inMesh");
        return node;
    }
    Points result() { return points(shown); }
    Points untouched() { return points(source); }

    Node& source = makeTriangle("source");
    Node& shown = makeMesh("shown");
};

class EveryDeformer : public Deformer, public testing::WithParamInterface<const char*> {
protected:
    /// Makes the deformer move every point by 5 along x.
    Node& deformBy5() {
        Node& node = deform(GetParam());
        const std::string type = GetParam();
        if (type == "tweak") {
            setRows(node, "vlist[0].vertex", {5, 0, 0, 5, 0, 0, 5, 0, 0});
        } else if (type == "blendShape") {
            Node& target = makeTriangle("target");
            setRows(target, "pnts", {5, 0, 0, 5, 0, 0, 5, 0, 0});
            connect(target, "worldMesh[0]", node,
                    "inputTarget[0].inputTargetGroup[0].inputTargetItem[6000].inputGeomTarget");
            set(node, "weight[0]", 1);
        } else if (type == "skinCluster") {
            for (int vertex = 0; vertex < 3; ++vertex) {
                set(node, "weightList[" + std::to_string(vertex) + "].weights[0]", 1);
            }
            setMatrix(node, "matrix[0]", moved(5, 0, 0));
        } else {
            setMatrix(node, "matrix", moved(5, 0, 0));
        }
        return node;
    }
};

TEST_P(EveryDeformer, HasNoEffectWhenItsStateSaysSo) {
    Node& node = deformBy5();
    for (const double state : {1.0, 2.0, 4.0, 5.0}) {
        set(node, "nodeState", state);
        EXPECT_EQ(result(), untouched()) << state;
    }
    set(node, "nodeState", 0);
    EXPECT_EQ(result()[0], V3f(5, 0, 0));
}

TEST_P(EveryDeformer, GoesAsFarAsItsEnvelopeSays) {
    Node& node = deformBy5();
    EXPECT_THAT(result(), ElementsAre(V3f(5, 0, 0), V3f(6, 0, 0), V3f(5, 1, 0)));
    set(node, "envelope", 0.5);
    EXPECT_THAT(result(), ElementsAre(V3f(2.5F, 0, 0), V3f(3.5F, 0, 0), V3f(2.5F, 1, 0)));
    set(node, "envelope", 0);
    EXPECT_EQ(result(), untouched());
}

TEST_P(EveryDeformer, MovesOnlyMembersOfItsGroup) {
    Node& node = deformBy5();
    Node& group = make("groupId", "group");
    Node& parts = make("groupParts", "parts");
    setComponents(parts, "inputComponents", {"vtx[1]", "vtx[7]"});
    connect(group, "groupId", parts, "groupId");
    connect(group, "groupId", node, "input[0].groupId");
    connect(source, "worldMesh[0]", parts, "inputGeometry");
    EXPECT_EQ(graph.connect(plug(parts, "outputGeometry"), plug(node, "input[0].inputGeometry"), true).error, "");
    EXPECT_THAT(result(), ElementsAre(V3f(0, 0, 0), V3f(6, 0, 0), V3f(0, 1, 0)));
}

TEST_P(EveryDeformer, KeepsTheTopologyOfItsInput) {
    deformBy5();
    EXPECT_EQ(evaluatedMesh(graph, shown)->topology, evaluatedMesh(graph, source)->topology);
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_P(EveryDeformer, WithoutInputGivesNothing) {
    Node& node = make(GetParam(), "lonely");
    EXPECT_EQ(graph.data(plug(node, "outputGeometry[3]")), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Types, EveryDeformer,
                         testing::Values("tweak", "blendShape", "skinCluster", "cluster", "jointCluster"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(Deformer, KnowsWhenItHasNoMembers) {
    Node& node = make("wrap", "wrap1");
    EXPECT_FALSE(hasNoMembers(graph, node)) << "nothing comes in";
    Node& group = make("groupId", "group");
    Node& parts = make("groupParts", "parts");
    setComponents(parts, "inputComponents", {"vtx[7]"});
    connect(source, "worldMesh[0]", parts, "inputGeometry");
    connect(parts, "outputGeometry", node, "input[0].inputGeometry");
    connect(group, "groupId", parts, "groupId");
    EXPECT_FALSE(hasNoMembers(graph, node)) << "without a group all are members";
    connect(group, "groupId", node, "input[0].groupId");
    EXPECT_TRUE(hasNoMembers(graph, node));
    setComponents(parts, "inputComponents", {"vtx[2]"});
    EXPECT_FALSE(hasNoMembers(graph, node));
}

TEST_F(Deformer, MovesOnlyWhatATagOfTheShapeNames) {
    Node& node = deform("cluster");
    setMatrix(node, "matrix", moved(4, 0, 0));
    EXPECT_EQ(graph.setString(plug(source, "componentTags[0].componentTagName"), "tip").error, "");
    setComponents(source, "componentTags[0].componentTagContents", {"vtx[2]"});
    const Plug expression = plug(node, "input[0].componentTagExpression");
    EXPECT_EQ(graph.setString(expression, "*").error, "");
    EXPECT_EQ(result()[0], V3f(4, 0, 0));
    EXPECT_EQ(graph.setString(expression, "tip").error, "");
    EXPECT_THAT(result(), ElementsAre(V3f(0, 0, 0), V3f(1, 0, 0), V3f(4, 1, 0)));
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(graph.setString(expression, "tip & base").error, "");
    EXPECT_EQ(result()[0], V3f(4, 0, 0));
    EXPECT_THAT(warnings,
                ElementsAre("deformer: the component tags 'tip & base' are not supported (all points are deformed)"));
}

TEST_F(Deformer, ThatIsNotEvaluatedPassesItsInputThrough) {
    deform("wrap");
    EXPECT_EQ(result(), untouched());
    EXPECT_TRUE(types.find("wrap")->passesThrough);
    EXPECT_FALSE(types.find("tweak")->passesThrough);
}

TEST_F(Deformer, TweakAddsBothKindsOfOffsets) {
    Node& node = deform("tweak");
    setRows(node, "vlist[0].vertex", {0, 0, 1});
    set(node, "plist[0].controlPoints[0].yValue", 2);
    EXPECT_EQ(result()[0], V3f(0, 2, 1));
}

TEST_F(Deformer, TweakThatIsNotRelativeReplacesPoints) {
    Node& node = deform("tweak");
    set(node, "relativeTweak", 0);
    set(node, "vlist[0].vertex[1].zVertex", 3);
    EXPECT_THAT(result(), ElementsAre(V3f(0, 0, 0), V3f(0, 0, 3), V3f(0, 1, 0)));
}

// --- skinCluster

class Skin : public Deformer {
protected:
    void weigh(int vertex, int influence, double weight) {
        set(skin, "weightList[" + std::to_string(vertex) + "].weights[" + std::to_string(influence) + "]", weight);
    }

    Node& skin = deform("skinCluster");
};

TEST_F(Skin, BlendsItsInfluences) {
    setMatrix(skin, "matrix[0]", moved(4, 0, 0));
    setMatrix(skin, "matrix[3]", moved(0, 8, 0)); // sparse: influences 1 and 2 were removed
    weigh(1, 0, 0.25);
    weigh(1, 3, 0.75);
    EXPECT_EQ(result()[1], V3f(2, 6, 0));
}

// p' = p * geomMatrix * bindPreMatrix * matrix * inverse of geomMatrix: the mesh stands at y 10, the joint at y 12 was
// bound there and has moved to (1, 12, 0).
TEST_F(Skin, MovesInTheSpaceThatItWasBoundIn) {
    setMatrix(skin, "geomMatrix", moved(0, 10, 0));
    setMatrix(skin, "bindPreMatrix[0]", moved(0, -12, 0));
    setMatrix(skin, "matrix[0]", rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {1, 12, 0})); // turned by 90 degrees about z
    weigh(1, 0, 1);
    // (1, 0, 0) is (1, 10, 0) in the world, (1, -2, 0) to the joint, (2, 1, 0) turned, (3, 13, 0) in the world.
    EXPECT_EQ(result()[1], V3f(3, 3, 0));
}

TEST_F(Skin, FollowsJoints) {
    Node& joint = make("joint", "joint");
    connect(joint, "worldMatrix[0]", skin, "matrix[0]");
    weigh(0, 0, 1);
    EXPECT_EQ(result()[0], V3f(0, 0, 0));
    set3(joint, "translate", 0, 0, 7);
    EXPECT_EQ(result()[0], V3f(0, 0, 7));
}

TEST_F(Skin, LeavesPointsThatNothingWeighs) {
    setMatrix(skin, "matrix[0]", moved(4, 0, 0));
    weigh(1, 0, 1);
    weigh(2, 9, 1); // no such influence
    EXPECT_THAT(result(), ElementsAre(V3f(0, 0, 0), V3f(5, 0, 0), V3f(0, 1, 0)));
}

TEST_F(Skin, UsesWeightsAsTheyAreUnlessItNormalizesAfterwards) {
    setMatrix(skin, "matrix[0]", moved(4, 0, 0));
    weigh(1, 0, 0.5);
    EXPECT_EQ(result()[1], V3f(2.5F, 0, 0));
    set(skin, "normalizeWeights", 2);
    EXPECT_EQ(result()[1], V3f(5, 0, 0));
}

TEST_F(Skin, SaysOnceThatItsMethodIsNotSupported) {
    setMatrix(skin, "matrix[0]", moved(4, 0, 0));
    weigh(1, 0, 1);
    set(skin, "skinningMethod", 1);
    EXPECT_EQ(result()[1], V3f(5, 0, 0));
    set(skin, "envelope", 0.5);
    result();
    EXPECT_THAT(warnings, ElementsAre("deformer: its skinning method is not supported (classic linear is used)"));
}

TEST_F(Skin, GathersItsWeightsInOneBlock) {
    weigh(0, 2, 0.5);
    weigh(0, 1, 0.5);
    weigh(2, 7, 1);
    weigh(2, 8, 0);
    const auto weights = skinWeights(graph, skin);
    EXPECT_THAT(weights->starts, ElementsAre(0, 2, 2, 3));
    EXPECT_THAT(weights->influences, ElementsAre(1, 2, 7));
    EXPECT_THAT(weights->weights, ElementsAre(0.5, 0.5, 1.0));
}

TEST_F(Skin, GathersItsWeightsAgainOnlyWhenOneChanges) {
    weigh(0, 0, 1);
    setMatrix(skin, "matrix[0]", moved(4, 0, 0));
    const auto before = skinWeights(graph, skin);
    setMatrix(skin, "matrix[0]", moved(5, 0, 0));
    EXPECT_EQ(skinWeights(graph, skin), before);
    weigh(0, 0, 0.5);
    EXPECT_NE(skinWeights(graph, skin), before);
    EXPECT_EQ(result()[0], V3f(2.5F, 0, 0));
}

TEST_F(Skin, ReadsWeightsThatConnectionsDrive) {
    setMatrix(skin, "matrix[0]", moved(4, 0, 0));
    weigh(1, 0, 1);
    Node& driver = make("transform", "driver");
    connect(driver, "translateX", skin, "weightList[0].weights[0]");
    set(driver, "translateX", 0.5);
    EXPECT_THAT(result(), ElementsAre(V3f(2, 0, 0), V3f(5, 0, 0), V3f(0, 1, 0)));
}

TEST_F(Skin, IgnoresIndicesThatNoSceneHas) {
    weigh(2000000000, 0, 1);
    set(skin, "weightList[0].weights[2000000000]", 1);
    setMatrix(skin, "matrix[2000000000]", moved(4, 0, 0));
    EXPECT_EQ(result(), untouched());
}

TEST_F(Skin, TurnsUserNormalsWithTheSurface) {
    setRows(source, "normals", {0, 0, 2, 1e20, 1e20, 1e20, 0, 0, 1});
    setMatrix(skin, "matrix[0]", rows({0, 0, -1}, {0, 1, 0}, {1, 0, 0}, {0, 0, 0})); // 90 degrees about y
    weigh(0, 0, 1);
    EXPECT_EQ((*evaluatedMesh(graph, shown)->userNormals)[0], V3f(2, 0, 0));
    EXPECT_EQ((*evaluatedMesh(graph, shown)->userNormals)[2], V3f(0, 0, 1));
    EXPECT_FALSE(evaluatedMesh(graph, shown)->isUserNormal(1));
    set(skin, "deformUserNormals", 0);
    EXPECT_EQ((*evaluatedMesh(graph, shown)->userNormals)[0], V3f(0, 0, 2));
}

// --- clusters

TEST_F(Deformer, ClusterWeighsEachPoint) {
    Node& node = deform("cluster");
    setMatrix(node, "matrix", moved(4, 0, 0));
    set(node, "weightList[0].weights[0]", 0.25);
    set(node, "weightList[0].weights[1]", 0);
    EXPECT_THAT(result(), ElementsAre(V3f(1, 0, 0), V3f(1, 0, 0), V3f(4, 1, 0)));
}

TEST_F(Deformer, ClusterTurnsInTheWorld) {
    Node& node = deform("jointCluster");
    setMatrix(node, "geomMatrix[0]", moved(0, 10, 0));
    setMatrix(node, "bindPreMatrix", moved(0, -12, 0));
    setMatrix(node, "matrix", rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {1, 12, 0}));
    EXPECT_EQ(result()[1], V3f(3, 3, 0));
}

TEST_F(Deformer, ClusterFollowsItsHandle) {
    Node& group = make("transform", "group");
    Node& handle = make("transform", "handle", &group);
    Node& shape = make("clusterHandle", "handleShape", &handle);
    Node& node = deform("cluster");
    connect(handle, "worldMatrix[0]", node, "matrix");
    connect(shape, "clusterTransforms[0]", node, "clusterXforms");
    set3(group, "translate", 0, 3, 0);
    EXPECT_EQ(result(), untouched()); // the handle itself has not moved
    set3(handle, "rotatePivot", 1, 0, 0);
    set(handle, "rotateZ", 90 * kDegree);
    // About (1, 3, 0) in the world: (1, 0, 0) goes to (4, 3, 0), and (0, 1, 0) to (3, 2, 0).
    EXPECT_TRUE((V3d(result()[1]) - V3d(4, 3, 0)).length() < 1e-6);
    EXPECT_TRUE((V3d(result()[2]) - V3d(3, 2, 0)).length() < 1e-6);
}

// --- blendShape

class Blend : public Deformer {
protected:
    void addTarget(int target, int item, const std::vector<double>& offsets) {
        Node& mesh = makeTriangle(("target" + std::to_string(target) + "_" + std::to_string(item)).c_str());
        setRows(mesh, "pnts", offsets);
        connect(mesh, "worldMesh[0]", blend,
                "inputTarget[0].inputTargetGroup[" + std::to_string(target) + "].inputTargetItem[" +
                    std::to_string(item) + "].inputGeomTarget");
    }

    Node& blend = deform("blendShape");
};

TEST_F(Blend, AddsItsTargets) {
    addTarget(0, 6000, {4, 0, 0});
    addTarget(2, 6000, {0, 8, 0});
    set(blend, "weight[0]", 0.5);
    set(blend, "weight[2]", 0.25);
    EXPECT_THAT(result(), ElementsAre(V3f(2, 2, 0), V3f(1, 0, 0), V3f(0, 1, 0)));
}

struct InbetweenRow {
    double weight;
    V3f point;
};

// Items at 0.5 (x 4) and at 1 (y 8).
TEST_F(Blend, GoesInStraightLinesThroughItsItems) {
    addTarget(0, 5500, {4, 0, 0});
    addTarget(0, 6000, {0, 8, 0});
    const InbetweenRow kRows[] = {{0, {0, 0, 0}}, {0.25, {2, 0, 0}},  {0.5, {4, 0, 0}},   {0.75, {2, 4, 0}},
                                  {1, {0, 8, 0}}, {1.5, {-4, 16, 0}}, {-0.25, {-2, 0, 0}}};
    for (const InbetweenRow& row : kRows) {
        set(blend, "weight[0]", row.weight);
        EXPECT_EQ(result()[0], row.point) << row.weight;
    }
}

TEST_F(Blend, WeighsPointsByTargetAndByBase) {
    addTarget(0, 6000, {4, 0, 0, 4, 0, 0, 4, 0, 0});
    set(blend, "weight[0]", 1);
    set(blend, "inputTarget[0].inputTargetGroup[0].targetWeights[0]", 0.5);
    set(blend, "inputTarget[0].baseWeights[1]", 0.25);
    EXPECT_THAT(result(), ElementsAre(V3f(2, 0, 0), V3f(2, 0, 0), V3f(4, 1, 0)));
}

TEST_F(Blend, UsesStoredDifferencesWhenNoMeshIsConnected) {
    const std::string item = "inputTarget[0].inputTargetGroup[0].inputTargetItem[6000].";
    const auto offsets =
        std::make_shared<PointArrayData>(std::vector<Imath::V4d>{{0, 0, 4, 1}, {0, 0, 8, 1}, {9, 9, 9, 1}});
    EXPECT_EQ(graph.setData(plug(blend, item + "inputPointsTarget"), offsets).error, "");
    setComponents(blend, item + "inputComponentsTarget", {"vtx[2]", "vtx[0]", "vtx[50]"});
    set(blend, "weight[0]", 0.5);
    EXPECT_THAT(result(), ElementsAre(V3f(0, 0, 4), V3f(1, 0, 0), V3f(0, 1, 2)));
}

TEST_F(Blend, FollowsAnimatedWeights) {
    addTarget(0, 6000, {4, 0, 0});
    Node& driver = make("transform", "driver");
    connect(driver, "translateX", blend, "weight[0]");
    EXPECT_EQ(result()[0], V3f(0, 0, 0));
    set(driver, "translateX", 1);
    EXPECT_EQ(result()[0], V3f(4, 0, 0));
}

TEST_F(Blend, SaysThatItsOriginIsNotSupported) {
    set(blend, "origin", 0);
    result();
    EXPECT_THAT(warnings,
                ElementsAre("deformer: its origin 'world' is not supported (targets count in their own spaces)"));
}

} // namespace

} // namespace host
