#include "host/nodes/dagCompute.h"

#include "GraphFixture.h"

#include "host/graph/DagPath.h"

namespace host {
namespace {

using Imath::V3d;

class DagMatrices : public GraphFixture {
protected:
    V3d origin(Node& node, const std::string& path = "worldMatrix[0]") {
        const Matrix44 found = matrix(node, path);
        return {found[3][0], found[3][1], found[3][2]};
    }
    static ::testing::AssertionResult near(const V3d& actual, const V3d& expected) {
        return actual.equalWithAbsError(expected, 1e-12)
                   ? ::testing::AssertionSuccess()
                   : ::testing::AssertionFailure() << actual.x << " " << actual.y << " " << actual.z;
    }
};

TEST_F(DagMatrices, OfAnEmptyHierarchyAreTheIdentity) {
    Node& node = make("transform", "a");
    for (const char* path : {"matrix", "inverseMatrix", "worldMatrix[0]", "worldInverseMatrix[0]", "parentMatrix[0]",
                             "parentInverseMatrix[0]", "xformMatrix", "dagLocalMatrix", "dagLocalInverseMatrix"}) {
        EXPECT_TRUE(isNear(matrix(node, path), Matrix44(), 0.0)) << path;
    }
    EXPECT_TRUE(isNear(matrix(graph.world(), "worldMatrix[0]"), Matrix44(), 0.0));
}

// A root one up, a hip turned by its orientation, a knee two along it; the numbers are worked out by hand.
TEST_F(DagMatrices, OfASmallSkeleton) {
    Node& root = make("transform", "root");
    set3(root, "t", 0, 1, 0);
    Node& hip = make("joint", "hip", &root);
    set3(hip, "jo", 0, 0, 90 * kDegree);
    Node& knee = make("joint", "knee", &hip);
    set3(knee, "t", 2, 0, 0);
    connect(hip, "s", knee, "is");
    EXPECT_TRUE(isNear(matrix(hip, "wm[0]"), rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {0, 1, 0})));
    EXPECT_TRUE(near(origin(knee), {0, 3, 0}));
    // The matrices that a skin of this skeleton stores for its bind pose.
    EXPECT_TRUE(isNear(matrix(hip, "wim[0]"), rows({0, -1, 0}, {1, 0, 0}, {0, 0, 1}, {-1, 0, 0})));
    EXPECT_TRUE(isNear(matrix(knee, "wim[0]"), rows({0, -1, 0}, {1, 0, 0}, {0, 0, 1}, {-3, 0, 0})));
    set(hip, "rz", 90 * kDegree);
    EXPECT_TRUE(near(origin(knee), {-2, 1, 0}));
}

TEST_F(DagMatrices, OfShapesAreThoseOfTheirTransform) {
    Node& parent = make("transform", "a");
    set3(parent, "t", 1, 2, 3);
    set(parent, "ry", 0.5);
    Node& shape = make("mesh", "aShape", &parent);
    EXPECT_TRUE(isNear(matrix(shape, "worldMatrix[0]"), matrix(parent, "worldMatrix[0]"), 0.0));
    EXPECT_TRUE(isNear(matrix(shape, "parentMatrix[0]"), matrix(parent, "worldMatrix[0]"), 0.0));
    EXPECT_TRUE(isNear(matrix(shape, "matrix"), Matrix44(), 0.0));
    EXPECT_TRUE(isNear(matrix(shape, "wm[0]") * matrix(shape, "wim[0]"), Matrix44()));
}

TEST_F(DagMatrices, StayInTheWorldWithoutInheriting) {
    Node& parent = make("transform", "a");
    set3(parent, "t", 1, 2, 3);
    Node& child = make("transform", "b", &parent);
    set3(child, "t", 10, 0, 0);
    EXPECT_TRUE(near(origin(child), {11, 2, 3}));
    set(child, "inheritsTransform", 0);
    EXPECT_TRUE(near(origin(child), {10, 0, 0}));
    EXPECT_TRUE(isNear(matrix(child, "parentMatrix[0]"), Matrix44(), 0.0));
    set(child, "it", 1);
    EXPECT_TRUE(near(origin(child), {11, 2, 3}));
}

TEST_F(DagMatrices, PutTheOffsetParentMatrixBetweenNodeAndParent) {
    Node& parent = make("transform", "a");
    set(parent, "rz", 90 * kDegree);
    Node& child = make("transform", "b", &parent);
    set3(child, "t", 1, 0, 0);
    const Matrix44 offset = rows({2, 0, 0}, {0, 2, 0}, {0, 0, 2}, {0, 3, 0});
    ASSERT_TRUE(graph.setMatrix(plug(child, "offsetParentMatrix"), offset).ok());
    // 1 0 0, doubled and raised: 2 3 0; turned by the parent: -3 2 0.
    EXPECT_TRUE(near(origin(child), {-3, 2, 0}));
    EXPECT_TRUE(near(origin(child, "dagLocalMatrix"), {2, 3, 0}));
    EXPECT_TRUE(near(origin(child, "dagLocalInverseMatrix"), {-1, -1.5, 0}));
    EXPECT_TRUE(near(origin(child, "matrix"), {1, 0, 0})) << "the node's own matrix does not contain it";
    EXPECT_TRUE(near(origin(child, "xformMatrix"), {1, 0, 0}));
}

TEST_F(DagMatrices, ClampChannelsToEnabledLimits) {
    Node& node = make("transform", "a");
    set3(node, "t", 5, -5, 7);
    set(node, "minTransYLimit", -2);
    set(node, "maxTransXLimit", 3);
    EXPECT_TRUE(near(origin(node, "matrix"), {5, -5, 7})) << "limits are off by default";
    set(node, "minTransYLimitEnable", 1);
    set(node, "maxTransXLimitEnable", 1);
    EXPECT_TRUE(near(origin(node, "matrix"), {3, -2, 7}));
    EXPECT_EQ(number(node, "tx"), 5.0) << "the channel keeps its value";

    Node& turned = make("transform", "b");
    set(turned, "rz", 80 * kDegree);
    set(turned, "maxRotZLimitEnable", 1); // 45 degrees unless set
    set3(turned, "s", 9, 1, 1);
    set(turned, "maxScaleXLimitEnable", 1); // 1 unless set
    const double root = std::sqrt(0.5);
    EXPECT_TRUE(isNear(matrix(turned, "matrix"), rows({root, root, 0}, {-root, root, 0}, {0, 0, 1}, {0, 0, 0})));
}

TEST_F(DagMatrices, TellTranslationWithoutTheRotatePivot) {
    Node& node = make("transform", "a");
    set3(node, "t", 5, 6, 7);
    set3(node, "rp", 1, 2, 3);
    EXPECT_EQ(number(node, "transMinusRotatePivotX"), 4.0);
    EXPECT_EQ(number(node, "tmry"), 4.0);
    EXPECT_EQ(number(node, "tmrz"), 4.0);
}

TEST_F(DagMatrices, CompensateTheScaleOfTheParentJoint) {
    Node& parent = make("joint", "a");
    set3(parent, "s", 2, 1, 1);
    Node& child = make("joint", "b", &parent);
    set3(child, "t", 1, 0, 0);
    connect(parent, "scale", child, "inverseScale");
    EXPECT_TRUE(isNear(matrix(child, "wm[0]"), rows({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {2, 0, 0})));
    set(child, "ssc", 0);
    EXPECT_TRUE(isNear(matrix(child, "wm[0]"), rows({2, 0, 0}, {0, 1, 0}, {0, 0, 1}, {2, 0, 0})));
}

TEST_F(DagMatrices, GiveOneElementPerPathOfAnInstance) {
    Node& left = make("transform", "left");
    set3(left, "t", -1, 0, 0);
    Node& right = make("transform", "right");
    set3(right, "t", 1, 0, 0);
    Node& shared = make("transform", "shared", &left);
    ASSERT_TRUE(graph.addParent(shared, right).ok());
    set3(shared, "t", 0, 5, 0);
    Node& shape = make("mesh", "sharedShape", &shared);
    EXPECT_TRUE(near(origin(shape, "wm[0]"), {-1, 5, 0}));
    EXPECT_TRUE(near(origin(shape, "wm[1]"), {1, 5, 0}));
    EXPECT_TRUE(near(origin(shared, "pm[1]"), {1, 0, 0}));

    // A third way in: the group of `right` twice, so its paths come after those of `left`.
    Node& group = make("transform", "group");
    set3(group, "t", 0, 0, 100);
    ASSERT_TRUE(graph.addParent(right, group).ok());
    EXPECT_EQ(pathCount(graph, shape), 3U);
    EXPECT_TRUE(near(origin(shape, "wm[1]"), {1, 5, 0}));
    EXPECT_TRUE(near(origin(shape, "wm[2]"), {1, 5, 100}));
}

TEST_F(DagMatrices, FollowChangesAboveThem) {
    Node& a = make("transform", "a");
    Node& b = make("transform", "b", &a);
    Node& c = make("mesh", "c", &b);
    EXPECT_TRUE(near(origin(c), {0, 0, 0}));
    set(a, "tx", 4);
    EXPECT_TRUE(near(origin(c), {4, 0, 0}));
    Node& other = make("transform", "other");
    set(other, "ty", 2);
    ASSERT_TRUE(graph.addParent(b, other).ok());
    ASSERT_TRUE(graph.removeParent(b, a).ok());
    EXPECT_TRUE(near(origin(c), {0, 2, 0}));
}

TEST_F(DagMatrices, AreNotComputedAgainForWhatDoesNotEnterThem) {
    Node& a = make("joint", "a");
    Node& b = make("joint", "b", &a);
    EXPECT_TRUE(near(origin(b), {0, 0, 0}));
    const std::size_t computed = graph.computeCount();
    for (const char* path : {"visibility", "radius", "preferredAngleX", "overrideEnabled", "displayHandle"}) {
        set(a, path, 1);
    }
    EXPECT_TRUE(near(origin(b), {0, 0, 0}));
    EXPECT_EQ(graph.computeCount(), computed);
    set(a, "jointOrientX", 1);
    EXPECT_TRUE(near(origin(b), {0, 0, 0}));
    EXPECT_GT(graph.computeCount(), computed);
}

TEST_F(DagMatrices, GiveTheIdentityAsInverseOfWhatHasNone) {
    Node& node = make("transform", "a");
    set3(node, "s", 0, 0, 0);
    EXPECT_TRUE(isNear(matrix(node, "inverseMatrix"), Matrix44(), 0.0));
    EXPECT_TRUE(isNear(matrix(node, "worldInverseMatrix[0]"), Matrix44(), 0.0));
}

TEST_F(DagMatrices, OfDeepHierarchiesAreComputedOnceEach) {
    constexpr int kDepth = 100000;
    Node* deepest = nullptr;
    for (int i = 0; i < kDepth; ++i) {
        deepest = &make("transform", "g", deepest);
        graph.setNumber({deepest, {deepest->type().find("translateX"), 0, {}}}, 1.0);
    }
    EXPECT_TRUE(near(origin(*deepest), {kDepth, 0, 0}));
    // matrix, parentMatrix and worldMatrix of each.
    EXPECT_LE(graph.computeCount(), 3U * kDepth);
    const std::size_t computed = graph.computeCount();
    EXPECT_TRUE(near(origin(*deepest), {kDepth, 0, 0}));
    EXPECT_EQ(graph.computeCount(), computed);
}

TEST_F(DagMatrices, OfDeepHierarchiesBelowAnInstanceTakeNoStackEither) {
    Node& left = make("transform", "left");
    Node& right = make("transform", "right");
    set(right, "ty", 7);
    Node* deepest = &make("transform", "g", &left);
    ASSERT_TRUE(graph.addParent(*deepest, right).ok());
    for (int i = 0; i < 20000; ++i) {
        deepest = &make("transform", "g", deepest);
    }
    EXPECT_TRUE(near(origin(*deepest, "wm[1]"), {0, 7, 0}));
}

TEST_F(DagMatrices, LayersHideThroughTheOverride) {
    Node& layer = make("displayLayer", "layer1");
    Node& node = make("transform", "a");
    EXPECT_EQ(number(node, "overrideEnabled"), 0.0);
    connect(layer, "di", node, "do");
    EXPECT_EQ(number(node, "overrideEnabled"), 1.0);
    EXPECT_EQ(number(node, "overrideVisibility"), 1.0);
    set(layer, "visibility", 0);
    set(layer, "displayType", 2);
    EXPECT_EQ(number(node, "ovv"), 0.0);
    EXPECT_EQ(number(node, "ovdt"), 2.0);
    set(layer, "enabled", 0);
    EXPECT_EQ(number(node, "ove"), 0.0);
}

} // namespace
} // namespace host
