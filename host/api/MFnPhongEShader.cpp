#include <maya/MFnPhongEShader.h>

#include "host/api/attributeValues.h"

MFnPhongEShader::MFnPhongEShader() = default;
MFnPhongEShader::~MFnPhongEShader() = default;

MFnPhongEShader::MFnPhongEShader(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnPhongEShader::setObject(object));
}

MFn::Type MFnPhongEShader::type() const {
    return MFn::kPhongExplorer;
}

float MFnPhongEShader::roughness(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "roughness", ReturnStatus);
}

float MFnPhongEShader::highlightSize(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "highlightSize", ReturnStatus);
}

MColor MFnPhongEShader::whiteness(MStatus* ReturnStatus) const {
    return host::attributeColor(object_, "whiteness", ReturnStatus);
}

MStatus MFnPhongEShader::setRoughness(const float& value) {
    return host::setAttributeNumber(object_, "roughness", value);
}

MStatus MFnPhongEShader::setHighlightSize(const float& value) {
    return host::setAttributeNumber(object_, "highlightSize", value);
}

MStatus MFnPhongEShader::setWhiteness(const MColor& color) {
    return host::setAttributeColor(object_, "whiteness", color);
}
