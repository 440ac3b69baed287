#include "export/foldedTransforms.h"

#include "FreshRun.h"
#include "NodeForest.h"
#include "export/nodeCompression.h"
#include "scene/ExportOptions.h"
#include "scene/nodeMatrix.h"

#include <gtest/gtest.h>

#include <random>

namespace tvk {
namespace {

constexpr Vector3 kOnes{1, 1, 1};

// Finds local matrices as the transforms pass does.
void settle(SceneData& scene) {
    for (const auto& node : scene.nodes) {
        const Vector3 parentScale = node->scene.parent == nullptr ? kOnes : node->scene.parent->own.scale;
        node->local = localMatrix(node->own, node->scaleCompensate, parentScale);
        node->written = node->own;
        node->writesCompensation = node->scaleCompensate;
    }
}

void merge(NodeForest& forest) {
    settle(forest.scene);
    markKeptNodes(forest.scene);
    compressNodes(forest.scene, kOptimizeMerge);
    foldTransforms(forest.scene);
}

MMatrix sceneWorld(const NodeRecord& node) {
    return node.scene.parent == nullptr ? node.local : node.local * sceneWorld(*node.scene.parent);
}

TEST(FoldedTransforms, TakeInEveryFoldedAncestor) {
    const FreshRun fresh;
    NodeForest forest;
    forest.add("root").hasFaces = true;
    forest.add("a", "root").own = {{2, 2, 2}, {0, 0, 90}, {10, 0, 0}};
    forest.add("b", "a").own = {{1, 1, 1}, {0, 0, 0}, {0, 5, 0}};
    NodeRecord& c = forest.add("c", "b");
    c.own = {{1, 1, 1}, {0, 0, 0}, {1, 0, 0}};
    c.hasFaces = true;
    merge(forest);
    EXPECT_EQ(forest.text(), "root(c)");
    // (1,5,0) doubled, turned by a quarter, moved by ten.
    EXPECT_NEAR(c.written.translate[0], 0, 1e-12);
    EXPECT_NEAR(c.written.translate[1], 2, 1e-12);
    EXPECT_NEAR(c.written.rotate[2], 90, 1e-12);
    EXPECT_NEAR(c.written.scale[0], 2, 1e-12);
    EXPECT_EQ(fresh.messages(), "");
}

TEST(FoldedTransforms, TellOfShearOncePerNode) {
    const FreshRun fresh;
    NodeForest forest;
    forest.add("root").hasFaces = true;
    forest.add("squash", "root").own = {{3, 1, 1}, {0, 0, 0}, {0, 0, 0}};
    for (const char* name : {"leaf", "told"}) {
        NodeRecord& leaf = forest.add(name, "squash");
        leaf.own = {{1, 1, 1}, {0, 0, 45}, {0, 0, 0}};
        leaf.hasFaces = true;
    }
    forest["told"].shearTold = true;
    merge(forest);
    EXPECT_EQ(fresh.messages(), "Warning: Shear is not zero (ignored): leaf\n");
}

TEST(FoldedTransforms, JointsBelowAFoldedScaleKeepTheirSize) {
    const FreshRun fresh;
    NodeForest forest;
    forest.add("root").hasFaces = true;
    forest.add("group", "root").own = {{2, 2, 2}, {0, 0, 0}, {0, 0, 0}};
    NodeRecord& first = forest.add("joint1", "group");
    first.own = {{1, 1, 1}, {0, 0, 0}, {3, 0, 0}};
    first.drawMtx = true;
    NodeRecord& second = forest.add("joint2", "joint1");
    second.own = {{1, 1, 1}, {0, 0, 0}, {4, 0, 0}};
    second.scaleCompensate = true;
    second.drawMtx = true;
    merge(forest);
    EXPECT_EQ(forest.text(), "root(joint1(joint2))");
    EXPECT_NEAR(first.written.scale[0], 2, 1e-12);
    EXPECT_FALSE(second.writesCompensation);
    // The host undoes joint1's own scale of 1 only, so joint2 is twice as large in the world.
    EXPECT_NEAR(second.exportedWorld(0, 0), 2, 1e-3);
    EXPECT_NEAR(second.exportedWorld(3, 0), 14, 1e-3);
}

TEST(FoldedTransforms, CompensationStaysWhereTheParentWritesItsOwnScale) {
    const FreshRun fresh;
    NodeForest forest;
    forest.add("root").own.scale = {3, 3, 3};
    forest["root"].drawMtx = true;
    NodeRecord& joint = forest.add("joint", "root");
    joint.scaleCompensate = true;
    joint.drawMtx = true;
    merge(forest);
    EXPECT_TRUE(joint.writesCompensation);
    EXPECT_NEAR(joint.exportedWorld(0, 0), 1, 1e-3);
}

TEST(FoldedTransforms, OfRandomForestsLeaveEveryWorldWhereItWas) {
    const FreshRun fresh;
    std::mt19937 random(5);
    std::uniform_real_distribution<double> angle(-180, 180);
    std::uniform_real_distribution<double> offset(-10, 10);
    std::uniform_real_distribution<double> factor(0.8, 1.25);
    for (int round = 0; round < 50; ++round) {
        NodeForest forest;
        const std::size_t count = 2 + random() % 20;
        for (std::size_t i = 0; i < count; ++i) {
            NodeRecord& node = forest.add("n" + std::to_string(i), i == 0 ? "" : "n" + std::to_string(random() % i));
            const double scale = factor(random);
            node.own = {{scale, scale, scale},
                        {angle(random), angle(random), angle(random)},
                        {offset(random), offset(random), offset(random)}};
            node.scaleCompensate = i > 0 && random() % 2 == 0;
            node.hasFaces = random() % 2 == 0;
        }
        merge(forest);
        forest.text();
        for (const NodeRecord* node : forest.scene.outputNodes) {
            EXPECT_TRUE(node->exportedWorld.isEquivalent(sceneWorld(*node), 0.2)) << node->name;
        }
    }
    EXPECT_EQ(fresh.messages(), "");
}

} // namespace
} // namespace tvk
