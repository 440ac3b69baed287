#include "host/geometry/triangulation.h"

#include "TestMeshes.h"

#include "host/geometry/meshNormals.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3d;
using Imath::V3f;
using testing::ElementsAre;

double areaOf(const std::vector<V3d>& polygon, const std::vector<Triangle>& triangles) {
    double area = 0;
    for (const Triangle& t : triangles) {
        const V3d a = polygon[static_cast<std::size_t>(t[0])];
        area += ((polygon[static_cast<std::size_t>(t[1])] - a) % (polygon[static_cast<std::size_t>(t[2])] - a)).z / 2;
    }
    return area;
}

TEST(Triangulate, GivesNothingForLessThanATriangle) {
    EXPECT_TRUE(triangulate({}).empty());
    EXPECT_TRUE(triangulate({{0, 0, 0}, {1, 0, 0}}).empty());
}

TEST(Triangulate, KeepsATriangle) {
    EXPECT_THAT(triangulate({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), ElementsAre(Triangle{0, 1, 2}));
}

TEST(Triangulate, CutsASquareFromItsSecondCornerToItsFourth) {
    EXPECT_THAT(triangulate({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}),
                ElementsAre(Triangle{0, 1, 3}, Triangle{3, 1, 2}));
}

TEST(Triangulate, CutsAQuadAlongItsShorterDiagonal) {
    EXPECT_THAT(triangulate({{0, 0, 0}, {2, -1, 0}, {1, 1, 0}, {-1, 2, 0}}),
                ElementsAre(Triangle{0, 1, 2}, Triangle{0, 2, 3}));
}

TEST(Triangulate, CutsAnArrowWithinIt) {
    const std::vector<V3d> arrow = {{0, 0, 0}, {4, 1, 0}, {1, 1, 0}, {1, 4, 0}}; // hollow at its third corner
    EXPECT_THAT(triangulate(arrow), ElementsAre(Triangle{0, 1, 2}, Triangle{0, 2, 3}));
    const std::vector<V3d> turned = {arrow[1], arrow[2], arrow[3], arrow[0]};
    EXPECT_THAT(triangulate(turned), ElementsAre(Triangle{0, 1, 3}, Triangle{3, 1, 2}));
}

// Stars: every second corner is hollow. All triangles face the front and fill the area exactly.
TEST(Triangulate, FillsConcavePolygonsOnce) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> radius(0.2, 2.0);
    for (const int count : {5, 6, 9, 40, 301}) {
        std::vector<V3d> star;
        double area = 0;
        for (int i = 0; i < count; ++i) {
            const double angle = 2 * M_PI * i / count;
            const double r = radius(random);
            star.emplace_back(r * std::cos(angle), r * std::sin(angle), 0);
        }
        for (std::size_t i = 0; i < star.size(); ++i) {
            area += (star[i] % star[(i + 1) % star.size()]).z / 2;
        }
        const std::vector<Triangle> triangles = triangulate(star);
        EXPECT_EQ(triangles.size(), static_cast<std::size_t>(count) - 2);
        EXPECT_NEAR(areaOf(star, triangles), area, 1e-9);
        for (const Triangle& triangle : triangles) {
            EXPECT_GE(areaOf(star, {triangle}), -1e-12) << count;
        }
    }
}

TEST(Triangulate, CutsDegenerateAndCrossingPolygonsSomehow) {
    EXPECT_EQ(triangulate(std::vector<V3d>(7, V3d(0.0))).size(), 5U);
    EXPECT_EQ(triangulate({{0, 0, 0}, {1, 1, 0}, {1, 0, 0}, {0, 1, 0}, {2, 2, 0}}).size(), 3U);
    EXPECT_EQ(triangulate({{0, 0, 0}, {NAN, 1, 0}, {1, 0, 0}, {0, 1, 0}, {2, 2, 0}}).size(), 3U);
}

TEST(TriangulateFaces, CutsChosenFacesInTheirPlace) {
    const auto cube = makeCube({});
    cube->groups.push_back({3, std::make_shared<ComponentList>()});
    ComponentRange range;
    ASSERT_TRUE(parseComponent("f[1:2]", range));
    cube->groups[0].components = std::make_shared<ComponentList>(std::vector<ComponentRange>{range});
    const auto cut = triangulateFaces(*cube, {true, false, true, false, false, false});
    EXPECT_EQ(cut->topology->faceCount(), 8);
    EXPECT_EQ(cut->topology->edgeCount(), 14);
    const std::vector<std::int32_t>& edges = cut->topology->cornerEdges();
    EXPECT_EQ(std::vector<std::int32_t>(edges.begin(), edges.begin() + 10),
              (std::vector<std::int32_t>{0, 12, -5, -13, 5, -2, 1, 7, -3, -7}));
    std::int32_t count = 0;
    const std::int32_t* uvs = cut->uvSets[0].ids->find(1, count);
    EXPECT_EQ(std::vector<std::int32_t>(uvs, uvs + count), (std::vector<std::int32_t>{2, 1, 3}));
    EXPECT_EQ(componentText(cut->groups[0].components->ranges[0]), "f[2:4]");
    for (std::int32_t face = 0; face < 2; ++face) {
        EXPECT_EQ(faceNormal(*cut, face), V3f(0, 0, 1));
    }
}

TEST(TriangulateFaces, LeavesFacesWithHoles) {
    auto faces = std::make_shared<PolyFaces>();
    faces->edges = {0, 1, 2, 3, 4, 5};
    faces->loopStarts = {0, 3, 6};
    faces->faceStarts = {0, 2};
    MeshData holed;
    std::string problem;
    holed.topology = MeshTopology::make(
        6, {{0, 1, true}, {1, 2, true}, {2, 0, true}, {3, 4, true}, {4, 5, true}, {5, 3, true}}, faces, problem);
    holed.points = std::make_shared<Points>(6);
    const auto cut = triangulateFaces(holed, {true});
    EXPECT_EQ(cut->topology->faceCount(), 1);
    EXPECT_EQ(cut->topology->loopCount(0), 2);
}

} // namespace

} // namespace host
