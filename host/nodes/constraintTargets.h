#pragma once

#include "host/nodes/rotationAverage.h"

#include "host/graph/Evaluation.h"

#include <vector>

namespace host {

/// The attributes that constraints have in common; of three numbers the first. kNoAttr where a type lacks one.
struct ConstraintAttributes {
    explicit ConstraintAttributes(const NodeType& type);

    AttrIndex nodeState, enableRest, interpolation;
    AttrIndex target, targetWeight, targetParentMatrix, targetTranslate, targetRotatePivot, targetRotateTranslate,
        targetRotate, targetRotateOrder, targetJointOrient, targetScale, targetScaleCompensate, targetInverseScale,
        targetOffsetTranslate, targetOffsetRotate;
    AttrIndex parentInverse, rotatePivot, rotateTranslate, rotateOrder, jointOrient, offset;
    AttrIndex restTranslate, restRotate, restScale;
    AttrIndex constraintTranslate, constraintRotate, constraintScale;
};

/// What a constraint reads of its targets and of what it holds. Targets without weight do not count.
class ConstraintTargets {
public:
    ConstraintTargets(Evaluation& evaluation, Node& node, const ConstraintAttributes& attributes);

    /// Whether there is anything to follow: targets whose weights do not add up to nothing, and a node that is not
    /// switched off.
    bool isFollowing() const { return isFollowing_; }

    /// World-space mean of the targets' rotate pivots, moved by their offsets when they have some.
    Imath::V3d position() const;
    /// World-space mean of the targets' rotations, turned by their offsets when they have some.
    Imath::M33d rotation() const;
    /// Geometric mean of the targets' scales in the world, per axis.
    Imath::V3d scale() const;

    const Matrix44& parentInverse() const { return parentInverse_; }
    /// Where a position in the world is for the translation of what is held, so that its rotate pivot comes there.
    Imath::V3d translationTo(const Imath::V3d& position) const;
    /// Angles that turn what is held into a rotation in the world.
    Imath::V3d anglesTo(const Imath::M33d& rotation) const;
    Imath::V3d pivotOfHeld() const;

    /// Puts what an output is while nothing is followed: the rest value, or what the driven channels store.
    void putRest(AttrIndex output, AttrIndex rest);

private:
    struct Target {
        PlugAddress element;
        double weight;
    };

    Imath::M33d localRotation(const Target& target) const;
    Imath::V3d pivotOf(const Target& target) const;
    Imath::V3d scaledOffset(const Target& target) const;
    Matrix44 parentOf(const Target& target) const;
    Imath::V3d triple(AttrIndex first) const { return first == kNoAttr ? Imath::V3d(0.0) : read(first); }
    Imath::V3d read(AttrIndex first) const;
    Imath::V3d read(AttrIndex first, const Target& target) const;

    Evaluation& evaluation_;
    Node& node_;
    const ConstraintAttributes& attr_;
    std::vector<Target> targets_;
    double totalWeight_ = 0.0;
    bool isFollowing_ = false;
    Matrix44 parentInverse_;
};

} // namespace host
