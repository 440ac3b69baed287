#include "host/nodes/ikChain.h"

#include <Imath/ImathQuat.h>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::Quatd;
using Imath::V3d;

/// Angles and lengths (as parts of the chain's) below this are none.
constexpr double kNothing = 1e-9;
constexpr double kHalfTurn = 3.14159265358979323846;

M33d rotationAbout(const V3d& axis, double radians) {
    Quatd turn;
    turn.setAxisAngle(axis, radians);
    return turn.toMatrix33();
}

M33d shortestTurn(const V3d& from, const V3d& to) {
    Quatd turn;
    turn.setRotation(from.normalized(), to.normalized());
    return turn.toMatrix33();
}

/// A frame with its first axis along `x` (of length 1) and the second towards `side`; false when that lies on x.
bool makeFrame(const V3d& x, const V3d& side, double length, M33d& frame) {
    const V3d across = side - x * side.dot(x);
    if (!(across.length() > kNothing * length)) {
        return false;
    }
    const V3d y = across.normalized();
    const V3d z = x.cross(y);
    frame = M33d(x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z);
    return true;
}

/// The bones of a chain and where it is bent at rest.
class Bones {
public:
    explicit Bones(const IkChain& chain) {
        for (std::size_t i = 0; i < chain.joints.size(); ++i) {
            const V3d& next = i + 1 < chain.joints.size() ? chain.joints[i + 1].place : chain.end;
            bones_.push_back(next - chain.joints[i].place);
            length_ += bones_.back().length();
        }
        bends_.resize(bones_.size());
        for (std::size_t i = 1; i < bones_.size(); ++i) {
            const V3d normal = bones_[i - 1].cross(bones_[i]);
            const double angle = std::atan2(normal.length(), bones_[i - 1].dot(bones_[i]));
            if (angle > kNothing && normal.length() > 0.0) {
                bends_[i] = {normal.normalized(), angle};
                widest_ = std::max(widest_, angle);
            }
        }
    }

    double length() const { return length_; }

    /// Rotations of the bones that make every bend `part` of what it is at rest; 0 stretches the chain.
    std::vector<M33d> bent(double part) const {
        std::vector<M33d> rotations(bones_.size());
        for (std::size_t i = 1; i < bones_.size(); ++i) {
            rotations[i] = rotations[i - 1];
            if (bends_[i].angle > 0.0) {
                rotations[i] = rotationAbout(bends_[i].axis, (part - 1.0) * bends_[i].angle) * rotations[i - 1];
            }
        }
        return rotations;
    }

    /// The part of the bends that brings the end so far away from the start, or as near to that as can be.
    double partFor(double distance) const {
        if (widest_ == 0.0) {
            return 1.0;
        }
        // Fully stretched on, until the chain for the first time is short enough.
        constexpr int kSteps = 64;
        const double most = kHalfTurn / widest_;
        double nearest = 0.0;
        double reached = reach(0.0);
        for (int step = 0; step < kSteps && reached > distance; ++step) {
            const double low = most * step / kSteps;
            const double high = most * (step + 1) / kSteps;
            const double next = reach(high);
            if (next <= distance) {
                return halve(low, high, distance);
            }
            if (next < reached) {
                nearest = high;
            }
            reached = std::min(reached, next);
        }
        return nearest;
    }

    V3d end(const std::vector<M33d>& rotations) const {
        V3d sum(0.0);
        for (std::size_t i = 0; i < bones_.size(); ++i) {
            sum += bones_[i] * rotations[i];
        }
        return sum;
    }

    /// The side to which the middle points, across `direction`; zero when nothing bends.
    V3d middle(const std::vector<M33d>& rotations, const V3d& direction) const {
        V3d normal(0.0);
        for (std::size_t i = 1; i < bones_.size(); ++i) {
            normal += bends_[i].axis * bends_[i].angle * rotations[i - 1];
        }
        return direction.cross(normal);
    }

private:
    struct Bend {
        V3d axis{0.0};
        double angle = 0.0;
    };

    double reach(double part) const { return end(bent(part)).length(); }

    double halve(double low, double high, double distance) const {
        // Halving 60 times leaves nothing of the interval that a double could tell apart.
        for (int step = 0; step < 60; ++step) {
            const double middle = 0.5 * (low + high);
            (reach(middle) > distance ? low : high) = middle;
        }
        return 0.5 * (low + high);
    }

    std::vector<V3d> bones_;
    std::vector<Bend> bends_; // of bone i against the one before
    double length_ = 0.0;
    double widest_ = 0.0;
};

/// The rotation of the whole that points a bent chain to its goal.
M33d aim(const IkChain& chain, const Bones& bones, const std::vector<M33d>& rotations, const V3d& toGoal,
         const IkSide& side) {
    const V3d end = bones.end(rotations);
    const bool hasDirection = end.length() > kNothing * bones.length();
    const V3d x = hasDirection ? end.normalized() : V3d(1, 0, 0);
    const V3d goal = toGoal.length() > kNothing * bones.length() ? toGoal.normalized() : x;
    if (side.matchesRotation) {
        const M33d matching = (chain.joints.back().rotation * rotations.back()).transposed() * side.rotation;
        const M33d turn = hasDirection ? matching * shortestTurn(x * matching, goal) : matching;
        return turn * rotationAbout(goal, side.twist);
    }
    M33d own;
    M33d wanted;
    if (makeFrame(x, bones.middle(rotations, x), 1.0, own) && makeFrame(goal, side.pole, side.pole.length(), wanted)) {
        return own.transposed() * wanted * rotationAbout(goal, side.twist);
    }
    return hasDirection ? shortestTurn(x, goal) * rotationAbout(goal, side.twist) : M33d();
}

} // namespace

std::vector<M33d> solveChain(const IkChain& chain, const V3d& goal, const IkSide& side) {
    const Bones bones(chain);
    if (chain.joints.empty() || !(bones.length() > 0.0)) {
        std::vector<M33d> rest;
        for (const IkJoint& joint : chain.joints) {
            rest.push_back(joint.rotation);
        }
        return rest;
    }
    const V3d toGoal = goal - chain.joints.front().place;
    std::vector<M33d> rotations = bones.bent(bones.partFor(toGoal.length()));
    const M33d whole = aim(chain, bones, rotations, toGoal, side);
    for (std::size_t i = 0; i < rotations.size(); ++i) {
        rotations[i] = chain.joints[i].rotation * rotations[i] * whole;
    }
    return rotations;
}

} // namespace host
