#pragma once

#include "geometry/StripMesh.h"

#include <cstdint>
#include <vector>

namespace tvk {

// Strips of triangles, seen as one choice per triangle: the corner it turns about. It uses the two edges at that
// corner, the one that leaves it (its out edge) and the one that arrives there (its in edge). Two neighbours follow
// each other in a strip exactly when they turn about opposite ends of the edge between them, which means that it is the
// out edge of both or the in edge of both. So joins of out edges and of in edges alternate along a strip.
//
// The first triangle of a strip shows its front when the strip leaves it through its out edge. Read from either end, a
// strip of two or more triangles therefore starts well unless both ends are in edges; then it must be cut in two.
using PivotLabels = std::vector<uint8_t>; // per triangle its corner, 0 to 2

// The triangle behind the out edge of a triangle, StripMesh::kNone when nothing is joined there.
uint32_t behindOutEdge(const StripMesh& mesh, const PivotLabels& pivots, uint32_t triangle);
uint32_t behindInEdge(const StripMesh& mesh, const PivotLabels& pivots, uint32_t triangle);

// How many strips the labels stand for: chains, one per ring, and one more per chain that cannot start well.
std::size_t countTriangleStrips(const StripMesh& mesh, const PivotLabels& pivots);

// Per triangle the number of the connected piece that it belongs to, from 0 in order of the lowest triangle.
std::vector<uint32_t> findComponents(const StripMesh& mesh);

// For every component the labels that make the fewest strips of it, the earliest of equals.
//   candidates   at least one
PivotLabels bestByComponent(const StripMesh& mesh, const std::vector<uint32_t>& components,
                            const std::vector<PivotLabels>& candidates);

// The strips as vertices in sending order: n + 2 for n triangles, a single triangle in winding order. In order of their
// lowest triangle.
std::vector<std::vector<int32_t>> readTriangleStrips(const StripMesh& mesh, const PivotLabels& pivots);

// The least number of strips that any method can reach on a mesh (each fan of triangles round a vertex leaves at least
// a third of its spokes open): often far below what can be reached.
std::size_t leastTriangleStrips(const StripMesh& mesh, const std::vector<uint32_t>& components);

} // namespace tvk
