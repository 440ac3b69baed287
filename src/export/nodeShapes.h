#pragma once

#include "scene/NodeRecord.h"

#include <maya/MStatus.h>

namespace tvk {

/// What the shapes below a transform make of it.
struct NodeShapes {
    int32_t shapeCount = 0;
    int32_t viewShapeCount = 0; // cameras, lights and what the host's views are made of
    MDagPath kept;              // the mesh shape that the node draws; not valid when there is none
    MDagPath original;          // the shape before deformation; often not valid
    MStatus status;

    /// Nothing but cameras, lights and the like: the transform is there for them.
    bool onlyServeTheView() const { return shapeCount > 0 && shapeCount == viewShapeCount; }
};

/// Looks at the shapes directly below a transform, in DAG order. Reports curves, surfaces and subdivs that are shown,
/// a node with several meshes (the last is kept), and fails on a node whose shown meshes are all originals.
NodeShapes readNodeShapes(const MDagPath& transform);

} // namespace tvk
