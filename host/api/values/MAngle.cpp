#include <maya/MAngle.h>

#include "host/api/values/UiUnits.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// Units in a half turn, by number; 0 where there is no unit.
constexpr double kUnitsPerHalfTurn[] = {0.0, kPi, 180.0, 180.0 * 60.0, 180.0 * 3600.0};
static_assert(sizeof kUnitsPerHalfTurn / sizeof kUnitsPerHalfTurn[0] == MAngle::kLast, "a row for every unit");

double perHalfTurn(MAngle::Unit unit) {
    return unit > MAngle::kInvalid && unit < MAngle::kLast ? kUnitsPerHalfTurn[unit] : 0.0;
}

} // namespace

double MAngle::as(Unit unit) const {
    const double from = perHalfTurn(unit_), to = perHalfTurn(unit);
    if (from == 0.0 || to == 0.0) {
        return 0.0;
    }
    return unit == unit_ ? value_ : value_ * to / from;
}

MStatus MAngle::setUnit(Unit unit) {
    if (perHalfTurn(unit) == 0.0) {
        return MStatus::kInvalidParameter;
    }
    unit_ = unit;
    return MStatus::kSuccess;
}

MStatus MAngle::setValue(double value) {
    value_ = value;
    return MStatus::kSuccess;
}

MAngle& MAngle::operator=(double value) {
    value_ = value;
    return *this;
}

MAngle::Unit MAngle::uiUnit() {
    return host::api::uiUnits().angle;
}

MStatus MAngle::setUIUnit(Unit unit) {
    if (perHalfTurn(unit) == 0.0) {
        return MStatus::kInvalidParameter;
    }
    host::api::uiUnits().angle = unit;
    return MStatus::kSuccess;
}

double MAngle::internalToUI(double value) {
    return MAngle(value, internalUnit()).as(uiUnit());
}

double MAngle::uiToInternal(double value) {
    return MAngle(value, uiUnit()).as(internalUnit());
}
