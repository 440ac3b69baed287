#include "host/nodes/meshCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/meshQueries.h"
#include "host/nodes/meshRows.h"
#include "host/nodes/storedMesh.h"

#include "host/graph/Evaluation.h"

#include <memory>
#include <utility>

namespace host {

namespace {

struct ShapeAttributes {
    explicit ShapeAttributes(const NodeType& type)
        : inMesh(type.find("inMesh")), cachedInMesh(type.find("cachedInMesh")), outMesh(type.find("outMesh")),
          worldMesh(type.find("worldMesh")), tweaks(type.find("pnts")), weighting(type.find("vertexNormalMethod")),
          currentUvSet(type.find("currentUVSet")), currentColorSet(type.find("currentColorSet")),
          groups(type.find("objectGrpCompList")), groupId(type.find("objectGroupId")), tags(type.find("componentTags")),
          tagName(type.find("componentTagName")), tagContents(type.find("componentTagContents")) {}

    AttrIndex inMesh, cachedInMesh, outMesh, worldMesh, tweaks, weighting, currentUvSet, currentColorSet, groups,
        groupId, tags, tagName, tagContents;
};

const ShapeAttributes& shapeAttributes(const Node& mesh) {
    static const ShapeAttributes kAttributes(mesh.type());
    return kAttributes;
}

/// A history that makes nothing leaves the copy that the file may have kept.
MeshPtr incomingMesh(Evaluation& evaluation, Node& node) {
    const MeshPtr made = meshOf(evaluation.data(node, address(shapeAttributes(node).inMesh)));
    return made != nullptr ? made : readStoredMesh(evaluation, node);
}

NormalWeighting weightingOf(double number) {
    return number >= 0.0 && number <= 3.0 ? static_cast<NormalWeighting>(static_cast<int>(number))
                                          : NormalWeighting::kAngleAndArea;
}

/// A shape's own tags go before those of one name that come in.
void addTags(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const ShapeAttributes& attr = shapeAttributes(node);
    std::vector<ComponentTag> own;
    for (const std::int32_t element : evaluation.graph().elementIndices({&node, address(attr.tags)})) {
        const DataPtr contents = evaluation.data(node, address(attr.tagContents).element(element));
        if (contents != nullptr && contents->kind == DataKind::kComponentList) {
            own.push_back({evaluation.string(node, address(attr.tagName).element(element)),
                           std::static_pointer_cast<const ComponentList>(contents)});
        }
    }
    mesh.tags.insert(mesh.tags.begin(), own.begin(), own.end());
}

MeshPtr shownMesh(Evaluation& evaluation, Node& node) {
    const ShapeAttributes& attr = shapeAttributes(node);
    const MeshPtr incoming = meshOf(evaluation.data(node, address(attr.cachedInMesh)));
    if (incoming == nullptr) {
        return std::make_shared<MeshData>();
    }
    auto shown = std::make_shared<MeshData>(*incoming);
    shown->weighting = weightingOf(evaluation.number(node, attr.weighting));
    if (std::string set = evaluation.string(node, address(attr.currentUvSet)); !set.empty()) {
        shown->currentUvSet = std::move(set);
    }
    if (std::string set = evaluation.string(node, address(attr.currentColorSet)); !set.empty()) {
        shown->currentColorSet = std::move(set);
    }
    addTags(evaluation, node, *shown);
    const Plug tweaks{&node, address(attr.tweaks)};
    if (hasVectors(evaluation.graph(), tweaks)) {
        auto points = std::make_shared<Points>(*incoming->points);
        addVectors(evaluation.graph(), tweaks, *points);
        shown->points = std::move(points);
    }
    return shown;
}

} // namespace

void computeMesh(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const ShapeAttributes& attr = shapeAttributes(node);
    if (output.attr == attr.cachedInMesh) {
        evaluation.putData(node, output, incomingMesh(evaluation, node));
    } else if (output.attr == attr.outMesh) {
        evaluation.putData(node, output, shownMesh(evaluation, node));
    } else if (output.attr == attr.worldMesh) {
        evaluation.putData(node, output, evaluation.data(node, address(attr.outMesh)));
    } else {
        computeDagMatrices(evaluation, node, output);
    }
}

void fillMeshAffects(NodeType& type) {
    fillDagAffects(type);
    const std::vector<AttrIndex> shown = {type.find("outMesh"), type.find("worldMesh")};
    std::vector<AttrIndex> all = shown;
    all.push_back(type.find("cachedInMesh"));
    for (const char* input : {"pnts", "vertexNormalMethod", "currentUVSet", "currentColorSet", "componentTags"}) {
        type.affects[static_cast<std::size_t>(type.find(input))] = shown;
    }
    for (const char* input : {"inMesh", "vrts", "edge", "face", "normals", "uvpt", "colors", "uvSet", "colorSet"}) {
        type.affects[static_cast<std::size_t>(type.find(input))] = all;
    }
}

MeshPtr evaluatedMesh(Graph& graph, Node& meshShape) {
    MeshPtr mesh;
    if (meshShape.type().isKindOf("mesh")) {
        mesh = meshOf(graph.data({&meshShape, address(shapeAttributes(meshShape).outMesh)}));
    }
    return mesh != nullptr ? mesh : std::make_shared<MeshData>();
}

std::shared_ptr<const ComponentList> groupComponents(Graph& graph, Node& meshShape, std::int32_t instance,
                                                     std::int32_t group) {
    if (!meshShape.type().isKindOf("mesh")) {
        return nullptr;
    }
    const ShapeAttributes& attr = shapeAttributes(meshShape);
    const Plug id{&meshShape, address(attr.groupId).element(instance).element(group)};
    const MeshPtr mesh = evaluatedMesh(graph, meshShape);
    if (const ComponentGroup* given = mesh->findGroup(static_cast<std::int32_t>(graph.number(id)))) {
        return given->components;
    }
    const DataPtr stored = graph.data({&meshShape, address(attr.groups).element(instance).element(group)});
    return stored != nullptr && stored->kind == DataKind::kComponentList
               ? std::static_pointer_cast<const ComponentList>(stored)
               : nullptr;
}

} // namespace host
