#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Value.h"

#include <maya/MColor.h>
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MVector.h>

namespace host {

/// What a mesh node evaluates to now, or mesh data; null for anything else.
MeshPtr attachedMesh(const MObject& object);

/// The space in which points and normals of a shape are asked for.
class MeshFrame {
public:
    /// kFailure for world space without a path, kInvalidParameter for what is no space.
    MStatus set(const MDagPath& path, MSpace::Space space);

    MPoint point(const Imath::V3f& position) const;
    /// Of unit length, or 0 0 0.
    MVector normal(const Imath::V3f& normal) const;

private:
    bool isObject_ = true;
    Matrix44 toSpace_, normalsToSpace_;
};

inline bool isIndex(int index, std::int32_t count) {
    return index >= 0 && index < count;
}

/// The set with this name, which may be null for the current one; null when there is none.
const UvSet* uvSetOf(const MeshData& mesh, const MString* name);
const ColorSet* colorSetOf(const MeshData& mesh, const MString* name);

/// Ids of a face in a set of texture coordinates, one per corner; null when it has none.
const std::int32_t* uvIdsOf(const MeshData& mesh, const UvSet& set, std::int32_t face);

/// Number of the colour of a corner of a face (counted in the face); -1 when it has none.
std::int32_t colorIdOf(const ColorSet& set, std::int32_t face, std::int32_t corner);
/// Of a set by number; all of it -1 for -1.
MColor colorOf(const ColorSet& set, std::int32_t colorId);

/// Mean of colours that are added one by one; what has none is left out.
class ColorMean {
public:
    void add(const ColorSet& set, std::int32_t colorId);
    bool isEmpty() const { return count_ == 0; }
    MColor mean() const;

private:
    Imath::V4d sum_{0, 0, 0, 0};
    int count_ = 0;
};

} // namespace host
