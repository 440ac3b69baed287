#include "host/api/plugValues.h"

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/graph/plugSteps.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

bool holdsNumber(AttrKind kind) {
    return isNumeric(kind) || kind == AttrKind::kGeneric;
}

const Attribute* attributeOf(const Plug& plug) {
    return plug && isOneValue(*plug.node, plug.at) ? &plug.node->attribute(plug.at.attr) : nullptr;
}

MStatus finish(const GraphResult& result) {
    if (!result.ok()) {
        return MStatus::kFailure;
    }
    Host::instance().scene().file().modified = true;
    return MStatus::kSuccess;
}

/// Tuples by the kind of their numbers; the first row that fits all of them counts.
struct TupleRow {
    MFnNumericData::Type two, three, four;
    std::array<AttrKind, 5> kinds;
};

constexpr std::array<TupleRow, 4> kTuples = {{
    {MFnNumericData::k2Short,
     MFnNumericData::k3Short,
     MFnNumericData::kInvalid,
     {AttrKind::kShort, AttrKind::kBool, AttrKind::kByte, AttrKind::kChar, AttrKind::kEnum}},
    {MFnNumericData::k2Int,
     MFnNumericData::k3Int,
     MFnNumericData::kInvalid,
     {AttrKind::kInt, AttrKind::kInt, AttrKind::kInt, AttrKind::kInt, AttrKind::kInt}},
    {MFnNumericData::k2Float,
     MFnNumericData::k3Float,
     MFnNumericData::kInvalid,
     {AttrKind::kFloat, AttrKind::kFloat, AttrKind::kFloat, AttrKind::kFloat, AttrKind::kFloat}},
    {MFnNumericData::k2Double,
     MFnNumericData::k3Double,
     MFnNumericData::k4Double,
     {AttrKind::kDouble, AttrKind::kDistance, AttrKind::kAngle, AttrKind::kFloat, AttrKind::kInt}},
}};

MFnNumericData::Type tupleType(const Node& node, const std::vector<AttrIndex>& children) {
    for (const TupleRow& row : kTuples) {
        const bool fits = std::all_of(children.begin(), children.end(), [&](AttrIndex child) {
            const Attribute& attribute = node.attribute(child);
            return !attribute.array && std::find(row.kinds.begin(), row.kinds.end(), attribute.kind) != row.kinds.end();
        });
        if (fits) {
            const std::size_t count = children.size();
            return count == 2 ? row.two : count == 3 ? row.three : count == 4 ? row.four : MFnNumericData::kInvalid;
        }
    }
    return MFnNumericData::kInvalid;
}

MStatus readTuple(const Plug& plug, const std::vector<AttrIndex>& children, MObject& value) {
    NumericValue tuple;
    tuple.type = tupleType(*plug.node, children);
    if (tuple.type == MFnNumericData::kInvalid) {
        return MStatus::kFailure;
    }
    for (std::size_t i = 0; i < children.size(); ++i) {
        Plug child = plug;
        child.at.attr = children[i];
        tuple.numbers[i] = Host::instance().graph().number(child);
    }
    value = ApiAccess::object(ObjectPayload{DataObject{tuple}});
    return MStatus::kSuccess;
}

MStatus writeTuple(const Plug& plug, const std::vector<AttrIndex>& children, const NumericValue& tuple) {
    const MFnNumericData::Type wanted = tupleType(*plug.node, children);
    const Graph& graph = Host::instance().graph();
    std::vector<Plug> places;
    for (const AttrIndex child : children) {
        places.push_back(plug);
        places.back().at.attr = child;
    }
    // All or nothing: a locked component must not leave the others half changed.
    const bool free =
        std::all_of(places.begin(), places.end(), [&](const Plug& place) { return graph.isFreeToChange(place).ok(); });
    if (wanted == MFnNumericData::kInvalid || wanted != tuple.type || !free) {
        return MStatus::kFailure;
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        const MStatus status = finish(Host::instance().graph().setNumber(places[i], tuple.numbers[i]));
        if (status != MStatus::kSuccess) {
            return status;
        }
    }
    return MStatus::kSuccess;
}

} // namespace

MStatus readStoredNumber(const Plug& plug, double& value) {
    const Attribute* attribute = attributeOf(plug);
    if (attribute == nullptr || !holdsNumber(attribute->kind)) {
        return MStatus::kFailure;
    }
    value = Host::instance().graph().number(plug);
    return MStatus::kSuccess;
}

MStatus writeStoredNumber(const Plug& plug, double value) {
    const Attribute* attribute = attributeOf(plug);
    if (attribute == nullptr || !holdsNumber(attribute->kind)) {
        return MStatus::kFailure;
    }
    return finish(Host::instance().graph().setNumber(plug, value));
}

MStatus readNumber(const Plug& plug, double& value) {
    const MStatus status = readStoredNumber(plug, value);
    if (status == MStatus::kSuccess && plug.node->attribute(plug.at.attr).kind == AttrKind::kTime) {
        value /= static_cast<double>(kTicksPerSecond);
    }
    return status;
}

MStatus writeNumber(const Plug& plug, double value) {
    const bool isTime = plug && plug.node->attribute(plug.at.attr).kind == AttrKind::kTime;
    return writeStoredNumber(plug, isTime ? std::nearbyint(value * static_cast<double>(kTicksPerSecond)) : value);
}

MStatus readString(const Plug& plug, MString& value) {
    const Attribute* attribute = attributeOf(plug);
    if (attribute == nullptr || (attribute->kind != AttrKind::kString && attribute->kind != AttrKind::kGeneric)) {
        return MStatus::kFailure;
    }
    value = Host::instance().graph().string(plug).c_str();
    return MStatus::kSuccess;
}

MStatus writeString(const Plug& plug, const MString& value) {
    const Attribute* attribute = attributeOf(plug);
    if (attribute == nullptr || (attribute->kind != AttrKind::kString && attribute->kind != AttrKind::kGeneric)) {
        return MStatus::kFailure;
    }
    return finish(Host::instance().graph().setString(plug, value.asChar()));
}

MStatus readObject(const Plug& plug, MObject& value) {
    const Attribute* attribute = attributeOf(plug);
    if (attribute == nullptr) {
        return MStatus::kFailure;
    }
    Graph& graph = Host::instance().graph();
    DataObject data;
    if (attribute->kind == AttrKind::kCompound) {
        return readTuple(plug, attribute->children, value);
    }
    if (attribute->kind == AttrKind::kString) {
        data.value = graph.string(plug);
    } else if (attribute->kind == AttrKind::kMatrix) {
        data.value = graph.matrix(plug);
    } else if (attribute->kind == AttrKind::kData) {
        data.value = graph.data(plug);
    } else {
        return MStatus::kFailure;
    }
    const DataPtr* pointer = std::get_if<DataPtr>(&data.value);
    if (pointer != nullptr && *pointer == nullptr) {
        return MStatus::kFailure; // there is no value
    }
    value = ApiAccess::object(ObjectPayload{std::move(data)});
    return MStatus::kSuccess;
}

MStatus writeObject(const Plug& plug, const MObject& value) {
    const Attribute* attribute = attributeOf(plug);
    const DataObject* data = ApiAccess::data(value);
    if (attribute == nullptr || data == nullptr) {
        return MStatus::kFailure;
    }
    Graph& graph = Host::instance().graph();
    if (const auto* tuple = std::get_if<NumericValue>(&data->value)) {
        return attribute->kind == AttrKind::kCompound ? writeTuple(plug, attribute->children, *tuple)
                                                      : MStatus(MStatus::kFailure);
    }
    if (const std::string* text = std::get_if<std::string>(&data->value)) {
        return writeString(plug, MString(text->c_str()));
    }
    if (const Matrix44* matrix = std::get_if<Matrix44>(&data->value)) {
        return attribute->kind == AttrKind::kMatrix ? finish(graph.setMatrix(plug, *matrix))
                                                    : MStatus(MStatus::kFailure);
    }
    const DataPtr& pointer = std::get<DataPtr>(data->value);
    const bool fits = attribute->kind == AttrKind::kData && pointer != nullptr && pointer->kind == attribute->dataKind;
    return fits ? finish(graph.setData(plug, pointer)) : MStatus(MStatus::kFailure);
}

} // namespace host
