#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// Writes the materials in the order of SceneData::materialOrder; nothing when there are none. The texture images must
/// have been written (or only converted) before, as that gives the references their palettes. Always a success.
MStatus writeMaterialArray(std::ostream& out);

} // namespace tvk
