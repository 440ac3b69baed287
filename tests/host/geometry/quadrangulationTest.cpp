#include "host/geometry/quadrangulation.h"

#include "TestMeshes.h"

#include "host/geometry/polyPrimitives.h"
#include "host/geometry/triangulation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3f;
using Imath::V4f;
using testing::ElementsAre;

constexpr double kDegree = 0.017453292519943295;
using Ids = std::vector<std::int32_t>;

std::vector<bool> all(const MeshData& mesh) {
    return std::vector<bool>(static_cast<std::size_t>(mesh.topology->faceCount()), true);
}

std::shared_ptr<MeshData> quads(const MeshData& mesh, const QuadRules& rules = {}) {
    return quadrangulateFaces(mesh, all(mesh), rules);
}

Ids verticesOf(const MeshData& mesh, std::int32_t face) {
    const std::int32_t* first = mesh.topology->verticesOf(face);
    return {first, first + mesh.topology->cornerCount(face)};
}

Ids idsOf(const FaceIds& ids, std::int32_t face) {
    std::int32_t count = 0;
    const std::int32_t* first = ids.find(face, count);
    return {first, first + count};
}

/// A unit square in the plane z = 0, cut from corner 0 to corner 2; that edge is number 2.
std::shared_ptr<MeshData> cutSquare() {
    return meshOfFaces({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 2, 3}});
}

/// A UV set with these coordinates of its own for each corner of a cut square.
UvSet setOfCorners(const char* name, const Ids& ids) {
    UvSet set;
    set.name = name;
    set.points = std::make_shared<std::vector<V2f>>(8, V2f(0.5F));
    auto of = std::make_shared<FaceIds>();
    of->faces = {0, 1};
    of->starts = {0, 3, 6};
    of->ids = ids;
    set.ids = of;
    return set;
}

// --- what may not become a quad

struct Refused {
    const char* name;
    Points points;
    std::vector<Ids> faces;
};

void PrintTo(const Refused& row, std::ostream* out) {
    *out << row.name;
}

class NoQuad : public testing::TestWithParam<Refused> {};

TEST_P(NoQuad, IsMade) {
    const auto mesh = meshOfFaces(GetParam().points, GetParam().faces);
    QuadRules rules;
    rules.angle = 179 * kDegree;
    const auto made = quads(*mesh, rules);
    EXPECT_EQ(made->topology->cornerEdges(), mesh->topology->cornerEdges());
    EXPECT_EQ(made->topology->edgeCount(), mesh->topology->edgeCount());
}

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    Shapes, NoQuad,
    testing::Values(
        Refused{"OfAHollowOutline", {{0, 0, 0}, {4, 1, 0}, {1, 1, 0}, {1, 4, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        Refused{"WithThreeCornersInALine", {{0, 0, 0}, {2, 0, 0}, {1, 1, 0}, {0, 2, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        Refused{"OfTrianglesWoundUnlike", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 3, 2}}},
        Refused{"OfTwoSidesOfOneTriangle", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, {{0, 1, 2}, {0, 2, 1}}},
        Refused{"WhereThreeFacesMeet",
                {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.5F, 0.5F, 1}},
                {{0, 1, 2}, {0, 2, 3}, {0, 2, 4}}},
        Refused{"WithoutAnArea", {{0, 0, 0}, {0, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        Refused{"AroundNoNumber", {{0, 0, 0}, {1, kNan, 0}, {1, 1, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        Refused{"OfATriangleAndASquare",
                {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {2, 0.5F, 0}},
                {{0, 1, 2, 3}, {1, 4, 2}}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(QuadrangulateFaces, LeavesFacesThatAreNotChosen) {
    const auto mesh = cutSquare();
    EXPECT_EQ(quadrangulateFaces(*mesh, {true, false}, {})->topology->faceCount(), 2);
    EXPECT_EQ(quadrangulateFaces(*mesh, {true, true}, {})->topology->faceCount(), 1);
}

TEST(QuadrangulateFaces, ComparesTheAngleBetweenNormals) {
    // Along the edge 0 2 the second triangle is bent up by 40 degrees.
    const auto mesh =
        meshOfFaces({{0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-0.76604444F, 0, 0.64278764F}}, {{0, 1, 2}, {0, 2, 3}});
    QuadRules rules;
    rules.angle = 39.9 * kDegree;
    EXPECT_EQ(quads(*mesh, rules)->topology->faceCount(), 2);
    rules.angle = 40 * kDegree;
    EXPECT_EQ(quads(*mesh, rules)->topology->faceCount(), 1);
    rules.angle = 10 * kDegree;
    rules.matrix.setScale(Imath::V3d(1, 1, 0.1));
    EXPECT_EQ(quads(*mesh, rules)->topology->faceCount(), 1) << "where the mesh stands it is flatter";
}

TEST(QuadrangulateFaces, KeepsHardEdgesUnlessToldOtherwise) {
    const auto mesh = withHardEdges(*cutSquare(), {2});
    EXPECT_EQ(quads(*mesh)->topology->faceCount(), 2);
    QuadRules rules;
    rules.keepsHardEdges = false;
    EXPECT_EQ(quads(*mesh, rules)->topology->faceCount(), 1);
}

TEST(QuadrangulateFaces, KeepsBordersOfAnyUvSetUnlessToldOtherwise) {
    QuadRules rules;
    rules.keepsUvBorders = false;
    const auto mesh = cutSquare();
    mesh->uvSets = {setOfCorners("map1", {0, 1, 2, 0, 2, 3}), setOfCorners("map2", {0, 1, 2, 4, 2, 3})};
    EXPECT_EQ(quads(*mesh)->topology->faceCount(), 2);
    const auto joined = quads(*mesh, rules);
    ASSERT_EQ(joined->topology->faceCount(), 1);
    EXPECT_EQ(idsOf(*joined->uvSets[1].ids, 0), (Ids{0, 1, 2, 3})) << "the lower face's";
    mesh->uvSets.pop_back();
    EXPECT_EQ(quads(*mesh)->topology->faceCount(), 1);
}

TEST(QuadrangulateFaces, TakesTheEndOfAMapForABorder) {
    const auto mesh = cutSquare();
    auto ids = std::make_shared<FaceIds>();
    ids->faces = {1};
    ids->starts = {0, 3};
    ids->ids = {0, 1, 2};
    mesh->uvSets = {setOfCorners("map1", {})};
    mesh->uvSets[0].ids = ids;
    EXPECT_EQ(quads(*mesh)->topology->faceCount(), 2);
    QuadRules rules;
    rules.keepsUvBorders = false;
    const auto joined = quads(*mesh, rules);
    EXPECT_EQ(joined->topology->faceCount(), 1);
    EXPECT_TRUE(joined->uvSets[0].ids->faces.empty()) << "half a quad has no map";
}

std::shared_ptr<const ComponentList> components(const char* word) {
    std::vector<ComponentRange> ranges(1);
    EXPECT_TRUE(parseComponent(word, ranges[0]));
    return std::make_shared<const ComponentList>(ranges);
}

TEST(QuadrangulateFaces, KeepsBordersOfGroupsUnlessToldOtherwise) {
    const auto mesh = cutSquare();
    mesh->groups = {{1, components("f[*]")}, {2, components("vtx[1]")}};
    EXPECT_EQ(quads(*mesh)->topology->faceCount(), 1) << "no border runs there";
    mesh->groups.push_back({3, components("f[1]")});
    EXPECT_EQ(quads(*mesh)->topology->faceCount(), 2);
    QuadRules rules;
    rules.keepsGroupBorders = false;
    const auto joined = quads(*mesh, rules);
    EXPECT_EQ(joined->topology->faceCount(), 1);
    EXPECT_TRUE(joined->groups[2].components->ranges.empty()) << "the quad is of the lower face's groups";
}

// --- which pairs

TEST(QuadrangulateFaces, TakesTheBetterQuadFirst) {
    // Three triangles in a row: 0 1 make a slanted quad, 1 2 a square.
    const auto mesh =
        meshOfFaces({{-1, 0, 0}, {0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 0}}, {{0, 1, 2}, {1, 3, 2}, {2, 3, 4}});
    const auto made = quads(*mesh);
    ASSERT_EQ(made->topology->faceCount(), 2);
    EXPECT_EQ(verticesOf(*made, 0), (Ids{0, 1, 2}));
    EXPECT_EQ(verticesOf(*made, 1), (Ids{1, 3, 4, 2}));
}

TEST(QuadrangulateFaces, TakesTheLowerFacesOfEqualPairs) {
    const float h = 0.8660254F; // equilateral triangles
    const auto mesh =
        meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0.5F, h, 0}, {1.5F, h, 0}, {2, 0, 0}}, {{1, 4, 3}, {0, 1, 2}, {2, 1, 3}});
    const auto made = quads(*mesh);
    ASSERT_EQ(made->topology->faceCount(), 2);
    EXPECT_EQ(verticesOf(*made, 0), (Ids{1, 4, 3, 2}));
    EXPECT_EQ(verticesOf(*made, 1), (Ids{0, 1, 2}));
}

TEST(QuadrangulateFaces, UndoesTheCuttingOfPrimitives) {
    SphereShape round;
    round.divisionsAxis = 12;
    for (const auto& mesh :
         {makeCube({1, 2, 3, 2, 3, 4, true}), makePlane({3, 1, 7, 5, true}), makeSphere(round), makeTorus({})}) {
        const auto made = quads(*triangulateFaces(*mesh, all(*mesh)));
        EXPECT_EQ(made->topology->cornerEdges(), mesh->topology->cornerEdges());
        EXPECT_EQ(made->topology->edgeCount(), mesh->topology->edgeCount());
        EXPECT_EQ(made->uvSets[0].ids->ids, mesh->uvSets[0].ids->ids);
        EXPECT_EQ(*made->points, *mesh->points);
        EXPECT_EQ(made->normals(), mesh->normals());
    }
}

// --- what stays

TEST(QuadrangulateFaces, KeepsColorsAndUserNormalsOfCorners) {
    const auto mesh = withHardEdges(*cutSquare(), {2});
    ColorSet paint;
    paint.colors = std::make_shared<std::vector<V4f>>(6, V4f(1));
    auto ids = std::make_shared<FaceIds>();
    ids->faces = {0, 1};
    ids->starts = {0, 3, 6};
    ids->ids = {0, 1, -1, 3, 4, 5};
    paint.ids = ids;
    mesh->colorSets = {paint};
    mesh->userNormals =
        std::make_shared<Points>(Points{{1, 0, 0}, {0, 1, 0}, V3f(1e20F), {0, 0, -1}, {0, -1, 0}, {-1, 0, 0}});
    QuadRules rules;
    rules.keepsHardEdges = false;
    const auto made = quads(*mesh, rules);
    EXPECT_EQ(idsOf(*made->colorSets[0].ids, 0), (Ids{0, 1, -1, 5}));
    EXPECT_THAT(made->normals(), ElementsAre(V3f(1, 0, 0), V3f(0, 1, 0), V3f(0, 0, 1), V3f(-1, 0, 0)));
}

TEST(QuadrangulateFaces, RenumbersEdgesAndFacesOfGroups) {
    const auto plane = makePlane({2, 1, 2, 1, true});
    const auto cut = triangulateFaces(*plane, all(*plane)); // faces 0 1 and 2 3, edges 7 and 8 are new
    cut->groups = {{1, components("f[2:3]")}, {2, components("e[6:8]")}, {3, components("vtx[3:5]")}};
    const auto made = quads(*cut);
    const auto text = [&](std::size_t group) { return componentText(made->groups[group].components->ranges.at(0)); };
    EXPECT_EQ(text(0), "f[1]");
    EXPECT_EQ(text(1), "e[6]");
    EXPECT_EQ(text(2), "vtx[3:5]");
}

TEST(QuadrangulateFaces, KeepsLargerFaces) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {2, 0, 0}, {2, 1, 0}, {1.5F, 2, 0}},
                                  {{1, 4, 5, 6, 2}, {0, 1, 2}, {0, 2, 3}});
    const auto made = quads(*mesh);
    ASSERT_EQ(made->topology->faceCount(), 2);
    EXPECT_EQ(verticesOf(*made, 0), (Ids{1, 4, 5, 6, 2}));
    EXPECT_EQ(verticesOf(*made, 1), (Ids{0, 1, 2, 3}));
}

TEST(QuadrangulateFaces, OfNothingIsNothing) {
    EXPECT_EQ(quads(MeshData())->topology->faceCount(), 0);
}

} // namespace

} // namespace host
