#pragma once

#include <maya/MObject.h>
#include <maya/MPlug.h>

#include <cstdint>

namespace tvk {

/// What sets a plug's value over time.
enum class DriverKind : uint8_t { kNone, kTimeCurve, kDrivenKey, kExpression, kConnection };

struct PlugDriver {
    DriverKind kind = DriverKind::kNone;
    MObject curve;           // of a time curve or a driven key; else null
    bool isConstant = false; // a time curve with equal key values and flat tangents, or with fewer than two keys

    bool isAnimated() const { return kind == DriverKind::kTimeCurve ? !isConstant : kind != DriverKind::kNone; }
};

/// Finds what drives a plug: the source of the plug, else of the compound that it belongs to, stepping through unit
/// conversions, pair blends, character nodes and animation-layer blends by the matching element. Of the two inputs of a
/// blend the first that is animated counts, else the first that is driven at all. What only hands on and has nothing
/// behind it is no driver. Ends on cyclic graphs.
PlugDriver findDriver(const MPlug& plug);

} // namespace tvk
