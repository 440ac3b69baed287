// Meshes through the finished program.

#include "FinishedProgram.h"
#include "decode/ModelGeometry.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>

#include <string>

namespace tvk {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

decode::ModelGeometry geometryOf(const FinishedProgram& program, const std::string& file) {
    return decode::readModelGeometry(decode::readModelFile(program.bytes(file)));
}

std::string twoMeshes() {
    return shadingText("lambert", "red") + meshNode("a", row(3), "", "redSG") +
           meshNode("b", row(2), set3("t", 5, 0, 0), "redSG");
}

TEST(GeometryOfAScene, IsDrawnWithAndWithoutStrips) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(twoMeshes()));
    ProgramRun run = program.run({"scene.ma", "-o", "strips"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("imd : Total Polygon Size\t:      5 ( 0 triangles, 5 quads)"));
    run = program.run({"scene.ma", "-o", "lists", "--set", "use_primitive_strip=0"});
    ASSERT_EQ(run.status, 0) << run.error;
    for (const char* file : {"strips.imd", "lists.imd"}) {
        const decode::ModelGeometry model = geometryOf(program, file);
        EXPECT_EQ(model.polygon("aShape").faces.size(), 3U) << file;
        EXPECT_EQ(model.polygon("bShape").faces.size(), 2U) << file;
    }
}

TEST(GeometryOfAScene, IsOnePolygonWhenNodesAreUnitedAndCombined) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(twoMeshes()));
    const ProgramRun run = program.run({"scene.ma", "-o", "out", "--set", "optimize_node=4"});
    ASSERT_EQ(run.status, 0) << run.error;
    const decode::ModelGeometry model = geometryOf(program, "out.imd");
    ASSERT_EQ(model.polygons.size(), 1U);
    EXPECT_EQ(model.polygons[0].name, "aShape");
    EXPECT_EQ(model.polygons[0].faces.size(), 5U);
    EXPECT_EQ(model.polygons[0].volumeMax, Imath::V3d(7, 1, 0));
}

TEST(GeometryOfAScene, ThatIsNotANumberIsRefusedByItsVertex) {
    const FinishedProgram program;
    for (const char* word : {"nan", "inf", "1e999", "-1e39"}) {
        std::string text = sceneOf(twoMeshes());
        text.replace(text.find(" 3 1 0"), 6, std::string(" ") + word + " 1 0");
        program.write("scene.ma", text);
        const ProgramRun run = program.run({"scene.ma", "-o", "out"});
        EXPECT_EQ(run.status, 1) << word;
        EXPECT_THAT(run.errorLines(), Contains("Error: Invalid vertex exists: |a|aShape.vtx[7]")) << word;
        EXPECT_THAT(program.names(), UnorderedElementsAre("scene.ma")) << word;
    }
}

TEST(GeometryOfAScene, WithAHoleIsRefusedByItsFace) {
    MeshSpec mesh = row(1);
    mesh.points.insert(mesh.points.end(), {{0.2, 0.2, 0}, {0.2, 0.8, 0}, {0.8, 0.8, 0}});
    mesh.holes = {{4, 5, 6}};
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(meshNode("a", mesh)));
    const ProgramRun run = program.run({"scene.ma", "-o", "out"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), Contains("Error: Holed polygon exists (please triangulate): aShape.f[0]"));
    EXPECT_THAT(program.names(), UnorderedElementsAre("scene.ma"));
}

// Each of them shades one face: time and memory may only grow with their number.
TEST(GeometryOfAScene, OfVeryManyShadingGroupsIsExportedInTime) {
    constexpr int kGroups = 3000;
    std::string shaders;
    std::string mesh = meshNode("a", row(kGroups), "", "");
    for (int i = 0; i < kGroups; ++i) {
        const std::string name = "m" + std::to_string(i);
        shaders += shadingText("lambert", name);
        mesh += shadeFaces("aShape", name + "SG", i, "f[" + std::to_string(i) + "]");
    }
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(shaders + mesh));
    const ProgramRun run = program.run({"scene.ma", "-o", "out"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(geometryOf(program, "out.imd").polygons.size(), static_cast<std::size_t>(kGroups));
}

} // namespace
} // namespace tvk
