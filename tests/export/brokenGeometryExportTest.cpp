// Meshes that cannot be drawn, or not whole: the right message or what was decided, and a scene that is as it was.

#include "GeometryExport.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

class BrokenGeometry : public GeometryExport {
protected:
    // A texture "picture" on the shader "paint" in paint_group.
    std::string paint() {
        writeImage(session.folder.path("picture.tga"), pictureOfColors(64, 64, 4));
        return fileTextureText("picture", session.folder.path("picture.tga")) + shaderText("paint", "picture");
    }
};

struct RefusedCase {
    const char* name;
    MeshSpec mesh;
    const char* group;
    const char* message;
};

MeshSpec withPoint(double x) {
    MeshSpec mesh = square();
    mesh.points[2][0] = x;
    return mesh;
}

MeshSpec holed() {
    MeshSpec mesh = row(2);
    mesh.points.insert(mesh.points.end(), {{1.2, 0.2, 0}, {1.2, 0.8, 0}, {1.8, 0.8, 0}});
    mesh.holes = {{}, {6, 7, 8}};
    return mesh;
}

MeshSpec pointsOnly() {
    MeshSpec mesh = square();
    mesh.faces.clear();
    return mesh;
}

class RefusedMesh : public BrokenGeometry, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedMesh, EndsTheExportWithItsMessage) {
    // A sound skinned mesh goes first: its deformer must come back whatever follows.
    SkinSpec skin;
    skin.influences = {"bone"};
    skin.weights.assign(4, {1});
    expectRefused(deformedNode("body", square()) + nodeText("joint", "bone") + skinText(skin) +
                      meshNode("x", GetParam().mesh, "", GetParam().group),
                  GetParam().message);
    EXPECT_EQ(session.mel("getAttr skin.nodeState"), "0");
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RefusedMesh,
    testing::Values(
        RefusedCase{"WithoutPoints", {}, "initialShadingGroup", "Error: No polygon in mesh node: xShape\n\n"},
        RefusedCase{"WithoutFaces", pointsOnly(), "initialShadingGroup", "Error: No polygon in mesh node: xShape\n\n"},
        RefusedCase{"Infinite", withPoint(1e39), "initialShadingGroup",
                    "Error: Invalid vertex exists: |x|xShape.vtx[2]\n\n"},
        RefusedCase{"WithAHole", holed(), "initialShadingGroup",
                    "Error: Holed polygon exists (please triangulate): xShape.f[1]\n\n"},
        RefusedCase{"WithoutShadingGroup", square(), "", "Error: No shading group: xShape\n\n"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(BrokenGeometry, AMeshWhoseFacesAreAllWithoutAreaDrawsNothing) {
    MeshSpec flat;
    flat.points = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    flat.faces = {{0, 1, 2}};
    exportScene(meshNode("a", flat) + meshNode("b", square(), set3("t", 3, 0, 0)));
    EXPECT_EQ(session.takeMessages(), "Warning: Zero normal exist: aShape\n\n");
    ASSERT_EQ(model.polygons.size(), 1U);
    EXPECT_EQ(file.node("a").displaySize, 0);
    EXPECT_EQ(file.node("b").displaySize, 1);
    expectDrawnAs(facesOf("bShape"));
}

TEST_F(BrokenGeometry, FacesWithoutTexCoordsWarnOnceAndStandAtTheOriginOfTheTexture) {
    MeshSpec mesh = withUvs(row(3));
    mesh.faceUvs[1].clear();
    mesh.faceUvs[2].clear();
    exportScene(paint() + meshNode("a", mesh, "", "paint_group"));
    EXPECT_EQ(session.takeMessages(), "Warning: Can't get UV: |a|aShape.f[1]\n\n");
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(BrokenGeometry, TexCoordsFarOutWarnOnceAndAreClamped) {
    MeshSpec mesh = withUvs(row(2));
    for (auto& uv : mesh.uvs) {
        uv[0] *= 100;
    }
    exportScene(paint() + meshNode("a", mesh, "", "paint_group"));
    EXPECT_EQ(session.takeMessages(), "Warning: UV range over: |a|aShape.f[0] (6400.000000, 64.000000)\n\n");
    EXPECT_EQ(vertexAt({1, 0, 0}).texCoord, Imath::V2d(2047.9375, 64));
}

TEST_F(BrokenGeometry, FacesWithoutShadingGroupAreLeftOutWithAWarning) {
    exportScene(shadingText("lambert", "red") + meshNode("a", row(4), "", "") +
                shadeFaces("aShape", "redSG", 0, "f[1]"));
    EXPECT_EQ(session.takeMessages(), "Warning: Faces without shading group are ignored: aShape (3)\n\n");
    EXPECT_EQ(model.polygon("aShape").faces.size(), 1U);
}

// --- sizes

TEST_F(BrokenGeometry, AMeshOfVeryManyShadingGroupsIsExported) {
    constexpr int kGroups = 1000;
    std::string shaders;
    std::string scene = meshNode("a", grid(40, 25, 0.1), "", "");
    for (int i = 0; i < kGroups; ++i) {
        const std::string name = "m" + std::to_string(i);
        shaders += shadingText("lambert", name);
        scene += shadeFaces("aShape", name + "SG", i, "f[" + std::to_string(i) + "]");
    }
    exportScene(shaders + scene);
    EXPECT_EQ(model.polygons.size(), static_cast<std::size_t>(kGroups));
    expectDrawnAs(facesOf("aShape"));
}

// 1537 quads alone send 6148 vertices; 1536 send just as many as the console holds.
TEST_F(BrokenGeometry, TotalsAboveTheConsolesAreWarnedOf) {
    const std::string fits = meshNode("a", grid(48, 32, 0.1));
    exportScene(fits, "use_primitive_strip=0");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_THAT(session.infos, testing::Contains("imd : Total Vertex Size\t:   6144"));
    EXPECT_THAT(session.infos, testing::Contains("imd : Total Polygon Size\t:   1536 ( 0 triangles, 1536 quads)"));
    exportScene(fits + meshNode("b", square()), "use_primitive_strip=0");
    EXPECT_EQ(session.takeMessages(), "Warning: Total vertex size over: 6148 / 6144\n\n");
    exportScene(meshNode("a", grid(60, 30, 0.1)));
    EXPECT_EQ(session.takeMessages(), "Warning: Total polygon size over: 1800 ( 0 triangles, 1800 quads)\n\n");
}

} // namespace
} // namespace tvk
