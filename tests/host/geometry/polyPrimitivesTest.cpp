#include "host/geometry/polyPrimitives.h"

#include "TestMeshes.h"

#include "host/geometry/meshNormals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3d;
using Imath::V3f;
using testing::ElementsAre;
using Ids = std::vector<std::int32_t>;

Ids facesEdges(const MeshData& mesh, std::int32_t face) {
    const Ids& edges = mesh.topology->cornerEdges();
    return {edges.begin() + mesh.topology->firstCorner(face), edges.begin() + mesh.topology->firstCorner(face + 1)};
}

Ids facesUvs(const MeshData& mesh, std::int32_t face) {
    std::int32_t count = 0;
    const std::int32_t* ids = mesh.uvSets.at(0).ids->find(face, count);
    return {ids, ids + count};
}

// Triples as a scene file lists them: from, to, smooth.
Ids edgeRows(const MeshData& mesh, std::size_t first, std::size_t count) {
    Ids rows;
    for (std::size_t i = first; i < first + count; ++i) {
        const MeshEdge& edge = mesh.topology->edges().at(i);
        rows.insert(rows.end(), {edge.start, edge.end, edge.smooth ? 1 : 0});
    }
    return rows;
}

// --- what the real host writes for a cube of 1 by 1 by 1

TEST(PolyCube, OfOneFacePerSideIsTheRealHosts) {
    const auto cube = makeCube({});
    EXPECT_THAT(*cube->points, ElementsAre(V3f(-0.5F, -0.5F, 0.5F), V3f(0.5F, -0.5F, 0.5F), V3f(-0.5F, 0.5F, 0.5F),
                                           V3f(0.5F, 0.5F, 0.5F), V3f(-0.5F, 0.5F, -0.5F), V3f(0.5F, 0.5F, -0.5F),
                                           V3f(-0.5F, -0.5F, -0.5F), V3f(0.5F, -0.5F, -0.5F)));
    EXPECT_EQ(edgeRows(*cube, 0, 12), (Ids{0, 1, 0, 2, 3, 0, 4, 5, 0, 6, 7, 0, 0, 2, 0, 1, 3, 0,
                                           2, 4, 0, 3, 5, 0, 4, 6, 0, 5, 7, 0, 6, 0, 0, 7, 1, 0}));
    const std::vector<Ids> edges = {{0, 5, -2, -5},   {1, 7, -3, -7},     {2, 9, -4, -9},
                                    {3, 11, -1, -11}, {-12, -10, -8, -6}, {10, 4, 6, 8}};
    const std::vector<Ids> uvs = {{0, 1, 3, 2}, {2, 3, 5, 4},   {4, 5, 7, 6},
                                  {6, 7, 9, 8}, {1, 10, 11, 3}, {12, 0, 2, 13}};
    for (std::int32_t face = 0; face < 6; ++face) {
        EXPECT_EQ(facesEdges(*cube, face), edges[static_cast<std::size_t>(face)]) << face;
        EXPECT_EQ(facesUvs(*cube, face), uvs[static_cast<std::size_t>(face)]) << face;
    }
    EXPECT_THAT(*cube->uvSets[0].points,
                ElementsAre(V2f(0.375F, 0), V2f(0.625F, 0), V2f(0.375F, 0.25F), V2f(0.625F, 0.25F), V2f(0.375F, 0.5F),
                            V2f(0.625F, 0.5F), V2f(0.375F, 0.75F), V2f(0.625F, 0.75F), V2f(0.375F, 1), V2f(0.625F, 1),
                            V2f(0.875F, 0), V2f(0.875F, 0.25F), V2f(0.125F, 0), V2f(0.125F, 0.25F)));
}

// --- a cube of height 5 in 5 divisions, as a real scene stores it

TEST(PolyCube, OfSeveralFacesPerSideIsTheRealHosts) {
    CubeShape shape;
    shape.height = 5;
    shape.divisionsHeight = 5;
    const auto cube = makeCube(shape);
    ASSERT_EQ(cube->topology->vertexCount(), 24);
    ASSERT_EQ(cube->topology->faceCount(), 22);
    EXPECT_EQ((*cube->points)[9], V3f(0.5F, 1.5F, 0.5F));
    EXPECT_EQ((*cube->points)[12], V3f(-0.5F, 2.5F, -0.5F));
    EXPECT_EQ((*cube->points)[23], V3f(0.5F, -2.5F, -0.5F));
    EXPECT_EQ(edgeRows(*cube, 0, 44),
              (Ids{0,  1,  0, 2,  3,  1, 4,  5,  1, 6,  7,  1, 8,  9,  1, 10, 11, 0, 12, 13, 0, 14, 15, 1, 16, 17, 1,
                   18, 19, 1, 20, 21, 1, 22, 23, 0, 0,  2,  0, 1,  3,  0, 2,  4,  0, 3,  5,  0, 4,  6,  0, 5,  7,  0,
                   6,  8,  0, 7,  9,  0, 8,  10, 0, 9,  11, 0, 10, 12, 0, 11, 13, 0, 12, 14, 0, 13, 15, 0, 14, 16, 0,
                   15, 17, 0, 16, 18, 0, 17, 19, 0, 18, 20, 0, 19, 21, 0, 20, 22, 0, 21, 23, 0, 22, 0,  0, 23, 1,  0,
                   21, 3,  1, 19, 5,  1, 17, 7,  1, 15, 9,  1, 20, 2,  1, 18, 4,  1, 16, 6,  1, 14, 8,  1}));
    EXPECT_EQ(facesEdges(*cube, 12), (Ids{-36, -34, 36, -14}));
    EXPECT_EQ(facesEdges(*cube, 16), (Ids{-40, -26, -24, -22}));
    EXPECT_EQ(facesEdges(*cube, 21), (Ids{43, 20, 22, 24}));
    EXPECT_EQ(facesUvs(*cube, 16), (Ids{9, 30, 31, 11}));
    EXPECT_EQ(facesUvs(*cube, 21), (Ids{36, 8, 10, 37}));
    EXPECT_EQ((*cube->uvSets[0].points)[28], V2f(0.875F, 0.1F));
    EXPECT_EQ((*cube->uvSets[0].points)[37], V2f(0.125F, 0.25F));
}

TEST(PolyPlane, OfOneFaceIsTheRealHosts) {
    PlaneShape shape;
    shape.divisionsWidth = shape.divisionsHeight = 1;
    const auto plane = makePlane(shape);
    EXPECT_THAT(*plane->points,
                ElementsAre(V3f(-0.5F, 0, 0.5F), V3f(0.5F, 0, 0.5F), V3f(-0.5F, 0, -0.5F), V3f(0.5F, 0, -0.5F)));
    EXPECT_EQ(edgeRows(*plane, 0, 4), (Ids{0, 1, 0, 0, 2, 0, 1, 3, 0, 2, 3, 0}));
    EXPECT_EQ(facesEdges(*plane, 0), (Ids{0, 2, -4, -2}));
    EXPECT_EQ(facesUvs(*plane, 0), (Ids{0, 1, 3, 2}));
    EXPECT_THAT(*plane->uvSets[0].points, ElementsAre(V2f(0, 0), V2f(1, 0), V2f(0, 1), V2f(1, 1)));
    EXPECT_EQ(faceNormal(*plane, 0), V3f(0, 1, 0));
}

TEST(PolyPlane, HasHardBordersOnly) {
    PlaneShape shape;
    shape.divisionsWidth = shape.divisionsHeight = 2;
    const auto plane = makePlane(shape);
    EXPECT_EQ(edgeRows(*plane, 0, 12), (Ids{0, 1, 0, 0, 3, 0, 1, 2, 0, 1, 4, 1, 2, 5, 0, 3, 4, 1,
                                            3, 6, 0, 4, 5, 1, 4, 7, 1, 5, 8, 0, 6, 7, 0, 7, 8, 0}));
}

// --- a sphere of 20 by 20, as real scenes store it

TEST(PolySphere, IsTheRealHosts) {
    const auto sphere = makeSphere({});
    ASSERT_EQ(sphere->topology->vertexCount(), 382);
    ASSERT_EQ(sphere->topology->edgeCount(), 780);
    ASSERT_EQ(sphere->topology->faceCount(), 400);
    EXPECT_TRUE(isNear((*sphere->points)[0], {0.14877813F, -0.98768836F, -0.04834094F}));
    EXPECT_TRUE(isNear((*sphere->points)[19], {0.15643447F, -0.98768836F, 0}));
    EXPECT_EQ((*sphere->points)[380], V3f(0, -1, 0));
    EXPECT_EQ(edgeRows(*sphere, 379, 2), (Ids{379, 360, 1, 0, 20, 1}));
    EXPECT_EQ(edgeRows(*sphere, 740, 2), (Ids{380, 0, 1, 380, 1, 1}));
    EXPECT_EQ(edgeRows(*sphere, 760, 2), (Ids{360, 381, 1, 361, 381, 1}));
    struct FaceRow {
        std::int32_t face;
        Ids edges, uvs;
    };
    const FaceRow kRows[] = {
        {0, {0, 381, -21, -381}, {0, 1, 22, 21}},     {19, {19, 380, -40, -400}, {19, 20, 41, 40}},
        {20, {20, 401, -41, -401}, {21, 22, 43, 42}}, {359, {359, 720, -380, -740}, {376, 377, 398, 397}},
        {360, {-1, -741, 741}, {1, 0, 399}},          {379, {-20, -760, 740}, {20, 19, 418}},
        {380, {360, 761, -761}, {378, 379, 419}},     {399, {379, 760, -780}, {397, 398, 438}},
    };
    for (const FaceRow& row : kRows) {
        EXPECT_EQ(facesEdges(*sphere, row.face), row.edges) << row.face;
        EXPECT_EQ(facesUvs(*sphere, row.face), row.uvs) << row.face;
    }
    EXPECT_EQ((*sphere->uvSets[0].points)[22], V2f(0.05F, 0.1F));
    EXPECT_EQ((*sphere->uvSets[0].points)[399], V2f(0.025F, 0));
    EXPECT_EQ((*sphere->uvSets[0].points)[438], V2f(0.975F, 1));
}

TEST(PolyCylinder, HasHardRimsAndCapsOfTriangles) {
    const auto cylinder = makeCylinder({});
    ASSERT_EQ(cylinder->topology->vertexCount(), 42);
    ASSERT_EQ(cylinder->topology->edgeCount(), 100);
    ASSERT_EQ(cylinder->topology->faceCount(), 60);
    ASSERT_EQ(cylinder->uvSets[0].points->size(), 84U);
    EXPECT_EQ(edgeRows(*cylinder, 19, 2), (Ids{19, 0, 0, 20, 21, 0}));
    EXPECT_EQ(edgeRows(*cylinder, 39, 2), (Ids{39, 20, 0, 0, 20, 1}));
    EXPECT_EQ(facesEdges(*cylinder, 0), (Ids{0, 41, -21, -41}));
    EXPECT_EQ(facesUvs(*cylinder, 0), (Ids{20, 21, 42, 41}));
    EXPECT_EQ(facesEdges(*cylinder, 20), (Ids{-1, -61, 61}));
    EXPECT_EQ(facesUvs(*cylinder, 40), (Ids{80, 79, 83}));
}

TEST(PolyCone, EndsInOneVertex) {
    const auto cone = makeCone({});
    ASSERT_EQ(cone->topology->vertexCount(), 21);
    ASSERT_EQ(cone->topology->faceCount(), 21);
    EXPECT_EQ(cone->topology->cornerCount(0), 20);
    EXPECT_EQ(cone->uvSets[0].points->size(), 42U);
    EXPECT_EQ((*cone->points)[20], V3f(0, 1, 0));
    EXPECT_EQ(facesEdges(*cone, 1), (Ids{0, 21, -21}));
    EXPECT_EQ(facesUvs(*cone, 1), (Ids{20, 21, 41}));
}

TEST(PolyTorus, HasARingPerDivisionOfItsSection) {
    const auto torus = makeTorus({});
    ASSERT_EQ(torus->topology->vertexCount(), 400);
    ASSERT_EQ(torus->topology->faceCount(), 400);
    EXPECT_EQ(torus->uvSets[0].points->size(), 441U);
    EXPECT_TRUE(isNear((*torus->points)[0], {0.47552826F, 0, -0.15450850F}));
    EXPECT_EQ(facesEdges(*torus, 0), (Ids{-1, 400, 20, -402}));
}

// --- what holds for all of them

struct ShapeRow {
    const char* name;
    std::function<std::shared_ptr<MeshData>(std::int32_t, bool)> make; // divisions, with UVs
    bool closed;
};

const ShapeRow kShapes[] = {
    {"Cube",
     [](std::int32_t n, bool uvs) {
         return makeCube({1, 2, 3, n, n + 1, n + 2, uvs});
     },
     true},
    {"Plane",
     [](std::int32_t n, bool uvs) {
         return makePlane({2, 3, n, n + 1, uvs});
     },
     false},
    {"Sphere",
     [](std::int32_t n, bool uvs) {
         return makeSphere({2, n, n + 1, uvs});
     },
     true},
    {"Cylinder",
     [](std::int32_t n, bool uvs) {
         return makeCylinder({2, 3, n, n, true, uvs});
     },
     true},
    {"CylinderWithFlatCaps",
     [](std::int32_t n, bool uvs) {
         return makeCylinder({2, 3, n, n, false, uvs});
     },
     true},
    {"Cone",
     [](std::int32_t n, bool uvs) {
         return makeCone({2, 3, n, n, false, uvs});
     },
     true},
    {"ConeWithFan",
     [](std::int32_t n, bool uvs) {
         return makeCone({2, 3, n, n, true, uvs});
     },
     true},
    {"Torus",
     [](std::int32_t n, bool uvs) {
         return makeTorus({2, 0.5, 0, n, n + 1, uvs});
     },
     true},
};

class Primitive : public testing::TestWithParam<ShapeRow> {};

TEST_P(Primitive, IsOneSurfaceThatFacesOutward) {
    for (const std::int32_t divisions : {-5, 1, 2, 3, 7}) {
        const auto mesh = GetParam().make(divisions, true);
        double volume = 0;
        for (std::int32_t face = 0; face < mesh->topology->faceCount(); ++face) {
            const V3d first((*mesh->points)[static_cast<std::size_t>(mesh->topology->verticesOf(face)[0])]);
            volume += first ^ faceAreaVector(*mesh, face);
        }
        EXPECT_TRUE(volume > 0.0 || !GetParam().closed) << divisions;
        const IndexLists& faces = mesh->topology->facesOfEdge();
        std::int32_t borders = 0;
        for (std::int32_t edge = 0; edge < mesh->topology->edgeCount(); ++edge) {
            ASSERT_TRUE(faces.count(edge) == 1 || faces.count(edge) == 2) << divisions;
            borders += faces.count(edge) == 1 ? 1 : 0;
        }
        EXPECT_EQ(borders == 0, GetParam().closed) << divisions;
        for (const V3f& normal : mesh->normals()) {
            EXPECT_NEAR(normal.length(), 1.0, 1e-5) << divisions;
        }
    }
}

TEST_P(Primitive, MapsEveryCornerInOrOffTheWindingOfItsFace) {
    const auto mesh = GetParam().make(5, true);
    const std::vector<V2f>& uvs = *mesh->uvSets[0].points;
    std::vector<bool> used(uvs.size(), false);
    for (std::int32_t face = 0; face < mesh->topology->faceCount(); ++face) {
        const Ids ids = facesUvs(*mesh, face);
        ASSERT_EQ(static_cast<std::int32_t>(ids.size()), mesh->topology->cornerCount(face));
        double area = 0;
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const V2f& a = uvs.at(static_cast<std::size_t>(ids[i]));
            const V2f& b = uvs.at(static_cast<std::size_t>(ids[(i + 1) % ids.size()]));
            area += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
            used[static_cast<std::size_t>(ids[i])] = true;
        }
        EXPECT_GT(area, 0.0) << face; // no primitive is mirrored in its texture
    }
    EXPECT_THAT(used, testing::Each(true));
}

TEST_P(Primitive, HasNoCoordinatesWhenItIsToHaveNone) {
    const auto mesh = GetParam().make(3, false);
    EXPECT_TRUE(mesh->uvSets.at(0).points->empty());
    EXPECT_TRUE(mesh->uvSets.at(0).ids->faces.empty());
}

TEST_P(Primitive, OfTooManyFacesIsEmpty) {
    EXPECT_EQ(GetParam().make(2000000000, true)->topology->vertexCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Shapes, Primitive, testing::ValuesIn(kShapes),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace host
