#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The body of the ita file: the placements of the animated textures. Nothing when there are none.
MStatus writeTextureSrtBody(std::ostream& out);

} // namespace tvk
