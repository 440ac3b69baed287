#include "material/textureSource.h"

#include "MaterialSession.h"
#include "scene/messages.h"
#include "sceneText.h"
#include "textureScene.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

using testing::IsEmpty;

// The workspace is the test's folder.
class TextureSource : public testing::Test, public MaterialSession {
protected:
    void make(const std::string& name, std::size_t width, std::size_t height) {
        writeImage(folder.path(name), Picture(width, height));
    }
    bool isFound(const std::string& fileNode, int material = 0) {
        source = ref = -7;
        const bool success = getTextureSource(node(fileNode), material, source, ref) == MS::kSuccess;
        EXPECT_EQ(source == -7, !success);
        EXPECT_EQ(ref == -7, !success);
        return success;
    }
    const MaterialTextureRef& reference() const { return run().scene.textureRefs.at(static_cast<std::size_t>(ref)); }
    const TextureSourceRecord& record() const {
        return run().scene.textureSources.at(static_cast<std::size_t>(source));
    }

    int source = -7, ref = -7;
};

TEST_F(TextureSource, WithoutImageNameFails) {
    open(fileTextureText("file1", ""));
    EXPECT_FALSE(isFound("file1"));
    EXPECT_EQ(takeMessages(), "Error: No texture image name: file1\n");
    EXPECT_FALSE(warningRaised());
    EXPECT_THAT(run().scene.textureSources, IsEmpty());
}

TEST_F(TextureSource, WithoutImageNameIsOnlyWarnedOfInANameCheck) {
    run().options.quietTextureWarnings = true;
    open(fileTextureText("file1", ""));
    EXPECT_TRUE(isFound("file1"));
    EXPECT_EQ(takeMessages(), "Warning: No texture image name: file1\n");
    EXPECT_EQ(record().path, folder.path() + "/");
    EXPECT_EQ(run().scene.textures.at(0).width, 8);
}

TEST_F(TextureSource, WithAnUnreadableImageFailsAndAddsNothing) {
    open(fileTextureText("file1", "none.tga"));
    EXPECT_FALSE(isFound("file1"));
    EXPECT_EQ(takeMessages(), "Error: Can't open file: " + folder.path("none.tga") + "\n       (used by file1)\n");
    EXPECT_THAT(run().scene.textureSources, IsEmpty());
    EXPECT_THAT(run().scene.textureRefs, IsEmpty());
}

TEST_F(TextureSource, Of2048By16Fails) {
    make("a.tga", 2048, 16);
    open(fileTextureText("file1", "a.tga"));
    EXPECT_FALSE(isFound("file1"));
    EXPECT_EQ(takeMessages(), "Error: Texture size over: a (2048 x 16)\n");
}

TEST_F(TextureSource, KeepsNodePathAndMaterial) {
    make("a.tga", 8, 8);
    open(placedTextureText("file1", "a.tga", "setAttr \".reu\" 2;"));
    EXPECT_TRUE(isFound("file1", 5));
    EXPECT_EQ(record().fileNode, node("file1"));
    EXPECT_EQ(record().fileNodeName, "file1");
    EXPECT_EQ(record().path, folder.path("a.tga"));
    EXPECT_EQ(record().materialIndex, 5);
    EXPECT_EQ(record().textureRef, ref);
    EXPECT_EQ(record().placement.scale[0], 2.0F);
    EXPECT_FALSE(record().texPatternAnimated);
    EXPECT_FALSE(record().texSrtAnimated);
    EXPECT_EQ(takeMessages(), "");
}

TEST_F(TextureSource, IsOneForOneFileAndMaterial) {
    make("a.tga", 8, 8);
    open(fileTextureText("file1", "a.tga") + fileTextureText("file2", "a.tga"));
    EXPECT_TRUE(isFound("file1", 0));
    EXPECT_TRUE(isFound("file2", 0));
    EXPECT_EQ(source, 1);
    EXPECT_TRUE(isFound("file1", 0));
    EXPECT_EQ(source, 0);
    EXPECT_EQ(run().scene.textureSources.size(), 2U);
}

TEST_F(TextureSource, OfOneFileInTwoMaterialsAreTwoWithOneImage) {
    make("a.tga", 8, 8);
    open(fileTextureText("file1", "a.tga"));
    EXPECT_TRUE(isFound("file1", 0));
    EXPECT_TRUE(isFound("file1", 1));
    EXPECT_EQ(source, 1);
    EXPECT_EQ(ref, 0);
    EXPECT_EQ(run().scene.textures.size(), 1U);
    EXPECT_EQ(run().scene.textureRefs.size(), 1U);
}

TEST_F(TextureSource, OfOneImageWithOtherWrappingIsOneImageAndTwoReferences) {
    make("a.tga", 8, 8);
    open(fileTextureText("file1", "a.tga") + fileTextureText("file2", "a.tga", "setAttr \".wu\" no;"));
    EXPECT_TRUE(isFound("file1", 0));
    EXPECT_TRUE(isFound("file2", 1));
    EXPECT_EQ(run().scene.textures.size(), 1U);
    EXPECT_EQ(run().scene.textureRefs.size(), 2U);
    EXPECT_EQ(ref, 1);
}

TEST_F(TextureSource, CanBeDroppedAndFoundAnew) {
    make("a.tga", 8, 8);
    open(fileTextureText("file1", "a.tga") + fileTextureText("file2", "a.tga"));
    EXPECT_TRUE(isFound("file1", 0));
    EXPECT_TRUE(isFound("file2", 1));
    dropTextureSource(source);
    EXPECT_EQ(run().scene.textureSources.size(), 1U);
    EXPECT_TRUE(isFound("file1", 1));
    EXPECT_EQ(source, 1);
    EXPECT_EQ(record().fileNodeName, "file1");
    EXPECT_TRUE(isFound("file1", 0));
    EXPECT_EQ(source, 0);
}

struct TilingCase {
    const char* attributes;
    int32_t s, t;
};

class Tiling : public TextureSource, public testing::WithParamInterface<TilingCase> {};

TEST_P(Tiling, FollowsMirrorThenWrap) {
    make("a.tga", 8, 8);
    open(fileTextureText("file1", "a.tga", GetParam().attributes));
    EXPECT_TRUE(isFound("file1"));
    EXPECT_EQ(reference().tilingS, GetParam().s);
    EXPECT_EQ(reference().tilingT, GetParam().t);
}

INSTANTIATE_TEST_SUITE_P(WrappingIsTheDefault, Tiling, testing::Values(TilingCase{"", kTilingRepeat, kTilingRepeat}));
INSTANTIATE_TEST_SUITE_P(ClampsWithoutBoth, Tiling,
                         testing::Values(TilingCase{"setAttr \".wu\" no;", kTilingClamp, kTilingRepeat},
                                         TilingCase{"setAttr \".wv\" no;", kTilingRepeat, kTilingClamp}));
INSTANTIATE_TEST_SUITE_P(MirrorAndWrapTogetherFlip, Tiling,
                         testing::Values(TilingCase{"setAttr \".mu\" yes;", kTilingFlip, kTilingRepeat},
                                         TilingCase{"setAttr \".mv\" yes;", kTilingRepeat, kTilingFlip}));
INSTANTIATE_TEST_SUITE_P(MirrorAloneFlipsToo, Tiling,
                         testing::Values(TilingCase{"setAttr \".mu\" yes;\n\tsetAttr \".wu\" no;", kTilingFlip,
                                                    kTilingRepeat}));

TEST_F(TextureSource, TilesAsThePlacementNodeHandsDown) {
    make("a.tga", 8, 8);
    open(placedTextureText("file1", "a.tga", "setAttr \".wu\" no;\n\tsetAttr \".mv\" yes;"));
    EXPECT_TRUE(isFound("file1"));
    EXPECT_EQ(reference().tilingS, kTilingClamp);
    EXPECT_EQ(reference().tilingT, kTilingFlip);
}

struct TiledSizeCase {
    std::size_t width, height;
    const char* attributes;
    std::string messages;
};

class TiledSize : public TextureSource, public testing::WithParamInterface<TiledSizeCase> {};

TEST_P(TiledSize, IsWarnedOfWhenTheConsoleCannotTileIt) {
    make("a.tga", GetParam().width, GetParam().height);
    open(fileTextureText("file1", "a.tga", GetParam().attributes));
    EXPECT_TRUE(isFound("file1"));
    EXPECT_EQ(takeMessages(), GetParam().messages);
    EXPECT_EQ(warningRaised(), !GetParam().messages.empty());
}

TEST_P(TiledSize, IsNotWarnedOfInANameCheck) {
    run().options.quietTextureWarnings = true;
    make("a.tga", GetParam().width, GetParam().height);
    open(fileTextureText("file1", "a.tga", GetParam().attributes));
    EXPECT_TRUE(isFound("file1"));
    EXPECT_EQ(takeMessages(), "");
}

const char* const kClampBoth = "setAttr \".wu\" no;\n\tsetAttr \".wv\" no;";

INSTANTIATE_TEST_SUITE_P(
    Of100By64IsNoPowerOfTwoWide, TiledSize,
    testing::Values(TiledSizeCase{100, 64, "",
                                  "Warning: Size of texture is wrong: a (100 x 64)\n"
                                  "Warning: Texture width must be power of 2 for repeat/flip: file1 (a) (100 x 64)\n"},
                    TiledSizeCase{100, 64, "setAttr \".mu\" yes;",
                                  "Warning: Size of texture is wrong: a (100 x 64)\n"
                                  "Warning: Texture width must be power of 2 for repeat/flip: file1 (a) (100 x 64)\n"},
                    TiledSizeCase{100, 64, kClampBoth, "Warning: Size of texture is wrong: a (100 x 64)\n"}));
INSTANTIATE_TEST_SUITE_P(
    Of64By100IsNoPowerOfTwoHigh, TiledSize,
    testing::Values(TiledSizeCase{64, 100, "",
                                  "Warning: Size of texture is wrong: a (64 x 100)\n"
                                  "Warning: Texture height must be power of 2 for repeat/flip: file1 (a) (64 x 100)\n"},
                    TiledSizeCase{64, 100, "setAttr \".wv\" no;",
                                  "Warning: Size of texture is wrong: a (64 x 100)\n"}));
INSTANTIATE_TEST_SUITE_P(
    Of4By4IsTooSmallBothWays, TiledSize,
    testing::Values(
        TiledSizeCase{4, 4, "",
                      "Warning: Size of texture is wrong: a (4 x 4)\n"
                      "Warning: Texture width must be greater equal 8 for repeat/flip: file1 (a) (4 x 4)\n"
                      "Warning: Texture height must be greater equal 8 for repeat/flip: file1 (a) (4 x 4)\n"},
        TiledSizeCase{4, 4, kClampBoth, "Warning: Size of texture is wrong: a (4 x 4)\n"},
        TiledSizeCase{1, 6, "",
                      "Warning: Size of texture is wrong: a (1 x 6)\n"
                      "Warning: Texture width must be greater equal 8 for repeat/flip: file1 (a) (1 x 6)\n"
                      "Warning: Texture height must be power of 2 for repeat/flip: file1 (a) (1 x 6)\n"}));
INSTANTIATE_TEST_SUITE_P(Of8By1024IsFine, TiledSize, testing::Values(TiledSizeCase{8, 1024, "", ""}));

TEST_F(TextureSource, Of4By4IsWidenedTo8) {
    make("a.tga", 4, 4);
    open(fileTextureText("file1", "a.tga"));
    EXPECT_TRUE(isFound("file1"));
    EXPECT_EQ(run().scene.textures.at(0).width, 8);
    EXPECT_EQ(run().scene.textures.at(0).originalWidth, 4);
}

TEST_F(TextureSource, WithAMovingPlacementIsRemembered) {
    make("a.tga", 8, 8);
    open(placedTextureText("file1", "a.tga") + steppedCurveText("curve", "1 0 5 90", 2) +
         "connectAttr \"curve.o\" \"file1_placement.rf\";\n");
    EXPECT_TRUE(isFound("file1"));
    EXPECT_TRUE(record().texSrtAnimated);
}

TEST_F(TextureSource, InLargeNumbersIsStillTheFirstOfItsKind) {
    std::string scene;
    constexpr int kCount = 300;
    make("a.tga", 8, 8);
    for (int i = 0; i < kCount; ++i) {
        const std::string name = "file" + std::to_string(i);
        scene += fileTextureText(name, "a.tga", i % 2 == 0 ? "setAttr \".wu\" no;" : "");
    }
    open(scene);
    for (int i = 0; i < kCount; ++i) {
        EXPECT_TRUE(isFound("file" + std::to_string(i), i));
        EXPECT_EQ(source, i);
        EXPECT_EQ(ref, i % 2);
    }
    EXPECT_EQ(run().scene.textures.size(), 1U);
}

} // namespace
} // namespace tvk
