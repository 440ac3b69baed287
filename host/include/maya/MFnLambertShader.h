#pragma once

#include <maya/MColor.h>
#include <maya/MFnDependencyNode.h>

/// Shaders of the Lambert family: lambert, blinn, phong, phongE, anisotropic, and those that derive from them; the ramp
/// and the ocean shader too. Each getter gives the value of its attribute now, colours with alpha 1; of an attribute
/// that the node does not have (the ocean shader has no colour), or has as a ramp, it fails and gives black or 0.
/// Setters fail on attributes that are locked or connected.
class MFnLambertShader : public MFnDependencyNode {
public:
    MFnLambertShader();
    explicit MFnLambertShader(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnLambertShader() override;

    MFn::Type type() const override;

    MColor color(MStatus* ReturnStatus = nullptr) const;
    MColor transparency(MStatus* ReturnStatus = nullptr) const;
    MColor ambientColor(MStatus* ReturnStatus = nullptr) const;
    MColor incandescence(MStatus* ReturnStatus = nullptr) const;
    /// The attribute "diffuse".
    float diffuseCoeff(MStatus* ReturnStatus = nullptr) const;
    /// The attribute "translucence".
    float translucenceCoeff(MStatus* ReturnStatus = nullptr) const;
    float glowIntensity(MStatus* ReturnStatus = nullptr) const;
    bool hideSource(MStatus* ReturnStatus = nullptr) const;
    float refractiveIndex(MStatus* ReturnStatus = nullptr) const;
    /// The attribute "refractionLimit".
    short refractedRayDepthLimit(MStatus* ReturnStatus = nullptr) const;
    /// The attribute "refractions".
    bool rtRefractedColor(MStatus* ReturnStatus = nullptr) const;

    MStatus setColor(const MColor& color);
    MStatus setTransparency(const MColor& transparency);
    MStatus setAmbientColor(const MColor& color);
    MStatus setIncandescence(const MColor& color);
    MStatus setDiffuseCoeff(const float& coefficient);
    MStatus setTranslucenceCoeff(const float& coefficient);
    MStatus setGlowIntensity(const float& intensity);
    MStatus setHideSource(bool hide);
    MStatus setRefractiveIndex(const float& index);
    MStatus setRefractedRayDepthLimit(const short& limit);
    MStatus setRtRefractedColor(bool refractions);
};
