#pragma once

#include "scene/NodeRecord.h"

#include <maya/MStatus.h>

namespace tvk {

/// What the shapes below a transform make of it.
struct NodeShapes {
    int32_t shapeCount = 0;
    int32_t cameraAndLightCount = 0;
    MDagPath kept;     // the mesh shape that the node draws; not valid when there is none
    MDagPath original; // the shape before deformation; often not valid
    MStatus status;

    /// Nothing but cameras and lights: the transform is there for them.
    bool onlyCamerasAndLights() const { return shapeCount > 0 && shapeCount == cameraAndLightCount; }
};

/// Looks at the shapes directly below a transform, in DAG order. Reports curves, surfaces and subdivs that are shown,
/// a node with several meshes (the last is kept), and fails on a node whose shown meshes are all originals.
NodeShapes readNodeShapes(const MDagPath& transform);

} // namespace tvk
