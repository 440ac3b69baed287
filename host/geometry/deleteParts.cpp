#include "host/geometry/deleteParts.h"

#include "host/geometry/cornerMesh.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

constexpr std::size_t kFewestCorners = 3;

/// A corner that a loop has now, and the old edge of the side that follows.
struct Corner {
    std::int32_t from, edge;
};
using Loop = std::vector<Corner>;

struct Face {
    std::int32_t from; // the lowest of the old faces
    std::vector<Loop> loops;
};

std::int32_t edgeOf(const MeshTopology& topology, std::int32_t corner) {
    return MeshTopology::edgeNumber(topology.cornerEdges()[at(corner)]);
}

Face wholeFace(const MeshTopology& topology, std::int32_t face) {
    Face whole{face, {}};
    for (std::int32_t loop = 0; loop < topology.loopCount(face); ++loop) {
        Loop corners;
        for (std::int32_t corner = topology.firstCornerOfLoop(face, loop);
             corner < topology.firstCornerOfLoop(face, loop + 1); ++corner) {
            corners.push_back({corner, edgeOf(topology, corner)});
        }
        whole.loops.push_back(std::move(corners));
    }
    return whole;
}

std::vector<Face> wholeFaces(const MeshTopology& topology) {
    std::vector<Face> faces;
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        faces.push_back(wholeFace(topology, face));
    }
    return faces;
}

/// Joins faces across edges.
class FaceJoiner {
public:
    FaceJoiner(const MeshTopology& topology, const std::vector<bool>& chosen)
        : topology_(topology), isGone_(at(topology.edgeCount()), false), parents_(identity(topology.faceCount())),
          twins_(at(topology.cornerCount()), kGone), isWalked_(at(topology.cornerCount()), false) {
        findTwins();
        for (std::int32_t corner = 0; corner < topology.cornerCount(); ++corner) {
            const std::int32_t edge = edgeOf(topology, corner);
            if (chosen[at(edge)] && twins_[at(corner)] != kGone) {
                isGone_[at(edge)] = true;
                join(topology.cornerFaces()[at(corner)], topology.cornerFaces()[at(twins_[at(corner)])]);
            }
        }
    }

    std::vector<Face> run() {
        std::vector<std::vector<std::int32_t>> members(parents_.size());
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            members[at(rootOf(face))].push_back(face);
        }
        std::vector<Face> faces;
        std::vector<Face> apart; // those that cannot be joined stay where they were
        for (const std::vector<std::int32_t>& set : members) {
            if (set.size() < 2) {
                for (const std::int32_t face : set) {
                    faces.push_back(wholeFace(topology_, face));
                }
                continue;
            }
            Loop outline = outlineOf(set);
            if (outline.size() >= kFewestCorners) {
                faces.push_back({set.front(), {std::move(outline)}});
                continue;
            }
            for (const std::int32_t face : set) {
                apart.push_back(wholeFace(topology_, face));
                keepEdges(face);
            }
        }
        faces.insert(faces.end(), apart.begin(), apart.end());
        std::sort(faces.begin(), faces.end(), [](const Face& a, const Face& b) { return a.from < b.from; });
        return faces;
    }

    const std::vector<bool>& goneEdges() const { return isGone_; }

private:
    /// The corner of the face on the other side of each edge that may go.
    void findTwins() {
        const IndexLists& faces = topology_.facesOfEdge();
        Ids firstCorner(at(topology_.edgeCount()), kGone);
        for (std::int32_t corner = 0; corner < topology_.cornerCount(); ++corner) {
            const std::int32_t edge = edgeOf(topology_, corner);
            const std::int32_t other = firstCorner[at(edge)];
            const std::int32_t face = topology_.cornerFaces()[at(corner)];
            if (other == kGone) {
                firstCorner[at(edge)] = corner;
            } else if (faces.count(edge) == 2 && faces.begin(edge)[0] != faces.begin(edge)[1] &&
                       !topology_.hasHoles(face) && !topology_.hasHoles(topology_.cornerFaces()[at(other)]) &&
                       topology_.cornerEdges()[at(corner)] != topology_.cornerEdges()[at(other)]) {
                twins_[at(corner)] = other;
                twins_[at(other)] = corner;
            }
        }
    }

    std::int32_t rootOf(std::int32_t face) {
        while (parents_[at(face)] != face) {
            face = parents_[at(face)] = parents_[at(parents_[at(face)])];
        }
        return face;
    }

    void join(std::int32_t a, std::int32_t b) {
        const std::int32_t first = rootOf(a);
        const std::int32_t second = rootOf(b);
        parents_[at(std::max(first, second))] = std::min(first, second);
    }

    void keepEdges(std::int32_t face) {
        for (std::int32_t corner = topology_.firstCorner(face); corner < topology_.firstCorner(face + 1); ++corner) {
            isGone_[at(edgeOf(topology_, corner))] = false;
        }
    }

    std::int32_t nextOf(std::int32_t corner) const {
        const std::int32_t face = topology_.cornerFaces()[at(corner)];
        return corner + 1 == topology_.firstCorner(face + 1) ? topology_.firstCorner(face) : corner + 1;
    }

    /// The one loop around joined faces; empty when there is none, or more than one.
    Loop outlineOf(const std::vector<std::int32_t>& set) {
        Loop outline;
        for (const std::int32_t face : set) {
            for (std::int32_t corner = topology_.firstCorner(face); corner < topology_.firstCorner(face + 1);
                 ++corner) {
                if (isWalked_[at(corner)] || isGone_[at(edgeOf(topology_, corner))]) {
                    continue;
                }
                Loop loop = withoutSpikes(walk(corner));
                if (!loop.empty() && !outline.empty()) {
                    return {};
                }
                outline = outline.empty() ? std::move(loop) : std::move(outline);
            }
        }
        return outline;
    }

    Loop walk(std::int32_t first) {
        Loop loop;
        for (std::int32_t corner = first; !isWalked_[at(corner)];) {
            isWalked_[at(corner)] = true;
            loop.push_back({corner, edgeOf(topology_, corner)});
            corner = nextOf(corner);
            while (isGone_[at(edgeOf(topology_, corner))]) {
                corner = nextOf(twins_[at(corner)]);
            }
        }
        return loop;
    }

    /// Leaves out edges that the loop goes along and straight back.
    static Loop withoutSpikes(const Loop& loop) {
        Loop kept;
        for (const Corner& corner : loop) {
            if (!kept.empty() && kept.back().edge == corner.edge) {
                kept.pop_back();
            } else {
                kept.push_back(corner);
            }
        }
        std::size_t first = 0;
        while (kept.size() - first > 1 && kept[first].edge == kept.back().edge) {
            kept.pop_back();
            ++first;
        }
        kept.erase(kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(first));
        return kept;
    }

    const MeshTopology& topology_;
    std::vector<bool> isGone_; // per edge
    Ids parents_;              // per face
    Ids twins_;                // per corner
    std::vector<bool> isWalked_;
};

/// Takes vertices with two edges out of all faces.
class VertexRemover {
public:
    VertexRemover(const MeshTopology& topology, std::vector<Face>& faces)
        : topology_(topology), faces_(faces), first_(at(topology.vertexCount()), kGone), second_(first_),
          hasMore_(at(topology.vertexCount()), false) {}

    /// How many of the candidates stay.
    std::int32_t run(const std::vector<bool>& candidates) {
        findEdges();
        std::vector<bool> goes(candidates.size(), false);
        std::int32_t left = 0;
        for (std::int32_t vertex = 0; vertex < topology_.vertexCount(); ++vertex) {
            goes[at(vertex)] = candidates[at(vertex)] && second_[at(vertex)] != kGone && !hasMore_[at(vertex)];
            left += candidates[at(vertex)] && !goes[at(vertex)] ? 1 : 0;
        }
        left += keepNeeded(goes);
        joinEdges(goes);
        for (Face& face : faces_) {
            for (Loop& loop : face.loops) {
                removeFrom(loop, goes);
            }
        }
        return left;
    }

private:
    std::int32_t vertexOf(const Corner& corner) const { return topology_.cornerVertices()[at(corner.from)]; }

    void findEdges() {
        for (const Face& face : faces_) {
            for (const Loop& loop : face.loops) {
                for (std::size_t i = 0; i < loop.size(); ++i) {
                    addEdge(vertexOf(loop[i]), loop[i].edge);
                    addEdge(vertexOf(loop[i]), loop[(i + loop.size() - 1) % loop.size()].edge);
                }
            }
        }
    }

    void addEdge(std::int32_t vertex, std::int32_t edge) {
        if (first_[at(vertex)] == kGone || first_[at(vertex)] == edge) {
            first_[at(vertex)] = edge;
        } else if (second_[at(vertex)] == kGone || second_[at(vertex)] == edge) {
            second_[at(vertex)] = edge;
        } else {
            hasMore_[at(vertex)] = true;
        }
    }

    /// A loop that would be left with too few corners keeps all of them. Returns how many vertices stay for that.
    std::int32_t keepNeeded(std::vector<bool>& goes) const {
        std::int32_t kept = 0;
        for (bool isChanged = true; isChanged;) {
            isChanged = false;
            for (const Face& face : faces_) {
                for (const Loop& loop : face.loops) {
                    const auto leaves = [&](const Corner& corner) { return goes[at(vertexOf(corner))]; };
                    const auto count = static_cast<std::size_t>(std::count_if(loop.begin(), loop.end(), leaves));
                    if (count == 0 || loop.size() - count >= kFewestCorners) {
                        continue;
                    }
                    for (const Corner& corner : loop) {
                        kept += goes[at(vertexOf(corner))] ? 1 : 0;
                        goes[at(vertexOf(corner))] = false;
                    }
                    isChanged = true;
                }
            }
        }
        return kept;
    }

    /// Edges along a chain of vertices that go become the lowest of them.
    void joinEdges(const std::vector<bool>& goes) {
        lowest_ = identity(topology_.edgeCount());
        for (std::int32_t vertex = 0; vertex < topology_.vertexCount(); ++vertex) {
            if (goes[at(vertex)]) {
                const std::int32_t a = rootOf(first_[at(vertex)]);
                const std::int32_t b = rootOf(second_[at(vertex)]);
                lowest_[at(std::max(a, b))] = std::min(a, b);
            }
        }
    }

    std::int32_t rootOf(std::int32_t edge) {
        while (lowest_[at(edge)] != edge) {
            edge = lowest_[at(edge)] = lowest_[at(lowest_[at(edge)])];
        }
        return edge;
    }

    void removeFrom(Loop& loop, const std::vector<bool>& goes) {
        loop.erase(
            std::remove_if(loop.begin(), loop.end(), [&](const Corner& corner) { return goes[at(vertexOf(corner))]; }),
            loop.end());
        for (Corner& corner : loop) {
            corner.edge = rootOf(corner.edge);
        }
    }

    const MeshTopology& topology_;
    std::vector<Face>& faces_;
    Ids first_, second_; // per vertex, its edges
    std::vector<bool> hasMore_;
    Ids lowest_; // per edge, towards the one that it becomes
};

std::shared_ptr<MeshData> meshOf(const MeshData& mesh, const std::vector<Face>& faces) {
    const MeshTopology& topology = *mesh.topology;
    std::vector<bool> used(at(topology.vertexCount()), false);
    for (const Face& face : faces) {
        for (const Loop& loop : face.loops) {
            for (const Corner& corner : loop) {
                used[at(topology.cornerVertices()[at(corner.from)])] = true;
            }
        }
    }
    NewNumbers numbers;
    numbers.vertices = numberUsed(used);
    numbers.faces.assign(at(topology.faceCount()), kGone);
    CornerMesh made(std::make_shared<Points>(pick(*mesh.points, numbers.vertices)));
    for (const Face& face : faces) {
        numbers.faces[at(face.from)] = made.faceCount();
        for (const Loop& loop : face.loops) {
            for (const Corner& corner : loop) {
                const bool isWhole = corner.edge == edgeOf(topology, corner.from);
                made.addCorner(corner.from, numbers.vertices[at(topology.cornerVertices()[at(corner.from)])],
                               isWhole ? topology.cornerEdges()[at(corner.from)] : corner.edge);
            }
            made.closeLoop();
        }
        made.closeFace();
    }
    RebuiltMesh result = rebuilt(mesh, made);
    numbers.edges = newEdgeNumbers(result.edgeFrom, topology.edgeCount());
    for (ComponentGroup& group : result.mesh->groups) {
        group.components = renumbered(*group.components, numbers);
    }
    for (UvSet& set : result.mesh->uvSets) {
        dropUnusedUvs(set);
    }
    return result.mesh;
}

} // namespace

DeletedParts deleteEdges(const MeshData& mesh, const std::vector<bool>& chosen, bool cleans) {
    const MeshTopology& topology = *mesh.topology;
    FaceJoiner joiner(topology, chosen);
    std::vector<Face> faces = joiner.run();
    DeletedParts result;
    std::vector<bool> ends(at(topology.vertexCount()), false);
    for (std::int32_t edge = 0; edge < topology.edgeCount(); ++edge) {
        const bool isGone = joiner.goneEdges()[at(edge)];
        result.leftCount += chosen[at(edge)] && !isGone ? 1 : 0;
        if (isGone) {
            ends[at(topology.edges()[at(edge)].start)] = ends[at(topology.edges()[at(edge)].end)] = true;
        }
    }
    if (cleans) {
        VertexRemover(topology, faces).run(ends);
    }
    result.mesh = meshOf(mesh, faces);
    return result;
}

DeletedParts deleteVertices(const MeshData& mesh, const std::vector<bool>& chosen) {
    std::vector<Face> faces = wholeFaces(*mesh.topology);
    DeletedParts result;
    result.leftCount = VertexRemover(*mesh.topology, faces).run(chosen);
    result.mesh = meshOf(mesh, faces);
    return result;
}

} // namespace host
