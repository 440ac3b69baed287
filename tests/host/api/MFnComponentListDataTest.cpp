#include <maya/MFnComponentListData.h>

#include "HostTest.h"

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MIntArray.h>

namespace host {
namespace {

class MFnComponentListDataTest : public HostTest {
protected:
    MStatus status_;
};

TEST_F(MFnComponentListDataTest, nothingAttachedFails) {
    MFnComponentListData none;
    EXPECT_EQ(none.length(&status_), 0U);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_TRUE(none[0].isNull());
    EXPECT_EQ(none.clear(), MStatus::kFailure);
    EXPECT_EQ(none.add(MObject()), MStatus::kFailure);
    none.has(MObject(), &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    run("createNode transform -n t");
    const MFnComponentListData onNode(node("t"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
}

TEST_F(MFnComponentListDataTest, readsWhatPlugsHold) {
    run("createNode groupParts -n g; setAttr g.ic -type \"componentList\" 4 \"f[0:2]\" \"vtx[*]\" \"f[7]\" "
        "\"vtxFace[3][1]\"");
    MObject data;
    ASSERT_EQ(plug("g.ic").getValue(data), MStatus::kSuccess);
    const MFnComponentListData list(data, &status_);
    ASSERT_EQ(status_, MStatus::kSuccess);
    ASSERT_EQ(list.length(), 3U) << "one for each kind";
    MIntArray faces;
    ASSERT_EQ(MFnSingleIndexedComponent(list[0]).getElements(faces), MStatus::kSuccess);
    EXPECT_THAT(storedValues(faces), testing::ElementsAre(0, 1, 2, 7));
    EXPECT_TRUE(MFnComponent(list[1]).isComplete());
    EXPECT_EQ(list[2].apiType(), MFn::kMeshFaceVertComponent);
    EXPECT_TRUE(list[3].isNull());
    EXPECT_TRUE(list.has(list[0]));
}

TEST_F(MFnComponentListDataTest, madeListsGoIntoPlugs) {
    run("createNode groupParts -n g; createNode nurbsCurve -n c");
    MFnSingleIndexedComponent faces;
    MObject object = faces.create(MFn::kMeshPolygonComponent);
    faces.addElement(4);
    faces.addElement(5);
    MFnComponentListData list;
    MObject data = list.create(&status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_EQ(list.length(), 0U);
    EXPECT_FALSE(list.has(object));
    EXPECT_EQ(list.add(object), MStatus::kSuccess);
    EXPECT_TRUE(list.has(object));
    EXPECT_EQ(list.add(node("c")), MStatus::kInvalidParameter);
    MFnSingleIndexedComponent points;
    EXPECT_EQ(list.add(points.create(MFn::kCurveCVComponent)), MStatus::kInvalidParameter) << "not of a mesh";
    ASSERT_EQ(plug("g.ic").setValue(data), MStatus::kSuccess);
    EXPECT_THAT(run("getAttr g.ic").strings(), testing::ElementsAre("f[4:5]"));
    EXPECT_EQ(list.clear(), MStatus::kSuccess);
    EXPECT_EQ(list.length(), 0U);
    EXPECT_THAT(run("getAttr g.ic").strings(), testing::ElementsAre("f[4:5]")) << "the plug keeps what it was given";
}

} // namespace
} // namespace host
