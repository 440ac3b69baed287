#include "host/nodes/keptValue.h"

#include "GraphFixture.h"

namespace host {
namespace {

class KeptValues : public GraphFixture {};

TEST_F(KeptValues, AreWhatTheDrivenChannelStores) {
    Node& constraint = make("pointConstraint", "constraint1");
    Node& held = make("transform", "held");
    EXPECT_EQ(keptValue(graph, plug(constraint, "ctx")), 0.0) << "nothing is driven";
    set3(held, "t", 1, 2, 3);
    connect(constraint, "ct", held, "t");
    EXPECT_EQ(keptValue(graph, plug(constraint, "cty")), 2.0) << "a part of a compound";
    Node& scaled = make("transform", "scaled");
    connect(constraint, "ctz", scaled, "sz");
    EXPECT_EQ(keptValue(graph, plug(constraint, "ctz")), 1.0) << "its own channel, which stores its default";
}

TEST_F(KeptValues, GoBackThroughUnitConversions) {
    Node& expression = make("expression", "expression1");
    Node& conversion = make("unitConversion", "conversion1");
    Node& joint = make("joint", "joint1");
    set(joint, "rx", 90 * kDegree);
    set(conversion, "cf", kDegree);
    connect(expression, "out[0]", conversion, "i");
    EXPECT_EQ(keptValue(graph, plug(expression, "out[0]")), 0.0);
    connect(conversion, "o", joint, "rx");
    EXPECT_NEAR(keptValue(graph, plug(expression, "out[0]")), 90.0, 1e-12);
    set(conversion, "cf", 0);
    EXPECT_EQ(keptValue(graph, plug(expression, "out[0]")), 0.0);
}

} // namespace
} // namespace host
