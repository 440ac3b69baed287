#include "export/nodeTree.h"

#include "ExportSession.h"
#include "sceneText.h"

#include "export/exportMessages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const auto& node : run().scene.nodes) {
        result.push_back(node->name);
    }
    return result;
}

const NodeRecord& at(std::size_t index) {
    return *run().scene.nodes.at(index);
}

class NodeTree : public testing::Test {
protected:
    MStatus build(const std::string& statements, const std::string& options = "") {
        session.open(statements);
        session.prepareRun(options);
        return buildNodeTree();
    }

    ExportSession session;
};

// --- refusals

TEST_F(NodeTree, ASceneWithNothingToExportFails) {
    EXPECT_FALSE(build(""));
    EXPECT_EQ(session.takeMessages(), "Error: No effective node\n");
    EXPECT_FALSE(warningRaised());
}

TEST_F(NodeTree, ANameCheckOfSuchASceneOnlyWarns) {
    session.open("");
    session.prepareRun();
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(buildNodeTree());
    EXPECT_EQ(session.takeMessages(), "Warning: No effective node\n");
    EXPECT_TRUE(warningRaised());
    EXPECT_THAT(run().scene.outputNodes, IsEmpty());
}

TEST_F(NodeTree, AModeThatIsNoExportFails) {
    session.open(nodeText("transform", "a"));
    session.prepareRun("", MPxFileTranslator::kSaveAccessMode);
    EXPECT_FALSE(buildNodeTree());
    EXPECT_EQ(session.takeMessages(), "Error: Unrecognized write mode: 4\n");
}

// The check behind the synthetic root can only strike when that is broken, so all that can be tested is its text.
TEST_F(NodeTree, AModelWithTwoRootsWouldBeRefused) {
    EXPECT_EQ(kSeveralRoots.text, "There is more than one root node");
    EXPECT_EQ(kSeveralRoots.severity, Severity::kError);
}

// --- names

TEST_F(NodeTree, LaterNodesOfAnEqualNameGetCounters) {
    ASSERT_TRUE(build(nodeText("transform", "root") + nodeText("transform", "x", "root") +
                      nodeText("transform", "y", "root") + nodeText("transform", "a", "root") +
                      nodeText("transform", "a", "|root|x") + nodeText("transform", "a", "|root|y")));
    // The walk meets x and what is in it first.
    EXPECT_EQ(session.takeMessages(), "Warning: Node name changed: y|a -> a_1\n"
                                      "Warning: Node name changed: root|a -> a_2\n");
    EXPECT_TRUE(warningRaised());
    EXPECT_THAT(names(), ElementsAre("root", "a_2", "x", "y", "a", "a_1"));
}

TEST_F(NodeTree, CountersAvoidNamesThatAreTaken) {
    ASSERT_TRUE(build(nodeText("transform", "a") + nodeText("transform", "a_1", "a") + nodeText("transform", "b", "a") +
                      nodeText("transform", "a", "|a|b")));
    EXPECT_EQ(session.takeMessages(), "Warning: Node name changed: b|a -> a_2\n");
    EXPECT_THAT(names(), ElementsAre("a", "a_1", "b", "a_2"));
}

TEST_F(NodeTree, ANameCheckRenamesInSilence) {
    session.open(nodeText("transform", "a") + nodeText("transform", "a", "a"));
    session.prepareRun();
    run().options.quietTextureWarnings = true;
    ASSERT_TRUE(buildNodeTree());
    EXPECT_THAT(names(), ElementsAre("a", "a_1"));
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(warningRaised());
}

TEST_F(NodeTree, ASceneNodeCalledLikeTheSyntheticRootKeepsItsName) {
    ASSERT_TRUE(build(nodeText("transform", "world_root") + nodeText("transform", "a")));
    EXPECT_THAT(names(), ElementsAre("world_root_1", "a", "world_root"));
    EXPECT_EQ(session.takeMessages(), "Warning: Node name changed: world_root -> world_root_1\n");
    EXPECT_FALSE(at(0).hasDagNode);
}

// Two characters that no file can hold are the same '?' in it.
TEST(NodeNames, AreUniqueAsTheyAreWritten) {
    ExportSession session;
    session.prepareRun();
    for (const char* name : {"\xC3\xA4", "\xC3\xB6", "?"}) {
        run().scene.nodes.push_back(std::make_unique<NodeRecord>());
        run().scene.nodes.back()->name = name;
        run().scene.nodes.back()->hasDagNode = false;
    }
    makeNodeNamesUnique();
    EXPECT_THAT(names(), ElementsAre("\xC3\xA4", "\xC3\xB6_1", "?_2"));
    EXPECT_EQ(session.takeMessages(), "Warning: Node name changed: \xC3\xB6 -> \xC3\xB6_1\n"
                                      "Warning: Node name changed: ? -> ?_2\n");
}

TEST(NodeNames, OfASingleNodeStay) {
    ExportSession session;
    session.prepareRun();
    run().scene.nodes.push_back(std::make_unique<NodeRecord>());
    run().scene.nodes.back()->name = "a";
    makeNodeNamesUnique();
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_EQ(session.takeMessages(), "");
}

// --- root, order, links

TEST_F(NodeTree, ASingleTopNodeIsTheRoot) {
    ASSERT_TRUE(build(nodeText("transform", "b") + nodeText("transform", "a", "b")));
    EXPECT_THAT(names(), ElementsAre("b", "a"));
    EXPECT_TRUE(at(0).isRoot);
    EXPECT_FALSE(at(1).isRoot);
    EXPECT_EQ(at(0).scene.depth, 0);
    EXPECT_TRUE(at(0).hasDagNode);
}

TEST_F(NodeTree, SeveralTopNodesGetASyntheticRootWhateverTheOrderOfTheWalk) {
    for (const auto& [first, second] : {std::pair("b", "a"), std::pair("a", "b")}) {
        ASSERT_TRUE(build(nodeText("transform", first) + nodeText("transform", second)));
        EXPECT_THAT(names(), ElementsAre("world_root", "a", "b"));
        EXPECT_TRUE(at(0).isRoot);
        EXPECT_EQ(at(0).kind, NodeKind::kRoot);
        EXPECT_FALSE(at(0).hasDagNode);
        EXPECT_EQ(at(0).scene.childCount, 2);
        EXPECT_EQ(at(0).scene.child, &at(1));
        EXPECT_EQ(at(1).scene.parent, &at(0));
        EXPECT_EQ(at(1).scene.depth, 1);
    }
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(NodeTree, AUnitedSceneGetsASyntheticRootInAnyCase) {
    ASSERT_TRUE(build(nodeText("transform", "a"), "optimize_node=3"));
    EXPECT_THAT(names(), ElementsAre("world_root", "a"));
    EXPECT_EQ(at(1).scene.parent, &at(0));
}

// One of the two top nodes of the scene is a camera.
TEST_F(NodeTree, OnlyWhatEntersTheListCountsAsATopNode) {
    ASSERT_TRUE(
        build(nodeText("transform", "cam") + nodeText("camera", "camShape", "cam") + nodeText("transform", "a")));
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(NodeTree, NodesStandByDepthAndThenByTheBytesOfTheirNames) {
    ASSERT_TRUE(build(nodeText("transform", "r") + nodeText("transform", "b", "r") + nodeText("transform", "Z", "r") +
                      nodeText("transform", "a", "b") + nodeText("transform", "_x", "r") +
                      nodeText("transform", "A1", "Z") + nodeText("transform", "b1", "r") +
                      nodeText("transform", "a10", "r") + nodeText("transform", "a9", "r")));
    EXPECT_THAT(names(), ElementsAre("r", "Z", "_x", "a10", "a9", "b", "b1", "A1", "a"));
    for (std::size_t i = 0; i < run().scene.nodes.size(); ++i) {
        EXPECT_EQ(at(i).index, static_cast<int32_t>(i));
    }
}

// Half-width katakana (one byte, B1) stands after ASCII and before kanji (two bytes from 88 9F on) only by its bytes:
// in Shift_JIS B1 comes after 88.
TEST(NodeOrder, IsThatOfTheBytesInTheFile) {
    ExportSession session;
    session.open(nodeText("transform", "r") + nodeText("transform", "x1", "r") + nodeText("transform", "x2", "r") +
                 nodeText("transform", "x3", "r"));
    session.mel("rename x1 \"\xEF\xBD\xB1\"; rename x2 \"\xE4\xBA\x9C\"; rename x3 z");
    session.prepareRun();
    ASSERT_TRUE(buildNodeTree());
    EXPECT_THAT(names(), ElementsAre("r", "z", "\xE4\xBA\x9C", "\xEF\xBD\xB1"));
}

TEST_F(NodeTree, ChildrenAreChainedInListOrder) {
    ASSERT_TRUE(build(nodeText("transform", "r") + nodeText("transform", "c", "r") + nodeText("transform", "a", "r") +
                      nodeText("transform", "b", "r") + nodeText("transform", "x", "b")));
    ASSERT_THAT(names(), ElementsAre("r", "a", "b", "c", "x"));
    EXPECT_EQ(at(0).scene.child, &at(1));
    EXPECT_EQ(at(0).scene.childCount, 3);
    EXPECT_EQ(at(0).scene.brotherNext, nullptr);
    EXPECT_EQ(at(1).scene.brotherPrev, nullptr);
    EXPECT_EQ(at(1).scene.brotherNext, &at(2));
    EXPECT_EQ(at(2).scene.brotherPrev, &at(1));
    EXPECT_EQ(at(2).scene.brotherNext, &at(3));
    EXPECT_EQ(at(3).scene.brotherNext, nullptr);
    EXPECT_EQ(at(2).scene.child, &at(4));
    EXPECT_EQ(at(4).scene.childCount, 0);
}

TEST_F(NodeTree, TheOutputListBeginsAsTheSceneList) {
    ASSERT_TRUE(build(nodeText("transform", "r") + nodeText("transform", "a", "r") + nodeText("transform", "b", "r")));
    const SceneData& scene = run().scene;
    ASSERT_EQ(scene.outputNodes.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(scene.outputNodes[i], scene.nodes[i].get());
        EXPECT_EQ(at(i).output.parent, at(i).scene.parent);
        EXPECT_EQ(at(i).output.child, at(i).scene.child);
        EXPECT_EQ(at(i).output.brotherNext, at(i).scene.brotherNext);
        EXPECT_EQ(at(i).output.brotherPrev, at(i).scene.brotherPrev);
        EXPECT_EQ(at(i).output.childCount, at(i).scene.childCount);
        EXPECT_EQ(at(i).output.depth, at(i).scene.depth);
        EXPECT_FALSE(at(i).skipOutput || at(i).drawMtx);
    }
}

// --- visibility

TEST_F(NodeTree, ANodeIsVisibleWhenItAndItsAncestorsAre) {
    ASSERT_TRUE(build(nodeText("transform", "r") + nodeText("transform", "a", "r", "setAttr \".v\" no;") +
                      nodeText("transform", "b", "a") + nodeText("transform", "c", "r") + meshText("cShape", "c") +
                      nodeText("transform", "d", "r") + meshText("dShape", "d", "setAttr \".v\" no;") +
                      nodeText("transform", "e", "r", "setAttr \".tmp\" yes;")));
    ASSERT_THAT(names(), ElementsAre("r", "a", "c", "d", "e", "b"));
    const std::vector<bool> expected{true, false, true, false, false, false};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(at(i).visibility, expected[i]) << at(i).name;
    }
}

} // namespace
} // namespace tvk
