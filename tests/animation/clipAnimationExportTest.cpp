// Motion that clips, animation layers and deformers make: what is exported, beside what the host shows.

#include "ExportSession.h"
#include "motionChecks.h"
#include "sceneText.h"

#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MPointArray.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>

namespace tvk {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::Not;

constexpr double kTolerance = 1e-6;

std::string connect(const std::string& from, const std::string& to) {
    return "connectAttr \"" + from + "\" \"" + to + "\";\n";
}

/// A curve of two linear keys.
std::string curve(const std::string& type, const std::string& name, const std::string& keys) {
    return nodeText(type, name, "",
                    "setAttr \".tan\" 2; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  " + keys + ";");
}

std::string clipCurve(const std::string& type, const std::string& name, const std::string& keys, int channel) {
    return curve(type, name, keys) + connect(name + ".a", "clips.cel[0].cev[" + std::to_string(channel) + "].cevr");
}

/// A leg that a character moves: its clip "walk" turns it from 0 to 90 degrees and takes it along x from 1 to 3 within
/// the frames 1 to 11.
std::string legWithClip() {
    return nodeText("joint", "leg") +
           nodeText("character", "set1", "",
                    "setAttr \".am\" -type \"characterMapping\" 2 \"leg.rotateZ\" 2 1 \"leg.translateX\" 1 2;\n"
                    "setAttr \".cim\" -type \"Int32Array\" 2 0 1;") +
           nodeText("clipScheduler", "scheduler") + nodeText("clipLibrary", "clips") +
           nodeText("animClip", "walkSource", "", "setAttr \".ss\" 1; setAttr \".se\" 11; setAttr \".ci\" no;") +
           connect("scheduler.ce", "set1.cer") + connect("clips.cf", "scheduler.cfr") +
           connect("set1.am", "clips.cd[0].cm") + connect("set1.cim", "clips.cd[0].cim") +
           connect("set1.av[1]", "leg.rz") + connect("set1.lv[2]", "leg.tx") + connect("walkSource.cl", "clips.sc[0]") +
           clipCurve("animCurveTA", "turn", "1 0 11 90", 0) + clipCurve("animCurveTL", "way", "1 1 11 3", 1);
}

std::string scheduled(const std::string& name, int element, const std::string& attributes) {
    return nodeText("animClip", name, "",
                    "setAttr \".ss\" 1; setAttr \".se\" 11; setAttr -s 2 \".ac[0:1]\" yes no;\n\t" + attributes) +
           connect(name + ".cl", "scheduler.cp[" + std::to_string(element) + "]");
}

class MotionOfClips : public testing::Test, public ExportSession {
protected:
    void exportScene(const std::string& statements) {
        open(statements);
        ASSERT_TRUE(exportAll("ica_file_out=1;frame_step_mode=1;anime_tol_t=0;anime_tol_r=0;anime_tol_s=0"))
            << takeMessages();
    }
    double valueAt(int frame, const std::string& plug) {
        return std::stod(mel("currentTime " + std::to_string(frame) + "; getAttr " + plug));
    }
};

TEST_F(MotionOfClips, IsExportedAsTheHostPlaysIt) {
    exportScene(legWithClip() + scheduled("walk1", 0, "setAttr \".st\" 11;") +
                scheduled("walk2", 1, "setAttr \".st\" 31; setAttr \".sc\" 0.5; setAttr \".poc\" 1;") +
                playback(1, 50));
    EXPECT_NEAR(valueAt(16, "leg.rz"), 45, kTolerance);
    EXPECT_NEAR(valueAt(16, "leg.tx"), 2, kTolerance);
    EXPECT_NEAR(valueAt(26, "leg.rz"), 90, kTolerance) << "held until the next clip";
    EXPECT_NEAR(valueAt(32, "leg.rz"), 18, kTolerance);
    EXPECT_NEAR(valueAt(32, "leg.tx"), 3.4, kTolerance) << "relative: goes on from where the first clip ended";
    EXPECT_NEAR(valueAt(41, "leg.tx"), 7, kTolerance) << "and from run to run";
    EXPECT_EQ(expectMovesAsInTheHost(*this), 1);
    EXPECT_THAT(warnings, Each(Not(HasSubstr("clip"))));
}

TEST_F(MotionOfClips, StandsStillWithoutClipsOnTheTimeline) {
    exportScene(legWithClip() + "setAttr \"set1.lv[2]\" 5;\n" + playback(1, 20));
    EXPECT_NEAR(valueAt(16, "leg.tx"), 5, kTolerance);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 1);
}

TEST_F(MotionOfClips, OfLayersIsExportedAsTheHostPlaysIt) {
    exportScene(nodeText("joint", "leg") + nodeText("animLayer", "layer1", "", "setAttr \".wgt\" 0.5;") +
                nodeText("animBlendNodeAdditiveDL", "mix") +
                nodeText("animBlendNodeAdditiveRotation", "turn", "",
                         "setAttr \".acm\" 1; setAttr \".ib\" -type \"double3\" 0 0 90;") +
                keyed("mix.ia", "1 0 11 10") + keyed("mix.ib", "1 4 11 0") +
                curve("animCurveTA", "turned", "1 0 11 90") + connect("turned.o", "turn.iax") +
                connect("layer1.bgwt", "mix.wa") + connect("layer1.fgwt", "mix.wb") +
                connect("layer1.bgwt", "turn.wa") + connect("layer1.fgwt", "turn.wb") + connect("mix.o", "leg.tx") +
                connect("turn.o", "leg.r") + playback(1, 11));
    EXPECT_NEAR(valueAt(1, "leg.tx"), 2, kTolerance);
    EXPECT_NEAR(valueAt(6, "leg.tx"), 6, kTolerance);
    EXPECT_NEAR(valueAt(1, "leg.rz"), 45, kTolerance);
    EXPECT_EQ(expectMovesAsInTheHost(*this), 1);
}

/// A triangle at 0, x and y with a deformer before it that takes its own shape as input.
std::string deformedTriangle(const std::string& deformer) {
    return nodeText("transform", "body") + meshText("bodyShapeOrig", "body", "setAttr \".io\" yes;") +
           nodeText("mesh", "bodyShape", "body") + connect("bodyShapeOrig.w", deformer + ".ip[0].ig") +
           connect(deformer + ".og[0]", "bodyShape.i");
}

TEST_F(MotionOfClips, SceneWithADeformerThatIsNotEvaluatedDoesNotOpen) {
    const std::string text = sceneOf(nodeText("wrap", "wrap1") + deformedTriangle("wrap1"));
    std::ofstream(folder.path("wrapped.ma")) << text;
    EXPECT_FALSE(melRuns("file -f -o \"" + folder.path("wrapped.ma") + "\""));
    EXPECT_THAT(errors, testing::Contains(HasSubstr("wrapped.ma: node type 'wrap' is not supported: body.wrap1 shapes "
                                                    "the mesh (delete the history of 'body', or export from Maya)")));
}

TEST_F(MotionOfClips, SceneWithABendOpensBent) {
    open(nodeText("nonLinear", "bend1") + nodeText("transform", "handle") +
         nodeText("deformBend", "handleShape", "handle", "setAttr \".cur\" 90;") +
         connect("handleShape.dd", "bend1.dd") + connect("handle.wm", "bend1.ma") + deformedTriangle("bend1"));
    MPointArray points;
    ASSERT_TRUE(MFnMesh(path("bodyShape")).getPoints(points, MSpace::kObject));
    const double radius = 2 / std::acos(-1.0);
    bool hasTop = false;
    for (unsigned int i = 0; i < points.length(); ++i) {
        hasTop = hasTop || points[i].isEquivalent(MPoint(radius, radius, 0), kTolerance);
    }
    EXPECT_TRUE(hasTop);
}

} // namespace
} // namespace tvk
