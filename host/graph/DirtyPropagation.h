#pragma once

#include "host/graph/GraphImpl.h"

#include <unordered_set>
#include <utility>
#include <vector>

namespace host {

/// One wave of dropping cached outputs: from the plugs that changed through `affects`, connections and the DAG to all
/// that depends on them. For Graph only.
///
/// Every plug, output and node is looked at once per wave. A computed output that is not cached ends the way: who read
/// it would have cached it, so nothing that is cached depends on it. Plugs that are not computed have no cache and end
/// nothing.
class DirtyPropagation {
public:
    explicit DirtyPropagation(Graph::Impl& graph) : graph_(graph) {}

    /// The value of this plug, or of parts of it, is another now. Ignored when it is no plug.
    void add(const Plug& plug);
    /// The node has another place in the DAG.
    void addPlace(Node& node);
    void run();

private:
    void visit(const Plug& plug);
    void dropAffected(Node& node, AttrIndex input);
    void dropOutput(Node& node, AttrIndex output);
    void dropWorldOutputs(Node& node);
    void followParts(Node& node, AttrIndex attr, const PlugAddress& prefix);
    void followOwners(const Plug& plug);

    struct OutputHash {
        std::size_t operator()(const std::pair<Node*, AttrIndex>& output) const {
            return PlugHash{}({output.first, {output.second, 0, {}}});
        }
    };

    Graph::Impl& graph_;
    std::vector<Plug> open_;
    PlugSet seen_;
    std::vector<Node*> openPlaces_;
    std::unordered_set<Node*> seenPlaces_;
    std::unordered_set<std::pair<Node*, AttrIndex>, OutputHash> dropped_;
};

} // namespace host
