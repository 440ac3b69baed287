#include "motionChecks.h"

#include "decode/AnimationFile.h"
#include "sceneText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>
#include <vector>

namespace tvk {
namespace {

const char* curveType(const std::string& attribute) {
    constexpr const char* kRotations[] = {"rx", "ry", "rz", "rf"};
    constexpr const char* kTranslations[] = {"tx", "ty", "tz"};
    const auto isOneOf = [&](const auto& names) {
        return std::find(std::begin(names), std::end(names), attribute) != std::end(names);
    };
    return isOneOf(kRotations) ? "animCurveTA" : isOneOf(kTranslations) ? "animCurveTL" : "animCurveTU";
}

double reachOf(const Imath::M44d& world) {
    double reach = 1.0;
    for (int i = 0; i < 3; ++i) {
        reach = std::max(reach, std::abs(world[3][i]));
    }
    return reach;
}

} // namespace

std::string keyed(const std::string& plug, const std::string& keys) {
    std::istringstream words(keys);
    const auto count = std::distance(std::istream_iterator<std::string>(words), {}) / 2;
    const std::size_t dot = plug.find('.');
    const std::string attribute = plug.substr(dot + 1);
    const std::string curve = plug.substr(0, dot) + "_" + attribute;
    const std::string size = std::to_string(count);
    return nodeText(curveType(attribute), curve, "",
                    "setAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s " + size +
                        " \".ktv[0:" + std::to_string(count - 1) + "]\" " + keys + ";") +
           "connectAttr \"" + curve + ".o\" \"" + plug + "\";\n";
}

int expectMovesAsInTheHost(HostSession& session, double tolerance, double magnify) {
    const decode::ModelFile model = session.model();
    const decode::AnimationFile nodes = decode::readAnimationFile(session.fileText("model.ica"));
    if (nodes.info == nullptr || nodes.things.size() != model.nodes.size()) {
        ADD_FAILURE() << nodes.things.size() << " animated nodes of " << model.nodes.size();
        return 0;
    }
    std::vector<int> known; // nodes of the scene by their names
    for (const decode::ModelNode& node : model.nodes) {
        if (node.name != "world_root" && session.melRuns("select -r " + node.name)) {
            known.push_back(node.index);
        }
    }
    const int start = nodes.info->integer("tool_start_frame");
    for (int frame = 0; frame < nodes.frameCount; ++frame) {
        session.mel("currentTime " + std::to_string(start + frame));
        const std::vector<decode::ModelNode> all = decode::posed(model, nodes, static_cast<std::size_t>(frame));
        for (const int index : known) {
            const decode::ModelNode& node = all[static_cast<std::size_t>(index)];
            const Imath::M44d expected = session.expectedWorld(node.name, magnify);
            EXPECT_LT(distance(node.world, expected), tolerance * reachOf(expected))
                << node.name << " at frame " << start + frame;
        }
    }
    return static_cast<int>(known.size());
}

} // namespace tvk
