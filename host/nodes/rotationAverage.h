#pragma once

#include "host/nodes/transformMatrix.h"

#include <vector>

namespace host {

struct WeightedRotation {
    Imath::M33d rotation;
    double weight = 1.0;
};

/// How several rotations become one; the numbers of a constraint's interpType. kNoFlip and kCache look back at earlier
/// times in the real host; here they count as kAverage.
enum class RotationMixing : int { kNoFlip, kAverage, kShortest, kLongest, kCache };
RotationMixing rotationMixingOf(double number);

/// The mean of rotations by their weights (the weights' sum must not be 0). kAverage: of the quaternions, each with the
/// sign that is nearer to the first's; kShortest and kLongest: one after the other along the shorter or longer arc.
Imath::M33d averageRotation(const std::vector<WeightedRotation>& rotations, RotationMixing mixing);

} // namespace host
