#pragma once

#include <maya/MFnReflectShader.h>

/// Phong shaders.
class MFnPhongShader : public MFnReflectShader {
public:
    MFnPhongShader();
    explicit MFnPhongShader(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnPhongShader() override;

    MFn::Type type() const override;

    /// The attribute "cosinePower".
    float cosPower(MStatus* ReturnStatus = nullptr) const;

    MStatus setCosPower(const float& power);
};
