#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tvk {

using PlanePoint = std::array<double, 2>;

// Cuts a polygon into triangles by taking ears, the ear with the largest least angle first (lowest corner when equal).
// An ear is a convex corner whose triangle holds no other corner, its border included; corners at the same place as one
// of the triangle's do not count. What has no ear left becomes a fan round its lowest corner.
//   outline     at least three finite points, counter-clockwise; may cross itself
//   triangles   three corners each are appended, in the outline's order
// Near n log n as long as ears are short, n^2 at the worst.
void clipEars(const std::vector<PlanePoint>& outline, std::vector<std::array<int32_t, 3>>& triangles);

} // namespace tvk
