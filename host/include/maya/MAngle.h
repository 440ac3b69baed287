#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

/// An angle: a number and the unit in which it counts.
class MAngle {
public:
    enum Unit { kInvalid = 0, kRadians = 1, kDegrees = 2, kAngMinutes = 3, kAngSeconds = 4, kLast = 5 };

    constexpr MAngle() = default;
    constexpr MAngle(double value, Unit unit = kRadians) : value_(value), unit_(unit) {}

    /// 0 when this unit or the one asked for is not one of the four.
    double as(Unit unit) const;
    double asUnits(Unit unit) const { return as(unit); }
    double asRadians() const { return as(kRadians); }
    double asDegrees() const { return as(kDegrees); }
    double asAngMinutes() const { return as(kAngMinutes); }
    double asAngSeconds() const { return as(kAngSeconds); }

    double value() const { return value_; }
    Unit unit() const { return unit_; }
    /// The number stays as it is. Refused with kInvalidParameter when the unit is none.
    MStatus setUnit(Unit unit);
    MStatus setValue(double value);
    MAngle& operator=(double value);

    /// The unit of the user interface and of scripts; plug values are in internalUnit(), radians.
    static Unit uiUnit();
    static MStatus setUIUnit(Unit unit);
    static Unit internalUnit() { return kRadians; }
    static double internalToUI(double value);
    static double uiToInternal(double value);

private:
    double value_ = 0.0;
    Unit unit_ = kRadians;
};
