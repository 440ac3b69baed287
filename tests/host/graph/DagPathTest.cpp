#include "host/graph/DagPath.h"

#include "TinyTypes.h"

#include <limits>

using namespace host;

namespace {

class DagPathTest : public TinyScene {
protected:
    std::vector<std::string> pathsOf(const Node& node) {
        std::vector<std::string> names;
        for (const DagPath& path : allPaths(graph, node)) {
            EXPECT_EQ(instanceNumber(graph, path), static_cast<int>(names.size()));
            names.push_back(fullPathName(path));
        }
        EXPECT_EQ(pathCount(graph, node), names.size());
        return names;
    }
    void instance(Node& node, Node& parent) { EXPECT_EQ(graph.addParent(node, parent).error, ""); }

    using Names = std::vector<std::string>;
};

} // namespace

TEST_F(DagPathTest, TheWorldIsTheEmptyPath) {
    EXPECT_EQ(pathsOf(graph.world()), Names{""});
    EXPECT_EQ(DagPath().end(), nullptr);
}

TEST_F(DagPathTest, ANodeWithoutParentsCountsAsTop) {
    EXPECT_EQ(pathsOf(make("group", "free")), Names{"|free"});
}

TEST_F(DagPathTest, OtherWaysAreNoPaths) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(&a, "group", "b");
    Node& c = makeBelow(nullptr, "group", "c");
    EXPECT_EQ(instanceNumber(graph, DagPath{{&c, &b}}), -1);
    EXPECT_EQ(instanceNumber(graph, DagPath{{&b}}), -1);
    EXPECT_EQ(instanceNumber(graph, DagPath{{&a, &c, &b}}), -1);
    EXPECT_EQ(instanceNumber(graph, DagPath{{&a, &b}}), 0);
}

TEST_F(DagPathTest, InstancesStandInTheOrderOfTheirParents) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(nullptr, "group", "b");
    Node& form = makeBelow(&b, "shape", "form");
    instance(form, a);
    EXPECT_EQ(pathsOf(form), (Names{"|b|form", "|a|form"}));
    instance(form, makeBelow(&a, "group", "c"));
    EXPECT_EQ(pathsOf(form), (Names{"|b|form", "|a|form", "|a|c|form"}));
    EXPECT_TRUE(graph.removeParent(form, b).ok());
    EXPECT_EQ(pathsOf(form), (Names{"|a|form", "|a|c|form"}));
}

TEST_F(DagPathTest, InstancedParentsMultiplyThePaths) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& b = makeBelow(nullptr, "group", "b");
    Node& mid = makeBelow(&a, "group", "mid");
    Node& form = makeBelow(&mid, "shape", "form");
    EXPECT_EQ(pathsOf(form), Names{"|a|mid|form"});
    instance(mid, b);
    EXPECT_EQ(pathsOf(form), (Names{"|a|mid|form", "|b|mid|form"}));
    instance(form, b);
    EXPECT_EQ(pathsOf(form), (Names{"|a|mid|form", "|b|mid|form", "|b|form"}));
    EXPECT_TRUE(graph.removeParent(mid, a).ok());
    EXPECT_EQ(pathsOf(form), (Names{"|b|mid|form", "|b|form"}));
    EXPECT_EQ(graph.elementIndices(plug(form, "place")), (std::vector<std::int32_t>{0, 1}));
}

TEST_F(DagPathTest, ASubtreeKeepsItsCountWhenItMoves) {
    Node& a = makeBelow(nullptr, "group", "a");
    Node& twice = makeBelow(&a, "group", "twice");
    instance(twice, makeBelow(nullptr, "group", "b"));
    Node& low = makeBelow(&a, "group", "low");
    EXPECT_EQ(pathCount(graph, low), 1U);
    EXPECT_TRUE(graph.removeParent(low, a).ok());
    instance(low, twice);
    EXPECT_EQ(pathsOf(low), (Names{"|a|twice|low", "|b|twice|low"}));
    EXPECT_TRUE(graph.removeParent(twice, a).ok());
    EXPECT_EQ(pathsOf(low), Names{"|b|twice|low"});
}

/// Each level has two groups that share the two of the next level: paths double per level.
TEST_F(DagPathTest, CountlessPathsAreCountedUpToTheEndAndListedUpToTheLimit) {
    std::vector<Node*> above{&graph.world()};
    Node* last = nullptr;
    std::vector<std::size_t> counts;
    for (int level = 0; level < 70; ++level) {
        std::vector<Node*> next;
        for (const char* name : {"l", "r"}) {
            Node& node = make("group", name);
            for (Node* parent : above) {
                instance(node, *parent);
            }
            next.push_back(&node);
        }
        above = next;
        last = next.front();
        counts.push_back(pathCount(graph, *last));
    }
    EXPECT_EQ(counts[0], 1U);
    EXPECT_EQ(counts[10], 1024U);
    EXPECT_EQ(counts[69], std::numeric_limits<std::size_t>::max());
    const std::vector<DagPath> paths = allPaths(graph, *last);
    EXPECT_LE(paths.size(), kPathLimit);
    EXPECT_EQ(paths.size(), kPathNodeLimit / 70);
    EXPECT_EQ(instanceNumber(graph, paths[12345]), 12345);
    EXPECT_EQ(graph.elementIndices(plug(*last, "place")).size(), kPathLimit);
    EXPECT_EQ(warnings,
              Names{"l has too many DAG paths: only the first " + std::to_string(paths.size()) + " are used"});
    DagPath far{std::vector<Node*>(70)};
    Node* node = last;
    for (std::size_t level = 70; level-- > 0; node = node->parents().back()) {
        far.nodes[level] = node;
    }
    EXPECT_EQ(instanceNumber(graph, far), -1);
}
