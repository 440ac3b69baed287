// Faces of every kind: what is drawn of them is the face, whole, once, and no more than that.

#include "GeometryExport.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace tvk {
namespace {

using testing::ElementsAre;

class ExportedFaces : public GeometryExport {
protected:
    static MeshSpec face(const std::vector<std::array<double, 3>>& outline) {
        MeshSpec mesh;
        mesh.points = outline;
        mesh.faces.emplace_back();
        for (std::size_t i = 0; i < outline.size(); ++i) {
            mesh.faces.front().push_back(static_cast<int>(i));
        }
        return mesh;
    }

    // Nothing is drawn outside of the outline, and nothing twice: then the pieces add up to more than the outline has.
    static double drawnArea(const decode::DrawnPolygon& polygon) {
        double area = 0.0;
        for (const decode::DrawnFace& piece : polygon.faces) {
            area += vectorArea(outlineOf(piece)).length();
        }
        return area;
    }

    std::size_t quads(const char* polygon) const {
        const std::vector<decode::DrawnFace>& faces = model.polygon(polygon).faces;
        return static_cast<std::size_t>(std::count_if(
            faces.begin(), faces.end(), [](const decode::DrawnFace& piece) { return piece.size() == 4; }));
    }
};

struct ZooCase {
    const char* name;
    std::vector<std::array<double, 3>> outline;
    std::size_t quads, triangles;
    double area; // as an artist counts it
};

class FaceZoo : public ExportedFaces, public testing::WithParamInterface<ZooCase> {};

TEST_P(FaceZoo, IsDrawnWithinItsOutline) {
    exportScene(meshNode("a", face(GetParam().outline)));
    const decode::DrawnPolygon& polygon = model.polygon("aShape");
    EXPECT_EQ(quads("aShape"), GetParam().quads);
    EXPECT_EQ(polygon.faces.size(), GetParam().quads + GetParam().triangles);
    EXPECT_NEAR(drawnArea(polygon), GetParam().area, 1e-3);
    expectDrawnAs(facesOf("aShape"));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, FaceZoo,
    testing::Values(
        ZooCase{"ConvexQuad", {{0, 0, 0}, {2, 0, 0}, {3, 1, 0}, {0, 1, 0}}, 1, 0, 2.5},
        ZooCase{"ArrowheadQuad", {{0, 0, 0}, {2, -1, 0}, {1, 0, 0}, {2, 1, 0}}, 0, 2, 1.0},
        ZooCase{"QuadFoldedBy40Degrees",
                {{0, 0, 0}, {1, -1, 0}, {2, 0, 0}, {1, 0.7660444431, 0.6427876097}},
                0,
                2,
                1.98635},
        ZooCase{"LShapedHexagon", {{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}, {1, 2, 0}, {0, 2, 0}}, 0, 4, 3.0},
        ZooCase{"PentagonWithThreeCollinearPoints", {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, 0, 3, 4.0},
        ZooCase{"Star",
                {{0, 3, 0},
                 {-0.7, 1, 0},
                 {-3, 1, 0},
                 {-1, -0.5, 0},
                 {-2, -3, 0},
                 {0, -1.2, 0},
                 {2, -3, 0},
                 {1, -0.5, 0},
                 {3, 1, 0},
                 {0.7, 1, 0}},
                0,
                8,
                11.3}),
    [](const auto& tested) { return tested.param.name; });

// Its two halves wind against each other, so that they stand on both sides of the plane or cancel out.
TEST_F(ExportedFaces, OfABowTieAreTwoTrianglesOfItsCorners) {
    exportScene(meshNode("a", face({{0, 0, 0}, {2, 0, 0}, {0, 1, 0}, {2, 1, 0}})));
    EXPECT_EQ(quads("aShape"), 0U);
    EXPECT_EQ(model.polygon("aShape").faces.size(), 2U);
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, WithTwoEqualCornersAreGone) {
    MeshSpec mesh = square();
    mesh.points.push_back({1, 0, 0}); // on vertex 1
    mesh.faces.push_back({0, 1, 4});
    mesh.faces.push_back({0, 4, 1});
    exportScene(meshNode("a", mesh));
    EXPECT_EQ(model.polygon("aShape").faces.size(), 1U);
    EXPECT_EQ(quads("aShape"), 1U);
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, ThatLieOnEachOtherAreBothDrawn) {
    MeshSpec mesh = square();
    for (int i = 0; i < 4; ++i) {
        mesh.points.push_back(mesh.points[static_cast<std::size_t>(i)]);
    }
    mesh.faces.push_back({4, 5, 6, 7});
    mesh.faces.push_back({3, 2, 1, 0}); // lamina: the same vertices from behind
    exportScene(meshNode("a", mesh));
    EXPECT_EQ(model.polygon("aShape").faces.size(), 3U);
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, OnAnEdgeOfManyAreAllDrawn) {
    MeshSpec mesh;
    mesh.points = {{0, 0, 0}, {0, 0, 1}};
    for (int i = 0; i < 12; ++i) {
        const double angle = i * 0.5;
        mesh.points.push_back({std::cos(angle), std::sin(angle), 0.5});
        mesh.faces.push_back(i % 3 == 0 ? std::vector<int>{1, 0, i + 2} : std::vector<int>{0, 1, i + 2});
    }
    exportScene(meshNode("a", mesh));
    EXPECT_EQ(model.polygon("aShape").faces.size(), 12U);
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, OfTenThousandSidesAreDrawnWhole) {
    std::vector<std::array<double, 3>> outline;
    constexpr int kSides = 10000;
    for (int i = 0; i < kSides; ++i) {
        const double angle = i * 2 * 3.14159265358979323846 / kSides;
        const double radius = i % 2 == 0 ? 100.0 : 90.0; // so that no corner is on its neighbour
        outline.push_back({radius * std::cos(angle), radius * std::sin(angle), 0});
    }
    exportScene(meshNode("a", face(outline)));
    const decode::DrawnPolygon& polygon = model.polygon("aShape");
    EXPECT_LE(polygon.faces.size(), kSides - 2U); // some are thinner than a step
    std::vector<Imath::V3d> corners;
    for (const auto& point : outline) {
        corners.emplace_back(point[0], point[1], point[2]);
    }
    EXPECT_NEAR(drawnArea(polygon) / vectorArea(corners).length(), 1.0, 0.01);
}

// --- seams

// Hard edges, a texture island and a colour of its own for every face of a cube.
TEST_F(ExportedFaces, OfASeamedCubeKeepTheirOwnCornersAndNoStripCrossesASeam) {
    writeImage(session.folder.path("picture.tga"), pictureOfColors(64, 32, 4));
    MeshSpec cube = withUvIslands(box({-1, -1, -1}, {1, 1, 1}));
    for (int i = 0; i < 6; ++i) {
        cube.colors.push_back({i % 2 * 1.0, i / 2 % 2 * 1.0, i / 4 * 0.5, 1});
        cube.faceColors.push_back({i, i, i, i});
    }
    exportScene(fileTextureText("picture", session.folder.path("picture.tga")) + shaderText("paint", "picture") +
                meshNode("a", cube, "", "paint_group"));
    const decode::DrawnPolygon& polygon = model.polygon("aShape");
    EXPECT_TRUE(polygon.hasNormals && polygon.hasTexCoords && polygon.hasColors);
    EXPECT_THAT(polygon.primitiveTypes, ElementsAre("quads"));
    EXPECT_EQ(polygon.verticesSent, 24);
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, CountTexelsOfThePictureFromItsTop) {
    writeImage(session.folder.path("picture.tga"), pictureOfColors(64, 64, 4));
    exportScene(fileTextureText("picture", session.folder.path("picture.tga")) + shaderText("paint", "picture") +
                meshNode("a", withUvs(square()), "", "paint_group"));
    EXPECT_EQ(vertexAt({1, 0, 0}).texCoord, Imath::V2d(64, 64));
    EXPECT_EQ(vertexAt({1, 1, 0}).texCoord, Imath::V2d(64, 0));
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, WithoutAColorAreBlackWhereOthersHaveOne) {
    MeshSpec mesh = row(2);
    mesh.colors = {{1, 0, 0.5, 1}};
    mesh.faceColors = {{0, 0, 0, 0}, {}};
    exportScene(meshNode("a", mesh));
    EXPECT_EQ(vertexAt({0, 0, 0}).color, (std::array<int, 3>{31, 0, 16}));
    EXPECT_EQ(vertexAt({2, 0, 0}).color, (std::array<int, 3>{0, 0, 0}));
    expectDrawnAs(facesOf("aShape"));
}

TEST_F(ExportedFaces, GoToTheMaterialOfTheirShadingGroup) {
    exportScene(shadingText("lambert", "red") + shadingText("lambert", "blue") + meshNode("a", grid(4, 3), "", "") +
                shadeFaces("aShape", "redSG", 0, "f[0:4]") + shadeFaces("aShape", "blueSG", 1, "f[5:11]"));
    ASSERT_EQ(model.polygons.size(), 2U);
    EXPECT_EQ(model.polygons[0].faces.size(), 5U);
    EXPECT_EQ(model.polygons[1].faces.size(), 7U);
    expectDrawnAs(facesOf("aShape"));
}

// --- strips

// Vertices of a smooth mesh without texture are shared by all faces around them.
MeshSpec smoothGrid(int size) {
    MeshSpec mesh = grid(size, size, 0.05);
    for (auto& point : mesh.points) {
        point[2] = std::sin(point[0] * 3) * std::cos(point[1] * 2) * 0.2;
    }
    mesh.hard = false;
    return mesh;
}

std::string withoutDates(std::string text) {
    for (std::size_t at = text.find("date=\""); at != std::string::npos; at = text.find("date=\"", at)) {
        text.erase(at, text.find('"', at + 6) + 1 - at);
    }
    return text;
}

TEST_F(ExportedFaces, OfASmoothGridAreTheSameWithAndWithoutStrips) {
    exportScene(meshNode("a", smoothGrid(100)), "use_primitive_strip=0");
    const decode::DrawnPolygon lists = model.polygon("aShape");
    EXPECT_THAT(lists.primitiveTypes, ElementsAre("quads"));
    EXPECT_EQ(lists.verticesSent, 4 * 100 * 100);
    expectDrawnAs(facesOf("aShape"));

    exportOpen("use_primitive_strip=1");
    const decode::DrawnPolygon strips = model.polygon("aShape");
    EXPECT_LT(strips.verticesSent, 0.6 * lists.verticesSent);
    expectDrawnAs(facesOf("aShape"));

    const std::string first = withoutDates(session.fileText("model.imd"));
    exportOpen("use_primitive_strip=1");
    EXPECT_TRUE(withoutDates(session.fileText("model.imd")) == first);
}

TEST_F(ExportedFaces, AreCountedWhileStripsAreMade) {
    exportScene(meshNode("a", grid(3, 1)) + meshNode("b", grid(2, 1)));
    EXPECT_THAT(session.progress, testing::IsSupersetOf({"1/2 : aShape (3 polygons)", "2/2 : bShape (2 polygons)",
                                                         "Making Strip : % 60.0 : 1/2 : aShape (3 polygons)",
                                                         "Making Strip : %100.0 : 2/2 : bShape (2 polygons)"}));
}

// --- the vertex tables

TEST_F(ExportedFaces, OfTheIndexStyleAreThoseOfTheDirectStyle) {
    MeshSpec cube = box({-1, -1, -1}, {1, 1, 1});
    for (int i = 0; i < 6; ++i) {
        cube.colors.push_back({0, i / 5.0, 1, 1});
        cube.faceColors.push_back({i, i, i, i});
    }
    exportScene(meshNode("a", cube), "vertex_table_flag=1");
    EXPECT_EQ(part("vtx_pos_data").integer("pos_size"), 8);
    EXPECT_EQ(part("vtx_color_data").integer("color_size"), 6);
    expectDrawnAs(facesOf("aShape"));
}

// --- random meshes

// Triangles, quads and larger faces over a bumpy ground: some edges hard, seams between materials and texture islands.
MeshSpec randomMesh(unsigned seed, int size) {
    std::mt19937 random(seed);
    MeshSpec mesh = grid(size, size, 0.5);
    for (auto& point : mesh.points) {
        point[2] = static_cast<double>(random() % 1000) / 1000;
        point[0] += static_cast<double>(random() % 100) / 500;
    }
    std::vector<std::vector<int>> faces;
    for (const auto& quad : mesh.faces) {
        const unsigned kind = random() % 4;
        if (kind == 0) {
            faces.push_back({quad[0], quad[1], quad[2]});
            faces.push_back({quad[0], quad[2], quad[3]});
        } else if (kind == 1) { // a corner in the middle of one side makes it a pentagon
            const auto middle = static_cast<int>(mesh.points.size());
            const auto& a = mesh.points[static_cast<std::size_t>(quad[0])];
            const auto& b = mesh.points[static_cast<std::size_t>(quad[1])];
            mesh.points.push_back({(a[0] + b[0]) / 2, (a[1] + b[1]) / 2 + 0.1, (a[2] + b[2]) / 2});
            faces.push_back({quad[0], middle, quad[1], quad[2], quad[3]});
        } else {
            faces.push_back(quad);
        }
    }
    mesh.faces = faces;
    mesh.hard = random() % 2 == 0;
    for (const auto& face : mesh.faces) {
        const bool isColored = random() % 2 == 0;
        mesh.faceColors.emplace_back(face.size(), isColored ? static_cast<int>(random() % 3) : -1);
    }
    mesh.colors = {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};
    return mesh;
}

class RandomMeshes : public ExportedFaces, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomMeshes, AreDrawnOnceWhereTheHostHasThem) {
    std::mt19937 random(GetParam());
    const auto angle = [&] { return static_cast<double>(random() % 360); };
    const int size = GetParam() % 5 == 4 ? 40 : 1 + static_cast<int>(random() % 12);
    const MeshSpec mesh = randomMesh(GetParam(), size);
    const auto half = std::to_string(mesh.faces.size() / 2);
    const auto last = std::to_string(mesh.faces.size() - 1);
    const std::string placed = set3("t", 1, -2, 3) + set3("r", angle(), angle(), angle()) +
                               set3("s", GetParam() % 2 == 0 ? 1 : -1, 1.5, 1) + set3("rp", 1, 1, 0) +
                               set3("sp", 0, 1, 0);
    exportScene(shadingText("lambert", "red") + shadingText("lambert", "blue") + meshNode("a", mesh, placed, "") +
                    shadeFaces("aShape", "redSG", 0, "f[0:" + half + "]") +
                    (half == last ? ""
                                  : shadeFaces("aShape", "blueSG", 1,
                                               "f[" + std::to_string(mesh.faces.size() / 2 + 1) + ":" + last + "]")),
                GetParam() % 3 == 0 ? "optimize_node=4" : "");
    FaceTolerance tolerance;
    tolerance.position = std::ldexp(1.0, model.positionScale) / 2048 + 0.005 * size;
    tolerance.normal = 0.02;
    expectDrawn(file, model, facesOf("aShape"), tolerance);
    EXPECT_THAT(session.takeMessages(), testing::Not(testing::HasSubstr("Error")));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomMeshes, testing::Range(0U, 15U));

} // namespace
} // namespace tvk
