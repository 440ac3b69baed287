#include "geometry/polygonRecords.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class PolygonRecords : public testing::Test {
protected:
    void expectRefused(const std::string& statements, const std::string& message) {
        EXPECT_FALSE(session.buildRecordsOf(statements));
        EXPECT_EQ(session.takeMessages(), message);
    }

    // The first record's faces, by their corners' vertices.
    std::vector<std::vector<int>> faces(std::size_t place = 0) const {
        std::vector<std::vector<int>> result;
        const PolygonPart& part = session.polygon(place).parts.front();
        std::size_t first = 0;
        for (const int32_t size : part.faceSizes) {
            result.emplace_back();
            for (int32_t i = 0; i < size; ++i) {
                result.back().push_back(part.corners[first++].vertex);
            }
        }
        return result;
    }

    GeometrySession session;
};

using Faces = std::vector<std::vector<int>>;

TEST_F(PolygonRecords, RefuseAMeshWithoutShadingGroup) {
    expectRefused(meshNode("body", square(), "", ""), "Error: No shading group: bodyShape\n");
}

TEST_F(PolygonRecords, RefuseAFaceWithAHole) {
    MeshSpec mesh = row(1);
    mesh.points.insert(mesh.points.end(), {{0.2, 0.2, 0}, {0.2, 0.8, 0}, {0.8, 0.8, 0}});
    mesh.faces.push_back({1, 0, 2});
    mesh.holes = {{4, 5, 6}};
    expectRefused(meshNode("body", mesh), "Error: Holed polygon exists (please triangulate): bodyShape.f[0]\n");
}

TEST_F(PolygonRecords, AreOnePerShapeAndShadingGroup) {
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "red") + shadingText("lambert", "blue") +
                                       meshNode("a", row(3), "", "") + shadeFaces("aShape", "redSG", 0, "f[0:1]") +
                                       shadeFaces("aShape", "blueSG", 1, "f[2]") +
                                       meshNode("b", square(), "", "blueSG")));
    ASSERT_EQ(session.scene().polygons.size(), 3U);
    EXPECT_EQ(session.polygon(0).name, "aShape");
    EXPECT_EQ(faces(0), (Faces{{0, 2, 3, 1}, {2, 4, 5, 3}}));
    EXPECT_EQ(faces(1), (Faces{{4, 6, 7, 5}}));
    EXPECT_EQ(session.polygon(2).name, "bShape");
    EXPECT_EQ(session.polygon(1).material, session.polygon(2).material);
    EXPECT_EQ(session.polygon(0).node, &session.record("a"));
    EXPECT_TRUE(session.record("a").hasFaces);
    EXPECT_EQ(session.scene().gatheredCorners, 16);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(PolygonRecords, OfAMeshWithWholeAndPerFaceAssignmentsAreThoseOfTheFaces) {
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "red") + meshNode("a", row(2)) +
                                       shadeFaces("aShape", "redSG", 0, "f[0:1]")));
    ASSERT_EQ(session.scene().polygons.size(), 1U);
    EXPECT_EQ(faces(), (Faces{{0, 2, 3, 1}, {2, 4, 5, 3}}));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(PolygonRecords, LeaveFacesWithoutShadingGroupOutWithAWarning) {
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "red") + meshNode("a", row(4), "", "") +
                                       shadeFaces("aShape", "redSG", 0, "f[1]")));
    EXPECT_EQ(session.takeMessages(), "Warning: Faces without shading group are ignored: aShape (3)\n");
    EXPECT_EQ(faces(), (Faces{{2, 4, 5, 3}}));
}

TEST_F(PolygonRecords, OfAnEmptyFaceGroupHaveNoFaces) {
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "red") + shadingText("lambert", "blue") +
                                       meshNode("a", square(), "", "") + shadeFaces("aShape", "redSG", 0, "f[0]") +
                                       shadeFaces("aShape", "blueSG", 1, "")));
    EXPECT_EQ(session.takeMessages(), "");
    for (const PolygonRecord& polygon : session.scene().polygons) {
        EXPECT_EQ(polygon.parts.front().faceSizes.empty(), polygon.triangleCount == 0);
    }
    EXPECT_EQ(session.scene().gatheredTriangles, 2);
}

TEST_F(PolygonRecords, CountATriangleForATriangleTwoForAQuadThreeForAPentagon) {
    MeshSpec mesh;
    mesh.points = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}, {0, 1, 0}, {0, 2, 0}, {1, 2, 0}, {-1, 1, 0}};
    mesh.faces = {{0, 1, 5}, {1, 2, 3, 4}, {5, 4, 7, 6, 8}};
    ASSERT_TRUE(session.buildRecordsOf(meshNode("a", mesh)));
    EXPECT_EQ(session.polygon().triangleCount, 1 + 2 + 3);
    EXPECT_EQ(session.scene().gatheredTriangles, 6);
    EXPECT_EQ(session.scene().gatheredCorners, 12);
}

TEST_F(PolygonRecords, HaveNormalsWhenTheirMaterialIsLit) {
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "lit") +
                                       shadingText("lambert", "unlit", addedAttribute("tvk_lighting", "bool", "0")) +
                                       meshNode("a", square(), "", "litSG") + meshNode("b", square(), "", "unlitSG")));
    EXPECT_TRUE(session.polygon(0).nrmFlag);
    EXPECT_FALSE(session.polygon(1).nrmFlag);
    EXPECT_FALSE(session.polygon(0).texFlag);
    EXPECT_FALSE(session.polygon(0).clrFlag);
}

TEST_F(PolygonRecords, HaveColorsWhenSomeCornerHasOneAndBlackWhereNoneIs) {
    MeshSpec mesh = row(2);
    mesh.colors = {{1, 0, 0, 1}, {0, 1, 0.5, 0.2}};
    mesh.faceColors = {{0, -1, 1, -1}, {}};
    ASSERT_TRUE(session.buildRecordsOf(meshNode("a", mesh) + meshNode("b", square())));
    ASSERT_TRUE(session.polygon(0).clrFlag);
    const std::vector<CornerSource>& corners = session.polygon(0).parts.front().corners;
    EXPECT_EQ(corners[0].color, 31);
    EXPECT_EQ(corners[1].color, 0);
    EXPECT_EQ(corners[2].color, 31 << 5 | 16 << 10); // alpha counts for nothing
    EXPECT_EQ(corners[4].color, 0);
    EXPECT_FALSE(session.polygon(1).clrFlag);
}

TEST_F(PolygonRecords, WarnOncePerShapeOfNormalsWithoutLength) {
    MeshSpec flat;
    flat.points = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}};
    flat.faces = {{0, 1, 2}, {1, 2, 3}};
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "red") + meshNode("a", flat, "", "") +
                                       shadeFaces("aShape", "redSG", 0, "f[0]") +
                                       shadeFaces("aShape", "initialShadingGroup", 1, "f[1]")));
    EXPECT_EQ(session.takeMessages(), "Warning: Zero normal exist: aShape\n");
}

TEST_F(PolygonRecords, DoNotWarnOfNormalsThatNoLightNeeds) {
    MeshSpec flat;
    flat.points = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    flat.faces = {{0, 1, 2}};
    ASSERT_TRUE(session.buildRecordsOf(shadingText("lambert", "unlit", addedAttribute("tvk_lighting", "bool", "0")) +
                                       meshNode("a", flat, "", "unlitSG")));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(PolygonRecords, OfUnitedNodesBelongToTheRoot) {
    ASSERT_TRUE(session.buildRecordsOf(meshNode("a", square()), "optimize_node=3"));
    EXPECT_EQ(session.polygon().node, session.scene().nodes.front().get());
    EXPECT_TRUE(session.scene().nodes.front()->hasFaces);
}

TEST_F(PolygonRecords, TakeTheFirstUvSetByName) {
    MeshSpec mesh = withUvs(square());
    mesh.uvSet = "skinUv";
    ASSERT_TRUE(session.buildRecordsOf(meshNode("a", mesh) + meshNode("b", square())));
    EXPECT_EQ(session.shape(0).uvSet, "skinUv");
    EXPECT_EQ(session.shape(1).uvSet, "map1");
}

// Each group is asked for its own faces only.
TEST_F(PolygonRecords, OfAMeshWithVeryManyShadingGroupsAreAllThere) {
    constexpr int kGroups = 500;
    std::string scene = meshNode("a", row(kGroups), "", "");
    std::string shaders;
    for (int i = 0; i < kGroups; ++i) {
        const std::string name = "m" + std::to_string(i);
        shaders += shadingText("lambert", name);
        scene += shadeFaces("aShape", name + "SG", i, "f[" + std::to_string(i) + "]");
    }
    ASSERT_TRUE(session.buildRecordsOf(shaders + scene));
    EXPECT_EQ(session.scene().polygons.size(), static_cast<std::size_t>(kGroups));
    EXPECT_EQ(session.scene().gatheredCorners, 4 * kGroups);
    EXPECT_EQ(session.takeMessages(), "");
}

} // namespace
} // namespace tvk
