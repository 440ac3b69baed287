#pragma once

#include "scene/ModelTables.h"

namespace tvk {

/// A place of a texture in texels: s to the right, t downwards from the top.
struct TexelPoint {
    double s = 0.0;
    double t = 0.0;
};

/// Brings texture coordinates (0 to 1 over the picture, v upwards) to texels.
///   width, height   of the picture as its file has it: a padded texture has the picture undistorted in its corner
TexelPoint texelPointOf(double u, double v, int32_t width, int32_t height);

/// Whether the point fits into the file's 16 bits.
bool isInTexelRange(const TexelPoint& point);

/// In 1/16 texel, clamped to 16 bits.
FixedTexCoord fixedTexCoordOf(const TexelPoint& point);

/// Colour components of 0 to 1, beyond which they are clamped, in 5 bits each.
ColorWord colorWordOf(double red, double green, double blue);

} // namespace tvk
