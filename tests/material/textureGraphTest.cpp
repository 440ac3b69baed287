#include "material/textureGraph.h"

#include "MaterialSession.h"
#include "sceneText.h"
#include "textureScene.h"

#include "scene/hostCompatibility.h"

#include <maya/MFnDependencyNode.h>

#include <gtest/gtest.h>

namespace tvk {
namespace {

class TextureGraph : public testing::Test, public MaterialSession {
protected:
    // Name of the plug that drives file1's frame extension; "" for none.
    std::string driver() const {
        const MPlug found = driverThroughCharacter(findPlug(MFnDependencyNode(node("file1")), "frameExtension"));
        return found.isNull() ? "" : textOf(found.name());
    }
    static std::string connected(const std::string& from, const std::string& to) {
        return "connectAttr \"" + from + "\" \"" + to + "\";\n";
    }
};

TEST_F(TextureGraph, NothingDrivesAPlugWithoutConnection) {
    open(fileTextureText("file1", "a.tga"));
    EXPECT_EQ(driver(), "");
    EXPECT_TRUE(driverThroughCharacter(MPlug()).isNull());
}

TEST_F(TextureGraph, NothingDrivesAPlugBehindAConversionOrCharacterWithoutInput) {
    open(fileTextureText("file1", "a.tga") + nodeText("unitConversion", "conversion") +
         connected("conversion.o", "file1.fe"));
    EXPECT_EQ(driver(), "");
    open(fileTextureText("file1", "a.tga") + nodeText("character", "character1") +
         connected("character1.uv[0]", "file1.fe"));
    EXPECT_EQ(driver(), "");
}

TEST_F(TextureGraph, CurveDrivesDirectlyOrThroughConversionsAroundOneCharacter) {
    const std::string scene = fileTextureText("file1", "a.tga") + steppedCurveText("curve", "1 1 2 2", 2) +
                              nodeText("character", "character1") + nodeText("unitConversion", "first") +
                              nodeText("unitConversion", "second");
    open(scene + connected("curve.o", "file1.fe"));
    EXPECT_EQ(driver(), "curve.output");
    open(scene + connected("curve.o", "first.i") + connected("first.o", "file1.fe"));
    EXPECT_EQ(driver(), "curve.output");
    open(scene + connected("curve.o", "first.i") + connected("first.o", "character1.uv[4]") +
         connected("character1.uv[4]", "second.i") + connected("second.o", "file1.fe"));
    EXPECT_EQ(driver(), "curve.output");
}

TEST_F(TextureGraph, SecondConversionInARowIsNotSteppedThrough) {
    open(fileTextureText("file1", "a.tga") + steppedCurveText("curve", "1 1 2 2", 2) +
         nodeText("unitConversion", "first") + nodeText("unitConversion", "second") + connected("curve.o", "first.i") +
         connected("first.o", "second.i") + connected("second.o", "file1.fe"));
    EXPECT_EQ(driver(), "first.output");
}

TEST_F(TextureGraph, SourceNodeIsGivenOnlyWhenItIsOfTheType) {
    open(placedTextureText("file1", "a.tga"));
    EXPECT_EQ(sourceNodeOf(node("file1"), "wrapU", MFn::kPlace2dTexture), node("file1_placement"));
    EXPECT_TRUE(sourceNodeOf(node("file1"), "wrapU", MFn::kUvChooser).isNull());
    EXPECT_TRUE(sourceNodeOf(node("file1"), "frameExtension", MFn::kPlace2dTexture).isNull());
    EXPECT_TRUE(sourceNodeOf(node("file1"), "noSuchAttribute", MFn::kPlace2dTexture).isNull());
}

} // namespace
} // namespace tvk
