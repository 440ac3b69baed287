#include "host/nodes/constraintCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/constraintTargets.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/matrixPieces.h"
#include "host/nodes/tripleValues.h"

#include <Imath/ImathQuat.h>

#include <initializer_list>
#include <utility>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

/// The outputs that a constraint has as any transform.
bool computeAsTransform(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kFirstOwn = node.type().find("enableRestPosition");
    if (output.attr >= kFirstOwn) {
        return false;
    }
    computeDagMatrices(evaluation, node, output);
    return true;
}

/// The outputs of a constraint: those of a transform, and those of its own.
///   held   pairs of an output and its rest value, which it has while there is nothing to follow
///   put    callable: const ConstraintTargets& -> bool; puts the outputs, false when the targets do not determine them
template <typename Put>
void follow(Evaluation& evaluation, Node& node, const PlugAddress& output, const ConstraintAttributes& attributes,
            std::initializer_list<std::pair<AttrIndex, AttrIndex>> held, const Put& put) {
    if (computeAsTransform(evaluation, node, output)) {
        return;
    }
    ConstraintTargets targets(evaluation, node, attributes);
    if (targets.isFollowing() && put(std::as_const(targets))) {
        return;
    }
    for (const auto& [value, rest] : held) {
        targets.putRest(value, rest);
    }
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
    static const ConstraintAttributes kAttributes(node.type());
    const ConstraintAttributes& attr = kAttributes;
    follow(evaluation, node, output, attr, {{attr.constraintTranslate, attr.restTranslate}},
           [&](const ConstraintTargets& targets) {
               putTriple(evaluation, node, attr.constraintTranslate,
                         targets.translationTo(targets.position()) + readTriple(evaluation, node, attr.offset));
               return true;
           });
}

void computePoleVectorConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const ConstraintAttributes kAttributes(node.type());
    static const AttrIndex kPivotSpace = node.type().find("pivotSpace");
    const ConstraintAttributes& attr = kAttributes;
    follow(evaluation, node, output, attr, {{attr.constraintTranslate, attr.restTranslate}},
           [&](const ConstraintTargets& targets) {
               const Matrix44 space = evaluation.matrix(node, address(kPivotSpace));
               const V3d start = turned(targets.pivotOfHeld(), space) + originOf(space);
               putTriple(evaluation, node, attr.constraintTranslate,
                         turned(targets.position() - start, targets.parentInverse()) +
                             readTriple(evaluation, node, attr.offset));
               return true;
           });
}

void computeOrientConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const ConstraintAttributes kAttributes(node.type());
    const ConstraintAttributes& attr = kAttributes;
    follow(evaluation, node, output, attr, {{attr.constraintRotate, attr.restRotate}},
           [&](const ConstraintTargets& targets) {
               const M33d offset = rotationMatrix(readTriple(evaluation, node, attr.offset), RotateOrder::kXYZ);
               putTriple(evaluation, node, attr.constraintRotate, targets.anglesTo(offset * targets.rotation()));
               return true;
           });
}

void computeParentConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const ConstraintAttributes kAttributes(node.type());
    const ConstraintAttributes& attr = kAttributes;
    follow(evaluation, node, output, attr,
           {{attr.constraintTranslate, attr.restTranslate}, {attr.constraintRotate, attr.restRotate}},
           [&](const ConstraintTargets& targets) {
               putTriple(evaluation, node, attr.constraintTranslate, targets.translationTo(targets.position()));
               putTriple(evaluation, node, attr.constraintRotate, targets.anglesTo(targets.rotation()));
               return true;
           });
}

void computeScaleConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const ConstraintAttributes kAttributes(node.type());
    const ConstraintAttributes& attr = kAttributes;
    follow(evaluation, node, output, attr, {{attr.constraintScale, attr.restScale}},
           [&](const ConstraintTargets& targets) {
               V3d scale = targets.scale() * readTriple(evaluation, node, attr.offset);
               const V3d parent = piecesOf(targets.parentInverse().gjInverse()).scale;
               for (int axis = 0; axis < 3; ++axis) {
                   scale[axis] /= parent[axis] == 0.0 ? 1.0 : parent[axis];
               }
               putTriple(evaluation, node, attr.constraintScale, scale);
               return true;
           });
}

void computeAimConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const ConstraintAttributes kAttributes(node.type());
    const ConstraintAttributes& attr = kAttributes;
    follow(evaluation, node, output, attr, {{attr.constraintRotate, attr.restRotate}},
           [&](const ConstraintTargets& targets) {
               const Matrix44 parent = targets.parentInverse().gjInverse();
               const V3d held = readTriple(evaluation, node, attr.constraintTranslate) + targets.pivotOfHeld();
               const V3d place = turned(held, parent) + originOf(parent);
               const V3d direction = targets.position() - place;
               if (!isDirection(direction)) {
                   return false;
               }
               const M33d offset = rotationMatrix(readTriple(evaluation, node, attr.offset), RotateOrder::kXYZ);
               putTriple(evaluation, node, attr.constraintRotate,
                         targets.anglesTo(offset * aimedRotation(evaluation, node, place, direction)));
               return true;
           });
}

void fillConstraintAffects(NodeType& type) {
    fillOwnAffects(type, "enableRestPosition");
}

} // namespace host
