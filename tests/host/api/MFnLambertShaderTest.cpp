#include <maya/MFnLambertShader.h>

#include "HostTest.h"

#include <maya/MFnBlinnShader.h>
#include <maya/MFnPhongEShader.h>
#include <maya/MFnPhongShader.h>

namespace host {
namespace {

class MFnLambertShaderTest : public HostTest {};

/// Which function sets take a node of a type.
struct AttachRow {
    const char* type;
    bool lambert, reflect, blinn, phong, phongE;
};

constexpr AttachRow kAttach[] = {
    {"lambert", true, false, false, false, false},
    {"blinn", true, true, true, false, false},
    {"phong", true, true, false, true, false},
    {"phongE", true, true, false, false, true},
    {"anisotropic", true, true, false, false, false},
    {"rampShader", true, false, false, false, false},
    {"oceanShader", true, false, false, false, false},
    {"surfaceShader", false, false, false, false, false},
    {"shadingMap", false, false, false, false, false},
    {"layeredShader", false, false, false, false, false},
    {"useBackground", false, false, false, false, false},
    {"standardSurface", false, false, false, false, false},
    {"file", false, false, false, false, false},
    {"shadingEngine", false, false, false, false, false},
    {"transform", false, false, false, false, false},
};

template <class FunctionSet>
bool attaches(const MObject& object) {
    MStatus status;
    const FunctionSet function(object, &status);
    EXPECT_TRUE(status == MStatus::kSuccess || status == MStatus::kInvalidParameter);
    EXPECT_EQ(FunctionSet().hasObj(object), status == MStatus::kSuccess);
    return status == MStatus::kSuccess;
}

TEST_F(MFnLambertShaderTest, whichShadersAttach) {
    for (const AttachRow& row : kAttach) {
        run(std::string("createNode ") + row.type + " -n n_" + row.type);
        const MObject object = node((std::string("n_") + row.type).c_str());
        EXPECT_EQ(attaches<MFnLambertShader>(object), row.lambert) << row.type;
        EXPECT_EQ(attaches<MFnReflectShader>(object), row.reflect) << row.type;
        EXPECT_EQ(attaches<MFnBlinnShader>(object), row.blinn) << row.type;
        EXPECT_EQ(attaches<MFnPhongShader>(object), row.phong) << row.type;
        EXPECT_EQ(attaches<MFnPhongEShader>(object), row.phongE) << row.type;
    }
    MStatus status;
    const MFnLambertShader none(MObject::kNullObj, &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
}

TEST_F(MFnLambertShaderTest, nothingAttachedFails) {
    MFnReflectShader none;
    MStatus status;
    EXPECT_TRUE(none.color(&status) == MColor());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(none.diffuseCoeff(&status), 0.0F);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(none.specularColor(&status), MColor());
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(none.setColor(MColor(1, 1, 1)), MStatus::kFailure);
    EXPECT_EQ(none.setReflectivity(1), MStatus::kFailure);
}

TEST_F(MFnLambertShaderTest, defaultsAreTheDocumentedOnes) {
    run("createNode blinn -n b; createNode phong -n p; createNode phongE -n e");
    const MFnBlinnShader blinn(node("b"));
    EXPECT_EQ(blinn.color(), MColor(0.5F, 0.5F, 0.5F));
    EXPECT_EQ(blinn.transparency(), MColor(0, 0, 0));
    EXPECT_EQ(blinn.ambientColor(), MColor(0, 0, 0));
    EXPECT_EQ(blinn.incandescence(), MColor(0, 0, 0));
    EXPECT_FLOAT_EQ(blinn.diffuseCoeff(), 0.8F);
    EXPECT_EQ(blinn.translucenceCoeff(), 0.0F);
    EXPECT_EQ(blinn.glowIntensity(), 0.0F);
    EXPECT_FALSE(blinn.hideSource());
    EXPECT_EQ(blinn.refractiveIndex(), 1.0F);
    EXPECT_EQ(blinn.refractedRayDepthLimit(), 6);
    EXPECT_FALSE(blinn.rtRefractedColor());
    EXPECT_EQ(blinn.specularColor(), MColor(0.5F, 0.5F, 0.5F));
    EXPECT_EQ(blinn.reflectivity(), 0.5F);
    EXPECT_EQ(blinn.reflectedColor(), MColor(0, 0, 0));
    EXPECT_EQ(blinn.reflectedRayDepthLimit(), 1);
    EXPECT_FLOAT_EQ(blinn.eccentricity(), 0.3F);
    EXPECT_FLOAT_EQ(blinn.specularRollOff(), 0.7F);
    EXPECT_FLOAT_EQ(MFnPhongShader(node("p")).cosPower(), 20.0F);
    const MFnPhongEShader phongE(node("e"));
    EXPECT_FLOAT_EQ(phongE.roughness(), 0.7F);
    EXPECT_FLOAT_EQ(phongE.highlightSize(), 0.5F);
    EXPECT_EQ(phongE.whiteness(), MColor(0.5F, 0.5F, 0.5F));
}

TEST_F(MFnLambertShaderTest, valuesAreThoseOfTheAttributesNow) {
    run("createNode phongE -n s; createNode phongE -n driver;"
        "setAttr s.c -type float3 1 0.25 0; setAttr s.it -type float3 0 0 1; setAttr s.ambc -type float3 0 1 0;"
        "setAttr s.ic -type float3 0.5 0.5 1; setAttr s.dc 0.25; setAttr s.tc 0.5; setAttr s.gi 2; setAttr s.hs 1;"
        "setAttr s.sc -type float3 1 1 0; setAttr s.rfl 0.75; setAttr s.rc -type float3 0 0.5 0; setAttr s.fll 3;"
        "setAttr s.rfi 1.5; setAttr s.rdl 4; setAttr s.rfc 1; setAttr s.rn 0.125; setAttr s.hls 0.25;"
        "setAttr s.wn -type float3 0 1 1");
    const MFnPhongEShader shader(node("s"));
    EXPECT_EQ(shader.color(), MColor(1, 0.25F, 0)) << "alpha is 1";
    EXPECT_EQ(shader.transparency(), MColor(0, 0, 1));
    EXPECT_EQ(shader.ambientColor(), MColor(0, 1, 0));
    EXPECT_EQ(shader.incandescence(), MColor(0.5F, 0.5F, 1));
    EXPECT_EQ(shader.diffuseCoeff(), 0.25F);
    EXPECT_EQ(shader.translucenceCoeff(), 0.5F);
    EXPECT_EQ(shader.glowIntensity(), 2.0F);
    EXPECT_TRUE(shader.hideSource());
    EXPECT_EQ(shader.specularColor(), MColor(1, 1, 0));
    EXPECT_EQ(shader.reflectivity(), 0.75F);
    EXPECT_EQ(shader.reflectedColor(), MColor(0, 0.5F, 0));
    EXPECT_EQ(shader.reflectedRayDepthLimit(), 3);
    EXPECT_EQ(shader.refractiveIndex(), 1.5F);
    EXPECT_EQ(shader.refractedRayDepthLimit(), 4);
    EXPECT_TRUE(shader.rtRefractedColor());
    EXPECT_EQ(shader.roughness(), 0.125F);
    EXPECT_EQ(shader.highlightSize(), 0.25F);
    EXPECT_EQ(shader.whiteness(), MColor(0, 1, 1));
    run("setAttr driver.cr 0.125; connectAttr driver.cr s.cg");
    EXPECT_EQ(shader.color(), MColor(1, 0.125F, 0)) << "a driven channel";
}

TEST_F(MFnLambertShaderTest, shadersWithoutAPlainColourFail) {
    run("createNode rampShader -n r; createNode oceanShader -n o");
    MStatus status;
    const MFnLambertShader ramp(node("r"));
    EXPECT_EQ(ramp.color(&status), MColor());
    EXPECT_EQ(status, MStatus::kFailure) << "a list of ramp entries";
    EXPECT_FLOAT_EQ(ramp.diffuseCoeff(&status), 0.8F);
    EXPECT_EQ(status, MStatus::kSuccess);
    const MFnLambertShader ocean(node("o"));
    EXPECT_EQ(ocean.color(&status), MColor());
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MFnLambertShaderTest, settersSet) {
    run("createNode blinn -n b; createNode phong -n p; createNode phongE -n e");
    MFnBlinnShader blinn(node("b"));
    EXPECT_EQ(blinn.setColor(MColor(1, 0, 0.5F)), MStatus::kSuccess);
    EXPECT_EQ(blinn.setTransparency(MColor(0, 1, 0)), MStatus::kSuccess);
    EXPECT_EQ(blinn.setAmbientColor(MColor(0, 0, 1)), MStatus::kSuccess);
    EXPECT_EQ(blinn.setIncandescence(MColor(1, 1, 0)), MStatus::kSuccess);
    EXPECT_EQ(blinn.setDiffuseCoeff(0.5F), MStatus::kSuccess);
    EXPECT_EQ(blinn.setTranslucenceCoeff(0.25F), MStatus::kSuccess);
    EXPECT_EQ(blinn.setGlowIntensity(0.75F), MStatus::kSuccess);
    EXPECT_EQ(blinn.setHideSource(true), MStatus::kSuccess);
    EXPECT_EQ(blinn.setRefractiveIndex(2.0F), MStatus::kSuccess);
    EXPECT_EQ(blinn.setRefractedRayDepthLimit(2), MStatus::kSuccess);
    EXPECT_EQ(blinn.setRtRefractedColor(true), MStatus::kSuccess);
    EXPECT_EQ(blinn.setSpecularColor(MColor(0, 0.5F, 0)), MStatus::kSuccess);
    EXPECT_EQ(blinn.setReflectivity(0.125F), MStatus::kSuccess);
    EXPECT_EQ(blinn.setReflectedColor(MColor(0.5F, 0, 0)), MStatus::kSuccess);
    EXPECT_EQ(blinn.setReflectedRayDepthLimit(7), MStatus::kSuccess);
    EXPECT_EQ(blinn.setEccentricity(0.0625F), MStatus::kSuccess);
    EXPECT_EQ(blinn.setSpecularRollOff(0.5F), MStatus::kSuccess);
    EXPECT_EQ(blinn.color(), MColor(1, 0, 0.5F));
    EXPECT_EQ(blinn.transparency(), MColor(0, 1, 0));
    EXPECT_EQ(blinn.ambientColor(), MColor(0, 0, 1));
    EXPECT_EQ(blinn.incandescence(), MColor(1, 1, 0));
    EXPECT_EQ(blinn.diffuseCoeff(), 0.5F);
    EXPECT_EQ(blinn.translucenceCoeff(), 0.25F);
    EXPECT_EQ(blinn.glowIntensity(), 0.75F);
    EXPECT_TRUE(blinn.hideSource() && blinn.rtRefractedColor());
    EXPECT_EQ(blinn.refractiveIndex(), 2.0F);
    EXPECT_EQ(blinn.refractedRayDepthLimit(), 2);
    EXPECT_EQ(blinn.specularColor(), MColor(0, 0.5F, 0));
    EXPECT_EQ(blinn.reflectivity(), 0.125F);
    EXPECT_EQ(blinn.reflectedColor(), MColor(0.5F, 0, 0));
    EXPECT_EQ(blinn.reflectedRayDepthLimit(), 7);
    EXPECT_EQ(blinn.eccentricity(), 0.0625F);
    EXPECT_EQ(blinn.specularRollOff(), 0.5F);
    MFnPhongShader phong(node("p"));
    EXPECT_EQ(phong.setCosPower(4.0F), MStatus::kSuccess);
    EXPECT_EQ(phong.cosPower(), 4.0F);
    MFnPhongEShader phongE(node("e"));
    EXPECT_EQ(phongE.setRoughness(0.5F), MStatus::kSuccess);
    EXPECT_EQ(phongE.setHighlightSize(0.25F), MStatus::kSuccess);
    EXPECT_EQ(phongE.setWhiteness(MColor(1, 1, 1)), MStatus::kSuccess);
    EXPECT_EQ(phongE.roughness(), 0.5F);
    EXPECT_EQ(phongE.highlightSize(), 0.25F);
    EXPECT_EQ(phongE.whiteness(), MColor(1, 1, 1));
}

TEST_F(MFnLambertShaderTest, lockedAndDrivenAttributesAreNotSet) {
    run("createNode lambert -n l; createNode lambert -n d; setAttr -l on l.dc; connectAttr d.c l.c");
    MFnLambertShader lambert(node("l"));
    EXPECT_EQ(lambert.setDiffuseCoeff(0.5F), MStatus::kFailure);
    EXPECT_EQ(lambert.setColor(MColor(1, 0, 0)), MStatus::kFailure);
    EXPECT_FLOAT_EQ(lambert.diffuseCoeff(), 0.8F);
    EXPECT_EQ(lambert.color(), MColor(0.5F, 0.5F, 0.5F));
}

} // namespace
} // namespace host
