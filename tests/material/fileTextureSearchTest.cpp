#include "material/fileTextureSearch.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"

#include "scene/hostCompatibility.h"

#include <maya/MFnDependencyNode.h>

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

class FileTextureSearch : public testing::Test {
protected:
    FileTextureSearch() { session.prepareRun(); }

    // The name of the texture on the colour of "skin", "" for none.
    std::string textureOf(const std::string& statements) {
        session.open(nodeText("lambert", "skin") + statements);
        const MObject texture = findFileTexture(findPlug(MFnDependencyNode(session.node("skin")), "color"));
        return texture.isNull() ? "" : textOf(MFnDependencyNode(texture).name());
    }

    ExportSession session;
};

TEST_F(FileTextureSearch, NothingConnectedIsNoTexture) {
    EXPECT_EQ(textureOf(""), "");
    EXPECT_TRUE(findFileTexture(MPlug()).isNull());
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(FileTextureSearch, AFileTexture) {
    EXPECT_EQ(textureOf(nodeText("file", "hide") + connectText("hide.oc", "skin.c")), "hide");
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(FileTextureSearch, OfSingleComponentsTheFirstDecides) {
    EXPECT_EQ(textureOf(nodeText("file", "green") + nodeText("file", "blue") + connectText("blue.ocb", "skin.cb") +
                        connectText("green.ocg", "skin.cg")),
              "green");
    EXPECT_EQ(textureOf(nodeText("file", "blue") + keysText("skin.cr", "keys") + connectText("blue.ocb", "skin.cb")),
              "");
}

TEST_F(FileTextureSearch, NodesInBetweenAreNotLookedThrough) {
    EXPECT_EQ(textureOf(nodeText("file", "hide") + nodeText("reverse", "negative") +
                        connectText("hide.oc", "negative.i") + connectText("negative.o", "skin.c")),
              "");
    EXPECT_EQ(session.takeMessages(), "");
}

// --- layers

std::string layer(int index, const std::string& texture) {
    return connectText(texture + ".oc", "layers.cs[" + std::to_string(index) + "].c");
}

TEST_F(FileTextureSearch, TheFirstLayerThatIsAFileIsTaken) {
    EXPECT_EQ(textureOf(nodeText("layeredTexture", "layers") + nodeText("checker", "squares") +
                        nodeText("file", "second") + nodeText("file", "first") + layer(7, "second") +
                        layer(5, "first") + layer(2, "squares") + connectText("layers.oc", "skin.c")),
              "first");
    EXPECT_EQ(session.takeMessages(), "Warning: Layered texture is used (use first layer only): layers\n");
    EXPECT_TRUE(run().warningRaised);
}

TEST_F(FileTextureSearch, LayersWithoutAFileAreNoTexture) {
    EXPECT_EQ(textureOf(nodeText("layeredTexture", "layers") + nodeText("checker", "squares") + layer(0, "squares") +
                        connectText("layers.oc", "skin.c")),
              "");
    EXPECT_EQ(textureOf(nodeText("layeredTexture", "layers") + connectText("layers.oc", "skin.c")), "");
    EXPECT_EQ(session.takeMessages(), "Warning: Layered texture is used (use first layer only): layers\n"
                                      "Warning: Layered texture is used (use first layer only): layers\n");
}

// --- textures that are computed

TEST_F(FileTextureSearch, ProceduralTexturesAreIgnoredWithAWarning) {
    for (const std::string type : {"bulge", "checker", "cloth", "fractal", "grid", "mountain", "ramp", "water", "ocean",
                                   "noise", "fluidTexture2D", "mandelbrot", "mandelbrot3D"}) {
        EXPECT_EQ(textureOf(nodeText(type, "pattern") + connectText("pattern.oc", "skin.c")), "") << type;
        EXPECT_EQ(session.takeMessages(), "Warning: Procedural texture is ignored: pattern\n") << type;
    }
    EXPECT_TRUE(run().warningRaised);
}

TEST_F(FileTextureSearch, OthersAreIgnoredSilently) {
    for (const std::string type : {"stencil", "psdFileTex", "brownian", "wood", "projection", "blendColors"}) {
        const std::string out = type == "blendColors" ? "pattern.op" : "pattern.oc";
        EXPECT_EQ(textureOf(nodeText(type, "pattern") + connectText(out, "skin.c")), "") << type;
        EXPECT_EQ(session.takeMessages(), "") << type;
    }
}

TEST_F(FileTextureSearch, ANameCheckWarnsOfNeither) {
    run().options.quietTextureWarnings = true;
    EXPECT_EQ(textureOf(nodeText("layeredTexture", "layers") + nodeText("file", "hide") + layer(0, "hide") +
                        connectText("layers.oc", "skin.c")),
              "hide");
    EXPECT_EQ(textureOf(nodeText("checker", "squares") + connectText("squares.oc", "skin.c")), "");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(run().warningRaised);
}

// --- broken graphs

TEST_F(FileTextureSearch, LayersThatAreTheirOwnLayer) {
    EXPECT_EQ(textureOf(nodeText("layeredTexture", "layers") + layer(0, "layers") + connectText("layers.oc", "skin.c")),
              "");
}

} // namespace
} // namespace tvk
