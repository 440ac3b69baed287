#include "export/exportRun.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// GoogleTest's own expressions are poorer on Windows.
MATCHER(IsFinishedLine, "tells that and when the run was finished") {
    return std::regex_match(arg, std::regex("Finished  \\( time = [0-9]+:[0-9][0-9] \\)"));
}

class ExportRun : public testing::Test {
protected:
    ExportSession session;
};

// --- the sequence

TEST_F(ExportRun, TellsWhatItDoesFromHeaderToTime) {
    session.open(nodeText("transform", "a"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(session.infos,
                ElementsAre("========== TVK_Export : model ========== imd ",
                            "Output Folder\t: " + session.folder.path() + "/", "Compress Node\t: None ( 1 )",
                            "Compress Material\t: None ( 0 )", "imd : Total Vertex Size\t:      0",
                            "imd : Total Polygon Size\t:      0 ( 0 triangles, 0 quads)", IsFinishedLine()));
    EXPECT_THAT(session.progress, ElementsAre("Getting Data ...", "Making ... imd", IsFinishedLine()));
    EXPECT_EQ(session.progress.back(), session.infos.back());
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_THAT(session.warnings, IsEmpty());
    EXPECT_THAT(session.errors, IsEmpty());
}

TEST_F(ExportRun, WritesTheKindsInTheirOrder) {
    session.open(nodeText("transform", "a") + visibilityKeys("a", "1 1 3 0", 2));
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    EXPECT_THAT(session.progress, ElementsAre("Getting Data ...", "Making ... imd", "Making ... iva", testing::_));
    EXPECT_EQ(session.model().names(), (std::vector<std::string>{"a"}));
    EXPECT_EQ(session.visibility().nodes.size(), 1U);
}

TEST_F(ExportRun, AWarningMakesARunUncleanButNotUnfinished) {
    session.open(nodeText("transform", "a") + nodeText("transform", "a", "a"));
    ASSERT_TRUE(session.exportAll());
    // The empty line is what comes before the output window is brought forward.
    EXPECT_EQ(session.takeMessages(), "Warning: Node name changed: a|a -> a_1\n\n");
    EXPECT_THAT(session.infos.back(), IsFinishedLine());
}

TEST_F(ExportRun, ANameOfSeventeenCharactersIsExportedAsItStands) {
    session.open(nodeText("transform", "these_are_17_long"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(session.model().names(), ElementsAre("these_are_17_long"));
    EXPECT_EQ(session.takeMessages(), "Warning: Length of name over 16 characters: node: these_are_17_long\n\n");
}

TEST_F(ExportRun, NothingOfItSurvives) {
    session.open(nodeText("transform", "a"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(run().scene.nodes, IsEmpty());
    EXPECT_THAT(run().scene.outputNodes, IsEmpty());
    EXPECT_FALSE(run().underWay);
    session.open("");
    ASSERT_FALSE(session.exportAll());
    EXPECT_THAT(run().scene.nodes, IsEmpty());
    EXPECT_FALSE(run().underWay);
}

TEST_F(ExportRun, OptionsOfOneRunAreNotThoseOfTheNext) {
    session.open(nodeText("transform", "a", "", set3("t", 1, 0, 0)));
    ASSERT_TRUE(session.exportAll("magnify=4"));
    EXPECT_EQ(session.model().node("a").translate.x, 4.0);
    ASSERT_TRUE(session.exportAll());
    EXPECT_EQ(session.model().node("a").translate.x, 1.0);
}

// --- time

TEST_F(ExportRun, TheUsersTimeIsTheSameAfterASuccess) {
    session.open(nodeText("transform", "a") + playback(5, 20));
    session.mel("currentTime 7.5");
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    EXPECT_EQ(session.currentTime(), 7.5);
}

TEST_F(ExportRun, AFailedRunLeavesTheTimeWhereItWas) {
    session.open(playback(5, 20));
    session.mel("currentTime 7.5");
    ASSERT_FALSE(session.exportAll());
    EXPECT_EQ(session.currentTime(), 5.0); // the start of the range, at which the scene was to be read
}

TEST_F(ExportRun, TheSceneIsReadAtTheStartOfTheRange) {
    const std::string keys = nodeText("animCurveTL", "a_tx", "",
                                      "setAttr \".tan\" 2; setAttr \".wgt\" no;\n"
                                      "\tsetAttr -s 2 \".ktv[0:1]\"  0 0 10 10;") +
                             "connectAttr \"a_tx.o\" \"a.tx\";\n";
    session.open(nodeText("transform", "a") + keys + visibilityKeys("a", "0 0 4 1", 2) + playback(3, 8));
    session.mel("currentTime 10");
    ASSERT_TRUE(session.exportAll());
    EXPECT_NEAR(session.model().node("a").translate.x, 3.0, 1.0 / 4096);
    EXPECT_FALSE(session.model().node("a").visibility);
    EXPECT_EQ(session.model().info->value("tool_start_frame"), "3");
    ASSERT_TRUE(session.exportAll("frame_range=2;start_frame=5;end_frame=6"));
    EXPECT_NEAR(session.model().node("a").translate.x, 5.0, 1.0 / 4096);
    EXPECT_TRUE(session.model().node("a").visibility);
}

// --- visibility animation

TEST_F(ExportRun, OnlyTheVisibilityOfASceneWithoutAnyIsWrittenWithAWarning) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b", "a") +
                 nodeText("transform", "c", "a", "setAttr \".v\" no;") + playback(1, 12));
    ASSERT_TRUE(session.exportAll("imd_file_out=0;iva_file_out=1"));
    EXPECT_EQ(session.takeMessages(), "Warning: No visibility animation\n\n");
    EXPECT_FALSE(session.hasFile("model.imd"));
    const decode::VisibilityFile file = session.visibility();
    ASSERT_EQ(file.nodes.size(), 3U);
    for (const decode::VisibilityFile::Node& node : file.nodes) {
        EXPECT_EQ(node.dataSize, 1);
    }
    EXPECT_EQ(file.nodes[0].dataHead, file.nodes[1].dataHead);
    EXPECT_NE(file.nodes[0].dataHead, file.nodes[2].dataHead);
    EXPECT_THAT(file.nodes[2].keys, ElementsAre(std::pair(0, 0)));
    EXPECT_EQ(file.info->value("frame_size"), "12");
    EXPECT_EQ(file.root.find("body")->find("original_create"), nullptr);
    EXPECT_EQ(file.root.find("body")->find("output_info"), nullptr);
    EXPECT_THAT(session.infos, testing::Contains("========== TVK_Export : model ========== iva "));
    EXPECT_THAT(session.infos, Not(testing::Contains(HasSubstr("imd : "))));
}

TEST_F(ExportRun, AHiddenParentHidesTheMeshBelowIt) {
    session.open(nodeText("transform", "group") + nodeText("transform", "body", "group") +
                 meshText("bodyShape", "body") + inDefaultGroup("bodyShape") +
                 visibilityKeys("group", "0 1 5 0 9 1", 3) + playback(0, 11));
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    const decode::VisibilityFile file = session.visibility();
    ASSERT_EQ(file.nodes.size(), 2U);
    const std::vector<std::pair<int, int>> keys{{0, 1}, {5, 0}, {9, 1}};
    EXPECT_EQ(file.nodes[0].keys, keys);
    EXPECT_EQ(file.nodes[1].keys, keys);
    EXPECT_EQ(file.nodes[1].dataHead, 0); // shared
    EXPECT_THAT(session.takeMessages(), Not(HasSubstr("No visibility animation")));
}

// A node that is keyed off at the start is off in the model and has its keys in the animation.
TEST_F(ExportRun, OffAtTheStartIsOffInTheModel) {
    session.open(nodeText("transform", "a") + visibilityKeys("a", "1 0 3 1", 2) + playback(1, 4));
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    EXPECT_FALSE(session.model().node("a").visibility);
    EXPECT_EQ(session.visibility().nodes.at(0).frames, (std::vector<int>{0, 0, 1, 1}));
}

// The frames of the file are those of the scene, one by one.
TEST_F(ExportRun, EveryFrameShowsWhatTheHostShows) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b", "a") + nodeText("transform", "c", "a") +
                 visibilityKeys("a", "1 1 4 0 7 1", 3) + visibilityKeys("b", "2 0 3 1 6 0 8 1", 4) +
                 visibilityKeys("c", "1 0 9 1", 2) + playback(1, 12));
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    const decode::VisibilityFile file = session.visibility();
    const decode::ModelFile model = session.model();
    for (const std::string name : {"a", "b", "c"}) {
        const auto& frames = file.nodes.at(static_cast<std::size_t>(model.node(name).index)).frames;
        ASSERT_EQ(frames.size(), 12U);
        for (std::size_t i = 0; i < frames.size(); ++i) {
            session.mel("currentTime " + std::to_string(i + 1));
            EXPECT_EQ(frames[i] != 0, session.path(name).isVisible()) << name << " at frame " << i + 1;
        }
    }
}

// --- warnings before the files

TEST_F(ExportRun, MissingAnimationIsReportedBeforeTheFirstFileIsOpened) {
    session.prepareRun("imd_file_out=0;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1");
    run().options.outputFolder = session.folder.path("missing/");
    int written = 0;
    EXPECT_FALSE(writeAllFiles(written));
    EXPECT_EQ(written, 0);
    EXPECT_EQ(session.takeMessages(), "Warning: No material color animation\n"
                                      "Warning: No texture pattern animation\n"
                                      "Warning: No visibility animation\n"
                                      "Warning: No texture SRT animation\n"
                                      "Error: Can't open file: " +
                                          session.folder.path("missing/model.ima") + "\n");
    EXPECT_TRUE(run().warningRaised);
}

// --- selections

TEST_F(ExportRun, ASelectionBelowAMovedParentStaysInItsSpace) {
    session.open(nodeText("transform", "group", "", set3("t", 10, 0, 0)) +
                 nodeText("transform", "a", "group", set3("t", 1, 2, 3)) + nodeText("transform", "b", "a"));
    session.mel("select -r a");
    ASSERT_TRUE(session.exportSelected());
    const decode::ModelFile model = session.model();
    EXPECT_THAT(model.names(), ElementsAre("a", "b"));
    EXPECT_EQ(model.node("a").translate, Imath::V3d(1, 2, 3));
    EXPECT_THAT(session.infos,
                testing::Contains("Exported in the space of its parent, which is moved and not exported: a"));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(ExportRun, ASelectionBelowAParentThatStandsStillIsNothingToTellOf) {
    session.open(nodeText("transform", "group") + nodeText("transform", "a", "group"));
    session.mel("select -r a");
    ASSERT_TRUE(session.exportSelected());
    EXPECT_THAT(session.infos, Not(testing::Contains(StartsWith("Exported in the space"))));
}

TEST_F(ExportRun, AnEmptySelectionFails) {
    session.open(nodeText("transform", "a"));
    session.mel("select -cl");
    EXPECT_FALSE(session.exportSelected());
    EXPECT_EQ(session.takeMessages(), "Error: No effective node\n\n");
}

TEST_F(ExportRun, SelectedNodesOfSeveralBranchesHangBelowTheSyntheticRoot) {
    session.open(nodeText("transform", "g") + nodeText("transform", "b", "g") + nodeText("transform", "h") +
                 nodeText("transform", "a", "h") + nodeText("transform", "x", "a"));
    session.mel("select -r b a x");
    ASSERT_TRUE(session.exportSelected());
    const decode::ModelFile model = session.model();
    EXPECT_THAT(model.names(), ElementsAre("world_root", "a", "b", "x"));
    EXPECT_THAT(model.childrenOf("world_root"), ElementsAre("a", "b"));
    EXPECT_THAT(model.childrenOf("a"), ElementsAre("x"));
}

TEST_F(ExportRun, TheUsersSceneIsNotTouched) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b"));
    session.mel("select -r b");
    session.mel("file -modified 0");
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    EXPECT_EQ(session.mel("string $s[] = `ls -sl`; $s[0]"), "b");
    EXPECT_EQ(session.mel("file -q -modified"), "0");
}

// --- whole scenes

TEST_F(ExportRun, SceneClutter) {
    session.open(nodeText("transform", "hero") + nodeText("joint", "hip", "hero") + nodeText("joint", "knee", "hip") +
                 nodeText("ikEffector", "effector1", "hip") + nodeText("ikHandle", "handle1", "hero") +
                 nodeText("poleVectorConstraint", "pole1", "handle1") + nodeText("aimConstraint", "aim1", "knee") +
                 nodeText("parentConstraint", "pc1", "knee") + nodeText("transform", "sun") +
                 nodeText("directionalLight", "sunShape", "sun") + nodeText("transform", "ctrl_a", "hero") +
                 curveText("ctrl_aShape", "ctrl_a") + nodeText("transform", "ctrl_b", "hero") +
                 curveText("ctrl_bShape", "ctrl_b") + nodeText("transform", "ghost", "hero") +
                 meshText("ghostShape", "ghost", "setAttr \".tmp\" yes;") + nodeText("transform", "grip", "hero") +
                 nodeText("locator", "gripShape", "grip") + nodeText("transform", "shot1", "hero") +
                 nodeText("camera", "shot1Shape", "shot1") + nodeText("transform", "lens", "shot1") +
                 meshText("lensShape", "lens") + inDefaultGroup("lensShape"));
    ASSERT_TRUE(session.exportAll());
    const decode::ModelFile model = session.model();
    EXPECT_THAT(model.names(),
                ElementsAre("hero", "ctrl_a", "ctrl_b", "ghost", "grip", "hip", "shot1", "knee", "lens"));
    for (const char* name : {"hero", "ctrl_a", "ctrl_b", "ghost", "grip", "shot1"}) {
        EXPECT_EQ(model.node(name).kind, "null") << name;
    }
    EXPECT_EQ(model.node("hip").kind, "joint");
    EXPECT_EQ(model.node("knee").kind, "joint");
    EXPECT_EQ(model.node("lens").kind, "mesh");
    EXPECT_EQ(session.takeMessages(), "Warning: Can't export NURBS curve: ctrl_a\n"
                                      "Warning: Can't export NURBS curve: ctrl_b\n\n");
}

// One mesh under three transforms, all of them reached twice through an instanced group; names that clash by nature.
TEST_F(ExportRun, InstancesAndClashes) {
    std::string shaded;
    for (int i = 0; i < 6; ++i) {
        shaded += inDefaultGroup("m", i);
    }
    session.open(nodeText("transform", "world_root") + nodeText("transform", "left") + nodeText("transform", "right") +
                 nodeText("transform", "group", "left") + nodeText("transform", "a", "group") + meshText("m", "a") +
                 nodeText("transform", "a_1", "group") + nodeText("transform", "c", "group") +
                 "parent -s -nc -r -add \"m\" \"a_1\";\nparent -s -nc -r -add \"m\" \"c\";\n"
                 "parent -nc -r -add \"group\" \"right\";\n" +
                 shaded);
    ASSERT_TRUE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Warning: Node name changed: right|group -> group_1\n"
                                      "Warning: Node name changed: right|group|a -> a_2\n"
                                      "Warning: Node name changed: right|group|a_1 -> a_1_1\n"
                                      "Warning: Node name changed: right|group|c -> c_1\n"
                                      "Warning: Node name changed: world_root -> world_root_1\n\n");
    const decode::ModelFile model = session.model();
    EXPECT_THAT(model.names(), ElementsAre("world_root_1", "left", "right", "world_root", "group", "group_1", "a",
                                           "a_1", "a_1_1", "a_2", "c", "c_1"));
    EXPECT_THAT(model.childrenOf("world_root_1"), ElementsAre("left", "right", "world_root"));
    EXPECT_THAT(model.childrenOf("group"), ElementsAre("a", "a_1", "c"));
    EXPECT_THAT(model.childrenOf("group_1"), ElementsAre("a_1_1", "a_2", "c_1"));
    for (const char* name : {"a", "a_1", "c", "a_2", "a_1_1", "c_1"}) {
        EXPECT_EQ(model.node(name).kind, "mesh") << name;
    }
}

TEST_F(ExportRun, ASelectedChildOfASelectedNodeIsNotWrittenTwice) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b", "a") + nodeText("transform", "c", "b"));
    session.mel("select -r c a");
    ASSERT_TRUE(session.exportSelected());
    EXPECT_THAT(session.model().names(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(session.takeMessages(), "");
}

} // namespace
} // namespace tvk
