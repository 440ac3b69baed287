#include "host/scene/transformFit.h"

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrixAlgo.h>

#include <cmath>

namespace host {

namespace {

using Imath::V3d;
using Order = Imath::Eulerd::Order;

// In the order of RotateOrder.
constexpr Order kOrders[] = {Imath::Eulerd::XYZ, Imath::Eulerd::YZX, Imath::Eulerd::ZXY,
                             Imath::Eulerd::XZY, Imath::Eulerd::YXZ, Imath::Eulerd::ZYX};

Plug plugNamed(Graph& graph, Node& node, const char* name) {
    return {&node, graph.findPlug(node, name)};
}

void setVector(Graph& graph, Node& node, const char* name, const V3d& vector) {
    const Plug plug = plugNamed(graph, node, name);
    if (!plug || node.attribute(plug.at.attr).children.size() != 3) {
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        const AttrIndex child = node.attribute(plug.at.attr).children[static_cast<std::size_t>(axis)];
        graph.setNumber({&node, PlugAddress{child, 0, {}}}, vector[axis]);
    }
}

Matrix44 matrixOf(Graph& graph, Node& node, const char* name) {
    const Plug plug = plugNamed(graph, node, name);
    return plug ? graph.matrix(plug) : Matrix44();
}

bool isRegular(const Matrix44& matrix) {
    constexpr double kFlattest = 1e-12;
    return std::abs(matrix.determinant()) > kFlattest;
}

// What a joint has behind its rotation: its orient, and the inverse of the parent's scale where it compensates for
// that.
Matrix44 behindRotation(Graph& graph, Node& node) {
    const V3d orient = vectorOf(graph, node, "jointOrient", 0.0);
    Matrix44 matrix(rotationMatrix(orient, RotateOrder::kXYZ), V3d(0.0));
    if (numberOf(graph, node, "segmentScaleCompensate", 0.0) != 0.0) {
        const V3d scale = vectorOf(graph, node, "inverseScale", 1.0);
        const auto inverse = [](double factor) { return factor == 0.0 ? 1.0 : 1.0 / factor; };
        matrix *= Matrix44().setScale(V3d(inverse(scale.x), inverse(scale.y), inverse(scale.z)));
    }
    return matrix;
}

void fitRotation(Graph& graph, Node& node, const Matrix44& rotation) {
    const V3d axis = vectorOf(graph, node, "rotateAxis", 0.0);
    const Matrix44 own = Matrix44(rotationMatrix(axis, RotateOrder::kXYZ), V3d(0.0)).inverse() * rotation;
    setVector(graph, node, "rotate", anglesOf(own, rotateOrderOf(numberOf(graph, node, "rotateOrder", 0.0))));
}

} // namespace

double numberOf(Graph& graph, Node& node, const char* name, double otherwise) {
    const Plug plug = plugNamed(graph, node, name);
    return plug ? graph.number(plug) : otherwise;
}

V3d vectorOf(Graph& graph, Node& node, const char* name, double otherwise) {
    const Plug plug = plugNamed(graph, node, name);
    if (!plug || node.attribute(plug.at.attr).children.size() != 3) {
        return V3d(otherwise);
    }
    V3d vector;
    for (int axis = 0; axis < 3; ++axis) {
        const AttrIndex child = node.attribute(plug.at.attr).children[static_cast<std::size_t>(axis)];
        vector[axis] = graph.number({&node, PlugAddress{child, 0, {}}});
    }
    return vector;
}

V3d anglesOf(const Matrix44& rotation, RotateOrder order) {
    Imath::Eulerd angles(kOrders[static_cast<std::size_t>(order)]);
    angles.extract(rotation);
    return angles.toXYZVector();
}

Matrix44 worldMatrixOf(Graph& graph, Node& node) {
    return matrixOf(graph, node, "worldMatrix[0]");
}

void moveToWorldMatrix(Graph& graph, Node& transform, const Matrix44& world) {
    const Matrix44 above =
        matrixOf(graph, transform, "offsetParentMatrix") * matrixOf(graph, transform, "parentMatrix[0]");
    if (!isRegular(above)) {
        return;
    }
    const Matrix44 local = world * above.inverse();
    Matrix44 linear = local;
    linear[3][0] = linear[3][1] = linear[3][2] = 0.0;
    linear *= behindRotation(graph, transform).inverse();
    V3d scale;
    V3d shear;
    if (isRegular(linear) && Imath::extractAndRemoveScalingAndShear(linear, scale, shear, false)) {
        setVector(graph, transform, "scale", scale);
        setVector(graph, transform, "shear", shear);
        fitRotation(graph, transform, linear);
    }
    // What the pivots add to the translation follows from the matrix as it is now.
    const V3d offset = local.translation() - matrixOf(graph, transform, "matrix").translation();
    setVector(graph, transform, "translate", vectorOf(graph, transform, "translate", 0.0) + offset);
}

} // namespace host
