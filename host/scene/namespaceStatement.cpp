#include "host/scene/namespaceStatement.h"

#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"

#include <optional>

namespace host {

namespace {

enum NamespaceFlag : int { kAdd, kSet, kExists, kParent };

constexpr StatementFlag kFlags[] = {
    {"add", "addNamespace", FlagValue::kText, kAdd},
    {"set", "setNamespace", FlagValue::kText, kSet},
    {"ex", "exists", FlagValue::kText, kExists},
    {"p", "parent", FlagValue::kText, kParent},
};

// Without ':' at either end.
std::string bare(std::string_view name) {
    return SceneNames::legalName(name);
}

std::optional<std::string> findNamespace(const SceneNames& names, const std::string& name) {
    const NameScope& scope = names.scope();
    const bool isAbsolute = name.substr(0, 1) == ":";
    for (const std::string& above : {isAbsolute ? scope.fileSpace : scope.space, scope.fileSpace}) {
        std::string wanted = above + bare(name);
        if (bare(name).empty() || names.isNamespace(wanted)) {
            return bare(name).empty() ? bare(above) : wanted;
        }
    }
    return std::nullopt;
}

std::string withColon(const std::string& name) {
    return name.empty() ? name : name + ":";
}

} // namespace

Outcome namespaceStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("namespace", kFlags);
    std::vector<std::string> texts;
    std::optional<FlagUse> action;
    std::string parent;
    Outcome outcome = flags.takeAll(context, arguments, texts, [&](const FlagUse& flag) {
        if (flag.id == kParent) {
            parent = flag.text;
        } else {
            action = flag;
        }
    });
    if (!outcome.ok()) {
        return outcome;
    }
    if (!action) {
        return Outcome::skipped(messages::kNeedsObjects, {"namespace", "-add, -set or -exists"});
    }
    Scene& scene = context.scene;
    NameScope& scope = scene.nameScope();
    const std::string& name = action->text;
    if (action->id == kAdd) {
        const std::string above = name.substr(0, 1) == ":" ? scope.fileSpace : scope.space;
        const std::string below = parent.empty() ? above : withColon(scope.fileSpace + bare(parent));
        scene.addNamespace(below + bare(name));
        return Outcome::done(name);
    }
    const std::optional<std::string> found = findNamespace(scene.names(), name);
    if (action->id == kExists) {
        return Outcome::done(found.has_value());
    }
    if (!found) {
        return Outcome::skipped(messages::kNoNamespace, {name});
    }
    // The outermost namespace of a file is where it is read into.
    scope.space = bare(name).empty() ? scope.fileSpace : withColon(*found);
    return Outcome::done(name);
}

} // namespace host
