#include <maya/MFnBase.h>

#include "host/api/statusResult.h"

MFnBase::MFnBase() = default;
MFnBase::~MFnBase() = default;

MFn::Type MFnBase::type() const {
    return MFn::kBase;
}

bool MFnBase::hasObj(MFn::Type type) const {
    return object_.hasFn(type);
}

bool MFnBase::hasObj(const MObject& object) const {
    return object.hasFn(type());
}

MObject MFnBase::object(MStatus* ReturnStatus) const {
    return object_.isNull() ? host::fail<MObject>(ReturnStatus, MStatus::kFailure)
                            : host::succeed(ReturnStatus, object_);
}

MStatus MFnBase::setObject(const MObject& object) {
    if (!object.hasFn(type())) {
        return MStatus::kInvalidParameter;
    }
    object_ = object;
    return MStatus::kSuccess;
}
