#pragma once

#include "geometry/StripMesh.h"
#include "geometry/annealing.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tvk {

// Strips of quads, seen as one choice per quad: the pair of opposite edges through which a strip passes it, edges 0 and
// 2 or edges 1 and 3. Neighbours follow each other in a strip exactly when both use the edge between them.
using QuadAxes = std::vector<uint8_t>; // per quad 0 or 1

// How many strips the labels stand for; a ring is one.
std::size_t countQuadStrips(const StripMesh& mesh, const QuadAxes& axes);

// The strips as vertices in sending order: 2n + 2 for n quads. In order of their lowest end, rings last. A single quad
// is two pairs, too: corner 0, 1, 3, 2.
std::vector<std::vector<int32_t>> readQuadStrips(const StripMesh& mesh, const QuadAxes& axes);

// Labels for a first set of strips: each starts at the quad with the fewest free neighbours and takes the longer of the
// two ways through it. Linear in the quads.
QuadAxes greedyAxes(const StripMesh& mesh);

// Labels for a first set of strips, the longest of the whole mesh first. About n log n.
QuadAxes longestAxes(const StripMesh& mesh);

// Changes `axes` for fewer strips; keeps them when nothing better was found. A join weighs 8 units.
//   seed   of the random changes
//   done   called now and then with the part of the work done, 0 to 1; may be empty
void annealAxes(const StripMesh& mesh, const AnnealPlan& plan, uint64_t seed, QuadAxes& axes,
                const std::function<void(double)>& done = {});

} // namespace tvk
