#pragma once

#include "host/geometry/meshNumbers.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace host {

/// Faces cut into quads, as many as they have corners, around their middle and those of their edges. Vertices keep
/// their numbers; behind them come the edges' middles, then the faces'. The two parts of an edge are as hard or soft as
/// it was and follow each other where it stood, as do the parts of a face, each from its old corner; edges within faces
/// are soft and come last. Faces beside cut ones get the edges' middles as corners.
struct CutMesh {
    /// What a corner was: the corner `first`; halfway between two corners of a face that follow each other; or, when
    /// `first` is kGone, the middle of the face `second`.
    struct Source {
        std::int32_t first, second;
        bool isOld() const { return first == second; }
    };

    std::shared_ptr<const MeshTopology> topology;
    Ids edgeMiddles, faceMiddles; // per old edge and face, the vertex in its middle or kGone
    Ids firstEdge, firstFace;     // per old edge and face, its first part; one entry more than there are
    std::vector<Source> sources;  // per corner
};

/// Faces with holes are not cut, whatever `chosen` says.
CutMesh cutIntoQuads(const MeshTopology& topology, const std::vector<bool>& chosen);

/// More corners than this are not made.
constexpr double kMostCorners = 1 << 25;
/// Whether cutting all faces so many times could lead to more.
bool isTooMuchToSubdivide(const MeshTopology& topology, std::int32_t levels);

/// The faces for which `chosen` is true cut so often as `levels` says, which must not be too much. Middles are
/// averages, of UVs and colours too, and those are shared where the faces shared theirs. User normals stay; those of
/// new corners are computed.
std::shared_ptr<MeshData> subdivideFaces(const MeshData& mesh, const std::vector<bool>& chosen, std::int32_t levels);

struct SmoothRules {
    bool smoothsUvs = true;     // within the borders of each set; else new ones lie halfway
    bool keepsHardness = false; // else all edges become soft
};

/// The whole mesh cut so often, each time rounded by the rule of Catmull and Clark. Borders stay where they are, and so
/// do edges where more than two faces meet. User normals go.
std::shared_ptr<MeshData> smoothFaces(const MeshData& mesh, std::int32_t levels, const SmoothRules& rules);

} // namespace host
