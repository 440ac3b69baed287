#include "TinyTypes.h"

using namespace host;

namespace {

class DirtyPropagationTest : public TinyScene {
protected:
    double place(Node& node) { return graph.matrix(plug(node, "place[0]"))[3][0]; }
    bool isCached(Node& node, std::string_view path) { return graph.isCached(plug(node, path)); }
};

} // namespace

TEST_F(DirtyPropagationTest, AChangeDropsOnlyWhatItsAttributeAffects) {
    Node& a = make("adder", "a");
    set(a, "in1", 1.0);
    EXPECT_EQ(number(a, "sum") + number(a, "twice") + number(a, "rX"), 3.0);
    set(a, "in2", 5.0);
    EXPECT_FALSE(isCached(a, "sum"));
    EXPECT_TRUE(isCached(a, "twice"));
    EXPECT_TRUE(isCached(a, "rX"));
    EXPECT_EQ(number(a, "sum"), 6.0);
    EXPECT_TRUE(graph.setString(plug(a, "note"), "affects nothing").ok());
    EXPECT_TRUE(isCached(a, "sum"));
}

TEST_F(DirtyPropagationTest, AnOutputItselfCanBeSaidToHaveChanged) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    connect(a, "sum", b, "in2");
    number(b, "sum");
    number(b, "twice");
    graph.changed(plug(a, "sum"));
    EXPECT_FALSE(isCached(a, "sum"));
    EXPECT_FALSE(isCached(b, "sum"));
    EXPECT_TRUE(isCached(b, "twice"));
}

TEST_F(DirtyPropagationTest, DynamicAttributesAffectOnlyWhatTheyAreConnectedTo) {
    Node& a = make("adder", "a");
    Attribute knob;
    knob.longName = "knob";
    knob.kind = AttrKind::kDouble;
    a.addAttribute(knob);
    connect(a, "knob", a, "in2");
    number(a, "sum");
    number(a, "twice");
    set(a, "knob", 4.0);
    EXPECT_TRUE(isCached(a, "twice"));
    EXPECT_EQ(number(a, "sum"), 4.0);
}

TEST_F(DirtyPropagationTest, AChangeRunsAlongConnectionsAndPlugsWithoutCache) {
    Node& a = make("adder", "a");
    Node& h = make("holder", "h");
    Node& b = make("adder", "b");
    connect(a, "sum", h, "real");
    connect(h, "real", h, "length");
    connect(h, "length", b, "more[7]");
    EXPECT_EQ(number(b, "sum"), 0.0);
    set(a, "in1", 3.0);
    EXPECT_FALSE(isCached(b, "sum"));
    EXPECT_EQ(number(b, "sum"), 3.0);
}

struct CompoundCase {
    const char* source;
    const char* destination;
    const char* changed;
};

TEST_F(DirtyPropagationTest, AChangeRunsThroughCompoundsUpAndDown) {
    constexpr CompoundCase kCases[] = {
        {"translate", "v", "translateY"},        // the child of a connected compound
        {"translateY", "vY", "translateY"},      // child to child
        {"points[3]", "v", "points[3].pointsY"}, // an element that is a compound
        {"points[3].pointsY", "vY", "points[3].pointsY"},
        {"weightList[1].weights[2]", "more[5]", "weightList[1].weights[2]"},
        {"colorEntryList[1].colourG", "in1", "colorEntryList[1].colourG"},
    };
    for (const CompoundCase& each : kCases) {
        SCOPED_TRACE(each.source);
        Node& h = make("holder", "h");
        Node& a = make("adder", "a");
        connect(h, each.source, a, each.destination);
        EXPECT_EQ(number(a, "sum"), 0.0);
        set(h, each.changed, 2.0);
        EXPECT_EQ(number(a, "sum"), 2.0);
    }
}

TEST_F(DirtyPropagationTest, AChangeOfAWholeArrayReachesItsElements) {
    Node& h = make("holder", "h");
    Node& a = make("adder", "a");
    connect(h, "weightList[1].weights[2]", a, "in1");
    connect(h, "points[3].pointsY", a, "in2");
    EXPECT_EQ(number(a, "sum"), 0.0);
    NumberRows& weights = graph.rowsForWriting(plug(h, "weightList[1].weights"));
    const double fill = 4.0;
    weights.makeRow(2, &fill);
    graph.changed(plug(h, "weightList[0]"));
    EXPECT_TRUE(isCached(a, "sum")); // another element
    graph.changed(plug(h, "weightList"));
    EXPECT_EQ(number(a, "sum"), 4.0);
}

TEST_F(DirtyPropagationTest, ComputedCompoundsDriveThroughTheirParent) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    connect(a, "r", b, "v");
    EXPECT_EQ(number(b, "sum"), 0.0);
    set(a, "bentZ", 7.0);
    EXPECT_EQ(number(b, "sum"), 7.0);
}

TEST_F(DirtyPropagationTest, ConnectingAndDisconnectingDrop) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    set(a, "in1", 2.0);
    set(b, "in1", 5.0);
    EXPECT_EQ(number(b, "sum"), 5.0);
    connect(a, "sum", b, "in1");
    EXPECT_EQ(number(b, "sum"), 2.0);
    EXPECT_TRUE(graph.disconnect(plug(a, "sum"), plug(b, "in1")).ok());
    EXPECT_EQ(number(b, "sum"), 5.0);
}

TEST_F(DirtyPropagationTest, AMovedGroupMovesEverythingBelow) {
    Node& top = makeBelow(nullptr, "group", "top");
    Node& mid = makeBelow(&top, "group", "mid");
    Node& form = makeBelow(&mid, "shape", "form");
    Node& beside = makeBelow(nullptr, "group", "beside");
    set(mid, "shift", 10.0);
    EXPECT_EQ(place(form), 10.0);
    EXPECT_EQ(place(beside), 0.0);
    set(top, "shift", 1.0); // of top itself nothing was ever computed
    EXPECT_FALSE(isCached(form, "place[0]"));
    EXPECT_TRUE(isCached(beside, "place[0]"));
    EXPECT_EQ(place(form), 11.0);
    set(top, "tint", 1.0); // no matter of place
    EXPECT_TRUE(isCached(form, "place[0]"));
    set(form, "size", 2.0); // the type has no table: everything of it drops
    EXPECT_FALSE(isCached(form, "place[0]"));
}

TEST_F(DirtyPropagationTest, PlaceIsDroppedAgainAfterEveryReading) {
    Node& top = makeBelow(nullptr, "group", "top");
    Node& mid = makeBelow(&top, "group", "mid");
    Node& low = makeBelow(&mid, "group", "low");
    for (int round = 1; round <= 3; ++round) {
        set(top, "shift", round);
        EXPECT_EQ(place(low), round);
        set(mid, "shift", 0.0);
        EXPECT_EQ(place(mid), round);
        EXPECT_EQ(place(low), round);
    }
}

TEST_F(DirtyPropagationTest, PlaceRunsOnThroughConnections) {
    Node& top = makeBelow(nullptr, "group", "top");
    Node& low = makeBelow(&top, "group", "low");
    Node& h = make("holder", "h");
    connect(low, "place[0]", h, "frame");
    EXPECT_EQ(graph.matrix(plug(h, "frame"))[3][0], 0.0);
    set(top, "shift", 4.0);
    EXPECT_EQ(graph.matrix(plug(h, "frame"))[3][0], 4.0);
}

TEST_F(DirtyPropagationTest, ChangesOfTheDagDropPlaces) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(nullptr, "group", "b");
    Node& mid = makeBelow(&a, "group", "mid");
    Node& form = makeBelow(&mid, "shape", "form");
    set(a, "shift", 1.0);
    set(b, "shift", 2.0);
    EXPECT_EQ(place(form), 1.0);
    EXPECT_TRUE(graph.removeParent(mid, a).ok());
    EXPECT_EQ(place(form), 0.0);
    EXPECT_TRUE(graph.addParent(mid, b).ok());
    EXPECT_EQ(place(form), 2.0);
    set(b, "shift", 3.0);
    EXPECT_EQ(place(form), 3.0);
    EXPECT_TRUE(graph.addParent(mid, a).ok()); // the first path stays the one that counts here
    graph.destroy(b);
    EXPECT_EQ(place(form), 1.0);
}

TEST_F(DirtyPropagationTest, AnAnimatedChainOfGroupsCostsEachFrameOncePerNode) {
    constexpr int kDepth = 1000;
    Node* node = nullptr;
    for (int i = 0; i < kDepth; ++i) {
        node = &makeBelow(node, "group", "g");
        connect(make("clock", "c"), "output", *node, "shift");
    }
    place(*node);
    const std::size_t before = graph.dropCount();
    graph.setTime(1);
    EXPECT_FALSE(isCached(*node, "place[0]"));
    // Per group at most: its clock's input, its shift, its place (from itself and from above).
    EXPECT_LE(graph.dropCount() - before, 5U * kDepth);
}

TEST_F(DirtyPropagationTest, WhatIsDroppedAlreadyIsNotWalkedAgain) {
    constexpr int kLength = 1000;
    std::vector<Node*> chain;
    for (int i = 0; i < kLength; ++i) {
        chain.push_back(&make("adder", "a"));
        if (i > 0) {
            connect(*chain[static_cast<std::size_t>(i - 1)], "sum", *chain.back(), "in1");
        }
        number(*chain.back(), "sum");
    }
    set(*chain.front(), "in1", 1.0);
    number(*chain.front(), "sum");
    const std::size_t before = graph.dropCount();
    set(*chain.front(), "in1", 2.0);
    EXPECT_LE(graph.dropCount() - before, 3U);
    EXPECT_EQ(number(*chain.back(), "sum"), 2.0);
}

TEST_F(DirtyPropagationTest, BuildingAGraphDropsNothing) {
    Node* last = &make("holder", "h");
    for (int i = 0; i < 1000; ++i) {
        Node& next = make("holder", "h");
        connect(next, "real", *last, "real"); // in front of a growing chain
        set(next, "real", 1.0);
        EXPECT_TRUE(graph.disconnect(plug(next, "real"), plug(*last, "real")).ok());
        connect(next, "real", *last, "real");
        last = &next;
    }
    EXPECT_EQ(graph.dropCount(), 0U);
}

TEST_F(DirtyPropagationTest, ALoopOfConnectionsEndsTheWave) {
    Node& h = make("holder", "h");
    Node& a = make("adder", "a");
    connect(h, "real", h, "length");
    connect(h, "length", h, "real");
    connect(h, "length", a, "in1");
    number(a, "sum");
    graph.changed(plug(h, "real"));
    EXPECT_FALSE(isCached(a, "sum"));
}
