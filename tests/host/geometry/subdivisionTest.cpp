#include "host/geometry/subdivision.h"

#include "TestMeshes.h"

#include "host/geometry/meshNormals.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3f;
using Imath::V4f;
using testing::Each;
using testing::ElementsAre;

std::vector<bool> all(const MeshData& mesh) {
    return std::vector<bool>(static_cast<std::size_t>(mesh.topology->faceCount()), true);
}

std::shared_ptr<MeshData> subdivided(const MeshData& mesh, std::int32_t levels = 1) {
    return subdivideFaces(mesh, all(mesh), levels);
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

/// Vertices less edges plus faces.
std::int32_t eulerOf(const MeshData& mesh) {
    return mesh.topology->vertexCount() - mesh.topology->edgeCount() + mesh.topology->faceCount();
}

double areaOf(const MeshData& mesh) {
    double area = 0;
    for (std::int32_t face = 0; face < mesh.topology->faceCount(); ++face) {
        area += faceAreaVector(mesh, face).length() / 2;
    }
    return area;
}

std::shared_ptr<const ComponentList> components(const char* word) {
    std::vector<ComponentRange> ranges(1);
    EXPECT_TRUE(parseComponent(word, ranges[0]));
    return std::make_shared<const ComponentList>(ranges);
}

// --- subdivideFaces

TEST(SubdivideFaces, CutsASquareIntoFour) {
    const auto made = subdivided(*makePlane({2, 2, 1, 1, true})); // 0 1 in front, 2 3 behind; its face is 0 1 3 2
    ASSERT_EQ(made->topology->faceCount(), 4);
    EXPECT_EQ(made->topology->vertexCount(), 9);
    EXPECT_EQ(made->topology->edgeCount(), 12);
    EXPECT_EQ((*made->points)[8], V3f(0, 0, 0)) << "the middle comes last";
    const std::vector<V3f> first = {{-1, 0, 1}, {0, 0, 1}, {0, 0, 0}, {-1, 0, 0}};
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ((*made->points)[static_cast<std::size_t>(verticesOf(*made, 0)[i])], first[i]) << i;
    }
    const Ids uvs = idsOf(*made->uvSets[0].ids, 0);
    EXPECT_EQ((*made->uvSets[0].points)[static_cast<std::size_t>(uvs[1])], V2f(0.5F, 0));
    EXPECT_EQ((*made->uvSets[0].points)[static_cast<std::size_t>(uvs[2])], V2f(0.5F, 0.5F));
    EXPECT_EQ(made->uvSets[0].points->size(), 9U) << "faces share what they shared";
}

TEST(SubdivideFaces, CutsATriangleIntoThree) {
    const auto made = subdivided(*meshOfFaces({{0, 0, 0}, {3, 0, 0}, {0, 3, 0}}, {{0, 1, 2}}));
    EXPECT_EQ(made->topology->faceCount(), 3);
    EXPECT_EQ((*made->points)[6], V3f(1, 1, 0));
    EXPECT_EQ(verticesOf(*made, 1), (Ids{1, 4, 6, 3}));
}

TEST(SubdivideFaces, KeepsShapeAndClosedness) {
    const auto cube = makeCube({1, 2, 3, 1, 1, 1, true});
    const auto made = subdivided(*cube, 2);
    EXPECT_EQ(made->topology->faceCount(), 96);
    EXPECT_EQ(eulerOf(*made), 2);
    EXPECT_NEAR(areaOf(*made), 22, 1e-5);
    for (std::int32_t edge = 0; edge < made->topology->edgeCount(); ++edge) {
        EXPECT_EQ(made->topology->facesOfEdge().count(edge), 2);
    }
}

TEST(SubdivideFaces, KeepsEdgesHard) {
    const auto made = subdivided(*makeCube({}));
    std::int32_t hard = 0;
    for (const MeshEdge& edge : made->topology->edges()) {
        hard += edge.smooth ? 0 : 1;
    }
    EXPECT_EQ(hard, 24) << "two parts of each of twelve";
    for (std::int32_t face = 0; face < 6; ++face) {
        EXPECT_EQ(faceNormal(*made, 4 * face), faceNormal(*makeCube({}), face));
    }
}

TEST(SubdivideFaces, GivesNeighboursTheMiddlesOfEdges) {
    const auto plane = makePlane({2, 1, 2, 1, true});
    plane->groups = {{1, components("f[1]")}, {2, components("f[0]")}, {3, components("e[0]")}};
    const auto made = subdivideFaces(*plane, {true, false}, 1);
    ASSERT_EQ(made->topology->faceCount(), 5);
    EXPECT_EQ(made->topology->cornerCount(4), 5);
    EXPECT_EQ(eulerOf(*made), 1);
    const Ids uvs = idsOf(*made->uvSets[0].ids, 4);
    EXPECT_EQ((*made->uvSets[0].points)[static_cast<std::size_t>(uvs.back())], V2f(0.5F, 0.5F));
    EXPECT_EQ(componentText(made->groups[0].components->ranges[0]), "f[4]");
    EXPECT_EQ(componentText(made->groups[1].components->ranges[0]), "f[0:3]");
    EXPECT_EQ(componentText(made->groups[2].components->ranges[0]), "e[0:1]");
    const auto twice = subdivideFaces(*plane, {true, false}, 2);
    EXPECT_EQ(twice->topology->faceCount(), 17) << "only parts of the chosen face go on";
}

TEST(SubdivideFaces, MixesColorsAndLeavesGaps) {
    const auto plane = makePlane({1, 1, 1, 1, true});
    ColorSet paint;
    paint.colors = std::make_shared<std::vector<V4f>>(std::vector<V4f>{V4f(0), V4f(1)});
    auto ids = std::make_shared<FaceIds>();
    ids->faces = {0};
    ids->starts = {0, 4};
    ids->ids = {0, 1, 1, -1};
    paint.ids = ids;
    plane->colorSets = {paint};
    const auto made = subdivided(*plane);
    const ColorSet& set = made->colorSets[0];
    EXPECT_EQ((*set.colors)[static_cast<std::size_t>(idsOf(*set.ids, 0)[1])], V4f(0.5F));
    EXPECT_THAT(idsOf(*set.ids, 3), Each(-1)) << "around a corner without a colour";
    EXPECT_EQ(idsOf(*set.ids, 1)[1], 1);
}

TEST(SubdivideFaces, KeepsUserNormalsOfOldCorners) {
    const auto plane = makePlane({1, 1, 1, 1, true});
    plane->userNormals = std::make_shared<Points>(4, V3f(1, 0, 0));
    const auto made = subdivided(*plane);
    const NormalFans& fans = made->topology->normalFans();
    EXPECT_EQ(made->normals()[static_cast<std::size_t>(fans.ofCorner[0])], V3f(1, 0, 0));
    EXPECT_EQ(made->normals()[static_cast<std::size_t>(fans.ofCorner[2])], V3f(0, 1, 0));
}

TEST(SubdivideFaces, ZeroTimesChangesNothing) {
    const auto cube = makeCube({});
    EXPECT_EQ(subdivided(*cube, 0)->topology, cube->topology);
}

TEST(SubdivideFaces, KnowsWhatIsTooMuch) {
    const auto cube = makeCube({});
    EXPECT_FALSE(isTooMuchToSubdivide(*cube->topology, 10));
    EXPECT_TRUE(isTooMuchToSubdivide(*cube->topology, 11));
    EXPECT_TRUE(isTooMuchToSubdivide(*cube->topology, std::numeric_limits<std::int32_t>::max()));
    EXPECT_FALSE(isTooMuchToSubdivide(*MeshTopology::empty(), std::numeric_limits<std::int32_t>::max()));
}

// --- smoothFaces: numbers by hand from the rule; corners of a cube go to 5/18 of its width, edges' middles to 3/8

TEST(SmoothFaces, RoundsACube) {
    const auto made = smoothFaces(*makeCube({}), 1, {});
    ASSERT_EQ(made->topology->vertexCount(), 26);
    const float corner = 5.0F / 18;
    for (std::size_t vertex = 0; vertex < 8; ++vertex) {
        const V3f& point = (*made->points)[vertex];
        EXPECT_TRUE(isNear({std::abs(point.x), std::abs(point.y), std::abs(point.z)}, {corner, corner, corner}));
    }
    EXPECT_TRUE(isNear((*made->points)[8], {0, -0.375F, 0.375F})) << "of the edge 0 1";
    EXPECT_TRUE(isNear((*made->points)[20], {0, 0, 0.5F})) << "of the front";
    EXPECT_EQ(made->topology->normalFans().count, 26) << "all edges are soft";
}

TEST(SmoothFaces, KeepsHardnessWhenAsked) {
    SmoothRules rules;
    rules.keepsHardness = true;
    std::int32_t hard = 0;
    const auto made = smoothFaces(*makeCube({}), 1, rules);
    for (const MeshEdge& edge : made->topology->edges()) {
        hard += edge.smooth ? 0 : 1;
    }
    EXPECT_EQ(hard, 24);
}

TEST(SmoothFaces, KeepsBorders) {
    const auto plane = makePlane({2, 2, 2, 2, true}); // vertex 4 in the middle
    auto points = std::make_shared<Points>(*plane->points);
    (*points)[4].y = 1;
    plane->points = points;
    const auto made = smoothFaces(*plane, 1, {});
    for (std::size_t vertex = 0; vertex < 9; ++vertex) {
        EXPECT_EQ((*made->points)[vertex].x, (*plane->points)[vertex].x);
    }
    EXPECT_FLOAT_EQ((*made->points)[4].y, (0.25F + 2 * 0.5F + 1) / 4);
    EXPECT_EQ((*made->points)[0], (*plane->points)[0]);
    EXPECT_EQ((*made->points)[1].y, 0.0F);
}

TEST(SmoothFaces, SmoothsUvsWithinTheirBorders) {
    const auto plane = makePlane({2, 2, 2, 2, true});
    auto uvs = std::make_shared<std::vector<V2f>>(*plane->uvSets[0].points);
    (*uvs)[4] = {1, 1}; // was the middle
    plane->uvSets[0].points = uvs;
    const auto made = smoothFaces(*plane, 1, {});
    const auto uvOf = [&](const MeshData& mesh, std::int32_t face, std::size_t corner) {
        const UvSet& set = mesh.uvSets[0];
        return (*set.points)[static_cast<std::size_t>(idsOf(*set.ids, face)[corner])];
    };
    // By hand: the faces' middles around it are at 3/8 and 7/8, the edges' at 1/2, 3/4, 3/4 and 1.
    const V2f middle = uvOf(*made, 2, 0);
    EXPECT_EQ(verticesOf(*made, 2)[0], 4);
    EXPECT_FLOAT_EQ(middle.x, (0.625F + 2 * 0.75F + 1) / 4);
    EXPECT_FLOAT_EQ(middle.y, (0.625F + 2 * 0.75F + 1) / 4);
    EXPECT_EQ(uvOf(*made, 0, 0), V2f(0, 0));
    SmoothRules rules;
    rules.smoothsUvs = false;
    EXPECT_EQ(uvOf(*smoothFaces(*plane, 1, rules), 2, 0), V2f(1, 1));
}

TEST(SmoothFaces, StaysClosedOverLevels) {
    const auto made = smoothFaces(*makeTorus({}), 2, {});
    EXPECT_EQ(eulerOf(*made), 0);
    EXPECT_EQ(made->topology->faceCount(), 6400);
    EXPECT_EQ(made->uvSets[0].ids->faces.size(), 6400U);
}

TEST(SmoothFaces, LeavesEdgesOfMoreThanTwoFaces) {
    const auto mesh =
        meshOfFaces({{0, 0, 0}, {0, 2, 0}, {1, 0, 0}, {1, 2, 0}, {-1, 0, 0}, {-1, 2, 0}, {0, 0, 1}, {0, 2, 1}},
                    {{0, 2, 3, 1}, {0, 1, 5, 4}, {0, 6, 7, 1}});
    const auto made = smoothFaces(*mesh, 1, {});
    EXPECT_EQ((*made->points)[0], V3f(0, 0, 0));
    EXPECT_EQ(made->topology->faceCount(), 12);
}

} // namespace

} // namespace host
