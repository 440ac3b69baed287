#include "host/geometry/extrusion.h"

#include "host/geometry/cornerMesh.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/userNormals.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace host {

namespace {

using Imath::V3d;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

/// Faces that move as one.
struct Part {
    V3d normal{0.0}; // unit length, or 0 0 0
    bool isFlat = true;
    bool isSimple = true; // its border passes no vertex twice, and nowhere turns straight back
};

class Extruder {
public:
    Extruder(const MeshData& mesh, const std::vector<bool>& chosen, const Extrusion& how)
        : mesh_(mesh), topology_(*mesh.topology), chosen_(chosen), how_(how), inverse_(how.matrix.inverse()),
          made_(std::make_shared<Points>(*mesh.points)) {
        for (const Imath::V3f& point : *mesh.points) {
            placed_.push_back(V3d(point) * how.matrix);
        }
    }

    ExtrudedFaces run() {
        findParts();
        findBorders();
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            addFace(face);
        }
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            addSides(face);
        }
        ExtrudedFaces extruded{finish(), doubt()};
        if (extruded.doubt.empty() && hasDoubtfulFoot(*extruded.mesh)) {
            extruded.doubt = "smoothingAngle";
        }
        return extruded;
    }

private:
    static constexpr double kFlat = 1e-4; // of normals that are of unit length, and of the size of a part

    std::int32_t edgeAt(std::int32_t corner) const {
        return MeshTopology::edgeNumber(topology_.cornerEdges()[at(corner)]);
    }
    std::int32_t vertexAt(std::int32_t corner) const { return topology_.cornerVertices()[at(corner)]; }
    bool isChosen(std::int32_t face) const { return chosen_[at(face)] && !topology_.hasHoles(face); }
    std::int32_t nextOf(std::int32_t corner) const {
        const std::int32_t face = topology_.cornerFaces()[at(corner)];
        return corner + 1 == topology_.firstCorner(face + 1) ? topology_.firstCorner(face) : corner + 1;
    }

    template <typename Go>
    void forCorners(std::int32_t face, Go&& go) const {
        for (std::int32_t corner = topology_.firstCorner(face); corner < topology_.firstCorner(face + 1); ++corner) {
            go(corner);
        }
    }

    V3d areaVector(std::int32_t face) const {
        const std::int32_t first = topology_.firstCorner(face);
        V3d sum(0.0);
        for (std::int32_t corner = first + 1; corner + 1 < topology_.firstCorner(face + 1); ++corner) {
            const V3d origin = placed_[at(vertexAt(first))];
            sum += (placed_[at(vertexAt(corner))] - origin) % (placed_[at(vertexAt(corner + 1))] - origin);
        }
        return sum;
    }

    void findParts() {
        partOf_.assign(at(topology_.faceCount()), kGone);
        for (std::int32_t first = 0; first < topology_.faceCount(); ++first) {
            if (isChosen(first) && partOf_[at(first)] == kGone) {
                const Ids faces = connectedFaces(first, static_cast<std::int32_t>(parts_.size()));
                parts_.push_back(partFrom(faces));
            }
        }
    }

    Ids connectedFaces(std::int32_t first, std::int32_t part) {
        Ids faces{first};
        partOf_[at(first)] = part;
        for (std::size_t next = 0; how_.together && next < faces.size(); ++next) {
            forCorners(faces[next], [&](std::int32_t corner) {
                const IndexLists& sides = topology_.facesOfEdge();
                for (const std::int32_t* face = sides.begin(edgeAt(corner)); face != sides.end(edgeAt(corner));
                     ++face) {
                    if (isChosen(*face) && partOf_[at(*face)] == kGone) {
                        partOf_[at(*face)] = part;
                        faces.push_back(*face);
                    }
                }
            });
        }
        return faces;
    }

    Part partFrom(const Ids& faces) const {
        Part part;
        for (const std::int32_t face : faces) {
            part.normal += areaVector(face);
        }
        part.normal.normalize();
        const V3d origin = placed_[at(vertexAt(topology_.firstCorner(faces.front())))];
        double size = 0.0;
        double height = 0.0;
        for (const std::int32_t face : faces) {
            const V3d normal = areaVector(face).normalized();
            part.isFlat = part.isFlat && (normal - part.normal).length() <= kFlat && normal.length() > 0.0;
            forCorners(face, [&](std::int32_t corner) {
                const V3d from = placed_[at(vertexAt(corner))] - origin;
                size = std::max(size, from.length());
                height = std::max(height, std::abs(from ^ part.normal));
            });
        }
        part.isFlat = part.isFlat && height <= kFlat * size;
        return part;
    }

    /// A corner is on the border when the edge behind it has no other face of its part.
    bool isBorder(std::int32_t corner) const {
        const IndexLists& sides = topology_.facesOfEdge();
        const std::int32_t part = partOf_[at(topology_.cornerFaces()[at(corner)])];
        return std::count_if(sides.begin(edgeAt(corner)), sides.end(edgeAt(corner)),
                             [&](std::int32_t face) { return partOf_[at(face)] == part; }) < 2;
    }

    /// Inward directions of the border at its vertices, before and behind each.
    void findBorders() {
        for (std::int32_t corner = 0; corner < topology_.cornerCount(); ++corner) {
            const std::int32_t part = partOf_[at(topology_.cornerFaces()[at(corner)])];
            if (part == kGone || !isBorder(corner)) {
                continue;
            }
            const V3d along = placed_[at(vertexAt(nextOf(corner)))] - placed_[at(vertexAt(corner))];
            const V3d inward = (parts_[at(part)].normal % along).normalized();
            addInward({part, vertexAt(corner)}, inward);
            addInward({part, vertexAt(nextOf(corner))}, inward);
        }
        for (const auto& [place, inward] : borders_) {
            const bool isCorner =
                inward.size() == 2 && 1.0 + (inward[0] ^ inward[1]) > kFlat; // no turning straight back
            parts_[at(place.first)].isSimple = parts_[at(place.first)].isSimple && isCorner;
        }
    }

    using Place = std::pair<std::int32_t, std::int32_t>; // part and vertex

    void addInward(const Place& place, const V3d& inward) { borders_[place].push_back(inward); }

    V3d movedBy(const Place& place) const {
        V3d by = how_.translate + parts_[at(place.first)].normal * how_.along;
        const auto border = borders_.find(place);
        if (how_.offset != 0.0 && border != borders_.end() && border->second.size() == 2) {
            const V3d& a = border->second[0];
            const V3d& b = border->second[1];
            by += (a + b) * (how_.offset / (1.0 + (a ^ b)));
        }
        return by;
    }

    bool isUsedElsewhere(const Place& place) const {
        const IndexLists& corners = topology_.cornersOfVertex();
        return std::any_of(corners.begin(place.second), corners.end(place.second), [&](std::int32_t corner) {
            return partOf_[at(topology_.cornerFaces()[at(corner)])] != place.first;
        });
    }

    /// Where a vertex of a part is afterwards.
    std::int32_t movedVertex(const Place& place) {
        const auto [entry, isNew] = moved_.emplace(place, place.second);
        if (isNew) {
            const Imath::V3f point((placed_[at(place.second)] + movedBy(place)) * inverse_);
            const bool isCopied = borders_.count(place) != 0 || isUsedElsewhere(place);
            if (isCopied) {
                entry->second = made_.addPoint(point);
            } else {
                (*made_.points)[at(place.second)] = point;
            }
        }
        return entry->second;
    }

    void addFace(std::int32_t face) {
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            for (std::int32_t corner = topology_.firstCornerOfLoop(face, loop);
                 corner < topology_.firstCornerOfLoop(face, loop + 1); ++corner) {
                const Place place{partOf_[at(face)], vertexAt(corner)};
                made_.addCorner(corner, place.first == kGone ? place.second : movedVertex(place));
                normalsFrom_.push_back(corner);
            }
            made_.closeLoop();
        }
        made_.closeFace();
    }

    void addSides(std::int32_t face) {
        const std::int32_t part = partOf_[at(face)];
        firstSide_.push_back(made_.faceCount());
        forCorners(face, [&](std::int32_t corner) {
            if (part == kGone || !isBorder(corner)) {
                return;
            }
            const std::int32_t next = nextOf(corner);
            const std::int32_t edge = topology_.cornerEdges()[at(corner)];
            made_.addCorner(corner, vertexAt(corner), edge);
            made_.addCorner(next, vertexAt(next));
            made_.addCorner(next, movedVertex({part, vertexAt(next)}), -edge - 1);
            made_.addCorner(corner, movedVertex({part, vertexAt(corner)}));
            made_.closeLoop();
            made_.closeFace();
            normalsFrom_.insert(normalsFrom_.end(), 4, kGone);
        });
    }

    std::shared_ptr<MeshData> finish() {
        firstSide_.push_back(made_.faceCount());
        const auto mesh = rebuilt(mesh_, made_).mesh;
        if (mesh->userNormals != nullptr) {
            carryUserNormals(mesh_, *mesh, normalsFrom_);
        }
        for (ComponentGroup& group : mesh->groups) {
            const auto sides = withParts(*group.components, ComponentKind::kFace, firstSide_);
            auto all = std::make_shared<ComponentList>(*group.components);
            for (const ComponentRange& range : sides->ranges) {
                const bool isSome = range.kind == ComponentKind::kFace && !range.index[0].isAll() &&
                                    range.index[0].first <= range.index[0].last;
                if (isSome) {
                    all->ranges.push_back(range);
                }
            }
            group.components = std::move(all);
        }
        std::vector<bool> fresh(at(mesh->topology->edgeCount()), false);
        for (std::int32_t face = topology_.faceCount(); face < mesh->topology->faceCount(); ++face) {
            for (std::int32_t k = 1; k < mesh->topology->cornerCount(face); ++k) {
                const std::int32_t edge = mesh->topology->cornerEdges()[at(mesh->topology->firstCorner(face) + k)];
                fresh[at(MeshTopology::edgeNumber(edge))] = true;
            }
        }
        return softenEdges(*mesh, fresh, how_.smoothingAngle, how_.matrix);
    }

    std::string doubt() const {
        for (const Part& part : parts_) {
            if (how_.offset != 0.0 && !(part.isFlat && part.isSimple)) {
                return "offset";
            }
            if (how_.along != 0.0 && !part.isFlat) {
                return "along";
            }
        }
        return {};
    }

    /// Whether a soft edge at the foot of a side would be hard by the angle there.
    bool hasDoubtfulFoot(const MeshData& mesh) const {
        std::vector<bool> feet(at(mesh.topology->edgeCount()), false);
        for (std::int32_t face = topology_.faceCount(); face < mesh.topology->faceCount(); ++face) {
            const std::int32_t edge = mesh.topology->cornerEdges()[at(mesh.topology->firstCorner(face))];
            feet[at(MeshTopology::edgeNumber(edge))] = true;
        }
        const auto softened = softenEdges(mesh, feet, how_.smoothingAngle, how_.matrix);
        for (std::int32_t edge = 0; edge < mesh.topology->edgeCount(); ++edge) {
            if (feet[at(edge)] && mesh.topology->edges()[at(edge)].smooth &&
                !softened->topology->edges()[at(edge)].smooth) {
                return true;
            }
        }
        return false;
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    const std::vector<bool>& chosen_;
    const Extrusion& how_;
    Matrix44 inverse_;
    std::vector<V3d> placed_;
    Ids partOf_; // per face, or kGone
    std::vector<Part> parts_;
    std::map<Place, std::vector<V3d>> borders_;
    std::map<Place, std::int32_t> moved_;
    CornerMesh made_;
    Ids normalsFrom_, firstSide_;
};

} // namespace

ExtrudedFaces extrudeFaces(const MeshData& mesh, const std::vector<bool>& chosen, const Extrusion& how) {
    return Extruder(mesh, chosen, how).run();
}

} // namespace host
