#include "common/fixedPoint.h"

namespace tvk {

static_assert(std::numeric_limits<float>::is_iec559, "narrowing a huge double must give an infinity");

namespace {

double unitsPerOne(const FixedFormat& format) {
    return static_cast<double>(1 << format.fractionBits);
}

} // namespace

int32_t roundClamped(double value, int32_t lowest, int32_t highest) {
    if (value != value)
        value = 0.0;
    const double moved = value < 0.0 ? value - 0.5 : value + 0.5;
    // Clamping comes before the cast: beyond 32 bits the cast would be undefined.
    if (moved <= static_cast<double>(lowest))
        return lowest;
    if (moved >= static_cast<double>(highest))
        return highest;
    return static_cast<int32_t>(moved);
}

int32_t toFixed(double value, const FixedFormat& format) {
    const double held = format.narrows ? static_cast<double>(static_cast<float>(value)) : value;
    return roundClamped(held * unitsPerOne(format), format.lowest, format.highest);
}

double fromFixed(int32_t value, const FixedFormat& format) {
    return static_cast<double>(value) / unitsPerOne(format);
}

} // namespace tvk
