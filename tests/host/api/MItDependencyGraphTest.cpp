#include <maya/MItDependencyGraph.h>

#include "HostTest.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MObjectArray.h>

namespace host {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Graph = MItDependencyGraph;

class MItDependencyGraphTest : public HostTest {
protected:
    // a -> b -> d, a -> c -> d, d -> a closes a ring; e stands alone.
    MItDependencyGraphTest() {
        for (const char* name : {"a", "b", "c", "d", "e"}) {
            run(std::string("createNode transform -n ") + name);
        }
        run("connectAttr a.tx b.tx; connectAttr a.ty c.tx; connectAttr b.ty d.tx; connectAttr c.ty d.ty;"
            "connectAttr d.rx a.rx; createNode lambert -n red; connectAttr d.tz red.diffuse");
    }

    static std::vector<std::string> walk(Graph& iterator, const std::string& pruned = "") {
        std::vector<std::string> names;
        for (; !iterator.isDone(); iterator.next()) {
            names.emplace_back(MFnDependencyNode(iterator.currentItem()).name().asChar());
            if (names.back() == pruned) {
                iterator.prune();
            }
        }
        return names;
    }
};

TEST_F(MItDependencyGraphTest, nullRootsAreRefused) {
    MStatus status;
    const Graph byNode(MObject(), MFn::kInvalid, Graph::kDownstream, Graph::kDepthFirst, Graph::kNodeLevel, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(byNode.isDone());
    const Graph byPlug(MPlug(), MFn::kInvalid, Graph::kDownstream, Graph::kDepthFirst, Graph::kPlugLevel, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(byPlug.currentItem(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MItDependencyGraphTest, aFilterThatNothingPassesFails) {
    MStatus status;
    Graph none(node("a"), MFn::kCharacter, Graph::kDownstream, Graph::kDepthFirst, Graph::kNodeLevel, &status);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_TRUE(none.isDone());
    EXPECT_EQ(none.next(), MStatus::kFailure);
    EXPECT_EQ(none.prune(), MStatus::kFailure);
    MObjectArray path;
    EXPECT_EQ(none.getNodePath(path), MStatus::kFailure);
}

TEST_F(MItDependencyGraphTest, everyNodeIsMetOnce) {
    Graph down(node("a"));
    EXPECT_THAT(walk(down), UnorderedElementsAre("a", "b", "d", "red", "c"));
    Graph up(node("d"), MFn::kInvalid, Graph::kUpstream);
    EXPECT_THAT(walk(up), UnorderedElementsAre("d", "b", "c", "a"));
    Graph alone(node("e"));
    EXPECT_THAT(walk(alone), ElementsAre("e"));
}

TEST_F(MItDependencyGraphTest, breadthFirstGoesLevelByLevel) {
    Graph down(node("a"), MFn::kInvalid, Graph::kDownstream, Graph::kBreadthFirst);
    EXPECT_THAT(walk(down), ElementsAre("a", "b", "c", "d", "red"));
    Graph deep(node("a"), MFn::kInvalid, Graph::kDownstream, Graph::kDepthFirst);
    EXPECT_THAT(walk(deep), ElementsAre("a", "b", "d", "red", "c"));
}

TEST_F(MItDependencyGraphTest, filtersAreWalkedThroughUnlessTheyPrune) {
    Graph shaders(node("a"), MFn::kLambert);
    EXPECT_THAT(walk(shaders), ElementsAre("red"));
    shaders.enablePruningOnFilter();
    EXPECT_TRUE(shaders.isPruningOnFilter());
    EXPECT_EQ(shaders.reset(), MStatus::kFailure) << "a's own neighbours are no shaders";
    shaders.disablePruningOnFilter();
    EXPECT_EQ(shaders.reset(), MStatus::kSuccess);
}

TEST_F(MItDependencyGraphTest, prunedBranchesAreNotWalked) {
    Graph down(node("b"));
    EXPECT_THAT(walk(down, "d"), ElementsAre("b", "d"));
}

TEST_F(MItDependencyGraphTest, aRootPlugNarrowsTheWalk) {
    Graph nodes(plug("a.tx"), MFn::kInvalid, Graph::kDownstream, Graph::kDepthFirst, Graph::kNodeLevel);
    EXPECT_THAT(walk(nodes), ElementsAre("a", "b", "d", "red")) << "c hangs on another plug";
    EXPECT_EQ(nodes.resetTo(plug("a.ty"), MFn::kInvalid, Graph::kDownstream, Graph::kDepthFirst, Graph::kNodeLevel),
              MStatus::kSuccess);
    EXPECT_THAT(walk(nodes), ElementsAre("a", "c", "d", "red"));
}

TEST_F(MItDependencyGraphTest, theWayIsKnown) {
    Graph down(node("a"), MFn::kLambert);
    ASSERT_FALSE(down.isDone());
    EXPECT_TRUE(down.thisPlug() == plug("red.diffuse"));
    EXPECT_TRUE(down.previousPlug() == plug("d.tz"));
    MObjectArray path;
    ASSERT_EQ(down.getNodePath(path), MStatus::kSuccess);
    ASSERT_EQ(path.length(), 4U);
    EXPECT_TRUE(path[0] == node("red"));
    EXPECT_TRUE(path[3] == node("a"));
    EXPECT_TRUE(down.rootNode() == node("a"));
    MStatus status;
    EXPECT_TRUE(down.rootPlug(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
    down.resetTo(node("a"));
    EXPECT_TRUE(down.thisPlug(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure) << "the root was no plug";
}

TEST_F(MItDependencyGraphTest, plugByPlugOnlyWhatIsAffectedIsReached) {
    run("createNode reverse -n r; connectAttr e.tx r.inputX; connectAttr r.outputX a.sx; connectAttr e.ty a.sy");
    Graph plugs(plug("e.tx"));
    std::vector<std::string> names;
    for (; !plugs.isDone(); plugs.next()) {
        names.emplace_back(plugs.thisPlug().partialName(true).asChar());
    }
    EXPECT_THAT(names, testing::Contains("r.ix"));
    EXPECT_THAT(names, testing::Contains("a.sx"));
    EXPECT_THAT(names, testing::Not(testing::Contains("a.sy")));
}

} // namespace
} // namespace host
