// The skinned sample: made as it stands in the samples, and drawn by a reader of its model as the host shows it.

#include "sampleCharacter/sampleCharacter.h"

#include "ExportSession.h"
#include "decode/ModelGeometry.h"
#include "drawnFaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

namespace tvk {
namespace {

const std::string kFolder = std::string(TVK_SOURCE_DIR) + "/samples/";

TEST(SampleCharacter, IsWhatTheGeneratorMakes) {
    std::ifstream in(kFolder + "golem.ma", std::ios_base::binary);
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_TRUE(text == samples::sampleCharacter()) << "makeSampleCharacter samples/golem.ma writes it anew";
}

class ExportedCharacter : public testing::Test {
protected:
    void SetUp() override {
        session.mel("workspace -o \"" + kFolder + "\"; file -f -o \"" + kFolder + "golem.ma\"");
        ASSERT_TRUE(session.exportAll());
        EXPECT_EQ(session.takeMessages(), "");
        file = session.model();
        model = decode::readModelGeometry(file);
    }

    ExportSession session;
    decode::ModelFile file;
    decode::ModelGeometry model;
};

TEST_F(ExportedCharacter, IsWithinWhatTheConsoleHolds) {
    const auto joints = std::count_if(file.nodes.begin(), file.nodes.end(),
                                      [](const decode::ModelNode& node) { return node.kind == "joint"; });
    EXPECT_GE(joints, 20);
    EXPECT_GE(model.allFaces().size(), 1000U);
    EXPECT_LE(model.matrices.size(), 31U);
    ASSERT_EQ(model.polygons.size(), 2U);
    EXPECT_NE(model.polygons[0].material, model.polygons[1].material);
    const bool blends = std::any_of(model.matrices.begin(), model.matrices.end(),
                                    [](const decode::DrawnMatrix& matrix) { return matrix.size() > 1; });
    EXPECT_TRUE(blends);
}

TEST_F(ExportedCharacter, IsBoundWithItsArmsHeldOut) {
    FaceTolerance tolerance;
    session.mel("setAttr bodySkin.nodeState 1");
    expectDrawn(file, model, sceneFaces(session.path("bodyShape")), tolerance);
}

TEST_F(ExportedCharacter, WalksAsInTheScene) {
    FaceTolerance tolerance;
    tolerance.position = 0.01;
    tolerance.normal = 3.0; // the host turns blended normals by a rule of its own
    for (const int frame : {1, 7, 13, 20}) {
        session.mel("currentTime " + std::to_string(frame));
        std::vector<Imath::M44d> worlds;
        for (const decode::ModelNode& node : file.nodes) {
            worlds.push_back(node.name == "world_root" ? Imath::M44d() : session.expectedWorld(node.name));
        }
        decode::poseModel(file, worlds, model);
        SCOPED_TRACE(frame);
        expectDrawn(file, model, sceneFaces(session.path("bodyShape")), tolerance);
    }
}

} // namespace
} // namespace tvk
