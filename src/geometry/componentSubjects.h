#pragma once

#include "common/numberText.h"
#include "scene/hostCompatibility.h"

#include <maya/MDagPath.h>

#include <string>

namespace tvk {

// How messages name a part of a shape.

inline std::string componentSubject(const std::string& shape, const char* kind, int64_t index) {
    return shape + "." + kind + "[" + integerText(index).str() + "]";
}

inline std::string vertexSubject(const MDagPath& shape, int64_t index) {
    return componentSubject(textOf(shape.fullPathName()), "vtx", index);
}

inline std::string faceSubject(const MDagPath& shape, int64_t index) {
    return componentSubject(textOf(shape.fullPathName()), "f", index);
}

} // namespace tvk
