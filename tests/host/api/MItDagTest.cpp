#include <maya/MItDag.h>

#include "HostTest.h"

#include <maya/MDagPathArray.h>

namespace host {
namespace {

using testing::ElementsAre;

class MItDagTest : public HostTest {
protected:
    MItDagTest() {
        run("createNode transform -n a; createNode transform -n b -p a; createNode mesh -n bShape -p b;"
            "createNode transform -n c -p a; createNode joint -n d -p c");
    }

    static std::vector<std::string> walk(MItDag& iterator, const std::string& pruned = "") {
        std::vector<std::string> names;
        for (; !iterator.isDone(); iterator.next()) {
            names.emplace_back(iterator.partialPathName().asChar());
            if (names.back() == pruned) {
                iterator.prune();
            }
        }
        return names;
    }
};

TEST_F(MItDagTest, whatIsNoDagNodeEndsTheWalk) {
    MItDag iterator;
    run("createNode lambert -n red");
    EXPECT_EQ(iterator.reset(node("red")), MStatus::kInvalidParameter);
    EXPECT_TRUE(iterator.isDone());
    EXPECT_EQ(iterator.reset(MObject()), MStatus::kInvalidParameter);
    EXPECT_EQ(iterator.reset(MDagPath()), MStatus::kInvalidParameter);
    EXPECT_EQ(iterator.reset(node("a"), MItDag::kInvalidType), MStatus::kInvalidParameter);
    MStatus status;
    const MItDag wrong(MItDag::kInvalidType, MFn::kInvalid, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(wrong.isDone());
}

TEST_F(MItDagTest, aDoneIteratorAnswersNothing) {
    MItDag iterator;
    iterator.reset(node("bShape"));
    EXPECT_EQ(iterator.next(), MStatus::kSuccess);
    ASSERT_TRUE(iterator.isDone());
    EXPECT_EQ(iterator.next(), MStatus::kFailure);
    EXPECT_EQ(iterator.prune(), MStatus::kFailure);
    MStatus status;
    MDagPath path;
    MDagPathArray paths;
    EXPECT_TRUE(iterator.currentItem(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_TRUE(iterator.item().isNull());
    EXPECT_EQ(iterator.getPath(path), MStatus::kFailure);
    EXPECT_EQ(iterator.getAllPaths(paths), MStatus::kFailure);
    iterator.depth(&status);
    EXPECT_EQ(status, MStatus::kFailure);
    iterator.fullPathName(&status);
    EXPECT_EQ(status, MStatus::kFailure);
    iterator.instanceCount(true, &status);
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MItDagTest, depthFirstIsPreOrderAndBreadthFirstByLevel) {
    MItDag iterator;
    iterator.reset(node("a"));
    EXPECT_THAT(walk(iterator), ElementsAre("a", "b", "bShape", "c", "d"));
    iterator.reset(node("a"), MItDag::kBreadthFirst);
    EXPECT_THAT(walk(iterator), ElementsAre("a", "b", "c", "bShape", "d"));
    EXPECT_TRUE(iterator.root() == node("a"));
}

TEST_F(MItDagTest, theWorldComesFirstThenTheCameras) {
    MItDag iterator;
    EXPECT_EQ(iterator.currentItem().apiType(), MFn::kWorld);
    EXPECT_EQ(iterator.depth(), 0U);
    iterator.next();
    EXPECT_EQ(iterator.partialPathName(), "persp");
    EXPECT_EQ(iterator.depth(), 1U);
    EXPECT_EQ(iterator.fullPathName(), "|persp");
    MItDag transforms(MItDag::kDepthFirst, MFn::kTransform);
    EXPECT_EQ(transforms.partialPathName(), "persp") << "the world is no transform";
}

TEST_F(MItDagTest, filtersPassThroughTheOthers) {
    MItDag iterator(MItDag::kDepthFirst, MFn::kJoint);
    EXPECT_THAT(walk(iterator), ElementsAre("d"));
    EXPECT_EQ(iterator.reset(), MStatus::kSuccess);
    EXPECT_THAT(walk(iterator), ElementsAre("d")) << "reset keeps the filter";
    MIteratorType types;
    MIntArray list;
    list.append(MFn::kMesh);
    list.append(MFn::kJoint);
    types.setFilterList(list);
    MItDag several(types);
    EXPECT_THAT(walk(several), ElementsAre("bShape", "d"));
    types.setFilterType(MFn::kMesh);
    MItDag one(types);
    EXPECT_THAT(walk(one), ElementsAre("bShape"));
}

TEST_F(MItDagTest, prunedBranchesAreNotWalked) {
    MItDag iterator;
    iterator.reset(node("a"));
    EXPECT_THAT(walk(iterator, "b"), ElementsAre("a", "b", "c", "d"));
    iterator.reset(node("a"));
    EXPECT_THAT(walk(iterator, "a"), ElementsAre("a"));
}

TEST_F(MItDagTest, instancesAreVisitedOncePerPath) {
    run("parent -add b c");
    MItDag iterator;
    iterator.reset(path("a"));
    EXPECT_THAT(walk(iterator), ElementsAre("a", "a|b", "a|b|bShape", "c", "d", "c|b", "c|b|bShape"));
    iterator.reset(path("c|b|bShape"));
    EXPECT_TRUE(iterator.isInstanced());
    EXPECT_FALSE(iterator.isInstanced(false));
    EXPECT_EQ(iterator.instanceCount(true), 2U);
    MDagPathArray paths;
    EXPECT_EQ(iterator.getAllPaths(paths), MStatus::kSuccess);
    EXPECT_EQ(paths.length(), 2U);
}

TEST_F(MItDagTest, nodesMayGoDuringTheWalk) {
    MItDag iterator;
    iterator.reset(node("a"));
    iterator.next(); // at b, with c waiting
    run("delete c");
    EXPECT_THAT(walk(iterator), ElementsAre("b", "bShape"));
}

TEST_F(MItDagTest, deepAndWideTreesAreWalked) {
    run("string $parent = \"a\"; for ($i = 0; $i < 300; ++$i) $parent = `createNode transform -n (\"n\" + $i) -p "
        "$parent`");
    MItDag iterator;
    iterator.reset(node("n0"));
    EXPECT_EQ(walk(iterator).size(), 300U);
}

} // namespace
} // namespace host
