#include "host/nodes/transformMatrix.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/transformFit.h"
#include "host/scene/unitConversion.h"

#include <Imath/ImathMatrixAlgo.h>

#include <utility>

namespace host {

namespace {

using Imath::V3d;
using mel::CommandResult;
using mel::FlagSyntax;
using mel::ParsedFlags;

/// A transform that is asked about.
struct Asked {
    Scene& scene;
    Node& node;
    bool inWorld;

    Matrix44 matrixNamed(const char* name) const {
        const Plug plug{&node, scene.graph().findPlug(node, name)};
        return plug ? scene.graph().matrix(plug) : Matrix44();
    }
    V3d vectorNamed(const char* name) const { return vectorOf(scene.graph(), node, name, 0.0); }
};

mel::Value asList(const Units& units, AttrKind kind, const V3d& vector) {
    return mel::FloatArray{toExternal(units, kind, vector.x), toExternal(units, kind, vector.y),
                           toExternal(units, kind, vector.z)};
}

mel::Value matrix(const Asked& asked) {
    const Matrix44 value = asked.matrixNamed(asked.inWorld ? "worldMatrix[0]" : "matrix");
    return mel::FloatArray(&value[0][0], &value[0][0] + 16);
}

// Pivots are no part of a translation.
mel::Value translation(const Asked& asked) {
    V3d place = asked.vectorNamed("translate");
    if (asked.inWorld) {
        place = place * asked.matrixNamed("parentMatrix[0]");
    }
    return asList(asked.scene.units(), AttrKind::kDistance, place);
}

mel::Value rotation(const Asked& asked) {
    V3d angles = asked.vectorNamed("rotate");
    if (asked.inWorld) {
        Matrix44 linear = asked.matrixNamed("worldMatrix[0]");
        V3d scale;
        V3d shear;
        if (Imath::extractAndRemoveScalingAndShear(linear, scale, shear, false)) {
            angles = anglesOf(linear, rotateOrderOf(numberOf(asked.scene.graph(), asked.node, "rotateOrder", 0.0)));
        }
    }
    return asList(asked.scene.units(), AttrKind::kAngle, angles);
}

mel::Value scale(const Asked& asked) {
    return asList(asked.scene.units(), AttrKind::kDouble, asked.vectorNamed("scale"));
}

mel::Value pivot(const Asked& asked, const char* name) {
    V3d place = asked.vectorNamed(name);
    if (asked.inWorld) {
        place = place * asked.matrixNamed("worldMatrix[0]");
    }
    return asList(asked.scene.units(), AttrKind::kDistance, place);
}

CommandResult xformCommand(Scene& scene, const ParsedFlags& flags) {
    std::vector<SelectionItem> items;
    SceneResult found = findCommandItems(scene, flags, items);
    if (!found.ok()) {
        return CommandResult::failure(std::move(found.error));
    }
    if (!flags.isQuery || items.size() != 1) {
        return failure(messages::kNeedsObjects, {"xform", "-query and one transform"});
    }
    if (!items[0].node->isDag() || items[0].node->type().dagRole != DagRole::kTransform) {
        return failure(messages::kNotTransform, {scene.itemName(items[0], false)});
    }
    const Asked asked{scene, *items[0].node, flags.has("worldSpace")};
    if (flags.has("matrix")) {
        return CommandResult(matrix(asked));
    }
    if (flags.has("translation")) {
        return CommandResult(translation(asked));
    }
    if (flags.has("rotation")) {
        return CommandResult(rotation(asked));
    }
    if (flags.has("scale")) {
        return CommandResult(scale(asked));
    }
    if (flags.has("rotatePivot") || flags.has("scalePivot")) {
        return CommandResult(pivot(asked, flags.has("rotatePivot") ? "rotatePivot" : "scalePivot"));
    }
    return failure(messages::kNeedsObjects, {"xform", "a flag that says what is asked"});
}

} // namespace

void registerXformCommand(mel::CommandTable& commands, Scene& scene) {
    addCommand(commands, scene, "xform",
               FlagSyntax({{"ws", "worldSpace"},
                           {"os", "objectSpace"},
                           {"m", "matrix"},
                           {"t", "translation"},
                           {"ro", "rotation"},
                           {"s", "scale"},
                           {"rp", "rotatePivot"},
                           {"sp", "scalePivot"}},
                          FlagSyntax::kQuery),
               xformCommand);
}

} // namespace host
