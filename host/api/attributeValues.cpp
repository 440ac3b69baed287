#include "host/api/attributeValues.h"

namespace host {

Plug attributePlug(const MObject& node, const char* attribute) {
    Node* owner = ApiAccess::node(node);
    const AttrIndex attr = owner != nullptr ? owner->findAttribute(attribute) : kNoAttr;
    return attr == kNoAttr ? Plug{} : Plug{owner, {attr, 0, {}}};
}

MStatus setAttributeNumber(const MObject& node, const char* attribute, double value) {
    return writeNumber(attributePlug(node, attribute), value);
}

MColor attributeColor(const MObject& node, const char* attribute, MStatus* status) {
    MObject object;
    const bool isRead = readObject(attributePlug(node, attribute), object) == MStatus::kSuccess;
    const DataObject* data = isRead ? ApiAccess::data(object) : nullptr;
    const NumericValue* value = data != nullptr ? std::get_if<NumericValue>(&data->value) : nullptr;
    if (value == nullptr || value->type != MFnNumericData::k3Float) {
        return fail<MColor>(status, MStatus::kFailure);
    }
    const auto& number = value->numbers;
    return succeed(status,
                   MColor(static_cast<float>(number[0]), static_cast<float>(number[1]), static_cast<float>(number[2])));
}

MStatus setAttributeColor(const MObject& node, const char* attribute, const MColor& color) {
    const NumericValue value{MFnNumericData::k3Float, {color.r, color.g, color.b, 0.0}};
    return writeObject(attributePlug(node, attribute), ApiAccess::object(ObjectPayload{DataObject{value}}));
}

} // namespace host
