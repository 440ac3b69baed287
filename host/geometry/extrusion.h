#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Value.h"

#include <Imath/ImathVec.h>

#include <memory>
#include <string>
#include <vector>

namespace host {

/// How faces are extruded: lengths in the space in which `matrix` places the mesh.
struct Extrusion {
    bool together = true;                       // faces that share an edge stay connected; else each goes its own way
    Imath::V3d translate{0.0};                  // along the axes of that space
    double along = 0.0;                         // along the normal of each part
    double offset = 0.0;                        // how far borders go inwards, in parallel
    double smoothingAngle = 0.5235987755982988; // radians: new edges with a wider angle between their faces are hard
    Matrix44 matrix;
};

struct ExtrudedFaces {
    std::shared_ptr<MeshData> mesh;
    /// What cannot be told for certain: "along" or "offset" (a part that is not flat, or whose border crosses itself),
    /// "smoothingAngle" (a soft edge at the foot of a new face that makes a wide angle there). Empty when there is
    /// nothing.
    std::string doubt;
};

/// The chosen faces moved, and faces between their borders and where those were: one for each border edge, behind all
/// others, wound like the face that it comes from, with that one's groups and with the texture coordinates and colours
/// of the edge at both ends. The faces keep their numbers and all that their corners have; borders that were of others
/// too, or of none, are copied.
ExtrudedFaces extrudeFaces(const MeshData& mesh, const std::vector<bool>& chosen, const Extrusion& how);

} // namespace host
