#include "host/nodes/curveCompute.h"

#include "GraphFixture.h"

#include "host/graph/Units.h"

namespace host {
namespace {

constexpr double kSecond = static_cast<double>(kTicksPerSecond);

class CurveNodes : public GraphFixture {
protected:
    Node& makeCurve(const char* type, std::initializer_list<std::pair<double, double>> keys) {
        Node& curve = make(type, "curve1");
        int index = 0;
        for (const auto& [input, value] : keys) {
            const std::string element = "ktv[" + std::to_string(index++) + "]";
            set(curve, element + ".kt", input);
            set(curve, element + ".kv", value);
        }
        return curve;
    }
};

TEST_F(CurveNodes, AreZeroWithoutKeys) {
    for (const char* type : {"animCurveTA", "animCurveTL", "animCurveTT", "animCurveTU", "animCurveUA", "animCurveUL",
                             "animCurveUT", "animCurveUU"}) {
        EXPECT_EQ(number(make(type, "empty"), "output"), 0.0) << type;
    }
}

TEST_F(CurveNodes, FollowTheCurrentTimeWhileNothingDrivesThem) {
    Node& curve = makeCurve("animCurveTL", {{0, 0}, {kSecond, 24}});
    set(curve, "tan", 2);
    Node& node = make("transform", "a");
    connect(curve, "o", node, "tx");
    EXPECT_EQ(number(node, "tx"), 0.0);
    graph.setTime(kTicksPerSecond / 2);
    EXPECT_EQ(number(node, "tx"), 12.0);
    graph.setTime(kTicksPerSecond * 2);
    EXPECT_EQ(number(node, "tx"), 24.0);
    EXPECT_EQ(matrix(node, "matrix")[3][0], 24.0);
}

TEST_F(CurveNodes, OverTimeCanBeDrivenByAnotherTime) {
    Node& curve = makeCurve("animCurveTU", {{0, 0}, {kSecond, 1}});
    set(curve, "tan", 2);
    Node& other = make("transform", "clock");
    Attribute dynamic;
    dynamic.longName = dynamic.shortName = "clockTime";
    dynamic.kind = AttrKind::kTime;
    ASSERT_NE(other.addAttribute(dynamic), kNoAttr);
    connect(other, "clockTime", curve, "input");
    set(other, "clockTime", kSecond / 4);
    graph.setTime(kTicksPerSecond);
    EXPECT_EQ(number(curve, "output"), 0.25);
}

TEST_F(CurveNodes, DrivenByANumberDoNotFollowTheTime) {
    Node& curve = makeCurve("animCurveUA", {{0, 0}, {10, 1}});
    set(curve, "tan", 2);
    graph.setTime(kTicksPerSecond * 5);
    EXPECT_EQ(number(curve, "output"), 0.0);
    Node& driver = make("transform", "a");
    connect(driver, "sx", curve, "input");
    set(driver, "sx", 5);
    EXPECT_DOUBLE_EQ(number(curve, "output"), 0.5);
}

struct KindRow {
    const char* type;
    bool isTimed; // the input
};

// Keys (0, 2), (10 or a second, 6), linear: in the middle 4, in what the output counts.
TEST_F(CurveNodes, OfAllEightKindsRunThroughTheirKeys) {
    const KindRow rows[] = {{"animCurveTA", true},  {"animCurveTL", true},  {"animCurveTT", true},
                            {"animCurveTU", true},  {"animCurveUA", false}, {"animCurveUL", false},
                            {"animCurveUT", false}, {"animCurveUU", false}};
    for (const KindRow& row : rows) {
        for (const double weighted : {0.0, 1.0}) {
            const double length = row.isTimed ? kSecond : 10;
            Node& curve = makeCurve(row.type, {{0, 2}, {length, 6}});
            set(curve, "tan", 2);
            set(curve, "wgt", weighted);
            set(curve, "pst", 4);
            const auto valueAt = [&](double part) {
                if (row.isTimed) {
                    graph.setTime(static_cast<Ticks>(part * kSecond));
                } else {
                    set(curve, "input", part * length);
                }
                return number(curve, "output");
            };
            EXPECT_NEAR(valueAt(0.5), 4.0, 1e-9) << row.type;
            EXPECT_EQ(valueAt(0), 2.0) << row.type;
            EXPECT_EQ(valueAt(1), 6.0) << row.type;
            EXPECT_EQ(valueAt(-1), 2.0) << row.type;
            EXPECT_NEAR(valueAt(2.25), 11.0, 1e-9) << row.type << ": two rises and a quarter";
        }
    }
}

TEST_F(CurveNodes, WithKeysAtOneTimeTakeTheLast) {
    Node& curve = makeCurve("animCurveTL", {{0, 0}, {kSecond, 8}, {kSecond, 3}, {kSecond * 2, 3}});
    set(curve, "tan", 2);
    graph.setTime(kTicksPerSecond);
    EXPECT_EQ(number(curve, "output"), 3.0);
    graph.setTime(kTicksPerSecond / 2);
    EXPECT_EQ(number(curve, "output"), 1.5);
}

TEST_F(CurveNodes, OfDrivenKeysFollowTheirDriverInInternalUnits) {
    Node& driver = make("joint", "driver");
    Node& driven = make("transform", "driven");
    Node& curve = makeCurve("animCurveUL", {{0, 0}, {90, 5}});
    Node& conversion = make("unitConversion", "conversion1");
    set(curve, "tan", 2);
    set(conversion, "cf", 1 / kDegree);
    connect(driver, "rz", conversion, "i");
    connect(conversion, "o", curve, "i");
    connect(curve, "o", driven, "ty");
    set(driver, "rz", 45 * kDegree);
    EXPECT_NEAR(number(driven, "ty"), 2.5, 1e-12);
    set(driver, "rz", 180 * kDegree);
    EXPECT_EQ(number(driven, "ty"), 5.0);
}

TEST_F(CurveNodes, TakeKeyTypesFromTheirListsAndOtherwiseFromTheCurve) {
    Node& curve = makeCurve("animCurveTL", {{0, 0}, {kSecond, 8}, {2 * kSecond, 0}});
    set(curve, "tan", 2);
    set(curve, "kot[1]", 5);
    graph.setTime(kTicksPerSecond / 4);
    EXPECT_EQ(number(curve, "output"), 2.0);
    graph.setTime(kTicksPerSecond * 3 / 2);
    EXPECT_EQ(number(curve, "output"), 8.0);
}

TEST_F(CurveNodes, CountTangentsPerSecondAndInTheUnitsInside) {
    // Angles: y of a tangent is in radians.
    Node& angle = makeCurve("animCurveTA", {{0, 0}, {2 * kSecond, 0}});
    set(angle, "wgt", 0);
    set(angle, "tan", 1);
    set(angle, "kox[0]", 0.6);
    set(angle, "koy[0]", 0.8);
    set(angle, "kix[1]", 1);
    graph.setTime(kTicksPerSecond);
    EXPECT_NEAR(number(angle, "output"), 2 * (0.8 / 0.6) / 8, 1e-7);
    // Times: y is in seconds.
    Node& time = makeCurve("animCurveTT", {{0, 0}, {2 * kSecond, 0}});
    set(time, "wgt", 0);
    set(time, "tan", 1);
    set(time, "kox[0]", 1);
    set(time, "koy[0]", 1);
    set(time, "kix[1]", 1);
    EXPECT_NEAR(number(time, "output") / kSecond, 2.0 / 8, 1e-7);
}

TEST_F(CurveNodes, AreExactOnKeysThatFramesReach) {
    Units units;
    units.framesPerSecond = 24;
    Node& curve = makeCurve("animCurveTL", {});
    for (int frame = 0; frame < 100; ++frame) {
        const std::string element = "ktv[" + std::to_string(frame) + "]";
        set(curve, element + ".kt", static_cast<double>(units.ticks(frame)));
        set(curve, element + ".kv", 0.1 * frame);
    }
    for (int frame = 0; frame < 100; ++frame) {
        graph.setTime(units.ticks(frame));
        EXPECT_EQ(number(curve, "output"), 0.1 * frame) << frame;
    }
}

TEST_F(CurveNodes, WorkOutTheirTangentsOnceForAllTimes) {
    Node& curve = makeCurve("animCurveTL", {{0, 0}, {kSecond, 8}});
    EXPECT_EQ(number(curve, "output"), 0.0);
    const std::size_t before = graph.computeCount();
    graph.setTime(100);
    number(curve, "output");
    EXPECT_EQ(graph.computeCount(), before + 1) << "the output alone";
    set(curve, "ktv[1].kv", 9);
    number(curve, "output");
    EXPECT_EQ(graph.computeCount(), before + 3) << "the curve and the output";
}

TEST_F(CurveNodes, ReachJointsThroughCharactersAndUnitConversions) {
    Node& curve = makeCurve("animCurveTA", {{0, 0.25}});
    Node& character = make("character", "character1");
    Node& joint = make("joint", "joint1");
    connect(curve, "o", character, "av[1]");
    connect(character, "av[1]", joint, "ry");
    set(character, "av[2]", 0.75);
    connect(character, "av[2]", joint, "rz");
    EXPECT_EQ(number(joint, "ry"), 0.25);
    EXPECT_EQ(number(joint, "rz"), 0.75) << "an element without a driver keeps its stored value";
}

} // namespace
} // namespace host
