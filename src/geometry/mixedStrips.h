#pragma once

#include <cstdint>
#include <vector>

namespace tvk {

// Strips of triangles and of quads over the same vertices, each as its vertices in sending order.
struct StripSet {
    std::vector<std::vector<int32_t>> triangleStrips; // n + 2 vertices for n triangles
    std::vector<std::vector<int32_t>> quadStrips;     // 2n + 2 for n quads
};

// The vertices that a set sends.
std::size_t vertexCount(const StripSet& strips);

// Turns quad strips into triangle strips where triangles go on from their ends: a quad strip sends the same vertices as
// its triangles in one strip would, and every join to another strip saves two. Quad strips of few quads go first.
//   allowance   how many quads may become two triangles
//   returns     how many did
int64_t joinMixedStrips(StripSet& strips, int64_t allowance);

} // namespace tvk
