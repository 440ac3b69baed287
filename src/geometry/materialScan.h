#pragma once

#include <maya/MStatus.h>

#include <set>

namespace tvk {

/// Finds or makes the materials of all mesh nodes, as reading their polygons would, without reading any: only who
/// shades which faces and whether these have texture coordinates. Fails, with a message, as that would.
///   used   gets the places in SceneData::materials of those that shade at least one face
MStatus scanMaterials(std::set<int>& used);

} // namespace tvk
