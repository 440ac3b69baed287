#include "host/nodes/constraintCompute.h"

#include "host/nodes/constraintTargets.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/matrixPieces.h"
#include "host/nodes/tripleValues.h"

#include <Imath/ImathQuat.h>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

PlugAddress address(AttrIndex attr) {
    return {attr, 0, {}};
}

/// The outputs that a constraint has as any transform.
bool computeAsTransform(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kFirstOwn = node.type().find("enableRestPosition");
    if (output.attr >= kFirstOwn) {
        return false;
    }
    computeDagMatrices(evaluation, node, output);
    return true;
}

V3d turned(const V3d& vector, const Matrix44& matrix) {
    V3d result;
    matrix.multDirMatrix(vector, result);
    return result;
}

bool isDirection(const V3d& vector) {
    const double length = vector.length();
    return length > 0.0 && length < 1e300;
}

/// The axes of a frame with its first axis along `aim` and the second as near to `up` as can be; false when the two
/// lie on one line or are no directions.
bool makeFrame(const V3d& aim, const V3d& up, M33d& frame) {
    if (!isDirection(aim) || !isDirection(up)) {
        return false;
    }
    const V3d x = aim.normalized();
    const V3d side = x.cross(up.normalized());
    if (side.length() < 1e-12) {
        return false;
    }
    const V3d z = side.normalized();
    const V3d y = z.cross(x);
    frame = M33d(x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z);
    return true;
}

M33d shortestTurn(const V3d& from, const V3d& to) {
    Imath::Quatd turn;
    if (isDirection(from) && isDirection(to)) {
        turn.setRotation(from.normalized(), to.normalized());
    }
    return turn.toMatrix33();
}

enum class WorldUp : int { kScene, kObject, kObjectRotation, kVector, kNone };

/// Up in the world, seen from a place; zero for kNone.
V3d worldUp(Evaluation& evaluation, Node& node, const V3d& place) {
    static const AttrIndex kType = node.type().find("worldUpType");
    static const AttrIndex kVector = node.type().find("worldUpVectorX");
    static const AttrIndex kMatrix = node.type().find("worldUpMatrix");
    const double number = evaluation.number(node, kType);
    const auto type =
        number >= 0.0 && number <= 4.0 ? static_cast<WorldUp>(static_cast<int>(number)) : WorldUp::kVector;
    switch (type) {
    case WorldUp::kScene:
        return {0, 1, 0};
    case WorldUp::kObject:
        return originOf(evaluation.matrix(node, address(kMatrix))) - place;
    case WorldUp::kObjectRotation:
        return turned(readTriple(evaluation, node, kVector), evaluation.matrix(node, address(kMatrix)));
    case WorldUp::kVector:
        return readTriple(evaluation, node, kVector);
    case WorldUp::kNone:
        break;
    }
    return V3d(0.0);
}

/// The rotation in the world that points a node at `place` to a direction.
M33d aimedRotation(Evaluation& evaluation, Node& node, const V3d& place, const V3d& direction) {
    static const AttrIndex kAim = node.type().find("aimVectorX");
    static const AttrIndex kUp = node.type().find("upVectorX");
    const V3d aim = readTriple(evaluation, node, kAim);
    M33d own;
    M33d wanted;
    if (makeFrame(aim, readTriple(evaluation, node, kUp), own) &&
        makeFrame(direction, worldUp(evaluation, node, place), wanted)) {
        return own.transposed() * wanted;
    }
    return shortestTurn(aim, direction);
}

} // namespace

void computePointConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    static const ConstraintAttributes kAttributes(node.type());
    ConstraintTargets targets(evaluation, node, kAttributes);
    if (!targets.isFollowing()) {
        targets.putRest(kAttributes.constraintTranslate, kAttributes.restTranslate);
        return;
    }
    putTriple(evaluation, node, kAttributes.constraintTranslate,
              targets.translationTo(targets.position()) + readTriple(evaluation, node, kAttributes.offset));
}

void computePoleVectorConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    static const ConstraintAttributes kAttributes(node.type());
    static const AttrIndex kPivotSpace = node.type().find("pivotSpace");
    ConstraintTargets targets(evaluation, node, kAttributes);
    if (!targets.isFollowing()) {
        targets.putRest(kAttributes.constraintTranslate, kAttributes.restTranslate);
        return;
    }
    const Matrix44 space = evaluation.matrix(node, address(kPivotSpace));
    const V3d start = turned(targets.pivotOfHeld(), space) + originOf(space);
    putTriple(evaluation, node, kAttributes.constraintTranslate,
              turned(targets.position() - start, targets.parentInverse()) +
                  readTriple(evaluation, node, kAttributes.offset));
}

void computeOrientConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    static const ConstraintAttributes kAttributes(node.type());
    ConstraintTargets targets(evaluation, node, kAttributes);
    if (!targets.isFollowing()) {
        targets.putRest(kAttributes.constraintRotate, kAttributes.restRotate);
        return;
    }
    const M33d offset = rotationMatrix(readTriple(evaluation, node, kAttributes.offset), RotateOrder::kXYZ);
    putTriple(evaluation, node, kAttributes.constraintRotate, targets.anglesTo(offset * targets.rotation()));
}

void computeParentConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    static const ConstraintAttributes kAttributes(node.type());
    ConstraintTargets targets(evaluation, node, kAttributes);
    if (!targets.isFollowing()) {
        targets.putRest(kAttributes.constraintTranslate, kAttributes.restTranslate);
        targets.putRest(kAttributes.constraintRotate, kAttributes.restRotate);
        return;
    }
    putTriple(evaluation, node, kAttributes.constraintTranslate, targets.translationTo(targets.position()));
    putTriple(evaluation, node, kAttributes.constraintRotate, targets.anglesTo(targets.rotation()));
}

void computeScaleConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    static const ConstraintAttributes kAttributes(node.type());
    ConstraintTargets targets(evaluation, node, kAttributes);
    if (!targets.isFollowing()) {
        targets.putRest(kAttributes.constraintScale, kAttributes.restScale);
        return;
    }
    V3d scale = targets.scale() * readTriple(evaluation, node, kAttributes.offset);
    const V3d parent = piecesOf(targets.parentInverse().gjInverse()).scale;
    for (int axis = 0; axis < 3; ++axis) {
        scale[axis] /= parent[axis] == 0.0 ? 1.0 : parent[axis];
    }
    putTriple(evaluation, node, kAttributes.constraintScale, scale);
}

void computeAimConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    static const ConstraintAttributes kAttributes(node.type());
    ConstraintTargets targets(evaluation, node, kAttributes);
    V3d place(0.0);
    V3d direction(0.0);
    if (targets.isFollowing()) {
        const Matrix44 parent = targets.parentInverse().gjInverse();
        const V3d held = readTriple(evaluation, node, kAttributes.constraintTranslate) + targets.pivotOfHeld();
        place = turned(held, parent) + originOf(parent);
        direction = targets.position() - place;
    }
    if (!isDirection(direction)) {
        targets.putRest(kAttributes.constraintRotate, kAttributes.restRotate);
        return;
    }
    const M33d offset = rotationMatrix(readTriple(evaluation, node, kAttributes.offset), RotateOrder::kXYZ);
    putTriple(evaluation, node, kAttributes.constraintRotate,
              targets.anglesTo(offset * aimedRotation(evaluation, node, place, direction)));
}

void fillConstraintAffects(NodeType& type) {
    fillOwnAffects(type, "enableRestPosition");
}

} // namespace host
