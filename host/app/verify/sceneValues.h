#pragma once

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>

#include <ImathMatrix.h>

#include <optional>
#include <string>

namespace host::app::verify {

// What the scene says, asked through the API.

/// The value of a node's attribute; nothing when the node has no such attribute, or none of that type.
template <typename Value>
std::optional<Value> attributeOf(const MObject& node, const char* name) {
    MStatus status;
    const MPlug plug = MFnDependencyNode(node).findPlug(name, false, &status);
    Value value{};
    if (status != MStatus::kSuccess || plug.isNull() || plug.getValue(value) != MStatus::kSuccess) {
        return std::nullopt;
    }
    return value;
}

inline bool isOn(const MObject& node, const char* name, bool otherwise = false) {
    return attributeOf<bool>(node, name).value_or(otherwise);
}

/// Its translation times `magnify`.
Imath::M44d matrixOf(const MMatrix& matrix, double magnify = 1.0);
/// Of a matrix attribute; the identity when it has no matrix.
Imath::M44d matrixOf(const MPlug& plug, double magnify = 1.0);

/// The plug that drives a plug; null when none does. Conversions of units are stepped through.
MPlug driverOf(const MPlug& plug);

/// A node's name in UTF-8.
std::string nameOf(const MObject& node);

/// Sets the host's time, in the units of its interface.
void goTo(double frame);

} // namespace host::app::verify
