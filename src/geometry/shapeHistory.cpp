#include "geometry/shapeHistory.h"

#include "scene/plugReading.h"

#include <maya/MFn.h>
#include <maya/MPlugArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace tvk {
namespace {

struct DeformerRow {
    std::string_view typeName;
    DeformerKind kind;
};

constexpr std::array<DeformerRow, 5> kDeformerRows{{
    {"skinCluster", DeformerKind::kSkinCluster},
    {"jointCluster", DeformerKind::kJointCluster},
    {"cluster", DeformerKind::kCluster},
    {"jointFfd", DeformerKind::kJointLattice},
    {"boneLattice", DeformerKind::kBoneLattice},
}};

const DeformerRow* findRow(const MFnDependencyNode& node) {
    const std::string type = textOf(node.typeName());
    const auto* const row = std::find_if(kDeformerRows.begin(), kDeformerRows.end(),
                                         [&](const DeformerRow& each) { return each.typeName == type; });
    return row == kDeformerRows.end() ? nullptr : row;
}

// What sets the plug; a null plug when nothing does.
MPlug sourceOf(const MPlug& plug) {
    MPlugArray sources;
    return !plug.isNull() && plug.connectedTo(sources, true, false) && sources.length() > 0 ? sources[0] : MPlug();
}

// The input geometry of a deformer that leads to the given element of its outputs.
MPlug deformerInput(const MFnDependencyNode& node, const MPlug& inputGeometry, unsigned int element) {
    const MPlug inputs = findPlug(node, "input");
    return inputs.isNull() || !inputs.isArray()
               ? inputGeometry
               : inputs.elementByLogicalIndex(element).child(inputGeometry.attribute());
}

unsigned int elementOf(const MPlug& output) {
    return output.isElement() ? output.logicalIndex() : 0;
}

// Where the geometry comes into the node from which it leaves by `output`.
MPlug inputBehind(const MPlug& output) {
    MStatus status;
    const MObject object = output.node();
    const MFnDependencyNode node(object, &status);
    if (!status) {
        return MPlug();
    }
    const MPlug inputGeometry = findPlug(node, "inputGeometry");
    if (!inputGeometry.isNull()) {
        return deformerInput(node, inputGeometry, elementOf(output));
    }
    const MPlug inputPolymesh = findPlug(node, "inputPolymesh");
    return inputPolymesh.isNull() ? findPlug(node, "inMesh") : inputPolymesh;
}

} // namespace

ShapeHistory findShapeHistory(const MDagPath& shape) {
    ShapeHistory history;
    std::vector<MObject> visited;
    const MObject start = shape.node();
    MPlug output = sourceOf(findPlug(MFnDependencyNode(start), "inMesh"));
    while (!output.isNull()) {
        const MObject node = output.node();
        if (std::find(visited.begin(), visited.end(), node) != visited.end()) {
            break;
        }
        visited.push_back(node);
        history.origin = node;
        if (const DeformerRow* const row = findRow(MFnDependencyNode(node))) {
            history.deformers.push_back({node, row->kind, elementOf(output)});
        }
        output = sourceOf(inputBehind(output));
    }
    return history;
}

MObject findOriginalMesh(const ShapeHistory& history, const MDagPath& recorded) {
    if (history.deformers.empty()) {
        return MObject();
    }
    if (history.origin.hasFn(MFn::kMesh)) {
        return history.origin;
    }
    return recorded.isValid() ? recorded.node() : MObject();
}

bool isDeformerEffective(const MObject& deformer) {
    constexpr double kNoEnvelope = 1e-6;
    return attributeOr(deformer, "nodeState", 0) == 0 &&
           std::abs(attributeOr(deformer, "envelope", 1.0)) >= kNoEnvelope;
}

} // namespace tvk
