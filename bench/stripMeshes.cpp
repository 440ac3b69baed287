#include "bench/stripMeshes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <tuple>

namespace tvk {

namespace {

// "7/8/9", "7//9" or "7": one-based, 0 for what is left out.
Corner readCorner(const std::string& word) {
    std::array<int32_t, 3> numbers{};
    std::size_t part = 0;
    for (const char letter : word) {
        if (letter == '/')
            ++part;
        else if (part < numbers.size())
            numbers[part] = numbers[part] * 10 + (letter - '0');
    }
    Corner corner;
    corner.position = numbers[0];
    corner.texCoord = numbers[1];
    corner.normal = numbers[2];
    return corner;
}

void addFace(FaceList& list, const std::vector<Corner>& face) {
    if (face.size() == 3 || face.size() == 4) {
        list.corners.insert(list.corners.end(), face.begin(), face.end());
        list.sizes.push_back(static_cast<uint8_t>(face.size()));
        return;
    }
    for (std::size_t i = 1; i + 1 < face.size(); ++i)
        addFace(list, {face[0], face[i], face[i + 1]});
}

std::vector<Corner> faceAt(const FaceList& faces, std::size_t start, uint8_t size) {
    const auto begin = faces.corners.begin() + static_cast<std::ptrdiff_t>(start);
    return {begin, begin + size};
}

} // namespace

FaceList readStripMesh(const std::string& folder, const std::string& name) {
    std::ifstream file(folder + "/meshes/" + name + ".obj");
    FaceList list;
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word != "f")
            continue;
        std::vector<Corner> face;
        while (words >> word)
            face.push_back(readCorner(word));
        addFace(list, face);
    }
    return list;
}

FaceList onlyQuads(const FaceList& faces) {
    FaceList quads;
    std::size_t start = 0;
    for (const uint8_t size : faces.sizes) {
        if (size == 4)
            addFace(quads, faceAt(faces, start, size));
        start += size;
    }
    return quads;
}

FaceList onlyTriangles(const FaceList& faces) {
    FaceList triangles;
    std::size_t start = 0;
    for (const uint8_t size : faces.sizes) {
        const std::vector<Corner> face = faceAt(faces, start, size);
        addFace(triangles, {face[0], face[1], face[2]});
        if (size == 4)
            addFace(triangles, {face[0], face[2], face[3]});
        start += size;
    }
    return triangles;
}

FaceList makeStripSheet(int32_t triangles, int32_t matrices) {
    std::mt19937 random(1);
    const auto side = static_cast<int32_t>(std::lround(std::sqrt(triangles / 1.96)));
    const auto cornerAt = [&](int32_t x, int32_t y) {
        Corner corner;
        corner.position = (y % side) * side + x % side;
        corner.matrix = static_cast<int32_t>(int64_t{corner.position} * matrices / (int64_t{side} * side));
        return corner;
    };
    FaceList sheet;
    for (int32_t y = 0; y < side; ++y) {
        for (int32_t x = 0; x < side; ++x) {
            const Corner a = cornerAt(x, y);
            const Corner b = cornerAt(x + 1, y);
            const Corner c = cornerAt(x + 1, y + 1);
            const Corner d = cornerAt(x, y + 1);
            const auto bits = static_cast<uint32_t>(random());
            const bool turned = (bits & 1u) != 0;
            if ((bits & 0x7f00u) != 0)
                addFace(sheet, turned ? std::vector<Corner>{a, b, c} : std::vector<Corner>{a, b, d});
            if ((bits & 0x3f0000u) != 0)
                addFace(sheet, turned ? std::vector<Corner>{a, c, d} : std::vector<Corner>{b, c, d});
        }
    }
    return sheet;
}

FaceList shuffleFaces(const FaceList& faces) {
    std::vector<std::vector<Corner>> all;
    std::size_t start = 0;
    for (const uint8_t size : faces.sizes) {
        all.push_back(faceAt(faces, start, size));
        start += size;
    }
    std::shuffle(all.begin(), all.end(), std::mt19937(1));
    FaceList shuffled;
    for (const std::vector<Corner>& face : all)
        addFace(shuffled, face);
    return shuffled;
}

TriangleIndices indexTriangles(const FaceList& triangles) {
    std::map<std::tuple<int32_t, int32_t, int32_t>, uint32_t> numbers;
    TriangleIndices result;
    for (const Corner& corner : triangles.corners) {
        const auto number = static_cast<uint32_t>(numbers.size());
        const auto entry = numbers.emplace(std::tuple(corner.position, corner.texCoord, corner.normal), number);
        result.indices.push_back(entry.first->second);
    }
    result.vertexCount = static_cast<uint32_t>(numbers.size());
    return result;
}

const std::vector<StripReference>& stripReferences() {
    static const std::vector<StripReference> references{
        {"character-kenney", 1.258, 1.181, 2.239},
        {"cloth-quad", 1.182, 1.128, 2.118},
        {"made-rock-18k", 1.309, 1.260, 0},
        {"made-terrain-grid", 1.021, 1.021, 2.042},
        {"made-torus", 1.021, 1.021, 2.042},
        {"made-uvsphere", 1.096, 1.096, 2.062},
        {"skin-cylinder", 1.048, 1.048, 2.100},
        {"skinned-tube", 1.088, 1.063, 2.083},
        {"spider", 1.494, 1.436, 0},
        {"teapot", 1.258, 1.258, 0},
        {"wuson", 1.279, 1.215, 0},
    };
    return references;
}

} // namespace tvk
