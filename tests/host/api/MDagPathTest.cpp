#include <maya/MDagPath.h>

#include "HostTest.h"

#include <maya/MDagPathArray.h>

#include <functional>

namespace host {
namespace {

class MDagPathTest : public HostTest {
protected:
    MDagPathTest() {
        run("createNode transform -n a; setAttr a.t 1 0 0; createNode transform -n b -p a; setAttr b.t 0 2 0;"
            "createNode mesh -n shape -p b; createNode transform -n other; setAttr other.t 10 0 0");
    }

    /// The shape and its transform stand below `other` as well.
    void instance() { run("parent -add b other"); }
};

const std::vector<std::pair<const char*, std::function<MStatus(MDagPath&)>>>& questions() {
    static const std::vector<std::pair<const char*, std::function<MStatus(MDagPath&)>>> rows = {
#define QUESTION(call)                                                                                                 \
    {                                                                                                                  \
#call, [](MDagPath& path) {                                                                                       \
         MStatus status;                                                                                               \
         path.call;                                                                                                    \
         return status;                                                                                                \
     }    \
    }
        QUESTION(node(&status)),
        QUESTION(transform(&status)),
        QUESTION(length(&status)),
        QUESTION(childCount(&status)),
        QUESTION(child(0, &status)),
        QUESTION(pathCount(&status)),
        QUESTION(isInstanced(&status)),
        QUESTION(instanceNumber(&status)),
        QUESTION(inclusiveMatrix(&status)),
        QUESTION(inclusiveMatrixInverse(&status)),
        QUESTION(exclusiveMatrix(&status)),
        QUESTION(exclusiveMatrixInverse(&status)),
        QUESTION(apiType(&status)),
        QUESTION(hasFn(MFn::kDagNode, &status)),
        QUESTION(fullPathName(&status)),
        QUESTION(partialPathName(&status)),
        QUESTION(isVisible(&status)),
        QUESTION(isTemplated(&status)),
#undef QUESTION
        {"extendToShape", [](MDagPath& path) { return path.extendToShape(); }},
        {"extendToShapeDirectlyBelow", [](MDagPath& path) { return path.extendToShapeDirectlyBelow(0); }},
        {"numberOfShapesDirectlyBelow",
         [](MDagPath& path) {
             unsigned int count = 0;
             return path.numberOfShapesDirectlyBelow(count);
         }},
        {"push", [](MDagPath& path) { return path.push(MObject()); }},
        {"set", [](MDagPath& path) { return path.set(path); }},
    };
    return rows;
}

TEST_F(MDagPathTest, anEmptyPathFailsEveryQuestion) {
    MDagPath none;
    EXPECT_FALSE(none.isValid());
    EXPECT_EQ(none.pop(), MStatus::kFailure);
    for (const auto& [name, ask] : questions()) {
        EXPECT_NE(ask(none), MStatus::kSuccess) << name;
    }
}

TEST_F(MDagPathTest, aPathWhoseNodeIsGoneOrMovedFailsEveryQuestion) {
    MDagPath gone = path("shape");
    MDagPath moved = path("b");
    run("delete shape; parent b other");
    for (MDagPath* bad : {&gone, &moved}) {
        EXPECT_FALSE(bad->isValid());
        for (const auto& [name, ask] : questions()) {
            EXPECT_NE(ask(*bad), MStatus::kSuccess) << name;
        }
    }
}

TEST_F(MDagPathTest, aPathThatWasValidFailsOnceANodeAboveWentElsewhere) {
    const MDagPath shape = path("shape");
    const MDagPath copy = shape;
    ASSERT_TRUE(shape.isValid());
    ASSERT_TRUE(copy.isValid());
    run("parent b other");
    EXPECT_FALSE(shape.isValid());
    EXPECT_FALSE(copy.isValid());
    const MDagPath again = path("shape");
    ASSERT_TRUE(again.isValid());
    run("file -f -new; createNode transform -n a; createNode transform -n b -p a; createNode mesh -n shape -p b");
    EXPECT_FALSE(again.isValid()) << "a path of another scene";
}

TEST_F(MDagPathTest, onlyDagNodesHavePaths) {
    MDagPath result;
    MDagPathArray all;
    run("createNode lambert -n l");
    for (const MObject& object : {node("l"), MObject()}) {
        EXPECT_EQ(MDagPath::getAPathTo(object, result), MStatus::kInvalidParameter);
        EXPECT_EQ(MDagPath::getAllPathsTo(object, all), MStatus::kInvalidParameter);
    }
    EXPECT_FALSE(result.isValid());
}

TEST_F(MDagPathTest, namesLengthAndNodes) {
    const MDagPath shape = path("shape");
    EXPECT_EQ(shape.fullPathName(), "|a|b|shape");
    EXPECT_EQ(shape.partialPathName(), "shape");
    EXPECT_EQ(shape.length(), 3U);
    EXPECT_EQ(shape.pathCount(), 1U);
    EXPECT_TRUE(shape.node() == node("shape"));
    EXPECT_TRUE(shape.transform() == node("b"));
    EXPECT_EQ(shape.apiType(), MFn::kMesh);
    EXPECT_TRUE(shape.hasFn(MFn::kMesh));
    EXPECT_FALSE(shape.hasFn(MFn::kTransform));
    EXPECT_EQ(shape.childCount(), 0U);
    EXPECT_TRUE(path("a").child(0) == node("b"));
    MStatus status;
    EXPECT_TRUE(path("a").child(1, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MDagPathTest, partialNamesTellAsMuchAsIsNeeded) {
    run("createNode transform -n b -p other");
    EXPECT_EQ(path("a|b").partialPathName(), "a|b");
    EXPECT_EQ(path("other|b").partialPathName(), "other|b");
    EXPECT_EQ(path("shape").partialPathName(), "shape");
}

TEST_F(MDagPathTest, pushAndPopWalkTheTree) {
    MDagPath walk = path("a");
    EXPECT_EQ(walk.push(node("shape")), MStatus::kInvalidParameter) << "a grandchild";
    EXPECT_EQ(walk.push(node("b")), MStatus::kSuccess);
    EXPECT_TRUE(walk == path("b"));
    EXPECT_EQ(walk.pop(3), MStatus::kFailure);
    EXPECT_TRUE(walk == path("b"));
    EXPECT_EQ(walk.pop(2), MStatus::kSuccess);
    EXPECT_EQ(walk.length(), 0U);
    EXPECT_TRUE(walk.isValid()) << "the world's path";
    EXPECT_EQ(walk.apiType(), MFn::kWorld);
    EXPECT_EQ(walk.fullPathName(), "");
    EXPECT_TRUE(walk.inclusiveMatrix() == MMatrix());
    EXPECT_EQ(walk.pop(), MStatus::kFailure);
    MStatus status;
    EXPECT_TRUE(walk.transform(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MDagPathTest, extendingNeedsExactlyOneShape) {
    MDagPath extended = path("b");
    unsigned int count = 0;
    EXPECT_EQ(extended.numberOfShapesDirectlyBelow(count), MStatus::kSuccess);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(extended.extendToShape(), MStatus::kSuccess);
    EXPECT_TRUE(extended == path("shape"));
    EXPECT_EQ(extended.extendToShape(), MStatus::kFailure) << "a shape has none below";
    MDagPath none = path("other");
    EXPECT_EQ(none.extendToShape(), MStatus::kFailure);
    run("createNode mesh -n second -p b");
    MDagPath two = path("b");
    EXPECT_EQ(two.extendToShape(), MStatus::kFailure);
    EXPECT_EQ(two.extendToShapeDirectlyBelow(2), MStatus::kInvalidParameter);
    EXPECT_EQ(two.extendToShapeDirectlyBelow(1), MStatus::kSuccess);
    EXPECT_TRUE(two == path("second"));
}

TEST_F(MDagPathTest, matricesAreThoseOfThePath) {
    EXPECT_EQ(path("b").inclusiveMatrix()(3, 0), 1.0);
    EXPECT_EQ(path("b").inclusiveMatrix()(3, 1), 2.0);
    EXPECT_EQ(path("b").exclusiveMatrix()(3, 1), 0.0);
    EXPECT_EQ(path("b").exclusiveMatrixInverse()(3, 0), -1.0);
    EXPECT_EQ(path("b").inclusiveMatrixInverse()(3, 1), -2.0);
    EXPECT_TRUE(path("shape").inclusiveMatrix() == path("b").inclusiveMatrix());
    EXPECT_TRUE(path("shape").exclusiveMatrix() == path("b").inclusiveMatrix());
}

TEST_F(MDagPathTest, instancesHavePathsOfTheirOwn) {
    EXPECT_FALSE(path("shape").isInstanced());
    instance();
    MDagPathArray paths;
    ASSERT_EQ(MDagPath::getAllPathsTo(node("shape"), paths), MStatus::kSuccess);
    ASSERT_EQ(paths.length(), 2U);
    EXPECT_EQ(paths[0].fullPathName(), "|a|b|shape");
    EXPECT_EQ(paths[1].fullPathName(), "|other|b|shape");
    EXPECT_EQ(paths[0].instanceNumber(), 0U);
    EXPECT_EQ(paths[1].instanceNumber(), 1U);
    EXPECT_TRUE(paths[1].isInstanced());
    EXPECT_EQ(paths[1].inclusiveMatrix()(3, 0), 10.0);
    EXPECT_EQ(paths[0].inclusiveMatrix()(3, 0), 1.0);
    EXPECT_TRUE(paths[0] != paths[1]);
    MDagPath any;
    EXPECT_EQ(MDagPath::getAPathTo(node("shape"), any), MStatus::kSuccess);
    EXPECT_TRUE(any == paths[0]);
}

struct VisibilityRow {
    const char* change;
    bool isVisible;
};

class MDagPathVisibilityTest : public MDagPathTest, public testing::WithParamInterface<VisibilityRow> {};

TEST_P(MDagPathVisibilityTest, followsTheWholePath) {
    run(GetParam().change);
    EXPECT_EQ(path("shape").isVisible(), GetParam().isVisible) << GetParam().change;
}

INSTANTIATE_TEST_SUITE_P(
    Changes, MDagPathVisibilityTest,
    testing::Values(VisibilityRow{"", true}, VisibilityRow{"setAttr a.v 0", false},
                    VisibilityRow{"setAttr shape.v 0", false}, VisibilityRow{"setAttr b.lodVisibility 0", false},
                    VisibilityRow{"setAttr shape.intermediateObject 1", false},
                    VisibilityRow{"setAttr b.overrideVisibility 0", true},
                    VisibilityRow{"setAttr b.overrideVisibility 0; setAttr b.overrideEnabled 1", false},
                    VisibilityRow{"setAttr other.v 0", true}));

TEST_F(MDagPathTest, templatesAreInherited) {
    EXPECT_FALSE(path("shape").isTemplated());
    run("setAttr a.template 1");
    EXPECT_TRUE(path("shape").isTemplated());
    run("setAttr a.template 0; setAttr b.overrideDisplayType 1");
    EXPECT_FALSE(path("shape").isTemplated());
    run("setAttr b.overrideEnabled 1");
    EXPECT_TRUE(path("shape").isTemplated());
    run("setAttr b.overrideDisplayType 2");
    EXPECT_FALSE(path("shape").isTemplated()) << "a reference is no template";
}

} // namespace
} // namespace host
