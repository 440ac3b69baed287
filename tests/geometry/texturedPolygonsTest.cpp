#include "geometry/ShapeFaces.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class TexturedPolygons : public testing::Test {
protected:
    // A shader "paint" in paint_group whose colour is a picture of that size.
    std::string paint(std::size_t width, std::size_t height, const std::string& attributes = "") {
        writeImage(session.folder.path("picture.tga"), pictureOfColors(width, height, 4));
        return fileTextureText("picture", session.folder.path("picture.tga")) + shaderText("paint", "picture") +
               (attributes.empty() ? "" : "select -ne \"paint\";\n\t" + attributes + "\n");
    }

    static std::string painted(const MeshSpec& mesh) { return meshNode("a", mesh, "", "paint_group"); }

    std::vector<FixedTexCoord> texCoords() const {
        std::vector<FixedTexCoord> result;
        for (const CornerSource& corner : session.polygon().parts.front().corners) {
            result.push_back(corner.texCoord);
        }
        return result;
    }

    static std::string generated(int mode, int source) {
        return addedAttribute("tvk_tex_gen_mode", "enum", std::to_string(mode)) +
               addedAttribute("tvk_tex_gen_st_src", "enum", std::to_string(source));
    }

    GeometrySession session;
};

using TexCoords = std::vector<FixedTexCoord>;

TEST_F(TexturedPolygons, CountSixteenthsOfATexelFromTheTop) {
    ASSERT_TRUE(session.buildRecordsOf(paint(64, 64) + painted(withUvs(square()))));
    EXPECT_TRUE(session.polygon().texFlag);
    // (0,0) (1,0) (1,1) (0,1)
    EXPECT_EQ(texCoords(), (TexCoords{{0, 1024}, {1024, 1024}, {1024, 0}, {0, 0}}));
    EXPECT_EQ(session.takeMessages(), "");
}

// The picture lies undistorted in the corner of the padded texture.
TEST_F(TexturedPolygons, CountTexelsOfThePictureNotOfThePaddedTexture) {
    ASSERT_TRUE(session.buildRecordsOf(paint(100, 64) + painted(withUvs(square()))));
    EXPECT_EQ(texCoords()[1], (FixedTexCoord{1600, 1024}));
}

TEST_F(TexturedPolygons, WarnOncePerShapeOfFacesWithoutTexCoords) {
    MeshSpec mesh = withUvs(row(3));
    mesh.faceUvs[1].clear();
    mesh.faceUvs[2].clear();
    ASSERT_TRUE(session.buildRecordsOf(paint(64, 64) + painted(mesh)));
    EXPECT_EQ(session.takeMessages(), "Warning: Can't get UV: |a|aShape.f[1]\n");
    EXPECT_EQ(texCoords()[4], (FixedTexCoord{0, 1024})); // that of u = v = 0
}

TEST_F(TexturedPolygons, HaveNoTextureWhereNoFaceOfTheGroupHasTexCoords) {
    ASSERT_TRUE(session.buildRecordsOf(paint(64, 64) + painted(square())));
    EXPECT_FALSE(session.polygon().texFlag);
    EXPECT_EQ(session.polygon().textureSource, -1);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(TexturedPolygons, WarnOncePerShapeOfTexCoordsOutOfRangeAndClampThem) {
    MeshSpec mesh = withUvs(row(2));
    mesh.uvs[2] = {100, -0.5};
    mesh.uvs[4] = {-100, 0};
    ASSERT_TRUE(session.buildRecordsOf(paint(64, 64) + painted(mesh)));
    EXPECT_EQ(session.takeMessages(), "Warning: UV range over: |a|aShape.f[0] (6400.000000, 96.000000)\n");
    EXPECT_EQ(texCoords()[1], (FixedTexCoord{32767, 1536}));
    EXPECT_EQ(texCoords()[5], (FixedTexCoord{-32768, 1024}));
}

TEST_F(TexturedPolygons, WarnAnewForEveryInstance) {
    MeshSpec mesh = withUvs(square());
    mesh.uvs[2] = {100, 0};
    ASSERT_TRUE(session.buildRecordsOf(paint(64, 64) + painted(mesh) + nodeText("transform", "b") +
                                       "parent -s -nc -r -add \"|a|aShape\" \"b\";\n" +
                                       "connectAttr \"|b|aShape.iog\" \"paint_group.dsm\" -na;\n"));
    EXPECT_EQ(session.takeMessages(), "Warning: UV range over: |a|aShape.f[0] (6400.000000, 64.000000)\n"
                                      "Warning: UV range over: |b|aShape.f[0] (6400.000000, 64.000000)\n");
}

struct GeneratedCase {
    int mode, source; // 0 none, 1 texture coordinates, 2 normals, 3 positions; 0 polygon, 1 material
    bool hasTexCoords, resets;
};

class GeneratedTexCoords : public TexturedPolygons, public testing::WithParamInterface<GeneratedCase> {};

TEST_P(GeneratedTexCoords, AreNeededUnlessTheMaterialMakesThem) {
    ASSERT_TRUE(session.buildRecordsOf(paint(64, 64, generated(GetParam().mode, GetParam().source)) +
                                       painted(withUvs(square()))));
    EXPECT_EQ(session.polygon().texFlag, GetParam().hasTexCoords);
    EXPECT_EQ(session.polygon().resetNormalAfterTexture, GetParam().resets);
    EXPECT_TRUE(session.polygon().nrmFlag);
}

INSTANTIATE_TEST_SUITE_P(Modes, GeneratedTexCoords,
                         testing::Values(GeneratedCase{0, 1, true, false}, GeneratedCase{1, 1, true, false},
                                         GeneratedCase{2, 1, false, false}, GeneratedCase{3, 1, false, false},
                                         GeneratedCase{2, 0, true, true}, GeneratedCase{3, 0, true, false}));

} // namespace
} // namespace tvk
