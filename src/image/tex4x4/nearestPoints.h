#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

using Point6 = std::array<float, 6>;

/// For every point the indices of its nearest others, the nearest first.
///   neighbours   how many are looked for; fewer are found when there are fewer points
/// The work is linear in the points, but for a logarithm: crowded places are not searched to the end, so that the last
/// neighbours of a point there may be a little farther than the truly nearest.
std::vector<std::vector<uint32_t>> findNearest(const std::vector<Point6>& points, size_t neighbours);

} // namespace tvk
