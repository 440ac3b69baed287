#pragma once

#include <cstdint>
#include <vector>

namespace tvk {

/// One face-vertex as the file sends it: five indices into the model's tables.
/// Two corners are the same vertex only when all five agree, so that no strip runs across a seam of any kind.
struct Corner {
    int32_t matrix = 0;    // into the matrix list, 0 or more
    int32_t texCoord = -1; // -1: the polygon has no texture coordinates
    int32_t color = -1;    // -1: the polygon has no colours
    int32_t normal = -1;   // -1: the polygon has no normals
    int32_t position = 0;  // into the position table, 0 or more
};

inline bool operator==(const Corner& a, const Corner& b) {
    return a.position == b.position && a.normal == b.normal && a.texCoord == b.texCoord && a.color == b.color &&
           a.matrix == b.matrix;
}
inline bool operator!=(const Corner& a, const Corner& b) {
    return !(a == b);
}

/// The faces of one polygon, already split: triangles and quads only (geometry/faceSplitting.h makes them).
struct FaceList {
    std::vector<Corner> corners; // of all faces, one face after the other, in the order in which they wind
    std::vector<uint8_t> sizes;  // per face its number of corners, 3 or 4; their sum is corners.size()
};

} // namespace tvk
