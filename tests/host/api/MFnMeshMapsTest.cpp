// Texture coordinates and colours of meshes.

#include "MeshTest.h"

#include <maya/MColorArray.h>
#include <maya/MFloatArray.h>
#include <maya/MStringArray.h>

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MFnMeshMapsTest : public MeshTest {
protected:
    static std::vector<std::string> names(const MStringArray& array) {
        std::vector<std::string> result;
        for (unsigned int i = 0; i < array.length(); ++i) {
            result.emplace_back(array[i].asChar());
        }
        return result;
    }

    static std::vector<MColor> colors(const MColorArray& array) { return storedValues(array); }

    const MString second_ = "second";
    const MString none_ = "nowhere";
    const MColor unset_{-1, -1, -1, -1};
    MStatus status_;
    float u_ = 7.0F, v_ = 8.0F;
};

TEST_F(MFnMeshMapsTest, textureCoordinatesThatAreNotThereFail) {
    const MFnMesh none;
    const MFnMesh mesh(node("m"));
    MFloatArray us;
    MFloatArray vs;
    MIntArray counts;
    MIntArray ids;
    MStringArray found;
    int id = 5;
    EXPECT_EQ(none.getUVs(us, vs), MStatus::kFailure);
    EXPECT_EQ(none.getUVSetNames(found), MStatus::kFailure);
    none.currentUVSetName(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    none.numUVs(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(mesh.getUVs(us, vs, &none_), MStatus::kFailure);
    EXPECT_EQ(mesh.getAssignedUVs(counts, ids, &none_), MStatus::kFailure);
    mesh.numUVs(none_, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(mesh.getUV(4, u_, v_), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getUV(-1, u_, v_), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPolygonUV(1, 0, u_, v_), MStatus::kFailure) << "face 1 is not mapped in this set";
    EXPECT_EQ(mesh.getPolygonUVid(0, 4, id), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPolygonUVid(2, 0, id), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPolygonUVid(0, 0, id, &none_), MStatus::kFailure);
    EXPECT_EQ(mesh.getFaceUVSetNames(2, found), MStatus::kInvalidParameter);
    EXPECT_TRUE(u_ == 7.0F && v_ == 8.0F && id == 5);
}

TEST_F(MFnMeshMapsTest, textureCoordinatesBySet) {
    const MFnMesh mesh(node("m"));
    EXPECT_EQ(mesh.numUVs(), 4);
    EXPECT_EQ(mesh.numUVs(second_), 1);
    MFloatArray us;
    MFloatArray vs;
    ASSERT_EQ(mesh.getUVs(us, vs), MStatus::kSuccess);
    EXPECT_EQ(us.length(), 4U);
    EXPECT_TRUE(us[2] == 1.0F && vs[2] == 0.5F);
    ASSERT_EQ(mesh.getUV(0, u_, v_, &second_), MStatus::kSuccess);
    EXPECT_TRUE(u_ == 0.25F && v_ == 0.75F);
    ASSERT_EQ(mesh.getPolygonUV(0, 3, u_, v_), MStatus::kSuccess);
    EXPECT_TRUE(u_ == 0.0F && v_ == 0.5F);
    ASSERT_EQ(mesh.getPolygonUV(1, 3, u_, v_, &second_), MStatus::kSuccess);
    EXPECT_TRUE(u_ == 0.25F && v_ == 0.75F);
    MIntArray counts;
    MIntArray ids;
    ASSERT_EQ(mesh.getAssignedUVs(counts, ids), MStatus::kSuccess);
    EXPECT_THAT(list(counts), ElementsAre(4, 0));
    EXPECT_THAT(list(ids), ElementsAre(0, 1, 2, 3));
    ASSERT_EQ(mesh.getAssignedUVs(counts, ids, &second_), MStatus::kSuccess);
    EXPECT_THAT(list(counts), ElementsAre(0, 4));
}

TEST_F(MFnMeshMapsTest, setsOfTextureCoordinates) {
    const MFnMesh mesh(node("m"));
    MStringArray found;
    ASSERT_EQ(mesh.getUVSetNames(found), MStatus::kSuccess);
    EXPECT_THAT(names(found), ElementsAre("map1", "second"));
    EXPECT_EQ(mesh.currentUVSetName(), "map1");
    run("setAttr m.cuvs -type \"string\" \"second\"");
    EXPECT_EQ(mesh.currentUVSetName(), "second");
    EXPECT_EQ(mesh.numUVs(), 1);
    ASSERT_EQ(mesh.getFaceUVSetNames(1, found), MStatus::kSuccess);
    EXPECT_THAT(names(found), ElementsAre("second"));
    run("createNode mesh -n empty");
    const MFnMesh empty(node("empty"));
    ASSERT_EQ(empty.getUVSetNames(found), MStatus::kSuccess);
    EXPECT_EQ(empty.numUVs(), 0);
}

TEST_F(MFnMeshMapsTest, coloursThatAreNotThereFail) {
    const MFnMesh none;
    const MFnMesh mesh(node("m"));
    MColorArray found;
    MStringArray sets;
    MColor color;
    int id = 5;
    EXPECT_EQ(none.getColors(found), MStatus::kFailure);
    EXPECT_EQ(none.getFaceVertexColors(found), MStatus::kFailure);
    EXPECT_EQ(none.getVertexColors(found), MStatus::kFailure);
    EXPECT_EQ(none.getColorSetNames(sets), MStatus::kFailure);
    none.numColors(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    none.currentColorSetName(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(mesh.getColors(found, &none_), MStatus::kFailure);
    EXPECT_EQ(mesh.getColor(2, color), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getColor(-1, color), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getColorIndex(0, 4, id), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getColorIndex(2, 0, id), MStatus::kInvalidParameter);
    mesh.getColorRepresentation(none_, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    mesh.isColorClamped(none_, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(id, 5);
    makePolygon("plain", {0, 0, 1, 0, 0, 1});
    const MFnMesh plain(node("plain"));
    EXPECT_EQ(plain.getFaceVertexColors(found), MStatus::kFailure);
    EXPECT_EQ(plain.numColors(), 0);
    EXPECT_EQ(plain.currentColorSetName(), "");
}

TEST_F(MFnMeshMapsTest, coloursByCornerAndVertex) {
    const MFnMesh mesh(node("m"));
    const MColor red(1, 0, 0);
    const MColor blue(0, 0, 1, 0.5F);
    MColorArray found;
    ASSERT_EQ(mesh.getColors(found), MStatus::kSuccess);
    EXPECT_THAT(colors(found), ElementsAre(red, blue));
    ASSERT_EQ(mesh.getFaceVertexColors(found), MStatus::kSuccess);
    EXPECT_THAT(colors(found), ElementsAre(red, red, blue, unset_, unset_, unset_, unset_, unset_));
    const MColor green(0, 1, 0);
    ASSERT_EQ(mesh.getVertexColors(found, nullptr, &green), MStatus::kSuccess);
    EXPECT_THAT(colors(found), ElementsAre(red, red, blue, green, green, green));
    int id = 5;
    ASSERT_EQ(mesh.getColorIndex(0, 2, id), MStatus::kSuccess);
    EXPECT_EQ(id, 1);
    ASSERT_EQ(mesh.getColorIndex(1, 0, id), MStatus::kSuccess);
    EXPECT_EQ(id, -1);
}

TEST_F(MFnMeshMapsTest, verticesHaveTheMeanOfTheirCorners) {
    // Vertex 2 is blue in face 0 and gets red in face 1.
    run("setAttr -s 2 -ch 8 \"m.fc[0:1]\" -type \"polyFaces\" f 4 0 1 2 3 mc 0 4 0 0 1 -1 f 4 4 5 6 -2 mc 0 4 -1 -1 -1 "
        "0");
    MColorArray found;
    ASSERT_EQ(MFnMesh(node("m")).getVertexColors(found), MStatus::kSuccess);
    EXPECT_EQ(found[2], MColor(0.5F, 0, 0.5F, 0.75F));
    EXPECT_EQ(found[5], unset_);
}

TEST_F(MFnMeshMapsTest, setsOfColours) {
    const MFnMesh mesh(node("m"));
    const MString grey = "grey";
    MStringArray found;
    ASSERT_EQ(mesh.getColorSetNames(found), MStatus::kSuccess);
    EXPECT_THAT(names(found), ElementsAre("tint", "grey"));
    EXPECT_EQ(mesh.currentColorSetName(), "tint");
    EXPECT_EQ(mesh.getColorRepresentation("tint"), MFnMesh::kRGBA);
    EXPECT_EQ(mesh.getColorRepresentation("grey"), MFnMesh::kAlpha);
    EXPECT_FALSE(mesh.isColorClamped("tint"));
    EXPECT_TRUE(mesh.isColorClamped("grey"));
    EXPECT_EQ(mesh.numColors(), 2);
    EXPECT_EQ(mesh.numColors(grey), 1);
    MColor color;
    ASSERT_EQ(mesh.getColor(0, color, &grey), MStatus::kSuccess);
    EXPECT_EQ(color.a, 0.25F);
    run("setAttr m.ccls -type \"string\" \"grey\"");
    EXPECT_EQ(mesh.numColors(), 1);
}

} // namespace
} // namespace host
