#include <maya/MFnSingleIndexedComponent.h>

#include "HostTest.h"

#include <climits>

namespace host {
namespace {

using testing::ElementsAre;

class MFnSingleIndexedComponentTest : public HostTest {
protected:
    static std::vector<int> elements(const MFnSingleIndexedComponent& component) {
        MIntArray array;
        EXPECT_EQ(component.getElements(array), MStatus::kSuccess);
        return {&array[0], &array[0] + array.length()};
    }
};

TEST_F(MFnSingleIndexedComponentTest, nothingAttachedFails) {
    MFnSingleIndexedComponent none;
    MStatus status;
    MIntArray array;
    int count = 5;
    EXPECT_EQ(none.addElement(1), MStatus::kFailure);
    EXPECT_EQ(none.getElements(array), MStatus::kFailure);
    EXPECT_EQ(none.setCompleteData(1), MStatus::kFailure);
    EXPECT_EQ(none.getCompleteData(count), MStatus::kFailure);
    EXPECT_EQ(count, 5);
    EXPECT_EQ(none.element(0, &status), 0);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(none.elementCount(&status), 0);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_TRUE(none.isEmpty(&status));
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_FALSE(none.isComplete(&status));
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(none.componentType(&status), MFn::kInvalid);
    EXPECT_EQ(status, MStatus::kFailure);
    none.elementMax(&status);
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MFnSingleIndexedComponentTest, attachesOnlyToComponentsWithOneNumber) {
    run("createNode transform -n t");
    MStatus status;
    const MFnSingleIndexedComponent onNode(node("t"), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    MFnSingleIndexedComponent made;
    EXPECT_TRUE(made.create(MFn::kMeshFaceVertComponent, &status).isNull()) << "two numbers each";
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_TRUE(made.create(MFn::kTransform, &status).isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MFnSingleIndexedComponentTest, elementsComeOutAscendingAndOnce) {
    MFnSingleIndexedComponent component;
    MObject object = component.create(MFn::kMeshVertComponent);
    EXPECT_EQ(object.apiType(), MFn::kMeshVertComponent);
    EXPECT_TRUE(component.isEmpty());
    EXPECT_EQ(component.elementCount(), 0);
    for (const int element : {7, 3, 3, 8, 0}) {
        EXPECT_EQ(component.addElement(element), MStatus::kSuccess);
    }
    EXPECT_THAT(elements(component), ElementsAre(0, 3, 7, 8));
    const MFnSingleIndexedComponent again(object);
    EXPECT_EQ(again.elementCount(), 4);
    EXPECT_EQ(again.element(2), 7) << "the object was filled, not the function set";
    EXPECT_EQ(again.elementMax(), 8);
    EXPECT_EQ(again.componentType(), MFn::kMeshVertComponent);
    EXPECT_FALSE(again.isEmpty());
    MStatus status;
    again.element(4, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    again.element(-1, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MFnSingleIndexedComponentTest, impossibleNumbersAddNothing) {
    MFnSingleIndexedComponent component;
    component.create(MFn::kMeshPolygonComponent);
    MIntArray some;
    some.append(1);
    some.append(-1);
    EXPECT_EQ(component.addElements(some), MStatus::kInvalidParameter);
    EXPECT_EQ(component.addElement(INT_MAX), MStatus::kInvalidParameter);
    EXPECT_TRUE(component.isEmpty());
    EXPECT_EQ(component.setCompleteData(-1), MStatus::kInvalidParameter);
}

TEST_F(MFnSingleIndexedComponentTest, completeStandsForAll) {
    MFnSingleIndexedComponent component;
    component.create(MFn::kMeshEdgeComponent);
    int count = 0;
    EXPECT_EQ(component.getCompleteData(count), MStatus::kFailure);
    EXPECT_EQ(component.setCompleteData(3), MStatus::kSuccess);
    EXPECT_TRUE(component.isComplete());
    EXPECT_EQ(component.getCompleteData(count), MStatus::kSuccess);
    EXPECT_EQ(count, 3);
    EXPECT_THAT(elements(component), ElementsAre(0, 1, 2));
    EXPECT_EQ(component.addElement(9), MStatus::kFailure);
}

TEST_F(MFnSingleIndexedComponentTest, equalityIsByElements) {
    MFnSingleIndexedComponent a;
    MFnSingleIndexedComponent b;
    MFnSingleIndexedComponent faces;
    a.create(MFn::kMeshVertComponent);
    b.create(MFn::kMeshVertComponent);
    faces.create(MFn::kMeshPolygonComponent);
    a.addElement(1);
    a.addElement(2);
    b.addElement(2);
    EXPECT_FALSE(a.isEqual(b));
    b.addElement(1);
    faces.addElement(1);
    faces.addElement(2);
    EXPECT_TRUE(a.isEqual(b));
    EXPECT_FALSE(a.isEqual(faces));
    EXPECT_TRUE(a.object() == b.object());
}

TEST_F(MFnSingleIndexedComponentTest, namesBecomeComponents) {
    run("createNode transform -n t; createNode mesh -n m -p t");
    MSelectionList list;
    ASSERT_EQ(list.add("m.vtx[4:6]"), MStatus::kSuccess);
    MDagPath shape;
    MObject object;
    ASSERT_EQ(list.getDagPath(0, shape, object), MStatus::kSuccess);
    EXPECT_THAT(elements(MFnSingleIndexedComponent(object)), ElementsAre(4, 5, 6));
    MFnSingleIndexedComponent made;
    MObject faces = made.create(MFn::kMeshPolygonComponent);
    made.addElement(0);
    made.addElement(2);
    made.addElement(3);
    MStringArray names;
    MSelectionList other;
    ASSERT_EQ(other.add(path("m"), faces), MStatus::kSuccess);
    other.getSelectionStrings(names);
    ASSERT_EQ(names.length(), 2U);
    EXPECT_EQ(names[0], "m.f[0]");
    EXPECT_EQ(names[1], "m.f[2:3]");
}

} // namespace
} // namespace host
