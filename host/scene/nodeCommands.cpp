#include "host/scene/commandGroups.h"
#include "host/scene/namespaceStatement.h"
#include "host/scene/nodeStatements.h"
#include "host/scene/sceneMessages.h"

#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagSyntax;
using mel::ParsedFlags;

CommandResult deleteCommand(Scene& scene, const ParsedFlags& flags) {
    std::vector<SelectionItem> items;
    SceneResult found = findCommandItems(scene, flags, items);
    if (!found.ok()) {
        return CommandResult::failure(std::move(found.error));
    }
    std::vector<Node*> nodes;
    for (const SelectionItem& item : items) {
        if (item.isWholeNode()) {
            nodes.push_back(item.node);
        }
    }
    SceneResult deleted = scene.deleteNodes(nodes);
    return deleted.ok() ? CommandResult() : CommandResult::failure(std::move(deleted.error));
}

mel::StringArray ancestry(const NodeType& type) {
    mel::StringArray names;
    for (const NodeType* at = &type; at != nullptr; at = at->parent()) {
        names.insert(names.begin(), at->name());
    }
    return names;
}

CommandResult nodeTypeCommand(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"nodeType", "the name of one node"});
    }
    if (flags.has("isTypeName")) {
        const NodeType* type = scene.types().find(names[0]);
        return type != nullptr ? CommandResult(ancestry(*type)) : failure(messages::kUnknownType, {names[0]});
    }
    NodeMatch match = scene.find(names[0].substr(0, names[0].find('.')));
    if (!match.ok()) {
        return CommandResult::failure(std::move(match.error));
    }
    const NodeType& type = match.node->type();
    return flags.has("inherited") ? CommandResult(ancestry(type)) : CommandResult(type.name());
}

CommandResult objExistsCommand(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"objExists", "one name"});
    }
    std::vector<SelectionItem> items;
    // Several nodes of one name exist as much as one does.
    const bool isThere = scene.findItems(names[0], items).ok() || scene.find(names[0]).isAmbiguous;
    return CommandResult(isThere);
}

} // namespace

void registerNodeCommands(mel::CommandTable& commands, Scene& scene) {
    addStatement(commands, scene, "createNode", createNodeStatement);
    addStatement(commands, scene, "rename", renameStatement);
    addStatement(commands, scene, "namespace", namespaceStatement);
    addCommand(commands, scene, "delete", FlagSyntax({}), deleteCommand);
    addCommand(commands, scene, "nodeType", FlagSyntax({{"i", "inherited"}, {"itn", "isTypeName"}}), nodeTypeCommand);
    addCommand(commands, scene, "objExists", FlagSyntax({}), objExistsCommand);
}

} // namespace host
