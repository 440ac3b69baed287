#pragma once

#include "scene/SceneData.h"

#include <maya/MMatrix.h>
#include <maya/MPlug.h>

#include <optional>

namespace tvk {

/// Takes the exemption from the bind pose (NodeRecord::bindPoseExempt) from every node that an effective skin of an
/// exported shape lists as an influence, with or without weight. Nobody loses it when nodes are united.
void markInfluences(SceneData& scene);

/// The world matrix that a node had when the first deformer that it drives was bound, in the host's units. Nothing when
/// it drives none that shapes something, or when the deformer's matrix cannot be read, which is warned of.
std::optional<MMatrix> findBindMatrix(const NodeRecord& node);

/// The world matrix at binding from the plug that holds its inverse. Nothing, and a warning, when the plug cannot be
/// read as a matrix.
std::optional<MMatrix> readBindMatrix(const MPlug& bindPreMatrix);

} // namespace tvk
