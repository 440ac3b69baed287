#include "host/scene/StatementContext.h"

#include "host/scene/sceneMessages.h"

namespace host {

namespace {

// "a[3].b[0:2]" as "a.b": one warning for all elements.
std::string withoutIndices(std::string_view path) {
    std::string plain;
    bool isInside = false;
    for (const char byte : path) {
        isInside = isInside || byte == '[';
        if (!isInside) {
            plain += byte;
        }
        isInside = isInside && byte != ']';
    }
    return plain;
}

Outcome unknownAttribute(const StatementContext& context, const Node& node, std::string_view name,
                         std::string_view path) {
    if (!context.isLoading) {
        return Outcome::skipped(messages::kNoAttribute, {name});
    }
    // Whoever was told that the type is unknown need not hear of its attributes.
    if (!node.type().known) {
        return Outcome::done();
    }
    return Outcome::skipped(messages::kUnknownAttribute, {withoutIndices(path), node.type().name()});
}

} // namespace

Outcome Outcome::skipped(std::string_view pattern, std::initializer_list<std::string_view> arguments) {
    return skipped(messages::text(pattern, arguments));
}

Outcome Outcome::broken(ArgumentStream& arguments, std::string_view expected) {
    return {Kind::kBroken, messages::text(messages::kExpected, {expected, arguments.describeNext()}), {}};
}

void StatementContext::goTo(Node* node) {
    const bool isLeftOut = node != nullptr && node->isDefault && scene.names().scope().isReference;
    current = isLeftOut ? nullptr : node;
    isCurrentUnknown = current == nullptr;
}

void StatementContext::finishFaces() {
    if (faces == nullptr) {
        return;
    }
    if (std::shared_ptr<const PolyFaces> whole = faces->finish()) {
        const GraphResult result = scene.graph().setData({facesPlug.node, facesPlug.at.element(0)}, std::move(whole));
        if (!result.ok()) {
            warn(result.error);
        }
    }
    faces.reset();
    facesPlug = Plug();
}

bool StatementContext::passUnknownFlag(ArgumentStream& arguments, std::string_view flag, std::string_view command,
                                       Outcome& outcome) {
    if (!isLoading) {
        outcome = Outcome::skipped(messages::kInvalidFlag, {flag});
        return false;
    }
    warn(messages::text(messages::kUnknownFlag, {flag, command}));
    outcome = Outcome::done();
    bool switched = false;
    double number = 0.0;
    if (!arguments.takeBoolean(switched)) {
        (void)arguments.takeNumber(number);
    }
    return true;
}

PlugTarget findTarget(StatementContext& context, std::string_view name) {
    PlugTarget target;
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos) {
        target.failure = Outcome::skipped(messages::kNoAttribute, {name});
        return target;
    }
    const std::string_view nodeName = name.substr(0, dot);
    const std::string_view path = name.substr(dot + 1);
    std::int32_t instance = 0;
    if (nodeName.empty()) {
        target.node = context.current;
        const bool isTold = target.node != nullptr || context.isCurrentUnknown;
        target.failure = isTold ? Outcome::done() : Outcome::skipped(messages::kNoCurrentNode, {name});
    } else {
        NodeMatch match = context.scene.names().findNode(nodeName);
        target.node = match.node;
        target.failure = match.ok() ? Outcome::done() : Outcome::skipped(std::move(match.error));
        if (match.ok()) {
            instance = context.scene.instanceOf(*match.node, nodeName);
        }
    }
    if (target.node == nullptr) {
        return target;
    }
    target.range = findPlugRange(*target.node, path, instance);
    if (!target.range) {
        target.failure = unknownAttribute(context, *target.node, name, path);
    }
    return target;
}

} // namespace host
