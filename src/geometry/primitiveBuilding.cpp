#include "geometry/primitiveBuilding.h"

#include "geometry/StripMesh.h"
#include "geometry/matrixGrouping.h"
#include "geometry/mixedStrips.h"
#include "geometry/primitiveOrder.h"
#include "geometry/quadStrips.h"
#include "geometry/triangleStrips.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tvk {

namespace {

constexpr int64_t kThoroughLimit = 4096; // triangles

// The faces of one group over its distinct corners.
struct GroupFaces {
    std::vector<Corner> vertices;
    std::vector<std::array<int32_t, 4>> triangles; // the fourth is -1
    std::vector<std::array<int32_t, 4>> quads;
};

GroupFaces weldGroup(const FaceList& faces, const std::vector<std::size_t>& starts,
                     const std::vector<int32_t>& chosen) {
    WeldedCorners welded = weldCorners(faces, starts, chosen);
    GroupFaces group;
    std::size_t at = 0;
    for (const int32_t face : chosen) {
        std::array<int32_t, 4> corners{-1, -1, -1, -1};
        const std::size_t size = faces.sizes[static_cast<std::size_t>(face)];
        std::copy_n(welded.indices.begin() + static_cast<std::ptrdiff_t>(at), size, corners.begin());
        at += size;
        (size == 4 ? group.quads : group.triangles).push_back(corners);
    }
    group.vertices = std::move(welded.vertices);
    return group;
}

std::vector<std::vector<int32_t>> buildStrips(std::vector<std::array<int32_t, 4>> faces, uint32_t sides,
                                              StripEffort effort, const std::function<void(double)>& done) {
    if (faces.empty())
        return {};
    StripMesh mesh;
    mesh.sides = sides;
    mesh.corners = std::move(faces);
    linkFaces(mesh);
    sortIntoPatches(mesh);
    return sides == 4 ? buildQuadStrips(mesh, effort, done) : buildTriangleStrips(mesh, effort, done);
}

// The strips of the group with every quad as two triangles, cut from a corner (0 or 1) to the opposite one.
StripSet buildSplitStrips(const GroupFaces& group, std::size_t corner, StripEffort effort,
                          const std::function<void(double)>& done) {
    std::vector<std::array<int32_t, 4>> triangles = group.triangles;
    for (const std::array<int32_t, 4>& quad : group.quads) {
        triangles.push_back({quad[corner], quad[corner + 1], quad[(corner + 2) % 4], -1});
        triangles.push_back({quad[corner], quad[(corner + 2) % 4], quad[(corner + 3) % 4], -1});
    }
    return {buildStrips(std::move(triangles), 3, effort, done), {}};
}

// The strips of the group that send the fewest vertices; among equals those that split the fewest quads.
//   allowance   how many quads may be split; lowered by those that were
StripSet chooseStrips(const GroupFaces& group, StripEffort effort, int64_t& allowance,
                      const std::function<void(double)>& done) {
    const auto part = [&](double from, double to) {
        return [&done, from, to](double portion) { done(from + (to - from) * portion); };
    };
    const auto quadCount = static_cast<int64_t>(group.quads.size());
    StripSet strips{buildStrips(group.triangles, 3, effort, part(0, 0.25)),
                    buildStrips(group.quads, 4, effort, part(0.25, 0.5))};
    if (group.triangles.empty() || quadCount == 0 || allowance <= 0)
        return strips;
    int64_t split = joinMixedStrips(strips, allowance);
    // On regular meshes strips start well along one of the diagonals only.
    for (std::size_t corner = 0; corner < 2 && quadCount <= allowance; ++corner) {
        const double from = 0.5 + 0.25 * static_cast<double>(corner);
        StripSet allSplit = buildSplitStrips(group, corner, effort, part(from, from + 0.25));
        if (vertexCount(allSplit) >= vertexCount(strips))
            continue;
        strips = std::move(allSplit);
        split = quadCount;
    }
    allowance -= split;
    return strips;
}

std::vector<Corner> cornersOf(const GroupFaces& group, const std::vector<int32_t>& indices) {
    std::vector<Corner> corners;
    corners.reserve(indices.size());
    for (const int32_t index : indices)
        corners.push_back(group.vertices[static_cast<std::size_t>(index)]);
    return corners;
}

LooseFaces looseStrips(const GroupFaces& group, const StripSet& strips) {
    LooseFaces loose;
    for (const std::vector<int32_t>& strip : strips.quadStrips) {
        if (strip.size() > 4)
            loose.quadStrips.push_back(cornersOf(group, strip));
        else
            loose.quads.push_back(cornersOf(group, {strip[0], strip[1], strip[3], strip[2]}));
    }
    for (const std::vector<int32_t>& strip : strips.triangleStrips)
        (strip.size() > 3 ? loose.triangleStrips : loose.triangles).push_back(cornersOf(group, strip));
    return loose;
}

LooseFaces looseFaces(const FaceList& faces, const std::vector<std::size_t>& starts,
                      const std::vector<int32_t>& chosen) {
    LooseFaces loose;
    for (const int32_t face : chosen) {
        const auto begin = faces.corners.begin() + static_cast<std::ptrdiff_t>(starts[static_cast<std::size_t>(face)]);
        const uint8_t size = faces.sizes[static_cast<std::size_t>(face)];
        (size == 4 ? loose.quads : loose.triangles).emplace_back(begin, begin + size);
    }
    return loose;
}

void countFaces(MatrixGroup& group) {
    for (const Primitive& primitive : group.primitives) {
        const auto vertices = static_cast<int32_t>(primitive.vertices.size());
        group.vertexCount += vertices;
        switch (primitive.type) {
        case PrimitiveType::kTriangles:
            group.triangleCount += vertices / 3;
            break;
        case PrimitiveType::kQuads:
            group.quadCount += vertices / 4;
            break;
        case PrimitiveType::kTriangleStrip:
            group.triangleCount += vertices - 2;
            break;
        case PrimitiveType::kQuadStrip:
            group.quadCount += vertices / 2 - 1;
            break;
        }
    }
}

bool hasSeveralMatrices(const FaceList& faces) {
    return std::any_of(faces.corners.begin(), faces.corners.end(),
                       [&](const Corner& corner) { return corner.matrix != faces.corners[0].matrix; });
}

} // namespace

StripEffort stripEffortFor(int64_t modelTriangles) {
    return modelTriangles < kThoroughLimit ? StripEffort::kThorough : StripEffort::kStandard;
}

int64_t quadsThatMaySplit(int64_t triangles, int64_t quads) {
    const int64_t free = kPolygonMemory - triangles * kTriangleMemory - quads * kQuadMemory;
    return std::max<int64_t>(0, free / (2 * kTriangleMemory - kQuadMemory));
}

PolygonPrimitives buildPrimitives(const FaceList& faces, const PrimitiveOptions& options) {
    const auto tell = [&](PrimitiveStep step, double done) {
        if (options.progress)
            options.progress(step, done);
    };
    PolygonPrimitives polygon;
    polygon.usesMatrixCommands = hasSeveralMatrices(faces);
    const std::vector<std::size_t> starts = faceStarts(faces);
    const std::vector<FaceGroup> faceGroups =
        groupByMatrices(faces, [&](double done) { tell(PrimitiveStep::kGroupMatrices, done); });

    int64_t allowance = options.splittableQuads;
    int32_t lastMatrix = -1;
    double facesBefore = 0;
    const auto faceCount = static_cast<double>(faces.sizes.size());
    for (const FaceGroup& faceGroup : faceGroups) {
        const auto groupSize = static_cast<double>(faceGroup.faces.size());
        LooseFaces loose;
        if (options.makeStrips) {
            const GroupFaces group = weldGroup(faces, starts, faceGroup.faces);
            loose = looseStrips(group, chooseStrips(group, options.effort, allowance, [&](double done) {
                                    tell(PrimitiveStep::kMakeStrips, (facesBefore + groupSize * done) / faceCount);
                                }));
        } else {
            loose = looseFaces(faces, starts, faceGroup.faces);
        }
        MatrixGroup group;
        group.matrices = faceGroup.matrices;
        group.primitives = orderPrimitives(std::move(loose), lastMatrix, options.makeStrips);
        countFaces(group);
        lastMatrix = group.primitives.back().vertices.back().matrix;
        facesBefore += groupSize;
        polygon.groups.push_back(std::move(group));
        if (options.makeStrips)
            tell(PrimitiveStep::kMakeStrips, facesBefore / faceCount);
    }
    return polygon;
}

} // namespace tvk
