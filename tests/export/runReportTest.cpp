#include "export/runReport.h"

#include "ExportSession.h"
#include "FreshRun.h"

#include "scene/messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Report : public testing::Test {
protected:
    void SetUp() override {
        run().options.outputFolder = "/out/";
        run().options.baseName = "walk";
    }

    static NodeRecord& addNode(const std::string& name, bool written = true) {
        auto node = std::make_unique<NodeRecord>();
        node->name = name;
        run().scene.nodes.push_back(std::move(node));
        NodeRecord& record = *run().scene.nodes.back();
        if (written) {
            run().scene.outputNodes.push_back(&record);
        }
        return record;
    }

    ExportSession session;
    FreshRun fresh;
};

TEST_F(Report, TheHeaderNamesTheOutputsInTheirOrder) {
    printRunHeader();
    ExportOptions& o = run().options;
    o.outIta = o.outIva = o.outItp = o.outIma = o.outIca = true;
    printRunHeader();
    o.outImd = o.outIca = o.outItp = o.outIta = false;
    printRunHeader();
    EXPECT_THAT(session.infos, ElementsAre("========== TVK_Export : walk ========== imd ",
                                           "========== TVK_Export : walk ========== imd ica ima itp iva ita ",
                                           "========== TVK_Export : walk ========== ima iva "));
}

TEST_F(Report, TheSummaryOfAModel) {
    addNode("a");
    addNode("b");
    addNode("c", false);
    SceneData& scene = run().scene;
    scene.materialCount = 4;
    scene.outputMaterialCount = 3;
    scene.vertexTotal = 1234;
    scene.polygonTotal = 56;
    scene.triangleTotal = 40;
    scene.quadTotal = 16;
    printSummary();
    EXPECT_THAT(session.infos, ElementsAre("Output Folder\t: /out/", "Compress Node\t: None ( 3 )",
                                           "Compress Material\t: None ( 4 )", "imd : Total Vertex Size\t:   1234",
                                           "imd : Total Polygon Size\t:     56 ( 40 triangles, 16 quads)"));
}

TEST_F(Report, TheSummaryOfANodeAnimation) {
    run().options.outImd = false;
    run().options.outIca = true;
    run().scene.nodeScaleData = {4096};
    run().scene.nodeRotateData = {0, 737280, -410};
    run().scene.nodeTranslateData.assign(1234567, 0);
    printSummary();
    session.infos.erase(session.infos.begin(), session.infos.begin() + 3);
    EXPECT_THAT(session.infos, ElementsAre("ica : Scale Size\t\t:      1",
                                           "ica : Rotate Size\t\t:      3  (min = -0.100098, max = 180.000000)",
                                           "ica : Translate Size\t: 1234567")); // wider numbers grow
}

TEST_F(Report, WithoutRotationsTheirLimitsAreZero) {
    run().options.outIca = true;
    printSummary();
    EXPECT_THAT(session.infos, testing::Contains("ica : Rotate Size\t\t:      0  (min = 0.000000, max = 0.000000)"));
}

TEST_F(Report, CompressionTellsBothCounts) {
    addNode("a");
    addNode("b", false);
    run().scene.materialCount = 4;
    run().scene.outputMaterialCount = 3;
    run().options.compressMaterial = true;
    const std::pair<int, const char*> cases[] = {{1, "Cull Useless Node ( 2 -> 1 )"},
                                                 {2, "Merge Useless Node ( 2 -> 1 )"},
                                                 {3, "Unite ( 2 -> 1 )"},
                                                 {4, "Unite and Combine Polygon ( 2 -> 1 )"},
                                                 {5, "None ( 2 )"},
                                                 {-1, "None ( 2 )"}};
    for (const auto& [mode, text] : cases) {
        run().options.optimizeNode = mode;
        session.infos.clear();
        printSummary();
        EXPECT_EQ(session.infos.at(1), std::string("Compress Node\t: ") + text);
        EXPECT_EQ(session.infos.at(2), "Compress Material\t: Compress Same Material ( 4 -> 3 )");
    }
}

TEST_F(Report, BatchRunsShowNothing) {
    run().options.batchFlag = true;
    printRunHeader();
    printSummary();
    EXPECT_THAT(session.infos, IsEmpty());
}

TEST_F(Report, TimeIsInMinutesAndTwoDigitsOfSeconds) {
    EXPECT_EQ(finishedText(75), "Finished  ( time = 1:15 )");
    EXPECT_EQ(finishedText(65), "Finished  ( time = 1:05 )");
    EXPECT_EQ(finishedText(0), "Finished  ( time = 0:00 )");
    EXPECT_EQ(finishedText(3725), "Finished  ( time = 62:05 )");
}

TEST_F(Report, NamesOfSeventeenBytesAreReported) {
    addNode("exactly_sixteen_");
    addNode("these_are_17_long");
    addNode("not_written_but_long", false);
    addNode("skipped_although_long").skipOutput = true;
    warnOfLongNames();
    EXPECT_EQ(fresh.messages(), "Warning: Length of name over 16 characters: node: these_are_17_long\n");
    EXPECT_TRUE(warningRaised());
}

// Eight kanji are 16 bytes of Shift_JIS (and 24 of UTF-8); nine are 18.
TEST_F(Report, LengthsAreThoseOfTheWrittenBytes) {
    std::string kanji;
    for (int i = 0; i < 8; ++i) {
        kanji += "\xE8\xA1\xA8";
    }
    addNode(kanji);
    warnOfLongNames();
    EXPECT_EQ(fresh.messages(), "");
    addNode(kanji + "\xE8\xA1\xA8");
    warnOfLongNames();
    EXPECT_EQ(fresh.messages(), "Warning: Length of name over 16 characters: node: " + kanji + "\xE8\xA1\xA8\n");
}

TEST_F(Report, LongNamesOfEveryKindAreToldInWrittenOrder) {
    const std::string longName = "seventeen_letters";
    addNode("node_of_17_letters");
    SceneData& scene = run().scene;
    scene.materials.resize(3);
    scene.materials[0].name = "b_" + longName;
    scene.materials[1].name = "a_" + longName;
    scene.materials[2].name = "short";
    scene.materialOrder = {1, 0, 2};
    scene.textures.resize(2);
    scene.textures[0].name = "d_" + longName;
    scene.textures[1].name = "c_" + longName;
    scene.textureOrder = {1, 0};
    scene.palettes.resize(2);
    scene.palettes[0].name = "f_" + longName;
    scene.palettes[1].name = "e_" + longName;
    scene.paletteOrder = {1, 0};
    warnOfLongNames();
    std::string expected;
    for (const char* subject :
         {"node: node_of_17_letters", "material: a_seventeen_letters", "material: b_seventeen_letters",
          "texture: c_seventeen_letters", "texture: d_seventeen_letters", "palette: e_seventeen_letters",
          "palette: f_seventeen_letters"}) {
        expected += std::string("Warning: Length of name over 16 characters: ") + subject + "\n";
    }
    EXPECT_EQ(fresh.messages(), expected);
}

} // namespace
} // namespace tvk
