#include "TinyTypes.h"

#include "host/graph/DagPath.h"

using namespace host;

namespace {

using GraphDagTest = TinyScene;

} // namespace

TEST_F(GraphDagTest, RefusesPlacesThatCannotBe) {
    Node& top = makeBelow(nullptr, "group", "top");
    Node& mid = makeBelow(&top, "group", "mid");
    Node& low = makeBelow(&mid, "group", "low");
    Node& shape = makeBelow(&top, "shape", "form");
    Node& plain = make("adder", "plain");
    const std::tuple<Node*, Node*, const char*> cases[] = {
        {&top, &top, "top cannot be placed below itself"},
        {&top, &low, "top cannot be placed below itself"},
        {&mid, &low, "mid cannot be placed below itself"},
        {&low, &shape, "form is a shape, nothing can be placed below it"},
        {&low, &mid, "low is below mid already"},
        {&plain, &mid, "plain has no place in the DAG"},
        {&mid, &plain, "plain has no place in the DAG"},
        {&graph.world(), &mid, "The world cannot be placed below mid"},
    };
    for (const auto& [node, parent, error] : cases) {
        EXPECT_EQ(graph.addParent(*node, *parent).error, error);
    }
    EXPECT_EQ(graph.removeParent(low, top).error, "low is not below top");
    EXPECT_EQ(low.parents(), std::vector<Node*>{&mid});
}

TEST_F(GraphDagTest, ParentsAndChildrenKeepTheirOrder) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(nullptr, "group", "b");
    Node& c = makeBelow(&b, "group", "c");
    Node& d = makeBelow(&b, "group", "d");
    EXPECT_TRUE(graph.addParent(c, a).ok());
    EXPECT_EQ(c.parents(), (std::vector<Node*>{&b, &a}));
    EXPECT_EQ(b.children(), (std::vector<Node*>{&c, &d}));
    EXPECT_EQ(graph.world().children(), (std::vector<Node*>{&a, &b}));
    EXPECT_TRUE(graph.removeParent(c, b).ok());
    EXPECT_EQ(b.children(), std::vector<Node*>{&d});
    EXPECT_TRUE(graph.addParent(c, b).ok());
    EXPECT_EQ(b.children(), (std::vector<Node*>{&d, &c}));
    EXPECT_EQ(c.parents(), (std::vector<Node*>{&a, &b}));
    EXPECT_TRUE(graph.removeParent(d, b).ok());
    EXPECT_TRUE(graph.removeParent(c, b).ok());
    EXPECT_TRUE(b.children().empty());
}

TEST_F(GraphDagTest, AncestorsAreAboveOnly) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(&a, "group", "b");
    Node& c = makeBelow(nullptr, "group", "c");
    Node& d = makeBelow(&b, "group", "d");
    EXPECT_TRUE(graph.addParent(d, c).ok());
    EXPECT_TRUE(graph.isAncestor(a, d));
    EXPECT_TRUE(graph.isAncestor(c, d));
    EXPECT_TRUE(graph.isAncestor(graph.world(), d));
    EXPECT_FALSE(graph.isAncestor(d, a));
    EXPECT_FALSE(graph.isAncestor(c, b));
    EXPECT_FALSE(graph.isAncestor(a, a));
}

TEST_F(GraphDagTest, DestroyingTakesTheSubtreeButNotInstancesElsewhere) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(&a, "group", "b");
    Node& form = makeBelow(&b, "shape", "form");
    Node& only = makeBelow(&b, "shape", "only");
    Node& other = makeBelow(nullptr, "group", "other");
    EXPECT_TRUE(graph.addParent(form, other).ok());
    const NodeId idB = b.id();
    const NodeId idOnly = only.id();
    graph.destroy(a);
    EXPECT_EQ(graph.node(idB), nullptr);
    EXPECT_EQ(graph.node(idOnly), nullptr);
    EXPECT_EQ(form.parents(), std::vector<Node*>{&other});
    EXPECT_EQ(graph.nodes(), (std::vector<Node*>{&form, &other}));
    EXPECT_EQ(graph.world().children(), std::vector<Node*>{&other});
}

TEST_F(GraphDagTest, AHundredThousandNestedGroupsAreNoTrouble) {
    constexpr int kDepth = 100000;
    Node* node = nullptr;
    Node* top = nullptr;
    for (int i = 0; i < kDepth; ++i) {
        node = &makeBelow(node, "group", "g");
        top = top == nullptr ? node : top;
        set(*node, "shift", 1.0);
    }
    EXPECT_TRUE(graph.isAncestor(*top, *node));
    EXPECT_EQ(graph.addParent(*top, *node).error, "g cannot be placed below itself");
    EXPECT_EQ(pathCount(graph, *node), 1U);
    const std::vector<DagPath> paths = allPaths(graph, *node);
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_EQ(paths[0].nodes.size(), static_cast<std::size_t>(kDepth));
    EXPECT_EQ(instanceNumber(graph, paths[0]), 0);
    EXPECT_EQ(graph.matrix(plug(*node, "place[0]"))[3][0], kDepth);
    set(*top, "shift", 2.0);
    EXPECT_EQ(graph.matrix(plug(*node, "place[0]"))[3][0], kDepth + 1);
    graph.destroy(*top);
    EXPECT_TRUE(graph.nodes().empty());
}

TEST_F(GraphDagTest, ADeepHierarchyCanBeBuiltFromBelow) {
    Node* low = &make("group", "low");
    for (int i = 0; i < 100000; ++i) {
        Node& above = make("group", "g");
        ASSERT_TRUE(graph.addParent(*low, above).ok());
        low = &above;
    }
    EXPECT_TRUE(graph.addParent(*low, graph.world()).ok());
    EXPECT_EQ(pathCount(graph, *graph.nodes().front()), 1U);
}

TEST_F(GraphDagTest, WideParentsAndManyInstancesAreNoTrouble) {
    constexpr int kCount = 100000;
    Node& form = make("shape", "form");
    std::vector<Node*> groups;
    for (int i = 0; i < kCount; ++i) {
        groups.push_back(&makeBelow(nullptr, "group", "g"));
        ASSERT_TRUE(graph.addParent(form, *groups.back()).ok());
    }
    EXPECT_EQ(pathCount(graph, form), static_cast<std::size_t>(kCount));
    EXPECT_EQ(graph.elementIndices(plug(form, "place")).size(), static_cast<std::size_t>(kCount));
    const std::vector<DagPath> paths = allPaths(graph, form);
    ASSERT_EQ(paths.size(), static_cast<std::size_t>(kCount));
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(instanceNumber(graph, paths[static_cast<std::size_t>(i)]), i);
    }
    EXPECT_EQ(graph.addParent(form, *groups.front()).error, "form is below g already");
    graph.destroy(form);
    EXPECT_TRUE(groups.back()->children().empty());
}
