#include "host/geometry/subdivision.h"

#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

class QuadCutter {
public:
    QuadCutter(const MeshTopology& topology, const std::vector<bool>& chosen) : topology_(topology), chosen_(chosen) {}

    CutMesh run() {
        numberMiddles();
        cutEdges();
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            cut_.firstFace.push_back(faces_->faceCount());
            for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
                const std::int32_t first = topology_.firstCornerOfLoop(face, loop);
                const std::int32_t last = topology_.firstCornerOfLoop(face, loop + 1);
                isCut(face) ? addQuads(face, first, last) : addLoop(first, last);
            }
            if (!isCut(face)) {
                closeFace();
            }
        }
        cut_.firstFace.push_back(faces_->faceCount());
        std::string problem;
        cut_.topology = MeshTopology::make(vertexCount_, std::move(edges_), std::move(faces_), problem);
        return std::move(cut_);
    }

private:
    bool isCut(std::int32_t face) const { return chosen_[at(face)] && !topology_.hasHoles(face); }

    void numberMiddles() {
        vertexCount_ = topology_.vertexCount();
        std::vector<bool> isEdgeCut(at(topology_.edgeCount()), false);
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            for (std::int32_t corner = topology_.firstCorner(face);
                 isCut(face) && corner < topology_.firstCorner(face + 1); ++corner) {
                isEdgeCut[at(MeshTopology::edgeNumber(topology_.cornerEdges()[at(corner)]))] = true;
            }
        }
        for (const bool isEdge : isEdgeCut) {
            cut_.edgeMiddles.push_back(isEdge ? vertexCount_++ : kGone);
        }
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            cut_.faceMiddles.push_back(isCut(face) ? vertexCount_++ : kGone);
        }
    }

    void cutEdges() {
        for (std::int32_t edge = 0; edge < topology_.edgeCount(); ++edge) {
            const MeshEdge& whole = topology_.edges()[at(edge)];
            const std::int32_t middle = cut_.edgeMiddles[at(edge)];
            cut_.firstEdge.push_back(edgeCount());
            if (middle == kGone) {
                edges_.push_back(whole);
            } else {
                edges_.push_back({whole.start, middle, whole.smooth});
                edges_.push_back({middle, whole.end, whole.smooth});
            }
        }
        cut_.firstEdge.push_back(edgeCount());
    }

    std::int32_t edgeCount() const { return static_cast<std::int32_t>(edges_.size()); }

    void addCorner(CutMesh::Source source, std::int32_t edge) {
        cut_.sources.push_back(source);
        faces_->edges.push_back(edge);
    }

    void closeLoop() { faces_->loopStarts.push_back(static_cast<std::int32_t>(faces_->edges.size())); }
    void closeFace() { faces_->faceStarts.push_back(static_cast<std::int32_t>(faces_->loopStarts.size()) - 1); }

    /// The first or second part of the edge that an old corner goes along, in that direction.
    std::int32_t partOf(std::int32_t corner, bool isSecond) const {
        const std::int32_t edge = topology_.cornerEdges()[at(corner)];
        const std::int32_t first = cut_.firstEdge[at(MeshTopology::edgeNumber(edge))];
        return edge >= 0 ? first + (isSecond ? 1 : 0) : -(first + (isSecond ? 0 : 1)) - 1;
    }

    void addLoop(std::int32_t first, std::int32_t last) {
        for (std::int32_t corner = first; corner < last; ++corner) {
            const std::int32_t edge = topology_.cornerEdges()[at(corner)];
            const std::int32_t number = cut_.firstEdge[at(MeshTopology::edgeNumber(edge))];
            if (cut_.edgeMiddles[at(MeshTopology::edgeNumber(edge))] == kGone) {
                addCorner({corner, corner}, edge >= 0 ? number : -number - 1);
            } else {
                addCorner({corner, corner}, partOf(corner, false));
                addCorner({corner, corner + 1 == last ? first : corner + 1}, partOf(corner, true));
            }
        }
        closeLoop();
    }

    /// A spoke goes from the middle of each edge to that of the face.
    void addQuads(std::int32_t face, std::int32_t first, std::int32_t last) {
        const std::int32_t firstSpoke = edgeCount();
        for (std::int32_t corner = first; corner < last; ++corner) {
            const std::int32_t edge = MeshTopology::edgeNumber(topology_.cornerEdges()[at(corner)]);
            edges_.push_back({cut_.edgeMiddles[at(edge)], cut_.faceMiddles[at(face)], true});
        }
        for (std::int32_t corner = first; corner < last; ++corner) {
            const std::int32_t before = corner == first ? last - 1 : corner - 1;
            const std::int32_t after = corner + 1 == last ? first : corner + 1;
            addCorner({corner, corner}, partOf(corner, false));
            addCorner({corner, after}, firstSpoke + corner - first);
            addCorner({kGone, face}, -(firstSpoke + before - first) - 1);
            addCorner({before, corner}, partOf(before, true));
            closeLoop();
            closeFace();
        }
    }

    const MeshTopology& topology_;
    const std::vector<bool>& chosen_;
    CutMesh cut_;
    std::int32_t vertexCount_ = 0;
    std::vector<MeshEdge> edges_;
    std::shared_ptr<PolyFaces> faces_ = std::make_shared<PolyFaces>();
};

} // namespace

CutMesh cutIntoQuads(const MeshTopology& topology, const std::vector<bool>& chosen) {
    return QuadCutter(topology, chosen).run();
}

bool isTooMuchToSubdivide(const MeshTopology& topology, std::int32_t levels) {
    constexpr double kCornersOfQuad = 4;
    double corners = topology.cornerCount();
    for (std::int32_t level = 0; level < levels && corners > 0 && corners <= kMostCorners; ++level) {
        corners *= kCornersOfQuad;
    }
    return corners > kMostCorners;
}

} // namespace host
