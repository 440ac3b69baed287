#pragma once

#include "host/graph/Node.h"

#include <maya/MEulerRotation.h>
#include <maya/MVector.h>

#include <optional>

namespace host {

/// Attributes of transforms that are compounds of three numbers, by the long name of the compound ("translate").
/// Nothing when the node has none of that name; angles in radians, lengths in centimetres.
std::optional<MVector> readVector(Node& node, const char* compound);
/// Sets all three or, when one is locked, connected or computed, none and gives false.
bool writeVector(Node& node, const char* compound, const MVector& value);

MEulerRotation::RotationOrder readRotateOrder(Node& node);

} // namespace host
