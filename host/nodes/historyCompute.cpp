#include "host/nodes/historyCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/deformerCompute.h"

#include "host/geometry/LatticeData.h"
#include "host/geometry/skinning.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace host {

namespace {

void setGroup(std::vector<ComponentGroup>& groups, std::int32_t id, std::shared_ptr<const ComponentList> components) {
    const auto found =
        std::find_if(groups.begin(), groups.end(), [id](const ComponentGroup& group) { return group.id == id; });
    if (found != groups.end()) {
        found->components = std::move(components);
    } else {
        groups.push_back({id, std::move(components)});
    }
}

void addGroup(Evaluation& evaluation, Node& node, std::vector<ComponentGroup>& groups) {
    static const AttrIndex kGroupId = node.type().find("groupId");
    static const AttrIndex kComponents = node.type().find("inputComponents");
    const DataPtr data = evaluation.data(node, address(kComponents));
    auto components = data != nullptr && data->kind == DataKind::kComponentList
                          ? std::static_pointer_cast<const ComponentList>(data)
                          : std::make_shared<const ComponentList>();
    setGroup(groups, static_cast<std::int32_t>(evaluation.number(node, kGroupId)), std::move(components));
}

void groupMesh(Evaluation& evaluation, Node& node, MeshData& mesh) {
    addGroup(evaluation, node, mesh.groups);
}

void transformMesh(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kTransform = node.type().find("transform");
    static const AttrIndex kInvert = node.type().find("invertTransform");
    Matrix44 matrix = evaluation.matrix(node, address(kTransform));
    if (evaluation.number(node, kInvert) != 0.0) {
        matrix = matrix.inverse();
    }
    auto points = std::make_shared<Points>(*mesh.points);
    for (Imath::V3f& point : *points) {
        point = Imath::V3f(Imath::V3d(point) * matrix);
    }
    mesh.points = std::move(points);
    if (mesh.userNormals != nullptr) {
        mesh.userNormals = std::make_shared<const Points>(turnNormals(mesh, matrix));
    }
}

template <typename Set>
void eraseSet(std::vector<Set>& sets, const std::string& name) {
    sets.erase(std::remove_if(sets.begin(), sets.end(), [&](const Set& set) { return set.name == name; }), sets.end());
}

/// The name that one of the nodes for sets has.
std::string setName(Evaluation& evaluation, Node& node, const char* attribute) {
    return evaluation.string(node, address(node.type().find(attribute)));
}

void createUvSet(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::string name = setName(evaluation, node, "uvSetName");
    if (name.empty() || mesh.findUvSet(name) != nullptr) {
        return;
    }
    UvSet set;
    set.name = name;
    set.points = std::make_shared<std::vector<Imath::V2f>>();
    set.ids = std::make_shared<FaceIds>();
    mesh.uvSets.push_back(std::move(set));
}

void deleteUvSet(Evaluation& evaluation, Node& node, MeshData& mesh) {
    eraseSet(mesh.uvSets, setName(evaluation, node, "uvSetName"));
}

ColorRepresentation representationOf(double number) {
    return number == 1.0   ? ColorRepresentation::kAlpha
           : number == 3.0 ? ColorRepresentation::kRgb
                           : ColorRepresentation::kRgba;
}

void createColorSet(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::string name = setName(evaluation, node, "colorSetName");
    if (name.empty() || mesh.findColorSet(name) != nullptr) {
        return;
    }
    ColorSet set;
    set.name = name;
    set.clamped = evaluation.number(node, node.type().find("clamped")) != 0.0;
    set.representation = representationOf(evaluation.number(node, node.type().find("representation")));
    set.colors = std::make_shared<std::vector<Imath::V4f>>();
    set.ids = std::make_shared<FaceIds>();
    mesh.colorSets.push_back(std::move(set));
}

void deleteColorSet(Evaluation& evaluation, Node& node, MeshData& mesh) {
    eraseSet(mesh.colorSets, setName(evaluation, node, "colorSetName"));
}

AttrIndex inputOf(const Node& node) {
    return node.type().find("inputGeometry");
}

} // namespace

void putChanged(Evaluation& evaluation, Node& node, AttrIndex input, const PlugAddress& output, ChangeFunction change) {
    DataPtr data = evaluation.data(node, address(input));
    const MeshPtr mesh = meshOf(data);
    if (mesh == nullptr || hasNoEffect(evaluation, node)) {
        evaluation.putData(node, output, std::move(data));
        return;
    }
    auto changed = std::make_shared<MeshData>(*mesh);
    change(evaluation, node, *changed);
    evaluation.putData(node, output, std::move(changed));
}

void computeGroupId(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putNumber(node, output, node.id().slot); // slot 0 is the world's
}

void computeGroupParts(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const LatticePtr lattice = latticeOf(evaluation.data(node, address(inputOf(node))));
    if (lattice != nullptr && !hasNoEffect(evaluation, node)) {
        auto changed = std::make_shared<LatticeData>(*lattice);
        addGroup(evaluation, node, changed->groups);
        evaluation.putData(node, output, std::move(changed));
    } else {
        putChanged(evaluation, node, inputOf(node), output, groupMesh);
    }
}

void computeTransformGeometry(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, inputOf(node), output, transformMesh);
}

void computeCreateUvSet(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, inputOf(node), output, createUvSet);
}

void computeDeleteUvSet(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, inputOf(node), output, deleteUvSet);
}

void computeCreateColorSet(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, inputOf(node), output, createColorSet);
}

void computeDeleteColorSet(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, inputOf(node), output, deleteColorSet);
}

void computePassingGeometry(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output, evaluation.data(node, address(inputOf(node))));
}

} // namespace host
