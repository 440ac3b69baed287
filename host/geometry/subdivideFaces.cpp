#include "host/geometry/cutValues.h"
#include "host/geometry/subdivision.h"

#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

Points middlePoints(const MeshData& mesh, const CutMesh& cut) {
    const MeshTopology& topology = *mesh.topology;
    Points points = *mesh.points;
    points.resize(at(cut.topology->vertexCount()));
    const auto pointOf = [&](std::int32_t vertex) { return Imath::V3d((*mesh.points)[at(vertex)]); };
    for (std::int32_t edge = 0; edge < topology.edgeCount(); ++edge) {
        if (const std::int32_t middle = cut.edgeMiddles[at(edge)]; middle != kGone) {
            const MeshEdge& ends = topology.edges()[at(edge)];
            points[at(middle)] = Imath::V3f((pointOf(ends.start) + pointOf(ends.end)) / 2.0);
        }
    }
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        if (const std::int32_t middle = cut.faceMiddles[at(face)]; middle != kGone) {
            Imath::V3d sum(0.0);
            for (std::int32_t k = 0; k < topology.cornerCount(face); ++k) {
                sum += pointOf(topology.verticesOf(face)[k]);
            }
            points[at(middle)] = Imath::V3f(sum / topology.cornerCount(face));
        }
    }
    return points;
}

std::shared_ptr<MeshData> subdividedOnce(const MeshData& mesh, std::vector<bool>& chosen) {
    const CutMesh cut = cutIntoQuads(*mesh.topology, chosen);
    auto made = std::make_shared<MeshData>(mesh);
    made->topology = cut.topology;
    made->points = std::make_shared<const Points>(middlePoints(mesh, cut));
    for (UvSet& set : made->uvSets) {
        cutValues(*mesh.topology, cut, set.points, set.ids);
    }
    for (ColorSet& set : made->colorSets) {
        cutValues(*mesh.topology, cut, set.colors, set.ids);
    }
    carryGroups(cut, made->groups);
    carryUserNormals(mesh, *made, oldCorners(cut));
    std::vector<bool> parts(at(cut.topology->faceCount()), false);
    for (std::int32_t face = 0; face < mesh.topology->faceCount(); ++face) {
        std::fill(parts.begin() + cut.firstFace[at(face)], parts.begin() + cut.firstFace[at(face + 1)],
                  chosen[at(face)]);
    }
    chosen = std::move(parts);
    return made;
}

} // namespace

std::shared_ptr<MeshData> subdivideFaces(const MeshData& mesh, const std::vector<bool>& chosen, std::int32_t levels) {
    auto made = std::make_shared<MeshData>(mesh);
    std::vector<bool> parts = chosen;
    for (std::int32_t level = 0; level < levels; ++level) {
        made = subdividedOnce(*made, parts);
    }
    return made;
}

} // namespace host
