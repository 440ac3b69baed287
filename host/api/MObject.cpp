#include <maya/MObject.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/objectTypes.h"
#include "host/api/values/fnTypeNames.h"

using host::ApiAccess;

MObject MObject::kNullObj;

MObject::MObject() = default;
MObject::MObject(const MObject& other) = default;
MObject::~MObject() = default;
MObject& MObject::operator=(const MObject& other) = default;

namespace {

MFn::Type attributeType(const MObject& object) {
    const host::Attribute* row = ApiAccess::attributeRow(object);
    if (row == nullptr) {
        return MFn::kInvalid;
    }
    const host::AttributeObject& attribute = *ApiAccess::attribute(object);
    const host::Node* owner = attribute.type == nullptr ? host::Host::instance().graph().node(attribute.node) : nullptr;
    return host::typeOf(*row, owner, attribute.type);
}

bool sameAttribute(const host::AttributeObject& a, const host::AttributeObject& b) {
    return a.type == b.type && a.node == b.node && a.attr == b.attr;
}

} // namespace

bool MObject::isNull() const {
    if (!payload_) {
        return ApiAccess::node(*this) == nullptr;
    }
    if (ApiAccess::attribute(*this) != nullptr) {
        return ApiAccess::attributeRow(*this) == nullptr;
    }
    const host::PluginObject* plugin = ApiAccess::plugin(*this);
    return plugin != nullptr && plugin->plugin == nullptr;
}

MFn::Type MObject::apiType() const {
    if (isNull()) {
        return MFn::kInvalid;
    }
    if (const host::Node* node = ApiAccess::node(*this)) {
        return static_cast<MFn::Type>(node->type().apiType());
    }
    if (const host::DataObject* data = ApiAccess::data(*this)) {
        return host::typeOf(*data);
    }
    if (const host::ComponentObject* component = ApiAccess::component(*this)) {
        return component->type;
    }
    return ApiAccess::plugin(*this) != nullptr ? MFn::kPlugin : attributeType(*this);
}

bool MObject::hasFn(MFn::Type type) const {
    if (isNull()) {
        return false;
    }
    if (const host::Node* node = ApiAccess::node(*this)) {
        return host::nodeHasFn(*node, type);
    }
    if (const host::DataObject* data = ApiAccess::data(*this)) {
        return host::dataHasFn(*data, type);
    }
    if (const host::ComponentObject* component = ApiAccess::component(*this)) {
        return host::componentHasFn(component->type, type);
    }
    if (ApiAccess::plugin(*this) != nullptr) {
        return type == MFn::kPlugin || type == MFn::kBase;
    }
    return host::attributeHasFn(attributeType(*this), type);
}

const char* MObject::apiTypeStr() const {
    return host::api::fnTypeName(apiType());
}

bool MObject::operator==(const MObject& other) const {
    if (isNull() || other.isNull()) {
        return isNull() && other.isNull();
    }
    if (const host::AttributeObject* attribute = ApiAccess::attribute(*this)) {
        const host::AttributeObject* second = ApiAccess::attribute(other);
        return second != nullptr && sameAttribute(*attribute, *second);
    }
    if (const host::ComponentObject* component = ApiAccess::component(*this)) {
        const host::ComponentObject* second = ApiAccess::component(other);
        return second != nullptr && component->type == second->type && component->indices == second->indices &&
               component->texts == second->texts;
    }
    return payload_ == other.payload_ && slot_ == other.slot_ && generation_ == other.generation_;
}

bool MObject::operator!=(const MObject& other) const {
    return !(*this == other);
}

bool MObject::operator!() const {
    return isNull();
}
