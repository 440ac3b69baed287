#pragma once

#include "host/geometry/MeshData.h"

#include <cstdint>

namespace host {

// The meshes that the real host's creation nodes make, around the origin, upright along y: order of vertices, edges,
// faces and texture coordinates, hard edges and all. Lengths are in centimetres, angles in radians. Counts below the
// fewest possible are raised to it; more than kMostFaces faces give an empty mesh.

constexpr double kMostFaces = 1 << 22;

struct CubeShape {
    double width = 1, height = 1, depth = 1; // along x, y, z
    std::int32_t divisionsWidth = 1, divisionsHeight = 1, divisionsDepth = 1;
    bool uvs = true;
};
std::shared_ptr<MeshData> makeCube(const CubeShape& shape);

struct PlaneShape {
    double width = 1, height = 1; // along x, z
    std::int32_t divisionsWidth = 10, divisionsHeight = 10;
    bool uvs = true;
};
std::shared_ptr<MeshData> makePlane(const PlaneShape& shape);

struct SphereShape {
    double radius = 1;
    std::int32_t divisionsAxis = 20, divisionsHeight = 20;
    bool uvs = true;
};
std::shared_ptr<MeshData> makeSphere(const SphereShape& shape);

struct CylinderShape {
    double radius = 1, height = 2;
    std::int32_t divisionsAxis = 20, divisionsHeight = 1;
    bool fanCaps = true; // caps of triangles around a middle vertex; else one face each
    bool uvs = true;
    bool hardSides = false; // of a prism, all edges between the caps are hard
};
std::shared_ptr<MeshData> makeCylinder(const CylinderShape& shape);

struct ConeShape {
    double radius = 1, height = 2;
    std::int32_t divisionsAxis = 20, divisionsHeight = 1;
    bool fanCap = false;
    bool uvs = true;
    bool hardSides = false; // of a pyramid, all edges up to the apex are hard
};
std::shared_ptr<MeshData> makeCone(const ConeShape& shape);

struct TorusShape {
    double radius = 1, sectionRadius = 0.5, twist = 0;
    std::int32_t divisionsAxis = 20, divisionsHeight = 20;
    bool uvs = true;
};
std::shared_ptr<MeshData> makeTorus(const TorusShape& shape);

} // namespace host
