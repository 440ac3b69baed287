#include "host/geometry/detachment.h"

#include "host/geometry/cornerMesh.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

/// Gives faces vertices of their own.
class Detacher {
public:
    Detacher(const MeshData& mesh, const std::vector<bool>& chosen, bool together)
        : mesh_(mesh), topology_(*mesh.topology), chosen_(chosen), together_(together),
          made_(std::make_shared<Points>(*mesh.points)), isTaken_(at(topology_.vertexCount()), false),
          ownVertex_(at(topology_.vertexCount()), kGone), ownerOf_(at(topology_.vertexCount()), kGone) {}

    std::shared_ptr<MeshData> detach() {
        takeOthers();
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            addFace(face, chosen_[at(face)]);
        }
        return rebuilt(mesh_, made_).mesh;
    }

    std::shared_ptr<MeshData> duplicate() {
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            addFace(face, false);
        }
        std::fill(isTaken_.begin(), isTaken_.end(), true);
        copies_.assign(at(topology_.faceCount()), kGone);
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (chosen_[at(face)]) {
                copies_[at(face)] = made_.faceCount();
                addFace(face, true);
            }
        }
        const auto mesh = rebuilt(mesh_, made_).mesh;
        for (ComponentGroup& group : mesh->groups) {
            group.components = withCopies(*group.components);
        }
        return mesh;
    }

private:
    void takeOthers() {
        for (std::int32_t corner = 0; corner < topology_.cornerCount(); ++corner) {
            if (!chosen_[at(topology_.cornerFaces()[at(corner)])]) {
                isTaken_[at(topology_.cornerVertices()[at(corner)])] = true;
            }
        }
    }

    void addFace(std::int32_t face, bool isOwn) {
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            for (std::int32_t corner = topology_.firstCornerOfLoop(face, loop);
                 corner < topology_.firstCornerOfLoop(face, loop + 1); ++corner) {
                const std::int32_t vertex = topology_.cornerVertices()[at(corner)];
                made_.addCorner(corner, isOwn ? ownVertex(vertex, together_ ? 0 : face) : vertex);
            }
            made_.closeLoop();
        }
        made_.closeFace();
    }

    /// The vertex itself for the first owner when nobody else has it, else a copy per owner.
    std::int32_t ownVertex(std::int32_t vertex, std::int32_t owner) {
        if (ownerOf_[at(vertex)] != owner) {
            ownerOf_[at(vertex)] = owner;
            ownVertex_[at(vertex)] = isTaken_[at(vertex)] ? made_.addPoint((*mesh_.points)[at(vertex)]) : vertex;
            isTaken_[at(vertex)] = true;
        }
        return ownVertex_[at(vertex)];
    }

    std::shared_ptr<const ComponentList> withCopies(const ComponentList& list) const {
        NewNumbers copies;
        copies.faces = copies_;
        auto all = std::make_shared<ComponentList>(list);
        const auto ofCopies = renumbered(list, copies);
        for (const ComponentRange& range : ofCopies->ranges) {
            if (!range.index[0].isAll()) {
                all->ranges.push_back(range);
            }
        }
        return all;
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    const std::vector<bool>& chosen_;
    bool together_;
    CornerMesh made_;
    std::vector<bool> isTaken_; // per vertex, whether somebody has it
    Ids ownVertex_, ownerOf_;   // per vertex, the one of its last owner, and who that is
    Ids copies_;                // per face, its copy or kGone
};

} // namespace

std::shared_ptr<MeshData> detachFaces(const MeshData& mesh, const std::vector<bool>& chosen, bool together) {
    return Detacher(mesh, chosen, together).detach();
}

std::shared_ptr<MeshData> duplicateFaces(const MeshData& mesh, const std::vector<bool>& chosen, bool together) {
    return Detacher(mesh, chosen, together).duplicate();
}

} // namespace host
