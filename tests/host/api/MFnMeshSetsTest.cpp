// Which sets have a mesh or parts of it.

#include "HostTest.h"

#include <maya/MFnMesh.h>
#include <maya/MFnSet.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A shape of four triangles in two instances, a|m and b|m, and three shading groups and a set.
class MFnMeshSetsTest : public HostTest {
protected:
    MFnMeshSetsTest() {
        run("createNode transform -n a; createNode mesh -n m -p a; createNode transform -n b; parent -add -s m b;"
            "setAttr -s 5 \"m.vt[0:4]\" 0 0 0 1 0 0 1 1 0 0 1 0 2 2 0;"
            "setAttr -s 8 \"m.ed[0:7]\" 0 1 0 1 2 0 2 3 0 3 0 0 0 2 0 1 3 0 1 4 0 2 4 0;"
            "setAttr -s 4 -ch 12 \"m.fc[0:3]\" -type \"polyFaces\" f 3 0 1 -5 f 3 4 2 3 f 3 0 5 3 f 3 6 -8 -2");
        run("createNode shadingEngine -n red; createNode shadingEngine -n green; createNode shadingEngine -n blue;"
            "createNode objectSet -n picked");
    }

    void assign(const char* group, const char* faces, const char* set) {
        run(std::string("setAttr \"m.") + group + ".gcl\" -type \"componentList\" 1 \"" + faces +
            "\"; connectAttr \"m." + group + "\" " + set + ".dsm -na");
    }

    static std::string describe(const MObject& component) {
        if (component.isNull()) {
            return "whole";
        }
        MIntArray elements;
        EXPECT_EQ(MFnSingleIndexedComponent(component).getElements(elements), MStatus::kSuccess);
        std::string text = component.apiTypeStr();
        for (unsigned int i = 0; i < elements.length(); ++i) {
            text += " " + std::to_string(elements[i]);
        }
        return text;
    }

    std::vector<std::string> sets(unsigned int instance, bool renderableOnly) {
        MObjectArray found;
        MObjectArray components;
        EXPECT_EQ(MFnMesh(node("m")).getConnectedSetsAndMembers(instance, found, components, renderableOnly),
                  MStatus::kSuccess);
        EXPECT_EQ(found.length(), components.length());
        std::vector<std::string> result;
        for (unsigned int i = 0; i < found.length(); ++i) {
            const MString name = MFnSet(found[i]).name();
            result.push_back(std::string(name.asChar()) + ": " + describe(components[i]));
        }
        return result;
    }

    std::vector<int> shaders(unsigned int instance, unsigned int expectedGroups) {
        MObjectArray groups;
        MIntArray indices;
        EXPECT_EQ(MFnMesh(node("m")).getConnectedShaders(instance, groups, indices), MStatus::kSuccess);
        EXPECT_EQ(groups.length(), expectedGroups);
        return {&indices[0], &indices[0] + indices.length()};
    }
};

TEST_F(MFnMeshSetsTest, whatIsNotThereFails) {
    MObjectArray found;
    MObjectArray components;
    MIntArray indices;
    EXPECT_EQ(MFnMesh().getConnectedSetsAndMembers(0, found, components, true), MStatus::kFailure);
    EXPECT_EQ(MFnMesh(node("m")).getConnectedSetsAndMembers(2, found, components, true), MStatus::kFailure);
    EXPECT_EQ(MFnMesh().getConnectedShaders(0, found, indices), MStatus::kFailure);
    EXPECT_EQ(MFnMesh(node("m")).getConnectedShaders(2, found, indices), MStatus::kFailure);
    MStatus status;
    const MFnMesh onTransform(node("a"), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MFnMeshSetsTest, nobodyHasIt) {
    EXPECT_THAT(sets(0, false), IsEmpty());
    EXPECT_THAT(shaders(0, 0), ElementsAre(-1, -1, -1, -1));
}

TEST_F(MFnMeshSetsTest, wholeInstances) {
    run("connectAttr m.iog[0] red.dsm[0]; connectAttr m.iog[1] blue.dsm[0]; connectAttr m.iog[1] picked.dsm[0]");
    EXPECT_THAT(sets(0, false), ElementsAre("red: whole"));
    EXPECT_THAT(sets(1, false), ElementsAre("blue: whole", "picked: whole"));
    EXPECT_THAT(sets(1, true), ElementsAre("blue: whole")) << "shading groups only";
    EXPECT_THAT(shaders(1, 1), ElementsAre(0, 0, 0, 0));
}

TEST_F(MFnMeshSetsTest, facesOfOneInstance) {
    assign("iog[0].og[4]", "f[0:1]", "green");
    assign("iog[0].og[2]", "f[3]", "red");
    assign("iog[1].og[0]", "f[*]", "blue");
    assign("iog[0].og[7]", "vtx[0:2]", "picked");
    EXPECT_THAT(sets(0, false), ElementsAre("red: kMeshPolygonComponent 3", "green: kMeshPolygonComponent 0 1",
                                            "picked: kMeshVertComponent 0 1 2"))
        << "in the order of the groups";
    EXPECT_THAT(sets(0, true), ElementsAre("red: kMeshPolygonComponent 3", "green: kMeshPolygonComponent 0 1"));
    EXPECT_THAT(shaders(0, 2), ElementsAre(1, 1, -1, 0));
    EXPECT_THAT(sets(1, true), ElementsAre("blue: kMeshPolygonComponent 0 1 2 3"));
}

TEST_F(MFnMeshSetsTest, severalGroupsOfOneSetAreOne) {
    assign("iog[0].og[0]", "f[3]", "red");
    assign("iog[0].og[1]", "f[1]", "green");
    assign("iog[0].og[2]", "f[0]", "red");
    EXPECT_THAT(sets(0, true), ElementsAre("red: kMeshPolygonComponent 0 3", "green: kMeshPolygonComponent 1"));
}

TEST_F(MFnMeshSetsTest, aLeftOverWholeAssignmentComesFirstAndCountsLeast) {
    assign("iog[0].og[0]", "f[2:3]", "green");
    run("connectAttr m.iog[0] red.dsm[0]");
    EXPECT_THAT(sets(0, true), ElementsAre("red: whole", "green: kMeshPolygonComponent 2 3"));
    EXPECT_THAT(shaders(0, 2), ElementsAre(0, 0, 1, 1));
}

TEST_F(MFnMeshSetsTest, emptyGroupsAreEmptyComponents) {
    run("connectAttr \"m.iog[0].og[0]\" red.dsm[0]");
    EXPECT_THAT(sets(0, true), ElementsAre("red: kMeshPolygonComponent"));
    EXPECT_THAT(shaders(0, 1), ElementsAre(-1, -1, -1, -1));
}

TEST_F(MFnMeshSetsTest, groupsThatNoSetHasDoNotCount) {
    run("setAttr \"m.iog[0].og[0].gcl\" -type \"componentList\" 1 \"f[0]\"; connectAttr \"m.ciog[0].cog[0]\" "
        "red.dsm[0]");
    EXPECT_THAT(sets(0, false), IsEmpty());
}

TEST_F(MFnMeshSetsTest, theGroupOfTheRestShadesWhatNoOtherHas) {
    assign("iog[0].og[0]", "f[1]", "red");
    run("connectAttr \"m.ciog[0].cog[2]\" blue.dsm -na; connectAttr \"m.ciog[1].cog[0]\" red.dsm -na");
    EXPECT_THAT(shaders(0, 2), ElementsAre(1, 0, 1, 1));
    EXPECT_THAT(sets(0, true), ElementsAre("red: kMeshPolygonComponent 1")) << "no members of their own";
    assign("iog[0].og[1]", "f[0]", "red");
    assign("iog[0].og[2]", "f[2:3]", "green");
    EXPECT_THAT(shaders(0, 2), ElementsAre(0, 0, 1, 1)) << "nothing is left";
}

TEST_F(MFnMeshSetsTest, facesThatTheMeshLacksAreLeftOut) {
    assign("iog[0].og[0]", "f[2:900]", "red");
    EXPECT_THAT(sets(0, true), ElementsAre("red: kMeshPolygonComponent 2 3"));
}

TEST_F(MFnMeshSetsTest, theFacesThatHistoryGaveToAGroupCount) {
    run("createNode transform -n h; createNode mesh -n shown -p h; createNode groupParts -n parts; createNode groupId "
        "-n id;"
        "connectAttr m.o parts.ig; connectAttr id.id parts.gi; connectAttr parts.og shown.i;"
        "setAttr parts.ic -type \"componentList\" 1 \"f[1]\"; connectAttr id.id \"shown.iog[0].og[0].gid\";"
        "setAttr \"shown.iog[0].og[0].gcl\" -type \"componentList\" 1 \"f[3]\"; connectAttr \"shown.iog[0].og[0]\" "
        "red.dsm[0]");
    MObjectArray found;
    MObjectArray components;
    ASSERT_EQ(MFnMesh(node("shown")).getConnectedSetsAndMembers(0, found, components, true), MStatus::kSuccess);
    ASSERT_EQ(found.length(), 1U);
    EXPECT_EQ(describe(components[0]), "kMeshPolygonComponent 1") << "what the shape stores is out of date";
}

} // namespace
} // namespace host
