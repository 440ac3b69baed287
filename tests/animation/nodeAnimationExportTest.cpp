// Motion of nodes: what a reader of the model and its animation plays, beside what the host shows.

#include "ExportSession.h"
#include "decode/AnimationFile.h"
#include "motionChecks.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tvk {
namespace {

using testing::HasSubstr;

const std::string kEveryFrame = "ica_file_out=1;frame_step_mode=1;anime_tol_t=0;anime_tol_r=0;anime_tol_s=0";
const std::string kNoCut = addedAttribute("tvk_no_cut", "bool", "yes");

std::string withMode(int mode, const std::string& options = kEveryFrame) {
    return options + ";optimize_node=" + std::to_string(mode);
}

class NodeAnimation : public testing::Test, public ExportSession {
protected:
    void exportScene(const std::string& statements, const std::string& options = kEveryFrame) {
        open(statements);
        ASSERT_TRUE(exportAll(options)) << takeMessages();
    }
    decode::AnimationFile animation() const { return decode::readAnimationFile(fileText("model.ica")); }
    // Of a node, by its name in the model.
    decode::AnimatedChannel channel(const std::string& node, const std::string& word) const {
        return animation().thing(model().node(node).index).channel(word);
    }
};

// --- pivots and orders

TEST_F(NodeAnimation, TurningAboutAPivotMovesNothingElse) {
    exportScene(nodeText("transform", "door", "",
                         set3("t", 2, 0, 0) + set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0) + "setAttr \".rz\" 90;") +
                keyed("door.rz", "0 90 10 0") + playback(0, 10));
    EXPECT_EQ(model().node("door").translate, Imath::V3d(3, 0, 0));
    for (const char* const word : {"translate_x", "translate_y", "translate_z"}) {
        EXPECT_EQ(channel("door", word).dataSize, 1) << word;
    }
    EXPECT_EQ(channel("door", "rotate_z").dataSize, 11);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 1);
}

TEST_F(NodeAnimation, PivotsApartAreFollowedThroughATurn) {
    exportScene(nodeText("transform", "arm", "", set3("s", 2, 2, 2) + set3("sp", 0, 2, 0)) +
                nodeText("transform", "hand", "arm", set3("t", 0, 3, 0)) + keyed("arm.rx", "0 0 9 90") +
                playback(0, 9));
    EXPECT_EQ(model().node("arm").translate, Imath::V3d(0, 2, 0));
    EXPECT_EQ(model().node("hand").translate, Imath::V3d(0, 1, 0));
    EXPECT_NEAR(model().node("hand").world[3][1], 4, 1e-3);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 2);
}

TEST_F(NodeAnimation, JointsOfAnyOrderAxisAndOrientMoveAsInTheHost) {
    exportScene(
        nodeText("transform", "base", "", set3("r", 30, -20, 10)) +
        nodeText("joint", "bone", "base", "setAttr \".ro\" 2;" + set3("ra", 10, 20, 30) + set3("jo", 40, 50, 60)) +
        keyed("bone.rx", "0 70 12 -30") + keyed("bone.ry", "0 80 12 10") + keyed("bone.rz", "0 -90 12 200") +
        keyed("bone.tx", "0 1 12 3") + playback(0, 12));
    EXPECT_EQ(expectMovesAsInTheHost(*this), 2);
}

TEST_F(NodeAnimation, ScaleCompensatingJointsFollowAParentThatGrows) {
    exportScene(nodeText("joint", "upper") + nodeText("joint", "lower", "upper", set3("t", 2, 0, 0)) +
                connectText("upper.s", "lower.is") + keyed("upper.sx", "0 1 8 3") + keyed("upper.sy", "0 1 8 0.5") +
                keyed("lower.rz", "0 0 8 60") + playback(0, 8));
    EXPECT_EQ(model().node("lower").scaleCompensate, true);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 2);
}

TEST_F(NodeAnimation, TranslationsAreMagnified) {
    exportScene(nodeText("transform", "a") + keyed("a.tx", "0 1 4 5") + playback(0, 4), kEveryFrame + ";magnify=3");
    EXPECT_EQ(channel("a", "translate_x").frames, (std::vector<double>{3, 6, 9, 12, 15}));
    EXPECT_EQ(expectMovesAsInTheHost(*this, 0.004, 3.0), 1);
}

// --- ranges

TEST_F(NodeAnimation, AOneFrameRangeIsConstantInEveryChannel) {
    exportScene(nodeText("transform", "a") + keyed("a.tx", "0 1 4 5") + playback(2, 2));
    const decode::AnimationFile file = animation();
    for (const auto& [word, track] : file.thing(0).channels) {
        EXPECT_EQ(track.dataSize, 1) << word;
        EXPECT_EQ(track.frameStep, 1) << word;
    }
    EXPECT_EQ(channel("a", "translate_x").frames, (std::vector<double>{3}));
}

TEST_F(NodeAnimation, FramesBeforeZeroCountLikeOthers) {
    exportScene(nodeText("transform", "a") + keyed("a.tx", "-4 1 0 5") + playback(-4, 0));
    EXPECT_EQ(channel("a", "translate_x").frames, (std::vector<double>{1, 2, 3, 4, 5}));
    EXPECT_EQ(animation().info->integer("tool_start_frame"), -4);
}

TEST_F(NodeAnimation, TheUsersTimeIsTheSameAfterwards) {
    open(nodeText("transform", "a") + keyed("a.tx", "0 1 4 5") + playback(0, 4));
    mel("currentTime 2.5");
    ASSERT_TRUE(exportAll(kEveryFrame));
    EXPECT_EQ(currentTime(), 2.5);
}

// --- what drives channels

TEST_F(NodeAnimation, AChannelMayFollowAnotherThroughACurve) {
    exportScene(nodeText("transform", "driver") + nodeText("transform", "follower") + keyed("driver.ty", "0 0 10 10") +
                nodeText("animCurveUL", "drive", "",
                         "setAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s 2 \".ktv[0:1]\" 0 0 10 -20;") +
                connectText("driver.ty", "drive.i") + connectText("drive.o", "follower.tx") + playback(0, 10));
    EXPECT_EQ(channel("follower", "translate_x").frames.at(5), -10.0);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 2);
}

TEST_F(NodeAnimation, AnExpressionMovesItsNode) {
    exportScene(nodeText("transform", "a") +
                nodeText("expression", "wave", "",
                         "setAttr -k on \".nds\";\n\tsetAttr \".ixp\" -type \"string\" \".O[0]=frame*2+1\";") +
                connectText(":time1.o", "wave.tim") + connectText("wave.out[0]", "a.tx") + playback(0, 5));
    EXPECT_EQ(channel("a", "translate_x").frames, (std::vector<double>{1, 3, 5, 7, 9, 11}));
    EXPECT_EQ(expectMovesAsInTheHost(*this), 1);
}

TEST_F(NodeAnimation, AConstraintMovesItsNode) {
    exportScene(nodeText("transform", "target", "", set3("t", 0, 2, 0)) +
                nodeText("transform", "group", "", set3("r", 0, 90, 0)) + nodeText("transform", "follower", "group") +
                nodeText("pointConstraint", "follow", "follower") + connectText("target.t", "follow.tg[0].tt") +
                connectText("target.rp", "follow.tg[0].trp") + connectText("target.rpt", "follow.tg[0].trt") +
                connectText("target.pm", "follow.tg[0].tpm") + connectText("follower.pim", "follow.cpim") +
                connectText("follow.ctx", "follower.tx") + connectText("follow.cty", "follower.ty") +
                connectText("follow.ctz", "follower.tz") + keyed("target.tx", "0 0 6 3") + playback(0, 6));
    EXPECT_NEAR(channel("follower", "translate_z").frames.at(6), 3.0, 1e-3);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 3);
}

// What a character fed that is gone is not animated.
TEST_F(NodeAnimation, OfACharacterThatIsMissingIsNone) {
    openFile("scene.ma", sceneOf(nodeText("transform", "a") +
                                 nodeText("animCurveTL", "curve", "", "setAttr -s 2 \".ktv[0:1]\" 0 0 4 4;") +
                                 "connectAttr \"curve.o\" \"gone.lv[1]\";\n" +
                                 "connectAttr \"gone.lv[1]\" \"a.tx\";\n" + playback(0, 4)));
    ASSERT_TRUE(exportAll(kEveryFrame)) << takeMessages();
    EXPECT_EQ(channel("a", "translate_x").dataSize, 1);
}

TEST_F(NodeAnimation, ACurveWithoutKeysIsLevel) {
    exportScene(nodeText("transform", "a") + nodeText("animCurveTL", "curve") + connectText("curve.o", "a.tx") +
                playback(0, 10));
    EXPECT_EQ(channel("a", "translate_x").dataSize, 1);
    EXPECT_EQ(channel("a", "translate_x").frames.front(), 0.0);
}

TEST_F(NodeAnimation, KeysAtOneTimeEndTheExportWithANumber) {
    exportScene(nodeText("transform", "a") + keyed("a.tx", "0 1 4 2 4 7 8 9") + playback(0, 8));
    const decode::AnimatedChannel track = channel("a", "translate_x");
    ASSERT_EQ(track.frames.size(), 9U);
    EXPECT_EQ(track.frames.front(), 1.0);
    EXPECT_EQ(track.frames.back(), 9.0);
}

TEST_F(NodeAnimation, ACycleInTheGraphIsExportedAllTheSame) {
    exportScene(nodeText("transform", "a") + nodeText("transform", "b") + connectText("a.tx", "b.tx") +
                connectText("b.tx", "a.tx") + keyed("a.ty", "0 0 4 4") + playback(0, 4));
    EXPECT_EQ(channel("a", "translate_y").frames, (std::vector<double>{0, 1, 2, 3, 4}));
}

// --- folding

TEST_F(NodeAnimation, OfACulledParentAloneIsInItsChild) {
    exportScene(nodeText("transform", "group") + nodeText("transform", "body", "group", set3("t", 1, 2, 0)) +
                    meshText("bodyShape", "body") + inDefaultGroup("bodyShape") + keyed("group.rz", "0 0 10 90") +
                    keyed("body.tx", "0 1 10 4") + playback(0, 10),
                withMode(2));
    EXPECT_THAT(model().names(), testing::ElementsAre("body"));
    EXPECT_EQ(expectMovesAsInTheHost(*this), 1);
    EXPECT_GT(channel("body", "rotate_z").dataSize, 1);
    EXPECT_THAT(infos, testing::Contains(HasSubstr("Merge Useless Node ( 2 -> 1 )")));
}

TEST_F(NodeAnimation, OfAParentScaledUnevenlyWarnsOfShearOnce) {
    exportScene(nodeText("transform", "group", "", set3("s", 1, 3, 1)) +
                    nodeText("transform", "body", "group", set3("r", 0, 0, 30)) + meshText("bodyShape", "body") +
                    inDefaultGroup("bodyShape") + keyed("body.rz", "0 30 10 60") + playback(0, 10),
                withMode(2));
    EXPECT_EQ(takeMessages(), "Warning: Shear is not zero (ignored): body\n\n");
}

class FoldedScale : public NodeAnimation, public testing::WithParamInterface<const char*> {};

// Joint 2 undoes the scale of joint 1, and not that of the group which folding puts into joint 1.
TEST_P(FoldedScale, LeavesCompensatingJointsTheirSize) {
    exportScene(nodeText("transform", "group", "", GetParam()) + nodeText("joint", "joint1", "group", kNoCut) +
                    nodeText("joint", "joint2", "joint1", kNoCut + set3("t", 2, 0, 0)) +
                    connectText("joint1.s", "joint2.is") + keyed("group.ty", "0 0 6 3") +
                    keyed("joint1.rz", "0 0 6 40") + playback(0, 6),
                withMode(2));
    EXPECT_THAT(model().names(), testing::ElementsAre("joint1", "joint2"));
    EXPECT_EQ(expectMovesAsInTheHost(*this), 2);
}

INSTANTIATE_TEST_SUITE_P(Groups, FoldedScale,
                         testing::Values("setAttr \".s\" -type \"double3\" 1 1 1;",
                                         "setAttr \".s\" -type \"double3\" 2 2 2;"));

// At the start nothing tells that folding will change a scale.
TEST_F(NodeAnimation, AFoldedScaleThatIsKeyedLeavesCompensatingJointsTheirSize) {
    exportScene(nodeText("transform", "group") + nodeText("joint", "joint1", "group", kNoCut) +
                    nodeText("joint", "joint2", "joint1", kNoCut + set3("t", 2, 0, 0)) +
                    connectText("joint1.s", "joint2.is") + keyed("group.sx", "0 1 6 2") + keyed("group.sy", "0 1 6 2") +
                    keyed("group.sz", "0 1 6 2") + playback(0, 6),
                withMode(2));
    EXPECT_THAT(model().names(), testing::ElementsAre("joint1", "joint2"));
    EXPECT_EQ(expectMovesAsInTheHost(*this), 2);
}

class HiddenParent : public NodeAnimation, public testing::WithParamInterface<int> {};

TEST_P(HiddenParent, HidesItsChildrenUnderEveryCompression) {
    exportScene(nodeText("transform", "group") + nodeText("transform", "body", "group") +
                    meshText("bodyShape", "body") + inDefaultGroup("bodyShape") +
                    visibilityKeys("group", "0 1 5 0 9 1", 3) + playback(0, 11),
                withMode(GetParam(), "iva_file_out=1"));
    const decode::VisibilityFile visible = visibility();
    const auto body = static_cast<std::size_t>(model().node("body").index);
    const std::vector<std::pair<int, int>> keys{{0, 1}, {5, 0}, {9, 1}};
    EXPECT_EQ(visible.nodes.at(body).keys, keys);
}

INSTANTIATE_TEST_SUITE_P(Compression, HiddenParent, testing::Values(0, 1, 2));

class Compressed : public NodeAnimation, public testing::WithParamInterface<int> {};

TEST_P(Compressed, ModelsMoveAsInTheHost) {
    exportScene(nodeText("transform", "top", "", set3("t", 0, 1, 0)) + nodeText("transform", "unused", "top") +
                    nodeText("transform", "middle", "top", set3("r", 0, 20, 0)) +
                    nodeText("transform", "body", "middle", set3("t", 0, 0, 2)) + meshText("bodyShape", "body") +
                    inDefaultGroup("bodyShape") + nodeText("transform", "held", "middle", kNoCut) +
                    keyed("top.ry", "0 0 10 180") + keyed("middle.tx", "0 0 10 5") + keyed("held.rx", "0 0 10 300") +
                    playback(0, 10),
                withMode(GetParam()));
    EXPECT_GE(expectMovesAsInTheHost(*this), GetParam() >= 3 ? 1 : 2);
    if (GetParam() >= 3) {
        EXPECT_THAT(model().names(), testing::ElementsAre("world_root", "held"));
        const decode::AnimationFile file = animation();
        for (const auto& [word, track] : file.thing(0).channels) {
            EXPECT_EQ(track.dataSize, 1) << word;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, Compressed, testing::Values(0, 1, 2, 3, 4));

} // namespace
} // namespace tvk
