#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// Settles the written order of the palettes, by name: SceneData::paletteOrder and the written indices of the records.
void sortPalettes();

/// Writes the palettes in that order; nothing when there are none. Always a success.
MStatus writeTexPaletteArray(std::ostream& out);

} // namespace tvk
