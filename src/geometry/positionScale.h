#pragma once

#include <cstdint>

namespace tvk {

/// By what positions are divided so that they fit into the geometry engine's 16 bits: 2 to the exponent, the smallest
/// that makes every component fit.
struct PositionScale {
    double scale = 1.0;
    int32_t exponent = 0;
};

///   lowest, highest   of all components, in 1/4096
/// -32768 itself fits and 32768 does not: the words are two's complement.
PositionScale findPositionScale(double lowest, double highest);

} // namespace tvk
