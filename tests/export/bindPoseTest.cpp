#include "export/nodeTransforms.h"

#include "export/nodeTree.h"
#include "scene/nodeMatrix.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "transformText.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace tvk {
namespace {

class BindPose : public testing::Test {
protected:
    // Reads the scene with one node driven by a deformer that was bound with that world matrix.
    void read(const std::string& name, const std::optional<MMatrix>& bound, const std::string& options = "") {
        session.prepareRun(options);
        ASSERT_TRUE(buildNodeTree());
        record(name).bindPoseExempt = false;
        EXPECT_TRUE(readNodeTransforms([&](const NodeRecord& node) {
            EXPECT_EQ(node.name, name);
            ++lookups;
            return bound;
        }));
    }

    static NodeRecord& record(const std::string& name) {
        for (const auto& node : run().scene.nodes) {
            if (node->name == name) {
                return *node;
            }
        }
        throw std::runtime_error("no record " + name);
    }

    static void expectSet(const TransformSet& set, const Vector3& scale, const Vector3& rotate,
                          const Vector3& translate) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(set.scale[i], scale[i], 1e-3) << "scale " << i;
            EXPECT_NEAR(set.rotate[i], rotate[i], 1e-3) << "rotate " << i;
            EXPECT_NEAR(set.translate[i], translate[i], 1e-3) << "translate " << i;
        }
    }

    ExportSession session;
    int lookups = 0;
};

TransformSet setOf(const Vector3& rotate, const Vector3& translate) {
    TransformSet set;
    set.rotate = rotate;
    set.translate = translate;
    return set;
}

TEST_F(BindPose, ThatIsNotFoundIsReportedAndLeavesThePose) {
    session.open(nodeText("joint", "a", "", moves(1, 2, 3) + rotates(10, 20, 30)));
    read("a", std::nullopt);
    EXPECT_EQ(session.takeMessages(), "Warning: Bind pose is not found: a\n");
    EXPECT_TRUE(run().warningRaised);
    expectSet(record("a").own, {1, 1, 1}, {10, 20, 30}, {1, 2, 3});
}

TEST_F(BindPose, IsNotAskedForByOtherNodes) {
    session.open(nodeText("joint", "a") + nodeText("joint", "b", "a"));
    session.prepareRun();
    ASSERT_TRUE(buildNodeTree());
    EXPECT_TRUE(readNodeTransforms([](const NodeRecord&) -> std::optional<MMatrix> {
        ADD_FAILURE() << "asked for";
        return std::nullopt;
    }));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BindPose, TakesThePlaceOfThePoseRelativeToTheParent) {
    session.open(nodeText("joint", "a", "", moves(0, 10, 0) + rotates(0, 0, 90)) +
                 nodeText("joint", "b", "a", moves(9, 9, 9) + rotates(70, 80, 90)));
    // In the world at (0,15,0), turned like its parent: five along the parent's x.
    read("b", matrixOf(setOf({0, 0, 90}, {0, 15, 0})));
    expectSet(record("b").own, {1, 1, 1}, {0, 0, 0}, {5, 0, 0});
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BindPose, ThatIsTheCurrentOneKeepsTheChannelsAsTyped) {
    session.open(nodeText("joint", "a", "", moves(1, 2, 3) + rotates(0, 120, 0)));
    read("a", matrixOf(setOf({0, 120, 0}, {1, 2, 3})));
    expectSet(record("a").own, {1, 1, 1}, {0, 120, 0}, {1, 2, 3});
}

TEST_F(BindPose, IsMagnified) {
    session.open(nodeText("joint", "a"));
    read("a", matrixOf(setOf({0, 0, 0}, {1, 2, 3})), "magnify=2");
    expectSet(record("a").own, {1, 1, 1}, {0, 0, 0}, {2, 4, 6});
}

TEST_F(BindPose, CountsFromThePivot) {
    session.open(nodeText("transform", "a", "", pivots(1, 0, 0)));
    // The exported origin is the pivot: one along x, which the pose turns to y.
    read("a", matrixOf(setOf({0, 0, 90}, {5, 0, 0})));
    expectSet(record("a").own, {1, 1, 1}, {0, 0, 90}, {5, 1, 0});
}

// b undoes the scale 2 of a, so its own scale is 1 where the world has 1, and its offset counts double.
TEST_F(BindPose, PutsTheUndoneScaleBack) {
    session.open(nodeText("joint", "a", "", scales(2, 2, 2)) + nodeText("joint", "b", "a", moves(3, 3, 3)) +
                 compensated("a", "b"));
    read("b", matrixOf(setOf({0, 0, 30}, {10, 0, 0})));
    EXPECT_TRUE(record("b").scaleCompensate);
    expectSet(record("b").own, {1, 1, 1}, {0, 0, 30}, {5, 0, 0});
}

TEST_F(BindPose, OfASelectionIsInTheSpaceOfWhatLiesAbove) {
    session.open(nodeText("transform", "g", "", moves(100, 0, 0)) + nodeText("joint", "a", "g"));
    session.mel("select -r a");
    session.prepareRun("", MPxFileTranslator::kExportActiveAccessMode);
    ASSERT_TRUE(buildNodeTree());
    record("a").bindPoseExempt = false;
    EXPECT_TRUE(readNodeTransforms([](const NodeRecord&) { return matrixOf(setOf({0, 0, 0}, {105, 1, 0})); }));
    expectSet(record("a").own, {1, 1, 1}, {0, 0, 0}, {5, 1, 0});
}

TEST_F(BindPose, IsNotLookedAtWhenNodesAreUnited) {
    session.open(nodeText("joint", "a", "", moves(1, 2, 3)));
    read("a", matrixOf(setOf({0, 0, 0}, {9, 9, 9})), "optimize_node=3");
    EXPECT_EQ(lookups, 0);
    expectSet(record("a").own, {1, 1, 1}, {0, 0, 0}, {1, 2, 3});
}

// --- united nodes

TEST_F(BindPose, TheUnitedSetIsThePlaceInTheWorld) {
    session.open(nodeText("transform", "a", "", moves(10, 0, 0) + rotates(0, 0, 90)) +
                 nodeText("transform", "b", "a", moves(5, 0, 0) + pivots(1, 0, 0)));
    session.prepareRun("optimize_node=3;magnify=2");
    ASSERT_TRUE(buildNodeTree());
    ASSERT_TRUE(readNodeTransforms([](const NodeRecord&) { return std::nullopt; }));
    expectSet(record("world_root").united, {1, 1, 1}, {0, 0, 0}, {0, 0, 0});
    expectSet(record("a").united, {1, 1, 1}, {0, 0, 90}, {20, 0, 0});
    expectSet(record("a").written, {1, 1, 1}, {0, 0, 90}, {20, 0, 0});
    expectSet(record("b").united, {1, 1, 1}, {0, 0, 90}, {20, 12, 0}); // 5 + 1 along the turned x, twice
}

TEST_F(BindPose, AUnitedSelectionKeepsItsPlaceInTheWorld) {
    session.open(nodeText("transform", "g", "", moves(100, 0, 0)) + nodeText("transform", "a", "g", moves(1, 0, 0)));
    session.mel("select -r a");
    session.prepareRun("optimize_node=4", MPxFileTranslator::kExportActiveAccessMode);
    ASSERT_TRUE(buildNodeTree());
    ASSERT_TRUE(readNodeTransforms([](const NodeRecord&) { return std::nullopt; }));
    expectSet(record("a").united, {1, 1, 1}, {0, 0, 0}, {101, 0, 0});
    EXPECT_TRUE(session.infos.empty());
}

// --- records

TEST_F(BindPose, MatricesOfRecordsAreThoseOfTheFile) {
    session.open(nodeText("transform", "a", "", moves(0.1, 0, 0) + rotates(0, 0, 33.33333)) +
                 nodeText("transform", "b", "a", moves(0.1, 0.2, 0.3) + scales(1.7, 1, 1)));
    session.prepareRun();
    ASSERT_TRUE(buildNodeTree());
    ASSERT_TRUE(readNodeTransforms([](const NodeRecord&) { return std::nullopt; }));
    const NodeRecord& a = record("a");
    const NodeRecord& b = record("b");
    EXPECT_TRUE(b.local.isEquivalent(matrixOf(b.own), 1e-12));
    EXPECT_TRUE(b.exportedWorld.isEquivalent(matrixOf(quantised(b.own)) * matrixOf(quantised(a.own)), 1e-12));
    EXPECT_FALSE(b.exportedWorld.isEquivalent(b.local * a.local, 1e-9)); // the steps make a difference
}

} // namespace
} // namespace tvk
