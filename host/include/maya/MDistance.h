#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

/// A length: a number and the unit in which it counts.
class MDistance {
public:
    enum Unit {
        kInvalid = 0,
        kInches = 1,
        kFeet = 2,
        kYards = 3,
        kMiles = 4,
        kMillimeters = 5,
        kCentimeters = 6,
        kKilometers = 7,
        kMeters = 8,
        kLast = 9
    };

    constexpr MDistance() = default;
    constexpr MDistance(double value, Unit unit = kCentimeters) : value_(value), unit_(unit) {}

    /// 0 when this unit or the one asked for is not one of the eight.
    double as(Unit unit) const;
    double asUnits(Unit unit) const { return as(unit); }
    double asInches() const { return as(kInches); }
    double asFeet() const { return as(kFeet); }
    double asYards() const { return as(kYards); }
    double asMiles() const { return as(kMiles); }
    double asMillimeters() const { return as(kMillimeters); }
    double asCentimeters() const { return as(kCentimeters); }
    double asKilometers() const { return as(kKilometers); }
    double asMeters() const { return as(kMeters); }

    double value() const { return value_; }
    Unit unit() const { return unit_; }
    /// The number stays as it is. Refused with kInvalidParameter when the unit is none.
    MStatus setUnit(Unit unit);
    MStatus setValue(double value);
    MDistance& operator=(double value);

    /// The unit of the user interface and of scripts; plug values are in internalUnit(), centimetres.
    static Unit uiUnit();
    static MStatus setUIUnit(Unit unit);
    static Unit internalUnit() { return kCentimeters; }
    static double internalToUI(double value);
    static double uiToInternal(double value);

private:
    double value_ = 0.0;
    Unit unit_ = kCentimeters;
};
