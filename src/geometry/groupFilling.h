#pragma once

#include "geometry/groupGrowth.h"

#include <cstddef>
#include <vector>

namespace tvk {

// Each group takes buckets in a given order until the next one does not fit; whatever needs none but the group's
// matrices comes along at once. Best where the order keeps matrices together that are used together. Linear in the
// buckets' uses of matrices.
//   order   every bucket once
BucketGroups fillGroups(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount,
                        const std::vector<std::size_t>& order);

// The order in which the mesh's faces first use the buckets: modellers work limb by limb.
std::vector<std::size_t> faceOrder(const std::vector<MatrixBucket>& buckets);

// An order that goes from one end of the skeleton to the other: matrices are ranked breadth first over those that share
// a bucket, from one that is far out, and buckets follow the highest of their ranks.
std::vector<std::size_t> bandOrder(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount);

} // namespace tvk
