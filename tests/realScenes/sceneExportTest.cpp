// Every real scene goes through the exporter, and what it wrote is read back.

#include "RecordedScene.h"

#include "ExportSession.h"

#include <maya/MAnimControl.h>
#include <maya/MTime.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tvk {
namespace {

// Its nodes all stand in a reference whose file its origin does not have.
constexpr const char* kNothingToExport = "missing-reference-rig";

// Scenes with pictures that no console tool reads or with meshes in no shading group, and what is said of them.
struct Refused {
    const char* scene;
    const char* messages;
};

constexpr Refused kRefused[] = {
    {"image-formats",
     "Error: Image type is not supported: D:/Fabrice/Projets/BabylonJS/Exporters/Maya/Samples/sourceModels/"
     "CubesImageFormat/CubesImageFormat.fbm/A.png\n       (used by MapFBXASC032FBXASC0356)\n\n"},
    {"phong-textures",
     "Error: Image type is not supported: D:/Fabrice/Projets/BabylonJS/Exporters/Maya/Samples/sourceModels/"
     "Std_Textures/sun.jpg\n       (used by file11)\n\n"},
    {"color-sets", "Error: No shading group: ColorSetSourceCubeShape\n\n"},
    {"face-shading", "Warning: Faces without shading group are ignored: OneFaceCubeShape (5)\n"
                     "Warning: No shader: lambert11SG\nWarning: No shader: lambert12SG\n"
                     "Warning: No shader: lambert11SG\n"
                     "Warning: Faces without shading group are ignored: ShadingGroupNoShaderOneFaceShape (3)\n"
                     "Error: No shading group: UnassignedCubeShape\n\n"},
};

// Null when the scene is exported.
const Refused* refusalOf(const std::string& scene) {
    const auto* const row = std::find_if(std::begin(kRefused), std::end(kRefused),
                                         [&](const Refused& refused) { return refused.scene == scene; });
    return row != std::end(kRefused) ? row : nullptr;
}

class SceneExport : public testing::TestWithParam<RecordedScene> {};

TEST_P(SceneExport, GivesAModelWhoseWorldIsTheHosts) {
    const RecordedScene& scene = GetParam();
    ExportSession session;
    ASSERT_TRUE(session.melRuns("file -f -o \"" + scene.path + "\""));
    const double opened = session.currentTime();
    const MStatus status = session.exportAll();
    if (scene.name == kNothingToExport) {
        EXPECT_FALSE(status);
        EXPECT_EQ(session.takeMessages(), "Error: No effective node\n\n");
        return;
    }
    if (const Refused* const refused = refusalOf(scene.name); refused != nullptr) {
        EXPECT_FALSE(status);
        EXPECT_EQ(session.takeMessages(), refused->messages);
        EXPECT_FALSE(session.hasFile("model.imd"));
        return;
    }
    ASSERT_TRUE(status) << session.takeMessages();
    EXPECT_EQ(session.currentTime(), opened);

    const decode::ModelFile model = session.model();
    session.mel("currentTime `playbackOptions -q -ast`");
    for (const decode::ModelNode& node : model.nodes) {
        if (node.name == "world_root" || !session.melRuns("select -r " + node.name)) {
            continue; // not in the scene, or one of several instances: those have tests of their own
        }
        const Imath::M44d expected = session.expectedWorld(node.name);
        // Each level adds at most half a step of 1/4096 to a factor, and its arm's length times that to a place.
        double reach = 1.0;
        for (int i = 0; i < 3; ++i) {
            reach = std::max(reach, std::abs(expected[3][i]));
        }
        EXPECT_LT(distance(node.world, expected), reach * 0.004) << node.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, SceneExport, testing::ValuesIn(recordedScenes()), testName);

} // namespace
} // namespace tvk
