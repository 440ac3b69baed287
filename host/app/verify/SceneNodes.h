#pragma once

#include "decode/ModelFile.h"

#include <maya/MDagPath.h>

#include <ImathMatrix.h>

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace host::app::verify {

/// A transform of the scene that an export may make a node of.
struct SceneNode {
    MDagPath path;
    std::string name;            // in UTF-8, without what stands above it
    Imath::V3d origin;           // where the node's origin lies in its own space at the start, magnified
    std::optional<MDagPath> top; // the topmost exported node above it, or itself
    int parent = -1;             // place of the exported node that it hangs on, among all; -1 for a topmost one
};

/// The transforms of a scene, and which node of a model file stands for which of them. Nodes that have no effect are
/// left out with all below them, as an export leaves them out.
class SceneNodes {
public:
    /// Reads the scene as it stands at the current time.
    ///   selection   only what is selected, and what is below
    SceneNodes(double magnify, bool selection);

    /// Finds the scene's transform of every node of the file by its name: it stands below that of the node's parent,
    /// and its name is the written one, or the written one less an underscore and a number, which names that occur
    /// several times are given. Of several the first in the scene's order is taken, each only once.
    void match(const decode::ModelFile& file);

    const std::vector<SceneNode>& all() const { return nodes_; }
    /// The transform of a node of the file; null for a root that stands for none, and for a name that nothing has.
    const SceneNode* of(int fileNode) const;
    /// The place of the file's node for a transform; -1 when there is none.
    int fileNodeOf(const MDagPath& path) const;

    /// Which of all are seen at the current time: they and all exported nodes above them are switched on and no
    /// templates.
    std::vector<bool> visible() const;

    /// World matrix of a node at the current time as a reader of the file should find it: about its origin, magnified.
    Imath::M44d frameOf(const SceneNode& node) const;
    /// What the topmost exported node's parent brings: the world for exports of a whole scene.
    Imath::M44d placeOf(const SceneNode& node) const;
    double magnify() const { return magnify_; }

private:
    void walk(const MDagPath& path, const std::optional<MDagPath>& top, int parent);
    std::optional<std::size_t> find(const decode::ModelNode& node, const SceneNode* parent) const;

    double magnify_;
    std::vector<MDagPath> selected_;
    bool hasSelection_;
    std::vector<SceneNode> nodes_;
    std::unordered_map<std::string, std::vector<std::size_t>> byName_;
    std::vector<std::optional<std::size_t>> ofFile_; // by file node
    std::vector<int> fileNodes_;                     // by scene node; -1
};

/// The mesh that a transform shows: the last below it that is rendered and has an effect; nothing when it has none.
std::optional<MDagPath> shownMesh(const MDagPath& transform);

/// True when the transform and all above it, up to `top`, are switched on and no templates; that of the mesh too when
/// one is given.
bool isVisibleBelow(const MDagPath& transform, const MDagPath& top, const std::optional<MDagPath>& mesh);

} // namespace host::app::verify
