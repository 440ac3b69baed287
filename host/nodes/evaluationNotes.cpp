#include "host/nodes/evaluationNotes.h"

#include "host/nodes/deformerCompute.h"
#include "host/nodes/geometryPlugs.h"
#include "host/nodes/handleCompute.h"
#include "host/nodes/historySettings.h"
#include "host/nodes/ikCompute.h"
#include "host/nodes/latticeCompute.h"
#include "host/nodes/nodeTreatment.h"
#include "host/nodes/numberRefusal.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>

namespace host {

namespace {

/// Attributes through which nothing reaches a transformation or points: shading, memberships, the host's own windows.
constexpr std::string_view kHarmless[] = {"instObjGroups",   "compInstObjGroups", "tweakLocation", "renderInfo",
                                          "renderLayerInfo", "publishedNodeInfo", "dagSetMembers", "dnSetMembers"};

bool isNotEvaluated(const Node& node) {
    return node.type().passesThrough || !node.type().known;
}

/// What comes in goes out, or would were the node not refused.
bool passesOn(const Node& node) {
    const Treatment treatment = treatmentOf(node.type());
    return treatment == Treatment::kPassedThrough || treatment == Treatment::kRefused;
}

bool isHarmless(const Node& node, AttrIndex attr) {
    while (node.attribute(attr).parent != kNoAttr) {
        attr = node.attribute(attr).parent;
    }
    return std::find(std::begin(kHarmless), std::end(kHarmless), node.attribute(attr).longName) != std::end(kHarmless);
}

/// Why a node of a type that is evaluated is not, to go on after its type; empty when it is.
std::string limitOf(Graph& graph, Node& node) {
    if (node.type().isKindOf("nonLinear")) {
        return limitOfNonLinear(graph, node);
    }
    if (node.type().isKindOf("ffd")) {
        return limitOfFfd(graph, node);
    }
    const std::string setting = findUnsupportedSetting(graph, node);
    return setting.empty() ? setting : " with this '" + setting + "'";
}

/// Whether the file has faces for a mesh, which are shown where its history gives none.
bool storesFaces(Graph& graph, Node& node) {
    return node.type().isKindOf("mesh") && !graph.elementIndices({&node, graph.findPlug(node, "face")}).empty();
}

/// Whether the shape is seen, or another reads it.
bool isMeshInUse(Graph& graph, Node& node) {
    if (!node.type().isKindOf("mesh")) {
        return false;
    }
    const auto& outgoing = node.outgoing();
    return !isSteady(graph, node, "intermediateObject", 1.0) ||
           std::any_of(outgoing.begin(), outgoing.end(),
                       [&](const auto& link) { return carriesGeometry(node.attribute(link.first.attr)); });
}

const Node& shownFor(const Node& driven) {
    return driven.type().dagRole == DagRole::kShape && !driven.parents().empty() ? *driven.parents().front() : driven;
}

/// Where nodes that are not evaluated can do harm.
bool isWatched(const Node& node) {
    return (node.type().dagRole == DagRole::kTransform && !isNotEvaluated(node)) ||
           node.type().isKindOf("controlPoint");
}

class NoteFinder {
public:
    explicit NoteFinder(Graph& graph) : graph_(graph) {}

    EvaluationNotes run() {
        for (Node* node : graph_.nodes()) {
            if (notes_.refusal.empty() && isMeshInUse(graph_, *node)) {
                findRefused(*node);
                if (notes_.refusal.empty()) {
                    notes_.refusal = findNumberRefusal(graph_, *node, shownFor(*node).name());
                }
            }
            if (isWatched(*node)) {
                findDrivers(*node);
            }
            if (node->type().isKindOf("ikHandle") && !hasKnownSolver(*node)) {
                noteHandle(*node);
            }
        }
        noteWarpedTime();
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
            if (isNotEvaluated(node) && hasEffect(node)) {
                note(node, driven);
            }
            if (isNotEvaluated(node) ? passesOn(node) : !node.isDag()) {
                addDrivers(node, open);
            }
        }
    }

    /// Looks along the way that the geometry of a mesh takes for the first node that is refused.
    void findRefused(Node& mesh) {
        std::vector<Node*> open{&mesh};
        std::unordered_set<const Node*> seen{&mesh};
        while (!open.empty()) {
            Node& node = *open.back();
            open.pop_back();
            const std::string limit = limitOf(graph_, node);
            const bool isRefused = treatmentOf(node.type()) == Treatment::kRefused || !node.type().known;
            if ((isRefused || !limit.empty()) && hasEffect(node)) {
                const std::string& shown = shownFor(mesh).name();
                notes_.refusal = "node type '" + node.type().name() + "'" + limit + " is not supported: " + shown +
                                 "." + node.name() + " shapes the mesh (delete the history of '" + shown +
                                 "', or export from Maya)";
                return;
            }
            if (storesFaces(graph_, node)) {
                continue;
            }
            for (const auto& [at, source] : node.incoming()) {
                if (carriesGeometry(node.attribute(at.attr)) && seen.insert(source.node).second) {
                    open.push_back(source.node);
                }
            }
        }
    }

    /// Nodes whose input passes through in the real host too are evaluated well enough.
    bool hasEffect(const Node& asked) {
        Node& node = *graph_.node(asked.id());
        const bool isDeformer = node.type().isKindOf("geometryFilter");
        const bool isModifier = node.type().isKindOf("polyModifier") || node.type().isKindOf("deleteComponent");
        for (const double state : {1.0, 2.0, 4.0, 5.0}) {
            if ((passesOn(node) || isDeformer || isModifier) && isSteady(graph_, node, "nodeState", state)) {
                return false;
            }
        }
        return !isDeformer || !(isSteady(graph_, node, "envelope", 0.0) || hasNoMembers(graph_, node));
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

    /// Everything that is keyed depends on the time, whose warp no connection shows.
    void noteWarpedTime() {
        for (Node* node : graph_.nodes()) {
            const bool isTime = node->type().isKindOf("time");
            if (isTime && !isSteady(graph_, *node, "enableTimewarp", 0.0) &&
                !graph_.elementIndices({node, graph_.findPlug(*node, "timewarpIn")}).empty()) {
                notes_.warnings.push_back("the time of the scene is warped (" + node->name() +
                                          "): that is not supported, everything moves at an even pace");
            }
        }
    }

    void note(const Node& node, const Node& driven) {
        const NodeType& type = node.type();
        if (!noted_.insert(&type).second) {
            return;
        }
        notes_.warnings.push_back("node type '" + type.name() + "' is not supported: " + shownFor(driven).name() + "." +
                                  node.name() + " " + std::string(consequenceOf(type)));
    }

    Graph& graph_;
    std::unordered_set<const Node*> seen_;
    std::unordered_set<const NodeType*> noted_;
    EvaluationNotes notes_;
};

} // namespace

EvaluationNotes findEvaluationNotes(Graph& graph) {
    return NoteFinder(graph).run();
}

} // namespace host
