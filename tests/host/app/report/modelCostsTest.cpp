#include "host/app/report/modelCosts.h"

#include "host/app/report/textureMemory.h"

#include "SmallFolder.h"

#include <gtest/gtest.h>

namespace host::app::report {
namespace {

constexpr const char* kFan = "\xE3\x83\x86\xE3\x82\xB9"; // as the report names it

ModelCosts costsOf(const ExportedFiles& files) {
    return costsOfModel(files, memoryOf(files.textures));
}

ModelCosts smallCosts() {
    const SmallFolder folder;
    folder.write("imd", smallModel());
    return costsOf(folder.read());
}

TEST(ModelCosts, WhatIsSentIsCounted) {
    const ModelCosts model = smallCosts();
    EXPECT_EQ(model.nodes, 3);
    EXPECT_EQ(model.materials, 2);
    EXPECT_EQ(model.polygons, 2);
    EXPECT_EQ(model.matrixGroups, 2);
    EXPECT_EQ(model.draws.triangles, 6);
    EXPECT_EQ(model.draws.quads, 4);
    EXPECT_EQ(model.draws.vertices, 24);
    EXPECT_EQ(model.draws.polygonCost(), 6 * 20 + 4 * 24);
    EXPECT_EQ(model.matrices, 3);
    EXPECT_EQ(model.draws.matrixLoads, 3);
    EXPECT_EQ(model.draws.matrixSwitches, 3);
}

TEST(ModelCosts, StripsAreCountedByTheirFaces) {
    const ModelCosts model = smallCosts();
    struct Row {
        const char* type;
        bool isStrip;
        int count, faces, vertices;
    };
    static constexpr Row kRows[] = {
        {"quad_strip", true, 1, 3, 8},
        {"triangle_strip", true, 1, 4, 6},
        {"quads", false, 1, 1, 4},
        {"triangles", false, 1, 2, 6},
    };
    for (std::size_t i = 0; i < model.primitives.size(); ++i) {
        const PrimitiveCosts& found = model.primitives.at(i);
        EXPECT_EQ(found.type, kRows[i].type);
        EXPECT_EQ(found.isStrip, kRows[i].isStrip) << found.type;
        EXPECT_EQ(found.count, kRows[i].count) << found.type;
        EXPECT_EQ(found.faces, kRows[i].faces) << found.type;
        EXPECT_EQ(found.vertices, kRows[i].vertices) << found.type;
    }
    EXPECT_EQ(model.strips(), 2);
    EXPECT_EQ(model.facesInStrips(), 7);
}

TEST(ModelCosts, OfEquallyManyVerticesTheDearerFacesComeFirst) {
    const ModelCosts model = smallCosts();
    ASSERT_EQ(model.meshNodes.size(), 2U);
    EXPECT_EQ(model.meshNodes[0].name, kFan);
    EXPECT_EQ(model.meshNodes[0].draws.vertices, 12);
    EXPECT_EQ(model.meshNodes[0].draws.polygonCost(), 120);
    EXPECT_EQ(model.meshNodes[0].draws.matrixLoads, 2);
    EXPECT_EQ(model.meshNodes[0].draws.matrixSwitches, 3);
    EXPECT_EQ(model.meshNodes[1].name, "box");
    EXPECT_EQ(model.meshNodes[1].draws.polygonCost(), 96);
    EXPECT_EQ(model.meshNodes[1].draws.matrixLoads, 1);
}

TEST(ModelCosts, MaterialsBringTheirImage) {
    const ModelCosts model = smallCosts();
    ASSERT_EQ(model.drawn.size(), 2U);
    EXPECT_EQ(model.drawn[0].name, "ground");
    EXPECT_EQ(model.drawn[0].vertices, 12);
    EXPECT_EQ(model.drawn[0].textureBytes, 32 + 32);
    EXPECT_EQ(model.drawn[1].name, "air");
    EXPECT_EQ(model.drawn[1].vertices, 12);
    EXPECT_EQ(model.drawn[1].textureBytes, 0);
}

TEST(ModelCosts, MaterialsBringAllImagesOfTheirPatternAndSharedPalettesOnce) {
    const SmallFolder folder;
    folder.write("imd", smallModel());
    folder.write("itp", smallPatternAnimation());
    EXPECT_EQ(costsOf(folder.read()).drawn[0].textureBytes, (32 + 32) + 16 + (16 + 8) + 16);
}

TEST(ModelCosts, AModelWithoutPolygonsCostsNothing) {
    const SmallFolder folder;
    folder.write("imd",
                 "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n\n<imd version=\"1.6.0\">\n<body>\n"
                 "<model_info pos_scale=\"0\"/>\n<polygon_array size=\"0\">\n</polygon_array>\n</body>\n</imd>\n");
    const ModelCosts model = costsOf(folder.read());
    EXPECT_EQ(model.draws.vertices, 0);
    EXPECT_EQ(model.strips(), 0);
    EXPECT_TRUE(model.meshNodes.empty() && model.drawn.empty());
}

TEST(Limits, AreWithinUpToTheLimitAndOverBehindIt) {
    ModelCosts model;
    model.draws.vertices = 6144;
    model.draws.triangles = 2; // 40 of 40960, the rest in quads and triangles
    model.draws.quads = 1705;  // 40920
    model.matrices = 31;
    for (const Limit& limit : limitsOf(model)) {
        EXPECT_EQ(limit.used, limit.limit) << limit.label;
        EXPECT_EQ(limit.over(), 0) << limit.label;
    }
    model.draws.vertices += 1;
    model.draws.triangles += 1;
    model.matrices += 1;
    const std::vector<Limit> limits = limitsOf(model);
    ASSERT_EQ(limits.size(), 3U);
    EXPECT_EQ(limits[0].over(), 1);
    EXPECT_EQ(limits[1].over(), 20);
    EXPECT_EQ(limits[2].over(), 1);
}

} // namespace
} // namespace host::app::report
