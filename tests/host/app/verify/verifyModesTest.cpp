// Exports in every mode, with every kind of interpolation, of scenes whose matters are hard to get right: all are what
// the scene shows.
#include "VerifiedExport.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace tvk {
namespace {

using host::app::verify::Part;

struct Mode {
    const char* name;
    const char* options;
};

constexpr Mode kModes[] = {{"none", ""},
                           {"cull", "optimize_node=1;"},
                           {"merge", "optimize_node=2;"},
                           {"unite", "optimize_node=3;"},
                           {"combine", "optimize_node=4;"},
                           {"magnified", "magnify=2.5;"},
                           {"small", "magnify=0.03;optimize_node=2;"},
                           {"everyFrame", "frame_step_mode=1;anime_interp=0;"},
                           {"forcedSteps", "frame_step_mode=3;"},
                           {"curves", "anime_interp=2;"},
                           {"mergedMaterials", "compress_material=1;"},
                           {"strongestBones", "force_full_weight=1;"},
                           {"lists", "use_primitive_strip=0;"}};

class VerifiedSamples : public testing::TestWithParam<std::tuple<const char*, Mode>> {};

TEST_P(VerifiedSamples, ShowTheScene) {
    const auto& [sample, mode] = GetParam();
    VerifiedExport session;
    session.exportSample(sample, VerifiedExport::kAllFiles + mode.options);
    EXPECT_EQ(session.firstFinding(), "");
    EXPECT_GT(session.last.of(Part::kNodes).compared, 0U);
    EXPECT_GT(session.last.of(Part::kTranslation).compared, 0U);
    EXPECT_GT(session.last.of(Part::kVisibility).compared, 0U);
}

INSTANTIATE_TEST_SUITE_P(Modes, VerifiedSamples,
                         testing::Combine(testing::Values("walk", "golem", "materials", "character"),
                                          testing::ValuesIn(kModes)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param)) + "_" + std::get<1>(row.param).name;
                         });

TEST(VerifiedScenes, OfMirroredAndInstancedNodes) {
    VerifiedExport session;
    session.open(nodeText("transform", "left", "", set3("t", -3, 0, 0)) +
                 nodeText("transform", "right", "", set3("t", 3, 0, 0) + set3("s", -1, 1, 2)) +
                 nodeText("transform", "a", "left", set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0) + set3("r", 0, 0, 30)) +
                 meshShape("aShape", "a", row(2)) + shadeWhole("aShape", "initialShadingGroup") +
                 "parent -s -nc -r -add \"a\" \"right\";\n" + inDefaultGroup("aShape", 1));
    for (const char* options : {"", "optimize_node=2", "optimize_node=3"}) {
        session.exportOpen(options);
        EXPECT_EQ(session.firstFinding(), "") << options;
        EXPECT_EQ(session.last.of(Part::kFaces).compared, 4U) << options;
        EXPECT_THAT(session.last.notes(), testing::IsEmpty());
    }
}

TEST(VerifiedScenes, OfASelectionBelowAMovedNode) {
    VerifiedExport session;
    session.open(nodeText("transform", "group", "", set3("t", 4, 0, 0) + set3("r", 0, 20, 0)) +
                 nodeText("transform", "a", "group", set3("t", 0, 1, 0)) + meshShape("aShape", "a", row(3)) +
                 shadeWhole("aShape", "initialShadingGroup") + meshNode("b", square()));
    session.mel("select -r a");
    for (const char* options : {"", "optimize_node=2", "optimize_node=4"}) {
        session.exportOpen(options, true);
        EXPECT_EQ(session.firstFinding(), "") << options;
        EXPECT_EQ(session.last.of(Part::kFaces).compared, 3U) << options;
    }
}

TEST(VerifiedScenes, TellWhatTheyDoNotCompare) {
    VerifiedExport session;
    session.open(nodeText("transform", "wide", "", set3("s", 1, 3, 1)) +
                 nodeText("transform", "a", "wide", set3("r", 0, 0, 30)) + meshShape("aShape", "a", square()) +
                 shadeWhole("aShape", "initialShadingGroup"));
    session.exportOpen("optimize_node=2");
    EXPECT_EQ(session.firstFinding(), "");
    EXPECT_THAT(session.last.notes(),
                testing::ElementsAre("scale and rotation of imd: node a, which the scene shears"));
}

// What no face has and what has no area stands in some of the boxes.
TEST(VerifiedScenes, OfVerticesThatAreNotDrawn) {
    VerifiedExport session;
    MeshSpec mesh = row(3);
    session.open(nodeText("transform", "a", "", set3("s", 2, 2, 2)) + meshShape("aShape", "a", mesh) +
                 shadeFaces("aShape", "initialShadingGroup", 0, "f[0:1]"));
    session.exportOpen("");
    EXPECT_EQ(session.firstFinding(), "");
    EXPECT_EQ(session.last.of(Part::kBoxes).compared, 20U); // of a polygon, its node and the model
    EXPECT_THAT(session.last.notes(), testing::IsEmpty());

    mesh.points.push_back({50, 0, 0});
    mesh.points.push_back({51, 0, 0});
    mesh.points.push_back({52, 0, 0});
    mesh.faces.push_back({8, 9, 10});
    session.open(meshNode("a", mesh));
    session.exportOpen("");
    EXPECT_EQ(session.firstFinding(), "");
    EXPECT_EQ(session.last.of(Part::kBoxes).compared, 20U);
    EXPECT_THAT(session.last.notes(), testing::IsEmpty());

    mesh.points.push_back({-70, 0, 0});
    session.open(meshNode("a", mesh));
    session.exportOpen("");
    EXPECT_EQ(session.firstFinding(), "");
    EXPECT_THAT(session.last.notes(), testing::ElementsAre("box_test, for vertices without faces"));
}

// A scene that changed since the export is not what the files show.
TEST(VerifiedScenes, ThatChangedSinceAreTold) {
    VerifiedExport session;
    session.open(meshNode("a", square()) + nodeText("transform", "b"));
    session.exportOpen("");
    ASSERT_EQ(session.firstFinding(), "");
    session.mel("setAttr b.tx 1");
    EXPECT_EQ(session.firstFinding(), "imd: node b: translate x is off by 1.000000, allowed are 0.000123");
    session.mel("setAttr b.tx 0; rename a z");
    EXPECT_EQ(session.firstFinding(), "imd: node a is not in the scene");
    EXPECT_THAT(session.last.findings(), testing::Contains("imd: no node draws |z|aShape"));
}

} // namespace
} // namespace tvk
