#include "MeshTest.h"

#include <cmath>

namespace host {
namespace {

using testing::ElementsAre;

const double kHalf = std::sqrt(0.5);

class MFnMeshNormalsTest : public MeshTest {
protected:
    static MVector at(const MFloatVectorArray& normals, unsigned int index) { return MVector(normals[index]); }
};

TEST_F(MFnMeshNormalsTest, whatIsNotThereFails) {
    const MFnMesh none;
    const MFnMesh mesh(node("m"));
    MStatus status;
    MVector normal(9, 9, 9);
    MFloatVectorArray normals;
    MIntArray counts;
    MIntArray ids;
    EXPECT_EQ(none.getNormals(normals), MStatus::kFailure);
    EXPECT_EQ(none.getNormalIds(counts, ids), MStatus::kFailure);
    EXPECT_EQ(none.getFaceNormalIds(0, ids), MStatus::kFailure);
    EXPECT_EQ(none.getVertexNormals(false, normals), MStatus::kFailure);
    EXPECT_EQ(none.getPolygonNormal(0, normal), MStatus::kFailure);
    none.isNormalLocked(0, &status);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(mesh.getNormals(normals, MSpace::kWorld), MStatus::kFailure) << "without a path";
    EXPECT_EQ(mesh.getFaceNormalIds(2, ids), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getFaceVertexNormals(2, normals), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getFaceVertexNormal(0, 4, normal), MStatus::kInvalidParameter) << "not a vertex of face 0";
    EXPECT_EQ(mesh.getVertexNormal(6, false, normal), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPolygonNormal(-1, normal), MStatus::kInvalidParameter);
    mesh.isNormalLocked(6, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_EQ(normal, MVector(9, 9, 9));
}

TEST_F(MFnMeshNormalsTest, oneForEachGroupOfCorners) {
    const MFnMesh mesh(node("m"));
    MFloatVectorArray normals;
    ASSERT_EQ(mesh.getNormals(normals), MStatus::kSuccess);
    ASSERT_EQ(normals.length(), 6U);
    EXPECT_TRUE(isNear(at(normals, 0), MVector(0, 0, 1)));
    EXPECT_TRUE(isNear(at(normals, 1), MVector(kHalf, 0, kHalf))) << "shared across the soft edge";
    EXPECT_TRUE(isNear(at(normals, 4), MVector(1, 0, 0)));
    MIntArray counts;
    MIntArray ids;
    ASSERT_EQ(mesh.getNormalIds(counts, ids), MStatus::kSuccess);
    EXPECT_THAT(list(counts), ElementsAre(4, 4));
    EXPECT_THAT(list(ids), ElementsAre(0, 1, 2, 3, 1, 4, 5, 2));
    ASSERT_EQ(mesh.getFaceNormalIds(1, ids), MStatus::kSuccess);
    EXPECT_THAT(list(ids), ElementsAre(1, 4, 5, 2));
}

TEST_F(MFnMeshNormalsTest, byCorner) {
    const MFnMesh mesh(node("m"));
    MFloatVectorArray normals;
    ASSERT_EQ(mesh.getFaceVertexNormals(1, normals), MStatus::kSuccess);
    ASSERT_EQ(normals.length(), 4U);
    EXPECT_TRUE(isNear(at(normals, 0), MVector(kHalf, 0, kHalf)));
    EXPECT_TRUE(isNear(at(normals, 2), MVector(1, 0, 0)));
    MVector normal;
    ASSERT_EQ(mesh.getFaceVertexNormal(1, 2, normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(kHalf, 0, kHalf))) << "by the vertex's number in the mesh";
    ASSERT_EQ(mesh.getPolygonNormal(1, normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(1, 0, 0)));
}

TEST_F(MFnMeshNormalsTest, ofVerticesWhateverTheEdgesSay) {
    run("setAttr \"m.ed[1]\" 1 2 0");
    const MFnMesh mesh(node("m"));
    EXPECT_EQ(mesh.numNormals(), 8) << "all edges are hard now";
    MVector normal;
    ASSERT_EQ(mesh.getVertexNormal(1, normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(kHalf, 0, kHalf)));
    ASSERT_EQ(mesh.getVertexNormal(0, true, normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(0, 0, 1)));
    MFloatVectorArray normals;
    ASSERT_EQ(mesh.getVertexNormals(false, normals), MStatus::kSuccess);
    ASSERT_EQ(normals.length(), 6U);
    EXPECT_TRUE(isNear(at(normals, 2), MVector(kHalf, 0, kHalf)));
}

TEST_F(MFnMeshNormalsTest, inWorldSpaceTheyStayAcross) {
    const MFnMesh mesh(path("m"));
    MFloatVectorArray normals;
    ASSERT_EQ(mesh.getNormals(normals, MSpace::kWorld), MStatus::kSuccess);
    // The mesh is twice as wide there, so what leans to the side leans half as much.
    const MVector leaning = MVector(0.5, 0, 1).normal();
    EXPECT_TRUE(isNear(at(normals, 1), leaning));
    MVector normal;
    ASSERT_EQ(mesh.getFaceVertexNormal(0, 1, normal, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, leaning));
    ASSERT_EQ(mesh.getPolygonNormal(1, normal, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(1, 0, 0)));
    ASSERT_EQ(mesh.getVertexNormals(false, normals, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(isNear(at(normals, 1), leaning));
}

TEST_F(MFnMeshNormalsTest, whatUsersSetStays) {
    run("setAttr -s 6 \"m.n[0:5]\" -type \"float3\" 0 2 0 1e20 1e20 1e20 1e20 1e20 1e20 1e20 1e20 1e20 1e20 1e20 "
        "1e20 1e20 1e20 1e20");
    const MFnMesh mesh(node("m"));
    EXPECT_TRUE(mesh.isNormalLocked(0));
    EXPECT_FALSE(mesh.isNormalLocked(1));
    MVector normal;
    ASSERT_EQ(mesh.getFaceVertexNormal(0, 0, normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(0, 1, 0))) << "of unit length";
}

TEST_F(MFnMeshNormalsTest, facesWithoutAreaHaveNone) {
    makePolygon("line", {0, 0, 1, 0, 2, 0});
    const MFnMesh mesh(path("line"));
    MVector normal;
    ASSERT_EQ(mesh.getPolygonNormal(0, normal, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_EQ(normal, MVector(0, 0, 0));
    ASSERT_EQ(mesh.getFaceVertexNormal(0, 1, normal), MStatus::kSuccess);
    EXPECT_EQ(normal, MVector(0, 0, 0));
}

} // namespace
} // namespace host
