#include <maya/MFnAnimCurve.h>

#include "HostTest.h"

#include <cmath>

namespace host {
namespace {

constexpr double kDegrees = 57.29577951308232;

class MFnAnimCurveTest : public HostTest {
protected:
    MFnAnimCurveTest() { run("currentUnit -t film"); }

    MFnAnimCurve& attach(const char* name) {
        EXPECT_EQ(curve.setObject(node(name)), MStatus::kSuccess);
        return curve;
    }

    static MTime frame(double number) { return MTime(number, MTime::kFilm); }

    MFnAnimCurve curve;
    MStatus status;
};

TEST_F(MFnAnimCurveTest, attachesOnlyToCurves) {
    run("createNode transform -n t");
    const MFnAnimCurve onTransform(node("t"), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_EQ(onTransform.numKeys(&status), 0U);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(onTransform.animCurveType(&status), MFnAnimCurve::kAnimCurveUnknown);
    EXPECT_EQ(status, MStatus::kFailure);
    onTransform.evaluate(frame(1), &status);
    EXPECT_EQ(status, MStatus::kFailure);
    onTransform.findClosest(frame(1), &status);
    EXPECT_EQ(status, MStatus::kFailure);
}

struct TypeRow {
    const char* type;
    MFnAnimCurve::AnimCurveType number;
    bool isTimed;
};

constexpr TypeRow kTypes[] = {
    {"animCurveTA", MFnAnimCurve::kAnimCurveTA, true},  {"animCurveTL", MFnAnimCurve::kAnimCurveTL, true},
    {"animCurveTT", MFnAnimCurve::kAnimCurveTT, true},  {"animCurveTU", MFnAnimCurve::kAnimCurveTU, true},
    {"animCurveUA", MFnAnimCurve::kAnimCurveUA, false}, {"animCurveUL", MFnAnimCurve::kAnimCurveUL, false},
    {"animCurveUT", MFnAnimCurve::kAnimCurveUT, false}, {"animCurveUU", MFnAnimCurve::kAnimCurveUU, false},
};

TEST_F(MFnAnimCurveTest, kindsOfCurves) {
    for (const TypeRow& row : kTypes) {
        run(std::string("createNode ") + row.type + " -n c_" + row.type);
        attach((std::string("c_") + row.type).c_str());
        EXPECT_EQ(curve.animCurveType(), row.number) << row.type;
        EXPECT_EQ(curve.isTimeInput(), row.isTimed) << row.type;
        EXPECT_EQ(curve.isUnitlessInput(), !row.isTimed) << row.type;
        EXPECT_EQ(curve.numKeys(), 0U);
        EXPECT_TRUE(curve.isStatic()) << "nothing moves";
        curve.findClosest(frame(0), &status);
        EXPECT_NE(status, MStatus::kSuccess) << "no keys";
    }
}

TEST_F(MFnAnimCurveTest, keysAreInOrderAndInInternalUnits) {
    run("createNode animCurveTA -n a; setAttr a.wgt no; setAttr a.tan 2; setAttr \"a.ktv[0]\" 10 90;"
        "setAttr \"a.ktv[1]\" 0 0; setAttr \"a.ktv[5]\" 24 180; setAttr \"a.kbd[1]\" 1; setAttr \"a.ktl[0]\" 0;"
        "setAttr \"a.kwl[5]\" 0");
    attach("a");
    ASSERT_EQ(curve.numKeys(), 3U);
    EXPECT_EQ(curve.numKeyframes(), 3U);
    EXPECT_EQ(curve.time(0).as(MTime::kFilm), 0.0);
    EXPECT_EQ(curve.time(1).as(MTime::kFilm), 10.0);
    EXPECT_EQ(curve.time(2).as(MTime::kSeconds), 1.0);
    EXPECT_NEAR(curve.value(1), 90 / kDegrees, 1e-12);
    EXPECT_TRUE(curve.isBreakdown(0) && !curve.isBreakdown(1)) << "by key, not by index in the file";
    EXPECT_TRUE(curve.tangentsLocked(0) && !curve.tangentsLocked(1));
    EXPECT_TRUE(curve.weightsLocked(0) && !curve.weightsLocked(2));
    EXPECT_FALSE(curve.isWeighted());
    EXPECT_NEAR(curve.evaluate(frame(5)), 45 / kDegrees, 1e-12);
    double value = 0.0;
    EXPECT_EQ(curve.evaluate(frame(17), value), MStatus::kSuccess);
    EXPECT_NEAR(value, 135 / kDegrees, 1e-12);
    EXPECT_FALSE(curve.isStatic());
}

TEST_F(MFnAnimCurveTest, keysThatDoNotExistFail) {
    run("createNode animCurveTL -n a; setAttr \"a.ktv[0]\" 0 1");
    attach("a");
    curve.time(1, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    curve.value(7, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    curve.inTangentType(1, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    double x = 5.0;
    double y = 6.0;
    EXPECT_EQ(curve.getTangent(1, x, y, true), MStatus::kInvalidParameter);
    EXPECT_TRUE(x == 5.0 && y == 6.0);
    curve.unitlessInput(0, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter) << "its keys stand at times";
    EXPECT_EQ(curve.evaluate(1.0, x), MStatus::kInvalidParameter);
    MTime time;
    EXPECT_EQ(curve.evaluate(frame(1), time), MStatus::kInvalidParameter) << "it gives distances";
}

TEST_F(MFnAnimCurveTest, drivenKeysAreAskedByNumber) {
    run("createNode animCurveUU -n u; setAttr u.tan 2; setAttr \"u.ktv[0:1]\" 0 1 2 5");
    attach("u");
    EXPECT_EQ(curve.unitlessInput(1), 2.0);
    double value = 0.0;
    EXPECT_EQ(curve.evaluate(1.0, value), MStatus::kSuccess);
    EXPECT_EQ(value, 3.0);
    EXPECT_EQ(curve.findClosest(1.5), 1U);
    EXPECT_EQ(curve.evaluate(frame(1), value), MStatus::kInvalidParameter);
    curve.time(0, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    curve.findClosest(frame(1), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MFnAnimCurveTest, curvesMayGiveTimes) {
    run("createNode animCurveTT -n t; setAttr t.tan 2; setAttr \"t.ktv[0:1]\" 0 0 24 48;"
        "createNode animCurveUT -n u; setAttr u.tan 2; setAttr \"u.ktv[0:1]\" 0 0 1 24");
    MTime time;
    EXPECT_EQ(attach("t").evaluate(frame(12), time), MStatus::kSuccess);
    EXPECT_EQ(time.as(MTime::kFilm), 24.0);
    EXPECT_EQ(curve.value(1), 2.0) << "seconds";
    double x = 0.0;
    double y = 0.0;
    EXPECT_EQ(curve.getTangent(0, x, y, false), MStatus::kSuccess);
    EXPECT_NEAR(y / x, 2.0, 1e-12) << "seconds per second";
    EXPECT_EQ(attach("u").evaluate(0.5, time), MStatus::kSuccess);
    EXPECT_EQ(time.as(MTime::kFilm), 12.0);
}

TEST_F(MFnAnimCurveTest, keysAreFoundByTime) {
    run("createNode animCurveTU -n a; setAttr \"a.ktv[0:2]\" 0 1 10 2 20 3");
    attach("a");
    unsigned int index = 9;
    EXPECT_TRUE(curve.find(frame(10), index, &status));
    EXPECT_EQ(index, 1U);
    EXPECT_FALSE(curve.find(frame(11), index, &status));
    EXPECT_EQ(status, MStatus::kSuccess);
    EXPECT_EQ(index, 1U);
    EXPECT_EQ(curve.findClosest(frame(14)), 1U);
    EXPECT_EQ(curve.findClosest(frame(15)), 1U) << "the earlier of two";
    EXPECT_EQ(curve.findClosest(frame(16)), 2U);
    EXPECT_EQ(curve.findClosest(frame(-100)), 0U);
}

struct TangentRow {
    int file; // the number in scene files
    MFnAnimCurve::TangentType api;
};

constexpr TangentRow kTangents[] = {
    {1, MFnAnimCurve::kTangentFixed},     {2, MFnAnimCurve::kTangentLinear},   {3, MFnAnimCurve::kTangentFlat},
    {5, MFnAnimCurve::kTangentStep},      {6, MFnAnimCurve::kTangentSlow},     {7, MFnAnimCurve::kTangentFast},
    {9, MFnAnimCurve::kTangentSmooth},    {10, MFnAnimCurve::kTangentClamped}, {16, MFnAnimCurve::kTangentPlateau},
    {17, MFnAnimCurve::kTangentStepNext}, {18, MFnAnimCurve::kTangentAuto},
};

TEST_F(MFnAnimCurveTest, tangentTypesHaveTheirOwnNumbers) {
    run("createNode animCurveTU -n a; setAttr \"a.ktv[0]\" 0 1");
    attach("a");
    for (const TangentRow& row : kTangents) {
        const std::string number = std::to_string(row.file);
        run("setAttr \"a.kit[0]\" " + number + "; setAttr \"a.kot[0]\" " + number);
        EXPECT_EQ(curve.inTangentType(0), row.api) << row.file;
        EXPECT_EQ(curve.outTangentType(0), row.api) << row.file;
    }
}

TEST_F(MFnAnimCurveTest, tangentsAreWorkedOut) {
    // From (0 s, 0) to (1 s, 3) to (2 s, 4): the spline through the middle key rises by 2 a second.
    run("createNode animCurveTL -n a; setAttr a.wgt no; setAttr a.tan 9; setAttr \"a.ktv[0:2]\" 0 0 24 3 48 4");
    attach("a");
    double x = 0.0;
    double y = 0.0;
    ASSERT_EQ(curve.getTangent(1, x, y, true), MStatus::kSuccess);
    EXPECT_NEAR(y / x, 2.0, 1e-12);
    EXPECT_NEAR(std::hypot(x, y), 1.0, 1e-12);
    float narrowX = 0.0F;
    float narrowY = 0.0F;
    ASSERT_EQ(curve.getTangent(0, narrowX, narrowY, false), MStatus::kSuccess);
    EXPECT_FLOAT_EQ(narrowY / narrowX, 3.0F);
    MAngle angle;
    double weight = 0.0;
    ASSERT_EQ(curve.getTangent(1, angle, weight, false), MStatus::kSuccess);
    EXPECT_NEAR(angle.asRadians(), std::atan(2.0), 1e-12);
    EXPECT_NEAR(weight, 1.0, 1e-12);
}

TEST_F(MFnAnimCurveTest, weightedTangentsKeepTheirLength) {
    run("createNode animCurveTL -n a; setAttr a.tan 1; setAttr \"a.ktv[0:1]\" 0 0 24 1; setAttr \"a.kox[0]\" 0.5;"
        "setAttr \"a.koy[0]\" 2; setAttr \"a.kix[1]\" 1; setAttr \"a.kiy[1]\" 0");
    attach("a");
    EXPECT_TRUE(curve.isWeighted());
    double x = 0.0;
    double y = 0.0;
    ASSERT_EQ(curve.getTangent(0, x, y, false), MStatus::kSuccess);
    EXPECT_NEAR(x, 0.5, 1e-12);
    EXPECT_NEAR(y, 2.0, 1e-12);
}

struct StaticRow {
    const char* what;
    const char* script;
    bool isStatic;
};

constexpr StaticRow kStatic[] = {
    {"equal values, level tangents", "setAttr c.tan 18; setAttr \"c.ktv[0:2]\" 0 3 5 3 9 3", true},
    {"one key", "setAttr c.tan 18; setAttr \"c.ktv[0]\" 0 3", true},
    {"two values", "setAttr c.tan 3; setAttr \"c.ktv[0:1]\" 0 3 5 4", false},
    {"steps", "setAttr c.tan 5; setAttr \"c.ktv[0:1]\" 0 3 5 4", false},
    {"equal values, but the curve swings out between them",
     "setAttr c.tan 1; setAttr \"c.ktv[0:1]\" 0 3 5 3; setAttr \"c.kox[0]\" 0.6; setAttr \"c.koy[0]\" 0.8", false},
};

TEST_F(MFnAnimCurveTest, staticCurves) {
    for (const StaticRow& row : kStatic) {
        host.scene().newScene();
        run("createNode animCurveTU -n c; setAttr c.wgt no");
        run(row.script);
        EXPECT_EQ(attach("c").isStatic(), row.isStatic) << row.what;
    }
}

TEST_F(MFnAnimCurveTest, infinities) {
    run("createNode animCurveTU -n c; setAttr \"c.ktv[0:1]\" 0 0 24 2; setAttr c.pre 4; setAttr c.pst 5");
    attach("c");
    EXPECT_EQ(curve.preInfinityType(), MFnAnimCurve::kCycleRelative);
    EXPECT_EQ(curve.postInfinityType(), MFnAnimCurve::kOscillate);
    run("setAttr c.pre 0; setAttr c.pst 1");
    EXPECT_EQ(curve.preInfinityType(), MFnAnimCurve::kConstant);
    EXPECT_EQ(curve.postInfinityType(), MFnAnimCurve::kLinear);
    run("setAttr c.pre 3");
    EXPECT_EQ(curve.preInfinityType(), MFnAnimCurve::kCycle);
}

} // namespace
} // namespace host
