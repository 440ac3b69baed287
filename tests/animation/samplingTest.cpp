#include "animation/sampling.h"

#include "export/exportRun.h"
#include "export/nodeTransforms.h"
#include "export/nodeTree.h"

#include "ExportSession.h"
#include "sceneText.h"

#include <maya/MAnimControl.h>

#include <gtest/gtest.h>

namespace tvk {
namespace {

// Off at 5, on at 9.
const std::string kOffAndOn = "0 1 5 0 9 1";

const NodeRecord& record(const std::string& name) {
    for (const auto& node : run().scene.nodes) {
        if (node->name == name) {
            return *node;
        }
    }
    ADD_FAILURE() << "no record " << name;
    static const NodeRecord none;
    return none;
}

void gather(ExportSession& session, const std::string& statements, const std::string& options = "iva_file_out=1") {
    session.open(statements);
    session.prepareRun(options);
    ASSERT_TRUE(gatherScene());
}

std::vector<float> samplesOf(const std::string& name) {
    return record(name).visibilityTrack.samples;
}

TEST(Sampling, AnAbsurdRangeIsRefused) {
    ExportSession session;
    session.open(nodeText("transform", "a") + playback(1, 524288));
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(buildNodeTree());
    EXPECT_FALSE(sampleAnimation(readSampledSet));
    EXPECT_EQ(session.takeMessages(), "Error: Too many frames: 524288\n");
}

TEST(Sampling, TakesOneSamplePerFrameOfTheRange) {
    ExportSession session;
    gather(session, nodeText("transform", "a") + visibilityKeys("a", kOffAndOn, 3) + playback(0, 11));
    EXPECT_EQ(samplesOf("a"), (std::vector<float>{1, 1, 1, 1, 1, 0, 0, 0, 0, 1, 1, 1}));
    EXPECT_TRUE(run().scene.visibilityAnimated);
}

TEST(Sampling, AOneFrameRangeGivesOneSample) {
    ExportSession session;
    gather(session, nodeText("transform", "a") + visibilityKeys("a", kOffAndOn, 3) + playback(6, 6));
    EXPECT_EQ(samplesOf("a"), (std::vector<float>{0}));
    EXPECT_FALSE(run().scene.visibilityAnimated);
}

TEST(Sampling, ANodeIsSeenOnlyWhereItsAncestorsAre) {
    ExportSession session;
    gather(session, nodeText("transform", "a") + nodeText("transform", "b", "a") + nodeText("transform", "c", "b") +
                        visibilityKeys("a", "0 1 2 0", 2) + visibilityKeys("c", "0 0 1 1", 2) + playback(0, 3));
    EXPECT_EQ(samplesOf("a"), (std::vector<float>{1, 1, 0, 0}));
    EXPECT_EQ(samplesOf("b"), (std::vector<float>{1, 1, 0, 0}));
    EXPECT_EQ(samplesOf("c"), (std::vector<float>{0, 1, 0, 0}));
}

TEST(Sampling, TheUsersTimeIsTheSameAfterwards) {
    ExportSession session;
    session.open(nodeText("transform", "a") + playback(0, 20));
    session.mel("currentTime 7.5");
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(buildNodeTree());
    EXPECT_TRUE(sampleAnimation(readSampledSet));
    EXPECT_EQ(session.currentTime(), 7.5);
}

// Keys stand at whole frames of another rate too: the range counts in the unit of the user interface.
TEST(Sampling, FramesAreThoseOfTheUserInterface) {
    ExportSession session;
    gather(session,
           "currentUnit -t film;\n" + nodeText("transform", "a") + visibilityKeys("a", "0 1 3 0", 2) + playback(0, 4));
    EXPECT_EQ(samplesOf("a"), (std::vector<float>{1, 1, 1, 0, 0}));
}

// The range begins at 0.5, so its first frame is 0, where the node is still on.
TEST(Sampling, FramesAreWholeInAFractionalRange) {
    ExportSession session;
    session.open(nodeText("transform", "a") + visibilityKeys("a", "0 1 1 0", 2));
    session.mel("playbackOptions -ast 0.5 -aet 2.5 -min 0.5 -max 2.5");
    session.prepareRun("iva_file_out=1");
    ASSERT_TRUE(gatherScene());
    EXPECT_EQ(samplesOf("a"), (std::vector<float>{1, 0, 0}));
}

} // namespace
} // namespace tvk
