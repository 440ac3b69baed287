#pragma once

#include "scene/hostCompatibility.h"

#include <maya/MObject.h>

namespace tvk {

/// Reads an attribute by name at the current time. False, with `value` untouched, when the node has no such attribute
/// or its value cannot be read as that type.
template <typename T>
[[nodiscard]] bool readPlug(const MPlug& plug, T& value) {
    T found{};
    if (plug.isNull() || !plug.getValue(found)) {
        return false;
    }
    value = found;
    return true;
}

template <typename T>
[[nodiscard]] bool readAttribute(MObject node, const char* name, T& value) {
    MStatus status;
    const MFnDependencyNode function(node, &status);
    return status && readPlug(findPlug(function, name), value);
}

/// The same with the value to take when it cannot be read.
template <typename T>
T attributeOr(const MObject& node, const char* name, T fallback) {
    T value = fallback;
    return readAttribute(node, name, value) ? value : fallback;
}

} // namespace tvk
