// Skipped frames and shared data: what a reader plays, in each of the three ways to fill frames in.

#include "ExportSession.h"
#include "decode/AnimationFile.h"
#include "motionChecks.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace tvk {
namespace {

constexpr double kRotationTolerance = 0.1; // the default of the options
constexpr double kStep = 1.0 / 4096;

class Interpolation : public testing::Test, public ExportSession {
protected:
    decode::AnimationFile play(const std::string& statements, const std::string& options) {
        open(statements);
        EXPECT_TRUE(exportAll("ica_file_out=1;" + options)) << takeMessages();
        return decode::readAnimationFile(fileText("model.ica"));
    }
    // Degrees that the host's own angle is away from, whole turns aside.
    void expectTurns(const decode::AnimatedChannel& track, const std::string& plug, double tolerance) {
        for (std::size_t frame = 0; frame < track.frames.size(); ++frame) {
            mel("currentTime " + std::to_string(frame));
            const double wanted = std::stod(mel("getAttr " + plug));
            EXPECT_LE(std::abs(std::remainder(track.frames[frame] - wanted, 360.0)), tolerance) << frame;
        }
    }
};

const std::string kTwoTurns = nodeText("transform", "wheel") + keyed("wheel.rz", "0 0 48 720") + playback(0, 48);

TEST_F(Interpolation, OfTwoTurnsStaysBelowHalfATurnAndWithinTheTolerance) {
    const decode::AnimationFile file = play(kTwoTurns, "anime_interp=1;frame_step_mode=0");
    const decode::AnimatedChannel& track = file.thing(0).channel("rotate_z");
    for (const double printed : file.pools.at("node_rotate_data")) {
        EXPECT_TRUE(printed >= -180 && printed < 180) << printed;
    }
    expectTurns(track, "wheel.rz", kRotationTolerance);
    EXPECT_NEAR(track.frames[12], -180, kStep); // half a turn is the negative one
}

TEST_F(Interpolation, BetweenStoredFramesAcrossHalfATurnPassesThroughIt) {
    const decode::AnimationFile file =
        play(nodeText("transform", "wheel") + keyed("wheel.rz", "0 170 4 190") + playback(0, 4),
             "anime_interp=1;frame_step_mode=3");
    const decode::AnimatedChannel& track = file.thing(0).channel("rotate_z");
    EXPECT_EQ(track.frameStep, 4);
    EXPECT_EQ(track.dataSize, 2);
    EXPECT_EQ(track.frames[0], 170);
    EXPECT_EQ(track.frames[2], -180);
    EXPECT_EQ(track.frames[4], -170);
}

TEST_F(Interpolation, OfTwoTurnsAsACurveTakesTwoKeys) {
    const decode::AnimationFile file = play(kTwoTurns, "anime_interp=2");
    const decode::AnimatedChannel& track = file.thing(0).channel("rotate_z");
    EXPECT_EQ(track.dataSize, 2);
    for (std::size_t frame = 0; frame <= 48; ++frame) {
        EXPECT_NEAR(track.frames[frame], 15.0 * static_cast<double>(frame), 0.01) << frame;
    }
    expectMovesAsInTheHost(*this);
}

TEST_F(Interpolation, ThroughGimbalLockKeepsTheRotation) {
    for (const char* const options : {"anime_interp=0", "anime_interp=1;frame_step_mode=0", "anime_interp=2"}) {
        SCOPED_TRACE(options);
        play(nodeText("transform", "pin") + keyed("pin.rx", "0 0 20 120") + keyed("pin.ry", "0 60 20 120") +
                 keyed("pin.rz", "0 10 20 -50") + playback(0, 20),
             std::string(options) + ";anime_tol_r=0.05");
        EXPECT_EQ(expectMovesAsInTheHost(*this, 0.01), 1);
    }
}

TEST_F(Interpolation, OfFramesHoldsTheStoredOnes) {
    const decode::AnimationFile file = play(nodeText("transform", "a") + keyed("a.tx", "0 0 9 9") + playback(0, 9),
                                            "anime_interp=0;frame_step_mode=3");
    const decode::AnimatedChannel& track = file.thing(0).channel("translate_x");
    EXPECT_EQ(track.dataSize, 4);
    EXPECT_EQ(track.frames, (std::vector<double>{0, 0, 0, 0, 4, 4, 4, 4, 8, 9}));
}

struct ModeCase {
    const char* name;
    const char* options;
};

class EveryMode : public Interpolation, public testing::WithParamInterface<ModeCase> {};

// Tolerances add up along the chain of three nodes, and turn at its far end.
TEST_P(EveryMode, PlaysCurvedMotionWithinTheTolerance) {
    const std::string waves = "0 0 10 40 20 -30 30 50 40 -20";
    play(nodeText("transform", "a") + nodeText("transform", "b", "a", set3("t", 1, 0, 0)) +
             nodeText("transform", "c", "b", set3("t", 1, 0, 0)) + keyed("a.rz", waves) + keyed("b.ry", waves) +
             keyed("c.rx", waves) + keyed("a.ty", waves) + playback(0, 40),
         std::string(GetParam().options) + ";anime_tol_r=0.05;anime_tol_t=0.005");
    EXPECT_EQ(expectMovesAsInTheHost(*this, 0.02), 3);
}

INSTANTIATE_TEST_SUITE_P(Modes, EveryMode,
                         testing::Values(ModeCase{"everyFrame", "anime_interp=0;frame_step_mode=1"},
                                         ModeCase{"mixed", "anime_interp=1;frame_step_mode=0"},
                                         ModeCase{"curves", "anime_interp=2"},
                                         ModeCase{"curvesThatLoop", "anime_interp=2;loop_interp=1"}),
                         [](const auto& parameter) { return parameter.param.name; });

// --- sharing

TEST_F(Interpolation, OfEqualNodesStoresOneCurve) {
    std::string scene;
    constexpr int kNodes = 200;
    for (int i = 0; i < kNodes; ++i) {
        const std::string name = "n" + std::to_string(i);
        scene += nodeText("transform", name) + keyed(name + ".tx", "0 0 10 30 20 -5");
    }
    const decode::AnimationFile file = play(scene + playback(0, 20), "anime_tol_t=0");
    const std::vector<double>& pool = file.pools.at("node_translate_data");
    EXPECT_EQ(pool.size(), 22U); // the root's 0, and one curve
    for (const decode::AnimatedThing& thing : file.things) {
        if (thing.index > 0) { // the root
            EXPECT_EQ(thing.channel("translate_x").dataHead, file.thing(1).channel("translate_x").dataHead);
            EXPECT_EQ(thing.channel("translate_x").dataSize, 21);
        }
    }
}

// The second node's curve, thinned, is what the first one ends with.
TEST_F(Interpolation, OfTheTailOfAnotherCurvePointsInsideIt) {
    const decode::AnimationFile file =
        play(nodeText("transform", "a") + nodeText("transform", "b") +
                 keyed("a.tx", "0 5 1 9 2 1 3 8 4 2 5 7 6 0 7 4 8 8") + keyed("b.tx", "0 0 8 8") + playback(0, 8),
             "anime_interp=1;anime_tol_t=0;frame_step_mode=0");
    const decode::AnimatedChannel& whole = file.thing(1).channel("translate_x");
    const decode::AnimatedChannel& tail = file.thing(2).channel("translate_x");
    EXPECT_EQ(whole.frames, (std::vector<double>{5, 9, 1, 8, 2, 7, 0, 4, 8}));
    EXPECT_EQ(tail.frames, (std::vector<double>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(tail.dataSize, 3);
    EXPECT_EQ(tail.dataHead, whole.dataHead + 6);
    EXPECT_EQ(file.pools.at("node_translate_data").size(), 10U);
}

} // namespace
} // namespace tvk
