#include "host/scene/addAttrStatement.h"

#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"
#include "host/scene/unitConversion.h"
#include "host/scene/valueTypes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace host {

namespace {

enum Flag : int {
    kLongName,
    kShortName,
    kNiceName,
    kAttributeType,
    kDataType,
    kParent,
    kDefault,
    kMinimum,
    kMaximum,
    kSoftMinimum,
    kSoftMaximum,
    kMulti,
    kIndexMatters,
    kKeyable,
    kHidden,
    kReadable,
    kWritable,
    kStorable,
    kLabels,
    kColor,
    kFileName,
    kNoEffect,
};

constexpr StatementFlag kFlags[] = {
    {"ln", "longName", FlagValue::kText, kLongName},
    {"sn", "shortName", FlagValue::kText, kShortName},
    {"nn", "niceName", FlagValue::kText, kNiceName},
    {"at", "attributeType", FlagValue::kText, kAttributeType},
    {"dt", "dataType", FlagValue::kText, kDataType},
    {"p", "parent", FlagValue::kText, kParent},
    {"dv", "defaultValue", FlagValue::kNumber, kDefault},
    {"min", "minValue", FlagValue::kNumber, kMinimum},
    {"max", "maxValue", FlagValue::kNumber, kMaximum},
    {"smn", "softMinValue", FlagValue::kNumber, kSoftMinimum},
    {"smx", "softMaxValue", FlagValue::kNumber, kSoftMaximum},
    {"m", "multi", FlagValue::kOptionalBoolean, kMulti},
    {"im", "indexMatters", FlagValue::kOptionalBoolean, kIndexMatters},
    {"k", "keyable", FlagValue::kOptionalBoolean, kKeyable},
    {"h", "hidden", FlagValue::kOptionalBoolean, kHidden},
    {"r", "readable", FlagValue::kOptionalBoolean, kReadable},
    {"w", "writable", FlagValue::kOptionalBoolean, kWritable},
    {"s", "storable", FlagValue::kOptionalBoolean, kStorable},
    {"en", "enumName", FlagValue::kText, kLabels},
    {"uac", "usedAsColor", FlagValue::kOptionalBoolean, kColor},
    {"uaf", "usedAsFilename", FlagValue::kOptionalBoolean, kFileName},
    {"ci", "cachedInternally", FlagValue::kOptionalBoolean, kNoEffect},
    {"is", "internalSet", FlagValue::kOptionalBoolean, kNoEffect},
    {"hnv", "hasMinValue", FlagValue::kOptionalBoolean, kNoEffect},
    {"hxv", "hasMaxValue", FlagValue::kOptionalBoolean, kNoEffect},
    {"hsn", "hasSoftMinValue", FlagValue::kOptionalBoolean, kNoEffect},
    {"hsx", "hasSoftMaxValue", FlagValue::kOptionalBoolean, kNoEffect},
    {"nc", "numberOfChildren", FlagValue::kInteger, kNoEffect},
    {"dcb", "disconnectBehaviour", FlagValue::kInteger, kNoEffect},
    {"bt", "binaryTag", FlagValue::kText, kNoEffect},
    {"ct", "category", FlagValue::kText, kNoEffect},
    {"pxy", "proxy", FlagValue::kText, kNoEffect},
    {"gtd", "genericTypesData", FlagValue::kText, kNoEffect},
    {"fn", "fromPlugin", FlagValue::kOptionalBoolean, kNoEffect},
};

/// What an -at or -dt word makes. `numbers` of a -dt word are children made here; those of -at follow in the file.
struct TypeRow {
    std::string_view word;
    AttrKind kind;
    int numbers = 0;
    AttrKind numberKind = AttrKind::kDouble;
};

constexpr TypeRow kTypes[] = {
    {"bool", AttrKind::kBool},
    {"byte", AttrKind::kByte},
    {"char", AttrKind::kChar},
    {"short", AttrKind::kShort},
    {"long", AttrKind::kInt},
    {"addr", AttrKind::kInt},
    {"enum", AttrKind::kEnum},
    {"float", AttrKind::kFloat},
    {"double", AttrKind::kDouble},
    {"doubleLinear", AttrKind::kDistance},
    {"floatLinear", AttrKind::kDistance},
    {"doubleAngle", AttrKind::kAngle},
    {"floatAngle", AttrKind::kAngle},
    {"time", AttrKind::kTime},
    {"matrix", AttrKind::kMatrix},
    {"fltMatrix", AttrKind::kMatrix},
    {"message", AttrKind::kMessage},
    {"generic", AttrKind::kGeneric},
    {"string", AttrKind::kString},
    {"compound", AttrKind::kCompound},
    {"reflectance", AttrKind::kCompound, 3, AttrKind::kFloat},
    {"spectrum", AttrKind::kCompound, 3, AttrKind::kFloat},
    {"reflectanceRGB", AttrKind::kCompound, 3, AttrKind::kFloat},
    {"spectrumRGB", AttrKind::kCompound, 3, AttrKind::kFloat},
    {"float2", AttrKind::kCompound, 2, AttrKind::kFloat},
    {"float3", AttrKind::kCompound, 3, AttrKind::kFloat},
    {"double2", AttrKind::kCompound, 2},
    {"double3", AttrKind::kCompound, 3},
    {"double4", AttrKind::kCompound, 4},
    {"long2", AttrKind::kCompound, 2, AttrKind::kInt},
    {"long3", AttrKind::kCompound, 3, AttrKind::kInt},
    {"short2", AttrKind::kCompound, 2, AttrKind::kShort},
    {"short3", AttrKind::kCompound, 3, AttrKind::kShort},
};

struct NewAttribute {
    Attribute attribute;
    std::string attributeType, dataType, parent;
    double defaultNumber = 0.0;
    int hiddenNumbers = 0; // children of a -dt type, which files do not list
    AttrKind hiddenKind = AttrKind::kDouble;

    void use(const FlagUse& flag);
};

// "A:B=5:C": labels without a number go on from the one before.
std::vector<EnumLabel> parseLabels(std::string_view text) {
    std::vector<EnumLabel> labels;
    int next = 0;
    while (!text.empty()) {
        const std::size_t colon = std::min(text.find(':'), text.size());
        std::string_view label = text.substr(0, colon);
        const std::size_t equals = label.rfind('=');
        if (equals != std::string_view::npos) {
            std::from_chars(label.data() + equals + 1, label.data() + label.size(), next);
            label = label.substr(0, equals);
        }
        labels.push_back({std::string(label), next});
        next += next < std::numeric_limits<int>::max() ? 1 : 0;
        text.remove_prefix(std::min(colon + 1, text.size()));
    }
    return labels;
}

void NewAttribute::use(const FlagUse& flag) {
    std::optional<double>* const limits[] = {&attribute.minimum, &attribute.maximum, &attribute.softMinimum,
                                             &attribute.softMaximum};
    switch (flag.id) {
    case kLongName:
        attribute.longName = flag.text;
        break;
    case kShortName:
        attribute.shortName = flag.text;
        break;
    case kNiceName:
        attribute.niceName = flag.text;
        break;
    case kAttributeType:
        attributeType = flag.text;
        break;
    case kDataType:
        dataType = dataType.empty() ? flag.text : dataType;
        break;
    case kParent:
        parent = flag.text;
        break;
    case kDefault:
        defaultNumber = flag.number;
        break;
    case kMinimum:
    case kMaximum:
    case kSoftMinimum:
    case kSoftMaximum:
        *limits[flag.id - kMinimum] = flag.number;
        break;
    case kMulti:
        attribute.array = flag.isOn;
        break;
    case kIndexMatters:
        attribute.indexMatters = flag.isOn;
        break;
    case kKeyable:
        attribute.keyable = flag.isOn;
        break;
    case kHidden:
        attribute.hidden = flag.isOn;
        break;
    case kReadable:
        attribute.readable = flag.isOn;
        break;
    case kWritable:
        attribute.writable = flag.isOn;
        break;
    case kStorable:
        attribute.storable = flag.isOn;
        break;
    case kLabels:
        attribute.labels = parseLabels(flag.text);
        break;
    case kColor:
        attribute.usedAsColor = flag.isOn;
        break;
    case kFileName:
        attribute.usedAsFilename = flag.isOn;
        break;
    default:
        break;
    }
}

bool isLegalName(std::string_view name) {
    const auto isLegal = [](char byte) {
        return byte == '_' || (byte >= '0' && byte <= '9') || ((byte | 32) >= 'a' && (byte | 32) <= 'z');
    };
    return !name.empty() && !(name.front() >= '0' && name.front() <= '9') &&
           std::all_of(name.begin(), name.end(), isLegal);
}

// Fills what the type words tell.
Outcome resolveType(NewAttribute& wanted) {
    const bool isData = wanted.attributeType.empty();
    const std::string& word = isData ? wanted.dataType : wanted.attributeType;
    const auto* row =
        std::find_if(std::begin(kTypes), std::end(kTypes), [&](const TypeRow& each) { return each.word == word; });
    wanted.attribute.fileType = word;
    wanted.attribute.dynamic = true;
    if (row != std::end(kTypes)) {
        wanted.attribute.kind = row->kind;
        wanted.hiddenNumbers = isData ? row->numbers : 0;
        wanted.hiddenKind = row->numberKind;
        return Outcome::done();
    }
    if (!isData || word.empty()) {
        return Outcome::skipped(messages::kUnknownAttributeType, {word});
    }
    const ValueType* type = findValueType(word);
    wanted.attribute.kind = AttrKind::kData;
    wanted.attribute.dataKind = type != nullptr ? type->dataKind : DataKind::kOther;
    return Outcome::done();
}

Outcome checkNames(NewAttribute& wanted) {
    Attribute& attribute = wanted.attribute;
    if (attribute.longName.empty()) {
        attribute.longName = attribute.shortName;
    }
    if (attribute.shortName.empty()) {
        attribute.shortName = attribute.longName;
    }
    if (attribute.longName.empty()) {
        return Outcome::skipped(std::string(messages::kNoAttributeName));
    }
    for (const std::string& name : {attribute.longName, attribute.shortName}) {
        if (!isLegalName(name)) {
            return Outcome::skipped(messages::kIllegalAttributeName, {name});
        }
    }
    return Outcome::done();
}

// Values of compounds are read level by level; no attribute of a real scene lies deeper than a few.
bool isTooDeep(const Node& node, AttrIndex parent) {
    constexpr int kDeepest = 32;
    int depth = 0;
    for (AttrIndex at = parent; at != kNoAttr && depth <= kDeepest; at = node.attribute(at).parent) {
        ++depth;
    }
    return depth > kDeepest;
}

void addHiddenNumbers(Node& node, AttrIndex parent, const NewAttribute& wanted) {
    for (int number = 0; number < wanted.hiddenNumbers; ++number) {
        Attribute child;
        child.longName = wanted.attribute.longName + std::to_string(number);
        child.shortName = wanted.attribute.shortName + std::to_string(number);
        child.kind = wanted.hiddenKind;
        child.dynamic = true;
        child.hidden = true;
        child.parent = parent;
        node.addAttribute(std::move(child));
    }
}

Outcome addTo(StatementContext& context, Node& node, const NewAttribute& wanted) {
    Attribute attribute = wanted.attribute;
    if (node.findAttribute(attribute.longName) != kNoAttr) {
        // Later versions of the host have attributes of their own for what older files had to add.
        return context.isLoading ? Outcome::done()
                                 : Outcome::skipped(messages::kAttributeExists, {node.name(), attribute.longName});
    }
    if (context.isLoading && node.findAttribute(attribute.shortName) != kNoAttr) {
        attribute.shortName = attribute.longName; // taken by what the node's type has here
    }
    if (!wanted.parent.empty()) {
        attribute.parent = node.findAttribute(wanted.parent);
        if (attribute.parent == kNoAttr) {
            return Outcome::skipped(messages::kNoParentAttribute, {wanted.parent, attribute.longName});
        }
    }
    if (isTooDeep(node, attribute.parent)) {
        return Outcome::skipped(messages::kTooManyLevels, {attribute.longName});
    }
    const AttrIndex added = node.addAttribute(std::move(attribute));
    if (added == kNoAttr) {
        return wanted.parent.empty()
                   ? Outcome::skipped(messages::kAttributeExists, {node.name(), wanted.attribute.longName})
                   : Outcome::skipped(messages::kNoParentAttribute, {wanted.parent, wanted.attribute.longName});
    }
    addHiddenNumbers(node, added, wanted);
    return Outcome::done();
}

Outcome findNodes(StatementContext& context, const std::vector<std::string>& names, std::vector<Node*>& nodes) {
    for (const std::string& name : names) {
        NodeMatch match = context.scene.find(name);
        if (!match.ok()) {
            return Outcome::skipped(std::move(match.error));
        }
        nodes.push_back(match.node);
    }
    if (names.empty() && context.isLoading && context.current != nullptr) {
        nodes.push_back(context.current);
    } else if (names.empty() && !context.isLoading) {
        for (const SelectionItem& item : context.scene.selection().items()) {
            nodes.push_back(item.node);
        }
    }
    const bool isMissing = nodes.empty() && !context.isLoading;
    return isMissing ? Outcome::skipped(std::string(messages::kNothingSelected)) : Outcome::done();
}

} // namespace

Outcome addAttrStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("addAttr", kFlags);
    NewAttribute wanted;
    std::vector<std::string> names;
    std::vector<Node*> nodes;
    Outcome outcome = flags.takeAll(context, arguments, names, [&](const FlagUse& flag) { wanted.use(flag); });
    if (outcome.ok()) {
        outcome = checkNames(wanted);
    }
    if (outcome.ok()) {
        outcome = resolveType(wanted);
    }
    if (outcome.ok()) {
        outcome = findNodes(context, names, nodes);
    }
    wanted.attribute.defaultNumber = toInternal(context.scene.units(), wanted.attribute.kind, wanted.defaultNumber);
    for (Node* node : nodes) {
        if (!outcome.ok()) {
            break;
        }
        outcome = addTo(context, *node, wanted);
    }
    return outcome;
}

} // namespace host
