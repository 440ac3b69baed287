#include "host/nodes/ikCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/blendRotation.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/ikChain.h"
#include "host/nodes/matrixPieces.h"
#include "host/nodes/tripleValues.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

constexpr double kHalfTurn = 3.14159265358979323846;

/// How far from its goal, as a part of the chain's length, the real host lets the end of a chain be. A pose that the
/// joints hold and that is so near was solved by it, so it is not solved again; that it is the same pose shows in
/// angles, of which a chain that is nearly straight needs much to move its end little.
constexpr double kGoalTolerance = 1e-6;
constexpr double kAngleTolerance = 1e-4;

struct HandleAttributes {
    explicit HandleAttributes(const NodeType& type)
        : startJoint(type.find("startJoint")), endEffector(type.find("endEffector")), solver(type.find("ikSolver")),
          snapEnable(type.find("snapEnable")), twist(type.find("twist")), ikBlend(type.find("ikBlend")),
          poleVector(type.find("poleVectorX")), chainInput(type.find("chainInput")),
          solvedRotate(type.find("solvedRotate")), solvedRotateX(type.find("solvedRotateX")),
          worldMatrix(type.find("worldMatrix")), parentMatrix(type.find("parentMatrix")) {}

    AttrIndex startJoint, endEffector, solver, snapEnable, twist, ikBlend, poleVector, chainInput, solvedRotate,
        solvedRotateX, worldMatrix, parentMatrix;
};

const HandleAttributes& handleAttributes(const Node& handle) {
    static const HandleAttributes kAttributes(handle.type());
    return kAttributes;
}

struct JointAttributes {
    explicit JointAttributes(const NodeType& type)
        : rotate(type.find("rotateX")), rotateOrder(type.find("rotateOrder")), rotateAxis(type.find("rotateAxisX")),
          jointOrient(type.find("jointOrientX")), preferredAngle(type.find("preferredAngleX")),
          offsetParentMatrix(type.find("offsetParentMatrix")), parentMatrix(type.find("parentMatrix")) {}

    AttrIndex rotate, rotateOrder, rotateAxis, jointOrient, preferredAngle, offsetParentMatrix, parentMatrix;
};

const JointAttributes& jointAttributes(const Node& joint) {
    static const JointAttributes kAttributes(joint.type());
    return kAttributes;
}

/// Joints from the start of a handle's chain to the parent of its end effector; empty when these do not belong
/// together.
struct HandledChain {
    std::vector<Node*> joints;
    Node* effector = nullptr;
};

HandledChain findChain(const Graph& graph, Node& handle) {
    const HandleAttributes& attr = handleAttributes(handle);
    Node* start = graph.sourceOf({&handle, address(attr.startJoint)}).node;
    HandledChain chain;
    chain.effector = graph.sourceOf({&handle, address(attr.endEffector)}).node;
    if (start == nullptr || chain.effector == nullptr || !chain.effector->type().isKindOf("ikEffector")) {
        return {};
    }
    for (Node* at = chain.effector; at != start;) {
        if (at->parents().empty() || !at->parents().front()->type().isKindOf("joint")) {
            return {};
        }
        at = at->parents().front();
        chain.joints.push_back(at);
    }
    std::reverse(chain.joints.begin(), chain.joints.end());
    return chain;
}

V3d anglesBeneath(Graph& graph, Node& joint) {
    const AttrIndex rotate = jointAttributes(joint).rotate;
    V3d angles;
    for (int axis = 0; axis < 3; ++axis) {
        angles[axis] = graph.numberBeneath({&joint, address(rotate + axis)});
    }
    return angles;
}

/// Of the two triples of angles within a half turn that make a rotation, the one that is nearer to another.
V3d nearestAngles(const M33d& rotation, RotateOrder order, const V3d& reference) {
    static constexpr int kMiddle[] = {1, 2, 0, 2, 0, 1};
    const auto bound = [](double angle) { return std::remainder(angle, 2.0 * kHalfTurn); };
    const V3d first = rotationAngles(rotation, order);
    V3d second;
    double distance[2] = {};
    for (int axis = 0; axis < 3; ++axis) {
        const bool isMiddle = axis == kMiddle[static_cast<int>(order)];
        second[axis] = bound(isMiddle ? kHalfTurn - first[axis] : first[axis] + kHalfTurn);
        distance[0] += std::abs(bound(first[axis] - reference[axis]));
        distance[1] += std::abs(bound(second[axis] - reference[axis]));
    }
    return distance[0] <= distance[1] ? first : second;
}

class HandleSolver {
public:
    HandleSolver(Evaluation& evaluation, Node& handle, HandledChain chain)
        : evaluation_(evaluation), handle_(handle), attr_(handleAttributes(handle)), chain_(std::move(chain)) {}

    /// Rotate angles of the joints.
    std::vector<V3d> solve() {
        const Matrix44 parent = startParent();
        const std::vector<M33d> rotations = solveChain(posed(atRest(), parent), goal(), side());
        std::vector<V3d> angles;
        for (std::size_t i = 0; i < rotations.size(); ++i) {
            angles.push_back(anglesOf(*chain_.joints[i], rotations[i], i > 0 ? rotations[i - 1] : rotationOf(parent)));
        }
        return isHeld(angles, parent) ? held() : angles;
    }

private:
    std::vector<V3d> held() {
        std::vector<V3d> angles;
        for (Node* joint : chain_.joints) {
            angles.push_back(anglesBeneath(evaluation_.graph(), *joint));
        }
        return angles;
    }

    /// Whether the joints hold a solution that differs from this one by no more than the host's own inexactness.
    bool isHeld(const std::vector<V3d>& solved, const Matrix44& parent) {
        const std::vector<V3d> angles = held();
        for (std::size_t i = 0; i < angles.size(); ++i) {
            const V3d difference = solved[i] - angles[i];
            for (int axis = 0; axis < 3; ++axis) {
                if (!(std::abs(difference[axis]) <= kAngleTolerance)) {
                    return false;
                }
            }
        }
        const IkChain chain = posed(angles, parent);
        double length = 0.0;
        for (std::size_t i = 0; i < chain.joints.size(); ++i) {
            const V3d& next = i + 1 < chain.joints.size() ? chain.joints[i + 1].place : chain.end;
            length += (next - chain.joints[i].place).length();
        }
        return (chain.end - goal()).length() <= kGoalTolerance * length;
    }

    Matrix44 startParent() {
        Node& start = *chain_.joints.front();
        return evaluation_.matrix(start, address(jointAttributes(start).parentMatrix).element(0));
    }

    std::vector<V3d> atRest() {
        std::vector<V3d> angles;
        for (Node* joint : chain_.joints) {
            angles.push_back(readTriple(evaluation_, *joint, jointAttributes(*joint).preferredAngle));
        }
        return angles;
    }

    /// The chain as it stands with these rotate angles.
    IkChain posed(const std::vector<V3d>& angles, Matrix44 world) {
        IkChain chain;
        for (std::size_t i = 0; i < angles.size(); ++i) {
            Node& joint = *chain_.joints[i];
            world = transformMatrixWith(evaluation_, joint, angles[i]) *
                    evaluation_.matrix(joint, address(jointAttributes(joint).offsetParentMatrix)) * world;
            chain.joints.push_back({originOf(world), rotationOf(world)});
        }
        const AttrIndex matrix = chain_.effector->type().find("matrix");
        chain.end = originOf(evaluation_.matrix(*chain_.effector, address(matrix)) * world);
        return chain;
    }

    Matrix44 world() { return evaluation_.matrix(handle_, address(attr_.worldMatrix).element(0)); }
    V3d goal() { return originOf(world()); }

    IkSide side() {
        IkSide side;
        side.twist = evaluation_.number(handle_, attr_.twist);
        const Node* solver = evaluation_.graph().sourceOf({&handle_, address(attr_.solver)}).node;
        if (solver->type().isKindOf("ikSCsolver")) {
            side.matchesRotation = true;
            side.rotation = rotationOf(world());
            side.twist = 0.0;
        } else {
            const Matrix44 parent = evaluation_.matrix(handle_, address(attr_.parentMatrix).element(0));
            parent.multDirMatrix(readTriple(evaluation_, handle_, attr_.poleVector), side.pole);
        }
        return side;
    }

    V3d anglesOf(Node& joint, const M33d& rotation, const M33d& parent) {
        const JointAttributes& attr = jointAttributes(joint);
        const M33d offset = rotationOf(evaluation_.matrix(joint, address(attr.offsetParentMatrix)));
        const M33d orient = rotationMatrix(readTriple(evaluation_, joint, attr.jointOrient), RotateOrder::kXYZ);
        const M33d axis = rotationMatrix(readTriple(evaluation_, joint, attr.rotateAxis), RotateOrder::kXYZ);
        const M33d local = rotation * (offset * parent).transposed();
        return nearestAngles(axis.transposed() * local * orient.transposed(),
                             rotateOrderOf(evaluation_.number(joint, attr.rotateOrder)),
                             anglesBeneath(evaluation_.graph(), joint));
    }

    Evaluation& evaluation_;
    Node& handle_;
    const HandleAttributes& attr_;
    HandledChain chain_;
};

bool isFinite(const V3d& angles) {
    return std::isfinite(angles.x) && std::isfinite(angles.y) && std::isfinite(angles.z);
}

void putAngles(Evaluation& evaluation, Node& handle, std::size_t joint, const V3d& angles) {
    const AttrIndex first = handleAttributes(handle).solvedRotateX;
    for (int axis = 0; axis < 3; ++axis) {
        evaluation.putNumber(handle, address(first + axis).element(static_cast<std::int32_t>(joint)), angles[axis]);
    }
}

void solveHandle(Evaluation& evaluation, Node& handle) {
    const HandleAttributes& attr = handleAttributes(handle);
    HandledChain chain = findChain(evaluation.graph(), handle);
    const double blend = evaluation.number(handle, attr.ikBlend);
    const bool isOn = hasKnownSolver(handle) && blend != 0.0 && evaluation.number(handle, attr.snapEnable) != 0.0 &&
                      !chain.joints.empty();
    std::vector<V3d> solved;
    if (isOn) {
        solved = HandleSolver(evaluation, handle, chain).solve();
    }
    for (std::size_t i = 0; i < chain.joints.size(); ++i) {
        Node& joint = *chain.joints[i];
        V3d angles = anglesBeneath(evaluation.graph(), joint);
        if (isOn && isFinite(solved[i])) {
            const RotateOrder order = rotateOrderOf(evaluation.number(joint, jointAttributes(joint).rotateOrder));
            angles = blend == 1.0 ? solved[i] : slerpRotation(angles, solved[i], blend, order);
        }
        putAngles(evaluation, handle, i, angles);
    }
}

void tieChain(Graph& graph, Node& handle) {
    const HandleAttributes& attr = handleAttributes(handle);
    const HandledChain chain = findChain(graph, handle);
    std::int32_t input = 0;
    const auto tieTo = [&](Node& node, const PlugAddress& at) {
        graph.tie({&node, at}, {&handle, address(attr.chainInput).element(input++)});
    };
    if (chain.joints.empty()) {
        return;
    }
    Node& start = *chain.joints.front();
    tieTo(start, address(jointAttributes(start).parentMatrix).element(0));
    tieTo(*chain.effector, address(chain.effector->type().find("matrix")));
    tieTo(handle, address(attr.worldMatrix).element(0));
    tieTo(handle, address(attr.parentMatrix).element(0));
    for (std::size_t i = 0; i < chain.joints.size(); ++i) {
        Node& joint = *chain.joints[i];
        for (const char* name : {"translate", "rotate", "rotateOrder", "scale", "shear", "rotateAxis", "jointOrient",
                                 "inverseScale", "segmentScaleCompensate", "preferredAngle", "offsetParentMatrix"}) {
            tieTo(joint, address(joint.type().find(name)));
        }
        graph.overrideValue({&handle, address(attr.solvedRotate).element(static_cast<std::int32_t>(i))},
                            {&joint, address(joint.type().find("rotate"))});
    }
}

} // namespace

void computeIkHandle(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (output.attr < handleAttributes(node).startJoint) {
        computeDagMatrices(evaluation, node, output);
    } else {
        solveHandle(evaluation, node);
    }
}

void fillIkHandleAffects(NodeType& type) {
    fillOwnAffects(type, "startJoint");
}

bool hasKnownSolver(const Node& handle) {
    const auto found = handle.incoming().find(address(handleAttributes(handle).solver));
    if (found == handle.incoming().end()) {
        return false;
    }
    const NodeType& solver = found->second.node->type();
    return solver.isKindOf("ikRPsolver") || solver.isKindOf("ikSCsolver");
}

void tieIkChains(Graph& graph) {
    for (Node* node : graph.nodes()) {
        if (node->type().isKindOf("ikHandle")) {
            tieChain(graph, *node);
        }
    }
}

} // namespace host
