#include "material/materials.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;

struct Answer {
    bool ok;
    int material, textureSource, priority;
};

bool operator==(const Answer& a, const Answer& b) {
    return a.ok == b.ok && a.material == b.material && a.textureSource == b.textureSource && a.priority == b.priority;
}

class Materials : public testing::Test {
protected:
    // The run begins with the scene open, as an export does.
    void open(const std::string& statements, const std::string& options = "") {
        session.open(statements);
        session.prepareRun(options);
    }
    Answer ask(const std::string& shadingGroup, bool withTexture = true) const {
        Answer answer{false, -7, -7, -7};
        answer.ok = static_cast<bool>(getMaterial(session.node(shadingGroup), withTexture, answer.material,
                                                  answer.textureSource, answer.priority));
        return answer;
    }
    static const MaterialRecord& material(std::size_t index) { return run().scene.materials.at(index); }
    static std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const MaterialRecord& record : run().scene.materials) {
            result.push_back(record.name);
        }
        return result;
    }
    std::string image(const std::string& name = "hide.tga") const {
        const std::string path = session.folder.path(name);
        writeImage(path, pictureOfColors(8, 8, 4));
        return path;
    }

    ExportSession session;
};

std::string number(const std::string& name, int value) {
    return addedAttribute(name, "long", std::to_string(value));
}

const std::string kCompress = "compress_material=1";

// --- finding the shader

TEST_F(Materials, AGroupWithoutShaderGetsTheDummyWithAWarning) {
    open(nodeText("shadingEngine", "bareSG"));
    EXPECT_EQ(ask("bareSG"), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(session.takeMessages(), "Warning: No shader: bareSG\n");
    EXPECT_TRUE(run().warningRaised);
    const MaterialRecord& dummy = material(0);
    EXPECT_TRUE(dummy.isDummy);
    EXPECT_EQ(dummy.name, "dummy_material");
    EXPECT_EQ(dummy.sourceName, "dummy_material");
    EXPECT_TRUE(dummy.shadingGroup.isNull());
    EXPECT_TRUE(dummy.shader.isNull());
    EXPECT_TRUE(dummy.lightingEnabled);
    EXPECT_EQ(dummy.diffuse, (Color5{31, 31, 31, 31}));
    EXPECT_EQ(run().scene.materialCount, 1);
}

class RefusedShader : public Materials, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedShader, GetsTheDummyWithAWarning) {
    open(nodeText(GetParam(), "odd") + nodeText("shadingEngine", "oddSG") + connectText("odd.msg", "oddSG.ss"));
    session.mel("if (!`isConnected odd.message oddSG.surfaceShader`) connectAttr -f odd.outColor oddSG.surfaceShader");
    session.takeMessages();
    EXPECT_EQ(ask("oddSG"), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid shader (ignored): odd\n");
    EXPECT_TRUE(material(0).isDummy);
}

INSTANTIATE_TEST_SUITE_P(Types, RefusedShader,
                         testing::Values("layeredShader", "useBackground", "rampShader", "oceanShader", "surfaceShader",
                                         "shadingMap", "standardSurface", "checker"));

TEST_F(Materials, ADeletedShaderIsNoShader) {
    open(shadingText("lambert", "skin"));
    session.mel("delete skin");
    EXPECT_TRUE(ask("skinSG").ok);
    EXPECT_EQ(session.takeMessages(), "Warning: No shader: skinSG\n");
}

TEST_F(Materials, ADeletedShadingGroupHasNoShader) {
    open(shadingText("lambert", "skin"));
    MObject group = session.node("skinSG");
    session.mel("delete skinSG");
    Answer answer{};
    EXPECT_TRUE(getMaterial(group, true, answer.material, answer.textureSource, answer.priority));
    EXPECT_EQ(session.takeMessages(), "Warning: No shader: \n");
    EXPECT_TRUE(material(0).isDummy);
}

TEST_F(Materials, AGroupThatShadesItself) {
    open(nodeText("shadingEngine", "loopSG") + connectText("loopSG.msg", "loopSG.ss"));
    session.takeMessages();
    EXPECT_TRUE(ask("loopSG").ok);
    EXPECT_TRUE(material(0).isDummy);
}

TEST_F(Materials, TheDummyIsMadeOnceAndNeverMerged) {
    open(nodeText("shadingEngine", "aSG") + nodeText("shadingEngine", "bSG") +
             shadingText("lambert", "white", "setAttr \".c\" -type \"float3\" 1 1 1; setAttr \".dc\" 1;"),
         kCompress);
    EXPECT_EQ(ask("whiteSG").material, 0); // equal to the dummy, but for being one
    EXPECT_EQ(ask("aSG").material, 1);
    EXPECT_EQ(ask("bSG").material, 1);
    int index = -1;
    int priority = -1;
    EXPECT_TRUE(getDummyMaterial(index, priority));
    EXPECT_EQ(index, 1);
    EXPECT_EQ(priority, 0);
    EXPECT_EQ(ask("whiteSG").material, 0);
    EXPECT_EQ(run().scene.materialCount, 2);
}

// --- finding again

TEST_F(Materials, AGroupThatIsAskedForAgainGivesTheSameMaterial) {
    open(shadingText("lambert", "a") +
         shadingText("phong", "b", number("tvk_use_render_priority", 1) + number("tvk_render_priority", 9)));
    EXPECT_EQ(ask("aSG"), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(ask("bSG"), (Answer{true, 1, -1, 9}));
    EXPECT_EQ(ask("aSG"), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(ask("bSG", false), (Answer{true, 1, -1, 9}));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    EXPECT_EQ(material(1).sourceName, "b");
    EXPECT_EQ(material(1).type, MFn::kPhong);
    EXPECT_EQ(material(1).shader, session.node("b"));
    EXPECT_EQ(material(1).shadingGroup, session.node("bSG"));
    EXPECT_EQ(run().scene.materialCount, 2);
}

TEST_F(Materials, OneShaderInTwoGroupsGivesTwoMaterials) {
    open(shadingText("lambert", "a") + nodeText("shadingEngine", "otherSG") + connectText("a.oc", "otherSG.ss"));
    EXPECT_EQ(ask("aSG").material, 0);
    EXPECT_EQ(ask("otherSG").material, 1);
    makeMaterialNamesUnique();
    EXPECT_THAT(names(), ElementsAre("a", "a_1"));
    EXPECT_EQ(session.takeMessages(), "Warning: Material name changed: a (otherSG) -> a_1\n");
}

// --- textures

std::string textured(const std::string& name, const std::string& path, const std::string& placement = "",
                     const std::string& attributes = "") {
    return shadingText("lambert", name, attributes) + placedTextureText(name + "File", path, placement) +
           connectText(name + "File.oc", name + ".c");
}

TEST_F(Materials, ATexturedMaterialKnowsItsTexture) {
    open(textured("a", image(), "setAttr \".re\" -type \"float2\" 2 1;"));
    EXPECT_EQ(ask("aSG"), (Answer{true, 0, 0, 0}));
    EXPECT_EQ(material(0).textureSource, 0);
    EXPECT_EQ(material(0).textureRef, 0);
    EXPECT_EQ(material(0).placement.scale, (std::array<float, 2>{2.0F, 1.0F}));
    EXPECT_FALSE(material(0).placement.isIdentity);
    EXPECT_FALSE(material(0).texSrtAnimated || material(0).texPatternAnimated);
    EXPECT_EQ(run().scene.textureSources.at(0).materialIndex, 0);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(Materials, ARepeatedTextureHasItsCoordinatesGenerated) {
    open(textured("a", image(), "setAttr \".re\" -type \"float2\" 2 1;", number("tvk_tex_gen_mode", 0)));
    ask("aSG");
    EXPECT_EQ(material(0).texGenMode, kTexGenTex);
}

TEST_F(Materials, AnAnimatedPlacementIsCopied) {
    open(textured("a", image()) + keysText("aFile_placement.tfu", "slide"));
    ask("aSG");
    EXPECT_TRUE(material(0).texSrtAnimated);
}

TEST_F(Materials, WithoutCoordinatesThereIsNoTextureAndNothingGenerated) {
    open(textured("a", session.folder.path("missing.tga"), "setAttr \".re\" -type \"float2\" 2 1;",
                  number("tvk_tex_gen_mode", 1)));
    EXPECT_EQ(ask("aSG", false), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(material(0).textureRef, -1);
    EXPECT_EQ(material(0).texGenMode, kTexGenNone);
    EXPECT_TRUE(material(0).placement.isIdentity);
}

// What was met first decides, and not the same way round: an untextured material serves textured faces too.
TEST_F(Materials, AnUntexturedMaterialThatCameFirstServesTexturedFacesToo) {
    open(textured("a", image()));
    EXPECT_EQ(ask("aSG", false), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(ask("aSG", true), (Answer{true, 0, -1, 0}));
    EXPECT_EQ(run().scene.materials.size(), 1U);
}

TEST_F(Materials, ATexturedMaterialThatCameFirstDoesNotServeUntexturedFaces) {
    open(textured("a", image()));
    EXPECT_EQ(ask("aSG", true), (Answer{true, 0, 0, 0}));
    EXPECT_EQ(ask("aSG", false), (Answer{true, 1, -1, 0}));
    EXPECT_EQ(ask("aSG", false), (Answer{true, 1, -1, 0}));
    EXPECT_EQ(ask("aSG", true), (Answer{true, 0, 0, 0}));
    EXPECT_EQ(run().scene.materials.size(), 2U);
}

TEST_F(Materials, ATextureThatCannotBeTakenFailsAndNothingIsAdded) {
    open(textured("a", session.folder.path("missing.tga")) + shadingText("lambert", "b"));
    EXPECT_EQ(ask("aSG"), (Answer{false, -7, -7, -7}));
    EXPECT_TRUE(run().scene.materials.empty());
    EXPECT_EQ(run().scene.materialCount, 0);
    EXPECT_EQ(ask("bSG").material, 0);
}

// --- merging

TEST_F(Materials, EqualShadersBAndAGiveOneMaterialA) {
    for (const bool firstA : {true, false}) {
        open(shadingText("lambert", "b") + shadingText("lambert", "a"), kCompress);
        EXPECT_EQ(ask(firstA ? "aSG" : "bSG"), (Answer{true, 0, -1, 0}));
        EXPECT_EQ(ask(firstA ? "bSG" : "aSG"), (Answer{true, 0, -1, 0}));
        EXPECT_THAT(names(), ElementsAre("a"));
        EXPECT_EQ(material(0).sourceName, "a");
        EXPECT_EQ(material(0).shadingGroup, session.node(firstA ? "aSG" : "bSG"));
        EXPECT_EQ(run().scene.materialCount, 2);
    }
}

TEST_F(Materials, WithoutTheOptionEqualMaterialsStayApart) {
    open(shadingText("lambert", "b") + shadingText("lambert", "a"));
    ask("bSG");
    ask("aSG");
    EXPECT_THAT(names(), ElementsAre("b", "a"));
}

TEST_F(Materials, SmallestIsTheNameThatComesFirstByItsBytes) {
    open(shadingText("lambert", "a_long") + shadingText("lambert", "a") + shadingText("lambert", "B"), kCompress);
    ask("a_longSG");
    EXPECT_THAT(names(), ElementsAre("a_long"));
    ask("aSG");
    EXPECT_THAT(names(), ElementsAre("a"));
    ask("BSG");
    EXPECT_THAT(names(), ElementsAre("B"));
}

TEST_F(Materials, PrioritiesAreNotComparedAndTheFirstOneStays) {
    const auto priority = [](int value) {
        return number("tvk_use_render_priority", 1) + number("tvk_render_priority", value);
    };
    open(shadingText("lambert", "b", priority(5)) + shadingText("lambert", "a", priority(9)), kCompress);
    EXPECT_EQ(ask("bSG").priority, 5);
    EXPECT_EQ(ask("aSG"), (Answer{true, 0, -1, 5}));
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_EQ(material(0).renderPriority, 5);
}

TEST_F(Materials, AKeyedColourIsNeverMergedEvenWhenEqual) {
    open(shadingText("lambert", "a") + shadingText("lambert", "b") + shadingText("lambert", "c") +
             keysText("a.cr", "aKeys", "1 0.5 10 1") + keysText("c.cr", "cKeys", "1 0.5 10 1"),
         kCompress);
    session.mel("currentTime 1");
    ask("aSG");
    ask("bSG");
    ask("cSG");
    EXPECT_EQ(material(0).diffuse, material(1).diffuse);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
}

TEST_F(Materials, ProtectedMaterialsAreNeverMerged) {
    open(shadingText("lambert", "a", number("tvk_no_compress", 1)) +
             shadingText("lambert", "b", number("tvk_no_compress", 1)) + shadingText("lambert", "c"),
         kCompress);
    ask("aSG");
    ask("bSG");
    ask("cSG");
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
}

TEST_F(Materials, AGroupThatWasMergedIsReadAndCountedAgain) {
    open(shadingText("lambert", "a") + shadingText("lambert", "b"), kCompress);
    ask("aSG");
    ask("bSG");
    ask("bSG");
    ask("aSG");
    EXPECT_EQ(run().scene.materials.size(), 1U);
    EXPECT_EQ(run().scene.materialCount, 3);
}

TEST_F(Materials, EqualTexturedMaterialsMergeAndLeaveOneSource) {
    open(textured("a", image()) + textured("b", image()) + textured("c", image("other.tga")), kCompress);
    EXPECT_EQ(ask("aSG"), (Answer{true, 0, 0, 0}));
    EXPECT_EQ(ask("bSG"), (Answer{true, 0, 0, 0}));
    EXPECT_EQ(ask("cSG"), (Answer{true, 1, 1, 0}));
    ASSERT_EQ(run().scene.textureSources.size(), 2U);
    EXPECT_EQ(run().scene.textureSources[0].materialIndex, 0);
    EXPECT_EQ(run().scene.textureSources[1].materialIndex, 1);
}

TEST_F(Materials, MaterialsWithAnAnimatedPlacementNeverMerge) {
    const std::string shared = placedTextureText("shared", image()) + keysText("shared_placement.tfu", "slide");
    open(shared + shadingText("lambert", "a") + shadingText("lambert", "b") + connectText("shared.oc", "a.c") +
             connectText("shared.oc", "b.c"),
         kCompress);
    EXPECT_EQ(ask("aSG"), (Answer{true, 0, 0, 0}));
    EXPECT_EQ(ask("bSG"), (Answer{true, 1, 1, 0}));
}

// --- names

class MaterialNames : public testing::Test {
protected:
    void add(const std::string& name) {
        MaterialRecord record;
        record.name = name;
        record.sourceName = name;
        run().scene.materials.push_back(record);
    }

    ExportSession session;
};

TEST_F(MaterialNames, OfThreeEqualNamesTheSecondAndThirdAreNumberedWithAWarningEach) {
    session.prepareRun();
    for (int i = 0; i < 3; ++i) {
        add("skin");
    }
    makeMaterialNamesUnique();
    EXPECT_EQ(run().scene.materials[0].name, "skin");
    EXPECT_EQ(run().scene.materials[1].name, "skin_1");
    EXPECT_EQ(run().scene.materials[2].name, "skin_2");
    EXPECT_EQ(run().scene.materials[2].sourceName, "skin");
    EXPECT_EQ(session.takeMessages(), "Warning: Material name changed: skin (no shading group) -> skin_1\n"
                                      "Warning: Material name changed: skin (no shading group) -> skin_2\n");
    EXPECT_TRUE(run().warningRaised);
}

TEST_F(MaterialNames, ANameThatIsTakenByAnEarlierChangeIsNotTakenAgain) {
    session.prepareRun();
    for (const char* name : {"a", "a", "a_1", "a"}) {
        add(name);
    }
    makeMaterialNamesUnique();
    EXPECT_EQ(run().scene.materials[1].name, "a_1");
    EXPECT_EQ(run().scene.materials[2].name, "a_1_1");
    EXPECT_EQ(run().scene.materials[3].name, "a_2");
}

TEST_F(MaterialNames, ANameCheckChangesThemSilently) {
    session.prepareRun();
    run().options.quietTextureWarnings = true;
    add("a");
    add("a");
    makeMaterialNamesUnique();
    EXPECT_EQ(run().scene.materials[1].name, "a_1");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(run().warningRaised);
}

TEST_F(MaterialNames, TheWrittenOrderIsThatOfTheBytes) {
    session.prepareRun();
    // half-width katakana is one byte above 0x80, kanji begins with one: unsigned, both come last
    for (const char* name : {"b", "\xEF\xBD\xB1", "B", "a_1", "a", "_", "\xE8\xA1\xA8"}) {
        add(name);
    }
    sortMaterialsByName();
    EXPECT_THAT(run().scene.materialOrder, ElementsAre(2, 5, 4, 3, 0, 6, 1));
    EXPECT_EQ(run().scene.materials[0].outputIndex, 4);
    EXPECT_EQ(run().scene.materials[1].outputIndex, 6);
    EXPECT_EQ(run().scene.materials[2].outputIndex, 0);
    EXPECT_EQ(run().scene.outputMaterialCount, 7);
}

TEST_F(MaterialNames, NoMaterialsAreNoTrouble) {
    session.prepareRun();
    makeMaterialNamesUnique();
    sortMaterialsByName();
    EXPECT_TRUE(run().scene.materialOrder.empty());
    EXPECT_EQ(run().scene.outputMaterialCount, 0);
}

} // namespace
} // namespace tvk
