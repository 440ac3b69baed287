#include <maya/MFnBlinnShader.h>

#include "host/api/attributeValues.h"

MFnBlinnShader::MFnBlinnShader() = default;
MFnBlinnShader::~MFnBlinnShader() = default;

MFnBlinnShader::MFnBlinnShader(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnBlinnShader::setObject(object));
}

MFn::Type MFnBlinnShader::type() const {
    return MFn::kBlinn;
}

float MFnBlinnShader::eccentricity(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "eccentricity", ReturnStatus);
}

float MFnBlinnShader::specularRollOff(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "specularRollOff", ReturnStatus);
}

MStatus MFnBlinnShader::setEccentricity(const float& value) {
    return host::setAttributeNumber(object_, "eccentricity", value);
}

MStatus MFnBlinnShader::setSpecularRollOff(const float& value) {
    return host::setAttributeNumber(object_, "specularRollOff", value);
}
