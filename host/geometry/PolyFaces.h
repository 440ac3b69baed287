#pragma once

#include "host/graph/Data.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace host {

/// Ids (of texture coordinates or colours) that some faces have in one set: for the n-th of the faces that have any,
/// its number faces[n] and its ids, ids[starts[n]] … ids[starts[n + 1]] - 1, one per corner of the face.
struct FaceIds {
    std::vector<std::int32_t> faces;  // ascending
    std::vector<std::int32_t> starts; // one entry more than `faces` has; {0} while empty
    std::vector<std::int32_t> ids;    // a colour id of -1 means that the corner has no colour

    FaceIds() : starts{0} {}
    /// The ids of a face; null (count 0) when it has none in this set. Constant time when all faces up to this one
    /// have ids, else logarithmic.
    const std::int32_t* find(std::int32_t face, std::int32_t& count) const;
};

/// The value of a mesh's `face` attribute as the file gives it: loops of edge numbers, and ids per corner. All faces
/// are one object, never one per face: it is held at element 0 of the array (fc[0]), whatever range the file names.
/// Face f has the loops faceStarts[f] … faceStarts[f + 1] - 1, its outer loop first, then holes; loop l has the edges
/// edges[loopStarts[l]] … edges[loopStarts[l + 1] - 1]. Edge value e >= 0 is edge e walked forward, e < 0 is edge
/// -e - 1 walked backward. The corners of a face are the starts of its edges in that order.
/// Edge and id numbers are not checked against the mesh here.
struct PolyFaces final : Data {
    PolyFaces() : Data(DataKind::kPolyFaces) {}

    std::int32_t faceCount() const { return static_cast<std::int32_t>(faceStarts.size()) - 1; }
    std::int32_t firstCorner(std::int32_t face) const {
        return loopStarts[static_cast<std::size_t>(faceStarts[static_cast<std::size_t>(face)])];
    }
    /// Corners of all loops of a face.
    std::int32_t cornerCount(std::int32_t face) const { return firstCorner(face + 1) - firstCorner(face); }
    bool hasHoles(std::int32_t face) const {
        const auto at = static_cast<std::size_t>(face);
        return faceStarts[at + 1] - faceStarts[at] > 1;
    }

    std::vector<std::int32_t> faceStarts{0}; // into loopStarts
    std::vector<std::int32_t> loopStarts{0}; // into edges
    std::vector<std::int32_t> edges;
    std::map<std::int32_t, FaceIds> uvIds;    // by physical index of the UV set; old single-set forms are set 0
    std::map<std::int32_t, FaceIds> colorIds; // by index of the colour set; the old single colour list is set 0
};

} // namespace host
