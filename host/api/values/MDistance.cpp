#include <maya/MDistance.h>

#include "host/api/values/UiUnits.h"

namespace {

// Centimetres of one unit, by number; 0 where there is no unit.
constexpr double kCentimetresPerUnit[] = {0.0, 2.54, 30.48, 91.44, 160934.4, 0.1, 1.0, 100000.0, 100.0};
static_assert(sizeof kCentimetresPerUnit / sizeof kCentimetresPerUnit[0] == MDistance::kLast, "a row for every unit");

double centimetresPer(MDistance::Unit unit) {
    return unit > MDistance::kInvalid && unit < MDistance::kLast ? kCentimetresPerUnit[unit] : 0.0;
}

} // namespace

double MDistance::as(Unit unit) const {
    const double from = centimetresPer(unit_), to = centimetresPer(unit);
    if (from == 0.0 || to == 0.0) {
        return 0.0;
    }
    return unit == unit_ ? value_ : value_ * from / to;
}

MStatus MDistance::setUnit(Unit unit) {
    if (centimetresPer(unit) == 0.0) {
        return MStatus::kInvalidParameter;
    }
    unit_ = unit;
    return MStatus::kSuccess;
}

MStatus MDistance::setValue(double value) {
    value_ = value;
    return MStatus::kSuccess;
}

MDistance& MDistance::operator=(double value) {
    value_ = value;
    return *this;
}

MDistance::Unit MDistance::uiUnit() {
    return host::api::uiUnits().distance;
}

MStatus MDistance::setUIUnit(Unit unit) {
    if (centimetresPer(unit) == 0.0) {
        return MStatus::kInvalidParameter;
    }
    host::api::uiUnits().distance = unit;
    return MStatus::kSuccess;
}

double MDistance::internalToUI(double value) {
    return MDistance(value, internalUnit()).as(uiUnit());
}

double MDistance::uiToInternal(double value) {
    return MDistance(value, uiUnit()).as(internalUnit());
}
