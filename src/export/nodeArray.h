#pragma once

#include "scene/NodeRecord.h"

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The output nodes of the run: as `node_array` for the model, or with `animation` as `node_anm_array` for the node
/// animation. Nothing at all when there are none. Always succeeds.
MStatus writeNodeArray(std::ostream& out, bool animation);

/// One link of a node: a line with the other node's index, or -1 when there is none.
void writeNodeLink(std::ostream& out, const char* name, const NodeRecord* target);

/// What a mesh node draws, one line per polygon group that is itself written.
void writeDisplayList(std::ostream& out, const NodeRecord& node);

/// One node's nine channels as references into the animation pools.
void writeNodeAnm(std::ostream& out, const NodeRecord& node);

} // namespace tvk
