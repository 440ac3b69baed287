#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/SceneNodes.h"
#include "host/app/verify/SkinOfShape.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace host::app::verify {

/// What the files are held against: the scene at the start of the exported range, and how the files say that they were
/// made.
struct ExportedScene {
    /// Goes to the start of the range and reads the scene.
    ///   model       with its file's own info
    ///   selection   only what is selected was exported
    ExportedScene(const report::ExportedModel& model, bool selection);

    bool isUnited = false; // the meshes stand in the world, at the start of the range
    bool isMerged = false; // nodes that nothing needs were folded into those below them
    bool mergesMaterials = false;
    bool takesStrongest = false; // of a vertex's weights
    double start = 0.0;
    double step = 1.0 / 4096; // of positions
    SceneNodes nodes;
    std::vector<decode::ModelNode> written; // the file's, in whole steps again: decimals leave little of the last one

    struct MeshOfNode {
        int node = -1; // of the file; that of the root for united meshes
        MDagPath transform, shape;
        std::optional<SkinOfShape> skin;
        bool isOtherwiseDeformed = false; // by a skeleton, but by no skin
    };
    std::vector<MeshOfNode> meshes;      // those that are drawn
    std::vector<std::string> lostMeshes; // paths of those that no node of the file draws

    /// World matrix in which an influence stands in the file, when it was bound elsewhere than it stands now.
    std::optional<Imath::M44d> bindFrameOf(int fileNode) const;

private:
    void findMeshes(const report::ExportedModel& model);
    void findBindFrames();

    std::map<int, Imath::M44d> bindFrames_; // by file node
};

} // namespace host::app::verify
