#include "export/nodeTransforms.h"

#include "export/exportMessages.h"
#include "scene/Run.h"
#include "scene/decomposition.h"
#include "scene/nodeMatrix.h"
#include "scene/plugReading.h"

#include <maya/MEulerRotation.h>
#include <maya/MFnIkJoint.h>
#include <maya/MFnMatrixData.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace tvk {
namespace {

constexpr Vector3 kNoScale{1.0, 1.0, 1.0};

Vector3 toVector3(const MVector& v) {
    return {v.x, v.y, v.z};
}

Vector3 minus(const Vector3& a, const Vector3& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector3 times(double factor, const Vector3& a) {
    return {factor * a[0], factor * a[1], factor * a[2]};
}

// Where the parent's exported origin lies in the space that the host's translation counts in.
Vector3 parentOffset(const NodeRecord& node) {
    return node.scene.parent == nullptr ? Vector3{} : node.scene.parent->pivotOffset;
}

// The pivots of a transform, centimetres.
struct Pivots {
    MVector rotate, rotateTranslation, scale, scaleTranslation;
};

Pivots readPivots(const MFnTransform& transform) {
    return {MVector(transform.rotatePivot(MSpace::kTransform)), transform.rotatePivotTranslation(MSpace::kTransform),
            MVector(transform.scalePivot(MSpace::kTransform)), transform.scalePivotTranslation(MSpace::kTransform)};
}

// Rotate axis, then rotate in its order, then joint orient.
struct RotationParts {
    MEulerRotation rotate;
    MMatrix axis;   // identity unless set
    MMatrix orient; // identity unless a joint's
};

RotationParts readRotation(const MDagPath& path, const MFnTransform& transform) {
    RotationParts parts;
    transform.getRotation(parts.rotate);
    parts.axis = transform.rotateOrientation(MSpace::kTransform).asMatrix();
    MStatus status;
    const MFnIkJoint joint(path, &status);
    MEulerRotation orient;
    if (status && joint.getOrientation(orient)) {
        parts.orient = orient.asMatrix();
    }
    return parts;
}

MMatrix combined(const RotationParts& parts) {
    return parts.axis * parts.rotate.asMatrix() * parts.orient;
}

// XYZ angles in degrees. What the artist typed stays untouched where it means the same.
Vector3 exportedAngles(const RotationParts& parts) {
    const Vector3 typed = times(kDegreesPerRadian, {parts.rotate.x, parts.rotate.y, parts.rotate.z});
    const bool plain = parts.rotate.order == MEulerRotation::kXYZ && parts.axis == MMatrix::identity &&
                       parts.orient == MMatrix::identity;
    return plain ? typed : decompose(combined(parts), typed).parts.rotate;
}

// Translation of the exported origin, before the parent's offset: where the scale pivot of the static pose lands in the
// parent's space. The pivot may have moved since.
//   origin   in centimetres
Vector3 landedPivot(const MFnTransform& transform, const MVector& origin, const Vector3& scale,
                    const MMatrix& rotation) {
    const Pivots pivots = readPivots(transform);
    const MVector moved = origin - pivots.scale;
    const MVector scaled(moved.x * scale[0], moved.y * scale[1], moved.z * scale[2]);
    const MVector turned = (scaled + pivots.scale + pivots.scaleTranslation - pivots.rotate) * rotation;
    return toVector3(translationOf(transform, nullptr) + pivots.rotateTranslation + pivots.rotate + turned);
}

// In centimetres, as the static pose has it.
MVector pivotOf(const NodeRecord& node) {
    const Vector3 pivot = times(1.0 / run().options.magnify, node.pivotOffset);
    return {pivot[0], pivot[1], pivot[2]};
}

bool isIdentity(const MMatrix& matrix) {
    return matrix.isEquivalent(MMatrix::identity, 1e-10);
}

MMatrix matrixAttribute(const MObject& node, const char* name) {
    MObject data;
    if (!readAttribute(node, name, data)) {
        return MMatrix::identity;
    }
    MStatus status;
    const MFnMatrixData function(data, &status);
    return status ? function.matrix() : MMatrix::identity;
}

// A node whose place is not simply its channels below its parent: it ignores its parents, or is moved by a matrix.
bool standsApart(const MObject& node) {
    return !attributeOr(node, "inheritsTransform", true) || !isIdentity(matrixAttribute(node, "offsetParentMatrix"));
}

MDagPath parentPath(const MDagPath& path) {
    MDagPath parent = path;
    parent.pop();
    return parent;
}

MMatrix worldMatrix(const MDagPath& path, double magnify) {
    return withScaledTranslation(path.length() == 0 ? MMatrix::identity : path.inclusiveMatrix(), magnify);
}

Vector3 parentScale(const NodeRecord& node) {
    return node.scene.parent == nullptr ? kNoScale : node.scene.parent->own.scale;
}

// A matrix between exported frames taken apart: what the parent's scale undoes is put back first.
Decomposition partsOf(MMatrix matrix, bool compensates, const Vector3& undoneScale, const Vector3& rotationHint) {
    if (compensates) {
        for (unsigned int r = 0; r < 3; ++r) {
            for (unsigned int c = 0; c < 3; ++c) {
                matrix(r, c) *= undoneScale[c] == 0.0 ? 1.0 : undoneScale[c];
            }
        }
    }
    return decompose(matrix, rotationHint);
}

// The parts of a node that stands apart, from where the host has it in the world.
Decomposition partsFromWorlds(const NodeRecord& node, const Vector3& rotationHint) {
    const double magnify = run().options.magnify;
    const MMatrix parentWorld = worldMatrix(parentPath(node.path), magnify);
    const MMatrix relative = translationMatrix(node.pivotOffset) * worldMatrix(node.path, magnify) *
                             parentWorld.inverse() * translationMatrix(times(-1.0, parentOffset(node)));
    return partsOf(relative, node.scaleCompensate, parentScale(node), rotationHint);
}

// Shear as the artist set it, or, of a node that stands apart, as its place in the world holds it.
bool hasShear(const NodeRecord& node, const MFnTransform& transform) {
    double read[3] = {0.0, 0.0, 0.0};
    transform.getShear(read);
    const Vector3 shear = standsApart(node.path.node()) ? partsFromWorlds(node, node.own.rotate).shear
                                                        : Vector3{read[0], read[1], read[2]};
    return std::any_of(shear.begin(), shear.end(),
                       [](double part) { return !(std::abs(part) <= kLargestIgnoredShear); });
}

void readPivotOffset(NodeRecord& node, const MFnTransform& transform) {
    node.pivotOffset = node.isJoint
                           ? Vector3{}
                           : times(run().options.magnify, toVector3(MVector(transform.scalePivot(MSpace::kTransform))));
}

void readScaleCompensation(NodeRecord& node) {
    node.scaleCompensate = node.isJoint && node.scene.parent != nullptr && node.scene.parent->isJoint &&
                           attributeOr(node.path.node(), "segmentScaleCompensate", true);
}

const NodeRecord& topRecordOf(const NodeRecord& node) {
    const NodeRecord* top = &node;
    while (top->scene.parent != nullptr && top->scene.parent->hasDagNode) {
        top = top->scene.parent;
    }
    return *top;
}

bool almostEqual(const MMatrix& a, const MMatrix& b) {
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            if (std::abs(a(r, c) - b(r, c)) > 1e-6 * std::max(1.0, std::abs(b(r, c)))) {
                return false;
            }
        }
    }
    return true;
}

// Replaces the set by that of the pose in which the node was bound. Where that is the pose it has now, the channels as
// read are kept, so that no angles flip.
void takeBindPose(NodeRecord& node, const MMatrix& bound, const MMatrix& outerWorld) {
    const MMatrix parentWorld = node.scene.parent == nullptr ? MMatrix::identity : node.scene.parent->exportedWorld;
    const MMatrix boundWorld = translationMatrix(node.pivotOffset) *
                               withScaledTranslation(bound, run().options.magnify) * outerWorld.inverse();
    const MMatrix boundLocal = boundWorld * parentWorld.inverse();
    if (!almostEqual(boundLocal, localMatrix(node.own, node.scaleCompensate, parentScale(node)))) {
        node.own = partsOf(boundLocal, node.scaleCompensate, parentScale(node), node.own.rotate).parts;
    }
}

void normaliseAngles(TransformSet& set) {
    std::transform(set.rotate.begin(), set.rotate.end(), set.rotate.begin(), normalisedAngle);
}

// Local matrix from the set as read, world matrix from the set as a reader of the file will find it.
void buildMatrices(NodeRecord& node) {
    node.local = localMatrix(node.own, node.scaleCompensate, parentScale(node));
    const Vector3 writtenParentScale =
        node.scene.parent == nullptr ? kNoScale : quantised(node.scene.parent->own).scale;
    const MMatrix written = localMatrix(quantised(node.own), node.scaleCompensate, writtenParentScale);
    node.exportedWorld = node.scene.parent == nullptr ? written : written * node.scene.parent->exportedWorld;
}

// United nodes keep their places in the world, whatever is above a selection.
TransformSet unitedSet(const NodeRecord& node) {
    const MMatrix world = translationMatrix(node.pivotOffset) * worldMatrix(node.path, run().options.magnify);
    return decompose(world, node.own.rotate).parts;
}

MStatus readNode(NodeRecord& node, const BindPoseLookup& bindPose) {
    MStatus status;
    const MFnTransform transform(node.path, &status);
    if (!status) {
        say(kInvalidNode, node.name);
        return status;
    }
    readPivotOffset(node, transform);
    readScaleCompensation(node);
    status = readOwnSet(node, node.own);
    if (!status) {
        return status;
    }
    if (hasShear(node, transform)) {
        node.shearTold = true;
        say(kShear, node.name);
    }
    if (!node.bindPoseExempt && run().options.atBindPose()) {
        if (const std::optional<MMatrix> bound = bindPose(node)) {
            const MDagPath above = parentPath(topRecordOf(node).path);
            takeBindPose(node, *bound, worldMatrix(above, run().options.magnify));
        } else {
            say(kBindPoseNotFound, node.name);
        }
    }
    normaliseAngles(node.own);
    if (run().options.unite) {
        node.united = unitedSet(node);
        normaliseAngles(node.united);
    }
    return MS::kSuccess;
}

// Tells of a selection that hangs below something moved: its nodes are written in that parent's space, unless they are
// united.
void informOfOuterTransforms() {
    if (run().options.unite) {
        return;
    }
    for (const auto& node : run().scene.nodes) {
        if (!node->hasDagNode || (node->scene.parent != nullptr && node->scene.parent->hasDagNode)) {
            continue;
        }
        const MDagPath above = parentPath(node->path);
        if (above.length() > 0 && !isIdentity(above.inclusiveMatrix())) {
            showInformation("Exported in the space of its parent, which is moved and not exported: " + node->name);
            return;
        }
    }
}

} // namespace

MStatus readOwnSet(const NodeRecord& node, TransformSet& set) {
    MStatus status;
    const MFnTransform transform(node.path, &status);
    if (!status) {
        return status;
    }
    const double magnify = run().options.magnify;
    const RotationParts rotation = readRotation(node.path, transform);
    set.rotate = exportedAngles(rotation);
    if (standsApart(node.path.node())) {
        set = partsFromWorlds(node, set.rotate).parts;
        return MS::kSuccess;
    }
    transform.getScale(set.scale.data());
    const Vector3 origin = node.isJoint ? toVector3(translationOf(transform, nullptr))
                                        : landedPivot(transform, pivotOf(node), set.scale, combined(rotation));
    set.translate = minus(times(magnify, origin), parentOffset(node));
    return MS::kSuccess;
}

MStatus readSampledSet(const NodeRecord& node, TransformSet& set) {
    if (!run().options.unite) {
        return readOwnSet(node, set);
    }
    set = unitedSet(node);
    return MS::kSuccess;
}

MStatus readNodeTransforms(const BindPoseLookup& bindPose) {
    for (const auto& node : run().scene.nodes) {
        if (node->hasDagNode) {
            const MStatus status = readNode(*node, bindPose);
            if (!status) {
                return status;
            }
        }
        buildMatrices(*node);
        node->written = run().options.unite ? node->united : node->own;
        node->writesCompensation = node->scaleCompensate && !run().options.unite;
    }
    informOfOuterTransforms();
    return MS::kSuccess;
}

} // namespace tvk
