#include "animation/nodeSampling.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tvk {
namespace {

constexpr std::size_t kScaleX = 0;
constexpr std::size_t kRotateZ = 5;
constexpr std::size_t kTranslateX = 6;
constexpr std::size_t kTranslateY = 7;

/// Records in list order and what they read at every frame.
class Sampled : public testing::Test {
protected:
    NodeRecord& add(const std::string& name, NodeRecord* parent, std::vector<TransformSet> frames) {
        SceneData& scene = run().scene;
        scene.nodes.push_back(std::make_unique<NodeRecord>());
        NodeRecord& node = *scene.nodes.back();
        node.name = name;
        node.scene.parent = parent;
        node.listPlace = static_cast<int32_t>(scene.nodes.size()) - 1;
        node.written = frames.empty() ? TransformSet() : frames.front();
        frames_[&node] = std::move(frames);
        return node;
    }

    void sample(std::size_t frameCount) {
        const NodeSetReader reader = [&](const NodeRecord& node, TransformSet& set) {
            const std::vector<TransformSet>& frames = frames_.at(&node);
            if (frame_ >= frames.size()) {
                return MStatus(MS::kFailure);
            }
            set = frames[frame_];
            return MStatus(MS::kSuccess);
        };
        NodeSampler sampler(run().scene, reader, frameCount);
        for (frame_ = 0; frame_ < frameCount; ++frame_) {
            sampler.sampleFrame();
        }
    }

private:
    FreshRun fresh_;
    std::map<const NodeRecord*, std::vector<TransformSet>> frames_;
    std::size_t frame_ = 0;
};

TransformSet moved(double x) {
    return {{1, 1, 1}, {0, 0, 0}, {x, 0, 0}};
}

TransformSet turned(double degrees) {
    return {{1, 1, 1}, {0, 0, degrees}, {0, 0, 0}};
}

TEST_F(Sampled, ChannelsAreScaleRotateTranslate) {
    NodeRecord& node = add("a", nullptr, {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}});
    sample(1);
    for (std::size_t i = 0; i < node.channels.size(); ++i) {
        EXPECT_EQ(node.channels[i].samples, std::vector<float>{static_cast<float>(i) + 1});
    }
}

TEST_F(Sampled, MotionOfAFoldedParentOnlyStillVaries) {
    NodeRecord& root = add("root", nullptr, {moved(0), moved(0)});
    NodeRecord& group = add("group", &root, {turned(0), turned(90)});
    NodeRecord& leaf = add("leaf", &group, {moved(5), moved(5)});
    group.removed = true;
    leaf.foldedCount = 1;
    sample(2);
    EXPECT_NEAR(leaf.channels[kTranslateX].samples[0], 5, 1e-6);
    EXPECT_NEAR(leaf.channels[kTranslateX].samples[1], 0, 1e-6);
    EXPECT_NEAR(leaf.channels[kTranslateY].samples[1], 5, 1e-6);
    EXPECT_NEAR(leaf.channels[kRotateZ].samples[1], 90, 1e-4);
    EXPECT_TRUE(group.channels[kRotateZ].samples.empty());
}

TEST_F(Sampled, ChainsOfFoldedAncestorsAreTakenInOnce) {
    NodeRecord& root = add("root", nullptr, {moved(100)});
    NodeRecord& first = add("first", &root, {moved(1)});
    NodeRecord& second = add("second", &first, {moved(2)});
    NodeRecord& leaf = add("leaf", &second, {moved(4)});
    first.removed = second.removed = true;
    second.foldedCount = 1;
    leaf.foldedCount = 2;
    sample(1);
    EXPECT_NEAR(leaf.channels[kTranslateX].samples[0], 7, 1e-6);
}

TEST_F(Sampled, FoldedRotationsFollowTheFrameBefore) {
    NodeRecord& root = add("root", nullptr, {moved(0), moved(0), moved(0)});
    NodeRecord& group = add("group", &root, {turned(170), turned(179), turned(190)});
    NodeRecord& leaf = add("leaf", &group, {moved(0), moved(0), moved(0)});
    group.removed = true;
    leaf.foldedCount = 1;
    leaf.written.rotate = {0, 0, 170};
    sample(3);
    EXPECT_NEAR(leaf.channels[kRotateZ].samples[2], 190, 1e-3);
}

TEST_F(Sampled, AJointThatNoLongerUndoesAFoldedScaleTakesItsPartIn) {
    NodeRecord& upper = add("upper", nullptr, {{{2, 2, 2}, {0, 0, 0}, {0, 0, 0}}});
    NodeRecord& lower = add("lower", &upper, {moved(3)});
    lower.scaleCompensate = true;
    lower.writesCompensation = false;
    sample(1);
    EXPECT_NEAR(lower.channels[kScaleX].samples[0], 0.5, 1e-6);
    EXPECT_NEAR(lower.channels[kTranslateX].samples[0], 3, 1e-6);
}

TEST_F(Sampled, ANodeWithoutTransformKeepsItsStaticSet) {
    NodeRecord& root = add("world_root", nullptr, {});
    root.hasDagNode = false;
    root.written = moved(0);
    sample(2);
    EXPECT_EQ(root.channels[kTranslateX].samples, (std::vector<float>{0, 0}));
    EXPECT_EQ(root.channels[kScaleX].samples, (std::vector<float>{1, 1}));
}

TEST_F(Sampled, WhatCannotBeReadIsTheIdentity) {
    NodeRecord& node = add("a", nullptr, {moved(4)});
    sample(2);
    EXPECT_EQ(node.channels[kTranslateX].samples, (std::vector<float>{4, 0}));
    EXPECT_EQ(node.channels[kScaleX].samples, (std::vector<float>{1, 1}));
}

} // namespace
} // namespace tvk
