// The walking sample: what a reader of its six files sees, beside what the host shows.

#include "ExportSession.h"
#include "decode/AnimationFile.h"
#include "decode/PatternFile.h"
#include "motionChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace tvk {
namespace {

const std::string kAllFiles = "ica_file_out=1;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1";

class WalkSample : public testing::Test, public ExportSession {
protected:
    void exportSample(const std::string& options) {
        const std::string samples = std::string(TVK_SOURCE_DIR) + "/samples/";
        mel("workspace -o \"" + samples + "\"; file -f -o \"" + samples + "walk.ma\"");
        ASSERT_TRUE(exportAll(kAllFiles + options)) << takeMessages();
        EXPECT_EQ(takeMessages(), "");
    }
    // A plug at a frame of the range, which begins at 1.
    double valueAt(const std::string& plug, std::size_t frame) {
        mel("currentTime " + std::to_string(frame + 1));
        return std::stod(mel("getAttr " + plug));
    }
};

struct WalkCase {
    const char* name;
    const char* options;
    int nodes;
    double tolerance; // those of the channels add up from the hips to the hands
};

class WalkInEveryMode : public WalkSample, public testing::WithParamInterface<WalkCase> {};

TEST_P(WalkInEveryMode, MovesAsInTheHost) {
    exportSample(GetParam().options);
    EXPECT_EQ(expectMovesAsInTheHost(*this, GetParam().tolerance), GetParam().nodes);
}

constexpr const char* kExact = ";anime_tol_t=0;anime_tol_r=0;anime_tol_s=0";

INSTANTIATE_TEST_SUITE_P(
    Modes, WalkInEveryMode,
    testing::Values(WalkCase{"everyFrame", ";anime_tol_t=0;anime_tol_r=0;anime_tol_s=0", 41, 0.004},
                    WalkCase{"mixed", ";anime_interp=1;frame_step_mode=0;anime_tol_s=0.01", 41, 0.2},
                    WalkCase{"curves", ";anime_interp=2;anime_tol_s=0.01", 41, 0.2},
                    WalkCase{"merged", ";anime_tol_t=0;anime_tol_r=0;anime_tol_s=0;optimize_node=2", 20, 0.02}),
    [](const auto& parameter) { return parameter.param.name; });

TEST_F(WalkSample, StepsAlternate) {
    exportSample(kExact);
    const decode::ModelFile file = model();
    const decode::AnimationFile walk = decode::readAnimationFile(fileText("model.ica"));
    const auto ahead = [&](std::size_t frame) { // how far the left foot is before the right one
        const std::vector<decode::ModelNode> nodes = decode::posed(file, walk, frame);
        const auto z = [&](const char* name) {
            return nodes[static_cast<std::size_t>(file.node(name).index)].world[3][2];
        };
        return z("foot_l") - z("foot_r");
    };
    EXPECT_GT(ahead(0), 1.0);
    EXPECT_LT(ahead(15), -1.0);
    EXPECT_GT(ahead(30), 1.0);
    EXPECT_LT(ahead(45), -1.0);
}

TEST_F(WalkSample, EyesBlinkTwice) {
    exportSample("");
    const decode::PatternFile file = decode::readPatternFile(fileText("model.itp"));
    const std::vector<std::string>& eyes = file.of("eyes_mat").images;
    ASSERT_EQ(eyes.size(), 60U);
    for (std::size_t frame = 0; frame < eyes.size(); ++frame) {
        EXPECT_EQ(eyes[frame], "eyes." + std::to_string(std::lround(valueAt("eyes_file.frameExtension", frame))));
    }
    EXPECT_EQ(std::count(eyes.begin(), eyes.end(), "eyes.3"), 4);
}

TEST_F(WalkSample, TheLanternGoesOutTwice) {
    exportSample("");
    const auto index = static_cast<std::size_t>(model().node("lantern").index);
    EXPECT_EQ(visibility().nodes.at(index).keys,
              (std::vector<std::pair<int, int>>{{0, 1}, {24, 0}, {32, 1}, {35, 0}, {39, 1}}));
}

TEST_F(WalkSample, CoatAndWaterChangeAsInTheHost) {
    exportSample(";anime_tol_c=0;anime_tol_uv_t=0");
    const decode::AnimationFile colors = decode::readAnimationFile(fileText("model.ima"));
    const decode::AnimationFile water = decode::readAnimationFile(fileText("model.ita"));
    ASSERT_EQ(colors.things.size(), 2U);
    const std::vector<double>& coat = colors.of("coat_mat").channel("diffuse_r").frames;
    const std::vector<double>& flow = water.of("pond_mat").channel("tex_translate_t").frames;
    ASSERT_EQ(coat.size(), 60U);
    ASSERT_EQ(flow.size(), 60U);
    for (std::size_t frame = 0; frame < coat.size(); ++frame) {
        EXPECT_NEAR(coat[frame], 31 * valueAt("coat_mat.colorR", frame), 0.501) << frame;
        EXPECT_NEAR(flow[frame], valueAt("pond_place.translateFrameV", frame), 1.0 / 4096) << frame;
    }
}

} // namespace
} // namespace tvk
