#include "host/nodes/historyNumbers.h"

#include "host/nodes/geometryPlugs.h"

#include "host/geometry/MeshData.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace host {

namespace {

struct LooseRow {
    std::string_view type;
    unsigned parts;
};

// In the order of faces and edges that are cut or joined, and of vertices that are made, the real host may differ.
constexpr LooseRow kLoose[] = {
    {"polyTriangulate", part::kEdges | part::kFaces},
    {"polyQuad", part::kEdges | part::kFaces},
    {"polySubdFace", part::kVertices | part::kEdges | part::kFaces | part::kUvs},
    {"polySmoothFace", part::kVertices | part::kEdges | part::kFaces | part::kUvs},
    {"polyMergeVert", part::kVertices | part::kEdges | part::kFaces | part::kUvs},
    {"polyChipOff", part::kVertices | part::kEdges},
    {"polyExtrudeFace", part::kVertices | part::kEdges | part::kFaces | part::kUvs},
    {"polyDelFacet", part::kUvs},
    {"polyDelEdge", part::kEdges | part::kFaces | part::kUvs},
    {"polyDelVertex", part::kEdges | part::kUvs},
    {"deleteComponent", part::kEdges | part::kFaces | part::kUvs},
    {"polyMapCut", part::kUvs},
    {"polyMapDel", part::kUvs},
};

struct NamingRow {
    std::string_view type;
    std::string_view array; // whose logical indices are the numbers
    unsigned parts;
};

constexpr NamingRow kNaming[] = {
    {"polyTweak", "tweak", part::kVertices},
    {"polyTweakUV", "uvTweak", part::kUvs},
    {"polyColorPerVertex", "colorPerVertex.vertexColor", part::kVertices | part::kFaces},
    {"mesh", "pnts", part::kVertices},
    {"tweak", "plist", part::kVertices},
    {"tweak", "vlist", part::kVertices},
    {"blendShape", "inputTarget", part::kVertices},
    {"skinCluster", "weightList", part::kVertices},
    {"weightGeometryFilter", "weightList", part::kVertices},
};

constexpr std::string_view kLists[] = {"inputComponents", "deleteComponents"};

struct KindRow {
    ComponentKind kind;
    unsigned part;
};

constexpr KindRow kKinds[] = {
    {ComponentKind::kVertex, part::kVertices},
    {ComponentKind::kEdge, part::kEdges},
    {ComponentKind::kFace, part::kFaces},
    {ComponentKind::kUv, part::kUvs},
    {ComponentKind::kFaceVertex, part::kVertices | part::kFaces},
};

std::int32_t countOf(ComponentKind kind, const MeshTopology& topology) {
    return kind == ComponentKind::kVertex ? topology.vertexCount()
           : kind == ComponentKind::kEdge ? topology.edgeCount()
           : kind == ComponentKind::kFace ? topology.faceCount()
                                          : IndexRange::all().last; // of others, all are not told from many
}

MeshPtr inputMesh(Graph& graph, Node& node) {
    for (const auto& [at, source] : node.incoming()) {
        if (carriesGeometry(node.attribute(at.attr))) {
            if (MeshPtr mesh = meshOf(graph.data({&node, at}))) {
                return mesh;
            }
        }
    }
    return std::make_shared<const MeshData>();
}

unsigned namedBy(Graph& graph, Node& node, const ComponentList& list) {
    unsigned parts = 0;
    const MeshPtr mesh = inputMesh(graph, node);
    for (const KindRow& row : kKinds) {
        const auto isSome = [&](const ComponentRange& range) { return range.kind == row.kind; };
        if (std::none_of(list.ranges.begin(), list.ranges.end(), isSome)) {
            continue;
        }
        const std::vector<IndexRange> merged = mergedRanges(list, row.kind);
        const bool isAll = merged.size() == 1 && merged.front().first == 0 &&
                           merged.front().last >= countOf(row.kind, *mesh->topology) - 1;
        parts |= isAll ? 0U : row.part;
    }
    return parts;
}

std::shared_ptr<const ComponentList> listIn(Graph& graph, Node& node, std::string_view name) {
    const Plug plug{&node, graph.findPlug(node, name)};
    const DataPtr list = plug ? graph.data(plug) : nullptr;
    return list != nullptr && list->kind == DataKind::kComponentList
               ? std::static_pointer_cast<const ComponentList>(list)
               : std::make_shared<const ComponentList>();
}

bool namesOnlyFaces(Graph& graph, Node& eraser) {
    const auto list = listIn(graph, eraser, "deleteComponents");
    return std::all_of(list->ranges.begin(), list->ranges.end(),
                       [](const ComponentRange& range) { return range.kind == ComponentKind::kFace; });
}

/// Whether the array holds more than zeros.
bool holdsAnything(Graph& graph, const Plug& array) {
    const NumberRows* rows = graph.storedRows(array);
    if (rows == nullptr) {
        return !graph.elementIndices(array).empty();
    }
    for (std::size_t row = 0; row < rows->rowCount(); ++row) {
        for (int column = 0; column < rows->width(); ++column) {
            if (rows->value(row, column) != 0.0) {
                return true;
            }
        }
    }
    return graph.isDriven(array);
}

} // namespace

unsigned looseNumbers(Graph& graph, Node& node) {
    constexpr double kReverseAndCut = 3;
    if (node.type().isKindOf("polyNormal")) {
        const bool isCut = graph.number({&node, graph.findPlug(node, "normalMode")}) == kReverseAndCut;
        return isCut ? part::kVertices | part::kEdges : 0U;
    }
    if (node.type().isKindOf("deleteComponent") && namesOnlyFaces(graph, node)) {
        return part::kUvs;
    }
    const auto* const row = std::find_if(std::begin(kLoose), std::end(kLoose),
                                         [&](const LooseRow& each) { return node.type().isKindOf(each.type); });
    return row == std::end(kLoose) ? 0U : row->parts;
}

unsigned namedNumbers(Graph& graph, Node& node) {
    unsigned parts = 0;
    for (const std::string_view name : kLists) {
        parts |= namedBy(graph, node, *listIn(graph, node, name));
    }
    for (const NamingRow& row : kNaming) {
        const Plug array{&node, node.type().isKindOf(row.type) ? graph.findPlug(node, row.array) : PlugAddress()};
        if (array && holdsAnything(graph, array)) {
            parts |= row.parts;
        }
    }
    return parts;
}

} // namespace host
