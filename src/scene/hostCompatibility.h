#pragma once

// The one place that knows how the host's API differs between versions.

#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnTransform.h>
#include <maya/MPlug.h>
#include <maya/MString.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

#include <string>

#ifndef PLUGIN_EXPORT // kits before it came
#if defined(_WIN32)
#define PLUGIN_EXPORT __declspec(dllexport)
#else
#define PLUGIN_EXPORT __attribute__((visibility("default")))
#endif
#endif

namespace tvk {

/// What skin clusters give their weights in.
#if MAYA_API_VERSION >= 200800
using SkinWeightArray = MDoubleArray;
#else
using SkinWeightArray = MFloatArray;
#endif

/// The node's plug of a long or short attribute name; null when it has no such attribute.
inline MPlug findPlug(const MFnDependencyNode& node, const char* name) {
    MStatus status;
#if MAYA_API_VERSION >= 200800
    const MPlug plug = node.findPlug(name, true, &status);
#else
    const MPlug plug = node.findPlug(name, &status);
#endif
    return status ? plug : MPlug();
}

/// The translate channels, in centimetres.
inline MVector translationOf(const MFnTransform& transform, MStatus* status) {
#if MAYA_API_VERSION >= 200800
    return transform.getTranslation(MSpace::kTransform, status);
#else
    return transform.translation(MSpace::kTransform, status);
#endif
}

/// Host text as the library holds it: UTF-8 where the host knows it, else the machine's own bytes, which the writers
/// recognise.
inline std::string textOf(const MString& text) {
#if MAYA_API_VERSION >= 200800
    return text.asUTF8();
#else
    return text.asChar();
#endif
}

inline MString hostText(const std::string& text) {
#if MAYA_API_VERSION >= 200800
    MString result;
    result.setUTF8(text.c_str());
    return result;
#else
    return MString(text.c_str());
#endif
}

} // namespace tvk
