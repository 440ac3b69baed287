#include "host/nodes/deformerSpaces.h"

#include "host/nodes/address.h"
#include "host/nodes/geometryPlugs.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

/// The shape that shows what comes out here, behind the deformers that may follow; null when none does.
Node* shapeBehind(const Graph& graph, const Plug& output) {
    std::vector<Plug> open{output};
    std::vector<const Node*> seen;
    while (!open.empty()) {
        const Plug at = open.back();
        open.pop_back();
        for (const Plug& destination : graph.destinationsOf(at)) {
            Node& node = *destination.node;
            const bool isNew = std::find(seen.begin(), seen.end(), &node) == seen.end();
            if (!isNew || !carriesGeometry(node.attribute(destination.at.attr))) {
                continue;
            }
            if (node.isDag()) {
                return &node;
            }
            seen.push_back(&node);
            // A deformer hands the geometry of an element on in the same element.
            const AttrIndex next = node.type().find("outputGeometry");
            if (next != kNoAttr) {
                const bool isArray = node.attribute(next).array;
                const std::int32_t element = destination.at.depth > 0 ? destination.at.index[0] : 0;
                open.push_back({&node, isArray ? address(next).element(element) : address(next)});
            }
        }
    }
    return nullptr;
}

} // namespace

void tieDeformerSpaces(Graph& graph) {
    const std::vector<Node*> nodes = graph.nodes();
    for (Node* node : nodes) {
        const AttrIndex space = node->type().find("shapeSpace");
        if (space == kNoAttr || !node->type().isKindOf("geometryFilter")) {
            continue;
        }
        const AttrIndex outputs = node->type().find("outputGeometry");
        for (const std::int32_t element : graph.elementIndices({node, address(outputs)})) {
            if (Node* shape = shapeBehind(graph, {node, address(outputs).element(element)})) {
                const AttrIndex matrix = shape->type().find("worldMatrix");
                graph.overrideValue({shape, address(matrix).element(0)}, {node, address(space).element(element)});
            }
        }
    }
}

} // namespace host
