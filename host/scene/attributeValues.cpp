#include "host/scene/attributeValues.h"

#include "host/geometry/ArrayData.h"
#include "host/graph/plugSteps.h"
#include "host/scene/readReferenceEdits.h"
#include "host/scene/rowValues.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/typedValues.h"
#include "host/scene/unitConversion.h"
#include "host/scene/valueTypes.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::string_view kNumber = "a number";

Outcome fromGraph(const StatementContext& context, const GraphResult& result, const Plug& plug) {
    // Files store outputs that the host computes anew.
    const bool isStale = context.isLoading && plug.node->attribute(plug.at.attr).computed;
    return result.ok() || isStale ? Outcome::done() : Outcome::skipped(result.error);
}

bool takeNumberOrWord(ArgumentStream& arguments, double& number) {
    bool isOn = false;
    if (arguments.takeNumber(number)) {
        return true;
    }
    const bool isWord = arguments.takeBoolean(isOn);
    number = isOn ? 1.0 : 0.0;
    return isWord;
}

// The plain numbers that a value of this plug consists of: itself, or the children of a compound in their order, theirs
// in turn. False when there are others among them.
bool numberPlugs(const Plug& plug, std::vector<Plug>& plugs) {
    const Attribute& attribute = plug.node->attribute(plug.at.attr);
    if (isNumeric(attribute.kind) || attribute.kind == AttrKind::kGeneric) {
        plugs.push_back(plug);
        return true;
    }
    return attribute.kind == AttrKind::kCompound && !attribute.children.empty() &&
           std::all_of(attribute.children.begin(), attribute.children.end(), [&](AttrIndex child) {
               Plug below = plug;
               below.at.attr = child;
               return !plug.node->attribute(child).array && numberPlugs(below, plugs);
           });
}

bool fitsRows(const Attribute& array, const ValueType* type) {
    const std::size_t width = array.kind == AttrKind::kCompound ? array.children.size() : 1;
    return type == nullptr || static_cast<std::size_t>(type->count) == width;
}

Outcome refuse(ArgumentStream& arguments, std::string_view type, std::string_view name) {
    arguments.skipRest();
    return Outcome::skipped(messages::kWrongType, {type, name});
}

// Values of one kind into one plug after the other.
class ValueReader {
public:
    ValueReader(StatementContext& context, ArgumentStream& arguments, const ValueRequest& request)
        : context_(context), arguments_(arguments), request_(request) {}

    Outcome readTarget(const PlugTarget& target);

private:
    Graph& graph() { return context_.scene.graph(); }
    Outcome readRange(const PlugTarget& target);
    Outcome readOne(const Plug& plug);
    Outcome readByType(const Plug& plug, const ValueType& type);
    Outcome readByKind(const Plug& plug);
    Outcome readNumbers(const Plug& plug, int count);
    Outcome readString(const Plug& plug);
    Outcome readMatrixValue(const Plug& plug);
    Outcome readData(const Plug& plug, const ValueType& type);
    Outcome readEdits(const Plug& plug);
    Outcome readAliasList(const Plug& plug);
    Outcome readFaceChunk(const PlugTarget& target);
    bool isTimeOfScene(const Plug& plug) const;
    bool isElementOfRows(const Plug& plug) const;
    bool holdsFaces(const PlugTarget& target) const;
    std::string_view typeOf(const Plug& plug) const;

    StatementContext& context_;
    ArgumentStream& arguments_;
    const ValueRequest& request_;
};

bool ValueReader::isElementOfRows(const Plug& plug) const {
    return plug.node->attribute(plug.at.attr).rows && isOneValue(*plug.node, plug.at);
}

bool ValueReader::isTimeOfScene(const Plug& plug) const {
    return plug.node->isDefault && plug.node->type().name() == "time" &&
           plug.node->attribute(plug.at.attr).longName == "outTime";
}

bool ValueReader::holdsFaces(const PlugTarget& target) const {
    return target.node->attribute(target.range.at.attr).dataKind == DataKind::kPolyFaces &&
           target.range.below == kNoAttr && (request_.type.empty() || request_.type == "polyFaces");
}

std::string_view ValueReader::typeOf(const Plug& plug) const {
    const AttrKind kind = plug.node->attribute(plug.at.attr).kind;
    const bool goesOn = request_.type.empty() && kind == AttrKind::kGeneric && context_.typedPlug.node == plug.node &&
                        context_.typedPlug.at.attr == plug.at.attr;
    return goesOn ? std::string_view(context_.typedAs) : request_.type;
}

Outcome ValueReader::readNumbers(const Plug& plug, int count) {
    const bool isGeneric = plug.node->attribute(plug.at.attr).kind == AttrKind::kGeneric;
    if (isGeneric && count > 1 && context_.isLoading) {
        arguments_.skipRest(); // what takes any value, as a render layer's overrides do, is evaluated as one number
        return Outcome::done();
    }
    std::vector<Plug> plugs;
    if (!numberPlugs(plug, plugs) || (count != 0 && plugs.size() != static_cast<std::size_t>(count))) {
        return refuse(arguments_, request_.type.empty() ? "number" : request_.type, request_.name);
    }
    Outcome outcome;
    for (const Plug& place : plugs) {
        double number = 0.0;
        if (!takeNumberOrWord(arguments_, number)) {
            return Outcome::broken(arguments_, kNumber);
        }
        const double value = toInternal(context_.scene.units(), place.node->attribute(place.at.attr).kind, number);
        if (isTimeOfScene(place)) {
            context_.scene.setCurrentFrame(number);
        } else if (outcome.ok()) {
            outcome = fromGraph(context_, graph().setNumber(place, value), place);
        }
    }
    return outcome;
}

Outcome ValueReader::readString(const Plug& plug) {
    std::string_view text;
    if (!arguments_.takeString(text)) {
        return Outcome::broken(arguments_, "a string");
    }
    const AttrKind kind = plug.node->attribute(plug.at.attr).kind;
    if (kind != AttrKind::kString && kind != AttrKind::kGeneric) {
        return refuse(arguments_, "string", request_.name);
    }
    return fromGraph(context_, graph().setString(plug, std::string(text)), plug);
}

Outcome ValueReader::readMatrixValue(const Plug& plug) {
    Outcome outcome;
    const std::optional<Matrix44> matrix = readMatrix(arguments_, outcome);
    if (!matrix) {
        return outcome;
    }
    const AttrKind kind = plug.node->attribute(plug.at.attr).kind;
    if (kind != AttrKind::kMatrix && kind != AttrKind::kGeneric) {
        return refuse(arguments_, "matrix", request_.name);
    }
    return fromGraph(context_, graph().setMatrix(plug, *matrix), plug);
}

Outcome ValueReader::readAliasList(const Plug& plug) {
    Outcome outcome;
    DataPtr data = readAliases(arguments_, outcome);
    const auto* aliases = arrayDataOf<AttributeAliasData>(data);
    if (aliases == nullptr) {
        return outcome;
    }
    for (const AttributeAlias& alias : aliases->values) {
        const PlugRange range = findPlugRange(*plug.node, alias.path);
        if (range && !range.isRange) {
            graph().setAlias(*plug.node, alias.alias, range.at);
        }
    }
    return fromGraph(context_, graph().setData(plug, std::move(data)), plug);
}

Outcome ValueReader::readData(const Plug& plug, const ValueType& type) {
    Outcome outcome;
    DataPtr data = readDataValue(context_, arguments_, type.form, outcome);
    if (data == nullptr) {
        return outcome;
    }
    const Attribute& attribute = plug.node->attribute(plug.at.attr);
    if (attribute.kind != AttrKind::kGeneric && attribute.dataKind != type.dataKind) {
        return refuse(arguments_, type.name, request_.name);
    }
    return fromGraph(context_, graph().setData(plug, std::move(data)), plug);
}

Outcome ValueReader::readEdits(const Plug& plug) {
    ReferenceEdits edits{plug.node, {}};
    Outcome outcome = readReferenceEdits(arguments_, edits.blocks);
    if (outcome.ok() && context_.references != nullptr) {
        context_.edits.push_back(std::move(edits));
    }
    return outcome;
}

Outcome ValueReader::readByType(const Plug& plug, const ValueType& type) {
    switch (type.form) {
    case ValueForm::kNumbers:
        return readNumbers(plug, type.count);
    case ValueForm::kString:
        return readString(plug);
    case ValueForm::kMatrix:
        return readMatrixValue(plug);
    case ValueForm::kAttributeAlias:
        return readAliasList(plug);
    case ValueForm::kPolyFaces:
        return refuse(arguments_, type.name, request_.name);
    case ValueForm::kReferenceEdits:
        return readEdits(plug);
    case ValueForm::kUnused:
        arguments_.skipRest();
        return Outcome::done();
    default:
        return readData(plug, type);
    }
}

Outcome ValueReader::readByKind(const Plug& plug) {
    const Attribute& attribute = plug.node->attribute(plug.at.attr);
    switch (attribute.kind) {
    case AttrKind::kString:
        return readString(plug);
    case AttrKind::kMatrix:
        return readMatrixValue(plug);
    case AttrKind::kData:
        if (const ValueType* type = valueTypeOf(attribute.dataKind)) {
            return readByType(plug, *type);
        }
        arguments_.skipRest();
        return Outcome::done();
    case AttrKind::kMessage:
        arguments_.skipRest();
        return Outcome::skipped(messages::kNoValue, {request_.name});
    default:
        return readNumbers(plug, 0);
    }
}

Outcome ValueReader::readOne(const Plug& plug) {
    const std::string_view typeName = typeOf(plug);
    if (typeName.empty()) {
        return readByKind(plug);
    }
    const ValueType* type = findValueType(typeName);
    if (type == nullptr) {
        arguments_.skipRest();
        return Outcome::skipped(messages::kUnknownValueType, {typeName, request_.name});
    }
    Outcome outcome = readByType(plug, *type);
    if (!request_.type.empty()) {
        context_.typedPlug = plug;
        context_.typedAs = request_.type;
    }
    return outcome;
}

Outcome ValueReader::readFaceChunk(const PlugTarget& target) {
    Plug array = target.plug();
    std::int32_t first = target.range.isRange ? target.range.first : 0;
    if (!target.range.isRange && isOneValue(*array.node, array.at) && array.at.depth > 0) {
        first = array.at.index[static_cast<std::size_t>(array.at.depth) - 1];
        array.at = ownerOf(*array.node, array.at);
    }
    if (context_.facesPlug != array) {
        context_.finishFaces();
    }
    if (context_.faces == nullptr) {
        const Value* stored = graph().stored({array.node, array.at.element(0)});
        const auto* data = stored != nullptr ? std::get_if<DataPtr>(stored) : nullptr;
        const bool goesOn = first != 0 && data != nullptr && *data != nullptr;
        context_.faces = goesOn ? std::make_unique<PolyFacesBuilder>(static_cast<const PolyFaces&>(**data))
                                : std::make_unique<PolyFacesBuilder>();
        context_.facesPlug = array;
    }
    return readFaces(arguments_, *context_.faces, first);
}

Outcome ValueReader::readRange(const PlugTarget& target) {
    const PlugRange& range = target.range;
    const AttrIndex attr = range.below != kNoAttr ? range.below : range.at.attr;
    const Attribute& attribute = target.node->attribute(attr);
    if (range.below != kNoAttr && attribute.array) {
        return attribute.rows ? readRaggedRows(context_, arguments_, target.plug(), range.first, range.last, attr)
                              : refuse(arguments_, request_.type, request_.name);
    }
    Outcome outcome;
    for (std::int64_t logical = range.first; logical <= range.last && outcome.ok(); ++logical) {
        Plug element{target.node, range.at.element(static_cast<std::int32_t>(logical))};
        element.at.attr = attr;
        if (logical > range.first && arguments_.atEnd()) {
            return Outcome::broken(arguments_, "a value");
        }
        outcome = readOne(element);
    }
    return outcome;
}

Outcome ValueReader::readTarget(const PlugTarget& target) {
    const PlugRange& range = target.range;
    const Attribute& attribute = target.node->attribute(range.at.attr);
    Plug array = target.plug();
    if (!context_.isLoading) {
        const GraphResult free = graph().isFreeToChange(array);
        if (!free.ok() && !isTimeOfScene(array)) {
            return Outcome::skipped(free.error);
        }
    } else if (attribute.computed && !isTimeOfScene(array)) {
        arguments_.skipRest();
        return Outcome::done();
    }
    if (holdsFaces(target)) {
        return readFaceChunk(target);
    }
    const ValueType* type = findValueType(request_.type);
    const bool isNumbers = request_.type.empty() || (type != nullptr && type->form == ValueForm::kNumbers);
    if (isNumbers && range.isRange && range.below == kNoAttr && attribute.rows) {
        if (!fitsRows(attribute, type)) {
            return refuse(arguments_, request_.type, request_.name);
        }
        const auto count = static_cast<std::size_t>(range.last) - static_cast<std::size_t>(range.first) + 1;
        return readRows(context_, arguments_, array, range.first, count, request_.sizeHint);
    }
    if (range.isRange) {
        return readRange(target);
    }
    if (isNumbers && isElementOfRows(array) && fitsRows(attribute, type)) {
        const std::int32_t first = array.at.index[static_cast<std::size_t>(array.at.depth) - 1];
        array.at = ownerOf(*array.node, array.at);
        return readRows(context_, arguments_, array, first, 1, 0);
    }
    if (attribute.array && isWholeArray(*array.node, array.at)) {
        // Old files give the first element of a world-space or single array without its index.
        array.at = array.at.element(0);
    }
    return isOneValue(*array.node, array.at) ? readOne(array) : refuse(arguments_, request_.type, request_.name);
}

} // namespace

Outcome readAttributeValues(StatementContext& context, ArgumentStream& arguments, const PlugTarget& target,
                            const ValueRequest& request) {
    return ValueReader(context, arguments, request).readTarget(target);
}

} // namespace host
