#include "host/scene/nodeStatements.h"

#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"

#include <algorithm>

namespace host {

namespace {

enum CreateFlag : int { kName, kParent, kShared, kSkipSelect };

constexpr StatementFlag kCreateFlags[] = {
    {"n", "name", FlagValue::kText, kName},
    {"p", "parent", FlagValue::kText, kParent},
    {"s", "shared", FlagValue::kNone, kShared},
    {"ss", "skipSelect", FlagValue::kNone, kSkipSelect},
};

enum RenameFlag : int { kUuid, kIgnoreShape };

constexpr StatementFlag kRenameFlags[] = {
    {"uid", "uuid", FlagValue::kNone, kUuid},
    {"is", "ignoreShape", FlagValue::kNone, kIgnoreShape},
};

enum ParentFlag : int { kShape, kNoConnections, kRelative, kAbsolute, kAddObject, kRemoveObject, kWorld };

constexpr StatementFlag kParentFlags[] = {
    {"s", "shape", FlagValue::kNone, kShape},           {"nc", "noConnections", FlagValue::kNone, kNoConnections},
    {"r", "relative", FlagValue::kNone, kRelative},     {"a", "absolute", FlagValue::kNone, kAbsolute},
    {"add", "addObject", FlagValue::kNone, kAddObject}, {"rm", "removeObject", FlagValue::kNone, kRemoveObject},
    {"w", "world", FlagValue::kNone, kWorld},
};

enum SelectFlag : int { kNoExpand, kReplace };

constexpr StatementFlag kSelectFlags[] = {
    {"ne", "noExpand", FlagValue::kNone, kNoExpand},
    {"r", "replace", FlagValue::kNone, kReplace},
};

struct NewNode {
    std::string type, name, parent;
    bool isShared = false, hasParent = false, skipsSelect = false;
};

bool contains(std::string_view text, std::string_view word) {
    return text.find(word) != std::string_view::npos;
}

// A shape's name ends in "Shape" and a number in all that the host names itself.
bool isShapeName(std::string_view name) {
    const std::size_t last = name.find_last_not_of("0123456789");
    const std::string_view text = name.substr(0, last == std::string_view::npos ? 0 : last + 1);
    constexpr std::string_view kEnding = "Shape";
    return text.size() >= kEnding.size() && text.substr(text.size() - kEnding.size()) == kEnding;
}

// What an unknown type derives from. A file does not say whether a node below another is a transform or a shape, so
// the names decide; plug-ins add many more kinds of shapes.
std::string_view guessParentType(const NewNode& wanted) {
    if (!wanted.hasParent) {
        return "dependNode";
    }
    const bool isTransform = contains(wanted.type, "ransform") || contains(wanted.type, "onstraint") ||
                             contains(wanted.type, "roup") || contains(wanted.type, "andle");
    return isTransform && !isShapeName(wanted.name) ? "transform" : "shape";
}

const NodeType& typeFor(StatementContext& context, const NewNode& wanted) {
    const NodeType* type = context.scene.types().find(wanted.type);
    if (type == nullptr) {
        type = &context.scene.unknownType(wanted.type, guessParentType(wanted));
    }
    if (!type->known) {
        context.warn(messages::text(messages::kUnknownNodeType, {wanted.type}));
    }
    return *type;
}

Node* parentFor(StatementContext& context, const NewNode& wanted, const NodeType& type) {
    if (!wanted.hasParent) {
        return nullptr;
    }
    const NodeMatch match = context.scene.find(wanted.parent);
    if (!match.ok()) {
        context.warn(match.error);
        return nullptr;
    }
    if (type.dagRole == DagRole::kNone || !match.node->isDag()) {
        context.warn(messages::text(messages::kNotDag, {wanted.name, wanted.parent}));
        return nullptr;
    }
    if (match.node->type().dagRole == DagRole::kShape) {
        context.warn(messages::text(messages::kShapeAsParent, {wanted.parent, wanted.name}));
        return nullptr;
    }
    return match.node;
}

// Nodes that are shared between files are nobody's own, whichever file makes them.
void shareName(const StatementContext& context, std::string& name) {
    const bool isOwn = !name.empty() && name.front() != ':' && name.front() != '|';
    if (context.isLoading && context.scene.names().scope().isReference && isOwn) {
        name.insert(name.begin(), ':');
    }
}

Node* findShared(const StatementContext& context, const NewNode& wanted) {
    return wanted.isShared && !wanted.name.empty() ? context.scene.find(wanted.name).node : nullptr;
}

Node* makeNode(StatementContext& context, const NewNode& wanted) {
    const NodeType& type = typeFor(context, wanted);
    Node* parent = parentFor(context, wanted, type);
    Node* node = context.scene.createNode(type, wanted.name, parent);
    const std::string legal = SceneNames::legalName(wanted.name);
    if (context.isLoading && node != nullptr && !wanted.name.empty() && wanted.name.back() != '#' &&
        legal != wanted.name.substr(wanted.name.front() == ':' ? 1 : 0)) {
        context.warn(messages::text(messages::kIllegalName, {wanted.name, node->name()}));
    }
    return node;
}

struct ParentRequest {
    bool adds = false, removes = false, toWorld = false, isRelative = false;
};

Outcome moveNode(StatementContext& context, const std::string& name, Node& parent, const ParentRequest& request) {
    Scene& scene = context.scene;
    DagPath path;
    const NodeMatch match = scene.names().findPath(name, path);
    if (!match.ok()) {
        return Outcome::skipped(match.error);
    }
    if (!match.node->isDag()) {
        return Outcome::skipped(messages::kNotDag, {name, parent.name()});
    }
    Node* oldParent = path.nodes.size() > 1 ? path.nodes[path.nodes.size() - 2] : &scene.graph().world();
    SceneResult result;
    if (request.removes) {
        result = scene.removeInstance(*match.node, *oldParent);
    } else if (request.adds) {
        result = scene.addInstance(*match.node, parent);
    } else if (!context.isLoading && !request.isRelative) {
        result = scene.reparentInPlace(*match.node, *oldParent, parent);
    } else {
        result = scene.reparent(*match.node, *oldParent, parent);
    }
    return result.ok() ? Outcome::done(match.node->name()) : Outcome::skipped(std::move(result.error));
}

} // namespace

Outcome createNodeStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("createNode", kCreateFlags);
    NewNode wanted;
    std::vector<std::string> texts;
    Outcome outcome = flags.takeAll(context, arguments, texts, [&](const FlagUse& flag) {
        switch (flag.id) {
        case kName:
            wanted.name = flag.text;
            break;
        case kParent:
            wanted.parent = flag.text;
            wanted.hasParent = true;
            break;
        case kShared:
            wanted.isShared = true;
            break;
        default:
            wanted.skipsSelect = true;
        }
    });
    if (!outcome.ok()) {
        return outcome;
    }
    if (texts.size() != 1 || texts[0].empty()) {
        return Outcome::broken(arguments, "a node type");
    }
    wanted.type = texts[0];
    if (!context.isLoading && context.scene.types().find(wanted.type) == nullptr) {
        return Outcome::skipped(messages::kUnknownType, {wanted.type});
    }
    if (wanted.isShared) {
        shareName(context, wanted.name);
        shareName(context, wanted.parent);
    }
    Node* node = findShared(context, wanted);
    node = node != nullptr ? node : makeNode(context, wanted);
    context.goTo(node);
    if (node == nullptr) {
        return Outcome::skipped(messages::kUnknownType, {wanted.type});
    }
    if (!context.isLoading && !wanted.skipsSelect) {
        context.scene.selectOnly(*node);
    }
    return Outcome::done(context.isLoading ? std::string() : context.scene.names().shortestName(*node));
}

Outcome renameStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("rename", kRenameFlags);
    bool isUuid = false;
    std::vector<std::string> texts;
    Outcome outcome =
        flags.takeAll(context, arguments, texts, [&](const FlagUse& flag) { isUuid = isUuid || flag.id == kUuid; });
    if (!outcome.ok()) {
        return outcome;
    }
    if (texts.empty() || texts.size() > 2) {
        return Outcome::broken(arguments, "a name");
    }
    Node* node = context.current;
    if (texts.size() == 2) {
        NodeMatch match = context.scene.find(texts[0]);
        if (!match.ok()) {
            return Outcome::skipped(std::move(match.error));
        }
        node = match.node;
    } else if (!context.isLoading && !context.scene.selection().empty()) {
        node = context.scene.selection().items().front().node;
    }
    if (node == nullptr) {
        return context.isLoading ? Outcome::done() : Outcome::skipped(messages::kNothingSelected, {});
    }
    if (isUuid) {
        node->uuid = texts.back();
        return Outcome::done();
    }
    SceneResult result = context.scene.renameNode(*node, texts.back());
    return result.ok() ? Outcome::done(context.scene.names().shortestName(*node))
                       : Outcome::skipped(std::move(result.error));
}

Outcome parentStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("parent", kParentFlags);
    ParentRequest request;
    std::vector<std::string> names;
    Outcome outcome = flags.takeAll(context, arguments, names, [&](const FlagUse& flag) {
        request.adds = request.adds || flag.id == kAddObject;
        request.removes = request.removes || flag.id == kRemoveObject;
        request.toWorld = request.toWorld || flag.id == kWorld;
        request.isRelative = request.isRelative || flag.id == kRelative;
    });
    if (!outcome.ok()) {
        return outcome;
    }
    const bool namesParent = !request.toWorld && !request.removes;
    if (names.size() < (namesParent ? 2U : 1U)) {
        return Outcome::broken(arguments, namesParent ? "a node and its parent" : "a node");
    }
    Node* parent = &context.scene.graph().world();
    if (namesParent) {
        NodeMatch match = context.scene.find(names.back());
        if (!match.ok()) {
            return Outcome::skipped(std::move(match.error));
        }
        parent = match.node;
        names.pop_back();
    }
    mel::StringArray moved;
    for (const std::string& name : names) {
        outcome = moveNode(context, name, *parent, request);
        if (!outcome.ok()) {
            return outcome;
        }
        moved.push_back(outcome.value.text());
    }
    return Outcome::done(std::move(moved));
}

Outcome selectStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("select", kSelectFlags);
    std::vector<std::string> names;
    Outcome outcome = flags.takeAll(context, arguments, names, [](const FlagUse&) {});
    if (!outcome.ok()) {
        return outcome;
    }
    context.current = nullptr;
    if (names.empty()) {
        return Outcome::broken(arguments, "the name of a node");
    }
    NodeMatch match = context.scene.find(names.front());
    context.goTo(match.node);
    // Later versions of the host have more default nodes than this one.
    const bool isDefaultNode = names.front().front() == ':';
    return match.ok() || isDefaultNode ? Outcome::done() : Outcome::skipped(std::move(match.error));
}

} // namespace host
