// The function sets of deformers.

#include "MeshTest.h"

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MFnWeightGeometryFilter.h>

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The mesh "m" goes through a tweak and the skin "skin" into "shown"; its influences j0, j2 and j5 are connected at 0,
/// 2 and 5, and at 4 a matrix that belongs to no object.
class DeformerTest : public MeshTest {
protected:
    DeformerTest() {
        run("createNode transform -n b; createNode mesh -n shown -p b; setAttr m.io 1;"
            "createNode joint -n j0; createNode joint -n j2; createNode joint -n j5; createNode multMatrix -n other;"
            "createNode skinCluster -n skin; createNode tweak -n tweak;"
            "connectAttr m.w[0] tweak.ip[0].ig; connectAttr tweak.og[0] skin.ip[0].ig; connectAttr skin.og[0] shown.i;"
            "connectAttr j5.wm[0] skin.ma[5]; connectAttr j0.wm[0] skin.ma[0]; connectAttr j2.wm[0] skin.ma[2];"
            "connectAttr other.o skin.ma[4];"
            "setAttr \"skin.wl[0].w[0]\" 1; setAttr \"skin.wl[1].w[2]\" 0.25; setAttr \"skin.wl[1].w[5]\" 0.75");
    }

    static MObject vertices(std::initializer_list<int> elements, MFn::Type kind = MFn::kMeshVertComponent) {
        MFnSingleIndexedComponent made;
        MObject object = made.create(kind);
        for (const int element : elements) {
            made.addElement(element);
        }
        return object;
    }

    MStatus status_;
    MDoubleArray weights_;
    MFloatArray floats_;
    unsigned int count_ = 9;
};

using MFnSkinClusterTest = DeformerTest;
using MFnGeometryFilterTest = DeformerTest;
using MFnWeightGeometryFilterTest = DeformerTest;

TEST_F(MFnSkinClusterTest, attachesToSkinsOnly) {
    const MFnSkinCluster onTweak(node("tweak"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    const MFnSkinCluster none;
    MDagPathArray paths;
    EXPECT_EQ(none.influenceObjects(paths, &status_), 0U);
    EXPECT_EQ(status_, MStatus::kFailure);
    none.indexForInfluenceObject(path("j0"), &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(none.getWeights(path("shown"), MObject(), weights_, count_), MStatus::kFailure);
}

TEST_F(MFnSkinClusterTest, influencesByTheirIndex) {
    const MFnSkinCluster skin(node("skin"));
    MDagPathArray paths;
    ASSERT_EQ(skin.influenceObjects(paths, &status_), 3U);
    EXPECT_EQ(paths[0].fullPathName(), "|j0");
    EXPECT_EQ(paths[1].fullPathName(), "|j2");
    EXPECT_EQ(paths[2].fullPathName(), "|j5");
    EXPECT_EQ(skin.indexForInfluenceObject(path("j5")), 5U);
    skin.indexForInfluenceObject(path("a"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
}

TEST_F(MFnSkinClusterTest, anInstancedInfluenceIsTheInstanceThatDrives) {
    run("createNode transform -n g; parent -add j2 g; disconnectAttr j2.wm[0] skin.ma[2]; connectAttr j2.wm[1] "
        "skin.ma[2]");
    MDagPathArray paths;
    ASSERT_EQ(MFnSkinCluster(node("skin")).influenceObjects(paths), 3U);
    EXPECT_EQ(paths[1].fullPathName(), "|g|j2");
}

TEST_F(MFnSkinClusterTest, weightsByVertexThenInfluence) {
    const MFnSkinCluster skin(node("skin"));
    ASSERT_EQ(skin.getWeights(path("shown"), vertices({1, 0}), weights_, count_), MStatus::kSuccess);
    EXPECT_EQ(count_, 3U);
    EXPECT_THAT(storedValues(weights_), ElementsAre(1, 0, 0, 0, 0.25, 0.75));
    ASSERT_EQ(skin.getWeights(path("shown"), vertices({1}), floats_, count_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(floats_), ElementsAre(0.0F, 0.25F, 0.75F));
    ASSERT_EQ(skin.getWeights(path("shown"), MObject::kNullObj, weights_, count_), MStatus::kSuccess);
    EXPECT_EQ(weights_.length(), 18U) << "all vertices";
    EXPECT_EQ(weights_[17], 0.0) << "vertex 5 has none stored";
    ASSERT_EQ(skin.getWeights(path("shown"), vertices({0, 1}), 2, weights_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(weights_), ElementsAre(0, 0.75));
    ASSERT_EQ(skin.getWeights(path("shown"), vertices({1}), 1, floats_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(floats_), ElementsAre(0.25F));
    MIntArray chosen;
    chosen.append(2);
    chosen.append(0);
    ASSERT_EQ(skin.getWeights(path("shown"), vertices({0, 1}), chosen, weights_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(weights_), ElementsAre(0, 1, 0.75, 0));
}

TEST_F(MFnSkinClusterTest, weightsOfSomethingElseFail) {
    const MFnSkinCluster skin(node("skin"));
    EXPECT_EQ(skin.getWeights(path("m"), vertices({0}), weights_, count_), MStatus::kFailure) << "the original";
    EXPECT_EQ(skin.getWeights(path("j0"), vertices({0}), weights_, count_), MStatus::kFailure);
    EXPECT_EQ(skin.getWeights(MDagPath(), vertices({0}), weights_, count_), MStatus::kFailure);
    EXPECT_EQ(skin.getWeights(path("shown"), vertices({0}, MFn::kMeshPolygonComponent), weights_, count_),
              MStatus::kFailure);
    EXPECT_EQ(skin.getWeights(path("shown"), vertices({0, 6}), weights_, count_), MStatus::kFailure)
        << "no such vertex";
    EXPECT_EQ(skin.getWeights(path("shown"), vertices({0}), 3, weights_), MStatus::kInvalidParameter);
    EXPECT_EQ(count_, 9U);
    ASSERT_EQ(skin.getWeights(path("shown"), vertices({}), weights_, count_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(weights_), IsEmpty());
}

TEST_F(MFnSkinClusterTest, noEffectShowsTheMeshWithoutIt) {
    run("setAttr j2.tx 8; setAttr j5.tx 8; setAttr \"skin.pm[0]\" -type \"matrix\" 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1");
    const MFnMesh mesh(path("shown"));
    MPoint point;
    ASSERT_EQ(mesh.getPoint(1, point), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(9, 0, 0));
    ASSERT_EQ(plug("skin.nodeState").setValue(1), MStatus::kSuccess);
    ASSERT_EQ(mesh.getPoint(1, point), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(1, 0, 0));
}

TEST_F(MFnGeometryFilterTest, attachesToDeformers) {
    const MFnGeometryFilter onMesh(node("m"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    MObjectArray shapes;
    EXPECT_EQ(onMesh.getInputGeometry(shapes), MStatus::kFailure);
    EXPECT_EQ(onMesh.getOutputGeometry(shapes), MStatus::kFailure);
    onMesh.numOutputConnections(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    onMesh.envelope(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    onMesh.deformerSet(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    for (const char* const type : {"skinCluster", "cluster", "jointCluster", "tweak", "blendShape"}) {
        run(std::string("createNode ") + type + " -n d_" + type);
        const MFnGeometryFilter filter(node((std::string("d_") + type).c_str()), &status_);
        EXPECT_EQ(status_, MStatus::kSuccess) << type;
    }
}

TEST_F(MFnGeometryFilterTest, shapesAtBothEnds) {
    const MFnGeometryFilter skin(node("skin"));
    MObjectArray shapes;
    ASSERT_EQ(skin.getOutputGeometry(shapes), MStatus::kSuccess);
    ASSERT_EQ(shapes.length(), 1U);
    EXPECT_TRUE(shapes[0] == node("shown"));
    ASSERT_EQ(skin.getInputGeometry(shapes), MStatus::kSuccess);
    ASSERT_EQ(shapes.length(), 1U);
    EXPECT_TRUE(shapes[0] == node("m")) << "the other deformer is passed by";
    const MFnGeometryFilter tweak(node("tweak"));
    EXPECT_TRUE(tweak.outputShapeAtIndex(0) == node("shown"));
    EXPECT_EQ(tweak.indexForOutputShape(node("shown")), 0U);
    EXPECT_EQ(tweak.numOutputConnections(), 1U);
    EXPECT_EQ(tweak.indexForOutputConnection(0), 0U);
    MDagPath shown;
    ASSERT_EQ(tweak.getPathAtIndex(0, shown), MStatus::kSuccess);
    EXPECT_EQ(shown.fullPathName(), "|b|shown");
}

TEST_F(MFnGeometryFilterTest, indicesThatHaveNothingFail) {
    const MFnGeometryFilter skin(node("skin"));
    MDagPath none;
    EXPECT_TRUE(skin.outputShapeAtIndex(3, &status_).isNull());
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    EXPECT_TRUE(skin.inputShapeAtIndex(3, &status_).isNull());
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    EXPECT_EQ(skin.getPathAtIndex(3, none), MStatus::kInvalidParameter);
    skin.indexForOutputShape(node("m"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    skin.indexForOutputShape(MObject::kNullObj, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    skin.indexForOutputConnection(1, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    skin.groupIdAtIndex(3, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    skin.indexForGroupId(44, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
}

TEST_F(MFnGeometryFilterTest, severalShapesAreToldApart) {
    run("createNode mesh -n second; createNode mesh -n third; connectAttr second.w[0] skin.ip[3].ig;"
        "connectAttr skin.og[3] third.i; setAttr \"skin.ip[3].gi\" 17; setAttr \"skin.ip[0].gi\" 4");
    const MFnGeometryFilter skin(node("skin"));
    EXPECT_EQ(skin.numOutputConnections(), 2U);
    EXPECT_EQ(skin.indexForOutputConnection(1), 3U);
    EXPECT_EQ(skin.indexForOutputShape(node("third")), 3U);
    EXPECT_TRUE(skin.inputShapeAtIndex(3) == node("second"));
    EXPECT_EQ(skin.groupIdAtIndex(3), 17U);
    EXPECT_EQ(skin.indexForGroupId(17), 3U);
    EXPECT_EQ(skin.indexForGroupId(4), 0U);
}

TEST_F(MFnGeometryFilterTest, envelopeAndSet) {
    run("createNode objectSet -n skinSet");
    MFnGeometryFilter skin(node("skin"));
    EXPECT_EQ(skin.envelope(), 1.0F);
    EXPECT_EQ(skin.setEnvelope(0.5F), MStatus::kSuccess);
    EXPECT_EQ(skin.envelope(), 0.5F);
    EXPECT_TRUE(skin.deformerSet(&status_).isNull()) << "none yet";
    EXPECT_EQ(status_, MStatus::kFailure);
    run("connectAttr skin.msg skinSet.ub[0]");
    EXPECT_TRUE(skin.deformerSet(&status_) == node("skinSet"));
    EXPECT_EQ(status_, MStatus::kSuccess);
}

TEST_F(MFnGeometryFilterTest, cyclesEnd) {
    run("createNode tweak -n other1; createNode tweak -n other2; connectAttr other1.og[0] other2.ip[0].ig;"
        "connectAttr other2.og[0] other1.ip[0].ig");
    const MFnGeometryFilter filter(node("other1"));
    EXPECT_TRUE(filter.outputShapeAtIndex(0).isNull());
    EXPECT_TRUE(filter.inputShapeAtIndex(0).isNull());
}

TEST_F(MFnWeightGeometryFilterTest, attachesToClusters) {
    const MFnWeightGeometryFilter onSkin(node("skin"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    run("createNode cluster -n c; createNode jointCluster -n jc");
    const MFnWeightGeometryFilter onCluster(node("c"), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    const MFnWeightGeometryFilter onJointCluster(node("jc"), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_EQ(onCluster.getWeights(path("shown"), MObject(), floats_), MStatus::kFailure) << "it deforms nothing";
    EXPECT_EQ(MFnWeightGeometryFilter().getWeights(path("shown"), MObject(), floats_), MStatus::kFailure);
}

TEST_F(MFnWeightGeometryFilterTest, oneWeightPerVertex) {
    run("createNode cluster -n c; disconnectAttr skin.og[0] shown.i; connectAttr skin.og[0] c.ip[0].ig;"
        "connectAttr c.og[0] shown.i; setAttr \"c.wl[0].w[2]\" 0.5; setAttr \"c.wl[0].w[4]\" 0");
    const MFnWeightGeometryFilter cluster(node("c"));
    ASSERT_EQ(cluster.getWeights(path("shown"), vertices({4, 2, 1}), floats_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(floats_), ElementsAre(1, 0.5, 0)) << "ascending; 1 where nothing is stored";
    ASSERT_EQ(cluster.getWeights(0U, MObject::kNullObj, floats_), MStatus::kSuccess);
    EXPECT_THAT(storedValues(floats_), ElementsAre(1, 1, 0.5, 1, 0, 1));
    EXPECT_EQ(cluster.getWeights(1U, MObject::kNullObj, floats_), MStatus::kFailure);
    EXPECT_EQ(cluster.getWeights(path("m"), vertices({0}), floats_), MStatus::kFailure);
    EXPECT_EQ(cluster.getWeights(path("shown"), vertices({0}, MFn::kMeshEdgeComponent), floats_), MStatus::kFailure);
    EXPECT_EQ(cluster.getWeights(path("shown"), vertices({99}), floats_), MStatus::kFailure);
}

} // namespace
} // namespace host
