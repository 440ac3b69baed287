#include "host/nodes/animCurve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace host {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

CurveKey key(double input, double value, TangentType type) {
    return {input, value, type, type, {}, {}};
}

CurveDescription curveOf(std::vector<CurveKey> keys) {
    CurveDescription description;
    description.keys = std::move(keys);
    return description;
}

double valueAt(const CurveDescription& description, double input) {
    return AnimCurve(description).value(input);
}

/// Slope of the curve right behind an input, by difference.
double slopeAfter(const CurveDescription& description, double input) {
    const AnimCurve curve(description);
    constexpr double kStep = 1e-6;
    return (curve.value(input + kStep) - curve.value(input)) / kStep;
}

double slopeBefore(const CurveDescription& description, double input) {
    const AnimCurve curve(description);
    constexpr double kStep = 1e-6;
    return (curve.value(input) - curve.value(input - kStep)) / kStep;
}

TEST(AnimCurve, TakesUnknownCodesAsAutoAndConstant) {
    for (const double code : {0.0, 18.0, 28.0, -1.0, 8.0, 1e9, kNoNumber}) {
        EXPECT_EQ(tangentTypeOf(code), TangentType::kAuto) << code;
    }
    for (const double code : {0.0, 2.0, 6.0, -1.0, kNoNumber}) {
        EXPECT_EQ(curveInfinityOf(code), CurveInfinity::kConstant) << code;
    }
    EXPECT_EQ(tangentTypeOf(17.0), TangentType::kStepNext);
    EXPECT_EQ(curveInfinityOf(4.0), CurveInfinity::kCycleRelative);
}

TEST(AnimCurve, IsZeroWithoutKeysAndConstantWithOne) {
    EXPECT_EQ(valueAt({}, 3.0), 0.0);
    CurveDescription one = curveOf({key(2, 7, TangentType::kLinear)});
    one.before = CurveInfinity::kLinear;
    one.after = CurveInfinity::kCycle;
    for (const double input : {-5.0, 2.0, 9.0, kNoNumber, kInfinite, -kInfinite}) {
        EXPECT_EQ(valueAt(one, input), 7.0) << input;
    }
}

TEST(AnimCurve, GivesAnEndForInputsThatAreNoNumbers) {
    CurveDescription curve = curveOf({key(0, 1, TangentType::kLinear), key(2, 5, TangentType::kLinear)});
    for (const CurveInfinity infinity : {CurveInfinity::kConstant, CurveInfinity::kLinear, CurveInfinity::kCycle,
                                         CurveInfinity::kCycleRelative, CurveInfinity::kOscillate}) {
        curve.before = curve.after = infinity;
        EXPECT_EQ(valueAt(curve, kNoNumber), 1.0);
        EXPECT_EQ(valueAt(curve, kInfinite), 5.0);
        EXPECT_EQ(valueAt(curve, -kInfinite), 1.0);
        EXPECT_TRUE(std::isfinite(valueAt(curve, 1e300)));
    }
}

TEST(AnimCurve, SortsItsKeysAndTakesTheLastOfEqualInputs) {
    const CurveDescription curve = curveOf({key(4, 40, TangentType::kLinear), key(0, 0, TangentType::kLinear),
                                            key(2, 99, TangentType::kLinear), key(2, 10, TangentType::kLinear)});
    EXPECT_EQ(valueAt(curve, 0), 0.0);
    EXPECT_EQ(valueAt(curve, 1), 5.0);
    EXPECT_EQ(valueAt(curve, 2), 10.0);
    EXPECT_EQ(valueAt(curve, 3), 25.0);
    EXPECT_EQ(valueAt(curve, 4), 40.0);
}

TEST(AnimCurve, HoldsStepsUntilTheNextKeyAndJumpsAheadAfterStepNext) {
    CurveDescription curve = curveOf({key(1, 1, TangentType::kStep), key(10, 0, TangentType::kStep),
                                      key(20, 3, TangentType::kStepNext), key(30, 8, TangentType::kStep)});
    EXPECT_EQ(valueAt(curve, 9.999), 1.0);
    EXPECT_EQ(valueAt(curve, 10), 0.0);
    EXPECT_EQ(valueAt(curve, 19.5), 0.0);
    EXPECT_EQ(valueAt(curve, 20), 3.0);
    EXPECT_EQ(valueAt(curve, 20.001), 8.0);
    EXPECT_EQ(valueAt(curve, 30), 8.0);
}

struct SlopeRow {
    TangentType type;
    double before, after; // at the middle key
};

// Keys (0, 0), (1, 1), (3, 7): slopes 1 and 3 to the neighbours, 7/3 between them; three times the smaller is 3.
TEST(AnimCurve, WorksOutTheSlopesOfEachType) {
    const SlopeRow rows[] = {
        {TangentType::kLinear, 1, 3},
        {TangentType::kFlat, 0, 0},
        {TangentType::kSlow, 0, 0},
        {TangentType::kFast, 0, 0},
        {TangentType::kSpline, 7.0 / 3, 7.0 / 3},
        {TangentType::kSmooth, 7.0 / 3, 7.0 / 3},
        {TangentType::kClamped, 7.0 / 3, 7.0 / 3},
        {TangentType::kPlateau, 7.0 / 3, 7.0 / 3},
        {TangentType::kAuto, 7.0 / 3, 7.0 / 3},
        {TangentType::kGlobal, 7.0 / 3, 7.0 / 3},
    };
    for (const SlopeRow& row : rows) {
        const CurveDescription curve =
            curveOf({key(0, 0, TangentType::kFlat), key(1, 1, row.type), key(3, 7, TangentType::kFlat)});
        EXPECT_NEAR(slopeBefore(curve, 1), row.before, 1e-4) << static_cast<int>(row.type);
        EXPECT_NEAR(slopeAfter(curve, 1), row.after, 1e-4) << static_cast<int>(row.type);
    }
}

TEST(AnimCurve, LimitsAutoTangentsAndMakesThemFlatAtExtrema) {
    // Slopes 0.1 and 10: between the neighbours 5.05, limited to 0.3.
    const CurveDescription steep =
        curveOf({key(0, 0, TangentType::kFlat), key(1, 0.1, TangentType::kAuto), key(2, 10.1, TangentType::kFlat)});
    EXPECT_NEAR(slopeAfter(steep, 1), 0.3, 1e-4);
    const CurveDescription peak =
        curveOf({key(0, 0, TangentType::kFlat), key(1, 5, TangentType::kAuto), key(2, 1, TangentType::kFlat)});
    EXPECT_NEAR(slopeBefore(peak, 1), 0.0, 1e-4);
    const CurveDescription level =
        curveOf({key(0, 5, TangentType::kFlat), key(1, 5, TangentType::kAuto), key(2, 9, TangentType::kFlat)});
    EXPECT_NEAR(slopeAfter(level, 1), 0.0, 1e-4);
}

// Tangents that the host itself stored for automatic keys, value per second, with frames at 24 a second.
TEST(AnimCurve, AgreesWithAutoTangentsThatWereStored) {
    struct Row {
        double frames[3], values[3], slope;
    };
    const Row rows[] = {
        {{36, 48, 72}, {-20.75876114590602, -5.526057950424374, 0}, 0.99739952295263012 / 0.072070740344926665},
        {{10, 20, 30}, {1, 0, -1}, -0.92307692307692313 / 0.38461538461538458},
    };
    for (const Row& row : rows) {
        CurveDescription curve;
        for (int i = 0; i < 3; ++i) {
            curve.keys.push_back(key(row.frames[i] / 24, row.values[i], TangentType::kAuto));
        }
        EXPECT_NEAR(slopeAfter(curve, row.frames[1] / 24), row.slope, 1e-3);
        EXPECT_NEAR(slopeBefore(curve, row.frames[1] / 24), row.slope, 1e-3);
    }
}

TEST(AnimCurve, IsFlatAtTheEndsWithAutoOnly) {
    struct Row {
        TangentType type;
        double slope;
    };
    const Row rows[] = {{TangentType::kAuto, 0},    {TangentType::kPlateau, 2}, {TangentType::kSpline, 2},
                        {TangentType::kClamped, 2}, {TangentType::kLinear, 2},  {TangentType::kFlat, 0}};
    for (const Row& row : rows) {
        const CurveDescription curve = curveOf({key(0, 10, row.type), key(1, 12, row.type)});
        EXPECT_NEAR(slopeAfter(curve, 0), row.slope, 1e-4) << static_cast<int>(row.type);
        EXPECT_NEAR(slopeBefore(curve, 1), row.slope, 1e-4) << static_cast<int>(row.type);
    }
}

TEST(AnimCurve, KeepsClampedKeysFlatBesideNearlyEqualOnes) {
    const CurveDescription curve =
        curveOf({key(0, 10, TangentType::kFlat), key(1, 10.1, TangentType::kClamped), key(2, 30, TangentType::kFlat)});
    EXPECT_NEAR(slopeAfter(curve, 1), 0.0, 1e-4);
}

TEST(AnimCurve, FollowsFixedTangentsPerUnitOfX) {
    CurveDescription curve = curveOf({key(0, 0, TangentType::kFixed), key(48, 10, TangentType::kFixed)});
    curve.inputPerX = 24; // say inputs are frames, tangents per second
    curve.keys[0].out = {0.6, 0.8};
    curve.keys[1].in = {1, 0};
    // Two seconds: u = 0.5 gives 10/2 + 2 * (4/3) / 8.
    EXPECT_NEAR(valueAt(curve, 24), 5.0 + 2.0 * (0.8 / 0.6) / 8.0, 1e-12);
    curve.valuePerY = 3;
    EXPECT_NEAR(valueAt(curve, 24), 5.0 + 3.0 * 2.0 * (0.8 / 0.6) / 8.0, 1e-12);
}

TEST(AnimCurve, TakesAVerticalFixedTangentAsVerySteepAndAMissingOneAsFlat) {
    CurveDescription curve = curveOf({key(0, 0, TangentType::kFixed), key(1, 0, TangentType::kFixed)});
    EXPECT_EQ(valueAt(curve, 0.5), 0.0);
    curve.keys[0].out = {0, -1};
    EXPECT_NEAR(valueAt(curve, 0.5), -5729577.95 / 8, 1.0);
}

TEST(AnimCurve, IsACubicBetweenKeys) {
    // Both flat: 3u^2 - 2u^3.
    const CurveDescription curve = curveOf({key(0, 0, TangentType::kFlat), key(4, 8, TangentType::kFlat)});
    EXPECT_DOUBLE_EQ(valueAt(curve, 1), 8 * (3.0 / 16 - 2.0 / 64));
    EXPECT_DOUBLE_EQ(valueAt(curve, 2), 4.0);
    EXPECT_DOUBLE_EQ(valueAt(curve, 3), 8 * (27.0 / 16 - 54.0 / 64));
}

TEST(AnimCurve, IsTheSameWeightedWhenTangentsAreAsLongAsTheirSegment) {
    CurveDescription plain = curveOf({key(0, 0, TangentType::kFixed), key(3, 6, TangentType::kFixed)});
    plain.keys[0].out = {3, 9};
    plain.keys[1].in = {3, -3};
    CurveDescription weighted = plain;
    weighted.weighted = true;
    for (double input = 0; input <= 3; input += 0.25) {
        EXPECT_NEAR(valueAt(weighted, input), valueAt(plain, input), 1e-12) << input;
    }
}

TEST(AnimCurve, SolvesTheBezierOfWeightedTangents) {
    CurveDescription curve = curveOf({key(0, 0, TangentType::kFixed), key(1, 1, TangentType::kFixed)});
    curve.weighted = true;
    curve.keys[0].out = {0, 0.9}; // control points (0, 0.3) and (1, 0.7): at s = 0.25 x = 0.15625, y = 0.25 + …
    curve.keys[1].in = {0, 0.9};
    const double s = 0.25;
    const double x = 3 * (1 - s) * s * s + s * s * s;
    const double y = 3 * (1 - s) * (1 - s) * s * 0.3 + 3 * (1 - s) * s * s * 0.7 + s * s * s;
    EXPECT_NEAR(valueAt(curve, x), y, 1e-12);
    EXPECT_NEAR(valueAt(curve, 0.5), 0.5, 1e-12);
}

TEST(AnimCurve, ShortensWeightedTangentsThatReachBeyondTheirSegment) {
    CurveDescription fits = curveOf({key(0, 0, TangentType::kFixed), key(1, 1, TangentType::kFixed)});
    fits.weighted = true;
    fits.keys[0].out = {3, 3};
    fits.keys[1].in = {3, 0};
    CurveDescription reaches = fits;
    reaches.keys[0].out = {30, 30};
    reaches.keys[1].in = {600, 0};
    for (double input = 0; input <= 1; input += 0.125) {
        EXPECT_NEAR(valueAt(reaches, input), valueAt(fits, input), 1e-12) << input;
    }
}

TEST(AnimCurve, MakesWeightedTangentsThatAreNotStored) {
    CurveDescription weighted = curveOf({key(0, 3, TangentType::kAuto), key(5, -4, TangentType::kSpline),
                                         key(9, 0.5, TangentType::kLinear), key(12, 8, TangentType::kFlat)});
    CurveDescription plain = weighted;
    weighted.weighted = true;
    for (double input = 0; input <= 12; input += 0.5) {
        EXPECT_NEAR(valueAt(weighted, input), valueAt(plain, input), 1e-12) << input;
    }
}

struct InfinityRow {
    CurveInfinity infinity;
    double input, value;
};

// Keys (10, 1) and (14, 3), linear: slope 0.5, a period of 4, a rise of 2.
TEST(AnimCurve, GoesOnOutsideItsKeysAsToldBeforeAndAfter) {
    const InfinityRow rows[] = {
        {CurveInfinity::kConstant, 6, 1},         {CurveInfinity::kConstant, 20, 3},
        {CurveInfinity::kLinear, 6, -1},          {CurveInfinity::kLinear, 20, 6},
        {CurveInfinity::kCycle, 15, 1.5},         {CurveInfinity::kCycle, 18, 1},
        {CurveInfinity::kCycle, 9, 2.5},          {CurveInfinity::kCycle, 6, 1},
        {CurveInfinity::kCycle, 35, 1.5},         {CurveInfinity::kCycleRelative, 15, 3.5},
        {CurveInfinity::kCycleRelative, 18, 5},   {CurveInfinity::kCycleRelative, 9, 0.5},
        {CurveInfinity::kCycleRelative, 1, -3.5}, {CurveInfinity::kOscillate, 15, 2.5},
        {CurveInfinity::kOscillate, 18, 1},       {CurveInfinity::kOscillate, 19, 1.5},
        {CurveInfinity::kOscillate, 9, 1.5},      {CurveInfinity::kOscillate, 5, 2.5},
    };
    for (const InfinityRow& row : rows) {
        CurveDescription curve = curveOf({key(10, 1, TangentType::kLinear), key(14, 3, TangentType::kLinear)});
        (row.input < 10 ? curve.before : curve.after) = row.infinity;
        EXPECT_DOUBLE_EQ(valueAt(curve, row.input), row.value) << static_cast<int>(row.infinity) << " at " << row.input;
        (row.input < 10 ? curve.before : curve.after) = CurveInfinity::kConstant;
        (row.input < 10 ? curve.after : curve.before) = row.infinity;
        EXPECT_EQ(valueAt(curve, row.input), row.input < 10 ? 1.0 : 3.0) << "the other end's infinity must not count";
    }
}

TEST(AnimCurve, ExtendsLinearlyByTheTangentsOfTheEnds) {
    CurveDescription curve = curveOf({key(0, 0, TangentType::kFlat), key(1, 1, TangentType::kSpline)});
    curve.keys[0].inType = TangentType::kFixed;
    curve.keys[0].in = {1, 4};
    curve.before = curve.after = CurveInfinity::kLinear;
    EXPECT_DOUBLE_EQ(valueAt(curve, -2), -8.0);
    EXPECT_DOUBLE_EQ(valueAt(curve, 3), 3.0);
}

// The two ways of a key are told apart: in one, out another.
TEST(AnimCurve, HasOneTypeOnEachSideOfAKey) {
    CurveDescription curve =
        curveOf({key(0, 0, TangentType::kLinear), key(1, 4, TangentType::kLinear), key(2, 0, TangentType::kLinear)});
    curve.keys[1].outType = TangentType::kStep;
    EXPECT_EQ(valueAt(curve, 0.5), 2.0);
    EXPECT_EQ(valueAt(curve, 1.75), 4.0);
    EXPECT_EQ(valueAt(curve, 2), 0.0);
    curve.keys[1].outType = TangentType::kFlat;
    // 4 (1 - (3u^2 - 2u^3)), with a slope of -4 at the end: u = 0.5 gives 2 + 4 / 8.
    EXPECT_NEAR(valueAt(curve, 1.5), 2.5, 1e-12);
}

// A step in is a way in like any other: flat. Only the way out of the key before holds.
TEST(AnimCurve, ReachesStepKeysFlatWhenTheKeyBeforeDoesNotHold) {
    CurveDescription curve = curveOf({key(0, 0, TangentType::kFlat), key(1, 8, TangentType::kStep)});
    EXPECT_NEAR(valueAt(curve, 0.5), 4.0, 1e-12);
    EXPECT_NEAR(slopeBefore(curve, 1), 0.0, 1e-4);
}

TEST(AnimCurve, RepeatsStepsInCycles) {
    CurveDescription curve =
        curveOf({key(0, 1, TangentType::kStep), key(1, 2, TangentType::kStepNext), key(2, 5, TangentType::kStep)});
    curve.before = curve.after = CurveInfinity::kCycle;
    EXPECT_EQ(valueAt(curve, 2.5), 1.0);
    EXPECT_EQ(valueAt(curve, 3), 2.0);
    EXPECT_EQ(valueAt(curve, 3.5), 5.0);
    EXPECT_EQ(valueAt(curve, -1.5), 1.0);
    EXPECT_EQ(valueAt(curve, -0.5), 5.0);
}

} // namespace
} // namespace host
