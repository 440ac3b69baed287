#pragma once

#include "host/graph/Attribute.h"
#include "host/graph/Units.h"

namespace host {

/// A number of a file or command as the graph holds it: distances in centimetres, angles in radians, times in whole
/// ticks; other kinds have no unit.
double toInternal(const Units& units, AttrKind kind, double value);
/// And back.
double toExternal(const Units& units, AttrKind kind, double value);

} // namespace host
