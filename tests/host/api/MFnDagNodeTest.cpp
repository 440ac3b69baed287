#include <maya/MFnDagNode.h>

#include "HostTest.h"

#include <maya/MDagPathArray.h>

namespace host {
namespace {

class MFnDagNodeTest : public HostTest {
protected:
    MFnDagNodeTest() {
        run("createNode transform -n a; createNode transform -n b -p a; setAttr b.t 1 2 3;"
            "createNode mesh -n shape -p b; createNode mesh -n orig -p b; setAttr orig.intermediateObject 1;"
            "createNode transform -n c");
    }
};

TEST_F(MFnDagNodeTest, nothingAttachedFailsEveryQuestion) {
    MFnDagNode none;
    MStatus status;
    MDagPath path;
    MDagPathArray paths;
#define EXPECT_FAILS(call)                                                                                             \
    status = MStatus::kSuccess;                                                                                        \
    none.call;                                                                                                         \
    EXPECT_NE(status, MStatus::kSuccess) << #call
    EXPECT_FAILS(childCount(&status));
    EXPECT_FAILS(child(0, &status));
    EXPECT_FAILS(parentCount(&status));
    EXPECT_FAILS(parent(0, &status));
    EXPECT_FAILS(hasParent(node("a"), &status));
    EXPECT_FAILS(hasChild(node("a"), &status));
    EXPECT_FAILS(isChildOf(node("a"), &status));
    EXPECT_FAILS(isParentOf(node("a"), &status));
    EXPECT_FAILS(dagRoot(&status));
    EXPECT_FAILS(fullPathName(&status));
    EXPECT_FAILS(partialPathName(&status));
    EXPECT_FAILS(dagPath(&status));
    EXPECT_FAILS(isIntermediateObject(&status));
    EXPECT_FAILS(isInstanced(true, &status));
    EXPECT_FAILS(instanceCount(true, &status));
    EXPECT_FAILS(inModel(&status));
    EXPECT_FAILS(transformationMatrix(&status));
#undef EXPECT_FAILS
    EXPECT_EQ(none.getPath(path), MStatus::kFailure);
    EXPECT_EQ(none.getAllPaths(paths), MStatus::kFailure);
}

TEST_F(MFnDagNodeTest, childrenAndParents) {
    const MFnDagNode b(node("b"));
    ASSERT_EQ(b.childCount(), 2U) << "intermediate shapes count";
    EXPECT_TRUE(b.child(1) == node("orig"));
    EXPECT_EQ(b.parentCount(), 1U);
    EXPECT_TRUE(b.parent(0) == node("a"));
    EXPECT_EQ(MFnDagNode(node("a")).parent(0).apiType(), MFn::kWorld);
    EXPECT_EQ(MFnDagNode(node("a")).parentCount(), 1U);
    MStatus status;
    EXPECT_TRUE(b.child(2, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(b.parent(1, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(b.hasParent(node("a")));
    EXPECT_FALSE(b.hasParent(node("c")));
    EXPECT_TRUE(b.hasChild(node("shape")));
    EXPECT_FALSE(b.hasChild(MObject()));
    EXPECT_TRUE(MFnDagNode(node("shape")).isChildOf(node("a")));
    EXPECT_FALSE(MFnDagNode(node("a")).isChildOf(node("shape")));
    EXPECT_TRUE(MFnDagNode(node("a")).isParentOf(node("shape")));
    EXPECT_FALSE(MFnDagNode(node("a")).isParentOf(node("a")));
    EXPECT_FALSE(MFnDagNode(node("a")).isParentOf(node("lambert1")));
    EXPECT_EQ(b.dagRoot().apiType(), MFn::kWorld);
    EXPECT_TRUE(b.inModel());
}

TEST_F(MFnDagNodeTest, pathsOfNodesAndOfPaths) {
    run("parent -add b c");
    MDagPathArray paths;
    const MFnDagNode byNode(node("shape"));
    EXPECT_EQ(byNode.getAllPaths(paths), MStatus::kSuccess);
    ASSERT_EQ(paths.length(), 2U);
    MStatus status;
    EXPECT_FALSE(byNode.dagPath(&status).isValid());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(byNode.fullPathName(), "|a|b|shape") << "the first one";
    const MFnDagNode byPath(paths[1]);
    EXPECT_TRUE(byPath.dagPath() == paths[1]);
    EXPECT_EQ(byPath.fullPathName(), "|c|b|shape");
    EXPECT_EQ(byPath.partialPathName(), "c|b|shape");
    EXPECT_TRUE(byPath.isInstanced());
    EXPECT_FALSE(byPath.isInstanced(false)) << "only its parent has two parents";
    EXPECT_EQ(byPath.instanceCount(true), 2U);
    EXPECT_EQ(byPath.instanceCount(false), 1U);
    EXPECT_EQ(MFnDagNode(node("b")).instanceCount(false), 2U);
}

TEST_F(MFnDagNodeTest, attachingToANodeForgetsThePath) {
    MFnDagNode fn(path("b"));
    EXPECT_TRUE(fn.dagPath().isValid());
    EXPECT_EQ(fn.setObject(node("c")), MStatus::kSuccess);
    EXPECT_FALSE(fn.dagPath().isValid());
    EXPECT_EQ(fn.fullPathName(), "|c");
}

TEST_F(MFnDagNodeTest, matricesAndIntermediateShapes) {
    EXPECT_EQ(MFnDagNode(node("b")).transformationMatrix()(3, 1), 2.0);
    EXPECT_TRUE(MFnDagNode(node("shape")).transformationMatrix() == MMatrix());
    EXPECT_TRUE(MFnDagNode(node("orig")).isIntermediateObject());
    EXPECT_FALSE(MFnDagNode(node("shape")).isIntermediateObject());
    EXPECT_FALSE(MFnDagNode(node("b")).isIntermediateObject());
}

} // namespace
} // namespace host
