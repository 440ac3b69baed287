#include "OpenedScene.h"

#include "host/graph/DagPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

namespace host {

namespace {

using nlohmann::json;

// What real scenes say that this host has to leave out, in full.
struct SceneRow {
    const char* folder;
    const char* file;
    std::vector<std::string> warnings; // without the path in front
};

const SceneRow kScenes[] = {
    {"character-25-joints", "UsdExportSkeleton.ma", {}},
    {"clip-points-visibility", "UsdExportAsClipTest.ma", {}},
    {"color-sets", "UsdExportColorSetsTest.ma", {}},
    {"euler-flip-ik", "UsdExportEulerFilterTest.ma", {}},
    {"face-groups-history", "UsdExportGeomSubsetTest.ma", {}},
    {"face-shading", "UsdExportDisplayColorTest.ma", {}},
    {"finger-pivots-anim", "GroupedFingersPivotAnim1.ma", {}},
    {"image-formats", "CubesImageFormat.ma", {}},
    {"instances", "UsdExportInstancesTest.ma", {}},
    {"long-names", "anim_connected.ma", {}},
    {"maya2008-skeleton", "skel.ma", {}},
    {"missing-reference-rig",
     "anim_001.ma",
     {"(7): reference 'rhino_rig_029RN' is not loaded, so that its nodes are missing in the scene: File not found: "
      "/scenes/rhino_model_textured/waking_animation/rhino_rig_001.ma",
      "(3913): No object matches name: MayaNodeEditorSavedTabsInfo"}},
    {"phong-textures",
     "Std_Textures.ma",
     {"(27): unknown attribute 'ai_translator' of node type 'camera' is skipped",
      "(91): unknown attribute 'ai_translator' of node type 'mesh' is skipped",
      "(271): unknown node type 'aiOptions': its nodes keep their names and place, but do nothing",
      "(274): unknown node type 'aiAOVFilter': its nodes keep their names and place, but do nothing",
      "(277): unknown node type 'aiAOVDriver': its nodes keep their names and place, but do nothing",
      "(352): unknown node type 'vectorRenderGlobals': its nodes keep their names and place, but do nothing"}},
    {"segment-scale-anim", "SegmentScaleCompensationTestAnim1.ma", {}},
    {"skin-bind-transforms", "bindTransformsExport.ma", {}},
    {"skin-one-joint", "UsdExportSkeletonWithIdentityBindPose.ma", {}},
    {"texture-placement",
     "UsdExportUVTransforms.ma",
     {"(140): unknown node type 'pxrUsdPreviewSurface': its nodes keep their names and place, but do nothing"}},
    {"trax-character",
     "ComplexAnim1.ma",
     {"(29): unknown attribute 'ai_translator' of node type 'camera' is skipped",
      "(109): unknown attribute 'ai_translator' of node type 'mesh' is skipped",
      "(1204): unknown node type 'aiOptions': its nodes keep their names and place, but do nothing",
      "(1207): unknown node type 'aiAOVFilter': its nodes keep their names and place, but do nothing",
      "(1210): unknown node type 'aiAOVDriver': its nodes keep their names and place, but do nothing"}},
    {"uv-sets", "UsdExportUVSetsTest.ma", {}},
    {"visibility-switch", "UsdExportVisibilityDefaultTest.ma", {}},
};

std::string folderOf(const SceneRow& row) {
    return std::string(TVK_TEST_DATA) + "/scenes/" + row.folder + "/";
}

std::vector<json> expectations(const SceneRow& row) {
    std::ifstream stream(folderOf(row) + "expected.json");
    return stream ? json::parse(stream)["checks"].get<std::vector<json>>() : std::vector<json>();
}

// Values of a check as a flat list.
std::vector<double> numbersOf(const json& value) {
    std::vector<double> numbers;
    if (value.is_array()) {
        for (const json& each : value) {
            const std::vector<double> inner = numbersOf(each);
            numbers.insert(numbers.end(), inner.begin(), inner.end());
        }
    } else if (value.is_boolean()) {
        numbers.push_back(value.get<bool>() ? 1.0 : 0.0);
    } else if (value.is_number()) {
        numbers.push_back(value.get<double>());
    }
    return numbers;
}

class RealScene : public testing::TestWithParam<SceneRow> {
protected:
    void SetUp() override { ASSERT_TRUE(opened.scene.open(folderOf(GetParam()) + GetParam().file).ok()); }

    void goToTimeOf(const json& check) {
        const auto time = check.find("time");
        if (time != check.end() && time->is_number()) {
            opened.scene.setCurrentFrame(time->get<double>());
        }
    }

    static bool isNear(double value, double wanted, double tolerance) {
        // Recorded numbers have nine significant digits, and their tolerance leaves this out.
        constexpr double kRounding = 5e-9;
        return std::abs(value - wanted) <= tolerance + kRounding * std::abs(wanted);
    }

    static void expectNear(const json& check, const std::vector<double>& values) {
        const std::vector<double> wanted = numbersOf(check["value"]);
        const double tolerance = check.value("tol", 0.0);
        ASSERT_EQ(values.size(), wanted.size()) << check.dump();
        for (std::size_t at = 0; at < wanted.size(); ++at) {
            EXPECT_TRUE(isNear(values[at], wanted[at], tolerance))
                << values[at] << " at " << at << " of " << check.dump();
        }
    }

    std::map<std::string, int> countTypes() {
        std::map<std::string, int> counts;
        for (const Node* node : opened.scene.graph().nodes()) {
            const bool isCamera = node->isDag(); // files name the default cameras again, and no other default node
            counts[node->type().name()] += !node->isDefault || isCamera ? 1 : 0;
        }
        return counts;
    }

    std::vector<std::string> joints() {
        std::vector<std::string> paths;
        std::vector<DagPath> open{DagPath()};
        while (!open.empty()) {
            const DagPath path = open.back();
            open.pop_back();
            const Node* node = path.end();
            if (node != nullptr && node->type().name() == "joint") {
                paths.push_back(fullPathName(path));
            }
            const auto& children = node != nullptr ? node->children() : opened.scene.graph().world().children();
            for (auto child = children.rbegin(); child != children.rend(); ++child) {
                open.push_back(path);
                open.back().nodes.push_back(*child);
            }
        }
        return paths;
    }

    OpenedScene opened;
};

TEST_P(RealScene, OpensAndTellsWhatItLeavesOut) {
    const std::string path = folderOf(GetParam()) + GetParam().file;
    std::vector<std::string> expected;
    for (const std::string& line : GetParam().warnings) {
        expected.push_back(path + line);
    }
    std::vector<std::string> told; // of the file; what cannot be evaluated is told without a place
    std::copy_if(opened.warnings.begin(), opened.warnings.end(), std::back_inserter(told),
                 [&](const std::string& line) { return line.compare(0, path.size(), path) == 0; });
    EXPECT_EQ(told, expected);
    EXPECT_EQ(opened.scene.file().path, path);
    EXPECT_FALSE(opened.scene.file().modified);
    EXPECT_TRUE(opened.scene.selection().empty());
}

TEST_P(RealScene, HasTheNodesAndPathsExpected) {
    for (const json& check : expectations(GetParam())) {
        const std::string what = check["what"];
        if (what == "nodeCounts") {
            const std::map<std::string, int> counts = countTypes();
            for (const auto& [type, count] : check["value"].items()) {
                const auto found = counts.find(type);
                EXPECT_EQ(found == counts.end() ? 0 : found->second, count.get<int>()) << type;
            }
        } else if (what == "jointPaths") {
            EXPECT_EQ(joints(), check["value"].get<std::vector<std::string>>());
        } else if (what == "dagPaths") {
            const NodeMatch match = opened.scene.find(check["node"].get<std::string>());
            ASSERT_TRUE(match.ok()) << check.dump();
            std::vector<std::string> paths;
            for (const DagPath& each : allPaths(opened.scene.graph(), *match.node)) {
                paths.push_back(fullPathName(each));
            }
            EXPECT_THAT(paths, testing::UnorderedElementsAreArray(check["value"].get<std::vector<std::string>>()));
        } else if (what == "currentTime") {
            EXPECT_EQ(opened.scene.currentFrame(), check["value"].get<double>());
        }
    }
}

TEST_P(RealScene, HoldsTheAttributesExpected) {
    for (const json& check : expectations(GetParam())) {
        const std::string what = check["what"];
        goToTimeOf(check);
        if (what == "attr" && check["value"].is_string()) {
            EXPECT_EQ(opened.text(check["plug"]), check["value"].get<std::string>());
        } else if (what == "attr") {
            expectNear(check, opened.numbers(check["plug"]));
        } else if (what == "visible") {
            EXPECT_EQ(opened.number(check["node"].get<std::string>() + ".visibility") != 0.0,
                      check["value"].get<bool>());
        }
    }
}

TEST_P(RealScene, HasTheMatricesExpected) {
    for (const json& check : expectations(GetParam())) {
        const std::string what = check["what"];
        goToTimeOf(check);
        if (what == "worldMatrix" || what == "localMatrix") {
            const std::string plug = what == "worldMatrix" ? ".worldMatrix" : ".matrix";
            expectNear(check, opened.numbers(check["node"].get<std::string>() + plug));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, RealScene, testing::ValuesIn(kScenes), [](const auto& row) {
    std::string name = row.param.folder;
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});

TEST(RealScenes, NoneIsLeftOut) {
    std::set<std::string> folders;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(TVK_TEST_DATA) + "/scenes")) {
        if (entry.is_directory() && entry.path().filename() != "licenses") {
            folders.insert(entry.path().filename().string());
        }
    }
    std::set<std::string> tested;
    for (const SceneRow& row : kScenes) {
        tested.insert(row.folder);
    }
    EXPECT_EQ(tested, folders);
}

} // namespace

} // namespace host
