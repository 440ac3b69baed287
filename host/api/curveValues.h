#pragma once

#include "host/graph/Node.h"
#include "host/nodes/animCurve.h"

#include <maya/MFnAnimCurve.h>

#include <memory>
#include <optional>

namespace host {

/// A curve node with its curve, and what its numbers count.
struct CurveView {
    Node* node = nullptr;
    std::shared_ptr<const AnimCurve> curve;
    bool isTimed = false;       // keys stand at ticks; else at plain numbers
    double ticksPerValue = 1.0; // ticks per second when values are times
    bool givesTime() const { return ticksPerValue != 1.0; }
};

/// Nothing when the object is no animation curve.
std::optional<CurveView> curveOf(const MObject& object);

/// The API numbers tangent types in its own way; files and the host in another.
MFnAnimCurve::TangentType apiTangentType(TangentType type);

/// A tangent of a key: x in seconds (driven keys: plain), y in internal units, times in seconds; of length 1 on curves
/// without weights, and towards a side where there is no neighbour.
TangentVector tangentOf(const CurveView& view, const AnimCurve::Key& key, bool inTangent);

} // namespace host
