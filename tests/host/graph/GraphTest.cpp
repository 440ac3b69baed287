#include "TinyTypes.h"

#include <limits>

using namespace host;

namespace {

using GraphTest = TinyScene;

constexpr Ticks kFrame = 5880000; // at 24 per second

} // namespace

TEST_F(GraphTest, NoNodeHasTheEmptyId) {
    EXPECT_EQ(graph.node({}), nullptr);
    EXPECT_EQ(graph.node({12345, 1}), nullptr);
    EXPECT_TRUE(graph.nodes().empty());
    EXPECT_EQ(graph.node(graph.world().id()), &graph.world());
}

TEST_F(GraphTest, NodesStandInCreationOrder) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    Node& c = make("adder", "c");
    EXPECT_EQ(graph.nodes(), (std::vector<Node*>{&a, &b, &c}));
    graph.destroy(b);
    EXPECT_EQ(graph.nodes(), (std::vector<Node*>{&a, &c}));
    Node& d = make("adder", "d");
    EXPECT_EQ(graph.nodes(), (std::vector<Node*>{&a, &c, &d}));
    graph.rename(d, "other");
    EXPECT_EQ(d.name(), "other");
}

TEST_F(GraphTest, TheIdOfADestroyedNodeGoesStale) {
    Node& a = make("adder", "a");
    const NodeId id = a.id();
    EXPECT_EQ(graph.node(id), &a);
    graph.destroy(a);
    EXPECT_EQ(graph.node(id), nullptr);
    Node& next = make("adder", "next");
    EXPECT_EQ(graph.node(id), nullptr);
    EXPECT_EQ(graph.node(next.id()), &next);
}

TEST_F(GraphTest, TheWorldStays) {
    graph.destroy(graph.world());
    EXPECT_EQ(graph.world().name(), "world");
}

TEST_F(GraphTest, DestroyingTakesConnectionsAndDropsWhatDependedOnThem) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    Node& c = make("adder", "c");
    set(a, "in1", 3.0);
    connect(a, "sum", b, "in1");
    connect(b, "sum", c, "in1");
    connect(a, "sum", c, "in2");
    EXPECT_EQ(number(c, "sum"), 6.0);
    graph.destroy(a);
    EXPECT_TRUE(b.incoming().empty());
    EXPECT_EQ(c.incoming().size(), 1U);
    EXPECT_EQ(number(c, "sum"), 0.0);
    graph.destroy(c);
    EXPECT_TRUE(b.outgoing().empty());
}

TEST_F(GraphTest, WhenNothingIsCachedAnyMoreAChangeLooksAtNothing) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    number(a, "sum");
    set(a, "in1", 1.0);
    number(a, "sum");
    graph.destroy(a);
    const std::size_t before = graph.dropCount();
    set(b, "in1", 1.0);
    EXPECT_EQ(graph.dropCount(), before);
}

TEST_F(GraphTest, ThousandsOfNodesGoOneByOne) {
    constexpr int kCount = 100000;
    std::vector<NodeId> ids;
    Node& set = make("holder", "set");
    for (int i = 0; i < kCount; ++i) {
        Node& node = makeBelow(nullptr, "group", "g");
        ids.push_back(node.id());
        ASSERT_TRUE(graph.connect(plug(node, "shift"), {&set, plug(set, "nu").at.element(i)}, false).ok());
    }
    for (const NodeId id : ids) {
        graph.destroy(*graph.node(id));
    }
    EXPECT_EQ(graph.nodes(), std::vector<Node*>{&set});
    EXPECT_TRUE(graph.world().children().empty());
    EXPECT_TRUE(set.incoming().empty());
}

TEST_F(GraphTest, ATimeNodeHoldsTheCurrentTime) {
    graph.setTime(7);
    Node& time = make("time", "time1");
    EXPECT_EQ(number(time, "outTime"), 7.0);
    EXPECT_EQ(number(time, "unwarpedTime"), 7.0);
    graph.setTime(12 * kFrame);
    EXPECT_EQ(number(time, "outTime"), 12.0 * kFrame);
    set(time, "outTime", 3.0 * kFrame);
    EXPECT_EQ(graph.time(), 3 * kFrame);
    EXPECT_EQ(number(time, "unwarpedTime"), 3.0 * kFrame);
}

TEST_F(GraphTest, HugeTimesStopAtTheEnds) {
    Node& time = make("time", "time1");
    set(time, "outTime", 1e300);
    EXPECT_EQ(graph.time(), std::numeric_limits<Ticks>::max());
    set(time, "outTime", std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(graph.time(), 0);
}

TEST_F(GraphTest, AnUnconnectedTimeInputIsTheCurrentTime) {
    Node& clock = make("clock", "c");
    graph.setTime(10 * kFrame);
    EXPECT_EQ(number(clock, "input"), 10.0 * kFrame);
    EXPECT_EQ(number(clock, "output"), 10.0);
    graph.setTime(11 * kFrame);
    EXPECT_EQ(number(clock, "output"), 11.0);
}

TEST_F(GraphTest, AConnectedTimeInputIsNot) {
    Node& clock = make("clock", "c");
    Node& holder = make("holder", "h");
    set(holder, "when", 5.0 * kFrame);
    connect(holder, "when", clock, "input");
    graph.setTime(10 * kFrame);
    EXPECT_EQ(number(clock, "output"), 5.0);
}

TEST_F(GraphTest, TimeComesThroughConnectionsFromTheTimeNode) {
    Node& time = make("time", "time1");
    Node& clock = make("clock", "c");
    Node& through = make("holder", "h");
    connect(time, "outTime", through, "when");
    connect(through, "when", clock, "input");
    EXPECT_EQ(number(clock, "output"), 0.0);
    graph.setTime(2 * kFrame);
    EXPECT_EQ(number(clock, "output"), 2.0);
}

TEST_F(GraphTest, SettingTheTimeDropsOnlyWhatDependsOnTime) {
    Node& time = make("time", "time1");
    Node& free = make("clock", "free");
    Node& wired = make("clock", "wired");
    Node& fixed = make("clock", "fixed");
    Node& pinned = make("holder", "pinned");
    Node& moving = make("adder", "moving");
    Node& still = make("adder", "still");
    connect(time, "outTime", wired, "input");
    connect(pinned, "when", fixed, "input");
    connect(free, "output", moving, "in2");
    const Plug all[] = {plug(free, "output"), plug(wired, "output"), plug(fixed, "output"),
                        plug(moving, "sum"),  plug(moving, "twice"), plug(still, "sum")};
    for (const Plug& each : all) {
        graph.number(each);
    }
    graph.setTime(4 * kFrame);
    std::vector<bool> cached;
    for (const Plug& each : all) {
        cached.push_back(graph.isCached(each));
    }
    EXPECT_EQ(cached, (std::vector<bool>{false, false, true, false, true, true}));
    const std::size_t before = graph.computeCount();
    for (const Plug& each : all) {
        graph.number(each);
    }
    EXPECT_EQ(graph.computeCount() - before, 3U);
}

TEST_F(GraphTest, SettingTheSameTimeDropsNothing) {
    Node& clock = make("clock", "c");
    graph.setTime(4 * kFrame);
    number(clock, "output");
    graph.setTime(4 * kFrame);
    EXPECT_TRUE(graph.isCached(plug(clock, "output")));
}

TEST_F(GraphTest, AFrameCostsWhatMovesNotWhatThereIs) {
    Node& clock = make("clock", "c");
    number(clock, "output");
    graph.setTime(kFrame);
    const std::size_t alone = graph.dropCount();
    for (int i = 0; i < 1000; ++i) {
        Node& still = make("adder", "a");
        number(still, "sum");
    }
    number(clock, "output");
    const std::size_t before = graph.dropCount();
    graph.setTime(2 * kFrame);
    EXPECT_EQ(graph.dropCount() - before, alone);
}

TEST_F(GraphTest, AWarningIsGivenOnce) {
    graph.warn("one");
    graph.warn("two");
    graph.warn("one");
    EXPECT_EQ(warnings, (std::vector<std::string>{"one", "two"}));
}
