#include <maya/MFnPhongShader.h>

#include "host/api/attributeValues.h"

MFnPhongShader::MFnPhongShader() = default;
MFnPhongShader::~MFnPhongShader() = default;

MFnPhongShader::MFnPhongShader(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnPhongShader::setObject(object));
}

MFn::Type MFnPhongShader::type() const {
    return MFn::kPhong;
}

float MFnPhongShader::cosPower(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "cosinePower", ReturnStatus);
}

MStatus MFnPhongShader::setCosPower(const float& value) {
    return host::setAttributeNumber(object_, "cosinePower", value);
}
