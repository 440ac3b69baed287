#include <maya/MCommandResult.h>

#include "host/api/melResults.h"
#include "host/api/statusResult.h"

using host::succeed;

MCommandResult::MCommandResult(MStatus* ReturnStatus) : value_(std::make_unique<host::mel::Value>()) {
    host::report(ReturnStatus, MStatus::kSuccess);
}

MCommandResult::MCommandResult(const MCommandResult& other)
    : value_(std::make_unique<host::mel::Value>(*other.value_)) {}

MCommandResult::~MCommandResult() = default;

MCommandResult& MCommandResult::operator=(const MCommandResult& other) {
    *value_ = *other.value_;
    return *this;
}

MCommandResult::Type MCommandResult::resultType(MStatus* ReturnStatus) const {
    // In the order of host::mel::ValueType.
    static constexpr Type kTypes[] = {kInvalid, kInt,      kDouble,      kString,      kVector,
                                      kMatrix,  kIntArray, kDoubleArray, kStringArray, kVectorArray};
    return succeed(ReturnStatus, kTypes[static_cast<std::size_t>(value_->type())]);
}

MString MCommandResult::stringResult(MStatus* ReturnStatus) const {
    MString text;
    host::report(ReturnStatus, getResult(text));
    return text;
}

MStatus MCommandResult::getResult(int& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MIntArray& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(double& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MDoubleArray& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MString& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MStringArray& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MVector& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MVectorArray& result) const {
    return host::takeResult(*value_, result);
}
MStatus MCommandResult::getResult(MMatrix& result) const {
    return host::takeResult(*value_, result);
}
