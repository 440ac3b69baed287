#pragma once

#include "scene/TextureRecord.h"

#include <maya/MStatus.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

/// Finds or adds a palette in SceneData::palettes. Images whose palettes have one name share one palette, so their
/// colours must be the same words.
///   user           the image that has the palette
///   paletteIndex   gets the place in the list
/// Fails, with a message that names both images, when the palette of that name has other colours; paletteIndex is then
/// untouched.
MStatus registerPalette(const std::string& paletteName, const std::vector<uint16_t>& colors, TextureRecord& user,
                        int& paletteIndex);

} // namespace tvk
