#pragma once

#include "host/graph/Attribute.h"

#include <cstdint>

namespace host {

/// A number as an attribute of this kind holds it. Floating kinds, distances, angles and times hold what they get;
/// integer kinds cut the fraction off and stop at the ends of their range (NaN gives 0); booleans are 0 or 1, and
/// everything but zero is 1. Used wherever a number enters a plug: by setting, by a connection, by a compute function.
double convertNumber(double value, AttrKind kind);

/// Whether convertNumber can change a number for this kind.
bool isWholeNumberKind(AttrKind kind);

} // namespace host
