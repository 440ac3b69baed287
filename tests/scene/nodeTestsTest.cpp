#include "scene/nodeTests.h"

#include "ExportSession.h"
#include "sceneText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

// A transform "a" with a mesh "aShape", each with attribute lines of its own.
void openPair(ExportSession& session, const std::string& transform, const std::string& shape = "") {
    session.open(nodeText("transform", "a", "", transform) + meshText("aShape", "a", shape));
}

std::string addInteger(const std::string& name, const std::string& type, const std::string& value) {
    return "addAttr -ln \"" + name + "\" -sn \"" + name + "\" -at \"" + type + "\";\n\tsetAttr \"." + name + "\" " +
           value + ";";
}

TEST(NodeTests, ANodeIsEffectiveUnlessItsStateIsOneOrTwo) {
    const std::pair<int, bool> cases[] = {{0, true}, {1, false}, {2, false}, {3, true}};
    for (const auto& [state, effective] : cases) {
        ExportSession session;
        openPair(session, "setAttr \".nds\" " + std::to_string(state) + ";");
        EXPECT_EQ(isNodeEffective(session.node("a")), effective) << state;
    }
}

TEST(NodeTests, ANodeIsProtectedWhenItsNoCutAttributeIsNotZero) {
    const std::pair<std::string, bool> cases[] = {
        {"", false},
        {addInteger("tvk_no_cut", "bool", "yes"), true},
        {addInteger("tvk_no_cut", "bool", "no"), false},
        {addInteger("tvk_no_cut", "long", "5"), true},
        {addInteger("tvk_no_cut", "long", "-1"), true},
        {addInteger("tvk_no_cut", "short", "1"), true},
        {addInteger("tvk_no_cut", "double", "1"), true},
        {"addAttr -ln \"tvk_no_cut\" -sn \"tvk_no_cut\" -dt \"string\";", false},
    };
    for (const auto& [lines, expected] : cases) {
        ExportSession session;
        openPair(session, lines);
        EXPECT_EQ(isNoCut(session.node("a")), expected) << lines;
    }
}

struct ShownCase {
    std::string lines;
    bool shown;
};

class ShapeIsShown : public testing::TestWithParam<ShownCase> {};

TEST_P(ShapeIsShown, ByItsSwitches) {
    ExportSession session;
    openPair(session, "", GetParam().lines);
    EXPECT_EQ(isShown(session.node("aShape")), GetParam().shown) << GetParam().lines;
}

const std::string kOverride = "setAttr \".ove\" yes; ";

INSTANTIATE_TEST_SUITE_P(
    Switches, ShapeIsShown,
    testing::Values(ShownCase{"", true}, ShownCase{"setAttr \".primaryVisibility\" no;", false},
                    ShownCase{"setAttr \".tmp\" yes;", false}, ShownCase{"setAttr \".io\" yes;", false},
                    ShownCase{"setAttr \".v\" no;", true},
                    ShownCase{"setAttr \".ovv\" no; setAttr \".ovs\" no; setAttr \".ovdt\" 1;", true},
                    ShownCase{kOverride, true}, ShownCase{kOverride + "setAttr \".ovv\" no;", false},
                    ShownCase{kOverride + "setAttr \".ovs\" no;", false},
                    ShownCase{kOverride + "setAttr \".ovdt\" 1;", false},
                    ShownCase{kOverride + "setAttr \".ovdt\" 2;", true},
                    ShownCase{kOverride + "setAttr \".ovdt\" 0;", true}));

// The display type of the override makes it a template though its own switch is off.
TEST(NodeTests, ATemplatedOverrideHidesAShape) {
    ExportSession session;
    openPair(session, "", "setAttr \".tmp\" no; setAttr \".ove\" yes; setAttr \".ovdt\" 1;");
    EXPECT_FALSE(isShown(session.node("aShape")));
}

// Transforms have no primaryVisibility, which counts as on.
TEST(NodeTests, AMissingPrimaryVisibilityCountsAsOn) {
    ExportSession session;
    openPair(session, "");
    EXPECT_TRUE(isShown(session.node("a")));
}

TEST(NodeTests, ATransformIsVisibleByItsOwnSwitchAndItsOverride) {
    const std::pair<std::string, bool> cases[] = {
        {"", true},
        {"setAttr \".v\" no;", false},
        {"setAttr \".ovv\" no;", true},
        {kOverride, true},
        {kOverride + "setAttr \".ovv\" no;", false},
        {kOverride + "setAttr \".v\" no;", false},
        {kOverride + "setAttr \".ovdt\" 1;", true},
        {"setAttr \".tmp\" yes;", true},
    };
    for (const auto& [lines, visible] : cases) {
        ExportSession session;
        openPair(session, lines);
        EXPECT_EQ(isVisible(session.node("a")), visible) << lines;
    }
}

TEST(NodeTests, ALayerHidesATransformThroughItsOverride) {
    ExportSession session;
    openPair(session, "");
    session.mel("createNode displayLayer -n layer1; setAttr layer1.visibility 0; "
                "connectAttr layer1.drawInfo a.drawOverride;");
    EXPECT_FALSE(isVisible(session.node("a")));
}

TEST(NodeTests, BillboardsOutsideTheirRangeAreOff) {
    const std::pair<std::string, Billboard> cases[] = {
        {"", Billboard::kOff},
        {addInteger("tvk_billboard", "long", "0"), Billboard::kOff},
        {addInteger("tvk_billboard", "long", "1"), Billboard::kOn},
        {addInteger("tvk_billboard", "short", "2"), Billboard::kYOn},
        {addInteger("tvk_billboard", "long", "3"), Billboard::kOff},
        {addInteger("tvk_billboard", "long", "-1"), Billboard::kOff},
        {"addAttr -ln \"tvk_billboard\" -sn \"tvk_billboard\" -dt \"string\";", Billboard::kOff},
    };
    for (const auto& [lines, expected] : cases) {
        ExportSession session;
        openPair(session, lines);
        EXPECT_EQ(billboardOf(session.node("a")), expected) << lines;
    }
}

TEST(NodeTests, ANodeIsSeenWhenNeitherItNorItsShapeIsSwitchedOff) {
    struct Case {
        std::string transform, shape;
        bool asMesh, seen;
    };
    const Case cases[] = {
        {"", "", true, true},
        {"setAttr \".v\" no;", "", true, false},
        {"setAttr \".tmp\" yes;", "", true, false},
        {"", "setAttr \".v\" no;", true, false},
        {"", "setAttr \".v\" no;", false, true}, // the shape of a node that is no mesh node does not matter
    };
    for (const Case& c : cases) {
        ExportSession session;
        openPair(session, c.transform, c.shape);
        NodeRecord record;
        record.path = session.path("a");
        record.shape = session.path("aShape");
        record.kind = c.asMesh ? NodeKind::kMesh : NodeKind::kNull;
        EXPECT_EQ(isSelfVisible(record), c.seen) << c.transform << c.shape;
    }
}

TEST(NodeTests, TheSyntheticRootIsAlwaysSeen) {
    NodeRecord root;
    root.hasDagNode = false;
    EXPECT_TRUE(isSelfVisible(root));
}

} // namespace
} // namespace tvk
