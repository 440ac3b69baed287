#include "geometry/modelTables.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class ModelTablesOfScenes : public testing::Test {
protected:
    // Written positions of a polygon's first face.
    std::vector<FixedPosition> firstFace(std::size_t place = 0) const {
        std::vector<FixedPosition> result;
        const FaceList& faces = session.polygon(place).faces;
        for (std::size_t i = 0; i < faces.sizes.at(0); ++i) {
            result.push_back(session.scene().tables.positions[faces.corners[i].position]);
        }
        return result;
    }

    FixedNormal normal(std::size_t corner, std::size_t place = 0) const {
        return session.scene().tables.normals[session.polygon(place).faces.corners.at(corner).normal];
    }

    GeometrySession session;
};

using Positions = std::vector<FixedPosition>;

TEST_F(ModelTablesOfScenes, HoldEveryVertexOnceInTheOrderOfItsShape) {
    MeshSpec mesh = square();
    mesh.points.push_back({3, 0, 0}); // no face uses it
    mesh.points.push_back({1, 1, 0}); // and this one stands where another does
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh) + meshNode("b", square())));
    const Positions expected{{0, 0, 0}, {4096, 0, 0}, {4096, 4096, 0}, {0, 4096, 0}, {12288, 0, 0}};
    EXPECT_EQ(session.scene().tables.positions.entries(), expected);
    EXPECT_EQ(session.shape(0).positions, (std::vector<int32_t>{0, 1, 2, 3, 4, 2}));
    EXPECT_EQ(session.shape(1).positions, (std::vector<int32_t>{0, 1, 2, 3}));
}

TEST_F(ModelTablesOfScenes, HoldNormalsOnceAndOnlyWhereLightsNeedThem) {
    ASSERT_TRUE(session.gatherFrom(shadingText("lambert", "unlit", addedAttribute("tvk_lighting", "bool", "0")) +
                                   meshNode("a", row(3)) + meshNode("b", square(), "", "unlitSG")));
    EXPECT_EQ(session.scene().tables.normals.entries(), (std::vector<FixedNormal>{{0, 0, 511}}));
    EXPECT_EQ(session.polygon(0).faces.corners[0].normal, 0);
    EXPECT_EQ(session.polygon(1).faces.corners[0].normal, -1);
    EXPECT_EQ(session.polygon(0).faces.corners[0].color, -1);
    EXPECT_EQ(session.polygon(0).faces.corners[0].texCoord, -1);
}

TEST_F(ModelTablesOfScenes, HoldColorsOnce) {
    MeshSpec mesh = row(2);
    mesh.colors = {{1, 0, 0, 1}, {1, 0, 0, 0.5}, {0, 0, 1, 1}};
    mesh.faceColors = {{0, 1, 2, -1}, {0, 0, 0, 0}};
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh)));
    EXPECT_EQ(session.scene().tables.colors.entries(), (std::vector<ColorWord>{31, 31 << 10, 0}));
}

TEST_F(ModelTablesOfScenes, FreeWhatWasReadOfTheCorners) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", square())));
    EXPECT_TRUE(session.polygon().parts.empty());
    EXPECT_EQ(session.shape().polygons, (std::vector<int32_t>{0}));
}

TEST_F(ModelTablesOfScenes, ScaleALargestCoordinateOfExactlyEight) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", row(8))));
    EXPECT_EQ(session.scene().positionScale, 1);
    EXPECT_EQ(session.scene().tables.positions.entries().back(), (FixedPosition{16384, 2048, 0}));
    EXPECT_EQ(session.polygon().volumeMax, (Vector3{4, 0.5, 0}));
    EXPECT_EQ(session.scene().boxMax, (Vector3{8, 1, 0})); // the box is not scaled
}

TEST_F(ModelTablesOfScenes, DoNotScaleASmallestCoordinateOfExactlyMinusEight) {
    MeshSpec mesh = row(8);
    for (auto& point : mesh.points) {
        point[0] = -point[0];
        point[1] = -point[1];
    }
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh)));
    EXPECT_EQ(session.scene().positionScale, 0);
    EXPECT_EQ(session.scene().tables.positions.entries().back(), (FixedPosition{-32768, -4096, 0}));
}

TEST_F(ModelTablesOfScenes, ScaleTwentyByFour) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", row(20))));
    EXPECT_EQ(session.scene().positionScale, 2);
    EXPECT_EQ(session.scene().tables.positions.entries().back(), (FixedPosition{20480, 1024, 0}));
}

TEST_F(ModelTablesOfScenes, TurnTheFacesOfAMirroredNodeAndKeepTheirFirstCorner) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", square(), set3("s", -1, 1, 1))));
    EXPECT_EQ(firstFace(), (Positions{{0, 0, 0}, {0, 4096, 0}, {4096, 4096, 0}, {4096, 0, 0}}));
    EXPECT_EQ(normal(0), (FixedNormal{0, 0, 511})); // the mirror does not turn it in the node's own space
}

TEST_F(ModelTablesOfScenes, TurnFacesAndNormalsOfTheOppositeSide) {
    MeshSpec mesh = square();
    mesh.attributes = "setAttr \".op\" yes; setAttr \".ds\" no;";
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh)));
    EXPECT_EQ(firstFace()[1], (FixedPosition{0, 4096, 0}));
    EXPECT_EQ(normal(0), (FixedNormal{0, 0, -512}));
}

TEST_F(ModelTablesOfScenes, LeaveTheOppositeSideOfADoubleSidedMeshAlone) {
    MeshSpec mesh = square();
    mesh.attributes = "setAttr \".op\" yes;";
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh)));
    EXPECT_EQ(firstFace()[1], (FixedPosition{4096, 0, 0}));
    EXPECT_EQ(normal(0), (FixedNormal{0, 0, 511}));
}

TEST_F(ModelTablesOfScenes, TurnAMirroredOppositeSideTwice) {
    MeshSpec mesh = square();
    mesh.attributes = "setAttr \".op\" yes; setAttr \".ds\" no;";
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh, set3("s", -1, 1, 1))));
    EXPECT_EQ(firstFace()[1], (FixedPosition{4096, 0, 0}));
}

TEST_F(ModelTablesOfScenes, DropAPolygonWithoutAFaceThatCanBeDrawn) {
    MeshSpec flat;
    flat.points = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    flat.faces = {{0, 1, 2}};
    ASSERT_TRUE(session.gatherFrom(shadingText("lambert", "unlit", addedAttribute("tvk_lighting", "bool", "0")) +
                                   meshNode("a", flat, "", "unlitSG") + meshNode("b", square())));
    EXPECT_TRUE(session.polygon(0).dropped);
    EXPECT_FALSE(session.polygon(1).dropped);
    EXPECT_TRUE(session.shape(0).polygons.empty());
    EXPECT_EQ(session.shape(1).polygons, (std::vector<int32_t>{1}));
}

TEST_F(ModelTablesOfScenes, MeasurePolygonsAndNodesFromTheMiddleOfTheirBox) {
    ASSERT_TRUE(session.gatherFrom(
        shadingText("lambert", "red") + meshNode("a", row(4), set3("t", 5, 5, 5) + set3("sp", 1, 0, 0), "") +
        shadeFaces("aShape", "redSG", 0, "f[0]") + shadeFaces("aShape", "initialShadingGroup", 1, "f[1:3]")));
    EXPECT_EQ(session.polygon(0).volumeMin, (Vector3{-1, 0, 0})); // from the pivot
    EXPECT_EQ(session.polygon(0).volumeMax, (Vector3{0, 1, 0}));
    EXPECT_DOUBLE_EQ(session.polygon(0).volumeRadius, std::hypot(0.5, 0.5));
    const NodeRecord& node = session.record("a");
    EXPECT_EQ(node.volumeMin, (Vector3{-1, 0, 0}));
    EXPECT_EQ(node.volumeMax, (Vector3{3, 1, 0}));
    EXPECT_DOUBLE_EQ(node.volumeRadius, std::hypot(2, 0.5));
}

TEST_F(ModelTablesOfScenes, MeasureNoNodeWithoutFaces) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", square()) + nodeText("transform", "b")));
    EXPECT_EQ(session.record("b").volumeRadius, 0.0);
    EXPECT_EQ(session.record("b").volumeMax, Vector3{});
}

TEST_F(ModelTablesOfScenes, OfUnitedNodesAreInTheWorld) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", square(), set3("t", 1, 2, 3) + set3("r", 0, 0, 90)) +
                                       meshNode("b", square(), set3("sh", 1, 0, 0)),
                                   "optimize_node=3"));
    EXPECT_EQ(firstFace(0),
              (Positions{{4096, 8192, 12288}, {4096, 12288, 12288}, {0, 12288, 12288}, {0, 8192, 12288}}));
    EXPECT_EQ(firstFace(1)[2], (FixedPosition{8192, 4096, 0})); // sheared
    EXPECT_EQ(session.scene().matrices.size(), 1U);
    const NodeRecord& root = *session.scene().nodes.front();
    EXPECT_EQ(root.volumeMin, (Vector3{0, 0, 0}));
    EXPECT_EQ(root.volumeMax, (Vector3{2, 3, 3}));
}

TEST_F(ModelTablesOfScenes, GiveScaledNormalsOfUnitedNodesTheirLength) {
    MeshSpec mesh = square();
    for (auto& point : mesh.points) {
        point[2] = -point[0]; // leans by 45 degrees
    }
    ASSERT_TRUE(session.gatherFrom(meshNode("a", mesh, set3("s", 3, 1, 1)), "optimize_node=3"));
    // (1, 0, 1) becomes (1/3, 0, 1) of length 1.
    EXPECT_EQ(normal(0), (FixedNormal{162, 0, 486}));
}

} // namespace
} // namespace tvk
