#include <maya/MFnSingleIndexedComponent.h>

#include "host/api/ApiAccess.h"
#include "host/api/componentKinds.h"
#include "host/api/statusResult.h"

#include <limits>

using host::ApiAccess;
using host::ComponentObject;
using host::fail;
using host::succeed;

MFnSingleIndexedComponent::MFnSingleIndexedComponent() = default;
MFnSingleIndexedComponent::~MFnSingleIndexedComponent() = default;

MFnSingleIndexedComponent::MFnSingleIndexedComponent(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnSingleIndexedComponent::setObject(object));
}

MFn::Type MFnSingleIndexedComponent::type() const {
    return MFn::kSingleIndexedComponent;
}

namespace {

bool isElement(int element) {
    return element >= 0 && element < std::numeric_limits<int>::max();
}

} // namespace

MObject MFnSingleIndexedComponent::create(MFn::Type componentType, MStatus* ReturnStatus) {
    if (!host::isSingleIndexed(componentType)) {
        return fail<MObject>(ReturnStatus, MStatus::kInvalidParameter);
    }
    object_ = ApiAccess::object(host::ObjectPayload{ComponentObject{componentType, {}, {}}});
    return succeed(ReturnStatus, object_);
}

MStatus MFnSingleIndexedComponent::addElement(int element) {
    return addElements(MIntArray(1, element));
}

MStatus MFnSingleIndexedComponent::addElements(const MIntArray& elements) {
    ComponentObject* component = ApiAccess::component(object_);
    if (component == nullptr || component->indices.isComplete()) {
        return MStatus::kFailure;
    }
    for (unsigned int i = 0; i < elements.length(); ++i) {
        if (!isElement(elements[i])) {
            return MStatus::kInvalidParameter;
        }
    }
    for (unsigned int i = 0; i < elements.length(); ++i) {
        component->indices.add({elements[i], elements[i]});
    }
    return MStatus::kSuccess;
}

int MFnSingleIndexedComponent::element(int index, MStatus* ReturnStatus) const {
    const ComponentObject* component = ApiAccess::component(object_);
    if (component == nullptr) {
        return fail<int>(ReturnStatus, MStatus::kFailure);
    }
    const bool exists = index >= 0 && index < component->indices.count();
    return exists ? succeed<int>(ReturnStatus, component->indices.at(index))
                  : fail<int>(ReturnStatus, MStatus::kInvalidParameter);
}

MStatus MFnSingleIndexedComponent::getElements(MIntArray& elements) const {
    const ComponentObject* component = ApiAccess::component(object_);
    if (component == nullptr) {
        return MStatus::kFailure;
    }
    storeValues(elements, component->indices.all());
    return MStatus::kSuccess;
}

int MFnSingleIndexedComponent::elementMax(MStatus* ReturnStatus) const {
    const ComponentObject* component = ApiAccess::component(object_);
    const bool isEmpty = component == nullptr || component->indices.ranges().empty();
    return isEmpty ? fail<int>(ReturnStatus, MStatus::kFailure)
                   : succeed<int>(ReturnStatus, component->indices.ranges().back().last);
}

MStatus MFnSingleIndexedComponent::setCompleteData(int numElements) {
    ComponentObject* component = ApiAccess::component(object_);
    if (component == nullptr) {
        return MStatus::kFailure;
    }
    if (numElements < 0) {
        return MStatus::kInvalidParameter;
    }
    component->indices.setComplete(numElements);
    return MStatus::kSuccess;
}

MStatus MFnSingleIndexedComponent::getCompleteData(int& numElements) const {
    const ComponentObject* component = ApiAccess::component(object_);
    if (component == nullptr || !component->indices.isComplete()) {
        return MStatus::kFailure;
    }
    numElements = component->indices.count();
    return MStatus::kSuccess;
}
