#include <maya/MFnComponent.h>

#include "host/api/ApiAccess.h"
#include "host/api/componentKinds.h"
#include "host/api/statusResult.h"

using host::ApiAccess;
using host::ComponentObject;
using host::fail;
using host::succeed;

MFnComponent::MFnComponent() = default;
MFnComponent::~MFnComponent() = default;

MFnComponent::MFnComponent(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnComponent::setObject(object));
}

MFn::Type MFnComponent::type() const {
    return MFn::kComponent;
}

int MFnComponent::elementCount(MStatus* ReturnStatus) const {
    const ComponentObject* component = ApiAccess::component(object_);
    if (component == nullptr || !host::isSingleIndexed(component->type)) {
        return fail<int>(ReturnStatus, MStatus::kFailure);
    }
    return succeed<int>(ReturnStatus, component->indices.count());
}

bool MFnComponent::isEmpty(MStatus* ReturnStatus) const {
    const ComponentObject* component = ApiAccess::component(object_);
    return component == nullptr
               ? fail(ReturnStatus, MStatus::kFailure, true)
               : succeed(ReturnStatus, component->texts.empty() && component->indices.ranges().empty());
}

bool MFnComponent::isComplete(MStatus* ReturnStatus) const {
    const ComponentObject* component = ApiAccess::component(object_);
    return component == nullptr ? fail<bool>(ReturnStatus, MStatus::kFailure)
                                : succeed(ReturnStatus, component->indices.isComplete());
}

MFn::Type MFnComponent::componentType(MStatus* ReturnStatus) const {
    const ComponentObject* component = ApiAccess::component(object_);
    return component == nullptr ? fail(ReturnStatus, MStatus::kFailure, MFn::kInvalid)
                                : succeed(ReturnStatus, component->type);
}

bool MFnComponent::isEqual(MFnComponent& other, MStatus* ReturnStatus) const {
    if (object_.isNull() || other.object_.isNull()) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, object_ == other.object_);
}
