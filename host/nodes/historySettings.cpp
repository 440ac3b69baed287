#include "host/nodes/historySettings.h"

#include "host/nodes/geometryPlugs.h"
#include "host/nodes/polyFaceCompute.h"

#include "host/geometry/deleteParts.h"
#include "host/geometry/extrusion.h"
#include "host/geometry/meshComponents.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace host {

namespace {

/// What a number, or each part of a compound, must be.
struct SettingRow {
    std::string_view type; // or one that derives from it
    std::string_view attribute;
    double lowest, highest;
    std::string_view spared{}; // a type that derives from it all the same
};

constexpr SettingRow kSettings[] = {
    {"polyCylinder", "roundCap", 0, 0},
    {"polyCylinder", "subdivisionsCaps", 0, 1},
    {"polyCone", "roundCap", 0, 0},
    {"polyCone", "subdivisionsCap", 0, 1},
    {"polyPyramid", "subdivisionsCaps", 0, 1},
    {"polyPrism", "subdivisionsCaps", 0, 1},
    {"polyNormal", "normalMode", 0, 4},
    {"polySubdFace", "mode", 0, 0},
    {"polySubdFace", "subdMethod", 0, 0},
    {"polySmoothFace", "method", 0, 0},
    {"polySmoothFace", "osdSmoothTriangles", 0, 0},
    {"polySmoothFace", "continuity", 1, 1},
    {"polySmoothFace", "keepBorder", 1, 1},
    {"polySmoothFace", "keepHardEdge", 0, 0},
    {"polySmoothFace", "keepMapBorders", 1, 2},
    {"polyMoveVertex", "rotate", 0, 0},
    {"polyMoveVertex", "scale", 1, 1},
    {"polyMoveVertex", "random", 0, 0},
    {"polyMoveVertex", "localTranslate", 0, 0, "polyExtrudeFace"},
    {"polyMoveVertex", "localRotate", 0, 0},
    {"polyMoveVertex", "localScale", 1, 1},
    {"polyChipOff", "offset", 0, 0},
    {"polyExtrudeFace", "localTranslateX", 0, 0},
    {"polyExtrudeFace", "localTranslateY", 0, 0},
    {"polyExtrudeFace", "divisions", 1, 1},
    {"polyExtrudeFace", "twist", 0, 0},
    {"polyExtrudeFace", "taper", 1, 1},
    {"polyExtrudeFace", "reverseAllFaces", 0, 0},
    {"polyExtrudeFace", "inputProfileCurve", 0, 0},
};

bool isWithin(Graph& graph, const Plug& plug, const SettingRow& row) {
    const std::vector<AttrIndex>& children = plug.node->attribute(plug.at.attr).children;
    if (!children.empty()) {
        return std::all_of(children.begin(), children.end(), [&](AttrIndex child) {
            return isWithin(graph, {plug.node, {child, 0, {}}}, row);
        });
    }
    const double value = graph.number(plug);
    return !graph.isDriven(plug) && value >= row.lowest && value <= row.highest;
}

struct ListedNode {
    MeshPtr mesh;
    std::shared_ptr<const ComponentList> list;
};

/// What comes in and what a node works on; null when it is not there.
ListedNode listedNode(Graph& graph, Node& node, std::string_view input, std::string_view list) {
    const DataPtr components = graph.data({&node, graph.findPlug(node, list)});
    ListedNode found{meshOf(graph.data({&node, graph.findPlug(node, input)})), nullptr};
    if (components != nullptr && components->kind == DataKind::kComponentList) {
        found.list = std::static_pointer_cast<const ComponentList>(components);
    }
    return found;
}

bool isClosed(const MeshTopology& topology) {
    for (std::int32_t edge = 0; edge < topology.edgeCount(); ++edge) {
        if (topology.facesOfEdge().count(edge) != 2) {
            return false;
        }
    }
    return true;
}

/// Whether a node before this one makes creases, which rounding would have to keep.
bool isCreased(Node& smooth) {
    std::unordered_set<const Node*> seen{&smooth};
    std::vector<const Node*> open{&smooth};
    while (!open.empty()) {
        const Node& node = *open.back();
        open.pop_back();
        if (node.type().isKindOf("polyCrease") || node.type().isKindOf("polyCreaseEdge")) {
            return true;
        }
        for (const auto& [at, source] : node.incoming()) {
            if (carriesGeometry(node.attribute(at.attr)) && seen.insert(source.node).second) {
                open.push_back(source.node);
            }
        }
    }
    return false;
}

/// The two rules of Catmull and Clark that the real host has agree within closed meshes, when the newer one takes UVs
/// as the older one; parts of a mesh are smoothed in a way of their own.
std::string doubtOfSmoothing(Graph& graph, Node& node) {
    constexpr double kNewer = 2;
    constexpr double kUvsAsOlder = 3;
    const ListedNode in = listedNode(graph, node, "inputPolymesh", "inputComponents");
    if (in.mesh == nullptr || in.list == nullptr) {
        return {};
    }
    const std::vector<bool> named = namedFaces(*in.list, *in.mesh->topology);
    const auto count = std::count(named.begin(), named.end(), true);
    if (count == 0) {
        return {};
    }
    const bool isNewer = isSteady(graph, node, "subdivisionType", kNewer) &&
                         isSteady(graph, node, "osdFvarBoundary", kUvsAsOlder) && isClosed(*in.mesh->topology);
    if (!isNewer && !isSteady(graph, node, "subdivisionType", 0)) {
        return "subdivisionType";
    }
    return static_cast<std::size_t>(count) != named.size() ? "inputComponents" : isCreased(node) ? "inputPolymesh" : "";
}

/// A length that is keyed counts as some length.
std::string doubtOfExtrusion(Graph& graph, Node& node) {
    const ListedNode in = listedNode(graph, node, "inputPolymesh", "inputComponents");
    if (in.mesh == nullptr || in.list == nullptr) {
        return {};
    }
    const auto isDriven = [&](std::string_view name) { return graph.isDriven({&node, graph.findPlug(node, name)}); };
    Evaluation evaluation(graph);
    Extrusion how = extrusionOf(evaluation, node);
    how.along = isDriven("localTranslateZ") || isDriven("thickness") ? 1.0 : how.along;
    how.offset = isDriven("offset") ? 1.0 : how.offset;
    const std::string doubt = extrudeFaces(*in.mesh, namedFaces(*in.list, *in.mesh->topology), how).doubt;
    return doubt != "along" ? doubt : isSteady(graph, node, "thickness", 0.0) ? "localTranslateZ" : "thickness";
}

/// Vertices with more edges than two are deleted together with those, in an order that is not known.
bool leavesVertices(const ListedNode& in) {
    return in.mesh != nullptr && in.list != nullptr &&
           deleteVertices(*in.mesh, namedVertices(*in.list, *in.mesh->topology)).leftCount > 0;
}

bool isDeletedOtherwise(Graph& graph, Node& node) {
    const ListedNode in = listedNode(graph, node, "inputGeometry", "deleteComponents");
    if (in.list == nullptr || in.list->ranges.empty()) {
        return false;
    }
    const ComponentKind kind = in.list->ranges.front().kind;
    const bool isMixed = std::any_of(in.list->ranges.begin(), in.list->ranges.end(),
                                     [&](const ComponentRange& range) { return range.kind != kind; });
    return isMixed || (kind == ComponentKind::kVertex && leavesVertices(in));
}

} // namespace

bool isSteady(Graph& graph, Node& node, std::string_view attribute, double value) {
    const Plug plug{&node, graph.findPlug(node, attribute)};
    return plug && !graph.isDriven(plug) && graph.number(plug) == value;
}

std::string findUnsupportedSetting(Graph& graph, Node& node) {
    const NodeType& type = node.type();
    for (const SettingRow& row : kSettings) {
        const bool isMeant = type.isKindOf(row.type) && (row.spared.empty() || !type.isKindOf(row.spared));
        const Plug plug{&node, isMeant ? graph.findPlug(node, row.attribute) : PlugAddress()};
        if (plug && !isWithin(graph, plug, row)) {
            return std::string(row.attribute);
        }
    }
    if (type.isKindOf("polySmoothFace")) {
        return doubtOfSmoothing(graph, node);
    }
    if (type.isKindOf("polyExtrudeFace")) {
        return doubtOfExtrusion(graph, node);
    }
    if (type.isKindOf("polyDelVertex") && leavesVertices(listedNode(graph, node, "inputPolymesh", "inputComponents"))) {
        return "inputComponents";
    }
    return type.isKindOf("deleteComponent") && isDeletedOtherwise(graph, node) ? "deleteComponents" : "";
}

} // namespace host
