#include "host/nodes/evaluationNotes.h"

#include "host/nodes/ikCompute.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>

namespace host {

namespace {

struct Consequence {
    std::string_view type; // or one that derives from it; the first row that fits counts
    std::string_view text;
};

constexpr std::string_view kPassesThrough = "passes its input through";

constexpr Consequence kConsequences[] = {
    {"polyModifier", kPassesThrough},      {"geometryFilter", kPassesThrough},    {"groupParts", kPassesThrough},
    {"transformGeometry", kPassesThrough}, {"deleteComponent", kPassesThrough},   {"createColorSet", kPassesThrough},
    {"copyColorSet", kPassesThrough},      {"deleteColorSet", kPassesThrough},    {"createUVSet", kPassesThrough},
    {"deleteUVSet", kPassesThrough},       {"polyBase", "makes no mesh"},         {"nurbsTessellate", "makes no mesh"},
    {"subdToPoly", "makes no mesh"},       {"animBlendNodeBase", kPassesThrough},
};

/// Attributes through which nothing reaches a transformation or points: shading, memberships, the host's own windows.
constexpr std::string_view kHarmless[] = {"instObjGroups",   "compInstObjGroups", "tweakLocation", "renderInfo",
                                          "renderLayerInfo", "publishedNodeInfo", "dagSetMembers", "dnSetMembers"};

std::string_view consequenceOf(const NodeType& type) {
    const auto row = std::find_if(std::begin(kConsequences), std::end(kConsequences),
                                  [&](const Consequence& each) { return type.isKindOf(each.type); });
    return row == std::end(kConsequences) ? "keeps its stored values" : row->text;
}

bool isNotEvaluated(const Node& node) {
    return node.type().passesThrough || !node.type().known;
}

bool isHarmless(const Node& node, AttrIndex attr) {
    while (node.attribute(attr).parent != kNoAttr) {
        attr = node.attribute(attr).parent;
    }
    return std::find(std::begin(kHarmless), std::end(kHarmless), node.attribute(attr).longName) != std::end(kHarmless);
}

/// Where nodes that are not evaluated can do harm.
bool isWatched(const Node& node) {
    return (node.type().dagRole == DagRole::kTransform && !isNotEvaluated(node)) ||
           node.type().isKindOf("controlPoint");
}

class NoteFinder {
public:
    explicit NoteFinder(const Graph& graph) : graph_(graph) {}

    std::vector<std::string> run() {
        for (Node* node : graph_.nodes()) {
            if (isWatched(*node)) {
                findDrivers(*node);
            }
            if (node->type().isKindOf("ikHandle") && !hasKnownSolver(*node)) {
                noteHandle(*node);
            }
        }
        return std::move(notes_);
    }

private:
    /// Looks through all that drives a DAG node, up to other DAG nodes and to nodes whose own inputs do not count.
    void findDrivers(const Node& driven) {
        std::vector<const Node*> open;
        addDrivers(driven, open);
        while (!open.empty()) {
            const Node& node = *open.back();
            open.pop_back();
            if (isNotEvaluated(node)) {
                note(node, driven);
            }
            if (isNotEvaluated(node) ? consequenceOf(node.type()) == kPassesThrough : !node.isDag()) {
                addDrivers(node, open);
            }
        }
    }

    void addDrivers(const Node& node, std::vector<const Node*>& open) {
        for (const auto& [at, source] : node.incoming()) {
            const bool isValue = node.attribute(at.attr).kind != AttrKind::kMessage &&
                                 source.node->attribute(source.at.attr).kind != AttrKind::kMessage;
            if (isValue && !isHarmless(node, at.attr) && seen_.insert(source.node).second) {
                open.push_back(source.node);
            }
        }
    }

    /// A handle turns its joints without a connection to them; it only knows where its chain begins.
    void noteHandle(const Node& handle) {
        const AttrIndex startJoint = handle.findAttribute("startJoint");
        const auto found = handle.incoming().find({startJoint, 0, {}});
        if (found != handle.incoming().end()) {
            note(handle, *found->second.node);
        }
    }

    void note(const Node& node, const Node& driven) {
        const NodeType& type = node.type();
        if (!noted_.insert(&type).second) {
            return;
        }
        const Node& shown =
            driven.type().dagRole == DagRole::kShape && !driven.parents().empty() ? *driven.parents().front() : driven;
        notes_.push_back("node type '" + type.name() + "' is not supported: " + shown.name() + "." + node.name() + " " +
                         std::string(consequenceOf(type)));
    }

    const Graph& graph_;
    std::unordered_set<const Node*> seen_;
    std::unordered_set<const NodeType*> noted_;
    std::vector<std::string> notes_;
};

} // namespace

std::vector<std::string> findEvaluationNotes(const Graph& graph) {
    return NoteFinder(graph).run();
}

} // namespace host
