#include <maya/MFnTransform.h>

#include "HostTest.h"

#include <maya/MFnIkJoint.h>
#include <maya/MFnMatrixData.h>

namespace host {
namespace {

constexpr double kDegree = 0.017453292519943295;

class MFnTransformTest : public HostTest {
protected:
    MFnTransformTest() {
        run("createNode transform -n top; setAttr top.t 100 0 0; setAttr top.r 0 0 90;"
            "createNode transform -n a -p top; setAttr a.t 1 2 3; setAttr a.r 10 20 30; setAttr a.ro 5;"
            "setAttr a.s 2 3 4; setAttr a.sh 0.1 0.2 0.3; setAttr a.ra 0 0 45; setAttr a.rp 1 0 0;"
            "setAttr a.sp 0 1 0; setAttr a.rpt 0 0 1; setAttr a.spt 0.5 0 0;"
            "createNode joint -n j; setAttr j.r 10 0 0; setAttr j.jo 0 20 0; setAttr j.ra 0 0 30; setAttr j.s 1 2 1;"
            "setAttr j.preferredAngle 5 0 0");
        fn.setObject(path("a"));
    }

    MFnTransform fn;
};

TEST_F(MFnTransformTest, nothingAttachedFailsEveryQuestion) {
    const MFnTransform none;
    const MFnIkJoint noJoint;
    MStatus status;
    double values[3] = {7.0, 7.0, 7.0};
    MEulerRotation euler;
    MQuaternion quaternion;
    MTransformationMatrix::RotationOrder order = MTransformationMatrix::kXYZ;
    EXPECT_EQ(none.getScale(values), MStatus::kFailure);
    EXPECT_EQ(none.getShear(values), MStatus::kFailure);
    EXPECT_EQ(none.getRotation(euler), MStatus::kFailure);
    EXPECT_EQ(none.getRotation(values, order), MStatus::kFailure);
    EXPECT_EQ(none.getRotation(quaternion), MStatus::kFailure);
    EXPECT_EQ(none.getRotation(quaternion, MSpace::kWorld), MStatus::kFailure);
    EXPECT_EQ(noJoint.getOrientation(euler), MStatus::kFailure);
    EXPECT_EQ(noJoint.getOrientation(quaternion), MStatus::kFailure);
    EXPECT_EQ(noJoint.getOrientation(values, order), MStatus::kFailure);
    EXPECT_EQ(noJoint.getScaleOrientation(euler), MStatus::kFailure);
    EXPECT_EQ(noJoint.getSegmentScale(values), MStatus::kFailure);
    EXPECT_EQ(noJoint.getPreferedAngle(values), MStatus::kFailure);
    EXPECT_EQ(values[0], 7.0);
    for (const MSpace::Space space : {MSpace::kTransform, MSpace::kWorld}) {
        none.getTranslation(space, &status);
        EXPECT_EQ(status, MStatus::kFailure);
        none.rotatePivot(space, &status);
        EXPECT_EQ(status, MStatus::kFailure);
    }
    none.transformation(&status);
    EXPECT_EQ(status, MStatus::kFailure);
    none.rotationOrder(&status);
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MFnTransformTest, spacesThatMeanNothingAreRefused) {
    MStatus status;
    MQuaternion quaternion;
    for (const MSpace::Space space : {MSpace::kInvalid, MSpace::kPostTransform, MSpace::kLast}) {
        fn.getTranslation(space, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
        fn.rotatePivot(space, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
        fn.rotatePivotTranslation(space, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
        fn.rotateOrientation(space, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
        EXPECT_EQ(fn.getRotation(quaternion, space), MStatus::kInvalidParameter);
    }
}

TEST_F(MFnTransformTest, partsAreTheAttributes) {
    double scale[3], shear[3], angles[3];
    ASSERT_EQ(fn.getScale(scale), MStatus::kSuccess);
    EXPECT_THAT(scale, testing::ElementsAre(2.0, 3.0, 4.0));
    ASSERT_EQ(fn.getShear(shear), MStatus::kSuccess);
    EXPECT_THAT(shear, testing::ElementsAre(0.1, 0.2, 0.3));
    MEulerRotation rotation;
    ASSERT_EQ(fn.getRotation(rotation), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(rotation.y, 20.0 * kDegree);
    EXPECT_EQ(rotation.order, MEulerRotation::kZYX);
    MTransformationMatrix::RotationOrder order = MTransformationMatrix::kInvalid;
    ASSERT_EQ(fn.getRotation(angles, order), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(angles[2], 30.0 * kDegree);
    EXPECT_EQ(order, MTransformationMatrix::kZYX);
    EXPECT_EQ(fn.rotationOrder(), MTransformationMatrix::kZYX);
    MQuaternion quaternion;
    ASSERT_EQ(fn.getRotation(quaternion), MStatus::kSuccess);
    EXPECT_TRUE(quaternion.isEquivalent(rotation.asQuaternion()));
    EXPECT_TRUE(fn.getTranslation(MSpace::kTransform) == MVector(1.0, 2.0, 3.0));
    EXPECT_TRUE(fn.translation(MSpace::kObject) == MVector(1.0, 2.0, 3.0));
    EXPECT_TRUE(fn.rotatePivot(MSpace::kTransform) == MPoint(1.0, 0.0, 0.0));
    EXPECT_TRUE(fn.scalePivot(MSpace::kTransform) == MPoint(0.0, 1.0, 0.0));
    EXPECT_TRUE(fn.rotatePivotTranslation(MSpace::kTransform) == MVector(0.0, 0.0, 1.0));
    EXPECT_TRUE(fn.scalePivotTranslation(MSpace::kTransform) == MVector(0.5, 0.0, 0.0));
    EXPECT_TRUE(
        fn.rotateOrientation(MSpace::kTransform).isEquivalent(MEulerRotation(0.0, 0.0, 45.0 * kDegree).asQuaternion()));
}

TEST_F(MFnTransformTest, thePiecesTogetherAreTheLocalMatrix) {
    const MMatrix matrix = MFnMatrixData(plug("a.matrix").asMObject()).matrix();
    EXPECT_TRUE(fn.transformation().asMatrix().isEquivalent(matrix, 1e-12));
}

TEST_F(MFnTransformTest, worldSpaceGoesThroughTheParents) {
    // The parent turns x into y and shifts by 100.
    EXPECT_TRUE(fn.getTranslation(MSpace::kWorld).isEquivalent(MVector(98.0, 1.0, 3.0), 1e-12));
    const MFnTransform byNode(node("a"));
    EXPECT_TRUE(byNode.getTranslation(MSpace::kWorld).isEquivalent(MVector(98.0, 1.0, 3.0), 1e-12));
    const MPoint pivot = MPoint(1.0, 0.0, 0.0) * path("a").inclusiveMatrix();
    EXPECT_TRUE(fn.rotatePivot(MSpace::kWorld).isEquivalent(pivot, 1e-12));
    MQuaternion top;
    ASSERT_EQ(MFnTransform(path("top")).getRotation(top, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(top.isEquivalent(MEulerRotation(0.0, 0.0, 90.0 * kDegree).asQuaternion(), 1e-12));
    run("createNode transform -n second; parent -add a second");
    MStatus status;
    byNode.getTranslation(MSpace::kWorld, &status);
    EXPECT_EQ(status, MStatus::kFailure) << "which of the two?";
    fn.getTranslation(MSpace::kWorld, &status);
    EXPECT_EQ(status, MStatus::kSuccess);
}

TEST_F(MFnTransformTest, partsCanBeSet) {
    MFnTransform other(path("top"));
    const double scale[3] = {5.0, 6.0, 7.0};
    const double shear[3] = {1.0, 2.0, 3.0};
    EXPECT_EQ(other.setScale(scale), MStatus::kSuccess);
    EXPECT_EQ(other.setShear(shear), MStatus::kSuccess);
    EXPECT_EQ(other.setTranslation(MVector(1.0, 1.0, 1.0), MSpace::kTransform), MStatus::kSuccess);
    EXPECT_EQ(other.setRotation(MEulerRotation(0.1, 0.2, 0.3)), MStatus::kSuccess);
    EXPECT_EQ(plug("top.scaleZ").asDouble(), 7.0);
    EXPECT_EQ(plug("top.shearXZ").asDouble(), 2.0);
    EXPECT_EQ(plug("top.translateY").asDouble(), 1.0);
    EXPECT_EQ(plug("top.rotateZ").asDouble(), 0.3);
    EXPECT_EQ(other.setTranslation(MVector(), MSpace::kInvalid), MStatus::kInvalidParameter);
    run("setAttr -l on top.sy");
    EXPECT_EQ(other.setScale(shear), MStatus::kFailure);
    EXPECT_EQ(plug("top.scaleX").asDouble(), 5.0) << "all or nothing";
    EXPECT_EQ(fn.setTranslation(MVector(1.0, 1.0, 1.0), MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(fn.getTranslation(MSpace::kWorld).isEquivalent(MVector(1.0, 1.0, 1.0), 1e-9));
}

TEST_F(MFnTransformTest, jointsTellOrientAndAxisApart) {
    const MFnIkJoint joint(path("j"));
    MEulerRotation rotation;
    ASSERT_EQ(joint.getRotation(rotation), MStatus::kSuccess);
    EXPECT_TRUE(rotation.isEquivalent(MEulerRotation(10.0 * kDegree, 0.0, 0.0)));
    ASSERT_EQ(joint.getOrientation(rotation), MStatus::kSuccess);
    EXPECT_TRUE(rotation.isEquivalent(MEulerRotation(0.0, 20.0 * kDegree, 0.0)));
    ASSERT_EQ(joint.getScaleOrientation(rotation), MStatus::kSuccess);
    EXPECT_TRUE(rotation.isEquivalent(MEulerRotation(0.0, 0.0, 30.0 * kDegree)));
    MQuaternion quaternion;
    ASSERT_EQ(joint.getOrientation(quaternion), MStatus::kSuccess);
    EXPECT_TRUE(quaternion.isEquivalent(MEulerRotation(0.0, 20.0 * kDegree, 0.0).asQuaternion()));
    ASSERT_EQ(joint.getScaleOrientation(quaternion), MStatus::kSuccess);
    EXPECT_TRUE(quaternion.isEquivalent(MEulerRotation(0.0, 0.0, 30.0 * kDegree).asQuaternion()));
    double values[3];
    MTransformationMatrix::RotationOrder order = MTransformationMatrix::kInvalid;
    ASSERT_EQ(joint.getOrientation(values, order), MStatus::kSuccess);
    EXPECT_EQ(order, MTransformationMatrix::kXYZ);
    ASSERT_EQ(joint.getScaleOrientation(values, order), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(values[2], 30.0 * kDegree);
    ASSERT_EQ(joint.getSegmentScale(values), MStatus::kSuccess);
    EXPECT_THAT(values, testing::ElementsAre(1.0, 2.0, 1.0));
    ASSERT_EQ(joint.getPreferredAngle(values), MStatus::kSuccess);
    EXPECT_DOUBLE_EQ(values[0], 5.0 * kDegree);
}

} // namespace
} // namespace host
