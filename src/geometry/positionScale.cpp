#include "geometry/positionScale.h"

namespace tvk {

// The halves stay exact: with integers -65537 would be done one step too early.
PositionScale findPositionScale(double lowest, double highest) {
    PositionScale result;
    while (lowest < -32768.0 || highest >= 32768.0) {
        lowest /= 2.0;
        highest /= 2.0;
        result.scale *= 2.0;
        ++result.exponent;
    }
    return result;
}

} // namespace tvk
