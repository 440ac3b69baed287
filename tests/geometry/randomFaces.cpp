#include "randomFaces.h"

#include "geometry/faceSplitting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

namespace tvk::test {

namespace {

class Sheet {
public:
    explicit Sheet(const RandomFaces& sheetSettings) : settings(sheetSettings), random(sheetSettings.seed) {
        side = std::max(1, static_cast<int32_t>(std::lround(std::sqrt(static_cast<double>(settings.faces)))));
        if (settings.isClosed)
            side = std::max(side, 3);
        points = settings.isClosed ? side : side + 1;
        for (int32_t i = 0; i < points * points; ++i) {
            shifts.push_back({part() * 0.6 - 0.3, part() * 0.6 - 0.3, part() * 0.2});
            const int32_t patch = static_cast<int32_t>(int64_t{i} * settings.matrices / (points * points));
            matrices.push_back(part() < settings.strayMatrices ? any(settings.matrices) : patch);
        }
    }

    FaceList make() {
        for (int32_t y = 0; y < side; ++y) {
            for (int32_t x = 0; x < side; ++x)
                addCell(x, y);
        }
        if (settings.isShuffled)
            std::shuffle(faces.begin(), faces.end(), random);
        FaceList list;
        for (std::vector<Corner>& face : faces) {
            if (settings.isMirrored)
                std::reverse(face.begin() + 1, face.end());
            if (settings.isShuffled)
                std::rotate(face.begin(), face.begin() + any(static_cast<int32_t>(face.size())), face.end());
            list.corners.insert(list.corners.end(), face.begin(), face.end());
            list.sizes.push_back(static_cast<uint8_t>(face.size()));
        }
        return list;
    }

private:
    double part() { return static_cast<double>(random() >> 5) / 134217728.0; }
    int32_t any(int32_t count) { return static_cast<int32_t>(random() % static_cast<uint32_t>(count)); }

    int32_t vertexAt(int32_t x, int32_t y) const { return (y % points) * points + x % points; }

    void addCell(int32_t x, int32_t y) {
        if (skipped > 0) {
            --skipped;
            return;
        }
        if (part() < settings.holeShare)
            return;
        const int32_t a = vertexAt(x, y);
        const int32_t b = vertexAt(x + 1, y);
        const int32_t c = vertexAt(x + 1, y + 1);
        const int32_t d = vertexAt(x, y + 1);
        if (x + 2 < side && part() < settings.largeShare) {
            addLarge(x, y);
            skipped = 1;
        } else if (part() < settings.quadShare) {
            addFace({a, b, c, d});
        } else if (part() < 0.5) {
            addFace({a, b, c});
            addFace({a, c, d});
        } else {
            addFace({a, b, d});
            addFace({b, c, d});
        }
    }

    // Two cells side by side, split into what the console draws.
    void addLarge(int32_t x, int32_t y) {
        const std::vector<std::array<int32_t, 2>> places{{x, y},         {x + 1, y},     {x + 2, y},
                                                         {x + 2, y + 1}, {x + 1, y + 1}, {x, y + 1}};
        std::vector<FacePoint> face;
        std::vector<int32_t> vertices;
        for (const auto& [column, row] : places) {
            const int32_t vertex = vertexAt(column, row);
            const std::array<double, 3>& shift = shifts[static_cast<std::size_t>(vertex)];
            FacePoint point;
            point.point = {column + shift[0], row + shift[1], shift[2]};
            for (std::size_t axis = 0; axis < 3; ++axis)
                point.quantised[axis] = static_cast<int32_t>(std::lround(point.point[axis] * 256));
            point.matrix = matrices[static_cast<std::size_t>(vertex)];
            face.push_back(point);
            vertices.push_back(vertex);
        }
        SplitFaces parts;
        splitFace(face, parts);
        std::size_t at = 0;
        for (const uint8_t size : parts.sizes) {
            std::vector<int32_t> chosen;
            for (std::size_t i = 0; i < size; ++i)
                chosen.push_back(vertices[static_cast<std::size_t>(parts.corners[at++])]);
            addFace(chosen);
        }
    }

    void addFace(const std::vector<int32_t>& vertices) {
        std::vector<Corner> face;
        const bool hasSeam = part() < settings.seamShare;
        const int32_t kind = any(3);
        ++faceNumber;
        for (const int32_t vertex : vertices) {
            Corner corner;
            corner.position = vertex;
            corner.matrix = matrices[static_cast<std::size_t>(vertex)];
            corner.texCoord = vertex;
            corner.normal = vertex / 2;
            corner.color = 7;
            const int32_t own = points * points + faceNumber;
            if (hasSeam)
                (kind == 0 ? corner.texCoord : kind == 1 ? corner.normal : corner.color) = own;
            face.push_back(corner);
        }
        faces.push_back(face);
    }

    RandomFaces settings;
    std::mt19937 random;
    int32_t side = 1;
    int32_t points = 2;
    int32_t skipped = 0;
    int32_t faceNumber = 0;
    std::vector<std::array<double, 3>> shifts;
    std::vector<int32_t> matrices;
    std::vector<std::vector<Corner>> faces;
};

} // namespace

FaceList makeRandomFaces(const RandomFaces& settings) {
    return Sheet(settings).make();
}

} // namespace tvk::test
