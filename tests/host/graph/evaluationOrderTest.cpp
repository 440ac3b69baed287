#include "host/graph/evaluationOrder.h"

#include "TinyTypes.h"

#include <algorithm>

using namespace host;

namespace {

class EvaluationOrderTest : public TinyScene {
protected:
    std::vector<std::string> orderFor(Node& node, std::string_view path) {
        std::vector<std::string> names;
        for (const Plug& each : evaluationOrder(graph, plug(node, path))) {
            names.push_back(each.node->name() + "." + graph.plugName(*each.node, each.at, true));
        }
        return names;
    }
    using Names = std::vector<std::string>;
};

} // namespace

TEST_F(EvaluationOrderTest, NothingIsNeededWithoutConnections) {
    EXPECT_EQ(orderFor(make("adder", "a"), "sum"), Names{});
}

TEST_F(EvaluationOrderTest, WhatIsNeededComesFirst) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    Node& c = make("adder", "c");
    Node& h = make("holder", "h");
    connect(a, "sum", b, "in1");
    connect(b, "sum", h, "real");
    connect(h, "real", c, "in1");
    connect(a, "sum", c, "in2");
    EXPECT_EQ(orderFor(c, "sum"), (Names{"a.sum", "b.sum"}));
    EXPECT_EQ(orderFor(c, "twice"), (Names{"a.sum", "b.sum"}));
    EXPECT_EQ(orderFor(c, "rX"), Names{}); // no connection affects it
    number(a, "sum");
    EXPECT_EQ(orderFor(c, "sum"), Names{"b.sum"});
}

TEST_F(EvaluationOrderTest, ASharedNeedComesBeforeAllThatShareIt) {
    std::vector<Node*> chain{&make("adder", "n0")};
    Node& end = make("adder", "end");
    for (int i = 1; i < 10; ++i) {
        Node& next = make("adder", "n" + std::to_string(i));
        connect(*chain.back(), "sum", next, "in1");
        chain.push_back(&next);
    }
    for (std::size_t i = 0; i < chain.size(); ++i) {
        connect(*chain[i], "sum", end, "more[" + std::to_string(i) + "]");
    }
    EXPECT_EQ(orderFor(end, "sum"), (Names{"n0.sum", "n1.sum", "n2.sum", "n3.sum", "n4.sum", "n5.sum", "n6.sum",
                                           "n7.sum", "n8.sum", "n9.sum"}));
}

TEST_F(EvaluationOrderTest, CompoundsStandForTheirChildren) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    connect(a, "r", b, "v");
    Names order = orderFor(b, "sum");
    std::sort(order.begin(), order.end());
    EXPECT_EQ(order, (Names{"a.rX", "a.rY", "a.rZ"}));
}

TEST_F(EvaluationOrderTest, PlacesNeedThePlacesAbove) {
    Node& top = makeBelow(nullptr, "group", "top");
    Node& mid = makeBelow(&top, "group", "mid");
    Node& form = makeBelow(&mid, "shape", "form");
    EXPECT_EQ(orderFor(form, "place[0]"), (Names{"top.place[0]", "mid.place[0]"}));
}

TEST_F(EvaluationOrderTest, CyclesAreCut) {
    Node& a = make("adder", "a");
    Node& b = make("adder", "b");
    Node& h = make("holder", "h");
    connect(a, "sum", b, "in1");
    connect(b, "sum", a, "in1");
    EXPECT_EQ(orderFor(b, "sum"), Names{"a.sum"});
    connect(h, "real", h, "length");
    connect(h, "length", h, "real");
    connect(h, "real", a, "in2");
    EXPECT_EQ(orderFor(b, "sum"), Names{"a.sum"});
}
