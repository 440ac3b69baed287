#pragma once

#include "geometry/StripMesh.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tvk::test {

// Linked triangles.
StripMesh makeTriangles(const std::vector<std::array<int32_t, 3>>& triangles);

// A closed fan of triangles round vertex 0.
StripMesh makeFan(int32_t triangles);

// A sheet with holes and seams of about as many triangles, and one of quads.
StripMesh makeRandomTriangles(int32_t triangles, uint32_t seed);
StripMesh makeRandomQuads(int32_t quads, uint32_t seed);

// The triangles of a mesh, or of strips, each turned so that its lowest vertex comes first, in order.
std::vector<std::array<int32_t, 3>> sortedTriangles(const StripMesh& mesh);
std::vector<std::array<int32_t, 3>> sortedTriangles(const std::vector<std::vector<int32_t>>& strips);

// The same of quads.
std::vector<std::array<int32_t, 4>> sortedQuads(const StripMesh& mesh);
std::vector<std::array<int32_t, 4>> sortedQuads(const std::vector<std::vector<int32_t>>& strips);

} // namespace tvk::test
