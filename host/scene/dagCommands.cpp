#include "host/scene/commandGroups.h"
#include "host/scene/nodeStatements.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/transformFit.h"
#include "host/scene/unitConversion.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

CommandResult failed(SceneResult result) {
    return CommandResult::failure(std::move(result.error));
}

Node* parentOf(const Scene& scene, const SelectionItem& item) {
    const std::size_t depth = item.path.nodes.size();
    return depth > 1 ? item.path.nodes[depth - 2] : &scene.graph().world();
}

SceneResult findDagItems(const Scene& scene, const ParsedFlags& flags, std::vector<SelectionItem>& items) {
    SceneResult found = findCommandItems(scene, flags, items);
    for (const SelectionItem& item : items) {
        if (found.ok() && (!item.node->isDag() || !item.isWholeNode())) {
            found.error = messages::text(messages::kNotDag, {scene.itemName(item, false), "world"});
        }
    }
    return found;
}

// The parent that all have in common, else the world.
Node* commonParent(const Scene& scene, const std::vector<SelectionItem>& items) {
    Node* parent = items.empty() ? &scene.graph().world() : parentOf(scene, items.front());
    const bool isCommon = std::all_of(items.begin(), items.end(),
                                      [&](const SelectionItem& item) { return parentOf(scene, item) == parent; });
    return isCommon ? parent : &scene.graph().world();
}

CommandResult groupCommand(Scene& scene, const ParsedFlags& flags) {
    std::vector<SelectionItem> items;
    if (!flags.has("empty")) {
        SceneResult found = findDagItems(scene, flags, items);
        if (!found.ok()) {
            return failed(std::move(found));
        }
        if (items.empty()) {
            return failure(messages::kNothingSelected);
        }
    }
    Node* parent = flags.has("world") ? &scene.graph().world() : commonParent(scene, items);
    if (flags.has("parent")) {
        NodeMatch match = scene.find(flags.text("parent"));
        if (!match.ok()) {
            return CommandResult::failure(std::move(match.error));
        }
        parent = match.node;
    }
    Node* group = scene.createNode(*scene.types().find("transform"), flags.text("name", "group1"), parent);
    if (group == nullptr) {
        return failure(messages::kNotDag, {flags.text("name", "group1"), parent->name()});
    }
    for (const SelectionItem& item : items) {
        SceneResult moved = scene.reparentInPlace(*item.node, *parentOf(scene, item), *group);
        if (!moved.ok()) {
            return failed(std::move(moved));
        }
    }
    scene.selectOnly(*group);
    return CommandResult(scene.names().shortestName(*group));
}

// Everything that is stored on the node itself and is a number outside arrays: its place, pivots, orders, switches.
void copyNumbers(Scene& scene, Node& from, Node& to) {
    Graph& graph = scene.graph();
    const auto count = static_cast<AttrIndex>(from.type().attributes().size());
    for (AttrIndex attr = 0; attr < count; ++attr) {
        const Attribute& attribute = from.attribute(attr);
        const PlugAddress at{attr, 0, {}};
        if (isNumeric(attribute.kind) && attribute.arrayDepth == 0 && graph.hasStored({&from, at})) {
            (void)graph.setNumber({&to, at}, graph.number({&from, at}));
        }
    }
}

CommandResult instanceCommand(Scene& scene, const ParsedFlags& flags) {
    std::vector<SelectionItem> items;
    SceneResult found = findDagItems(scene, flags, items);
    if (!found.ok()) {
        return failed(std::move(found));
    }
    mel::StringArray names;
    for (const SelectionItem& item : items) {
        if (item.node->type().dagRole != DagRole::kTransform) {
            return failure(messages::kNotTransform, {scene.itemName(item, false)});
        }
        Node* copy = scene.createNode(item.node->type(), flags.text("name", item.node->name()), parentOf(scene, item));
        copyNumbers(scene, *item.node, *copy);
        for (Node* child : std::vector<Node*>(item.node->children())) {
            SceneResult added = scene.addInstance(*child, *copy);
            if (!added.ok()) {
                return failed(std::move(added));
            }
        }
        names.push_back(scene.names().shortestName(*copy));
    }
    return CommandResult(std::move(names));
}

// The selected transform, below which a new joint comes.
Node* selectedTransform(const Scene& scene) {
    const std::vector<SelectionItem>& items = scene.selection().items();
    const bool isOne = items.size() == 1 && items[0].isWholeNode() && items[0].node->isDag() &&
                       items[0].node->type().dagRole == DagRole::kTransform;
    return isOne ? items[0].node : nullptr;
}

CommandResult jointCommand(Scene& scene, const ParsedFlags& flags) {
    const NodeType* type = scene.types().find("joint");
    Node* joint = scene.createNode(*type, flags.text("name", "joint1"), selectedTransform(scene));
    Graph& graph = scene.graph();
    if (flags.has("position")) {
        Imath::V3d position;
        for (int axis = 0; axis < 3; ++axis) {
            const double given = flags.value("position", static_cast<std::size_t>(axis)).toFloat();
            position[axis] = toInternal(scene.units(), AttrKind::kDistance, given);
        }
        Matrix44 whole = worldMatrixOf(graph, *joint);
        for (int axis = 0; axis < 3; ++axis) {
            whole[3][axis] = position[axis];
        }
        moveToWorldMatrix(graph, *joint, whole);
    }
    if (flags.has("radius")) {
        (void)graph.setNumber({joint, graph.findPlug(*joint, "radius")}, flags.value("radius").toFloat());
    }
    scene.selectOnly(*joint);
    return CommandResult(scene.names().shortestName(*joint));
}

} // namespace

void registerDagCommands(mel::CommandTable& commands, Scene& scene) {
    addStatement(commands, scene, "parent", parentStatement);
    addCommand(commands, scene, "group",
               FlagSyntax({{"n", "name", {FlagArgument::kString}},
                           {"p", "parent", {FlagArgument::kString}},
                           {"em", "empty"},
                           {"w", "world"}}),
               groupCommand);
    addCommand(commands, scene, "instance", FlagSyntax({{"n", "name", {FlagArgument::kString}}}), instanceCommand);
    addCommand(commands, scene, "joint",
               FlagSyntax({{"n", "name", {FlagArgument::kString}},
                           {"p", "position", {FlagArgument::kFloat, FlagArgument::kFloat, FlagArgument::kFloat}},
                           {"rad", "radius", {FlagArgument::kFloat}}}),
               jointCommand);
}

} // namespace host
