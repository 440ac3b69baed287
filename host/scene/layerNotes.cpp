#include "host/scene/layerNotes.h"

#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace host {

namespace {

// A scene's own; layers of files that it refers to are current nowhere.
bool isOwn(const Node& node, std::string_view type) {
    return node.type().name() == type && !node.isFromReference;
}

double numberOf(Graph& graph, Node& node, std::string_view attribute) {
    return graph.number({&node, graph.findPlug(node, attribute)});
}

std::size_t countOverrides(const Graph& graph, Node& layer) {
    return graph.elementIndices({&layer, graph.findPlug(layer, "adjustments")}).size() +
           graph.elementIndices({&layer, graph.findPlug(layer, "outAdjustments")}).size();
}

} // namespace

std::string currentLayerNote(Graph& graph) {
    const std::vector<Node*>& nodes = graph.nodes();
    const auto manager =
        std::find_if(nodes.begin(), nodes.end(), [](const Node* node) { return isOwn(*node, "renderLayerManager"); });
    const double current = manager == nodes.end() ? 0.0 : numberOf(graph, **manager, "currentRenderLayer");
    if (current == 0.0) {
        return {}; // the master layer
    }
    const auto layer = std::find_if(nodes.begin(), nodes.end(), [&](Node* node) {
        return isOwn(*node, "renderLayer") && numberOf(graph, *node, "identification") == current;
    });
    const std::size_t overrides = layer == nodes.end() ? 0 : countOverrides(graph, **layer);
    return overrides == 0 ? std::string()
                          : messages::text(messages::kCurrentLayer, {(*layer)->name(), std::to_string(overrides)});
}

} // namespace host
