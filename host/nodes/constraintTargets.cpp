#include "host/nodes/constraintTargets.h"

#include "host/nodes/address.h"
#include "host/nodes/blendRotation.h"
#include "host/nodes/keptValue.h"
#include "host/nodes/matrixPieces.h"
#include "host/nodes/tripleValues.h"

#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

V3d turned(const V3d& vector, const Matrix44& matrix) {
    V3d result;
    matrix.multDirMatrix(vector, result);
    return result;
}

V3d moved(const V3d& point, const Matrix44& matrix) {
    return turned(point, matrix) + originOf(matrix);
}

} // namespace

ConstraintAttributes::ConstraintAttributes(const NodeType& type)
    : nodeState(type.find("nodeState")), enableRest(type.find("enableRestPosition")),
      interpolation(type.find("interpType")), target(type.find("target")), targetWeight(type.find("targetWeight")),
      targetParentMatrix(type.find("targetParentMatrix")), targetTranslate(type.find("targetTranslateX")),
      targetRotatePivot(type.find("targetRotatePivotX")), targetRotateTranslate(type.find("targetRotateTranslateX")),
      targetRotate(type.find("targetRotateX")), targetRotateOrder(type.find("targetRotateOrder")),
      targetJointOrient(type.find("targetJointOrientX")), targetScale(type.find("targetScaleX")),
      targetScaleCompensate(type.find("targetScaleCompensate")), targetInverseScale(type.find("targetInverseScaleX")),
      targetOffsetTranslate(type.find("targetOffsetTranslateX")), targetOffsetRotate(type.find("targetOffsetRotateX")),
      parentInverse(type.find("constraintParentInverseMatrix")), rotatePivot(type.find("constraintRotatePivotX")),
      rotateTranslate(type.find("constraintRotateTranslateX")), rotateOrder(type.find("constraintRotateOrder")),
      jointOrient(type.find("constraintJointOrientX")), offset(type.find("offsetX")),
      restTranslate(type.find("restTranslateX")), restRotate(type.find("restRotateX")),
      restScale(type.find("restScaleX")), constraintTranslate(type.find("constraintTranslateX")),
      constraintRotate(type.find("constraintRotateX")), constraintScale(type.find("constraintScaleX")) {}

ConstraintTargets::ConstraintTargets(Evaluation& evaluation, Node& node, const ConstraintAttributes& attributes)
    : evaluation_(evaluation), node_(node), attr_(attributes) {
    for (const std::int32_t index : evaluation.graph().elementIndices({&node, address(attr_.target)})) {
        const double weight = evaluation.number(node, address(attr_.targetWeight).element(index));
        if (weight != 0.0 && std::isfinite(weight)) {
            targets_.push_back({address(attr_.target).element(index), weight});
            totalWeight_ += weight;
        }
    }
    const bool isOn = attr_.nodeState == kNoAttr || evaluation.number(node, attr_.nodeState) == 0.0;
    isFollowing_ = isOn && totalWeight_ != 0.0;
    parentInverse_ = evaluation.matrix(node, address(attr_.parentInverse));
}

V3d ConstraintTargets::read(AttrIndex first) const {
    return readTriple(evaluation_, node_, first);
}

V3d ConstraintTargets::read(AttrIndex first, const Target& target) const {
    return readTriple(evaluation_, node_, first, target.element);
}

Matrix44 ConstraintTargets::parentOf(const Target& target) const {
    PlugAddress at = target.element;
    at.attr = attr_.targetParentMatrix;
    return evaluation_.matrix(node_, at);
}

M33d ConstraintTargets::localRotation(const Target& target) const {
    PlugAddress at = target.element;
    at.attr = attr_.targetRotateOrder;
    return rotationMatrix(read(attr_.targetRotate, target), rotateOrderOf(evaluation_.number(node_, at))) *
           rotationMatrix(read(attr_.targetJointOrient, target), RotateOrder::kXYZ);
}

V3d ConstraintTargets::pivotOf(const Target& target) const {
    return read(attr_.targetTranslate, target) + read(attr_.targetRotatePivot, target) +
           read(attr_.targetRotateTranslate, target);
}

/// A target's offset, which is in its own space, in that of its parent.
V3d ConstraintTargets::scaledOffset(const Target& target) const {
    V3d offset = read(attr_.targetOffsetTranslate, target) * read(attr_.targetScale, target) * localRotation(target);
    PlugAddress at = target.element;
    at.attr = attr_.targetScaleCompensate;
    if (evaluation_.number(node_, at) != 0.0) {
        const V3d inverse = read(attr_.targetInverseScale, target);
        for (int axis = 0; axis < 3; ++axis) {
            offset[axis] /= inverse[axis] == 0.0 ? 1.0 : inverse[axis];
        }
    }
    return offset;
}

V3d ConstraintTargets::position() const {
    V3d sum(0.0);
    for (const Target& target : targets_) {
        V3d place = pivotOf(target);
        if (attr_.targetOffsetTranslate != kNoAttr) {
            place += scaledOffset(target);
        }
        sum += moved(place, parentOf(target)) * target.weight;
    }
    return sum / totalWeight_;
}

M33d ConstraintTargets::rotation() const {
    std::vector<WeightedRotation> rotations;
    for (const Target& target : targets_) {
        M33d rotation = localRotation(target) * rotationOf(parentOf(target));
        if (attr_.targetOffsetRotate != kNoAttr) {
            rotation = rotationMatrix(read(attr_.targetOffsetRotate, target), RotateOrder::kXYZ) * rotation;
        }
        rotations.push_back({rotation, target.weight});
    }
    return averageRotation(rotations, rotationMixingOf(evaluation_.number(node_, attr_.interpolation)));
}

V3d ConstraintTargets::scale() const {
    V3d mean(1.0);
    bool isFirst = true;
    for (const Target& target : targets_) {
        const V3d scale = read(attr_.targetScale, target) * piecesOf(parentOf(target)).scale;
        for (int axis = 0; axis < 3; ++axis) {
            const double power = targets_.size() == 1 ? std::abs(scale[axis])
                                                      : std::pow(std::abs(scale[axis]), target.weight / totalWeight_);
            mean[axis] *= isFirst ? std::copysign(power, scale[axis]) : power;
        }
        isFirst = false;
    }
    return mean;
}

V3d ConstraintTargets::pivotOfHeld() const {
    return triple(attr_.rotatePivot) + triple(attr_.rotateTranslate);
}

V3d ConstraintTargets::translationTo(const V3d& position) const {
    return moved(position, parentInverse_) - pivotOfHeld();
}

V3d ConstraintTargets::anglesTo(const M33d& rotation) const {
    const M33d parent = rotationOf(parentInverse_.gjInverse());
    const M33d orient = rotationMatrix(triple(attr_.jointOrient), RotateOrder::kXYZ);
    return rotationAngles(rotation * parent.transposed() * orient.transposed(),
                          rotateOrderOf(evaluation_.number(node_, attr_.rotateOrder)));
}

void ConstraintTargets::putRest(AttrIndex output, AttrIndex rest) {
    const bool isOff = evaluation_.number(node_, attr_.nodeState) != 0.0;
    if (!isOff && evaluation_.number(node_, attr_.enableRest) != 0.0) {
        putTriple(evaluation_, node_, output, read(rest));
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        const PlugAddress at = address(output + axis);
        evaluation_.putNumber(node_, at, keptValue(evaluation_.graph(), {&node_, at}));
    }
}

} // namespace host
