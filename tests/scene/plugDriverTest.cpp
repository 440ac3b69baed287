#include "scene/plugDriver.h"

#include "ExportSession.h"
#include "sceneText.h"

#include "scene/hostCompatibility.h"

#include <maya/MFnDependencyNode.h>

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

class PlugDriverSearch : public testing::Test {
protected:
    PlugDriver driverOf(const std::string& node, const char* attribute) const {
        return findDriver(findPlug(MFnDependencyNode(session.node(node)), attribute));
    }
    static std::string curveOf(const PlugDriver& driver) {
        return driver.curve.isNull() ? "" : textOf(MFnDependencyNode(driver.curve).name());
    }
    void expectCurve(const PlugDriver& driver, const std::string& name) {
        EXPECT_EQ(driver.kind, DriverKind::kTimeCurve);
        EXPECT_EQ(curveOf(driver), name);
        EXPECT_TRUE(driver.isAnimated());
    }

    ExportSession session;
};

// Linear keys at frames 1 and 10.
std::string curve(const std::string& name, const std::string& values = "1 0 10 1",
                  const std::string& type = "animCurveTU") {
    return nodeText(type, name, "",
                    "setAttr \".tan\" 2; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  " + values + ";");
}

std::string connect(const std::string& from, const std::string& to) {
    return "connectAttr \"" + from + "\" \"" + to + "\";\n";
}

std::string layer(const std::string& name) {
    return nodeText("animBlendNodeAdditive", name);
}

std::string rotationLayer(const std::string& name) {
    return nodeText("animBlendNodeAdditiveRotation", name);
}

const std::string kSkin = nodeText("lambert", "skin");

// --- what drives

TEST_F(PlugDriverSearch, WhatIsNotConnectedIsDrivenByNothing) {
    session.open(kSkin);
    const PlugDriver driver = driverOf("skin", "colorR");
    EXPECT_EQ(driver.kind, DriverKind::kNone);
    EXPECT_TRUE(driver.curve.isNull());
    EXPECT_FALSE(driver.isAnimated());
    EXPECT_EQ(findDriver(MPlug()).kind, DriverKind::kNone);
}

TEST_F(PlugDriverSearch, ACurveOverTime) {
    session.open(kSkin + curve("red") + connect("red.o", "skin.cr"));
    expectCurve(driverOf("skin", "colorR"), "red");
    EXPECT_EQ(driverOf("skin", "colorG").kind, DriverKind::kNone);
}

TEST_F(PlugDriverSearch, EveryKindOfCurveOverTimeAndOfDrivenKey) {
    for (const std::string type : {"animCurveTA", "animCurveTL", "animCurveTT", "animCurveTU"}) {
        session.open(kSkin + curve("keys", "1 0 10 1", type) + connect("keys.o", "skin.cr"));
        EXPECT_EQ(driverOf("skin", "colorR").kind, DriverKind::kTimeCurve) << type;
    }
    for (const std::string type : {"animCurveUA", "animCurveUL", "animCurveUT", "animCurveUU"}) {
        session.open(kSkin + curve("keys", "1 0 10 0", type) + connect("keys.o", "skin.cr"));
        const PlugDriver driver = driverOf("skin", "colorR");
        EXPECT_EQ(driver.kind, DriverKind::kDrivenKey) << type;
        EXPECT_EQ(curveOf(driver), "keys");
        EXPECT_FALSE(driver.isConstant); // only curves over time are asked
        EXPECT_TRUE(driver.isAnimated());
    }
}

TEST_F(PlugDriverSearch, AnExpressionAndAnyOtherConnection) {
    session.open(kSkin + nodeText("expression", "blink", "", "setAttr \".ixp\" -type \"string\" \".O[0]=frame\";") +
                 nodeText("checker", "squares") + connect("blink.out[0]", "skin.cr") +
                 connect("squares.oc", "skin.ambc"));
    EXPECT_EQ(driverOf("skin", "colorR").kind, DriverKind::kExpression);
    EXPECT_TRUE(driverOf("skin", "colorR").isAnimated());
    EXPECT_EQ(driverOf("skin", "ambientColorG").kind, DriverKind::kConnection);
    EXPECT_TRUE(driverOf("skin", "ambientColorG").isAnimated());
}

// --- constant curves

struct ConstantCase {
    const char* why;
    std::string attributes;
    bool isConstant;
};

class ConstantCurve : public PlugDriverSearch, public testing::WithParamInterface<ConstantCase> {};

TEST_P(ConstantCurve, HasEqualValuesAndFlatTangentsOrFewerThanTwoKeys) {
    session.open(kSkin + nodeText("animCurveTU", "keys", "", GetParam().attributes) + connect("keys.o", "skin.cr"));
    const PlugDriver driver = driverOf("skin", "colorR");
    EXPECT_EQ(driver.kind, DriverKind::kTimeCurve);
    EXPECT_EQ(driver.isConstant, GetParam().isConstant);
    EXPECT_EQ(driver.isAnimated(), !GetParam().isConstant);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ConstantCurve,
    testing::Values(
        ConstantCase{"no key", "setAttr \".wgt\" no;", true},
        ConstantCase{"one key", "setAttr \".wgt\" no; setAttr \".ktv[0]\"  1 0.5;", true},
        ConstantCase{"equal, flat", "setAttr \".tan\" 3; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  1 0.5 9 0.5;",
                     true},
        ConstantCase{"equal, stepped",
                     "setAttr \".tan\" 5; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  1 0.5 9 0.5;", true},
        ConstantCase{"different", "setAttr \".tan\" 3; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  1 0.5 9 0.75;",
                     false},
        ConstantCase{"equal, sloping between",
                     "setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  1 0.5 9 0.5;"
                     "setAttr -s 2 \".kit[0:1]\"  1 1; setAttr -s 2 \".kot[0:1]\"  1 1;"
                     "setAttr -s 2 \".kix[0:1]\"  0.8 0.8; setAttr -s 2 \".kiy[0:1]\"  0.6 0.6;"
                     "setAttr -s 2 \".kox[0:1]\"  0.8 0.8; setAttr -s 2 \".koy[0:1]\"  0.6 0.6;",
                     false}));

// --- what hands on

TEST_F(PlugDriverSearch, TheCompoundStandsInForItsChild) {
    session.open(kSkin + nodeText("checker", "squares") + connect("squares.oc", "skin.c"));
    EXPECT_EQ(driverOf("skin", "colorB").kind, DriverKind::kConnection);
}

TEST_F(PlugDriverSearch, OfACompoundSourceTheMatchingChildIsFollowed) {
    session.open(nodeText("transform", "a") + curve("y", "1 0 10 1", "animCurveTA") + rotationLayer("turn") +
                 connect("turn.o", "a.r") + connect("y.o", "turn.iby"));
    expectCurve(driverOf("a", "rotateY"), "y");
    EXPECT_EQ(driverOf("a", "rotateX").kind, DriverKind::kNone);
}

TEST_F(PlugDriverSearch, ItsOwnSourceComesBeforeTheCompounds) {
    session.open(kSkin + nodeText("checker", "squares") + curve("red") + connect("red.o", "skin.cr") +
                 connect("squares.oc", "skin.c"));
    expectCurve(driverOf("skin", "colorR"), "red");
    EXPECT_EQ(driverOf("skin", "colorG").kind, DriverKind::kConnection);
}

TEST_F(PlugDriverSearch, UnitConversions) {
    session.open(nodeText("place2dTexture", "place") + curve("turn") +
                 nodeText("unitConversion", "toRadians", "", "setAttr \".cf\" 0.017453292519943295;") +
                 connect("turn.o", "toRadians.i") + connect("toRadians.o", "place.rf"));
    expectCurve(driverOf("place", "rotateFrame"), "turn");
}

TEST_F(PlugDriverSearch, TimeConversions) {
    session.open(nodeText("transform", "a") + curve("keys") + nodeText("timeToUnitConversion", "toUnit") +
                 nodeText("unitToTimeConversion", "toTime") + connect("keys.o", "toTime.i") +
                 connect("toTime.o", "toUnit.i") + connect("toUnit.o", "a.tx"));
    expectCurve(driverOf("a", "translateX"), "keys");
}

TEST_F(PlugDriverSearch, CharactersOfCharacters) {
    session.open(nodeText("transform", "a") + curve("first", "1 0 10 1", "animCurveTL") +
                 curve("second", "1 0 10 1", "animCurveTL") + nodeText("character", "arm") +
                 nodeText("character", "body") + connect("first.o", "body.lv[1]") + connect("second.o", "body.lv[2]") +
                 connect("body.lv[1]", "arm.lv[1]") + connect("body.lv[2]", "arm.lv[2]") +
                 connect("arm.lv[1]", "a.tx") + connect("arm.lv[2]", "a.ty") + connect("arm.lv[3]", "a.tz"));
    expectCurve(driverOf("a", "translateX"), "first");
    expectCurve(driverOf("a", "translateY"), "second");
    EXPECT_EQ(driverOf("a", "translateZ").kind, DriverKind::kNone); // the character holds a still value
}

TEST_F(PlugDriverSearch, ClipsOfACharacter) {
    session.open(nodeText("transform", "a") + nodeText("character", "body") + nodeText("clipScheduler", "clips") +
                 connect("clips.ce", "body.cer") + connect("body.lv[1]", "a.tx"));
    EXPECT_EQ(driverOf("a", "translateX").kind, DriverKind::kConnection);
    EXPECT_TRUE(driverOf("a", "translateX").isAnimated());
    EXPECT_EQ(driverOf("a", "translateY").kind, DriverKind::kNone);
}

TEST_F(PlugDriverSearch, BothInputsOfAPairBlendByTheirChannel) {
    session.open(nodeText("transform", "a") + curve("still", "1 1 10 1") + curve("moving") + curve("turning") +
                 nodeText("pairBlend", "blend") + connect("blend.otx", "a.tx") + connect("blend.oty", "a.ty") +
                 connect("blend.orz", "a.rz") + connect("still.o", "blend.itx1") + connect("moving.o", "blend.itx2") +
                 connect("still.o", "blend.ity1") + connect("turning.o", "blend.irz2"));
    expectCurve(driverOf("a", "translateX"), "moving"); // the first that is animated
    const PlugDriver y = driverOf("a", "translateY");
    EXPECT_EQ(curveOf(y), "still");
    EXPECT_FALSE(y.isAnimated());
    expectCurve(driverOf("a", "rotateZ"), "turning");
}

TEST_F(PlugDriverSearch, AnimationLayers) {
    session.open(kSkin + nodeText("transform", "a") + curve("base") + curve("layer", "1 1 10 1") +
                 curve("turnY", "1 0 10 1", "animCurveTA") + layer("mix") + rotationLayer("turn") +
                 connect("mix.o", "skin.cr") + connect("layer.o", "mix.ia") + connect("base.o", "mix.ib") +
                 connect("turn.oy", "a.ry") + connect("turn.ox", "a.rx") + connect("turnY.o", "turn.iay"));
    expectCurve(driverOf("skin", "colorR"), "base");
    expectCurve(driverOf("a", "rotateY"), "turnY");
    EXPECT_EQ(driverOf("a", "rotateX").kind, DriverKind::kNone);
}

TEST_F(PlugDriverSearch, WhatOnlyHandsOnDrivesNothing) {
    session.open(nodeText("place2dTexture", "place") + nodeText("unitConversion", "loose") +
                 connect("loose.o", "place.rf"));
    EXPECT_EQ(driverOf("place", "rotateFrame").kind, DriverKind::kNone);
}

// --- broken graphs

TEST_F(PlugDriverSearch, EndsOnCycles) {
    session.open(nodeText("place2dTexture", "place") + nodeText("unitConversion", "one") +
                 nodeText("unitConversion", "two") + nodeText("pairBlend", "blend") + connect("one.o", "place.rf") +
                 connect("two.o", "one.i") + connect("one.o", "two.i") + connect("blend.otx", "blend.itx1") +
                 connect("blend.otx", "blend.itx2") + connect("blend.otx", "place.ofu"));
    EXPECT_EQ(driverOf("place", "rotateFrame").kind, DriverKind::kNone);
    EXPECT_EQ(driverOf("place", "offsetU").kind, DriverKind::kNone);
}

// Every blend doubles the ways to the curve, so walking them all would take 2^40 steps.
TEST_F(PlugDriverSearch, BlendsOfBlendsAreLookedAtOnce) {
    std::string scene = nodeText("transform", "a") + curve("still", "1 1 10 1");
    std::string source = "still.o";
    for (int i = 0; i < 40; ++i) {
        const std::string name = "blend" + std::to_string(i);
        scene += nodeText("pairBlend", name) + connect(source, name + ".itx1") + connect(source, name + ".itx2");
        source = name + ".otx";
    }
    session.open(scene + connect(source, "a.tx"));
    EXPECT_EQ(curveOf(driverOf("a", "translateX")), "still");
}

TEST_F(PlugDriverSearch, APlugOfADeletedNodeIsDrivenByNothing) {
    session.open(kSkin + curve("red") + connect("red.o", "skin.cr"));
    const MPlug plug = findPlug(MFnDependencyNode(session.node("skin")), "colorR");
    session.mel("delete skin");
    EXPECT_EQ(findDriver(plug).kind, DriverKind::kNone);
}

} // namespace
} // namespace tvk
