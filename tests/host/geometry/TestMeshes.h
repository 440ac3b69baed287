#pragma once

#include "host/geometry/MeshData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace host {

/// A mesh of faces given by their vertices, edges in order of first occurrence, all soft.
inline std::shared_ptr<MeshData> meshOfFaces(Points points, const std::vector<std::vector<std::int32_t>>& faces) {
    std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> known;
    std::vector<MeshEdge> edges;
    auto loops = std::make_shared<PolyFaces>();
    for (const std::vector<std::int32_t>& face : faces) {
        for (std::size_t i = 0; i < face.size(); ++i) {
            const std::int32_t from = face[i];
            const std::int32_t to = face[(i + 1) % face.size()];
            const auto [edge, added] = known.emplace(std::minmax(from, to), static_cast<std::int32_t>(edges.size()));
            if (added) {
                edges.push_back({from, to, true});
            }
            const bool isForward = edges[static_cast<std::size_t>(edge->second)].start == from;
            loops->edges.push_back(isForward ? edge->second : -edge->second - 1);
        }
        loops->loopStarts.push_back(static_cast<std::int32_t>(loops->edges.size()));
        loops->faceStarts.push_back(static_cast<std::int32_t>(loops->loopStarts.size()) - 1);
    }
    auto mesh = std::make_shared<MeshData>();
    std::string problem;
    mesh->topology = MeshTopology::make(static_cast<std::int32_t>(points.size()), edges, loops, problem);
    EXPECT_EQ(problem, "");
    mesh->points = std::make_shared<Points>(std::move(points));
    return mesh;
}

/// The same mesh with other edges hard: those whose numbers are given.
inline std::shared_ptr<MeshData> withHardEdges(const MeshData& mesh, const std::vector<std::int32_t>& hard) {
    std::vector<MeshEdge> edges = mesh.topology->edges();
    for (const std::int32_t edge : hard) {
        edges[static_cast<std::size_t>(edge)].smooth = false;
    }
    auto changed = std::make_shared<MeshData>(mesh);
    std::string problem;
    changed->topology =
        MeshTopology::make(mesh.topology->vertexCount(), std::move(edges), mesh.topology->faces(), problem);
    return changed;
}

inline ::testing::AssertionResult isNear(const Imath::V3f& actual, const Imath::V3f& expected,
                                         float tolerance = 1e-6F) {
    for (unsigned axis = 0; axis < 3; ++axis) {
        if (!(std::abs(actual[axis] - expected[axis]) <= tolerance)) {
            return ::testing::AssertionFailure() << actual << " instead of " << expected;
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace host
