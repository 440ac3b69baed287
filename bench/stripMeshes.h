#pragma once

#include "geometry/Corner.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

// The faces of one of the meshes in bench/data/meshes: triangles and quads as they are in the file, larger faces as
// fans.
//   folder   the data folder
//   returns  no faces when the file cannot be read
FaceList readStripMesh(const std::string& folder, const std::string& name);

// Only the quads, or every quad as the two triangles at its first corner.
FaceList onlyQuads(const FaceList& faces);
FaceList onlyTriangles(const FaceList& faces);

// An irregular closed sheet of about as many triangles, a few of them missing.
//   matrices   how many matrices its vertices are on, in bands
FaceList makeStripSheet(int32_t triangles, int32_t matrices = 1);

// The same faces in any order.
FaceList shuffleFaces(const FaceList& faces);

// The corners of triangles as numbers, equal for equal corners.
struct TriangleIndices {
    std::vector<uint32_t> indices; // three a triangle
    uint32_t vertexCount = 0;
};
TriangleIndices indexTriangles(const FaceList& triangles);

// What strippers were measured to need on these meshes, in strips of the triangles (or of the quads); lists count each
// face as a strip.
struct StripReference {
    const char* mesh;
    double bestPeer; // vertices per triangle of the best of meshoptimizer 0.18, OpenSceneGraph 3.6, NvTriStrip,
                     // TriStripper
    double reached;  // the best that any method was seen to give
    double quads;    // vertices per quad of its quads, by annealing their axes; 0 when it has none
};
const std::vector<StripReference>& stripReferences();

} // namespace tvk
