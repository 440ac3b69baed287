#include "material/texturePlacement.h"

#include "MaterialSession.h"
#include "sceneText.h"
#include "textureScene.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvk {
namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;

TEST(PlacementDegrees, AreMinus180ToBelow180) {
    const std::pair<double, float> rows[] = {{0.0, 0.0F},       {90.0, 90.0F},    {-90.0, -90.0F},  {180.0, -180.0F},
                                             {-180.0, -180.0F}, {190.0, -170.0F}, {-190.0, 170.0F}, {360.0, 0.0F},
                                             {-360.0, 0.0F},    {540.0, -180.0F}, {725.0, 5.0F},    {-725.0, -5.0F}};
    for (const auto& [degrees, expected] : rows) {
        EXPECT_NEAR(placementDegrees(degrees * kRadians), expected, 1e-4) << degrees;
        EXPECT_LT(placementDegrees(degrees * kRadians), 180.0F) << degrees;
        EXPECT_GE(placementDegrees(degrees * kRadians), -180.0F) << degrees;
    }
}

TEST(PlacementDegrees, DoNotRoundUpTo180) {
    EXPECT_EQ(placementDegrees(179.9999999999 * kRadians), -180.0F);
}

MString longNameOf(const MPlug& plug) {
    return plug.partialName(false, false, false, false, false, true);
}

class Placement : public testing::Test, public MaterialSession {
protected:
    TextureSourceRecord read(const std::string& scene) {
        open(scene);
        TextureSourceRecord source;
        source.fileNode = node("file1");
        readPlacement(source);
        return source;
    }
};

TEST_F(Placement, StaysAtTheDefaultsWithoutAPlacementNode) {
    const TextureSourceRecord source = read(fileTextureText("file1", "a.tga"));
    EXPECT_TRUE(source.placementNode.isNull());
    EXPECT_TRUE(source.placement.isIdentity);
    EXPECT_EQ(source.placement.scale, (std::array<float, 2>{1.0F, 1.0F}));
    EXPECT_FALSE(source.texSrtAnimated);
}

TEST_F(Placement, IsTheSourceOfWrapUOnly) {
    const TextureSourceRecord source =
        read(fileTextureText("file1", "a.tga") + nodeText("place2dTexture", "p", "", "setAttr \".reu\" 3;") +
             "connectAttr \"p.wv\" \"file1.wv\";\nconnectAttr \"p.o\" \"file1.uv\";\n");
    EXPECT_TRUE(source.placementNode.isNull());
    EXPECT_TRUE(source.placement.isIdentity);
}

TEST_F(Placement, AnotherTypeOfNodeAtWrapUIsNone) {
    const TextureSourceRecord source =
        read(fileTextureText("file1", "a.tga") + nodeText("reverse", "r") + "connectAttr \"r.ox\" \"file1.wu\";\n");
    EXPECT_TRUE(source.placementNode.isNull());
}

TEST_F(Placement, IsReadAsTheArtistSetIt) {
    const TextureSourceRecord source =
        read(placedTextureText("file1", "a.tga",
                               "setAttr \".re\" -type \"float2\" 2 0.5;\n\tsetAttr \".rf\" 190;\n"
                               "\tsetAttr \".tf\" -type \"float2\" 0.25 -3;"));
    EXPECT_EQ(source.placementNode, node("file1_placement"));
    EXPECT_EQ(source.placement.scale, (std::array<float, 2>{2.0F, 0.5F}));
    EXPECT_NEAR(source.placement.rotate, -170.0F, 1e-4);
    EXPECT_EQ(source.placement.translate, (std::array<float, 2>{0.25F, -3.0F}));
    EXPECT_FALSE(source.placement.isIdentity);
    EXPECT_FALSE(source.texSrtAnimated);
    EXPECT_STREQ(longNameOf(source.placementPlugs[0]).asChar(), "repeatU");
    EXPECT_STREQ(longNameOf(source.placementPlugs[4]).asChar(), "translateFrameV");
}

class Identity : public Placement, public testing::WithParamInterface<std::pair<const char*, bool>> {};

TEST_P(Identity, IsExact) {
    EXPECT_EQ(read(placedTextureText("file1", "a.tga", GetParam().first)).placement.isIdentity, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    All, Identity,
    testing::Values(std::pair{"", true}, std::pair{"setAttr \".reu\" 1.0001;", false},
                    std::pair{"setAttr \".rev\" 2;", false}, std::pair{"setAttr \".rf\" 0.001;", false},
                    std::pair{"setAttr \".rf\" 360;", true}, // nothing is turned
                    std::pair{"setAttr \".tfu\" 0.0001;", false}, std::pair{"setAttr \".tfv\" -1;", false},
                    // What the files have no place for.
                    std::pair{"setAttr \".ofu\" 0.5;", true}, std::pair{"setAttr \".r\" 45;", true},
                    std::pair{"setAttr \".s\" yes;", true}, std::pair{"setAttr \".cu\" 0.5;", true}));

TEST_F(Placement, KnowsTheUvChooserBehindIt) {
    const TextureSourceRecord source = read(placedTextureText("file1", "a.tga") + nodeText("uvChooser", "chooser") +
                                            "connectAttr \"chooser.ouv\" \"file1_placement.uv\";\n");
    EXPECT_EQ(source.uvChooser, node("chooser"));
}

TEST_F(Placement, TakesNothingElseForAUvChooser) {
    const TextureSourceRecord source = read(placedTextureText("file1", "a.tga") + nodeText("place2dTexture", "other") +
                                            "connectAttr \"other.o\" \"file1_placement.uv\";\n");
    EXPECT_TRUE(source.uvChooser.isNull());
}

struct DrivenCase {
    const char *attribute, *keys;
    bool animated;
};

class DrivenPlacement : public Placement, public testing::WithParamInterface<DrivenCase> {};

TEST_P(DrivenPlacement, IsAnimatedWhenItsCurveMoves) {
    const TextureSourceRecord source =
        read(placedTextureText("file1", "a.tga") + steppedCurveText("curve", GetParam().keys, 2) +
             "connectAttr \"curve.o\" \"file1_placement." + GetParam().attribute + "\";\n");
    EXPECT_EQ(source.texSrtAnimated, GetParam().animated);
}

INSTANTIATE_TEST_SUITE_P(All, DrivenPlacement,
                         testing::Values(DrivenCase{"reu", "1 1 9 2", true}, DrivenCase{"rev", "1 1 9 2", true},
                                         DrivenCase{"rf", "1 1 9 2", true}, DrivenCase{"tfu", "1 1 9 2", true},
                                         DrivenCase{"tfv", "1 1 9 2", true}, DrivenCase{"tfv", "1 2 9 2", false},
                                         DrivenCase{"ofu", "1 1 9 2", false}, DrivenCase{"r", "1 1 9 2", false}));

} // namespace
} // namespace tvk
