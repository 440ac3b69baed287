#pragma once

#include "scene/ShapeRecord.h"

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <vector>

namespace tvk {

/// Some faces of a shape and the group that shades them.
struct ShadingAssignment {
    MObject shadingGroup;
    MObject component; // faces; null for the whole shape
};

/// Finds the shading groups of a shape instance, in the host's order. An assignment of the whole shape does not count
/// beside one of faces. Fails, with a message, when they cannot be asked for and when there are none.
///   assignments   replaced
MStatus findShadingAssignments(const ShapeRecord& shape, std::vector<ShadingAssignment>& assignments);

} // namespace tvk
