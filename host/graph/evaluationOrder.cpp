#include "host/graph/evaluationOrder.h"

#include "host/graph/GraphImpl.h"
#include "host/graph/plugSteps.h"

#include <algorithm>

namespace host {

namespace {

/// A walk, depth first, from an output to what it needs.
class Walk {
public:
    explicit Walk(const Graph& graph) : graph_(graph) {}

    std::vector<Plug> run(const Plug& output) {
        open_.push_back({output, false});
        while (!open_.empty()) {
            Step& step = open_.back();
            if (step.needsListed) {
                order_.push_back(step.output);
                open_.pop_back();
            } else if (entered_.insert(step.output).second) {
                step.needsListed = true;
                addNeeds(step.output);
            } else {
                open_.pop_back();
            }
        }
        order_.pop_back();
        return std::move(order_);
    }

private:
    struct Step {
        Plug output;
        bool needsListed;
    };

    void addNeeds(Plug output) {
        const Node& node = *output.node;
        const AttrIndex top = topOutput(node, output.at.attr);
        if (!listed_.insert({output.node, {top, 0, {}}}).second) {
            return;
        }
        const auto addIfNeeded = [&](const PlugAddress& destination, const Plug& source) {
            const std::vector<AttrIndex>& affected = node.type().outputsAffectedBy(destination.attr);
            if (std::find(affected.begin(), affected.end(), top) != affected.end()) {
                addParts(source);
            }
        };
        for (const auto& [destination, source] : node.incoming()) {
            addIfNeeded(destination, source);
        }
        if (node.ties() != nullptr) {
            for (const auto& [follower, cause] : node.ties()->causes) {
                addIfNeeded(follower, cause);
            }
        }
        const std::vector<AttrIndex>& placed = node.type().worldOutputs();
        if (std::find(placed.begin(), placed.end(), top) != placed.end()) {
            addParents(node, top);
        }
    }

    static AttrIndex topOutput(const Node& node, AttrIndex attr) {
        AttrIndex top = attr;
        for (AttrIndex at = attr; at != kNoAttr && node.attribute(at).computed; at = node.attribute(at).parent) {
            top = at;
        }
        return top;
    }

    /// The outputs that a source stands for: itself or its children, at the end of the connections that drive it.
    void addParts(const Plug& source) {
        PlugSet passed;
        std::vector<Plug> parts{source};
        while (!parts.empty()) {
            const Plug part = parts.back();
            parts.pop_back();
            if (!passed.insert(part).second) {
                continue;
            }
            const Attribute& attribute = part.node->attribute(part.at.attr);
            for (const AttrIndex child : attribute.children) {
                parts.push_back({part.node, {child, part.at.depth, part.at.index}});
            }
            if (const Plug driver = graph_.valueSource(part)) {
                parts.push_back(driver);
            } else if (attribute.computed && attribute.children.empty() && isOneValue(*part.node, part.at)) {
                addOutput(part);
            }
        }
    }

    /// The same output of the nodes above, which world-space outputs are built on.
    void addParents(const Node& node, AttrIndex output) {
        const std::string& name = node.attribute(output).longName;
        for (Node* parent : node.parents()) {
            const AttrIndex same = parent->type().find(name);
            if (same != kNoAttr && parent->attribute(same).computed && parent->attribute(same).array) {
                addOutput({parent, PlugAddress{same, 0, {}}.element(0)});
            }
        }
    }

    void addOutput(const Plug& output) {
        // Not marked before it is entered: it may have to come before something else that is open already.
        if (!graph_.isCached(output) && entered_.count(output) == 0) {
            open_.push_back({output, false});
        }
    }

    const Graph& graph_;
    PlugSet entered_;
    PlugSet listed_; // which outputs' needs (element 0 of all) are in `open_` or `order_`
    std::vector<Step> open_;
    std::vector<Plug> order_;
};

} // namespace

std::vector<Plug> evaluationOrder(const Graph& graph, const Plug& output) {
    return Walk(graph).run(output);
}

} // namespace host
