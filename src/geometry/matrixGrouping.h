#pragma once

#include "geometry/Corner.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tvk {

// The faces that are sent with one filling of the matrix slots.
struct FaceGroup {
    std::vector<int32_t> matrices; // as MatrixGroup::matrices
    std::vector<int32_t> faces;    // ascending
};

// Divides faces into groups of at most 31 matrices, in sending order, so that few matrices are loaded twice.
//   faces      triangles and quads
//   progress   called now and then with the faces that have their group, out of all; may be empty
// Every face is in exactly one group. With at most 31 matrices there is one group, its list in order of first use;
// otherwise every later group loads at least one matrix. Time is n log n in the faces' matrices.
std::vector<FaceGroup> groupByMatrices(const FaceList& faces, const std::function<void(double)>& progress = {});

} // namespace tvk
