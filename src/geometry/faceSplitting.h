#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tvk {

// One corner of a face as the mesh has it.
struct FacePoint {
    std::array<double, 3> point{};      // in the mesh's own space, finite or not; shapes the split
    std::array<int32_t, 3> quantised{}; // the position as it is written, each component within 16 bits
    int32_t matrix = 0;                 // points on different matrices may part when the model moves
};

// The triangles and quads of a face, each winding as the face does.
struct SplitFaces {
    std::vector<int32_t> corners; // into the face's points, one part after the other
    std::vector<uint8_t> sizes;   // per part 3 or 4
};

// Largest angle between the two halves of a quad, along either diagonal, at which it still counts as flat.
inline constexpr double kQuadFoldDegrees = 10.0;

// Cleans a face and splits it into what the console draws.
//   face      any number of points, in winding order
//   parts     emptied, then filled; stays empty when the face has no area to draw
// - Neighbouring points with the same written position and matrix count once; fewer than three left give nothing.
// - Parts whose written positions have no area are dropped when they lie on one matrix.
// - A quad stays one when it is convex (one straight corner is allowed) and folds by at most kQuadFoldDegrees.
//   Otherwise: from its reflex or straight corner; a folded one along the shorter diagonal (0-2 when equal); a crossed
//   one along the diagonal whose smaller half has the larger area.
// - Larger faces lose ears in the plane of their Newell normal, the ear with the largest least angle first (lowest
// corner
//   when equal). Crossed faces that have no ear left, faces without a plane and faces with points that are not finite
//   become a fan round their first remaining corner.
// A face of n corners takes time near n log n as long as its ears are short; n^2 at the worst.
void splitFace(const std::vector<FacePoint>& face, SplitFaces& parts);

} // namespace tvk
