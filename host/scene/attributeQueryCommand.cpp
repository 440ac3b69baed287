#include "host/scene/attributeValueResult.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/unitConversion.h"

#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

/// One question about an attribute, and how it is answered.
struct QueryRow {
    const char* shortName;
    const char* longName;
    mel::Value (*answer)(const Scene& scene, const Node& node, const Attribute& attribute);
};

mel::Value range(const std::optional<double>& low, const std::optional<double>& high) {
    return mel::FloatArray{low.value_or(0.0), high.value_or(0.0)};
}

std::string niceName(const Attribute& attribute) {
    if (!attribute.niceName.empty()) {
        return attribute.niceName;
    }
    // "translateX" is shown as "Translate X".
    std::string name;
    for (const char byte : attribute.longName) {
        const bool isCapital = byte >= 'A' && byte <= 'Z';
        const bool startsWord = isCapital && !name.empty() && !(name.back() >= 'A' && name.back() <= 'Z');
        name += startsWord ? " " : "";
        name += name.empty() && byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
    }
    return name;
}

mel::Value labels(const Attribute& attribute) {
    std::string text;
    int next = 0;
    for (const EnumLabel& label : attribute.labels) {
        text += (text.empty() ? "" : ":") + label.label;
        text += label.value != next ? "=" + std::to_string(label.value) : std::string();
        next = label.value + 1;
    }
    return mel::StringArray{text};
}

mel::Value defaults(const Scene& scene, const Node& node, const Attribute& attribute) {
    mel::FloatArray numbers;
    const auto add = [&](const Attribute& each) {
        if (isNumeric(each.kind)) {
            numbers.push_back(toExternal(scene.units(), each.kind, each.defaultNumber));
        }
    };
    add(attribute);
    for (const AttrIndex child : attribute.children) {
        add(node.attribute(child));
    }
    return numbers;
}

mel::Value childNames(const Node& node, const Attribute& attribute) {
    mel::StringArray names;
    for (const AttrIndex child : attribute.children) {
        names.push_back(node.attribute(child).longName);
    }
    return names;
}

using Answer = const Attribute&;

const QueryRow kQueries[] = {
    {"ln", "longName", [](const Scene&, const Node&, Answer a) { return mel::Value(a.longName); }},
    {"sn", "shortName", [](const Scene&, const Node&, Answer a) { return mel::Value(a.shortName); }},
    {"nn", "niceName", [](const Scene&, const Node&, Answer a) { return mel::Value(niceName(a)); }},
    {"k", "keyable", [](const Scene&, const Node&, Answer a) { return mel::Value(a.keyable); }},
    {"ch", "channelBox", [](const Scene&, const Node&, Answer a) { return mel::Value(a.channelBox); }},
    {"h", "hidden", [](const Scene&, const Node&, Answer a) { return mel::Value(a.hidden); }},
    {"m", "multi", [](const Scene&, const Node&, Answer a) { return mel::Value(a.array); }},
    {"im", "indexMatters", [](const Scene&, const Node&, Answer a) { return mel::Value(a.indexMatters); }},
    {"w", "writable", [](const Scene&, const Node&, Answer a) { return mel::Value(a.writable); }},
    {"rd", "readable", [](const Scene&, const Node&, Answer a) { return mel::Value(a.readable); }},
    {"st", "storable", [](const Scene&, const Node&, Answer a) { return mel::Value(a.storable); }},
    {"uac", "usedAsColor", [](const Scene&, const Node&, Answer a) { return mel::Value(a.usedAsColor); }},
    {"uaf", "usedAsFilename", [](const Scene&, const Node&, Answer a) { return mel::Value(a.usedAsFilename); }},
    {"e", "enum", [](const Scene&, const Node&, Answer a) { return mel::Value(a.kind == AttrKind::kEnum); }},
    {"msg", "message", [](const Scene&, const Node&, Answer a) { return mel::Value(a.kind == AttrKind::kMessage); }},
    {"mne", "minExists", [](const Scene&, const Node&, Answer a) { return mel::Value(a.minimum.has_value()); }},
    {"mxe", "maxExists", [](const Scene&, const Node&, Answer a) { return mel::Value(a.maximum.has_value()); }},
    {"re", "rangeExists",
     [](const Scene&, const Node&, Answer a) { return mel::Value(a.minimum.has_value() && a.maximum.has_value()); }},
    {"min", "minimum",
     [](const Scene&, const Node&, Answer a) { return mel::Value(mel::FloatArray{a.minimum.value_or(0.0)}); }},
    {"max", "maximum",
     [](const Scene&, const Node&, Answer a) { return mel::Value(mel::FloatArray{a.maximum.value_or(0.0)}); }},
    {"r", "range", [](const Scene&, const Node&, Answer a) { return range(a.minimum, a.maximum); }},
    {"s", "softRange", [](const Scene&, const Node&, Answer a) { return range(a.softMinimum, a.softMaximum); }},
    {"le", "listEnum", [](const Scene&, const Node&, Answer a) { return labels(a); }},
    {"lc", "listChildren", [](const Scene&, const Node& node, Answer a) { return childNames(node, a); }},
    {"nc", "numberOfChildren", [](const Scene&, const Node&, Answer a) { return mel::Value(a.children.size()); }},
    {"ld", "listDefault", [](const Scene& scene, const Node& node, Answer a) { return defaults(scene, node, a); }},
    {"lp", "listParent",
     [](const Scene&, const Node& node, Answer a) {
         return a.parent == kNoAttr ? mel::Value(mel::StringArray())
                                    : mel::Value(mel::StringArray{node.attribute(a.parent).longName});
     }},
};

AttrIndex findQueried(const Node& node, const ParsedFlags& flags) {
    return flags.objects.empty() ? kNoAttr : node.findAttribute(flags.objects.front().value.toText());
}

CommandResult answer(Scene& scene, const Node& node, const ParsedFlags& flags) {
    const AttrIndex attr = findQueried(node, flags);
    if (flags.has("exists")) {
        return CommandResult(attr != kNoAttr);
    }
    if (attr == kNoAttr) {
        const std::string name = flags.objects.empty() ? std::string() : flags.objects.front().value.toText();
        return failure(messages::kNoAttribute, {name});
    }
    if (flags.has("attributeType")) {
        return CommandResult(attributeTypeName(node, attr));
    }
    for (const QueryRow& row : kQueries) {
        if (flags.has(row.longName)) {
            return CommandResult(row.answer(scene, node, node.attribute(attr)));
        }
    }
    return failure(messages::kNeedsObjects, {"attributeQuery", "a flag that says what is asked"});
}

CommandResult attributeQueryCommand(Scene& scene, const ParsedFlags& flags) {
    if (flags.has("node")) {
        NodeMatch match = scene.find(flags.text("node"));
        if (!match.ok()) {
            // A node that is not there has no attributes.
            return flags.has("exists") ? CommandResult(false) : CommandResult::failure(std::move(match.error));
        }
        return answer(scene, *match.node, flags);
    }
    const NodeType* type = scene.types().find(flags.text("type"));
    if (type == nullptr) {
        return failure(messages::kUnknownType, {flags.text("type")});
    }
    const Node sample(NodeId(), *type, type->name());
    return answer(scene, sample, flags);
}

} // namespace

void registerAttributeQuery(mel::CommandTable& commands, Scene& scene) {
    std::vector<mel::FlagSpec> flags{{"n", "node", {FlagArgument::kString}},
                                     {"typ", "type", {FlagArgument::kString}},
                                     {"ex", "exists"},
                                     {"at", "attributeType"}};
    for (const QueryRow& row : kQueries) {
        flags.push_back({row.shortName, row.longName, {}});
    }
    addCommand(commands, scene, "attributeQuery", FlagSyntax(std::move(flags)), attributeQueryCommand);
}

} // namespace host
