#include "host/scene/attributeValueResult.h"

#include "host/geometry/ArrayData.h"
#include "host/geometry/ComponentList.h"
#include "host/graph/plugSteps.h"
#include "host/scene/unitConversion.h"
#include "host/scene/valueTypes.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::string_view kKindNames[] = {
    "bool",        "byte", "char",   "short",  "long",    "enum",     "float",       "double",  "doubleLinear",
    "doubleAngle", "time", "string", "matrix", "message", "compound", "TdataNumber", "generic",
};
static_assert(std::size(kKindNames) == static_cast<std::size_t>(AttrKind::kGeneric) + 1);

bool isWholeNumber(AttrKind kind) {
    return kind <= AttrKind::kEnum;
}

mel::Value numberValue(Scene& scene, const Plug& plug) {
    const AttrKind kind = plug.node->attribute(plug.at.attr).kind;
    const double value = toExternal(scene.units(), kind, scene.graph().number(plug));
    return isWholeNumber(kind) ? mel::Value(mel::Value(value).toInt()) : mel::Value(value);
}

void addNumbers(Scene& scene, const Plug& plug, mel::FloatArray& numbers) {
    const Attribute& attribute = plug.node->attribute(plug.at.attr);
    if (isNumeric(attribute.kind)) {
        numbers.push_back(numberValue(scene, plug).toFloat());
        return;
    }
    for (const AttrIndex child : attribute.children) {
        Plug below = plug;
        below.at.attr = child;
        if (!plug.node->attribute(child).array) {
            addNumbers(scene, below, numbers);
        }
    }
}

mel::Value matrixValue(const Matrix44& matrix) {
    return mel::FloatArray(&matrix[0][0], &matrix[0][0] + 16);
}

template <typename ArrayType>
mel::Value numbersOf(const ArrayType& data) {
    return mel::FloatArray(data.values.begin(), data.values.end());
}

mel::Value dataValue(const DataPtr& data) {
    if (const auto* texts = arrayDataOf<StringArrayData>(data)) {
        return mel::StringArray(texts->values);
    }
    if (const auto* numbers = arrayDataOf<DoubleArrayData>(data)) {
        return numbersOf(*numbers);
    }
    if (const auto* numbers = arrayDataOf<FloatArrayData>(data)) {
        return numbersOf(*numbers);
    }
    if (const auto* numbers = arrayDataOf<IntArrayData>(data)) {
        return mel::IntArray(numbers->values.begin(), numbers->values.end());
    }
    mel::StringArray texts;
    if (data != nullptr && data->kind == DataKind::kComponentList) {
        for (const ComponentRange& range : static_cast<const ComponentList&>(*data).ranges) {
            texts.push_back(componentText(range));
        }
    } else if (const auto* aliases = arrayDataOf<AttributeAliasData>(data)) {
        for (const AttributeAlias& alias : aliases->values) {
            texts.push_back(alias.alias);
            texts.push_back(alias.path);
        }
    } else {
        return {};
    }
    return texts;
}

// Generic attributes hold whatever came last.
mel::Value storedValue(Scene& scene, const Plug& plug) {
    const Value* stored = scene.graph().stored(plug);
    if (stored == nullptr) {
        return {};
    }
    if (const auto* number = std::get_if<double>(stored)) {
        return *number;
    }
    if (const auto* text = std::get_if<std::string>(stored)) {
        return *text;
    }
    if (const auto* matrix = std::get_if<std::shared_ptr<const Matrix44>>(stored)) {
        return matrixValue(**matrix);
    }
    return {};
}

mel::Value elementValues(Scene& scene, const Plug& array) {
    mel::FloatArray numbers;
    mel::StringArray texts;
    for (const std::int32_t index : scene.graph().elementIndices(array)) {
        const Plug element{array.node, array.at.element(index)};
        const mel::Value value = attributeValue(scene, element);
        if (value.isString()) {
            texts.push_back(value.text());
        } else if (value.isNumber()) {
            numbers.push_back(value.toFloat());
        } else {
            numbers.insert(numbers.end(), value.floats().begin(), value.floats().end());
        }
    }
    if (!texts.empty()) {
        return texts;
    }
    return numbers.empty() ? mel::Value() : mel::Value(std::move(numbers));
}

} // namespace

mel::Value attributeValue(Scene& scene, const Plug& plug) {
    const Attribute& attribute = plug.node->attribute(plug.at.attr);
    Graph& graph = scene.graph();
    if (isWholeArray(*plug.node, plug.at)) {
        return elementValues(scene, plug);
    }
    switch (attribute.kind) {
    case AttrKind::kString:
        return graph.string(plug);
    case AttrKind::kMatrix:
        return matrixValue(graph.matrix(plug));
    case AttrKind::kData:
        return dataValue(graph.data(plug));
    case AttrKind::kGeneric: {
        mel::Value value = storedValue(scene, plug);
        return value.isNone() ? dataValue(graph.data(plug)) : value;
    }
    case AttrKind::kMessage:
        return {};
    case AttrKind::kCompound: {
        mel::FloatArray numbers;
        addNumbers(scene, plug, numbers);
        return numbers.empty() ? mel::Value() : mel::Value(std::move(numbers));
    }
    default:
        return numberValue(scene, plug);
    }
}

std::string attributeTypeName(const Node& node, AttrIndex attr) {
    const Attribute& attribute = node.attribute(attr);
    if (!attribute.fileType.empty()) {
        return attribute.fileType;
    }
    if (attribute.kind == AttrKind::kData) {
        const ValueType* type = valueTypeOf(attribute.dataKind);
        return type != nullptr ? std::string(type->name) : std::string("data");
    }
    const std::size_t count = attribute.children.size();
    if (attribute.kind == AttrKind::kCompound && count >= 2 && count <= 4) {
        const AttrKind kind = node.attribute(attribute.children.front()).kind;
        const bool isUniform = std::all_of(attribute.children.begin(), attribute.children.end(), [&](AttrIndex child) {
            return node.attribute(child).kind == kind && !node.attribute(child).array;
        });
        const bool isDouble = kind == AttrKind::kDistance || kind == AttrKind::kAngle || kind == AttrKind::kDouble;
        if (isUniform && (isDouble || kind == AttrKind::kFloat || kind == AttrKind::kInt || kind == AttrKind::kShort)) {
            const std::string_view number = isDouble ? "double" : kKindNames[static_cast<std::size_t>(kind)];
            return std::string(number) + std::to_string(count);
        }
    }
    return std::string(kKindNames[static_cast<std::size_t>(attribute.kind)]);
}

} // namespace host
