#include "TinyTypes.h"

#include "host/graph/Evaluation.h"

#include <algorithm>

using namespace host;

namespace {

class GraphReadingTest : public TinyScene {
protected:
    /// A chain of adders, each adding 1 to the one before; the first and the last.
    std::pair<Node*, Node*> makeAdderChain(int length) {
        Node* first = &make("adder", "first");
        Node* last = first;
        for (int i = 1; i < length; ++i) {
            Node& next = make("adder", "a");
            connect(*last, "sum", next, "in1");
            set(next, "in2", 1.0);
            last = &next;
        }
        return {first, last};
    }
    using Lines = std::vector<std::string>;
};

} // namespace

TEST_F(GraphReadingTest, AskingTwiceComputesOnce) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    connect(a, "sum", b, "in1");
    set(a, "in1", 2.0);
    EXPECT_EQ(number(b, "sum"), 2.0);
    EXPECT_EQ(number(b, "sum"), 2.0);
    EXPECT_EQ(number(a, "sum"), 2.0);
    EXPECT_EQ(graph.computeCount(), 2U);
}

TEST_F(GraphReadingTest, OutputsPutTogetherAreComputedTogether) {
    Node& a = make("adder", "a");
    set(a, "bentY", 5.0);
    EXPECT_EQ(number(a, "rX"), 0.0);
    EXPECT_EQ(number(a, "rY"), 5.0);
    EXPECT_EQ(number(a, "rZ"), 0.0);
    EXPECT_EQ(graph.computeCount(), 1U);
}

struct ConversionCase {
    double set;
    const char* through; // numeric plugs of a holder on the way, comma by comma
    double read;
};

TEST_F(GraphReadingTest, NumbersAreConvertedAtEveryPlugOnTheWay) {
    constexpr ConversionCase kCases[] = {
        {1.9, "ratio", 1.9},
        {1.9, "whole", 1.0},
        {-1.9, "whole", -1.0},
        {0.5, "flag", 1.0},
        {0.5, "whole flag", 0.0},
        {0.5, "flag whole", 1.0},
        {1e12, "whole", 2147483647.0},
        {300.7, "byte ratio", 255.0},
        {2.5, "when angle length", 2.5},
    };
    for (const ConversionCase& each : kCases) {
        SCOPED_TRACE(std::string(each.through));
        Node& source = make("holder", "source");
        set(source, "real", each.set);
        Plug last = plug(source, "real");
        std::string way = each.through;
        for (std::size_t start = 0; start < way.size();) {
            const std::size_t end = std::min(way.find(' ', start), way.size());
            const Plug next = plug(make("holder", "h"), way.substr(start, end - start));
            ASSERT_TRUE(graph.connect(last, next, false).ok());
            last = next;
            start = end + 1;
        }
        EXPECT_EQ(graph.number(last), each.read);
    }
}

TEST_F(GraphReadingTest, AConnectionHidesWhatIsStored) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    set(a, "translateX", 1.0);
    set(b, "translateX", 10.0);
    set(b, "translateY", 20.0);
    connect(a, "translate", b, "translate");
    EXPECT_EQ(number(b, "translateX"), 1.0);
    EXPECT_EQ(number(b, "translateY"), 0.0);
}

TEST_F(GraphReadingTest, StringsMatricesAndDataComeThroughConnections) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    const Matrix44 moved = Matrix44().translate(Imath::V3d(1.0, 0.0, 0.0));
    const DataPtr mesh = std::make_shared<const Data>(DataKind::kMesh);
    EXPECT_TRUE(graph.setString(plug(a, "text"), "words").ok());
    EXPECT_TRUE(graph.setMatrix(plug(a, "frame"), moved).ok());
    EXPECT_TRUE(graph.setData(plug(a, "mesh"), mesh).ok());
    connect(a, "text", b, "texts[2]");
    connect(a, "frame", b, "matrices[2]");
    connect(a, "mesh", b, "any");
    EXPECT_EQ(graph.string(plug(b, "texts[2]")), "words");
    EXPECT_EQ(graph.matrix(plug(b, "matrices[2]")), moved);
    EXPECT_EQ(graph.data(plug(b, "any")), mesh);
}

// --- cycles

TEST_F(GraphReadingTest, ACycleThroughOneNodeGivesTheStoredValue) {
    Node& a = make("adder", "a");
    set(a, "in2", 2.0);
    connect(a, "sum", a, "in1");
    EXPECT_EQ(number(a, "sum"), 2.0);
    EXPECT_EQ(number(a, "sum"), 2.0);
    EXPECT_EQ(warnings, Lines{"Cycle in the graph at a.sum (its stored value is used)"});
}

TEST_F(GraphReadingTest, CyclesOfSeveralNodesGiveTheStoredValue) {
    for (const int length : {2, 3, 50}) {
        SCOPED_TRACE(length);
        warnings.clear();
        const auto [first, last] = makeAdderChain(length);
        graph.rename(*first, "first" + std::to_string(length));
        connect(*last, "sum", *first, "in1");
        set(*first, "in2", 100.0);
        EXPECT_EQ(number(*first, "sum"), 100.0 + length - 1);
        EXPECT_EQ(warnings,
                  Lines{"Cycle in the graph at first" + std::to_string(length) + ".sum (its stored value is used)"});
    }
}

TEST_F(GraphReadingTest, ACycleOfConnectionsAloneGivesTheStoredValue) {
    Node& h = make("holder", "h");
    Node& outside = make("holder", "outside");
    set(h, "real", 7.0);
    connect(h, "real", h, "length");
    connect(h, "length", h, "angle");
    connect(h, "angle", h, "real");
    connect(h, "length", outside, "real");
    EXPECT_EQ(number(h, "real"), 7.0);
    EXPECT_EQ(number(h, "real"), 7.0);
    EXPECT_EQ(warnings, Lines{"Cycle in the graph at h.real (its stored value is used)"});
    EXPECT_EQ(number(outside, "real"), 0.0); // comes back to h.length first
    EXPECT_EQ(warnings.back(), "Cycle in the graph at h.length (its stored value is used)");
}

TEST_F(GraphReadingTest, CyclesThroughCompoundsAreFound) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    set(a, "bentX", 3.0);
    connect(a, "r", b, "bent");
    connect(b, "r", a, "bent");
    EXPECT_EQ(number(a, "rX"), 0.0);
    EXPECT_EQ(warnings.front(), "Cycle in the graph at a.rX (its stored value is used)");

    Node& h = make("holder", "h");
    Node& i = make("holder", "i");
    set(h, "translateY", 4.0);
    connect(h, "translate", i, "translate");
    connect(i, "translate", h, "translate");
    EXPECT_EQ(number(h, "translateY"), 4.0);
    EXPECT_EQ(warnings.back(), "Cycle in the graph at h.translateY (its stored value is used)");
}

TEST_F(GraphReadingTest, DifferentOutputsOfOneNodeAreNoCycle) {
    Node& a = make("adder", "a");
    set(a, "in1", 4.0);
    connect(a, "twice", a, "in2");
    EXPECT_EQ(number(a, "sum"), 12.0);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(GraphReadingTest, AChangeInACycleIsSeen) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    connect(a, "sum", b, "in1");
    connect(b, "sum", a, "in1");
    EXPECT_EQ(number(a, "sum"), 0.0);
    set(a, "in2", 3.0);
    EXPECT_EQ(number(a, "sum"), 3.0);
    EXPECT_TRUE(graph.disconnect(plug(b, "sum"), plug(a, "in1")).ok());
    set(a, "in2", 4.0);
    EXPECT_EQ(number(b, "sum"), 4.0);
}

// --- depth

TEST_F(GraphReadingTest, AMillionChainedConnectionsAreNoTrouble) {
    constexpr int kLength = 1000000;
    NodeTypeRegistry small;
    auto type = std::make_unique<NodeType>("link", nullptr, 0);
    Attribute attribute;
    attribute.longName = "a";
    attribute.kind = AttrKind::kDouble;
    const AttrIndex attr = type->add(attribute);
    const NodeType& link = small.add(std::move(type));
    Graph chain(small);
    Plug first{&chain.create(link, "n"), {attr, 0, {}}};
    Plug last = first;
    for (int i = 1; i < kLength; ++i) {
        const Plug next{&chain.create(link, "n"), {attr, 0, {}}};
        ASSERT_TRUE(chain.connect(last, next, false).ok());
        last = next;
    }
    ASSERT_TRUE(chain.setNumber(first, 5.0).ok());
    EXPECT_EQ(chain.number(last), 5.0);
    ASSERT_TRUE(chain.connect(last, first, false).ok());
    EXPECT_EQ(chain.number(last), 0.0);
    chain.destroy(*first.node);
    EXPECT_EQ(chain.nodes().size(), static_cast<std::size_t>(kLength) - 1);
}

TEST_F(GraphReadingTest, AHundredThousandChainedNodesAreComputedExactly) {
    constexpr int kLength = 100000;
    const auto [first, last] = makeAdderChain(kLength);
    set(*first, "in1", 0.5);
    EXPECT_EQ(number(*last, "sum"), kLength - 0.5);
    EXPECT_EQ(graph.computeCount(), static_cast<std::size_t>(kLength));
    set(*first, "in1", 1.5);
    EXPECT_EQ(number(*last, "sum"), kLength + 0.5);
    EXPECT_EQ(graph.computeCount(), 2U * kLength);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(GraphReadingTest, ALongCycleEndsWithOneWarning) {
    constexpr int kLength = 10000;
    const auto [first, last] = makeAdderChain(kLength);
    connect(*last, "sum", *first, "in1");
    EXPECT_EQ(number(*last, "sum"), kLength - 1.0);
    EXPECT_EQ(warnings, Lines{"Cycle in the graph at a.sum (its stored value is used)"});
}

/// A node that reads along the DAG what no connection tells of: nothing can be computed ahead.
TEST_F(GraphReadingTest, WhatNestsWithoutConnectionsIsCutOffWithAWarning) {
    auto type = std::make_unique<NodeType>("climber", types.find("group"), 0);
    type->compute = [](Evaluation& evaluation, Node& node, const PlugAddress& at) {
        Node* parent = node.parents().front();
        const double above = parent->type().find("local") == kNoAttr ? 0.0 : evaluation.number(*parent, at);
        evaluation.putNumber(node, at, above + 1.0);
    };
    const NodeType& climber = types.add(std::move(type));
    Node* node = &graph.world();
    for (int i = 0; i < 1000; ++i) {
        Node& next = graph.create(climber, "c" + std::to_string(i));
        ASSERT_TRUE(graph.addParent(next, *node).ok());
        node = &next;
    }
    EXPECT_EQ(number(*node, "local"), 400.0);
    EXPECT_EQ(warnings, Lines{"Too many nodes depend on each other at c599.local (its stored value is used)"});
    EXPECT_EQ(number(*graph.nodes()[350], "local"), 351.0);
    EXPECT_EQ(warnings.size(), 1U);
}
