#pragma once

#include "host/nodes/transformMatrix.h"

#include <vector>

namespace host {

/// One joint of a chain at rest: turned as the chain likes to bend (its preferred angles). All in the world.
struct IkJoint {
    Imath::V3d place;
    Imath::M33d rotation;
};

/// A chain at rest, from its start joint to the last joint that it turns, and the place of its end.
struct IkChain {
    std::vector<IkJoint> joints;
    Imath::V3d end;
};

/// How a chain is turned about the line from its start to its goal.
struct IkSide {
    /// Where its middle points (length does not count), or
    Imath::V3d pole{0.0};
    /// with `matchesRotation`, how its last joint is turned, as near as that can be.
    Imath::M33d rotation;
    bool matchesRotation = false;
    double twist = 0.0; // radians about the line, added
};

/// The world rotations of the joints that bring the end to the goal, or as near as the chain reaches. All joints
/// between the ends bend by the same part of what they are bent at rest, each in its own plane; joints that are
/// straight at rest stay straight. A goal at the start leaves the direction as it is at rest.
std::vector<Imath::M33d> solveChain(const IkChain& chain, const Imath::V3d& goal, const IkSide& side);

} // namespace host
