#pragma once

#include <maya/MFnReflectShader.h>

/// Shaders of type phongE.
class MFnPhongEShader : public MFnReflectShader {
public:
    MFnPhongEShader();
    explicit MFnPhongEShader(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnPhongEShader() override;

    MFn::Type type() const override;

    float roughness(MStatus* ReturnStatus = nullptr) const;
    float highlightSize(MStatus* ReturnStatus = nullptr) const;
    MColor whiteness(MStatus* ReturnStatus = nullptr) const;

    MStatus setRoughness(const float& roughness);
    MStatus setHighlightSize(const float& size);
    MStatus setWhiteness(const MColor& color);
};
