#include "host/app/verify/SkinOfShape.h"

#include "host/app/verify/sceneValues.h"

#include <maya/MDagPathArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnSkinCluster.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

namespace host::app::verify {
namespace {

bool isSkeletonDeformer(const std::string& type) {
    return type == "skinCluster" || type == "jointCluster" || type == "cluster" || type == "jointFfd" ||
           type == "boneLattice";
}

bool isEffective(const MObject& deformer) {
    return attributeOf<int>(deformer, "nodeState").value_or(0) == 0 &&
           std::abs(attributeOf<double>(deformer, "envelope").value_or(1.0)) >= 1e-6;
}

// Where a node of a mesh's history has its mesh from.
MPlug inputOf(const MPlug& output) {
    const MFnDependencyNode node(output.node());
    MStatus status;
    const MPlug inputs = node.findPlug("input", false, &status);
    if (status == MStatus::kSuccess && inputs.isArray() && output.isElement()) {
        const MPlug input = inputs.elementByLogicalIndex(output.logicalIndex());
        const MObject geometry = node.attribute("inputGeometry", &status);
        if (status == MStatus::kSuccess) {
            return input.child(geometry);
        }
    }
    for (const char* const name : {"inputPolymesh", "inMesh"}) {
        const MPlug plug = node.findPlug(name, false, &status);
        if (status == MStatus::kSuccess && !plug.isNull()) {
            return plug;
        }
    }
    return {};
}

} // namespace

SkeletonDeformer deformerOf(const MDagPath& shape) {
    std::set<std::string> met; // histories may be circles in broken scenes
    MPlug source = driverOf(MFnDependencyNode(shape.node()).findPlug("inMesh", false));
    while (!source.isNull() && met.insert(source.name().asChar()).second) {
        const std::string type = MFnDependencyNode(source.node()).typeName().asChar();
        if (isSkeletonDeformer(type) && isEffective(source.node())) {
            return {source.node(), type == "skinCluster"};
        }
        source = driverOf(inputOf(source));
    }
    return {};
}

SkinOfShape readSkin(const MDagPath& shape, const MObject& skin, double magnify) {
    const MFnSkinCluster deformer(skin);
    SkinOfShape result;
    result.node = skin;
    result.geometry = matrixOf(deformer.findPlug("geomMatrix", false), magnify);
    MDagPathArray paths;
    const unsigned int count = deformer.influenceObjects(paths);
    const MPlug binds = deformer.findPlug("bindPreMatrix", false);
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int place = deformer.indexForInfluenceObject(paths[i]);
        result.influences.push_back({paths[i], matrixOf(binds.elementByLogicalIndex(place), magnify)});
    }
    MDoubleArray weights;
    unsigned int perVertex = 0;
    if (count == 0 || deformer.getWeights(shape, MObject::kNullObj, weights, perVertex) != MStatus::kSuccess) {
        return result;
    }
    result.weights.resize(weights.length() / std::max(perVertex, 1U));
    for (unsigned int i = 0; i < weights.length(); ++i) {
        if (weights[i] != 0.0) {
            result.weights[i / perVertex].emplace_back(i % perVertex, weights[i]);
        }
    }
    return result;
}

std::map<std::size_t, int> percentagesOf(const std::vector<std::pair<std::size_t, double>>& weights, bool strongest,
                                         const std::vector<int>& order) {
    std::map<std::size_t, int> result;
    if (strongest) {
        const auto best = std::max_element(weights.begin(), weights.end(), [&](const auto& a, const auto& b) {
            return a.second != b.second ? a.second < b.second : order.at(a.first) > order.at(b.first);
        });
        if (best != weights.end() && best->second > 0.0) {
            result[best->first] = 100;
        }
        return result;
    }
    for (const auto& [influence, weight] : weights) {
        const int percent = static_cast<int>(std::clamp(std::round(weight * 100.0), 0.0, 100.0));
        if (percent > 0) {
            result[influence] = percent;
        }
    }
    if (result.size() == 1) {
        result.begin()->second = 100;
    }
    return result;
}

WithoutDeformer::WithoutDeformer(const MObject& deformer) : deformer_(deformer) {
    MPlug state = MFnDependencyNode(deformer).findPlug("nodeState", false);
    state.getValue(state_);
    state.setValue(1);
}

WithoutDeformer::~WithoutDeformer() {
    MPlug state = MFnDependencyNode(deformer_).findPlug("nodeState", false);
    state.setValue(state_);
}

} // namespace host::app::verify
