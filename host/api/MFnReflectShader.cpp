#include <maya/MFnReflectShader.h>

#include "host/api/attributeValues.h"

MFnReflectShader::MFnReflectShader() = default;
MFnReflectShader::~MFnReflectShader() = default;

MFnReflectShader::MFnReflectShader(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnReflectShader::setObject(object));
}

MFn::Type MFnReflectShader::type() const {
    return MFn::kReflect;
}

MColor MFnReflectShader::specularColor(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "specularColor", ReturnStatus);
}

float MFnReflectShader::reflectivity(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "reflectivity", ReturnStatus);
}

MColor MFnReflectShader::reflectedColor(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "reflectedColor", ReturnStatus);
}

short MFnReflectShader::reflectedRayDepthLimit(MStatus* ReturnStatus) const {
    return host::attributeNumber<short>(object_, "reflectionLimit", ReturnStatus);
}

MStatus MFnReflectShader::setSpecularColor(const MColor& color) {
    return host::setAttributeColor(object_, "specularColor", color);
}

MStatus MFnReflectShader::setReflectivity(const float& value) {
    return host::setAttributeNumber(object_, "reflectivity", value);
}

MStatus MFnReflectShader::setReflectedColor(const MColor& color) {
    return host::setAttributeColor(object_, "reflectedColor", color);
}

MStatus MFnReflectShader::setReflectedRayDepthLimit(const short& value) {
    return host::setAttributeNumber(object_, "reflectionLimit", value);
}
