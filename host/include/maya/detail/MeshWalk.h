#pragma once

// What the iterators over meshes have in common. Plug-ins use the iterators, never this header.

#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <memory>
#include <vector>

namespace host {
struct MeshData;
}

namespace host::api {

/// A walk over some of the numbers of faces, vertices or edges of one mesh.
struct MeshWalk {
    std::shared_ptr<const MeshData> mesh; // null when there is nothing to walk over
    MDagPath path;                        // not valid when it began at an object
    std::vector<int> chosen;              // of a component; all when there is none
    bool isAll = true;
    int size = 0; // numbers to visit
    int at = 0;   // how many were visited

    bool isDone() const { return at >= size; }
    /// The number it stands at; only when not done.
    int current() const { return isAll ? at : chosen[static_cast<std::size_t>(at)]; }
};

} // namespace host::api
