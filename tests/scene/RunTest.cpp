#include "scene/Run.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

#include <iostream>

namespace tvk {
namespace {

TEST(Run, ThereIsOne) {
    EXPECT_EQ(&run(), &run());
    EXPECT_EQ(run().messages, &std::cerr);
}

TEST(Run, ClearingTheSceneLeavesNothingOfIt) {
    const FreshRun fresh;
    SceneData& scene = run().scene;
    scene.nodes.push_back(std::make_unique<NodeRecord>());
    scene.outputNodes.push_back(scene.nodes.front().get());
    scene.scalingRuleIsMaya = true;
    scene.visibilityAnimated = true;
    scene.vertexTotal = 5;
    scene.nodeRotateData = {1, 2, 3};
    run().options.baseName = "stays";
    run().clearScene();
    EXPECT_TRUE(scene.nodes.empty());
    EXPECT_TRUE(scene.outputNodes.empty());
    EXPECT_FALSE(scene.scalingRuleIsMaya);
    EXPECT_FALSE(scene.visibilityAnimated);
    EXPECT_EQ(scene.vertexTotal, 0);
    EXPECT_EQ(scene.nodeRotateData.capacity(), 0U);
    EXPECT_EQ(run().options.baseName, "stays");
}

TEST(Run, MessagesBeginOnStandardErrorWithoutAWarning) {
    const FreshRun fresh;
    run().warningRaised = true;
    run().resetMessages();
    EXPECT_EQ(run().messages, &std::cerr);
    EXPECT_FALSE(run().warningRaised);
}

} // namespace
} // namespace tvk
