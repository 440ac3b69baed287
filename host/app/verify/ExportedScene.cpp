#include "host/app/verify/ExportedScene.h"

#include "host/app/verify/SceneFaces.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MPlugArray.h>

#include <algorithm>
#include <cmath>

namespace host::app::verify {
namespace {

double magnifyOf(const decode::FileElement& info) {
    return info.reals("magnify", 1).front();
}

bool hasShadedFaces(const MDagPath& shape) {
    const std::vector<SceneFace> faces = sceneFaces(shape);
    return std::any_of(faces.begin(), faces.end(), [](const SceneFace& face) { return face.inGroup; });
}

double inSteps(double printed) {
    return std::round(printed * 4096.0) / 4096.0;
}

std::vector<decode::ModelNode> wholeSteps(std::vector<decode::ModelNode> nodes) {
    for (decode::ModelNode& node : nodes) {
        for (int i = 0; i < 3; ++i) {
            node.scale[i] = inSteps(node.scale[i]);
            node.rotate[i] = inSteps(node.rotate[i]);
            node.translate[i] = inSteps(node.translate[i]);
        }
    }
    decode::buildMatrices(nodes);
    return nodes;
}

// Before the scene is read: what the file shows is the scene at the start of its range.
double goToStart(const decode::FileElement& info) {
    const double start = info.integer("tool_start_frame");
    goTo(start);
    return start;
}

} // namespace

ExportedScene::ExportedScene(const report::ExportedModel& model, bool selection)
    : start(goToStart(*model.file.info)), step(std::ldexp(1.0 / 4096, model.geometry.positionScale)),
      nodes(magnifyOf(*model.file.info), selection), written(wholeSteps(model.file.nodes)) {
    const std::string& compression = model.file.info->value("compress_node");
    isUnited = compression.compare(0, 5, "unite") == 0;
    isMerged = compression == "merge";
    mergesMaterials = model.file.info->isOn("compress_material");
    takesStrongest = model.file.info->isOn("force_full_weight");
    nodes.match(model.file);
    findMeshes(model);
    findBindFrames();
}

void ExportedScene::findMeshes(const report::ExportedModel& model) {
    for (const SceneNode& node : nodes.all()) {
        const std::optional<MDagPath> shape = shownMesh(node.path);
        if (!shape || (isUnited && !isVisibleBelow(node.path, node.top.value_or(node.path), shape))) {
            continue;
        }
        MeshOfNode mesh{isUnited ? 0 : nodes.fileNodeOf(node.path), node.path, *shape, std::nullopt, false};
        if (mesh.node < 0 || model.file.nodes.empty()) {
            if (hasShadedFaces(*shape)) {
                lostMeshes.emplace_back(shape->fullPathName().asUTF8());
            }
            continue;
        }
        const SkeletonDeformer deformer = isUnited ? SkeletonDeformer{} : deformerOf(*shape);
        if (deformer.isSkin) {
            mesh.skin = readSkin(*shape, deformer.node, nodes.magnify());
        }
        mesh.isOtherwiseDeformed = !deformer.node.isNull() && !deformer.isSkin;
        meshes.push_back(std::move(mesh));
    }
}

// A joint that several skins bound stands where the first of its connections has it.
void ExportedScene::findBindFrames() {
    for (const SceneNode& node : nodes.all()) {
        const int fileNode = nodes.fileNodeOf(node.path);
        if (isUnited || fileNode < 0) {
            continue;
        }
        MPlugArray users;
        const MPlug worlds = MFnDependencyNode(node.path.node()).findPlug("worldMatrix", false);
        worlds.elementByLogicalIndex(0).connectedTo(users, false, true);
        for (unsigned int i = 0; i < users.length() && bindFrames_.count(fileNode) == 0; ++i) {
            for (const MeshOfNode& mesh : meshes) {
                if (!mesh.skin || !(mesh.skin->node == users[i].node()) || bindFrames_.count(fileNode) != 0) {
                    continue;
                }
                for (const SkinInfluence& influence : mesh.skin->influences) {
                    if (influence.path == node.path) {
                        Imath::M44d offset;
                        offset.setTranslation(node.origin);
                        bindFrames_[fileNode] =
                            offset * influence.bindInverse.inverse() * nodes.placeOf(node).inverse();
                    }
                }
            }
        }
    }
}

std::optional<Imath::M44d> ExportedScene::bindFrameOf(int fileNode) const {
    const auto found = bindFrames_.find(fileNode);
    return found == bindFrames_.end() ? std::nullopt : std::optional<Imath::M44d>(found->second);
}

} // namespace host::app::verify
