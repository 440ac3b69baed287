#pragma once

#include "geometry/Corner.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tvk {

// Faces of one size and how they hang together. Edge k of a face goes from its corner k to the next one.
// Inner to this room: the strip builders share it.
struct StripMesh {
    // Stands for "no neighbour".
    static constexpr uint32_t kNone = 0xffffffffu;

    uint32_t sides = 3;                          // 3 or 4
    std::vector<std::array<int32_t, 4>> corners; // per face its vertices; the fourth is -1 for triangles
    std::vector<std::array<uint32_t, 4>> across; // per face and edge: neighbour * 4 + the neighbour's edge, or kNone

    std::size_t faceCount() const { return corners.size(); }
};

inline uint32_t neighbourOf(uint32_t across) {
    return across >> 2;
}
inline uint32_t edgeOf(uint32_t across) {
    return across & 3u;
}

// The distinct corners of some faces.
struct WeldedCorners {
    std::vector<Corner> vertices; // in order of first use
    std::vector<int32_t> indices; // per corner of the given faces, one face after the other, into vertices
};

// Finds equal corners. Linear in the corners when their positions are dense, n log n otherwise.
//   faces    the source
//   starts   faceStarts(faces)
//   chosen   which faces
WeldedCorners weldCorners(const FaceList& faces, const std::vector<std::size_t>& starts,
                          const std::vector<int32_t>& chosen);

// Fills `across` from `corners`: an edge from a to b meets one from b to a of another face. Where more than two faces
// meet, those with the lowest index pair up. Time is n log n at the worst.
void linkFaces(StripMesh& mesh);

// Faces that are improved together; their labels and neighbours fit into a processor's second cache.
inline constexpr std::size_t kStripPatchSize = 16384;

// Numbers the faces anew so that faces with near numbers are near each other, in patches of kStripPatchSize. Meshes
// that are one patch stay as they are. Linear in the faces.
void sortIntoPatches(StripMesh& mesh);

} // namespace tvk
