#include <maya/MFnLambertShader.h>

#include "host/api/attributeValues.h"

MFnLambertShader::MFnLambertShader() = default;
MFnLambertShader::~MFnLambertShader() = default;

MFnLambertShader::MFnLambertShader(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnLambertShader::setObject(object));
}

MFn::Type MFnLambertShader::type() const {
    return MFn::kLambert;
}

MColor MFnLambertShader::color(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "color", ReturnStatus);
}

MColor MFnLambertShader::transparency(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "transparency", ReturnStatus);
}

MColor MFnLambertShader::ambientColor(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "ambientColor", ReturnStatus);
}

MColor MFnLambertShader::incandescence(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "incandescence", ReturnStatus);
}

float MFnLambertShader::diffuseCoeff(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "diffuse", ReturnStatus);
}

float MFnLambertShader::translucenceCoeff(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "translucence", ReturnStatus);
}

float MFnLambertShader::glowIntensity(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "glowIntensity", ReturnStatus);
}

bool MFnLambertShader::hideSource(MStatus* ReturnStatus) const {
    return host::attributeNumber<bool>(object_, "hideSource", ReturnStatus);
}

float MFnLambertShader::refractiveIndex(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "refractiveIndex", ReturnStatus);
}

short MFnLambertShader::refractedRayDepthLimit(MStatus* ReturnStatus) const {
    return host::attributeNumber<short>(object_, "refractionLimit", ReturnStatus);
}

bool MFnLambertShader::rtRefractedColor(MStatus* ReturnStatus) const {
    return host::attributeNumber<bool>(object_, "refractions", ReturnStatus);
}

MStatus MFnLambertShader::setColor(const MColor& color) {
    return host::setAttributeColor(object_, "color", color);
}

MStatus MFnLambertShader::setTransparency(const MColor& color) {
    return host::setAttributeColor(object_, "transparency", color);
}

MStatus MFnLambertShader::setAmbientColor(const MColor& color) {
    return host::setAttributeColor(object_, "ambientColor", color);
}

MStatus MFnLambertShader::setIncandescence(const MColor& color) {
    return host::setAttributeColor(object_, "incandescence", color);
}

MStatus MFnLambertShader::setDiffuseCoeff(const float& value) {
    return host::setAttributeNumber(object_, "diffuse", value);
}

MStatus MFnLambertShader::setTranslucenceCoeff(const float& value) {
    return host::setAttributeNumber(object_, "translucence", value);
}

MStatus MFnLambertShader::setGlowIntensity(const float& value) {
    return host::setAttributeNumber(object_, "glowIntensity", value);
}

MStatus MFnLambertShader::setHideSource(bool value) {
    return host::setAttributeNumber(object_, "hideSource", value ? 1.0 : 0.0);
}

MStatus MFnLambertShader::setRefractiveIndex(const float& value) {
    return host::setAttributeNumber(object_, "refractiveIndex", value);
}

MStatus MFnLambertShader::setRefractedRayDepthLimit(const short& value) {
    return host::setAttributeNumber(object_, "refractionLimit", value);
}

MStatus MFnLambertShader::setRtRefractedColor(bool value) {
    return host::setAttributeNumber(object_, "refractions", value ? 1.0 : 0.0);
}
