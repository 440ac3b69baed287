#include "export/materialPass.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include "export/nodeTransforms.h"
#include "export/nodeTree.h"
#include "geometry/polygonRecords.h"
#include "geometry/shapeReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MaterialPass : public testing::Test {
protected:
    // Everything up to the reading of materials.
    void open(const std::string& statements, const std::string& options = "") {
        session.open(statements);
        session.prepareRun(options);
        ASSERT_TRUE(buildNodeTree());
        session.takeMessages();
    }
    // Materials are asked for when the faces of the shapes are read.
    static MStatus gatherMaterials() {
        MStatus status = readNodeTransforms([](const NodeRecord&) { return std::nullopt; });
        status = status ? readShapes() : status;
        return status ? buildPolygonRecords() : status;
    }
    // Of the materials, in the order in which they were met.
    static std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const MaterialRecord& record : run().scene.materials) {
            result.push_back(record.name);
        }
        return result;
    }
    std::string image(const std::string& name) const {
        const std::string path = session.folder.path(name);
        writeImage(path, pictureOfColors(8, 8, 4));
        return path;
    }

    ExportSession session;
};

std::string faces(const std::string& shape, int group, const std::string& shadingGroup, const std::string& which) {
    const std::string place = shape + ".iog.og[" + std::to_string(group) + "]";
    return "setAttr \"" + place + ".gcl\" -type \"componentList\" 1 \"" + which + "\";\n" + "connectAttr \"" + place +
           "\" \"" + shadingGroup + ".dsm\" -na;\n";
}

TEST_F(MaterialPass, ASceneWithoutMeshesHasNoMaterials) {
    open(nodeText("transform", "a") + shadingText("lambert", "unused"));
    EXPECT_TRUE(gatherMaterials());
    EXPECT_TRUE(settleMaterials());
    EXPECT_THAT(run().scene.materials, IsEmpty());
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(MaterialPass, ShapesAreAskedInNodeListOrder) {
    open(shadingText("lambert", "late") + shadingText("lambert", "early") + shadedMesh("b", "lateSG") +
         shadedMesh("a", "earlySG"));
    EXPECT_TRUE(gatherMaterials());
    EXPECT_THAT(names(), ElementsAre("early", "late"));
}

TEST_F(MaterialPass, EveryGroupOfFacesHasItsMaterial) {
    open(shadingText("lambert", "one") + shadingText("lambert", "two") + shadingText("lambert", "old") +
         nodeText("transform", "a") + meshText("aShape", "a") + faces("aShape", 3, "twoSG", "f[0]") +
         faces("aShape", 5, "oneSG", "f[0]") + "connectAttr \"aShape.iog\" \"oldSG.dsm\" -na;\n");
    EXPECT_TRUE(gatherMaterials());
    EXPECT_THAT(names(), ElementsAre("two", "one")); // the whole shape's group is a left-over
}

TEST_F(MaterialPass, InstancesHaveMaterialsOfTheirOwn) {
    open(shadingText("lambert", "first") + shadingText("lambert", "second") + nodeText("transform", "a") +
         meshText("shared", "a") + nodeText("transform", "b") + "parent -s -nc -r -add \"|a|shared\" \"b\";\n" +
         "connectAttr \"|a|shared.iog[0]\" \"firstSG.dsm\" -na;\n"
         "connectAttr \"|b|shared.iog[1]\" \"secondSG.dsm\" -na;\n");
    EXPECT_TRUE(gatherMaterials());
    EXPECT_THAT(names(), ElementsAre("first", "second"));
}

TEST_F(MaterialPass, OtherSetsAreNoMaterials) {
    open(shadingText("lambert", "skin") + shadedMesh("a", "skinSG") + nodeText("objectSet", "picked") +
         "connectAttr \"aShape.iog\" \"picked.dsm\" -na;\n");
    EXPECT_TRUE(gatherMaterials());
    EXPECT_THAT(names(), ElementsAre("skin"));
}

TEST_F(MaterialPass, NamesAreMadeUniqueBeforeTheyAreSorted) {
    open(shadingText("lambert", "skin") + nodeText("shadingEngine", "otherSG") + connectText("skin.oc", "otherSG.ss") +
         shadingText("lambert", "skin_0") + shadedMesh("a", "skinSG") + shadedMesh("b", "skin_0SG") +
         shadedMesh("c", "otherSG"));
    EXPECT_TRUE(gatherMaterials());
    EXPECT_TRUE(settleMaterials());
    EXPECT_THAT(names(), ElementsAre("skin", "skin_0", "skin_1"));
    EXPECT_THAT(run().scene.materialOrder, ElementsAre(0, 1, 2));
    EXPECT_EQ(session.takeMessages(), "Warning: Material name changed: skin (otherSG) -> skin_1\n");
}

// --- textures

TEST_F(MaterialPass, ATextureThatCannotBeTakenFails) {
    open(nodeText("file", "hide") + shadingText("lambert", "skin") + connectText("hide.oc", "skin.c") +
         shadedMesh("a", "skinSG"));
    EXPECT_FALSE(gatherMaterials());
    EXPECT_EQ(session.takeMessages(), "Error: No texture image name: hide\n");
}

TEST_F(MaterialPass, AMeshWithoutTextureCoordinatesAsksForNoTexture) {
    open(placedTextureText("hide", session.folder.path("missing.tga")) + shadingText("lambert", "skin") +
         connectText("hide.oc", "skin.c") + nodeText("transform", "a") + meshText("aShape", "a") +
         "connectAttr \"aShape.iog\" \"skinSG.dsm\" -na;\n");
    EXPECT_TRUE(gatherMaterials());
    EXPECT_THAT(names(), ElementsAre("skin"));
    EXPECT_EQ(run().scene.materials.at(0).textureRef, -1);
}

TEST_F(MaterialPass, TexturesThatNothingUsesAreTakenOnRequest) {
    const std::string scene = placedTextureText("used", image("b.tga")) + placedTextureText("unused", image("a.tga")) +
                              shadingText("lambert", "skin") + connectText("used.oc", "skin.c") +
                              shadedMesh("m", "skinSG");
    open(scene);
    EXPECT_TRUE(gatherMaterials());
    EXPECT_TRUE(settleMaterials());
    EXPECT_THAT(run().scene.textureOrder, ElementsAre(0));
    open(scene, "out_all_tex=1");
    EXPECT_TRUE(gatherMaterials());
    EXPECT_TRUE(settleMaterials());
    EXPECT_THAT(run().scene.textureOrder, ElementsAre(1, 0));
    EXPECT_EQ(run().scene.textures.at(1).name, "a");
}

TEST_F(MaterialPass, AnUnusedTextureThatCannotBeTakenFailsWhenItIsWanted) {
    const std::string scene = placedTextureText("unused", session.folder.path("missing.tga"));
    open(nodeText("transform", "a") + scene);
    EXPECT_TRUE(settleMaterials());
    open(nodeText("transform", "a") + scene, "out_all_tex=1");
    EXPECT_FALSE(settleMaterials());
}

// --- animation

TEST_F(MaterialPass, WhatIsAnimatedIsTold) {
    open(shadingText("lambert", "still") + shadedMesh("a", "stillSG"));
    EXPECT_TRUE(gatherMaterials());
    prepareMaterialAnimation();
    EXPECT_FALSE(run().scene.materialColorAnimated || run().scene.textureSrtAnimated ||
                 run().scene.texturePatternAnimated);
    open(shadingText("lambert", "skin") + shadedMesh("a", "skinSG") + keysText("skin.cr", "keys"));
    EXPECT_TRUE(gatherMaterials());
    prepareMaterialAnimation();
    EXPECT_TRUE(run().scene.materialColorAnimated);
    open(placedTextureText("hide", image("hide.tga")) + shadingText("lambert", "skin") +
         connectText("hide.oc", "skin.c") + shadedMesh("a", "skinSG") + keysText("hide_placement.tfu", "slide"));
    EXPECT_TRUE(gatherMaterials());
    prepareMaterialAnimation();
    EXPECT_TRUE(run().scene.textureSrtAnimated);
    EXPECT_FALSE(run().scene.materialColorAnimated || run().scene.texturePatternAnimated);
}

TEST_F(MaterialPass, AFlippedTextureIsAPattern) {
    image("flip.1.tga");
    image("flip.2.tga");
    open(placedTextureText("hide", session.folder.path("flip.1.tga"), "", "setAttr \".ufe\" yes;") +
         flippedText("hide", "1 1 5 2", 2) + shadingText("lambert", "skin") + connectText("hide.oc", "skin.c") +
         shadedMesh("a", "skinSG"));
    EXPECT_TRUE(gatherMaterials());
    prepareMaterialAnimation();
    EXPECT_TRUE(run().scene.texturePatternAnimated);
}

} // namespace
} // namespace tvk
