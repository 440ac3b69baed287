#pragma once

#include <maya/MFnReflectShader.h>

/// Blinn shaders.
class MFnBlinnShader : public MFnReflectShader {
public:
    MFnBlinnShader();
    explicit MFnBlinnShader(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnBlinnShader() override;

    MFn::Type type() const override;

    float eccentricity(MStatus* ReturnStatus = nullptr) const;
    float specularRollOff(MStatus* ReturnStatus = nullptr) const;

    MStatus setEccentricity(const float& eccentricity);
    MStatus setSpecularRollOff(const float& rollOff);
};
