#pragma once

#include <cstdint>
#include <limits>

namespace tvk {

// How one kind of value is held on the console: an integer of 1/2^fractionBits units within [lowest, highest].
struct FixedFormat {
    int fractionBits; // 0 to 16
    int32_t lowest;
    int32_t highest;
    bool narrows; // the value is cut to single precision first, as the console's own library holds it
};

// Scales, rotations (degrees), translations, box corners, radii, animation and texture placement values.
inline constexpr FixedFormat kFixed12{12, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(),
                                      true};
// Vertex positions: the geometry engine's 16-bit words.
inline constexpr FixedFormat kFixedPosition{12, -32768, 32767, true};
// Components of unit normals: 10 bits, so that 1.0 itself becomes 511/512.
inline constexpr FixedFormat kFixedNormal{9, -512, 511, true};
// Texture coordinates in texels. They come as doubles from width * u and are not narrowed: on a 1024-texel image
// single precision would move a coordinate near a half unit to the wrong side.
inline constexpr FixedFormat kFixedTexel{4, -32768, 32767, false};

// Rounds to the nearest integer, halves away from zero, and clamps into [lowest, highest].
//   value     anything; not-a-number gives 0 (which is clamped, too), infinities give the limits
// Rounding means adding a half with the value's sign and truncating, as the format's reference tools do.
int32_t roundClamped(double value, int32_t lowest, int32_t highest);

// Converts a value to fixed point: narrow when the format says so, scale, round, clamp.
//   value     anything, in the field's unit (scene unit, degree, factor, texel); not-a-number gives 0
//   returns   units of the format; the product is exact, so the result is off by half a unit at the most
// The product and the rounding are in double: in single precision adding a half goes wrong above 2^23.
int32_t toFixed(double value, const FixedFormat& format);

// The common case, 12 fractional bits within 32 bits: 180 degrees give 737280.
inline int32_t toFixed12(double value) {
    return toFixed(value, kFixed12);
}

// What a reader of the file computes from `value` units: exact.
double fromFixed(int32_t value, const FixedFormat& format = kFixed12);

} // namespace tvk
