#include "host/graph/Graph.h"
#include "host/graph/GraphImpl.h"
#include "host/graph/plugSteps.h"
#include "host/graph/storedValues.h"

#include <cmath>
#include <limits>
#include <utility>

namespace host {

namespace {

bool holdsData(const Attribute& attribute, const DataPtr& value) {
    if (attribute.kind == AttrKind::kGeneric) {
        return true;
    }
    const bool anyKind = attribute.dataKind == DataKind::kNone || attribute.dataKind == DataKind::kOther;
    return attribute.kind == AttrKind::kData && (anyKind || value == nullptr || value->kind == attribute.dataKind);
}

const Attribute* attributeOf(const Plug& plug) {
    return plug ? &plug.node->attribute(plug.at.attr) : nullptr;
}

/// Saturates; NaN gives 0.
Ticks toTicks(double value) {
    constexpr double kHighest = 9223372036854775808.0;
    if (std::isnan(value)) {
        return 0;
    }
    if (std::abs(value) >= kHighest) {
        return value > 0.0 ? std::numeric_limits<Ticks>::max() : std::numeric_limits<Ticks>::min();
    }
    return std::llround(value);
}

} // namespace

GraphResult Graph::isFreeToChange(const Plug& plug) const {
    if (isLocked(plug)) {
        return {messageName(*this, plug) + " is locked"};
    }
    if (!plug.node->incoming_.empty() && isOwnerConnected(plug)) {
        return {messageName(*this, plug) + " is connected"};
    }
    if (plug.node->attribute(plug.at.attr).computed) {
        return {messageName(*this, plug) + " is computed"};
    }
    return {};
}

/// `holdsThis`: the attribute's kind fits what is being set, which `what` names.
GraphResult Graph::checkSettable(const Plug& plug, bool holdsThis, const char* what) const {
    if (!plug) {
        return {"There is no such plug to set"};
    }
    const Attribute& attribute = plug.node->attribute(plug.at.attr);
    if (!holdsThis || !isOneValue(*plug.node, plug.at)) {
        return {messageName(*this, plug) + " does not hold " + what};
    }
    if (!attribute.writable) {
        return {messageName(*this, plug) + " cannot be set"};
    }
    return isFreeToChange(plug);
}

GraphResult Graph::setNumber(const Plug& plug, double value) {
    const Attribute* attribute = attributeOf(plug);
    const bool holdsThis =
        attribute != nullptr && (isNumeric(attribute->kind) || attribute->kind == AttrKind::kGeneric);
    if (holdsThis && attribute->longName == "outTime" && impl_->timeNodes.count(plug.node) != 0) {
        setTime(toTicks(value));
        return {};
    }
    GraphResult result = checkSettable(plug, holdsThis, "a number");
    if (result.ok()) {
        storeNumber(*plug.node, plug.node->values_, plug.at, value);
        changed(plug);
    }
    return result;
}

GraphResult Graph::setString(const Plug& plug, std::string value) {
    const Attribute* attribute = attributeOf(plug);
    const bool holdsThis =
        attribute != nullptr && (attribute->kind == AttrKind::kString || attribute->kind == AttrKind::kGeneric);
    GraphResult result = checkSettable(plug, holdsThis, "a string");
    if (result.ok()) {
        makeStored(*plug.node, plug.node->values_, plug.at) = std::move(value);
        changed(plug);
    }
    return result;
}

GraphResult Graph::setMatrix(const Plug& plug, const Matrix44& value) {
    const Attribute* attribute = attributeOf(plug);
    const bool holdsThis =
        attribute != nullptr && (attribute->kind == AttrKind::kMatrix || attribute->kind == AttrKind::kGeneric);
    GraphResult result = checkSettable(plug, holdsThis, "a matrix");
    if (result.ok()) {
        makeStored(*plug.node, plug.node->values_, plug.at) = std::make_shared<const Matrix44>(value);
        changed(plug);
    }
    return result;
}

GraphResult Graph::setData(const Plug& plug, DataPtr value) {
    const Attribute* attribute = attributeOf(plug);
    GraphResult result = checkSettable(plug, attribute != nullptr && holdsData(*attribute, value), "this kind of data");
    if (result.ok()) {
        Value& place = makeStored(*plug.node, plug.node->values_, plug.at);
        place = value != nullptr ? Value(std::move(value)) : Value();
        changed(plug);
    }
    return result;
}

NumberRows& Graph::rowsForWriting(const Plug& array) {
    return makeStoredRows(*array.node, array.node->values_, array.at);
}

const NumberRows* Graph::storedRows(const Plug& array) const {
    const Value* value = stored(array);
    const auto* rows = value != nullptr ? std::get_if<std::unique_ptr<NumberRows>>(value) : nullptr;
    return rows != nullptr ? rows->get() : nullptr;
}

const Value* Graph::stored(const Plug& plug) const {
    if (!plug || (!isOneValue(*plug.node, plug.at) && !isWholeArray(*plug.node, plug.at))) {
        return nullptr;
    }
    return findStored(*plug.node, plug.node->values_, plug.at).value;
}

bool Graph::hasStored(const Plug& plug) const {
    if (!plug || (!isOneValue(*plug.node, plug.at) && !isWholeArray(*plug.node, plug.at))) {
        return false;
    }
    const StoredPlace place = findStored(*plug.node, plug.node->values_, plug.at);
    return place.rows != nullptr || (place.value != nullptr && !std::holds_alternative<std::monostate>(*place.value));
}

} // namespace host
