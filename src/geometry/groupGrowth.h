#pragma once

#include "geometry/MatrixSet.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace tvk {

// Faces that need the same matrices, which are numbered from 0 in order of first use.
// Inner to this room: matrixGrouping.h is its door.
struct MatrixBucket {
    MatrixSet matrices;
    std::vector<int32_t> faces; // ascending, at least one
};

// The buckets of each group, in sending order; each bucket is in one group, and a group needs at most 31 matrices.
using BucketGroups = std::vector<std::vector<std::size_t>>;

// Each group begins with the bucket that needs the fewest loads and grows by the bucket that adds the fewest matrices,
// then the fewest loads, then the most faces, then the lowest bucket. Best for matrices that are spread at random.
//   progress   called after each group with the part of the buckets that have one; may be empty
BucketGroups growGroups(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount,
                        const std::function<void(double)>& progress);

} // namespace tvk
