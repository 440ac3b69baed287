#include "host/nodes/typeRows.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace host {

namespace {

struct KindRow {
    std::string_view word;
    AttrKind kind;
    DataKind dataKind;
    std::string_view fileType;
};

constexpr KindRow kKinds[] = {
    {"bool", AttrKind::kBool, DataKind::kNone, "bool"},
    {"byte", AttrKind::kByte, DataKind::kNone, "byte"},
    {"char", AttrKind::kChar, DataKind::kNone, "char"},
    {"short", AttrKind::kShort, DataKind::kNone, "short"},
    {"long", AttrKind::kInt, DataKind::kNone, "long"},
    {"enum", AttrKind::kEnum, DataKind::kNone, "enum"},
    {"float", AttrKind::kFloat, DataKind::kNone, "float"},
    {"double", AttrKind::kDouble, DataKind::kNone, "double"},
    {"distance", AttrKind::kDistance, DataKind::kNone, "doubleLinear"},
    {"floatLinear", AttrKind::kDistance, DataKind::kNone, "floatLinear"},
    {"angle", AttrKind::kAngle, DataKind::kNone, "doubleAngle"},
    {"time", AttrKind::kTime, DataKind::kNone, "time"},
    {"string", AttrKind::kString, DataKind::kNone, "string"},
    {"matrix", AttrKind::kMatrix, DataKind::kNone, "matrix"},
    {"message", AttrKind::kMessage, DataKind::kNone, "message"},
    {"compound", AttrKind::kCompound, DataKind::kNone, "compound"},
    {"any", AttrKind::kGeneric, DataKind::kNone, "generic"},
    {"geometry", AttrKind::kGeneric, DataKind::kNone, "geometry"},
    {"stringArray", AttrKind::kData, DataKind::kStringArray, "stringArray"},
    {"doubleArray", AttrKind::kData, DataKind::kDoubleArray, "doubleArray"},
    {"floatArray", AttrKind::kData, DataKind::kFloatArray, "floatArray"},
    {"Int32Array", AttrKind::kData, DataKind::kIntArray, "Int32Array"},
    {"pointArray", AttrKind::kData, DataKind::kPointArray, "pointArray"},
    {"vectorArray", AttrKind::kData, DataKind::kVectorArray, "vectorArray"},
    {"matrixArray", AttrKind::kData, DataKind::kMatrixArray, "matrixArray"},
    {"componentList", AttrKind::kData, DataKind::kComponentList, "componentList"},
    {"attributeAlias", AttrKind::kData, DataKind::kAttributeAlias, "attributeAlias"},
    {"polyFaces", AttrKind::kData, DataKind::kPolyFaces, "polyFaces"},
    {"mesh", AttrKind::kData, DataKind::kMesh, "mesh"},
    {"nurbsCurve", AttrKind::kData, DataKind::kNurbsCurve, "nurbsCurve"},
    {"nurbsSurface", AttrKind::kData, DataKind::kNurbsSurface, "nurbsSurface"},
    {"lattice", AttrKind::kData, DataKind::kLattice, "lattice"},
    {"data", AttrKind::kData, DataKind::kOther, "typed"},
};

constexpr double kRadiansPerDegree = 0.017453292519943295;

const KindRow* findKind(std::string_view word) {
    const auto found =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const KindRow& each) { return each.word == word; });
    return found == std::end(kKinds) ? nullptr : found;
}

std::vector<EnumLabel> readLabels(std::string_view text) {
    std::vector<EnumLabel> labels;
    int next = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(':'), text.size());
        std::string_view word = text.substr(0, end);
        const std::size_t equals = word.find('=');
        if (equals != std::string_view::npos) {
            std::from_chars(word.data() + equals + 1, word.data() + word.size(), next);
            word = word.substr(0, equals);
        }
        labels.push_back({std::string(word), next++});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return labels;
}

double internalDefault(const AttributeRow& row, AttrKind kind, std::size_t which) {
    return row.value.value[which] * (kind == AttrKind::kAngle ? kRadiansPerDegree : 1.0);
}

/// What an attribute and the numbers that it is made of have in common.
Attribute describe(const AttributeRow& row, const KindRow& kind) {
    Attribute attribute;
    attribute.kind = kind.kind;
    attribute.dataKind = kind.dataKind;
    attribute.fileType = kind.fileType;
    attribute.computed = (row.flags & row::kComputed) != 0;
    attribute.writable = !attribute.computed;
    attribute.storable = !attribute.computed && kind.kind != AttrKind::kMessage;
    attribute.keyable = (row.flags & row::kKeyable) != 0;
    attribute.channelBox = (row.flags & row::kChannelBox) != 0;
    attribute.hidden = (row.flags & row::kHidden) != 0;
    attribute.usedAsColor = (row.flags & row::kColor) != 0;
    attribute.usedAsFilename = (row.flags & row::kFileName) != 0;
    return attribute;
}

void addArrayFlags(Attribute& attribute, const AttributeRow& row) {
    attribute.worldSpace = (row.flags & row::kWorld) != 0;
    attribute.array = attribute.worldSpace || (row.flags & row::kArray) != 0;
    attribute.indexMatters = (row.flags & row::kUnordered) == 0;
}

/// Adds the rows of one type and knows which compounds are open.
class RowReader {
public:
    explicit RowReader(NodeType& type) : type_(type) {}

    void read(const AttributeRow& row);

private:
    [[noreturn]] void refuse(std::string_view attribute, const char* why) const;
    std::size_t openLevel(const AttributeRow& row);
    AttrIndex add(Attribute attribute);
    void addPlain(const AttributeRow& row, const KindRow& kind);
    void addCounted(const AttributeRow& row, const KindRow& number, int count);
    std::vector<std::pair<std::string, std::string>> childNames(const AttributeRow& row, std::size_t level) const;

    NodeType& type_;
    std::vector<AttrIndex> open_; // the last row of each level
};

void RowReader::refuse(std::string_view attribute, const char* why) const {
    throw std::logic_error("node type table: " + type_.name() + "." + std::string(attribute) + ": " + why);
}

/// Closes the compounds that the row no longer belongs to; returns how many are left open.
std::size_t RowReader::openLevel(const AttributeRow& row) {
    const std::size_t level = std::min(row.longName.find_first_not_of('.'), row.longName.size());
    if (level > open_.size()) {
        refuse(row.longName, "no compound to belong to");
    }
    open_.resize(level);
    return level;
}

AttrIndex RowReader::add(Attribute attribute) {
    const std::string& longName = attribute.longName;
    if (longName.empty() || attribute.shortName.empty()) {
        refuse(longName, "a name is missing");
    }
    if (type_.find(longName) != kNoAttr || type_.find(attribute.shortName) != kNoAttr) {
        refuse(longName, "the long or the short name is taken");
    }
    if (attribute.parent != kNoAttr &&
        type_.attributes()[static_cast<std::size_t>(attribute.parent)].kind != AttrKind::kCompound) {
        refuse(longName, "its parent is no compound");
    }
    return type_.add(std::move(attribute));
}

std::vector<std::pair<std::string, std::string>> RowReader::childNames(const AttributeRow& row,
                                                                       std::size_t level) const {
    std::vector<std::pair<std::string, std::string>> names;
    std::string_view text = row.children;
    if (text.find(' ') != std::string_view::npos) {
        std::vector<std::string> words;
        while (!text.empty()) {
            const std::size_t end = std::min(text.find(' '), text.size());
            words.emplace_back(text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
            names.emplace_back(words[i], words[i + 1]);
        }
        return names;
    }
    const std::size_t equals = text.find('=');
    const std::string stem(equals == std::string_view::npos ? row.shortName : text.substr(equals + 1));
    for (const char letter : text.substr(0, equals)) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        const char small = isCapital ? static_cast<char>(letter - 'A' + 'a') : letter;
        names.emplace_back(std::string(row.longName.substr(level)) + letter, stem + small);
    }
    return names;
}

void RowReader::addPlain(const AttributeRow& row, const KindRow& kind) {
    const std::size_t level = openLevel(row);
    Attribute attribute = describe(row, kind);
    addArrayFlags(attribute, row);
    attribute.longName = row.longName.substr(level);
    attribute.shortName = row.shortName;
    attribute.parent = open_.empty() ? kNoAttr : open_.back();
    attribute.defaultNumber = internalDefault(row, kind.kind, 0);
    attribute.labels = readLabels(row.labels);
    open_.push_back(add(std::move(attribute)));
}

void RowReader::addCounted(const AttributeRow& row, const KindRow& number, int count) {
    const std::size_t level = openLevel(row);
    const auto names = childNames(row, level);
    if (names.size() != static_cast<std::size_t>(count)) {
        refuse(row.longName, "as many children are wanted as its kind counts");
    }
    Attribute compound = describe(row, *findKind("compound"));
    addArrayFlags(compound, row);
    compound.longName = row.longName.substr(level);
    compound.shortName = row.shortName;
    compound.parent = open_.empty() ? kNoAttr : open_.back();
    // Only numbers without a unit have a counted type of their own in scene files; lengths and angles pass as doubles,
    // or as floats when they are held as such.
    const bool hasUnit = number.kind == AttrKind::kDistance || number.kind == AttrKind::kAngle;
    const std::string plain = number.fileType == "floatLinear" ? "float" : "double";
    compound.fileType = (hasUnit ? plain : std::string(number.fileType)) + std::to_string(count);
    const AttrIndex parent = add(std::move(compound));
    open_.push_back(parent);
    for (std::size_t i = 0; i < names.size(); ++i) {
        Attribute child = describe(row, number);
        child.longName = names[i].first;
        child.shortName = names[i].second;
        child.parent = parent;
        child.usedAsColor = false;
        child.defaultNumber = internalDefault(row, number.kind, i);
        add(std::move(child));
    }
}

void RowReader::read(const AttributeRow& row) {
    if (const KindRow* kind = findKind(row.kind)) {
        addPlain(row, *kind);
        return;
    }
    const char last = row.kind.empty() ? '0' : row.kind.back();
    const KindRow* number = row.kind.empty() ? nullptr : findKind(row.kind.substr(0, row.kind.size() - 1));
    if (number == nullptr || !isNumeric(number->kind) || last < '2' || last > '4') {
        refuse(row.longName, "unknown kind");
    }
    addCounted(row, *number, last - '0');
}

void readBehaviour(NodeType& type, const TypeRow& row, const NodeType* parent) {
    const TypeBehaviour& how = row.behaviour;
    if (parent != nullptr) {
        type.dagRole = parent->dagRole;
        type.compute = parent->compute;
        type.timeDriven = parent->timeDriven;
        type.timeInput = parent->timeInput;
        type.passesThrough = parent->passesThrough;
        type.families = parent->families;
        type.families.push_back(parent->apiType());
    }
    type.dagRole = how.dagRole == DagRole::kNone ? type.dagRole : how.dagRole;
    type.compute = how.compute == nullptr ? type.compute : how.compute;
    type.passesThrough = how.notEvaluated || (how.compute == nullptr && type.passesThrough);
    if (how.family != 0) {
        type.families.push_back(how.family);
    }
    if (!how.timeInput.empty()) {
        type.timeDriven = true;
        type.timeInput = type.find(how.timeInput);
    }
}

} // namespace

void registerRows(NodeTypeRegistry& types, const TypeRow* rows, std::size_t count) {
    for (const TypeRow* row = rows; row != rows + count; ++row) {
        const NodeType* parent = row->parent.empty() ? nullptr : types.find(row->parent);
        if (parent == nullptr && !row->parent.empty()) {
            throw std::logic_error("node type table: " + std::string(row->name) + ": unknown parent " +
                                   std::string(row->parent));
        }
        if (types.find(row->name) != nullptr) {
            throw std::logic_error("node type table: " + std::string(row->name) + ": registered twice");
        }
        auto type = std::make_unique<NodeType>(std::string(row->name), parent, row->apiType);
        RowReader reader(*type);
        for (std::size_t i = 0; i < row->attributeCount; ++i) {
            reader.read(row->attributes[i]);
        }
        readBehaviour(*type, *row, parent);
        types.add(std::move(type));
    }
}

} // namespace host
