#include <maya/MFnSet.h>

#include "HostTest.h"

namespace host {
namespace {

class MFnSetTest : public HostTest {
protected:
    MFnSetTest() {
        run("createNode transform -n a; createNode mesh -n shape -p a; createNode transform -n b; parent -add shape b "
            "-s;"
            "createNode objectSet -n s; createNode objectSet -n inner; createNode lambert -n red");
    }

    static std::vector<std::string> names(const MSelectionList& list) {
        MStringArray strings;
        list.getSelectionStrings(strings);
        std::vector<std::string> result;
        for (unsigned int i = 0; i < strings.length(); ++i) {
            result.emplace_back(strings[i].asChar());
        }
        return result;
    }

    std::vector<std::string> members(bool flatten = false) {
        MSelectionList list;
        EXPECT_EQ(MFnSet(node("s")).getMembers(list, flatten), MStatus::kSuccess);
        return names(list);
    }
};

TEST_F(MFnSetTest, nothingAttachedFails) {
    const MFnSet none;
    MSelectionList list;
    MStatus status;
    EXPECT_EQ(none.getMembers(list, true), MStatus::kFailure);
    none.isMember(node("a"), &status);
    EXPECT_EQ(status, MStatus::kFailure);
    none.isMember(path("a"), MObject(), &status);
    EXPECT_EQ(status, MStatus::kFailure);
    none.restriction(&status);
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MFnSetTest, membersAreNodesAndPaths) {
    EXPECT_TRUE(members().empty());
    run("connectAttr a.iog[0] s.dsm[0]; connectAttr red.message s.dnsm[0]; connectAttr shape.iog[1] s.dsm[4]");
    EXPECT_THAT(members(), testing::ElementsAre("a", "b|shape", "red"));
    const MFnSet set(node("s"));
    EXPECT_TRUE(set.isMember(node("red")));
    EXPECT_FALSE(set.isMember(node("b")));
    EXPECT_TRUE(set.isMember(path("a")));
    EXPECT_TRUE(set.isMember(path("b|shape")));
    EXPECT_FALSE(set.isMember(path("a|shape"))) << "the other instance";
}

TEST_F(MFnSetTest, membersOfMembers) {
    run("connectAttr inner.message s.dnsm[0]; connectAttr a.iog[0] inner.dsm[0]; connectAttr s.message inner.dnsm[0]");
    EXPECT_THAT(members(), testing::ElementsAre("inner"));
    EXPECT_THAT(members(true), testing::ElementsAre("a")) << "and a set in itself ends";
}

TEST_F(MFnSetTest, partsOfShapes) {
    run("setAttr shape.iog[0].og[2].gcl -type \"componentList\" 2 \"f[0:2]\" \"f[7]\";"
        "connectAttr shape.iog[0].og[2] s.dsm[0]");
    MSelectionList list;
    ASSERT_EQ(MFnSet(node("s")).getMembers(list, false), MStatus::kSuccess);
    ASSERT_EQ(list.length(), 1U);
    MDagPath shape;
    MObject component;
    ASSERT_EQ(list.getDagPath(0, shape, component), MStatus::kSuccess);
    EXPECT_EQ(shape.fullPathName(), "|a|shape");
    EXPECT_EQ(component.apiType(), MFn::kMeshPolygonComponent);
    EXPECT_THAT(names(list), testing::ElementsAre("a|shape.f[0:2]", "a|shape.f[7]"));
    EXPECT_TRUE(MFnSet(node("s")).isMember(shape, component));
    EXPECT_FALSE(MFnSet(node("s")).isMember(shape));
}

TEST_F(MFnSetTest, partsThatHistoryKnows) {
    run("createNode groupId -n id; createNode groupParts -n parts; connectAttr id.id parts.gi;"
        "createNode polyCube -n cube; connectAttr cube.out parts.ig; connectAttr parts.og shape.i;"
        "connectAttr id.id shape.iog[0].og[0].gid; connectAttr shape.iog[0].og[0] s.dsm[0];"
        "setAttr parts.ic -type \"componentList\" 1 \"vtx[3]\"");
    EXPECT_THAT(members(), testing::ElementsAre("a|shape.vtx[3]"));
}

TEST_F(MFnSetTest, partsOfCurves) {
    run("createNode transform -n t; createNode nurbsCurve -n c -p t; connectAttr c.iog[0].og[1] s.dsm[0];"
        "setAttr c.iog[0].og[1].gcl -type \"componentList\" 1 \"cv[2:3]\"");
    EXPECT_THAT(members(), testing::ElementsAre("c.cv[2:3]"));
}

TEST_F(MFnSetTest, emptyGroupsAreNoMembers) {
    run("connectAttr shape.iog[0].og[0] s.dsm[0]; setAttr shape.iog[0].og[1].gcl -type \"componentList\" 0;"
        "connectAttr shape.iog[0].og[1] s.dsm[1]");
    EXPECT_TRUE(members().empty());
}

TEST_F(MFnSetTest, restrictions) {
    EXPECT_EQ(MFnSet(node("s")).restriction(), MFnSet::kNone);
    run("setAttr s.vo 1");
    EXPECT_EQ(MFnSet(node("s")).restriction(), MFnSet::kVerticesOnly);
    run("setAttr s.vo 0; setAttr s.ro 1");
    EXPECT_EQ(MFnSet(node("s")).restriction(), MFnSet::kRenderableOnly);
}

} // namespace
} // namespace host
