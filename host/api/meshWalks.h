#pragma once

#include "host/api/meshAccess.h"

#include <maya/MIntArray.h>
#include <maya/detail/MeshWalk.h>

#include <vector>

namespace host {

/// What the iterators over meshes share. `component` is the kind that an iterator walks over; kMeshVertComponent,
/// kMeshEdgeComponent or kMeshPolygonComponent.

/// Begins a walk over all of an object's numbers. kInvalidParameter, and a walk that is done, for what is no mesh.
MStatus startWalk(api::MeshWalk& walk, const MObject& mesh, MFn::Type component);
/// Along a path that ends in a mesh or in a transform with one; over a component's numbers that the mesh has, unless it
/// is null.
MStatus startWalk(api::MeshWalk& walk, const MDagPath& path, const MObject& component, MFn::Type kind);

MStatus stepWalk(api::MeshWalk& walk);
MStatus jumpWalk(api::MeshWalk& walk, int index, int& previous);
/// A component of the number it stands at.
MObject walkedComponent(const api::MeshWalk& walk, MFn::Type kind, MStatus* status);

/// kFailure when it is done.
inline MStatus askWalk(const api::MeshWalk& walk) {
    return walk.isDone() ? MStatus::kFailure : MStatus::kSuccess;
}
/// The same, and sets the frame.
MStatus askWalk(const api::MeshWalk& walk, MSpace::Space space, MeshFrame& frame);

/// Sorts and drops what is there twice.
void storeUnique(MIntArray& array, std::vector<int> numbers);
std::vector<int> uniqueNumbers(std::vector<int> numbers);

} // namespace host
