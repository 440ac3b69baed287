#include "host/scene/connectionStatements.h"

#include "host/graph/plugSteps.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"

namespace host {

namespace {

enum Flag : int { kNextAvailable, kLock, kForce };

constexpr StatementFlag kConnectFlags[] = {
    {"na", "nextAvailable", FlagValue::kNone, kNextAvailable},
    {"l", "lock", FlagValue::kBoolean, kLock},
    {"f", "force", FlagValue::kNone, kForce},
};

struct Ends {
    Plug source, destination;
    bool nextAvailable = false, force = false, locks = false;
};

Outcome takeEnds(StatementContext& context, ArgumentStream& arguments, std::string_view command, Ends& ends) {
    const StatementFlags flags(command, kConnectFlags);
    std::vector<std::string> names;
    Outcome outcome = flags.takeAll(context, arguments, names, [&](const FlagUse& flag) {
        ends.nextAvailable = ends.nextAvailable || flag.id == kNextAvailable;
        ends.force = ends.force || flag.id == kForce;
        ends.locks = flag.id == kLock ? flag.isOn : ends.locks;
    });
    if (!outcome.ok()) {
        return outcome;
    }
    if (names.size() != 2) {
        return Outcome::broken(arguments, "a source and a destination");
    }
    PlugTarget source = findConnectionEnd(context, names[0]);
    PlugTarget destination = findConnectionEnd(context, names[1]);
    if (!source.ok() || !destination.ok()) {
        return std::move(source.ok() ? destination.failure : source.failure);
    }
    ends.source = source.plug();
    ends.destination = destination.plug();
    return outcome;
}

// What a file that the scene refers to connects to nodes that every scene has: the scene itself says what drives them,
// and the other file may only add members to their lists.
bool isLeftToTheScene(const StatementContext& context, const Ends& ends) {
    return context.isLoading && context.scene.names().scope().isReference && ends.destination.node->isDefault &&
           !ends.nextAvailable;
}

bool isFromDefaultNode(const Plug& source) {
    return source && source.node->isDefault;
}

} // namespace

PlugTarget findConnectionEnd(StatementContext& context, std::string_view name) {
    PlugTarget target = findTarget(context, name);
    if (!target.ok()) {
        return target;
    }
    if (target.range.isRange) {
        target.failure = Outcome::skipped(messages::kBadRange, {name});
        target.node = nullptr;
        return target;
    }
    const Attribute& attribute = target.node->attribute(target.range.at.attr);
    if (attribute.worldSpace && isWholeArray(*target.node, target.range.at)) {
        const std::string_view nodeName = name.substr(0, name.find('.'));
        const std::int32_t instance = nodeName.empty() ? 0 : context.scene.instanceOf(*target.node, nodeName);
        target.range.at = target.range.at.element(instance);
    }
    return target;
}

Outcome connectAttrStatement(StatementContext& context, ArgumentStream& arguments) {
    Ends ends;
    Outcome outcome = takeEnds(context, arguments, "connectAttr", ends);
    if (!outcome.ok() || !ends.source || !ends.destination || isLeftToTheScene(context, ends)) {
        return outcome;
    }
    Graph& graph = context.scene.graph();
    if (ends.nextAvailable && isWholeArray(*ends.destination.node, ends.destination.at)) {
        ends.destination.at = ends.destination.at.element(graph.nextAvailableIndex(ends.destination));
    }
    const bool replacesDefault = context.isLoading && isFromDefaultNode(graph.sourceOf(ends.destination));
    GraphResult result = graph.connect(ends.source, ends.destination, ends.force || replacesDefault);
    if (!result.ok()) {
        return Outcome::skipped(std::move(result.error));
    }
    if (ends.locks) {
        const PlugFlags* known = ends.destination.node->flags(ends.destination.at);
        PlugFlags flags = known != nullptr ? *known : PlugFlags();
        flags.locked = true;
        graph.setFlags(ends.destination, flags);
    }
    return outcome;
}

Outcome disconnectAttrStatement(StatementContext& context, ArgumentStream& arguments) {
    Ends ends;
    Outcome outcome = takeEnds(context, arguments, "disconnectAttr", ends);
    if (!outcome.ok() || !ends.source || !ends.destination) {
        return outcome;
    }
    Graph& graph = context.scene.graph();
    if (ends.nextAvailable) {
        for (const Plug& driven : graph.destinationsOf(ends.source)) {
            const bool isElement =
                driven.node == ends.destination.node && ownerOf(*driven.node, driven.at) == ends.destination.at;
            ends.destination = isElement ? driven : ends.destination;
        }
    }
    GraphResult result = graph.disconnect(ends.source, ends.destination);
    return result.ok() ? outcome : Outcome::skipped(std::move(result.error));
}

} // namespace host
