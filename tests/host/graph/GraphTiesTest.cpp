#include "TinyTypes.h"

using namespace host;

namespace {

class GraphTies : public TinyScene {};

} // namespace

TEST_F(GraphTies, OverriddenPlugsReadAsTheirCauseWithoutAConnection) {
    Node& cause = make("adder", "cause");
    Node& follower = make("adder", "follower");
    set(cause, "in1", 3);
    set(follower, "in2", 10);
    graph.overrideValue(plug(cause, "sum"), plug(follower, "in1"));
    EXPECT_EQ(number(follower, "sum"), 13.0);
    EXPECT_FALSE(graph.sourceOf(plug(follower, "in1")));
    EXPECT_FALSE(graph.drivingSource(plug(follower, "in1")));
    EXPECT_FALSE(graph.isDriven(plug(follower, "in1")));
    EXPECT_TRUE(graph.destinationsOf(plug(cause, "sum")).empty());
    EXPECT_EQ(graph.valueSource(plug(follower, "in1")), plug(cause, "sum"));
    set(cause, "in1", 4);
    EXPECT_EQ(number(follower, "sum"), 14.0) << "what is cached must go";
}

TEST_F(GraphTies, WhatLiesBeneathCanBeSetConnectedAndRead) {
    Node& cause = make("adder", "cause");
    Node& follower = make("adder", "follower");
    Node& driver = make("adder", "driver");
    set(cause, "in1", 3);
    graph.overrideValue(plug(cause, "sum"), plug(follower, "in1"));
    set(follower, "in1", 7);
    EXPECT_EQ(number(follower, "in1"), 3.0);
    EXPECT_EQ(graph.numberBeneath(plug(follower, "in1")), 7.0);
    set(driver, "in1", 20);
    connect(driver, "sum", follower, "in1");
    EXPECT_EQ(number(follower, "in1"), 3.0);
    EXPECT_EQ(graph.numberBeneath(plug(follower, "in1")), 20.0);
    EXPECT_EQ(graph.numberBeneath({}), 0.0);
}

TEST_F(GraphTies, CompoundsAreOverriddenPartByPart) {
    Node& cause = make("adder", "cause");
    Node& follower = make("adder", "follower");
    set(cause, "vy", 5);
    graph.overrideValue(plug(cause, "v"), plug(follower, "v"));
    EXPECT_EQ(number(follower, "vy"), 5.0);
    EXPECT_EQ(number(follower, "sum"), 5.0);
    set(cause, "vz", 2);
    EXPECT_EQ(number(follower, "sum"), 7.0);
}

TEST_F(GraphTies, TheFirstOverrideCountsAndOneCanBeGivenTwice) {
    Node& first = make("adder", "first");
    Node& second = make("adder", "second");
    Node& follower = make("adder", "follower");
    set(first, "in1", 1);
    set(second, "in1", 2);
    for (int i = 0; i < 2; ++i) {
        graph.overrideValue(plug(first, "sum"), plug(follower, "in1"));
        graph.overrideValue(plug(second, "sum"), plug(follower, "in1"));
    }
    EXPECT_EQ(number(follower, "sum"), 1.0);
    graph.destroy(first);
    EXPECT_EQ(number(follower, "sum"), 0.0) << "what it stores";
}

TEST_F(GraphTies, FollowersOfATieChangeWithEveryPartOfTheCause) {
    Node& cause = make("adder", "cause");
    Node& follower = make("adder", "follower");
    graph.tie(plug(cause, "v"), plug(follower, "in1"));
    EXPECT_EQ(number(follower, "sum"), 0.0);
    EXPECT_TRUE(graph.isCached(plug(follower, "sum")));
    set(cause, "vz", 1);
    EXPECT_FALSE(graph.isCached(plug(follower, "sum"))) << "a part of the cause";
    number(follower, "sum");
    set(cause, "in2", 1);
    EXPECT_TRUE(graph.isCached(plug(follower, "sum"))) << "nothing of the cause";
}

TEST_F(GraphTies, TiesToAndFromTheSamePlugEndDropping) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    graph.tie(plug(a, "in1"), plug(b, "in1"));
    graph.tie(plug(b, "sum"), plug(a, "in2"));
    graph.overrideValue(plug(b, "twice"), plug(a, "in1"));
    graph.tie(plug(a, "in1"), plug(a, "in1"));
    set(b, "in1", 4);
    EXPECT_EQ(number(a, "sum"), 8.0);
    set(b, "in1", 5);
    EXPECT_EQ(number(a, "sum"), 10.0);
}

TEST_F(GraphTies, OverridesInACycleEndWithOneWarning) {
    Node& b = make("adder", "b");
    Node& c = make("adder", "c");
    connect(b, "in1", c, "in1");
    graph.overrideValue(plug(c, "in1"), plug(b, "in1"));
    EXPECT_EQ(number(c, "sum"), 0.0);
    EXPECT_EQ(number(c, "sum"), 0.0);
    EXPECT_EQ(warnings.size(), 1U);
}

TEST_F(GraphTies, EndWithEitherNode) {
    for (const bool causeGoes : {true, false}) {
        Node& cause = make("adder", "cause");
        Node& follower = make("adder", "follower");
        graph.overrideValue(plug(cause, "sum"), plug(follower, "in1"));
        graph.tie(plug(cause, "in1"), plug(cause, "in2"));
        number(follower, "sum");
        graph.destroy(causeGoes ? cause : follower);
        Node& left = causeGoes ? follower : cause;
        set(left, "in1", 2);
        EXPECT_EQ(number(left, "sum"), 2.0);
        EXPECT_FALSE(graph.valueSource(plug(left, "in1")));
    }
}
