#include "stripMeshChecks.h"

#include "randomFaces.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace tvk::test {

namespace {

template <std::size_t Size>
std::array<int32_t, Size> turned(std::array<int32_t, Size> face) {
    std::rotate(face.begin(), std::min_element(face.begin(), face.end()), face.end());
    return face;
}

StripMesh makeRandom(int32_t faces, double quadShare, uint32_t seed) {
    RandomFaces settings;
    settings.faces = faces;
    settings.quadShare = quadShare;
    settings.isClosed = seed % 2 == 0;
    settings.isShuffled = seed % 3 == 0;
    settings.seed = seed;
    const FaceList list = makeRandomFaces(settings);
    std::vector<int32_t> all(list.sizes.size());
    std::iota(all.begin(), all.end(), 0);
    const WeldedCorners welded = weldCorners(list, faceStarts(list), all);
    StripMesh mesh;
    mesh.sides = quadShare > 0 ? 4 : 3;
    std::size_t at = 0;
    for (const uint8_t size : list.sizes) {
        std::array<int32_t, 4> corners{-1, -1, -1, -1};
        std::copy_n(welded.indices.begin() + static_cast<std::ptrdiff_t>(at), size, corners.begin());
        mesh.corners.push_back(corners);
        at += size;
    }
    linkFaces(mesh);
    return mesh;
}

} // namespace

StripMesh makeTriangles(const std::vector<std::array<int32_t, 3>>& triangles) {
    StripMesh mesh;
    for (const std::array<int32_t, 3>& triangle : triangles)
        mesh.corners.push_back({triangle[0], triangle[1], triangle[2], -1});
    linkFaces(mesh);
    return mesh;
}

StripMesh makeFan(int32_t triangles) {
    std::vector<std::array<int32_t, 3>> fan;
    for (int32_t i = 0; i < triangles; ++i)
        fan.push_back({0, i + 1, (i + 1) % triangles + 1});
    return makeTriangles(fan);
}

StripMesh makeRandomTriangles(int32_t triangles, uint32_t seed) {
    return makeRandom(triangles / 2, 0, seed);
}

StripMesh makeRandomQuads(int32_t quads, uint32_t seed) {
    return makeRandom(quads, 1, seed);
}

std::vector<std::array<int32_t, 3>> sortedTriangles(const StripMesh& mesh) {
    std::vector<std::array<int32_t, 3>> triangles;
    for (const std::array<int32_t, 4>& face : mesh.corners)
        triangles.push_back(turned<3>({face[0], face[1], face[2]}));
    std::sort(triangles.begin(), triangles.end());
    return triangles;
}

std::vector<std::array<int32_t, 3>> sortedTriangles(const std::vector<std::vector<int32_t>>& strips) {
    std::vector<std::array<int32_t, 3>> triangles;
    for (const std::vector<int32_t>& v : strips) {
        for (std::size_t i = 0; i + 2 < v.size(); ++i)
            triangles.push_back(i % 2 == 0 ? turned<3>({v[i], v[i + 1], v[i + 2]})
                                           : turned<3>({v[i + 1], v[i], v[i + 2]}));
    }
    std::sort(triangles.begin(), triangles.end());
    return triangles;
}

std::vector<std::array<int32_t, 4>> sortedQuads(const StripMesh& mesh) {
    std::vector<std::array<int32_t, 4>> quads;
    for (const std::array<int32_t, 4>& face : mesh.corners)
        quads.push_back(turned<4>(face));
    std::sort(quads.begin(), quads.end());
    return quads;
}

std::vector<std::array<int32_t, 4>> sortedQuads(const std::vector<std::vector<int32_t>>& strips) {
    std::vector<std::array<int32_t, 4>> quads;
    for (const std::vector<int32_t>& v : strips) {
        for (std::size_t i = 0; i + 3 < v.size(); i += 2)
            quads.push_back(turned<4>({v[i], v[i + 1], v[i + 3], v[i + 2]}));
    }
    std::sort(quads.begin(), quads.end());
    return quads;
}

} // namespace tvk::test
