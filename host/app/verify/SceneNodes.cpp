#include "host/app/verify/SceneNodes.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MFnTransform.h>
#include <maya/MGlobal.h>
#include <maya/MItDag.h>
#include <maya/MSelectionList.h>

#include <algorithm>

namespace host::app::verify {
namespace {

bool hasEffect(const MObject& node) {
    const int state = attributeOf<int>(node, "nodeState").value_or(0);
    return state != 1 && state != 2;
}

bool isShown(const MObject& shape) {
    if (!isOn(shape, "primaryVisibility", true) || isOn(shape, "template") || isOn(shape, "intermediateObject")) {
        return false;
    }
    if (!isOn(shape, "overrideEnabled")) {
        return true;
    }
    return isOn(shape, "overrideVisibility", true) && isOn(shape, "overrideShading", true) &&
           attributeOf<int>(shape, "overrideDisplayType").value_or(0) != 1;
}

// The shape before deformation, which some node still reads.
bool isOriginal(const MDagPath& shape) {
    const MFnDependencyNode node(shape.node());
    if (std::string(node.name().asUTF8()).find("Orig") == std::string::npos) {
        return false;
    }
    const MPlug meshes = node.findPlug("worldMesh", false);
    return !meshes.isNull() && meshes.elementByLogicalIndex(0).isConnected();
}

bool isSwitchedOn(const MObject& transform) {
    if (!isOn(transform, "visibility", true) || isOn(transform, "template")) {
        return false;
    }
    return !isOn(transform, "overrideEnabled") || isOn(transform, "overrideVisibility", true);
}

bool isBelow(const MDagPath& path, const MDagPath& above) {
    if (path.length() <= above.length()) {
        return false;
    }
    MDagPath at = path;
    at.pop(path.length() - above.length());
    return at == above;
}

// The written name less an underscore and a number; "" when it does not end so.
std::string withoutNumber(const std::string& name) {
    const std::size_t digits = name.find_last_not_of("0123456789");
    const bool isNumbered = digits != std::string::npos && digits + 1 < name.size() && name[digits] == '_';
    return isNumbered ? name.substr(0, digits) : std::string();
}

} // namespace

SceneNodes::SceneNodes(double magnify, bool selection) : magnify_(magnify), hasSelection_(selection) {
    if (selection) {
        MSelectionList list;
        MGlobal::getActiveSelectionList(list);
        for (unsigned int i = 0; i < list.length(); ++i) {
            MDagPath path;
            if (list.getDagPath(i, path) == MStatus::kSuccess) {
                if (!path.node().hasFn(MFn::kTransform)) {
                    path.pop();
                }
                selected_.push_back(path);
            }
        }
    }
    MDagPath world;
    MItDag().getPath(world);
    for (unsigned int i = 0; i < world.childCount(); ++i) {
        MDagPath child = world;
        child.push(world.child(i));
        walk(child, std::nullopt, -1);
    }
    fileNodes_.assign(nodes_.size(), -1);
}

void SceneNodes::walk(const MDagPath& path, const std::optional<MDagPath>& top, int parent) {
    if (!path.node().hasFn(MFn::kTransform) || !hasEffect(path.node())) {
        return;
    }
    const bool isChosen = !hasSelection_ || std::find(selected_.begin(), selected_.end(), path) != selected_.end();
    const std::optional<MDagPath> ownTop = top || !isChosen ? top : std::optional<MDagPath>(path);
    if (ownTop) {
        SceneNode node{path, nameOf(path.node()), Imath::V3d(0.0), ownTop, parent};
        if (!path.node().hasFn(MFn::kJoint)) {
            const MPoint pivot = MFnTransform(path).scalePivot(MSpace::kTransform);
            node.origin = Imath::V3d(pivot.x, pivot.y, pivot.z) * magnify_;
        }
        byName_[node.name].push_back(nodes_.size());
        nodes_.push_back(node);
    }
    const int own = ownTop ? static_cast<int>(nodes_.size()) - 1 : -1;
    for (unsigned int i = 0; i < path.childCount(); ++i) {
        MDagPath child = path;
        child.push(path.child(i));
        walk(child, ownTop, own);
    }
}

void SceneNodes::match(const decode::ModelFile& file) {
    ofFile_.assign(file.nodes.size(), std::nullopt);
    fileNodes_.assign(nodes_.size(), -1);
    for (const decode::ModelNode& node : file.nodes) {
        const std::optional<std::size_t> found = find(node, node.parent < 0 ? nullptr : of(node.parent));
        ofFile_[static_cast<std::size_t>(node.index)] = found;
        if (found) {
            fileNodes_[*found] = node.index;
        }
    }
}

std::optional<std::size_t> SceneNodes::find(const decode::ModelNode& node, const SceneNode* parent) const {
    const std::string written = report::utf8Name(node.name);
    for (const std::string& wanted : {written, withoutNumber(written)}) {
        const auto candidates = byName_.find(wanted);
        if (candidates == byName_.end()) {
            continue;
        }
        for (const std::size_t i : candidates->second) {
            if (fileNodes_[i] == -1 && (parent == nullptr || isBelow(nodes_[i].path, parent->path))) {
                return i;
            }
        }
    }
    return std::nullopt;
}

const SceneNode* SceneNodes::of(int fileNode) const {
    const auto index = static_cast<std::size_t>(fileNode);
    const bool isKnown = fileNode >= 0 && index < ofFile_.size() && ofFile_[index];
    return isKnown ? &nodes_[*ofFile_[index]] : nullptr;
}

int SceneNodes::fileNodeOf(const MDagPath& path) const {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        if (nodes_[i].path == path) {
            return fileNodes_[i];
        }
    }
    return -1;
}

std::vector<bool> SceneNodes::visible() const {
    std::vector<bool> result;
    for (const SceneNode& node : nodes_) { // parents stand first
        result.push_back((node.parent < 0 || result[static_cast<std::size_t>(node.parent)]) &&
                         isSwitchedOn(node.path.node()));
    }
    return result;
}

Imath::M44d SceneNodes::frameOf(const SceneNode& node) const {
    Imath::M44d offset;
    offset.setTranslation(node.origin);
    return offset * matrixOf(node.path.inclusiveMatrix(), magnify_);
}

Imath::M44d SceneNodes::placeOf(const SceneNode& node) const {
    return matrixOf(node.top.value_or(node.path).exclusiveMatrix(), magnify_);
}

std::optional<MDagPath> shownMesh(const MDagPath& transform) {
    std::optional<MDagPath> found;
    for (unsigned int i = 0; i < transform.childCount(); ++i) {
        MDagPath shape = transform;
        shape.push(transform.child(i));
        if (shape.node().hasFn(MFn::kMesh) && !isOriginal(shape) && isShown(shape.node()) && hasEffect(shape.node())) {
            found = shape;
        }
    }
    return found;
}

bool isVisibleBelow(const MDagPath& transform, const MDagPath& top, const std::optional<MDagPath>& mesh) {
    if (mesh && !isOn(mesh->node(), "visibility", true)) {
        return false;
    }
    for (MDagPath path = transform; path.length() >= top.length() && path.length() > 0; path.pop()) {
        if (!isSwitchedOn(path.node())) {
            return false;
        }
    }
    return true;
}

} // namespace host::app::verify
