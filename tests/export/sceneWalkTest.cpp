#include "export/sceneWalk.h"

#include "ExportSession.h"
#include "sceneText.h"

#include "scene/messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kAll = MPxFileTranslator::kExportAccessMode;
constexpr auto kSelection = MPxFileTranslator::kExportActiveAccessMode;

const char* word(const NodeRecord& record) {
    switch (record.kind) {
    case NodeKind::kNull:
        return "null";
    case NodeKind::kMesh:
        return record.isJoint ? "mesh and joint" : "mesh";
    case NodeKind::kJoint:
        return "joint";
    default:
        return "?";
    }
}

class Walk : public testing::Test {
protected:
    // "name kind" of each record, in the order of the walk.
    std::vector<std::string> walk(const std::string& statements) {
        session.open(statements);
        return walkAgain(kAll);
    }

    std::vector<std::string> walkSelection(const std::string& select) {
        session.mel(select);
        return walkAgain(kSelection);
    }

    std::vector<std::string> walkAgain(MPxFileTranslator::FileAccessMode mode) {
        session.prepareRun("", mode);
        records.clear();
        status = walkScene(records);
        std::vector<std::string> found;
        for (const auto& record : records) {
            found.push_back(record->name + " " + word(*record));
        }
        return found;
    }

    ExportSession session;
    std::vector<std::unique_ptr<NodeRecord>> records;
    MStatus status;
};

// --- refusals

TEST_F(Walk, AModeThatIsNoExportIsRefused) {
    session.open(nodeText("transform", "a"));
    for (const int mode : {0, 1, 2, 3, 4, 7}) {
        walkAgain(static_cast<MPxFileTranslator::FileAccessMode>(mode));
        EXPECT_FALSE(status);
        EXPECT_THAT(records, IsEmpty());
        EXPECT_EQ(session.takeMessages(), "Error: Unrecognized write mode: " + std::to_string(mode) + "\n");
    }
}

TEST_F(Walk, ANodeThatCannotBeReadIsReportedInTwoLines) {
    session.prepareRun();
    std::string name = "untouched";
    EXPECT_FALSE(readNodeName(MDagPath(), name));
    EXPECT_EQ(session.takeMessages(), "Error: Attaching MFnDagNode\nError: Invalid node: \n");
    EXPECT_EQ(name, "untouched");
}

TEST_F(Walk, AMeshNodeWithoutAShapeOfItsOwnEndsTheWalk) {
    walk(nodeText("transform", "a") + meshText("aShapeOrig", "a") + nodeText("transform", "b") +
         meshText("taker", "b") + "connectAttr \"aShapeOrig.w\" \"taker.i\";\n");
    EXPECT_FALSE(status);
    EXPECT_EQ(session.takeMessages(), "Error: No effective shape: a\n");
}

// Sixty groups, each holding the next one twice: more nodes by their paths than there are bytes in the world.
TEST_F(Walk, InstancesThatMultiplyWithoutBoundAreRefused) {
    std::string text = nodeText("transform", "g0");
    for (int i = 1; i <= 60; ++i) {
        const std::string above = "g" + std::to_string(i - 1);
        const std::string left = "l" + std::to_string(i);
        const std::string right = "r" + std::to_string(i);
        const std::string below = "g" + std::to_string(i);
        text += nodeText("transform", left, above) + nodeText("transform", right, above) +
                nodeText("transform", below, left) + "parent -add \"" + below + "\" \"" + right + "\";\n";
    }
    session.open(text);
    session.prepareRun();
    EXPECT_FALSE(walkScene(records, 10000));
    EXPECT_EQ(session.takeMessages(), "Error: Too many nodes: more than 10000\n");
    EXPECT_EQ(kNodeLimit, 1000000U);
}

// --- which nodes enter, and as what

TEST_F(Walk, TheCamerasOfANewSceneAreNoNodes) {
    EXPECT_THAT(walk(""), IsEmpty());
    EXPECT_TRUE(status);
}

TEST_F(Walk, TransformsAndJointsEnterInDagOrderParentsFirst) {
    EXPECT_THAT(walk(nodeText("transform", "b") + nodeText("joint", "d", "b") + nodeText("transform", "c", "d") +
                     nodeText("transform", "a")),
                ElementsAre("b null", "d joint", "c null", "a null"));
    EXPECT_EQ(records[2]->scene.parent, records[1].get());
    EXPECT_EQ(records[2]->scene.depth, 2);
    EXPECT_EQ(records[3]->scene.parent, nullptr);
    EXPECT_EQ(records[1]->path.fullPathName(), MString("|b|d"));
}

struct KindCase {
    const char* what;
    std::string statements;
    std::vector<std::string> expected;
};

// Test names are one word: "point light" becomes PointLight.
std::string nameOfCase(const testing::TestParamInfo<KindCase>& parameter) {
    std::string name;
    bool capital = true;
    for (const char c : std::string(parameter.param.what)) {
        if (c == ' ') {
            capital = true;
        } else {
            name += capital ? static_cast<char>(std::toupper(c)) : c;
            capital = false;
        }
    }
    return name;
}

class Kinds : public Walk, public testing::WithParamInterface<KindCase> {};

TEST_P(Kinds, OfHostNodes) {
    EXPECT_EQ(walk(GetParam().statements), GetParam().expected);
    EXPECT_TRUE(status);
}

std::string withShape(const std::string& type) {
    return nodeText("transform", "a") + nodeText(type, "aShape", "a");
}

// A node below "a", which is a joint: constraints and IK hang there in real scenes.
std::string below(const std::string& type, const std::string& child = "") {
    return nodeText("joint", "a") + nodeText(type, "b", "a") + child;
}

const std::string kNullChild = nodeText("transform", "c", "b");
const std::string kCameraChild = nodeText("transform", "c", "b") + nodeText("camera", "cShape", "c");

INSTANTIATE_TEST_SUITE_P(
    Enter, Kinds,
    testing::Values(
        KindCase{"empty transform", nodeText("transform", "a"), {"a null"}},
        KindCase{"container", nodeText("dagContainer", "a"), {"a null"}},
        KindCase{"level of detail group", nodeText("lodGroup", "a"), {"a null"}},
        KindCase{"mesh", nodeText("transform", "a") + meshText("aShape", "a"), {"a mesh"}},
        KindCase{"joint", nodeText("joint", "a"), {"a joint"}},
        KindCase{"joint with a mesh", nodeText("joint", "a") + meshText("aShape", "a"), {"a mesh and joint"}},
        KindCase{"joint with a light", nodeText("joint", "a") + nodeText("pointLight", "l", "a"), {"a joint"}},
        KindCase{"locator", withShape("locator"), {"a null"}},
        KindCase{"curve", nodeText("transform", "a") + curveText("aShape", "a"), {"a null"}},
        KindCase{"surface", withShape("nurbsSurface"), {"a null"}}, KindCase{"subdiv", withShape("subdiv"), {"a null"}},
        KindCase{"lattice", withShape("lattice"), {"a null"}},
        KindCase{"cluster handle", withShape("clusterHandle"), {"a null"}},
        KindCase{"templated mesh",
                 nodeText("transform", "a") + meshText("aShape", "a", "setAttr \".tmp\" yes;"),
                 {"a null"}},
        KindCase{"camera and locator", withShape("camera") + nodeText("locator", "l", "a"), {"a null"}},
        KindCase{"camera with a mesh of its own", withShape("camera") + meshText("m", "a"), {"a mesh"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    StayOut, Kinds,
    testing::Values(
        KindCase{"camera", withShape("camera"), {}}, KindCase{"ambient light", withShape("ambientLight"), {}},
        KindCase{"directional light", withShape("directionalLight"), {}},
        KindCase{"point light", withShape("pointLight"), {}}, KindCase{"spot light", withShape("spotLight"), {}},
        KindCase{"area light", withShape("areaLight"), {}}, KindCase{"look at", nodeText("lookAt", "a"), {}},
        KindCase{"point constraint", below("pointConstraint"), {"a joint"}},
        KindCase{"orient constraint", below("orientConstraint"), {"a joint"}},
        KindCase{"aim constraint", below("aimConstraint"), {"a joint"}},
        KindCase{"parent constraint", below("parentConstraint"), {"a joint"}},
        KindCase{"scale constraint", below("scaleConstraint"), {"a joint"}},
        KindCase{"pole vector constraint", below("poleVectorConstraint"), {"a joint"}},
        KindCase{"IK handle", nodeText("ikHandle", "a"), {}}, KindCase{"IK effector", below("ikEffector"), {"a joint"}},
        KindCase{"camera above a camera", below("transform", nodeText("camera", "s", "b") + kCameraChild), {"a joint"}},
        KindCase{"constraint above a constraint",
                 below("pointConstraint", nodeText("aimConstraint", "c", "b")),
                 {"a joint"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    EnterForWhatHangsBelow, Kinds,
    testing::Values(
        KindCase{"camera above a group",
                 below("transform", nodeText("camera", "s", "b") + kNullChild),
                 {"a joint", "b null", "c null"}},
        KindCase{"camera above a mesh",
                 below("transform", nodeText("camera", "s", "b") + kNullChild + meshText("m", "c")),
                 {"a joint", "b null", "c mesh"}},
        KindCase{"light above a joint",
                 below("transform", nodeText("spotLight", "s", "b") + nodeText("joint", "c", "b")),
                 {"a joint", "b null", "c joint"}},
        KindCase{"constraint above a group", below("aimConstraint", kNullChild), {"a joint", "b null", "c null"}},
        KindCase{"IK effector above a locator",
                 below("ikEffector", kNullChild + nodeText("locator", "s", "c")),
                 {"a joint", "b null", "c null"}},
        KindCase{"two cameras above a group",
                 below("transform", nodeText("camera", "s", "b") + kCameraChild + nodeText("transform", "d", "c")),
                 {"a joint", "b null", "c null", "d null"}}),
    nameOfCase);

TEST_F(Walk, WhatIsSwitchedOffStaysOutWithAllBelowIt) {
    EXPECT_THAT(walk(nodeText("transform", "a", "", "setAttr \".nds\" 1;") + nodeText("transform", "b", "a") +
                     nodeText("transform", "c") + nodeText("transform", "d", "c", "setAttr \".nds\" 2;") +
                     nodeText("transform", "e", "c", "setAttr \".nds\" 3;")),
                ElementsAre("c null", "e null"));
}

TEST_F(Walk, HiddenNodesEnter) {
    EXPECT_THAT(walk(nodeText("transform", "a", "", "setAttr \".v\" no;") + meshText("aShape", "a")),
                ElementsAre("a mesh"));
}

TEST_F(Walk, MarksAndShapesAreRead) {
    walk(nodeText("transform", "a", "",
                  "addAttr -ln \"tvk_no_cut\" -sn \"tvk_no_cut\" -at \"bool\"; setAttr \".tvk_no_cut\" yes;\n"
                  "\taddAttr -ln \"tvk_billboard\" -sn \"tvk_billboard\" -en \"off:on:y_on\" -at \"enum\"; setAttr "
                  "\".tvk_billboard\" 2;") +
         meshText("aShape", "a") + meshText("aShapeOrig", "a", "setAttr \".io\" yes;") + nodeText("transform", "b") +
         meshText("taker", "b") + "connectAttr \"aShapeOrig.w\" \"taker.i\";\n");
    ASSERT_EQ(records.size(), 2U);
    EXPECT_TRUE(records[0]->noCut);
    EXPECT_EQ(records[0]->billboard, Billboard::kYOn);
    EXPECT_EQ(records[0]->shape.fullPathName(), MString("|a|aShape"));
    EXPECT_EQ(records[0]->originalShape.fullPathName(), MString("|a|aShapeOrig"));
    EXPECT_FALSE(records[1]->noCut);
    EXPECT_EQ(records[1]->billboard, Billboard::kOff);
}

TEST_F(Walk, NamespacesStayInNames) {
    EXPECT_THAT(walk(nodeText("transform", "hero:body") + nodeText("joint", "hero:arm", "hero:body")),
                ElementsAre("hero:body null", "hero:arm joint"));
}

TEST_F(Walk, EveryPathToAnInstanceIsANodeOfItsOwn) {
    EXPECT_THAT(walk(nodeText("transform", "left") + nodeText("transform", "right") +
                     nodeText("transform", "part", "left") + meshText("partShape", "part") +
                     nodeText("transform", "tip", "part") + "parent -add \"part\" \"right\";\n"),
                ElementsAre("left null", "part mesh", "tip null", "right null", "part mesh", "tip null"));
    ASSERT_EQ(records.size(), 6U);
    EXPECT_EQ(records[1]->path.fullPathName(), MString("|left|part"));
    EXPECT_EQ(records[4]->path.fullPathName(), MString("|right|part"));
    EXPECT_EQ(records[4]->scene.parent, records[3].get());
    EXPECT_EQ(records[1]->shape.instanceNumber(), 0U);
    EXPECT_EQ(records[4]->shape.instanceNumber(), 1U);
}

TEST_F(Walk, AnInstancedShapeGivesEachTransformAMesh) {
    EXPECT_THAT(walk(nodeText("transform", "a") + meshText("m", "a") + nodeText("transform", "b") +
                     "parent -s -nc -r -add \"m\" \"b\";\n"),
                ElementsAre("a mesh", "b mesh"));
    EXPECT_EQ(records[1]->shape.fullPathName(), MString("|b|m"));
}

TEST_F(Walk, DeepScenesAreWalked) {
    std::string text = nodeText("transform", "n0");
    constexpr int kDepth = 2000;
    for (int i = 1; i < kDepth; ++i) {
        text += nodeText("transform", "n" + std::to_string(i), "n" + std::to_string(i - 1));
    }
    EXPECT_EQ(walk(text).size(), static_cast<std::size_t>(kDepth));
    EXPECT_EQ(records.back()->scene.depth, kDepth - 1);
}

// --- selection

class Selected : public Walk {
protected:
    void SetUp() override {
        session.open(nodeText("transform", "a") + nodeText("transform", "b", "a") + nodeText("transform", "c", "b") +
                     nodeText("transform", "d") + meshText("dShape", "d") + nodeText("transform", "cam") +
                     nodeText("camera", "camShape", "cam"));
    }
};

TEST_F(Selected, NothingGivesNoNodes) {
    EXPECT_THAT(walkSelection("select -cl"), IsEmpty());
    EXPECT_TRUE(status);
}

TEST_F(Selected, NodesComeInTheirOrderWithAllBelowThem) {
    EXPECT_THAT(walkSelection("select -r d b"), ElementsAre("d mesh", "b null", "c null"));
    EXPECT_EQ(records[1]->scene.parent, nullptr);
    EXPECT_EQ(records[1]->scene.depth, 0);
}

TEST_F(Selected, AChildOfASelectedNodeIsNotTakenTwice) {
    EXPECT_THAT(walkSelection("select -r c a"), ElementsAre("a null", "b null", "c null"));
    EXPECT_THAT(walkSelection("select -r a c b"), ElementsAre("a null", "b null", "c null"));
}

TEST_F(Selected, ShapesAndComponentsStandForTheirTransform) {
    EXPECT_THAT(walkSelection("select -r dShape"), ElementsAre("d mesh"));
    EXPECT_THAT(walkSelection("select -r d.f[0] dShape d"), ElementsAre("d mesh"));
}

TEST_F(Selected, WhatIsNoDagNodeIsPassedOver) {
    EXPECT_THAT(walkSelection("select -r lambert1 d"), ElementsAre("d mesh"));
}

TEST_F(Selected, ACameraAloneGivesNoNodes) {
    EXPECT_THAT(walkSelection("select -r cam"), IsEmpty());
}

TEST_F(Selected, NamesThatBeginAlikeAreDifferentPaths) {
    session.open(nodeText("transform", "arm") + nodeText("transform", "arm2") + nodeText("transform", "x", "arm2"));
    EXPECT_THAT(walkSelection("select -r arm x"), ElementsAre("arm null", "x null"));
}

} // namespace
} // namespace tvk
