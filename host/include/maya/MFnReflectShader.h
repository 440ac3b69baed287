#pragma once

#include <maya/MFnLambertShader.h>

/// Shaders with a highlight: blinn, phong, phongE, anisotropic, and those that derive from them.
class MFnReflectShader : public MFnLambertShader {
public:
    MFnReflectShader();
    explicit MFnReflectShader(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnReflectShader() override;

    MFn::Type type() const override;

    MColor specularColor(MStatus* ReturnStatus = nullptr) const;
    float reflectivity(MStatus* ReturnStatus = nullptr) const;
    MColor reflectedColor(MStatus* ReturnStatus = nullptr) const;
    /// The attribute "reflectionLimit".
    short reflectedRayDepthLimit(MStatus* ReturnStatus = nullptr) const;

    MStatus setSpecularColor(const MColor& color);
    MStatus setReflectivity(const float& reflectivity);
    MStatus setReflectedColor(const MColor& color);
    MStatus setReflectedRayDepthLimit(const short& limit);
};
