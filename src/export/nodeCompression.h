#pragma once

#include "scene/NodeRecord.h"
#include "scene/SceneData.h"

namespace tvk {

/// Marks the nodes that compression leaves: protected ones, those with polygons, those that a matrix or an envelope
/// names, and billboards.
void markKeptNodes(SceneData& scene);

/// Takes useless nodes out of the output hierarchy and makes the list of the written nodes anew, with their indices,
/// depths and numbers of children. The scene's own hierarchy stays.
///   mode   as ExportOptions::optimizeNode
///          kOptimizeCull    leaves that draw nothing and carry nothing
///          kOptimizeMerge   every node that is not kept; its transform is to be folded into what hangs below
///          kOptimizeUnite, kOptimizeUniteCombine
///                           all but the root and the protected nodes, which become children of the root
///          anything else    nothing
/// A root that stands for no node of the scene goes when a single child is left; when merging, any root that is not
/// kept does. Time and memory are linear in the nodes.
void compressNodes(SceneData& scene, int32_t mode);

} // namespace tvk
