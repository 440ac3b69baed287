#include "host/geometry/meshEdits.h"

#include "TestMeshes.h"

#include "host/geometry/meshNormals.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3f;
using testing::ElementsAre;

constexpr double kDegree = 0.017453292519943295;

std::vector<std::int32_t> idsOf(const FaceIds& ids, std::int32_t face) {
    std::int32_t count = 0;
    const std::int32_t* first = ids.find(face, count);
    return {first, first + count};
}

std::shared_ptr<const ComponentList> list(const std::vector<std::string>& words) {
    std::vector<ComponentRange> ranges(words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        EXPECT_TRUE(parseComponent(words[i], ranges[i]));
    }
    return std::make_shared<const ComponentList>(std::move(ranges));
}

std::vector<std::string> words(const ComponentList& components) {
    std::vector<std::string> texts;
    for (const ComponentRange& range : components.ranges) {
        texts.push_back(componentText(range));
    }
    return texts;
}

/// User normals with this one at every corner of the face and none elsewhere.
void setNormals(MeshData& mesh, std::int32_t face, const V3f& normal) {
    Points normals(static_cast<std::size_t>(mesh.topology->normalFans().count), V3f(1e20F));
    for (std::int32_t i = 0; i < mesh.topology->cornerCount(face); ++i) {
        const auto corner = static_cast<std::size_t>(mesh.topology->firstCorner(face) + i);
        normals[static_cast<std::size_t>(mesh.topology->normalFans().ofCorner[corner])] = normal;
    }
    mesh.userNormals = std::make_shared<const Points>(std::move(normals));
}

// --- keepFaces: of a strip of three quads the first goes

class KeepFaces : public testing::Test {
protected:
    KeepFaces() {
        PlaneShape shape;
        shape.divisionsWidth = 3;
        shape.divisionsHeight = 1;
        strip = makePlane(shape);
        strip->groups.push_back({7, list({"f[0]", "f[2]", "vtx[1:2]", "e[*]"})});
    }

    std::shared_ptr<MeshData> strip;
};

TEST_F(KeepFaces, LeavesOutWhatNoFaceUses) {
    const auto kept = keepFaces(*strip, {false, true, true});
    EXPECT_EQ(kept->topology->vertexCount(), 6);
    EXPECT_EQ(kept->topology->edgeCount(), 7);
    EXPECT_EQ(kept->topology->faceCount(), 2);
    EXPECT_EQ((*kept->points)[0], (*strip->points)[1]);
    EXPECT_EQ((*kept->points)[5], (*strip->points)[7]);
    EXPECT_EQ(kept->uvSets[0].points->size(), 6U);
    EXPECT_EQ(idsOf(*kept->uvSets[0].ids, 0), (std::vector<std::int32_t>{0, 1, 4, 3}));
    EXPECT_EQ((*kept->uvSets[0].points)[0], (*strip->uvSets[0].points)[1]);
}

TEST_F(KeepFaces, RenumbersGroups) {
    const auto kept = keepFaces(*strip, {false, true, true});
    EXPECT_THAT(words(*kept->groups.at(0).components), ElementsAre("vtx[0:1]", "e[*]", "f[1]"));
}

TEST_F(KeepFaces, KeepsUserNormalsAtTheirCorners) {
    setNormals(*strip, 2, {1, 0, 0});
    const auto kept = keepFaces(*strip, {false, true, true});
    const NormalFans& fans = kept->topology->normalFans();
    EXPECT_EQ(kept->normals()[static_cast<std::size_t>(fans.ofCorner[5])], V3f(1, 0, 0));
    EXPECT_EQ(kept->normals()[static_cast<std::size_t>(fans.ofCorner[0])], V3f(0, 1, 0));
}

TEST_F(KeepFaces, OfNoneIsEmpty) {
    const auto kept = keepFaces(*strip, {false, false, false});
    EXPECT_EQ(kept->topology->vertexCount() + kept->topology->faceCount(), 0);
    EXPECT_TRUE(kept->uvSets[0].points->empty());
}

// --- reverseFaces

TEST(ReverseFaces, TurnsFacesWithAllThatTheirCornersHave) {
    const auto cube = makeCube({});
    setNormals(*cube, 2, {0, 0.5F, 0});
    const auto reversed = reverseFaces(*cube, {false, false, true, false, false, false}, true);
    EXPECT_EQ(faceNormal(*reversed, 2), -faceNormal(*cube, 2));
    EXPECT_EQ(faceNormal(*reversed, 1), faceNormal(*cube, 1));
    const std::int32_t* vertices = reversed->topology->verticesOf(2);
    EXPECT_EQ(std::vector<std::int32_t>(vertices, vertices + 4), (std::vector<std::int32_t>{4, 6, 7, 5}));
    EXPECT_EQ(idsOf(*reversed->uvSets[0].ids, 2), (std::vector<std::int32_t>{4, 6, 7, 5}));
    const auto normal = static_cast<std::size_t>(reversed->topology->normalFans().ofCorner[8]);
    EXPECT_EQ((*reversed->userNormals)[normal], V3f(0, -0.5F, 0));
    EXPECT_EQ((*reverseFaces(*cube, std::vector<bool>(6, true), false)->userNormals)[normal], V3f(0, 0.5F, 0));
}

TEST(ReverseFaces, TwiceChangesNothing) {
    const auto sphere = makeSphere({});
    const std::vector<bool> all(static_cast<std::size_t>(sphere->topology->faceCount()), true);
    const auto twice = reverseFaces(*reverseFaces(*sphere, all, true), all, true);
    EXPECT_EQ(twice->topology->cornerEdges(), sphere->topology->cornerEdges());
    EXPECT_EQ(twice->uvSets[0].ids->ids, sphere->uvSets[0].ids->ids);
}

// --- softenEdges

TEST(SoftenEdges, ComparesTheAngleBetweenFaces) {
    const auto cube = makeCube({});
    const std::vector<bool> all(12, true);
    EXPECT_EQ(softenEdges(*cube, all, 89 * kDegree, {})->topology->normalFans().count, 24);
    EXPECT_EQ(softenEdges(*cube, all, 90 * kDegree, {})->topology->normalFans().count, 8);
    EXPECT_EQ(softenEdges(*makeSphere({}), std::vector<bool>(780, true), 0, {})->topology->normalFans().count, 1560);
}

TEST(SoftenEdges, LeavesOtherEdges) {
    const auto cube = makeCube({});
    std::vector<bool> one(12, false);
    one[1] = true;
    EXPECT_EQ(softenEdges(*cube, one, 180 * kDegree, {})->topology->normalFans().count, 22);
}

TEST(SoftenEdges, LooksAtTheMeshWhereItStands) {
    const auto roof = meshOfFaces({{0, 1, 0}, {0, 1, 1}, {1, 0, 0}, {-1, 0, 0}}, {{0, 1, 2}, {1, 0, 3}});
    const Matrix44 flat = Matrix44().setScale(Imath::V3d(1, 0.01, 1));
    EXPECT_EQ(softenEdges(*roof, std::vector<bool>(5, true), 10 * kDegree, {})->topology->normalFans().count, 6);
    EXPECT_EQ(softenEdges(*roof, std::vector<bool>(5, true), 10 * kDegree, flat)->topology->normalFans().count, 4);
}

// --- uniteMeshes

TEST(UniteMeshes, PutsThemBehindEachOther) {
    const auto cube = makeCube({});
    const auto plane = makePlane({1, 1, 1, 1, true});
    const auto united = uniteMeshes({{cube, Matrix44()}, {plane, Matrix44().setTranslation(Imath::V3d(0, 5, 0))}});
    EXPECT_EQ(united->topology->vertexCount(), 12);
    EXPECT_EQ(united->topology->edgeCount(), 16);
    EXPECT_EQ(united->topology->faceCount(), 7);
    EXPECT_EQ((*united->points)[8], V3f(-0.5F, 5, 0.5F));
    const std::vector<std::int32_t>& edges = united->topology->cornerEdges();
    EXPECT_EQ(std::vector<std::int32_t>(edges.begin() + 24, edges.end()),
              (std::vector<std::int32_t>{12, 14, -16, -14}));
    ASSERT_EQ(united->uvSets.size(), 1U);
    EXPECT_EQ(idsOf(*united->uvSets[0].ids, 6), (std::vector<std::int32_t>{14, 15, 17, 16}));
}

TEST(UniteMeshes, KeepsSetsOfOtherNamesApart) {
    const auto first = makePlane({1, 1, 1, 1, true});
    const auto second = std::make_shared<MeshData>(*first);
    second->uvSets[0].name = "other";
    const auto united = uniteMeshes({{first, Matrix44()}, {second, Matrix44()}});
    ASSERT_EQ(united->uvSets.size(), 2U);
    EXPECT_THAT(united->uvSets[0].ids->faces, ElementsAre(0));
    EXPECT_THAT(united->uvSets[1].ids->faces, ElementsAre(1));
}

TEST(UniteMeshes, TurnsUserNormals) {
    const auto plain = makePlane({1, 1, 1, 1, true});
    const auto set = std::make_shared<MeshData>(*plain);
    setNormals(*set, 0, {1, 0, 0});
    const Matrix44 quarter = Matrix44().setAxisAngle(Imath::V3d(0, 0, 1), 90 * kDegree);
    const auto united = uniteMeshes({{plain, Matrix44()}, {set, quarter}});
    EXPECT_FALSE(united->isUserNormal(0));
    EXPECT_TRUE(isNear(united->normals()[4], {0, 1, 0}));
}

TEST(UniteMeshes, OfNoneIsEmpty) {
    EXPECT_EQ(uniteMeshes({})->topology->vertexCount(), 0);
}

TEST(WithoutFaces, DropsCoordinatesThatNothingUses) {
    PlaneShape shape;
    shape.divisionsWidth = 2;
    shape.divisionsHeight = 1;
    const auto plane = makePlane(shape);
    const UvSet left = withoutFaces(plane->uvSets[0], {true, false});
    EXPECT_THAT(left.ids->faces, ElementsAre(1));
    EXPECT_THAT(*left.points, ElementsAre(V2f(0.5F, 0), V2f(1, 0), V2f(0.5F, 1), V2f(1, 1)));
    EXPECT_EQ(idsOf(*left.ids, 1), (std::vector<std::int32_t>{0, 1, 3, 2}));
}

} // namespace

} // namespace host
