#include "host/scene/unitConversion.h"

#include <cmath>

namespace host {

double toInternal(const Units& units, AttrKind kind, double value) {
    switch (kind) {
    case AttrKind::kDistance:
        return value * units.centimetresPerLinear;
    case AttrKind::kAngle:
        return value * units.radiansPerAngular;
    case AttrKind::kTime:
        return static_cast<double>(units.ticks(std::isnan(value) ? 0.0 : value));
    default:
        return value;
    }
}

double toExternal(const Units& units, AttrKind kind, double value) {
    switch (kind) {
    case AttrKind::kDistance:
        return value / units.centimetresPerLinear;
    case AttrKind::kAngle:
        return value / units.radiansPerAngular;
    case AttrKind::kTime: {
        constexpr double kLimit = 9.2e18; // ticks are 64-bit integers
        return units.frames(static_cast<Ticks>(std::fmin(std::fmax(value, -kLimit), kLimit)));
    }
    default:
        return value;
    }
}

} // namespace host
