#include "host/nodes/remapCompute.h"

#include "GraphFixture.h"

namespace host {
namespace {

class Remapping : public GraphFixture {
protected:
    void setPoint(Node& node, int index, double position, double value, double interpolation) {
        const std::string element = "value[" + std::to_string(index) + "]";
        set(node, element + ".value_Position", position);
        set(node, element + ".value_FloatValue", value);
        set(node, element + ".value_Interp", interpolation);
    }
};

TEST_F(Remapping, ClampHoldsEachComponent) {
    Node& node = make("clamp", "clamp1");
    set3(node, "min", -1, 0, 2);
    set3(node, "max", 1, 0, 3);
    set3(node, "input", -5, 5, 2.5);
    EXPECT_EQ(number(node, "opr"), -1.0);
    EXPECT_EQ(number(node, "opg"), 0.0);
    EXPECT_EQ(number(node, "opb"), 2.5);
}

TEST_F(Remapping, SetRangeMapsAndHoldsAtTheEnds) {
    Node& node = make("setRange", "range1");
    EXPECT_EQ(number(node, "outValueX"), 0.0) << "ranges without length";
    set(node, "oldMinX", 10);
    set(node, "oldMaxX", 20);
    set(node, "minX", -1);
    set(node, "maxX", 3);
    struct Row {
        double value, expected;
    };
    for (const Row& row : {Row{10, -1}, Row{12.5, 0}, Row{20, 3}, Row{5, -1}, Row{99, 3}}) {
        set(node, "valueX", row.value);
        EXPECT_EQ(number(node, "ox"), row.expected) << row.value;
    }
    set(node, "oldMaxX", 10);
    EXPECT_EQ(number(node, "ox"), 3.0) << "a step";
}

TEST_F(Remapping, RemapValueWithoutPointsIsAStraightLine) {
    Node& node = make("remapValue", "remap1");
    set(node, "inputMin", 2);
    set(node, "inputMax", 6);
    set(node, "outputMin", 10);
    set(node, "outputMax", 20);
    set(node, "inputValue", 3);
    EXPECT_EQ(number(node, "outValue"), 12.5);
    EXPECT_EQ(number(node, "outColorG"), 0.25);
    set(node, "inputValue", -3);
    EXPECT_EQ(number(node, "outValue"), 10.0);
    set(node, "inputValue", 300);
    EXPECT_EQ(number(node, "outValue"), 20.0);
    set(node, "inputMax", 2);
    EXPECT_EQ(number(node, "outValue"), 20.0);
}

struct RampRow {
    double interpolation, at, expected;
};

// Points (0.25, 1), (0.75, 3): the same before and behind, between them as the first says.
TEST_F(Remapping, RemapValueFollowsItsPoints) {
    Node& node = make("remapValue", "remap1");
    const RampRow rows[] = {
        {0, 0.5, 1},     {1, 0.5, 2}, {2, 0.5, 2}, {3, 0.5, 2}, {1, 0.375, 1.5}, {2, 0.375, 1.3125},
        {3, 0.375, 1.5}, // both slopes of the spline are the rise: a line
        {0, 0.1, 1},     {1, 0.1, 1}, {2, 0.9, 3}, {3, 1, 3},   {1, 0.25, 1},    {1, 0.75, 3},
    };
    for (const RampRow& row : rows) {
        setPoint(node, 7, 0.25, 1, row.interpolation); // order is by position, not by index
        setPoint(node, 2, 0.75, 3, row.interpolation);
        set(node, "inputValue", row.at);
        EXPECT_DOUBLE_EQ(number(node, "outValue"), row.expected) << row.interpolation << " at " << row.at;
    }
}

// (0, 0), (0.5, 1), (1, 0): the slope in the middle is 0, 2 at the start: with u = 0.5, 0.5 + 0.125 * 2 * 0.5.
TEST_F(Remapping, SplinesLookAtTheNeighbours) {
    Node& node = make("remapValue", "remap1");
    setPoint(node, 0, 0, 0, 3);
    setPoint(node, 1, 0.5, 1, 3);
    setPoint(node, 2, 1, 0, 3);
    set(node, "inputValue", 0.25);
    EXPECT_DOUBLE_EQ(number(node, "outValue"), 0.5 + 0.125 * 1.0);
}

TEST_F(Remapping, PointsAtOnePlaceAreAStep) {
    Node& node = make("remapValue", "remap1");
    setPoint(node, 0, 0.5, 1, 3);
    setPoint(node, 1, 0.5, 4, 3);
    for (const RampRow& row : {RampRow{3, 0.4, 1}, RampRow{3, 0.5, 4}, RampRow{3, 0.6, 4}}) {
        set(node, "inputValue", row.at);
        EXPECT_EQ(number(node, "outValue"), row.expected) << row.at;
    }
}

} // namespace
} // namespace host
