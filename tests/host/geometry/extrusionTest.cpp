#include "host/geometry/extrusion.h"

#include "TestMeshes.h"

#include "host/geometry/meshNormals.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;
using testing::ElementsAre;

constexpr double kDegree = 0.017453292519943295;
using Ids = std::vector<std::int32_t>;

std::vector<bool> face(std::int32_t count, const Ids& numbers) {
    std::vector<bool> chosen(static_cast<std::size_t>(count), false);
    for (const std::int32_t number : numbers) {
        chosen[static_cast<std::size_t>(number)] = true;
    }
    return chosen;
}

V3f pointOf(const MeshData& mesh, std::int32_t faceNumber, std::size_t corner) {
    return (*mesh.points)[static_cast<std::size_t>(mesh.topology->verticesOf(faceNumber)[corner])];
}

Ids idsOf(const FaceIds& ids, std::int32_t faceNumber) {
    std::int32_t count = 0;
    const std::int32_t* first = ids.find(faceNumber, count);
    return {first, first + count};
}

std::int32_t eulerOf(const MeshData& mesh) {
    return mesh.topology->vertexCount() - mesh.topology->edgeCount() + mesh.topology->faceCount();
}

double volumeOf(const MeshData& mesh) {
    double volume = 0;
    for (std::int32_t i = 0; i < mesh.topology->faceCount(); ++i) {
        volume += (V3d(pointOf(mesh, i, 0)) ^ faceAreaVector(mesh, i)) / 6;
    }
    return volume;
}

TEST(ExtrudeFaces, MovesAFaceAlongItsNormalAndClosesTheSides) {
    const auto cube = makeCube({});
    Extrusion how;
    how.along = 2;
    const ExtrudedFaces made = extrudeFaces(*cube, face(6, {1}), how); // the top
    EXPECT_EQ(made.doubt, "");
    ASSERT_EQ(made.mesh->topology->faceCount(), 10);
    EXPECT_EQ(made.mesh->topology->vertexCount(), 12);
    EXPECT_EQ(made.mesh->topology->edgeCount(), 20);
    EXPECT_EQ(eulerOf(*made.mesh), 2);
    EXPECT_NEAR(volumeOf(*made.mesh), 3, 1e-6);
    EXPECT_EQ(pointOf(*made.mesh, 1, 0), V3f(-0.5F, 2.5F, 0.5F));
    EXPECT_EQ(faceNormal(*made.mesh, 6), V3f(0, 0, 1)) << "the side in front";
    for (std::int32_t edge = 0; edge < 20; ++edge) {
        EXPECT_EQ(made.mesh->topology->facesOfEdge().count(edge), 2);
        EXPECT_EQ(made.mesh->topology->edges()[static_cast<std::size_t>(edge)].smooth, false) << edge;
    }
}

TEST(ExtrudeFaces, GivesSidesTheCoordinatesOfTheirEdgeAndTheGroupsOfTheirFace) {
    const auto cube = makeCube({});
    std::vector<ComponentRange> ranges(1);
    ASSERT_TRUE(parseComponent("f[0:1]", ranges[0]));
    cube->groups = {{1, std::make_shared<const ComponentList>(ranges)}};
    ASSERT_TRUE(parseComponent("f[2]", ranges[0]));
    cube->groups.push_back({2, std::make_shared<const ComponentList>(ranges)});
    Extrusion how;
    how.along = 2;
    const auto made = extrudeFaces(*cube, face(6, {1}), how).mesh;
    const Ids top = idsOf(*made->uvSets[0].ids, 1);
    EXPECT_EQ(top, idsOf(*cube->uvSets[0].ids, 1));
    EXPECT_EQ(idsOf(*made->uvSets[0].ids, 6), (Ids{top[0], top[1], top[1], top[0]}));
    ASSERT_EQ(made->groups[0].components->ranges.size(), 2U);
    EXPECT_EQ(componentText(made->groups[0].components->ranges[1]), "f[6:9]");
    EXPECT_EQ(made->groups[1].components->ranges.size(), 1U);
}

TEST(ExtrudeFaces, MovesWhatIsConnectedAsOne) {
    const auto plane = makePlane({3, 3, 3, 3, true}); // all nine: its inner vertices move along, its border is copied
    Extrusion how;
    how.along = 1;
    const std::vector<bool> all(9, true);
    const auto made = extrudeFaces(*plane, all, how).mesh;
    EXPECT_EQ(made->topology->faceCount(), 21);
    EXPECT_EQ(made->topology->vertexCount(), 28);
    EXPECT_EQ(eulerOf(*made), 1);
    EXPECT_EQ((*made->points)[5].y, 1.0F);
    EXPECT_EQ((*made->points)[0].y, 0.0F);
    how.together = false;
    const auto apart = extrudeFaces(*plane, all, how).mesh;
    EXPECT_EQ(apart->topology->faceCount(), 9 + 36);
    EXPECT_EQ(apart->topology->vertexCount(), 16 + 36);
}

TEST(ExtrudeFaces, OffsetsBordersInParallel) {
    const auto cube = makeCube({2, 1, 1, 1, 1, 1, true});
    Extrusion how;
    how.offset = 0.25;
    const auto made = extrudeFaces(*cube, face(6, {1}), how).mesh;
    EXPECT_TRUE(isNear(pointOf(*made, 1, 0), {-0.75F, 0.5F, 0.25F}));
    EXPECT_TRUE(isNear(pointOf(*made, 1, 2), {0.75F, 0.5F, -0.25F}));
    const auto row = makePlane({2, 1, 2, 1, true}); // straight on at the middle of the long sides
    const auto inset = extrudeFaces(*row, {true, true}, how).mesh;
    EXPECT_TRUE(isNear(pointOf(*inset, 0, 1), {0, 0, 0.25F}));
    EXPECT_TRUE(isNear(pointOf(*inset, 0, 0), {-0.75F, 0, 0.25F}));
}

TEST(ExtrudeFaces, WorksWhereTheMeshStands) {
    const auto cube = makeCube({});
    Extrusion how;
    how.matrix = Matrix44().setScale(Imath::V3d(1, 4, 1));
    how.along = 2;
    how.translate = V3d(1, 0, 0);
    const auto made = extrudeFaces(*cube, face(6, {1}), how).mesh;
    EXPECT_TRUE(isNear(pointOf(*made, 1, 0), {0.5F, 1, 0.5F}));
}

TEST(ExtrudeFaces, SoftensNewEdgesByTheirAngle) {
    const auto plane = makePlane({1, 1, 1, 1, true});
    Extrusion how;
    how.along = 1;
    how.smoothingAngle = 91 * kDegree;
    EXPECT_EQ(extrudeFaces(*plane, {true}, how).mesh->topology->normalFans().count, 8);
    how.smoothingAngle = 89 * kDegree;
    EXPECT_EQ(extrudeFaces(*plane, {true}, how).mesh->topology->normalFans().count, 20);
}

TEST(ExtrudeFaces, SaysWhatIsInDoubt) {
    const auto cube = makeCube({});
    Extrusion how;
    how.along = 1;
    EXPECT_EQ(extrudeFaces(*cube, face(6, {0, 1}), how).doubt, "along");
    how.together = false;
    EXPECT_EQ(extrudeFaces(*cube, face(6, {0, 1}), how).doubt, "");
    how.along = 0;
    how.together = true;
    how.translate = V3d(0, 1, 0);
    EXPECT_EQ(extrudeFaces(*cube, face(6, {0, 1}), how).doubt, "");
    how.offset = 0.1;
    EXPECT_EQ(extrudeFaces(*cube, face(6, {0, 1}), how).doubt, "offset");
    Extrusion along;
    along.along = 1;
    EXPECT_EQ(extrudeFaces(*makePlane({2, 1, 2, 1, true}), {true, false}, along).doubt, "smoothingAngle");
    const auto corners = makePlane({2, 2, 2, 2, true}); // two squares that touch in one vertex
    how.translate = V3d(0);
    EXPECT_EQ(extrudeFaces(*corners, {true, false, false, true}, how).doubt, "") << "each is a part of its own";
}

TEST(ExtrudeFaces, KeepsUserNormalsOfOldCornersOnly) {
    const auto plane = makePlane({1, 1, 1, 1, true});
    plane->userNormals = std::make_shared<Points>(4, V3f(1, 0, 0));
    Extrusion how;
    how.along = 1;
    const auto made = extrudeFaces(*plane, {true}, how).mesh;
    const NormalFans& fans = made->topology->normalFans();
    EXPECT_EQ(made->normals()[static_cast<std::size_t>(fans.ofCorner[0])], V3f(1, 0, 0));
    EXPECT_TRUE(isNear(made->normals()[static_cast<std::size_t>(fans.ofCorner[4])], {0, 0, 1}));
}

TEST(ExtrudeFaces, OfNothingChangesNothing) {
    const auto cube = makeCube({});
    EXPECT_EQ(extrudeFaces(*cube, face(6, {}), {}).mesh->topology->cornerEdges(), cube->topology->cornerEdges());
    EXPECT_EQ(extrudeFaces(MeshData(), {}, {}).mesh->topology->faceCount(), 0);
}

} // namespace

} // namespace host
