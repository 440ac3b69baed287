// Real scenes as they move: all six files of each, played beside what the host shows at every frame.

#include "ExportSession.h"
#include "RecordedScene.h"
#include "decode/AnimationFile.h"
#include "decode/PatternFile.h"
#include "motionChecks.h"

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace tvk {
namespace {

const std::string kAllFiles = "ica_file_out=1;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1;"
                              "anime_tol_t=0.001;anime_tol_r=0.001;anime_tol_s=0.001";

struct SceneMotion {
    const char* scene;
    int nodes;              // at least so many stand in the model by their own names
    const char* range = ""; // a part of thousands of frames; all of them when empty
};

constexpr SceneMotion kScenes[] = {
    {"euler-flip-ik", 1},          {"segment-scale-anim", 1},
    {"finger-pivots-anim", 1},     {"trax-character", 1},
    {"clip-points-visibility", 1}, {"visibility-switch", 1},
    {"character-25-joints", 25},   {"maya2008-skeleton", 60, ";frame_range=2;start_frame=1000;end_frame=1059"},
};

class SceneAnimation : public testing::Test {
protected:
    void exportScene(const char* name, const std::string& options) {
        std::string path;
        for (const RecordedScene& scene : recordedScenes()) {
            path = scene.name == name ? scene.path : path;
        }
        ASSERT_TRUE(session.melRuns("file -f -o \"" + path + "\"")) << path;
        ASSERT_TRUE(session.exportAll(options)) << session.takeMessages();
    }
    // Its own switch and that of every node above.
    bool isVisible(const std::string& node) const {
        for (MDagPath path = session.path(node); path.length() > 0; path.pop()) {
            bool visible = true;
            MFnDependencyNode(path.node()).findPlug("visibility", true).getValue(visible);
            if (!visible) {
                return false;
            }
        }
        return true;
    }

    ExportSession session;
};

struct PlayedAs {
    const char* name;
    const char* options;
    bool isWhole; // no node is compressed away
};

constexpr PlayedAs kWays[] = {
    {"EveryFrame", ";frame_step_mode=1", true}, {"Mixed", ";anime_interp=1;frame_step_mode=0", false},
    {"Curves", ";anime_interp=2", false},       {"Culled", ";optimize_node=1", false},
    {"Merged", ";optimize_node=2", false},      {"United", ";optimize_node=3", false},
};

using MotionCase = std::tuple<SceneMotion, PlayedAs>;

class SceneMotions : public SceneAnimation, public testing::WithParamInterface<MotionCase> {};

std::string nameOf(const char* scene) {
    std::string name = scene;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

TEST_P(SceneMotions, ArePlayedAsInTheHost) {
    const auto& [scene, way] = GetParam();
    exportScene(scene.scene, kAllFiles + way.options + scene.range);
    const int compared = expectMovesAsInTheHost(session);
    if (way.isWhole) {
        EXPECT_GE(compared, scene.nodes);
    }
    for (const char* const kind : {"ima", "ita"}) {
        decode::readAnimationFile(session.fileText(std::string("model.") + kind));
    }
    decode::readPatternFile(session.fileText("model.itp"));
}

INSTANTIATE_TEST_SUITE_P(Corpus, SceneMotions, testing::Combine(testing::ValuesIn(kScenes), testing::ValuesIn(kWays)),
                         [](const testing::TestParamInfo<MotionCase>& parameter) {
                             return nameOf(std::get<0>(parameter.param).scene) + "_" +
                                    std::get<1>(parameter.param).name;
                         });

class SceneVisibility : public SceneAnimation, public testing::WithParamInterface<SceneMotion> {};

TEST_P(SceneVisibility, IsThatOfTheHost) {
    exportScene(GetParam().scene, std::string("iva_file_out=1") + GetParam().range);
    const decode::ModelFile model = session.model();
    const decode::VisibilityFile file = session.visibility();
    ASSERT_EQ(file.nodes.size(), model.nodes.size());
    std::vector<const decode::ModelNode*> known; // a mesh node is also hidden by its shape
    for (const decode::ModelNode& node : model.nodes) {
        if (node.name != "world_root" && node.kind != "mesh" && session.melRuns("select -r " + node.name)) {
            known.push_back(&node);
        }
    }
    const int start = file.info->integer("tool_start_frame");
    for (int frame = 0; frame < file.info->integer("frame_size"); ++frame) {
        session.mel("currentTime " + std::to_string(start + frame));
        for (const decode::ModelNode* const node : known) {
            const auto index = static_cast<std::size_t>(node->index);
            EXPECT_EQ(file.nodes[index].frames[static_cast<std::size_t>(frame)] == 1, isVisible(node->name))
                << node->name << " at frame " << start + frame;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, SceneVisibility, testing::ValuesIn(kScenes),
                         [](const auto& parameter) { return nameOf(parameter.param.scene); });

} // namespace
} // namespace tvk
