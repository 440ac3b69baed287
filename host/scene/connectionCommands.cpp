#include "host/scene/commandGroups.h"
#include "host/scene/connectionStatements.h"
#include "host/scene/sceneMessages.h"

#include <unordered_set>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

std::string nameOf(const Scene& scene, const Plug& plug) {
    return scene.names().shortestName(*plug.node) + "." + scene.graph().plugName(*plug.node, plug.at, true);
}

// The plug that a command's object names, or why there is none.
Plug plugOf(Scene& scene, const std::string& name, std::string& error) {
    StatementContext context(scene, false);
    PlugTarget target = findConnectionEnd(context, name);
    error = target.ok() ? std::string() : std::move(target.failure.text);
    return target.ok() ? target.plug() : Plug();
}

CommandResult isConnectedCommand(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 2) {
        return failure(messages::kNeedsObjects, {"isConnected", "a source and a destination"});
    }
    std::string error;
    const Plug source = plugOf(scene, names[0], error);
    if (!source) {
        return CommandResult::failure(std::move(error));
    }
    const Plug destination = plugOf(scene, names[1], error);
    if (!destination) {
        return CommandResult::failure(std::move(error));
    }
    return CommandResult(scene.graph().sourceOf(destination) == source);
}

CommandResult connectionInfoCommand(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"connectionInfo", "the name of one attribute"});
    }
    std::string error;
    const Plug plug = plugOf(scene, names[0], error);
    if (!plug) {
        return CommandResult::failure(std::move(error));
    }
    const Graph& graph = scene.graph();
    const Plug source = graph.drivingSource(plug);
    if (flags.has("isDestination") || flags.has("isExactDestination")) {
        return CommandResult(static_cast<bool>(flags.has("isDestination") ? source : graph.sourceOf(plug)));
    }
    if (flags.has("isSource") || flags.has("isExactSource")) {
        return CommandResult(!graph.destinationsOf(plug).empty());
    }
    if (flags.has("isLocked")) {
        return CommandResult(graph.isLocked(plug));
    }
    if (flags.has("sourceFromDestination")) {
        return CommandResult(source ? nameOf(scene, source) : std::string());
    }
    if (flags.has("destinationFromSource")) {
        mel::StringArray destinations;
        for (const Plug& destination : graph.destinationsOf(plug)) {
            destinations.push_back(nameOf(scene, destination));
        }
        return CommandResult(std::move(destinations));
    }
    return failure(messages::kNeedsObjects, {"connectionInfo", "a flag that says what is asked"});
}

/// One end of a connection seen from an object of the command: its own plug and the one at the other end.
struct Link {
    Plug own, other;
};

bool isAtOrBelow(const Plug& named, const PlugAddress& at) {
    if (named.at.attr == kNoAttr) {
        return true;
    }
    const Node& node = *named.node;
    PlugAddress up = at;
    while (up.attr != kNoAttr && up.attr != named.at.attr) {
        up.attr = node.attribute(up.attr).parent;
    }
    bool isSame = up.attr == named.at.attr && at.depth >= named.at.depth;
    for (std::size_t level = 0; isSame && level < static_cast<std::size_t>(named.at.depth); ++level) {
        isSame = at.index[level] == named.at.index[level];
    }
    return isSame;
}

std::vector<Link> linksOf(const Plug& named, bool sources, bool destinations) {
    std::vector<Link> links;
    if (sources) {
        for (const auto& [at, source] : named.node->incoming()) {
            if (isAtOrBelow(named, at)) {
                links.push_back({{named.node, at}, source});
            }
        }
    }
    if (destinations) {
        for (const auto& [at, destination] : named.node->outgoing()) {
            if (isAtOrBelow(named, at)) {
                links.push_back({{named.node, at}, destination});
            }
        }
    }
    return links;
}

// Nodes answer for their shapes unless shapes are wanted.
const Node& shownNode(const Scene& scene, const Node& node, bool showsShapes) {
    const bool isShape = node.isDag() && node.type().dagRole == DagRole::kShape && !node.parents().empty() &&
                         node.parents().front() != &scene.graph().world();
    return isShape && !showsShapes ? *node.parents().front() : node;
}

CommandResult listConnectionsCommand(Scene& scene, const ParsedFlags& flags) {
    std::vector<SelectionItem> items;
    SceneResult found = findCommandItems(scene, flags, items);
    if (!found.ok()) {
        return CommandResult::failure(std::move(found.error));
    }
    const bool sources = flags.boolean("source", true);
    const bool destinations = flags.boolean("destination", true);
    const bool showsPlugs = flags.boolean("plugs", false);
    mel::StringArray names;
    for (const SelectionItem& item : items) {
        for (const Link& link : linksOf({item.node, item.plug}, sources, destinations)) {
            const NodeType& type = link.other.node->type();
            const std::string wanted = flags.text("type");
            const bool isWanted = flags.has("exactType") ? type.name() == wanted : type.isKindOf(wanted);
            if (!wanted.empty() && !isWanted) {
                continue;
            }
            if (flags.boolean("connections", false)) {
                names.push_back(nameOf(scene, link.own));
            }
            const Node& shown = shownNode(scene, *link.other.node, flags.boolean("shapes", false));
            names.push_back(showsPlugs ? nameOf(scene, link.other) : scene.names().shortestName(shown));
        }
    }
    return CommandResult(std::move(names));
}

} // namespace

void registerConnectionCommands(mel::CommandTable& commands, Scene& scene) {
    addStatement(commands, scene, "connectAttr", connectAttrStatement);
    addStatement(commands, scene, "disconnectAttr", disconnectAttrStatement);
    addCommand(commands, scene, "isConnected", FlagSyntax({}), isConnectedCommand);
    addCommand(commands, scene, "connectionInfo",
               FlagSyntax({{"id", "isDestination"},
                           {"ied", "isExactDestination"},
                           {"is", "isSource"},
                           {"ies", "isExactSource"},
                           {"il", "isLocked"},
                           {"sfd", "sourceFromDestination"},
                           {"dfs", "destinationFromSource"}}),
               connectionInfoCommand);
    addCommand(commands, scene, "listConnections",
               FlagSyntax({{"s", "source", {FlagArgument::kBool}},
                           {"d", "destination", {FlagArgument::kBool}},
                           {"p", "plugs", {FlagArgument::kBool}},
                           {"c", "connections", {FlagArgument::kBool}},
                           {"sh", "shapes", {FlagArgument::kBool}},
                           {"t", "type", {FlagArgument::kString}},
                           {"et", "exactType"}}),
               listConnectionsCommand);
}

} // namespace host
