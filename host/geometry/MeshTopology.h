#pragma once

#include "host/geometry/Lazy.h"
#include "host/geometry/PolyFaces.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace host {

struct MeshEdge {
    std::int32_t start = 0, end = 0; // vertices
    bool smooth = true;              // false: hard, the normals on both sides are apart
};

/// Lists of many owners in one block: the items of owner n are items[starts[n]] … items[starts[n + 1]] - 1.
struct IndexLists {
    std::vector<std::int32_t> starts{0};
    std::vector<std::int32_t> items;

    const std::int32_t* begin(std::int32_t owner) const {
        return items.data() + starts[static_cast<std::size_t>(owner)];
    }
    const std::int32_t* end(std::int32_t owner) const { return begin(owner + 1); }
    std::int32_t count(std::int32_t owner) const { return static_cast<std::int32_t>(end(owner) - begin(owner)); }
};

/// Which corners share a normal: normal id per corner, and how many ids there are. Two corners of a vertex share one
/// when their faces meet in a soft edge at that vertex, also by way of other faces. Ids are given in order of first
/// occurrence, faces in order, corners in order.
struct NormalFans {
    std::vector<std::int32_t> ofCorner;
    std::int32_t count = 0;
};

/// How the vertices of a mesh are connected: immutable, and shared by all meshes that a deformer makes of one.
/// A "corner" is a vertex of a face; the corners of all faces are numbered on end, so corner c of face f is
/// firstCorner(f) + c. Holes' corners follow those of the outer loop of their face.
class MeshTopology {
public:
    /// The topology of `vertexCount` vertices. What cannot be is cut: faces from the first one on that names an edge
    /// which is not there, does not close, or has another number of corners than ids. An edge with a vertex that is not
    /// there cuts all. `problem` then says what was wrong, one line without a full stop ("face 3 does not close: edge 5
    /// ends at vertex 7, edge -4 begins at vertex 2"); it stays untouched when nothing was.
    static std::shared_ptr<const MeshTopology> make(std::int32_t vertexCount, std::vector<MeshEdge> edges,
                                                    std::shared_ptr<const PolyFaces> faces, std::string& problem);
    /// No vertices, no edges, no faces.
    static std::shared_ptr<const MeshTopology> empty();

    std::int32_t vertexCount() const { return vertexCount_; }
    std::int32_t edgeCount() const { return static_cast<std::int32_t>(edges_.size()); }
    std::int32_t faceCount() const { return faces_->faceCount(); }
    std::int32_t cornerCount() const { return static_cast<std::int32_t>(cornerVertices_.size()); }

    const std::vector<MeshEdge>& edges() const { return edges_; }
    /// Vertex of each corner.
    const std::vector<std::int32_t>& cornerVertices() const { return cornerVertices_; }
    /// Of each corner, the edge that begins there, as PolyFaces writes it: e >= 0 walked forward, e < 0 edge -e - 1
    /// backward.
    const std::vector<std::int32_t>& cornerEdges() const { return faces_->edges; }
    static std::int32_t edgeNumber(std::int32_t cornerEdge) { return cornerEdge >= 0 ? cornerEdge : -cornerEdge - 1; }

    std::int32_t firstCorner(std::int32_t face) const { return faces_->firstCorner(face); }
    std::int32_t cornerCount(std::int32_t face) const { return faces_->cornerCount(face); }
    /// Outer loop and holes; at least 1.
    std::int32_t loopCount(std::int32_t face) const;
    /// First corner of a loop of a face (0 = outer); for loop == loopCount the corner after the last.
    std::int32_t firstCornerOfLoop(std::int32_t face, std::int32_t loop) const;
    bool hasHoles(std::int32_t face) const { return faces_->hasHoles(face); }
    /// The vertices of a face in order, cornerCount(face) of them.
    const std::int32_t* verticesOf(std::int32_t face) const { return cornerVertices_.data() + firstCorner(face); }

    /// Face of each corner. The following are worked out once, when asked for.
    const std::vector<std::int32_t>& cornerFaces() const;
    const NormalFans& normalFans() const;
    const IndexLists& facesOfEdge() const;     // ascending; a face that has an edge twice stands there twice
    const IndexLists& cornersOfVertex() const; // ascending
    const IndexLists& edgesOfVertex() const;   // ascending

    /// The loops as PolyFaces holds them; its ids are not this mesh's (see MeshData).
    const std::shared_ptr<const PolyFaces>& faces() const { return faces_; }

private:
    MeshTopology() = default;

    std::int32_t vertexCount_ = 0;
    std::vector<MeshEdge> edges_;
    std::shared_ptr<const PolyFaces> faces_;
    std::vector<std::int32_t> cornerVertices_;
    Lazy<std::vector<std::int32_t>> cornerFaces_;
    Lazy<NormalFans> normalFans_;
    Lazy<IndexLists> facesOfEdge_, cornersOfVertex_, edgesOfVertex_;
};

} // namespace host
