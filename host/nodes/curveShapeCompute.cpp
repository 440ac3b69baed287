#include "host/nodes/curveShapeCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/blendRotation.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/matrixPieces.h"
#include "host/nodes/meshRows.h"
#include "host/nodes/tripleValues.h"

#include "host/geometry/MeshData.h"
#include "host/geometry/NurbsCurve.h"

#include "host/graph/Evaluation.h"

#include <algorithm>
#include <memory>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

struct CurveAttributes {
    explicit CurveAttributes(const NodeType& type)
        : create(type.find("create")), stored(type.find("cached")), controlPoints(type.find("controlPoints")),
          local(type.find("local")), worldSpace(type.find("worldSpace")), worldMatrix(type.find("worldMatrix")) {}

    AttrIndex create, stored, controlPoints, local, worldSpace, worldMatrix;
};

const CurveAttributes& curveAttributes(const Node& node) {
    static const CurveAttributes kAttributes(node.type());
    return kAttributes;
}

DataPtr localCurve(Evaluation& evaluation, Node& node) {
    const CurveAttributes& attr = curveAttributes(node);
    std::shared_ptr<const NurbsCurve> curve = nurbsCurveOf(evaluation.data(node, address(attr.create)));
    curve = curve != nullptr ? curve : nurbsCurveOf(evaluation.data(node, address(attr.stored)));
    const Plug controlPoints{&node, address(attr.controlPoints)};
    if (curve == nullptr || !hasVectors(evaluation.graph(), controlPoints)) {
        return curve;
    }
    Points offsets(curve->points.size(), Imath::V3f(0.0F));
    addVectors(evaluation.graph(), controlPoints, offsets);
    auto moved = std::make_shared<NurbsCurve>(*curve);
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        moved->points[i] += V3d(offsets[i]);
    }
    return moved;
}

struct PathAttributes {
    explicit PathAttributes(const NodeType& type)
        : geometryPath(type.find("geometryPath")), uValue(type.find("uValue")), byFraction(type.find("fractionMode")),
          follow(type.find("follow")), frontAxis(type.find("frontAxis")), upAxis(type.find("upAxis")),
          inverseFront(type.find("inverseFront")), inverseUp(type.find("inverseUp")), bank(type.find("bank")),
          worldUpType(type.find("worldUpType")), worldUpVector(type.find("worldUpVectorX")),
          worldUpMatrix(type.find("worldUpMatrix")), frontTwist(type.find("frontTwist")), upTwist(type.find("upTwist")),
          sideTwist(type.find("sideTwist")), rotateOrder(type.find("rotateOrder")),
          coordinates(type.find("xCoordinate")), rotate(type.find("rotateX")), orientMatrix(type.find("orientMatrix")) {
    }

    AttrIndex geometryPath, uValue, byFraction, follow, frontAxis, upAxis, inverseFront, inverseUp, bank, worldUpType,
        worldUpVector, worldUpMatrix, frontTwist, upTwist, sideTwist, rotateOrder;
    AttrIndex coordinates, rotate; // of three the first; the others follow
    AttrIndex orientMatrix;
};

const PathAttributes& pathAttributes(const Node& node) {
    static const PathAttributes kAttributes(node.type());
    return kAttributes;
}

enum class UpType : int { kScene, kObject, kObjectRotation, kVector, kNormal };

V3d upDirection(Evaluation& evaluation, Node& node, const V3d& place) {
    const PathAttributes& attr = pathAttributes(node);
    const V3d vector = readTriple(evaluation, node, attr.worldUpVector);
    const Matrix44 object = evaluation.matrix(node, address(attr.worldUpMatrix));
    V3d turned;
    switch (static_cast<UpType>(static_cast<int>(evaluation.number(node, attr.worldUpType)))) {
    case UpType::kObject:
        return originOf(object) - place;
    case UpType::kObjectRotation:
        object.multDirMatrix(vector, turned);
        return turned;
    case UpType::kVector:
        return vector;
    default:
        return {0.0, 1.0, 0.0};
    }
}

int axisOf(double number, int otherwise) {
    return number >= 0.0 && number <= 2.0 ? static_cast<int>(number) : otherwise;
}

/// Any direction across the given one.
V3d across(const V3d& direction) {
    const V3d axis = std::abs(direction.x) < 0.5 ? V3d(1, 0, 0) : V3d(0, 1, 0);
    return direction.cross(axis).normalized();
}

/// Rows are where the axes go.
M33d orientation(Evaluation& evaluation, Node& node, const V3d& tangent, const V3d& up) {
    const PathAttributes& attr = pathAttributes(node);
    const int front = axisOf(evaluation.number(node, attr.frontAxis), 1);
    int upward = axisOf(evaluation.number(node, attr.upAxis), 2);
    upward = upward == front ? (front + 1) % 3 : upward;
    const int side = 3 - front - upward;
    V3d along = tangent.normalized();
    V3d above = (up - along * up.dot(along)).normalized();
    above = above == V3d(0.0) ? across(along) : above;
    along = evaluation.number(node, attr.inverseFront) != 0.0 ? -along : along;
    above = evaluation.number(node, attr.inverseUp) != 0.0 ? -above : above;
    const V3d aside = (front + 1) % 3 == upward ? along.cross(above) : above.cross(along);
    const V3d* axes[3] = {};
    axes[front] = &along;
    axes[upward] = &above;
    axes[side] = &aside;
    M33d rotation;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            rotation[row][column] = (*axes[row])[column];
        }
    }
    return rotation;
}

void warnOfTurns(Evaluation& evaluation, Node& node) {
    const PathAttributes& attr = pathAttributes(node);
    const auto isSet = [&](AttrIndex attribute) { return evaluation.number(node, attribute) != 0.0; };
    if (isSet(attr.bank) || isSet(attr.frontTwist) || isSet(attr.upTwist) || isSet(attr.sideTwist)) {
        evaluation.warn(node.name() + ": banking and twists are not evaluated; what follows the path stays upright");
    }
    if (evaluation.number(node, attr.worldUpType) == static_cast<double>(UpType::kNormal)) {
        evaluation.warn(node.name() + ": the curve's normal as up direction is not evaluated; y is up");
    }
}

} // namespace

void computeNurbsCurve(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const CurveAttributes& attr = curveAttributes(node);
    if (output.attr == attr.local) {
        evaluation.putData(node, output, localCurve(evaluation, node));
    } else if (output.attr == attr.worldSpace) {
        const auto curve = nurbsCurveOf(evaluation.data(node, address(attr.local)));
        const Matrix44 world = evaluation.matrix(node, address(attr.worldMatrix).element(output.index[0]));
        evaluation.putData(node, output,
                           curve != nullptr ? std::make_shared<NurbsCurve>(curve->transformed(world)) : nullptr);
    } else {
        computeDagMatrices(evaluation, node, output);
    }
}

void fillNurbsCurveAffects(NodeType& type) {
    fillOwnAffects(type, "controlPoints");
}

void computeCurveInfo(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kCurve = node.type().find("inputCurve");
    const auto curve = nurbsCurveOf(evaluation.data(node, address(kCurve)));
    evaluation.putNumber(node, output, curve != nullptr ? curve->lengthTo(curve->lastParameter()) : 0.0);
}

void computeMotionPath(Evaluation& evaluation, Node& node, const PlugAddress&) {
    const PathAttributes& attr = pathAttributes(node);
    const auto curve = nurbsCurveOf(evaluation.data(node, address(attr.geometryPath)));
    if (curve == nullptr) {
        return;
    }
    const double value = evaluation.number(node, attr.uValue);
    const bool byFraction = evaluation.number(node, attr.byFraction) != 0.0;
    // Beyond its ends, a curve that is not open goes round.
    const double part =
        curve->form == CurveForm::kOpen || (value >= 0.0 && value <= 1.0) ? value : value - std::floor(value);
    const double parameter = byFraction ? curve->parameterAt(part) : value;
    const V3d place = curve->pointAt(parameter);
    putTriple(evaluation, node, attr.coordinates, place);
    M33d rotation;
    if (evaluation.number(node, attr.follow) != 0.0) {
        warnOfTurns(evaluation, node);
        rotation = orientation(evaluation, node, curve->tangentAt(parameter), upDirection(evaluation, node, place));
    }
    putTriple(evaluation, node, attr.rotate,
              rotationAngles(rotation, rotateOrderOf(evaluation.number(node, attr.rotateOrder))));
    evaluation.putMatrix(node, address(attr.orientMatrix), matrixOf(rotation));
}

} // namespace host
