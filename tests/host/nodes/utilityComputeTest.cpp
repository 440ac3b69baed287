#include "host/nodes/utilityCompute.h"

#include "GraphFixture.h"

#include "host/graph/Units.h"

namespace host {
namespace {

class Utilities : public GraphFixture {};

TEST_F(Utilities, ReverseSubtractsFromOne) {
    Node& node = make("reverse", "reverse1");
    EXPECT_EQ(number(node, "outputX"), 1.0);
    set3(node, "input", 0.25, 2, -1);
    EXPECT_EQ(number(node, "ox"), 0.75);
    EXPECT_EQ(number(node, "oy"), -1.0);
    EXPECT_EQ(number(node, "oz"), 2.0);
}

TEST_F(Utilities, AddAndMultiply) {
    Node& sum = make("addDoubleLinear", "add1");
    set(sum, "input1", 2);
    set(sum, "input2", 3);
    EXPECT_EQ(number(sum, "output"), 5.0);
    Node& product = make("multDoubleLinear", "mult1");
    set(product, "i1", 2);
    set(product, "i2", 3);
    EXPECT_EQ(number(product, "o"), 6.0);
}

TEST_F(Utilities, ConvertUnitsByTheirFactor) {
    Node& node = make("unitConversion", "unitConversion1");
    set(node, "input", 2);
    EXPECT_EQ(number(node, "output"), 2.0);
    set(node, "conversionFactor", 57.295779513082323);
    EXPECT_DOUBLE_EQ(number(node, "output"), 114.591559026164646);
}

// Factors as film scenes hold them: a frame is 250 of the 6000 parts of a second that they count in.
TEST_F(Utilities, ConvertBetweenTimeAndFrames) {
    Node& frames = make("timeToUnitConversion", "conversion1");
    set(frames, "cf", 0.004);
    graph.setTime(kTicksPerSecond / 2);
    EXPECT_NEAR(number(frames, "output"), 12.0, 1e-12) << "an input without a driver is the current time";
    Node& time = make("unitToTimeConversion", "conversion2");
    set(time, "cf", 250);
    set(time, "input", 12);
    EXPECT_NEAR(number(time, "output"), static_cast<double>(kTicksPerSecond) / 2, 1e-6);
}

} // namespace
} // namespace host
