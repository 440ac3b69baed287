#include "host/app/verify/checkNodes.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MFnTransform.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace host::app::verify {
namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;
constexpr double kStep = 1.0 / 4096;
constexpr double kRounding = 0.502 * kStep;
constexpr double kSinglePrecision = 1e-7; // what a number may lose before it is rounded
constexpr double kTurning = 2e-5;         // degrees that angles of several turns lose in single precision
constexpr double kShear = 1e-4;           // between unit axes
constexpr double kFlat = 1e-9;            // a scale that has no axis

double angleBetween(double a, double b) {
    return std::abs(std::remainder(a - b, 360.0));
}

// Turns about x, then y, then z, that make a matrix of row vectors: the solution that is nearest to other angles.
Imath::V3d turnsNear(const std::array<Imath::V3d, 3>& axes, const Imath::V3d& near) {
    const double y = std::asin(std::clamp(-axes[0][2], -1.0, 1.0)) * kDegrees;
    const double x = std::atan2(axes[1][2], axes[2][2]) * kDegrees;
    const double z = std::atan2(axes[0][1], axes[0][0]) * kDegrees;
    const Imath::V3d one(x, y, z);
    const Imath::V3d other(x + 180.0, 180.0 - y, z + 180.0);
    const auto distance = [&](const Imath::V3d& turns) {
        return angleBetween(turns.x, near.x) + angleBetween(turns.y, near.y) + angleBetween(turns.z, near.z);
    };
    return distance(one) <= distance(other) ? one : other;
}

struct Channels {
    Imath::V3d scale, translate;
    std::array<Imath::V3d, 3> axes; // unit rows
    double shear = 0.0;             // largest cosine between axes
    bool isFlat = false;
};

Channels channelsOf(const Imath::M44d& local, const Imath::V3d& parentScale, const Imath::V3d& signs) {
    Channels result;
    for (int r = 0; r < 3; ++r) {
        Imath::V3d row(local[r][0] * parentScale.x, local[r][1] * parentScale.y, local[r][2] * parentScale.z);
        result.scale[r] = row.length() * (signs[r] < 0.0 ? -1.0 : 1.0);
        result.isFlat = result.isFlat || row.length() < kFlat;
        result.axes.at(static_cast<std::size_t>(r)) = row.length() < kFlat ? row : row / result.scale[r];
        result.translate[r] = local[3][r];
    }
    for (std::size_t i = 0; i < 3; ++i) {
        result.shear = std::max(result.shear, std::abs(result.axes.at(i).dot(result.axes.at((i + 1) % 3))));
    }
    return result;
}

class ChannelCheck {
public:
    ChannelCheck(const ChannelTolerances& tolerances, const NodeParts& parts, const std::string& place,
                 const std::string& when, Verification& result)
        : tolerances_(tolerances), parts_(parts), place_(place), when_(when), result_(result) {}

    //   parentError   of the expected scale and, in radians, rotation, by what is known of the parent's scale
    void compare(const decode::ModelNode& node, const Channels& expected, double reach, double parentError) {
        for (int i = 0; i < 3; ++i) {
            check(parts_.translation, "translate", i, tolerances_.translate[i],
                  node.translate[i] - expected.translate[i], kSinglePrecision * reach);
        }
        if (expected.isFlat) {
            result_.note("scale and rotation of " + place_ + ", which has no size along an axis");
            return;
        }
        if (expected.shear > kShear) {
            result_.note("scale and rotation of " + place_ + ", which the scene shears");
            return;
        }
        const double slack = expected.shear + 1e-7 + parentError;
        for (int i = 0; i < 3; ++i) {
            check(parts_.scale, "scale", i, tolerances_.scale[i], node.scale[i] - expected.scale[i],
                  slack * std::abs(expected.scale[i]));
        }
        // Near a quarter turn about y the other two angles may be shared out in any way.
        const double upright = std::hypot(expected.axes[0][0], expected.axes[0][1]);
        if (upright < 0.02) {
            compareAxes(node, expected);
            return;
        }
        const Imath::V3d turns = turnsNear(expected.axes, node.rotate);
        for (int i = 0; i < 3; ++i) {
            check(parts_.rotation, "rotate", i, tolerances_.rotate[i], angleBetween(node.rotate[i], turns[i]),
                  slack * kDegrees / upright + kTurning);
        }
    }

private:
    void check(Part part, const char* word, int axis, double tolerance, double error, double slack) {
        if (tolerance >= 0.0) {
            result_.check(part, std::abs(error), tolerance + kRounding + slack,
                          [&] { return place_ + when_ + ": " + word + " " + "xyz"[axis]; });
        }
    }

    void compareAxes(const decode::ModelNode& node, const Channels& expected) {
        decode::ModelNode turned = node;
        turned.scale = Imath::V3d(1.0);
        turned.scaleCompensate = false;
        turned.parent = -1;
        std::vector<decode::ModelNode> alone{turned};
        decode::buildMatrices(alone);
        double error = 0.0;
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) {
                error =
                    std::max(error, std::abs(alone[0].local[r][c] - expected.axes.at(static_cast<std::size_t>(r))[c]));
            }
        }
        double allowed = 0.0;
        for (const double tolerance : tolerances_.rotate) {
            if (tolerance < 0.0) {
                return;
            }
            allowed += tolerance + 2.0 * kStep;
        }
        result_.check(parts_.rotation, error * kDegrees, allowed, place_ + when_ + ": rotation");
    }

    const ChannelTolerances& tolerances_;
    const NodeParts& parts_;
    const std::string& place_;
    const std::string& when_;
    Verification& result_;
};

// Its folded ancestors may themselves have been bound elsewhere than they stand.
bool isFolded(const decode::ModelNode& node, const SceneNode& sceneNode, const ExportedScene& scene) {
    const SceneNode* const parent = scene.nodes.of(node.parent);
    return parent != nullptr && sceneNode.path.length() > parent->path.length() + 1;
}

void allow(ChannelTolerances& tolerances, double error) {
    for (int i = 0; i < 3; ++i) {
        tolerances.scale[i] = tolerances.rotate[i] = tolerances.translate[i] = error;
    }
}

void checkTransform(const decode::ModelNode& node, const report::ExportedModel& model, const ExportedScene& scene,
                    Verification& result) {
    const SceneNode& sceneNode = *scene.nodes.of(node.index);
    const decode::ModelNode* const parent =
        node.parent < 0 ? nullptr : &model.file.nodes[static_cast<std::size_t>(node.parent)];
    const SceneNode* const sceneParent = node.parent < 0 ? nullptr : scene.nodes.of(node.parent);
    const std::optional<Imath::M44d> bound = scene.bindFrameOf(node.index);
    Imath::M44d base;
    if (scene.isUnited) {
        base = Imath::M44d();
    } else if (bound) {
        base = parent == nullptr ? Imath::M44d() : scene.written[static_cast<std::size_t>(parent->index)].world;
    } else {
        base = sceneParent == nullptr ? scene.nodes.placeOf(sceneNode) : scene.nodes.frameOf(*sceneParent);
    }
    const std::string place = "imd: node " + report::utf8Name(node.name);
    ChannelTolerances tolerances;
    if (bound && isFolded(node, sceneNode, scene)) {
        result.note("the bind pose of " + place + ", whose parents were folded into it");
        return;
    }
    // Folding rounds the nodes anew from which bound joints were counted.
    if (bound && scene.isMerged) {
        allow(tolerances, kStep * (2.0 + sceneNode.path.length()));
    }
    Imath::V3d parentScale = undoneScale(node, parent, sceneParent, tolerances);
    if (bound && parent != nullptr && node.scaleCompensate.value_or(false)) {
        parentScale = parent->scale; // the bind pose counts from what is written
        tolerances.parentScale = 0.0;
    }
    checkChannels(node, parentScale, bound.value_or(scene.nodes.frameOf(sceneNode)), base, tolerances, {}, place, "",
                  result);
}

// Joints below joints undo their parents' scale, unless they were told not to. Folding settles it anew.
void checkCompensation(const decode::ModelNode& node, const SceneNode& sceneNode, const ExportedScene& scene,
                       Verification& result) {
    const SceneNode* const parent = scene.nodes.of(node.parent);
    if (!node.scaleCompensate || scene.isMerged || scene.isUnited) {
        return;
    }
    const bool expected = sceneNode.path.hasFn(MFn::kJoint) && parent != nullptr && parent->path.hasFn(MFn::kJoint) &&
                          isOn(sceneNode.path.node(), "segmentScaleCompensate", true);
    if (*node.scaleCompensate != expected) {
        result.find("imd: node " + report::utf8Name(node.name) + ": scale_compensate is " + (expected ? "off" : "on") +
                    " unlike in the scene");
    }
}

void checkBillboard(const decode::ModelNode& node, const SceneNode* sceneNode, Verification& result) {
    const int chosen = sceneNode == nullptr ? 0 : attributeOf<int>(sceneNode->path.node(), "tvk_billboard").value_or(0);
    const std::string expected = chosen == 1 ? "on" : chosen == 2 ? "y_on" : "off";
    if (node.billboard != expected) {
        result.find("imd: node " + report::utf8Name(node.name) + ": billboard is " + report::utf8Name(node.billboard) +
                    " instead of " + expected);
    }
}

void checkVisibility(const decode::ModelNode& node, const ExportedScene& scene, Verification& result) {
    const SceneNode& sceneNode = *scene.nodes.of(node.index);
    const bool isSeen = isVisibleBelow(sceneNode.path, sceneNode.top.value_or(sceneNode.path),
                                       node.kind == "mesh" ? shownMesh(sceneNode.path) : std::nullopt);
    if (isSeen != node.visibility) {
        result.find("imd: node " + report::utf8Name(node.name) + ": visibility is " + (node.visibility ? "on" : "off") +
                    ", but the scene " + (isSeen ? "shows" : "hides") + " it");
    }
}

} // namespace

void checkChannels(const decode::ModelNode& node, const Imath::V3d& parentScale, const Imath::M44d& expected,
                   const Imath::M44d& base, const ChannelTolerances& tolerances, const NodeParts& parts,
                   const std::string& place, const std::string& when, Verification& result) {
    if (std::abs(base.determinant()) < 1e-12) {
        result.note(place + ", below a node without size");
        return;
    }
    const Imath::M44d local = expected * base.inverse();
    double reach = 1.0;
    for (int i = 0; i < 3; ++i) {
        reach = std::max({reach, std::abs(expected[3][i]), std::abs(local[3][i])});
    }
    const double smallest = std::min({std::abs(parentScale.x), std::abs(parentScale.y), std::abs(parentScale.z)});
    ChannelCheck(tolerances, parts, place, when, result)
        .compare(node, channelsOf(local, parentScale, node.scale), reach,
                 tolerances.parentScale / std::max(smallest, kStep));
}

Imath::V3d undoneScale(const decode::ModelNode& node, const decode::ModelNode* parent, const SceneNode* sceneParent,
                       ChannelTolerances& tolerances) {
    const double tolerance = std::exchange(tolerances.parentScale, 0.0);
    const double known = tolerance < 0.0 ? HUGE_VAL : tolerance + kStep;
    if (parent == nullptr || !node.scaleCompensate.value_or(false)) {
        return Imath::V3d(1.0);
    }
    double scale[3] = {1.0, 1.0, 1.0};
    if (sceneParent != nullptr && MFnTransform(sceneParent->path).getScale(scale) == MStatus::kSuccess) {
        const Imath::V3d ofScene(scale[0], scale[1], scale[2]);
        const Imath::V3d off = ofScene - parent->scale;
        if (std::max({std::abs(off.x), std::abs(off.y), std::abs(off.z)}) <= known) {
            return ofScene;
        }
    }
    tolerances.parentScale = std::isfinite(known) ? known : 0.0;
    return parent->scale;
}

void checkNodes(const report::ExportedModel& model, const ExportedScene& scene, Verification& result) {
    for (const decode::ModelNode& node : model.file.nodes) {
        if (scene.nodes.of(node.index) == nullptr) {
            const bool isMadeRoot = node.index == 0 && node.name.compare(0, 10, "world_root") == 0;
            if (!isMadeRoot) {
                result.find("imd: node " + report::utf8Name(node.name) + " is not in the scene");
                continue;
            }
            checkChannels(node, Imath::V3d(1.0), Imath::M44d(), Imath::M44d(), {}, {}, "imd: node " + node.name, "",
                          result);
            checkBillboard(node, nullptr, result);
            continue;
        }
        checkBillboard(node, scene.nodes.of(node.index), result);
        checkTransform(node, model, scene, result);
        checkCompensation(node, *scene.nodes.of(node.index), scene, result);
        checkVisibility(node, scene, result);
    }
    for (const std::string& mesh : scene.lostMeshes) {
        result.find("imd: no node draws " + mesh);
    }
}

} // namespace host::app::verify
