#include "geometry/texelCoordinates.h"

#include "common/fixedPoint.h"

#include <limits>

namespace tvk {
namespace {

constexpr FixedFormat kUnclampedTexel{kFixedTexel.fractionBits, std::numeric_limits<int32_t>::min(),
                                      std::numeric_limits<int32_t>::max(), kFixedTexel.narrows};

bool isInRange(double texels) {
    return toFixed(texels, kUnclampedTexel) == toFixed(texels, kFixedTexel);
}

uint32_t componentOf(double value) {
    constexpr int32_t kHighest = 31;
    return static_cast<uint32_t>(roundClamped(value * kHighest, 0, kHighest));
}

} // namespace

TexelPoint texelPointOf(double u, double v, int32_t width, int32_t height) {
    return {u * width, height - v * height};
}

bool isInTexelRange(const TexelPoint& point) {
    return isInRange(point.s) && isInRange(point.t);
}

FixedTexCoord fixedTexCoordOf(const TexelPoint& point) {
    return {static_cast<int16_t>(toFixed(point.s, kFixedTexel)), static_cast<int16_t>(toFixed(point.t, kFixedTexel))};
}

ColorWord colorWordOf(double red, double green, double blue) {
    return static_cast<ColorWord>(componentOf(red) | componentOf(green) << 5U | componentOf(blue) << 10U);
}

} // namespace tvk
