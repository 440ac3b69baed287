#include "scene/plugDriver.h"

#include "scene/hostCompatibility.h"
#include "scene/plugSource.h"

#include <maya/MFn.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MPlugArray.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <vector>

namespace tvk {
namespace {

std::string attributeName(const MPlug& plug) {
    return textOf(plug.partialName(false, false, false, false, false, true));
}

// The child of `compound` that stands where `child` stands in the compound that it belongs to.
MPlug matchingChild(const MPlug& compound, const MPlug& child) {
    const MPlug parent = child.parent();
    for (unsigned int i = 0; i < parent.numChildren() && i < compound.numChildren(); ++i) {
        if (parent.child(i) == child) {
            return compound.child(i);
        }
    }
    return compound;
}

MPlug sourceOfPlugOrCompound(const MPlug& plug) {
    const MPlug own = sourceOf(plug);
    if (!own.isNull() || plug.isNull() || !plug.isChild()) {
        return own;
    }
    const MPlug ofCompound = sourceOf(plug.parent());
    return ofCompound.isNull() || !ofCompound.isCompound() ? ofCompound : matchingChild(ofCompound, plug);
}

// --- nodes that hand on what comes in

using Plugs = std::vector<MPlug>;

MPlug plugNamed(const MPlug& output, const std::string& name) {
    MObject node = output.node();
    return findPlug(MFnDependencyNode(node), name.c_str());
}

// "outRotateX" comes from "inRotateX1" and "inRotateX2".
Plugs pairBlendInputs(const MPlug& output) {
    const std::string name = attributeName(output);
    if (name.rfind("out", 0) != 0) {
        return {};
    }
    const std::string input = "in" + name.substr(3);
    return {plugNamed(output, input + "1"), plugNamed(output, input + "2")};
}

// "outputX" comes from "inputAX" and "inputBX".
Plugs animBlendInputs(const MPlug& output) {
    const std::string name = attributeName(output);
    if (name.rfind("output", 0) != 0) {
        return {};
    }
    const std::string child = name.substr(6);
    return {plugNamed(output, "inputA" + child), plugNamed(output, "inputB" + child)};
}

Plugs conversionInputs(const MPlug& output) {
    return {plugNamed(output, "input")};
}

// A character's elements are in- and output at once.
Plugs characterInputs(const MPlug& output) {
    return {output};
}

struct PassingType {
    MFn::Type type;
    Plugs (*inputs)(const MPlug& output);
};

constexpr std::array<PassingType, 5> kPassingTypes{{
    {MFn::kUnitConversion, conversionInputs},
    {MFn::kTimeToUnitConversion, conversionInputs},
    {MFn::kUnitToTimeConversion, conversionInputs},
    {MFn::kPairBlend, pairBlendInputs},
    {MFn::kCharacter, characterInputs},
}};

// Animation layers came after the oldest kits, whose enumeration lacks their nodes; all versions have the names.
bool isAnimBlend(MObject node) {
    return textOf(MFnDependencyNode(node).typeName()).rfind("animBlendNode", 0) == 0;
}

// False when the node is none of those that hand on.
bool inputsBehind(const MPlug& output, Plugs& inputs) {
    const MObject node = output.node();
    const auto* const row = std::find_if(kPassingTypes.begin(), kPassingTypes.end(),
                                         [&](const PassingType& passing) { return node.hasFn(passing.type); });
    if (row != kPassingTypes.end()) {
        inputs = row->inputs(output);
        return true;
    }
    if (isAnimBlend(node)) {
        inputs = animBlendInputs(output);
        return true;
    }
    return false;
}

// What the clips of a character's timeline move has no connection of its own: the character is told through its
// scheduler, and its elements change.
bool isMovedByClips(const MPlug& element) {
    const MObject node = element.node();
    if (!node.hasFn(MFn::kCharacter)) {
        return false;
    }
    MPlugArray connected;
    if (!MFnDependencyNode(node).getConnections(connected)) {
        return false;
    }
    for (unsigned int i = 0; i < connected.length(); ++i) {
        const MPlug source = sourceOf(connected[i]);
        if (!source.isNull() && textOf(MFnDependencyNode(source.node()).typeName()) == "clipScheduler") {
            return true;
        }
    }
    return false;
}

// --- nodes that drive

constexpr std::array<MFn::Type, 4> kTimeCurveTypes{MFn::kAnimCurveTimeToAngular, MFn::kAnimCurveTimeToDistance,
                                                   MFn::kAnimCurveTimeToTime, MFn::kAnimCurveTimeToUnitless};

bool isConstantCurve(MObject node) {
    MStatus status;
    const MFnAnimCurve curve(node, &status);
    return status && (curve.numKeys() < 2 || curve.isStatic());
}

PlugDriver driverOf(const MObject& node) {
    PlugDriver driver;
    if (node.hasFn(MFn::kAnimCurve)) {
        const bool overTime = std::any_of(kTimeCurveTypes.begin(), kTimeCurveTypes.end(),
                                          [&](MFn::Type type) { return node.apiType() == type; });
        driver.kind = overTime ? DriverKind::kTimeCurve : DriverKind::kDrivenKey;
        driver.curve = node;
        driver.isConstant = overTime && isConstantCurve(node);
    } else if (node.hasFn(MFn::kExpression)) {
        driver.kind = DriverKind::kExpression;
    } else {
        driver.kind = DriverKind::kConnection;
    }
    return driver;
}

PlugDriver connectionDriver() {
    PlugDriver driver;
    driver.kind = DriverKind::kConnection;
    return driver;
}

} // namespace

PlugDriver findDriver(const MPlug& plug) {
    PlugDriver first;
    std::unordered_set<std::string> seen;
    Plugs waiting{plug}; // the last is looked at first
    while (!waiting.empty()) {
        const MPlug asked = waiting.back();
        const MPlug source = sourceOfPlugOrCompound(asked);
        waiting.pop_back();
        if (source.isNull()) {
            if (isMovedByClips(asked)) {
                return connectionDriver();
            }
            continue;
        }
        Plugs inputs;
        if (inputsBehind(source, inputs)) {
            if (seen.insert(textOf(source.name())).second) {
                waiting.insert(waiting.end(), inputs.rbegin(), inputs.rend());
            }
            continue;
        }
        const PlugDriver driver = driverOf(source.node());
        if (driver.isAnimated()) {
            return driver;
        }
        first = first.kind == DriverKind::kNone ? driver : first;
    }
    return first;
}

} // namespace tvk
