#pragma once

#include "scene/MaterialRecord.h"

#include <maya/MColor.h>

#include <cstdint>

namespace tvk {

/// A factor of 0 to 1 in the console's 5 bits: 0 to 31, halves away from zero; clamped, not-a-number gives 0. The
/// product is taken in single precision, as the host holds colours.
int32_t toComponent5(float value);

/// The same for a colour. The host's mark for "no colour", -1 in all four, gives opaque black.
Color5 toColor5(const MColor& color);

} // namespace tvk
