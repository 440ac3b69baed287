#include <maya/MObject.h>

#include "HostTest.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MFnStringData.h>

namespace host {
namespace {

struct TypeRow {
    const char* create; // MEL that makes a node `x`
    MFn::Type type;
    std::vector<MFn::Type> has;
    std::vector<MFn::Type> hasNot;
};

class MObjectTypeTest : public HostTest, public testing::WithParamInterface<TypeRow> {};

TEST_P(MObjectTypeTest, tellsItsTypeAndFamilies) {
    run(GetParam().create);
    const MObject x = node("x");
    EXPECT_EQ(x.apiType(), GetParam().type) << x.apiTypeStr();
    for (const MFn::Type type : GetParam().has) {
        EXPECT_TRUE(x.hasFn(type)) << type;
    }
    for (const MFn::Type type : {MFn::kBase, MFn::kNamedObject, MFn::kDependencyNode}) {
        EXPECT_TRUE(x.hasFn(type)) << type;
    }
    for (const MFn::Type type : GetParam().hasNot) {
        EXPECT_FALSE(x.hasFn(type)) << type;
    }
    EXPECT_FALSE(x.hasFn(MFn::kInvalid));
}

INSTANTIATE_TEST_SUITE_P(
    Nodes, MObjectTypeTest,
    testing::Values(
        TypeRow{"createNode transform -n x", MFn::kTransform, {MFn::kDagNode}, {MFn::kJoint, MFn::kShape, MFn::kData}},
        TypeRow{"createNode joint -n x", MFn::kJoint, {MFn::kTransform, MFn::kDagNode}, {MFn::kMesh}},
        TypeRow{"createNode mesh -n x", MFn::kMesh, {MFn::kShape, MFn::kDagNode}, {MFn::kTransform}},
        TypeRow{"createNode blinn -n x", MFn::kBlinn, {MFn::kReflect, MFn::kLambert}, {MFn::kPhong}},
        TypeRow{"createNode lambert -n x", MFn::kLambert, {}, {MFn::kReflect, MFn::kDagNode}},
        TypeRow{"createNode shadingEngine -n x", MFn::kShadingEngine, {MFn::kSet}, {MFn::kLambert}},
        TypeRow{"createNode file -n x", MFn::kFileTexture, {MFn::kTexture2d}, {MFn::kTexture3d}},
        TypeRow{"createNode movie -n x", MFn::kFileTexture, {MFn::kTexture2d}, {}},
        TypeRow{"createNode skinCluster -n x", MFn::kSkinClusterFilter, {MFn::kGeometryFilt}, {}},
        TypeRow{"createNode animCurveTU -n x", MFn::kAnimCurveTimeToUnitless, {MFn::kAnimCurve}, {}}));

class MObjectTest : public HostTest {};

TEST_F(MObjectTest, nothingIsNull) {
    const MObject null;
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(!null);
    EXPECT_EQ(null.apiType(), MFn::kInvalid);
    EXPECT_STREQ(null.apiTypeStr(), "kInvalid");
    EXPECT_FALSE(null.hasFn(MFn::kBase));
    EXPECT_TRUE(null == MObject::kNullObj);
}

TEST_F(MObjectTest, aHandleOfADeletedNodeIsNull) {
    run("createNode transform -n gone");
    const MObject gone = node("gone");
    const MObject attribute = MFnDependencyNode(gone).attribute("translate");
    run("addAttr -ln extra -at double gone");
    const MObject dynamic = MFnDependencyNode(gone).attribute("extra");
    ASSERT_FALSE(dynamic.isNull());
    run("delete gone");
    EXPECT_TRUE(gone.isNull());
    EXPECT_EQ(gone.apiType(), MFn::kInvalid);
    EXPECT_TRUE(dynamic.isNull()) << "its attribute was the node's own";
    EXPECT_FALSE(attribute.isNull()) << "its attribute is every transform's";
    run("createNode transform -n again");
    EXPECT_TRUE(gone.isNull()) << "a new node in its place is another one";
    EXPECT_FALSE(gone == node("again"));
}

TEST_F(MObjectTest, aHandleOfAnotherSceneIsNull) {
    run("createNode transform -n old");
    const MObject old = node("old");
    host.scene().newScene();
    run("createNode transform -n fresh");
    EXPECT_TRUE(old.isNull());
}

TEST_F(MObjectTest, handlesOfTheSameThingAreEqual) {
    run("createNode transform -n a; createNode joint -n b; addAttr -ln e -at double a b");
    EXPECT_TRUE(node("a") == node("a"));
    EXPECT_TRUE(node("a") != node("b"));
    const MFnDependencyNode a(node("a"));
    const MFnDependencyNode b(node("b"));
    EXPECT_TRUE(a.attribute("translate") == a.attribute("t"));
    EXPECT_TRUE(a.attribute("translate") == b.attribute("translate")) << "inherited attributes are one";
    EXPECT_TRUE(a.attribute("translateX") != a.attribute("translateY"));
    EXPECT_TRUE(a.attribute("e") != b.attribute("e")) << "dynamic ones are their node's own";
    EXPECT_TRUE(a.attribute("translate") != node("a"));
}

struct AttributeRow {
    const char* name;
    MFn::Type type;
    MFn::Type family;
};

class AttributeTypeTest : public HostTest, public testing::WithParamInterface<AttributeRow> {};

TEST_P(AttributeTypeTest, tellsItsType) {
    run("createNode mesh -n m; createNode joint -n x; addAttr -ln text -dt \"string\" x;"
        "addAttr -ln many -at compound -nc 2 x; addAttr -ln one -at bool -p many x; addAttr -ln two -dt \"string\" -p "
        "many x");
    const MObject attribute = MFnDependencyNode(node("x")).attribute(GetParam().name);
    EXPECT_EQ(attribute.apiType(), GetParam().type) << attribute.apiTypeStr();
    EXPECT_TRUE(attribute.hasFn(GetParam().family));
    EXPECT_TRUE(attribute.hasFn(MFn::kAttribute));
    EXPECT_FALSE(attribute.hasFn(MFn::kDependencyNode));
}

INSTANTIATE_TEST_SUITE_P(Attributes, AttributeTypeTest,
                         testing::Values(AttributeRow{"visibility", MFn::kNumericAttribute, MFn::kNumericAttribute},
                                         AttributeRow{"rotateOrder", MFn::kEnumAttribute, MFn::kEnumAttribute},
                                         AttributeRow{"translateX", MFn::kDoubleLinearAttribute, MFn::kUnitAttribute},
                                         AttributeRow{"rotateX", MFn::kDoubleAngleAttribute, MFn::kUnitAttribute},
                                         AttributeRow{"translate", MFn::kAttribute3Double, MFn::kCompoundAttribute},
                                         AttributeRow{"matrix", MFn::kMatrixAttribute, MFn::kMatrixAttribute},
                                         AttributeRow{"message", MFn::kMessageAttribute, MFn::kMessageAttribute},
                                         AttributeRow{"text", MFn::kTypedAttribute, MFn::kTypedAttribute},
                                         AttributeRow{"many", MFn::kCompoundAttribute, MFn::kCompoundAttribute}));

} // namespace
} // namespace host
