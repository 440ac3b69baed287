#include "material/shaderReading.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"

#include "scene/hostCompatibility.h"

#include <maya/MFnDependencyNode.h>

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

class ShaderReading : public testing::Test {
protected:
    MaterialRecord read(const std::string& statements, const std::string& fileTexture = "") {
        session.open(statements);
        MaterialRecord record;
        readShader(session.node("skin"), fileTexture.empty() ? MObject() : session.node(fileTexture), record);
        return record;
    }
    static std::string plugName(const MaterialRecord& record, ColorChannel channel) {
        const MPlug& plug = record.channels.at(static_cast<std::size_t>(channel)).plug;
        if (plug.isNull()) {
            return "";
        }
        return textOf(plug.partialName(true, false, false, false, false, true));
    }

    ExportSession session;
};

std::string lambert(const std::string& attributes = "") {
    return nodeText("lambert", "skin", "", attributes);
}

std::string color(const std::string& attribute, const std::string& values) {
    return "setAttr \"." + attribute + "\" -type \"float3\" " + values + ";\n\t";
}

// --- colours

TEST_F(ShaderReading, ALambertShaderAsTheHostMakesIt) {
    const MaterialRecord record = read(lambert());
    EXPECT_EQ(record.diffuse, (Color5{12, 12, 12, 31})); // 0.5 * 0.8 * 31 = 12.4
    EXPECT_EQ(record.diffuseCoeff, 0.8F);
    EXPECT_EQ(record.ambient, (Color5{0, 0, 0, 31}));
    EXPECT_EQ(record.specular, (Color5{0, 0, 0, 31}));
    EXPECT_EQ(record.emission, (Color5{0, 0, 0, 31}));
    EXPECT_FALSE(record.hasSpecular);
    EXPECT_EQ(record.alpha, 31);
    EXPECT_TRUE(record.alphaFromTransparency);
    EXPECT_FALSE(record.colorAnimated);
}

TEST_F(ShaderReading, DiffuseIsTheColourTimesItsCoefficient) {
    const MaterialRecord record = read(lambert(color("c", "1 0.5 2") + "setAttr \".dc\" 0.5;"));
    EXPECT_EQ(record.diffuse, (Color5{16, 8, 31, 31})); // 15.5, 7.75, 31
    EXPECT_EQ(record.diffuseCoeff, 0.5F);
}

TEST_F(ShaderReading, ATexturedShaderIsTintedByItsTexturesGain) {
    const MaterialRecord record = read(lambert(color("c", "0 0 0") + "setAttr \".dc\" 1;") +
                                           fileTextureText("hide", "", color("cg", "1 0.5 0.25")),
                                       "hide");
    EXPECT_EQ(record.diffuse, (Color5{31, 16, 8, 31}));
    EXPECT_EQ(plugName(record, ColorChannel::kDiffuseG), "hide.colorGainG");
}

TEST_F(ShaderReading, AmbientAndEmission) {
    const MaterialRecord record = read(lambert(color("ambc", "1 0.25 0") + color("ic", "0 0 0.75")));
    EXPECT_EQ(record.ambient, (Color5{31, 8, 0, 31}));
    EXPECT_EQ(record.emission, (Color5{0, 0, 23, 31}));
}

TEST_F(ShaderReading, ShadersWithAHighlight) {
    for (const std::string type : {"blinn", "phong", "phongE", "anisotropic"}) {
        const MaterialRecord record = read(nodeText(type, "skin", "", color("sc", "1 0 0.25")));
        EXPECT_TRUE(record.hasSpecular) << type;
        EXPECT_EQ(record.specular, (Color5{31, 0, 8, 31})) << type;
        EXPECT_EQ(plugName(record, ColorChannel::kSpecularB), "skin.specularColorB") << type;
    }
}

// --- alpha

struct AlphaCase {
    const char* transparency;
    int expected;
};

class Alpha : public ShaderReading, public testing::WithParamInterface<AlphaCase> {};

TEST_P(Alpha, IsWhatTransparencyLeaves) {
    const std::string value = GetParam().transparency;
    EXPECT_EQ(read(lambert(color("it", value + " 0.5 0.5"))).alpha, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, Alpha,
                         testing::Values(AlphaCase{"0", 31}, AlphaCase{"0.25", 23}, // 23.25
                                         AlphaCase{"0.5", 16},                      // 15.5
                                         AlphaCase{"1", 0}, AlphaCase{"1.5", 0}, AlphaCase{"-0.5", 31}));

TEST_F(ShaderReading, ATransparencyThatIsAFileTextureGivesItsGain) {
    const MaterialRecord record =
        read(lambert() + fileTextureText("holes", "", "setAttr \".ag\" 0.25;") + connectText("holes.ot", "skin.it"));
    EXPECT_FALSE(record.alphaFromTransparency);
    EXPECT_EQ(record.alpha, 8);
    EXPECT_EQ(plugName(record, ColorChannel::kAlpha), "holes.alphaGain");
    EXPECT_FALSE(record.colorAnimated);
}

TEST_F(ShaderReading, AGainAboveOneIsOpaque) {
    EXPECT_EQ(
        read(lambert() + fileTextureText("holes", "", "setAttr \".ag\" 3;") + connectText("holes.ot", "skin.it")).alpha,
        31);
}

TEST_F(ShaderReading, ATransparencyThatIsAnythingElseStaysATransparency) {
    const MaterialRecord record =
        read(lambert() + nodeText("checker", "squares") + connectText("squares.oc", "skin.it"));
    EXPECT_TRUE(record.alphaFromTransparency);
    EXPECT_EQ(plugName(record, ColorChannel::kAlpha), "skin.transparencyR");
}

// --- channels

TEST_F(ShaderReading, EveryChannelHasItsPlug) {
    const MaterialRecord record = read(nodeText("blinn", "skin"));
    const std::array<const char*, kColorChannelCount> expected{
        "colorR",         "colorG",         "colorB",         "ambientColorR",  "ambientColorG",
        "ambientColorB",  "specularColorR", "specularColorG", "specularColorB", "incandescenceR",
        "incandescenceG", "incandescenceB", "transparencyR"};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(plugName(record, static_cast<ColorChannel>(i)), std::string("skin.") + expected.at(i));
    }
}

TEST_F(ShaderReading, AShaderWithoutHighlightHasNoChannelsForIt) {
    const MaterialRecord record = read(lambert());
    for (const ColorChannel channel : {ColorChannel::kSpecularR, ColorChannel::kSpecularG, ColorChannel::kSpecularB}) {
        EXPECT_EQ(plugName(record, channel), "");
    }
}

struct DrivenCase {
    const char* plug;
    ColorChannel channel;
};

class DrivenChannel : public ShaderReading, public testing::WithParamInterface<DrivenCase> {};

TEST_P(DrivenChannel, MakesTheMaterialAnimated) {
    const std::string plug = std::string("skin.") + GetParam().plug;
    const auto channel = static_cast<std::size_t>(GetParam().channel);
    const MaterialRecord keyed = read(nodeText("phong", "skin") + keysText(plug, "keys"));
    EXPECT_TRUE(keyed.colorAnimated);
    for (std::size_t i = 0; i < kColorChannelCount; ++i) {
        EXPECT_EQ(keyed.channels.at(i).driver.kind, i == channel ? DriverKind::kTimeCurve : DriverKind::kNone) << i;
    }
    const MaterialRecord still = read(nodeText("phong", "skin") + keysText(plug, "keys", "1 0.5 10 0.5"));
    EXPECT_FALSE(still.colorAnimated);
    EXPECT_EQ(still.channels.at(channel).driver.kind, DriverKind::kTimeCurve);
    EXPECT_TRUE(still.channels.at(channel).driver.isConstant);
}

INSTANTIATE_TEST_SUITE_P(
    Channels, DrivenChannel,
    testing::Values(DrivenCase{"cr", ColorChannel::kDiffuseR}, DrivenCase{"cg", ColorChannel::kDiffuseG},
                    DrivenCase{"cb", ColorChannel::kDiffuseB}, DrivenCase{"acr", ColorChannel::kAmbientR},
                    DrivenCase{"acg", ColorChannel::kAmbientG}, DrivenCase{"acb", ColorChannel::kAmbientB},
                    DrivenCase{"sr", ColorChannel::kSpecularR}, DrivenCase{"sg", ColorChannel::kSpecularG},
                    DrivenCase{"sb", ColorChannel::kSpecularB}, DrivenCase{"ir", ColorChannel::kEmissionR},
                    DrivenCase{"ig", ColorChannel::kEmissionG}, DrivenCase{"ib", ColorChannel::kEmissionB},
                    DrivenCase{"itr", ColorChannel::kAlpha}));

TEST_F(ShaderReading, OtherTransparenciesThanRedAreNoChannel) {
    EXPECT_FALSE(read(lambert() + keysText("skin.itg", "keys")).colorAnimated);
}

TEST_F(ShaderReading, AKeyedGainAnimatesATexturedMaterial) {
    const std::string scene = lambert() + fileTextureText("hide", "") + keysText("hide.cgg", "keys");
    EXPECT_TRUE(read(scene, "hide").colorAnimated);
    EXPECT_FALSE(read(scene).colorAnimated);
}

TEST_F(ShaderReading, DrivenKeysExpressionsAndOtherConnectionsAnimateToo) {
    const std::string driven = nodeText("animCurveUU", "keys", "", "setAttr -s 2 \".ktv[0:1]\"  0 0 1 0;");
    EXPECT_TRUE(read(lambert() + driven + connectText("keys.o", "skin.cr")).colorAnimated);
    const std::string expression =
        nodeText("expression", "blink", "", "setAttr \".ixp\" -type \"string\" \".O[0]=frame\";");
    EXPECT_TRUE(read(lambert() + expression + connectText("blink.out[0]", "skin.itr")).colorAnimated);
    EXPECT_TRUE(read(lambert() + nodeText("checker", "squares") + connectText("squares.oc", "skin.ic")).colorAnimated);
}

TEST_F(ShaderReading, KeyedColoursHaveTheValueOfTheCurrentTime) {
    session.open(lambert("setAttr \".dc\" 1;") + keysText("skin.cr", "keys", "1 0 11 1"));
    session.mel("currentTime 6");
    MaterialRecord record;
    readShader(session.node("skin"), MObject(), record);
    EXPECT_EQ(record.diffuse[0], 16);
}

} // namespace
} // namespace tvk
