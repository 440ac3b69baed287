#include "export/nodeCompression.h"

#include "NodeForest.h"
#include "scene/ExportOptions.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

namespace tvk {

namespace {

std::string subtree(const NodeRecord& node, std::size_t& met) {
    ++met;
    std::string text = node.name;
    int32_t children = 0;
    const NodeRecord* previous = nullptr;
    for (const NodeRecord* child = node.output.child; child != nullptr; child = child->output.brotherNext) {
        text += (children++ == 0 ? "(" : " ") + subtree(*child, met);
        EXPECT_EQ(child->output.parent, &node) << child->name;
        EXPECT_EQ(child->output.brotherPrev, previous) << child->name;
        EXPECT_EQ(child->output.depth, node.output.depth + 1) << child->name;
        EXPECT_GT(child->index, node.index) << child->name;
        previous = child;
    }
    EXPECT_EQ(node.output.childCount, children) << node.name;
    return children == 0 ? text : text + ")";
}

} // namespace

std::string NodeForest::text() const {
    const NodeRecord& root = *scene.outputNodes.front();
    EXPECT_TRUE(root.isRoot);
    EXPECT_EQ(root.output.parent, nullptr);
    std::size_t met = 0;
    std::string text = subtree(root, met);
    EXPECT_EQ(met, scene.outputNodes.size());
    for (std::size_t i = 0; i < scene.outputNodes.size(); ++i) {
        EXPECT_EQ(scene.outputNodes[i]->index, static_cast<int32_t>(i));
        EXPECT_FALSE(scene.outputNodes[i]->removed);
    }
    return text;
}

namespace {

// world_root over body(arm(hand) tail) and prop(handle).
NodeForest zoo() {
    NodeForest forest;
    forest.add("world_root").hasDagNode = false;
    forest.add("body", "world_root");
    forest.add("prop", "world_root");
    forest.add("arm", "body");
    forest.add("tail", "body");
    forest.add("handle", "prop");
    forest.add("hand", "arm");
    return forest;
}

std::string compressed(NodeForest forest, const std::vector<std::string>& kept, int32_t mode) {
    for (const std::string& name : kept) {
        forest[name].hasFaces = true;
    }
    markKeptNodes(forest.scene);
    compressNodes(forest.scene, mode);
    return forest.text();
}

TEST(NodeCompression, KeepsWhatIsProtectedDrawnNamedByAMatrixOrABillboard) {
    NodeForest forest = zoo();
    forest["body"].noCut = true;
    forest["prop"].hasFaces = true;
    forest["arm"].drawMtx = true;
    forest["tail"].billboard = Billboard::kYOn;
    markKeptNodes(forest.scene);
    std::set<std::string> kept;
    for (const auto& node : forest.scene.nodes) {
        if (node->keep) {
            kept.insert(node->name);
        }
    }
    EXPECT_EQ(kept, (std::set<std::string>{"arm", "body", "prop", "tail"}));
}

TEST(NodeCompression, ModesOutsideTheTableLeaveEverything) {
    for (const int32_t mode : {-1, 0, 5, 1000}) {
        EXPECT_EQ(compressed(zoo(), {}, mode), "world_root(body(arm(hand) tail) prop(handle))") << mode;
    }
}

TEST(NodeCompression, OfNoNodesIsNothing) {
    SceneData scene;
    compressNodes(scene, kOptimizeMerge);
    EXPECT_TRUE(scene.outputNodes.empty());
}

struct Case {
    const char* name;
    int32_t mode;
    std::vector<std::string> kept;
    const char* text;
};

class CompressedForest : public testing::TestWithParam<Case> {};

TEST_P(CompressedForest, HasTheNodes) {
    EXPECT_EQ(compressed(zoo(), GetParam().kept, GetParam().mode), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, CompressedForest,
    testing::Values(
        Case{"CullTakesChainsOfUselessLeaves", kOptimizeCull, {"tail"}, "body(tail)"},
        Case{"CullLeavesWhatStandsAboveAKeptNode", kOptimizeCull, {"hand", "prop"}, "world_root(body(arm(hand)) prop)"},
        Case{"CullOfAllLeavesTheRoot", kOptimizeCull, {}, "world_root"},
        Case{"CullCollapsesTheSyntheticRootOnly", kOptimizeCull, {"handle"}, "prop(handle)"},
        Case{"MergeHangsChildrenUnderTheNearestKept",
             kOptimizeMerge,
             {"body", "hand", "handle"},
             "world_root(body(hand) handle)"},
        Case{
            "MergeKeepsTheOrderOfChildren", kOptimizeMerge, {"hand", "tail", "handle"}, "world_root(hand tail handle)"},
        Case{"MergeCollapsesARootOfTheScene", kOptimizeMerge, {"hand"}, "hand"},
        Case{"MergeKeepsARootWithSeveralChildren", kOptimizeMerge, {"hand", "tail"}, "body(hand tail)"}),
    [](const testing::TestParamInfo<Case>& tested) { return tested.param.name; });

TEST(NodeCompression, UniteLeavesProtectedNodesFlatBelowTheRoot) {
    NodeForest forest = zoo();
    forest["prop"].noCut = true;
    forest["arm"].noCut = true;
    forest["hand"].noCut = true;
    forest["tail"].hasFaces = true;
    markKeptNodes(forest.scene);
    compressNodes(forest.scene, kOptimizeUnite);
    EXPECT_EQ(forest.text(), "world_root(prop arm hand)");
}

TEST(NodeCompression, CountsFoldedAncestorsUpToTheFirstThatStays) {
    NodeForest forest = zoo();
    forest["hand"].hasFaces = true;
    forest["handle"].hasFaces = true;
    markKeptNodes(forest.scene);
    compressNodes(forest.scene, kOptimizeMerge);
    EXPECT_EQ(forest.text(), "world_root(hand handle)");
    EXPECT_EQ(forest["hand"].foldedCount, 2);
    EXPECT_EQ(forest["handle"].foldedCount, 1);
}

TEST(NodeCompression, ARootThatStandsForNoNodeDoesNotCountAsFolded) {
    NodeForest forest = zoo();
    forest["hand"].hasFaces = true;
    markKeptNodes(forest.scene);
    compressNodes(forest.scene, kOptimizeMerge);
    EXPECT_EQ(forest.text(), "hand");
    EXPECT_EQ(forest["hand"].foldedCount, 2);
}

// Whatever the tree: merged, every kept node hangs under its nearest kept ancestor; culled, every node left is kept or
// has a kept node below it.
TEST(NodeCompression, OfRandomForestsLosesNoKeptNodeAndKeepsNoUselessOne) {
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        NodeForest merged;
        NodeForest culled;
        const std::size_t count = 2 + random() % 60;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string parent = i == 0 ? "" : "n" + std::to_string(random() % i);
            const bool keep = random() % 3 == 0;
            for (NodeForest* forest : {&merged, &culled}) {
                forest->add("n" + std::to_string(i), parent).keep = keep;
            }
        }
        compressNodes(merged.scene, kOptimizeMerge);
        compressNodes(culled.scene, kOptimizeCull);
        merged.text();
        culled.text();
        for (const auto& node : merged.scene.nodes) {
            const NodeRecord* above = node->scene.parent;
            while (above != nullptr && above->removed) {
                above = above->scene.parent;
            }
            EXPECT_FALSE(node->keep && node->removed);
            EXPECT_TRUE(node->removed || node->output.parent == above) << node->name;
            EXPECT_TRUE(node->removed || node->keep || node->isRoot) << node->name;
        }
        for (const NodeRecord* node : culled.scene.outputNodes) {
            EXPECT_TRUE(node->keep || node->output.child != nullptr || node->isRoot) << node->name;
        }
    }
}

} // namespace
} // namespace tvk
